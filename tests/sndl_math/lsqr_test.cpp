// SolveLsqr on the fits the transmitter parameters come from: the 12-term gas density surface
// in 1/T and p (kPa), cubics in T, the expansion factor quadratic.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "sndl/sndl_math.h"

namespace {

constexpr double kTol = 1e-12;

// Row of the gas density basis: p^m (1, u, u^2) for m = 0..3, u = 1/T.
void GasRow(double T, double pKPa, double* row) {
    const double u = 1.0 / T;
    double pm = 1.0;
    for (int m = 0; m < 4; ++m, pm *= pKPa) {
        row[3 * m] = pm;
        row[3 * m + 1] = pm * u;
        row[3 * m + 2] = pm * u * u;
    }
}

struct Fit {
    int32_t status;
    std::vector<double> c, yCal;
    double sigma;
};

Fit FitOf(std::vector<double> X, std::vector<double> Y, int nData, int nTerm, int nCol) {
    Fit f{0, std::vector<double>(nTerm, -1.0), std::vector<double>(nData, -1.0), -1.0};
    f.status = SolveLsqr(X.data(), Y.data(), nData, 0, nTerm, nCol, f.c.data(), f.yCal.data(),
                         &f.sigma, kTol);
    return f;
}

// A smooth steam-like density: ideal gas with a second virial term, kg/m3.
double Density(double T, double pKPa) {
    const double B = -0.02 * std::pow(400.0 / T, 3.0);  // m3/kg
    return pKPa * 1e3 / (461.5 * T) * (1.0 - B * pKPa * 1e3 / (461.5 * T));
}

// Catches a solver that only approximates square systems: the 3 x 4 grid of 12 points must give
// back the 12 coefficients it was built from, with zero sigma.
TEST(SolveLsqr, SquareGasSurfaceRecoversCoefficients) {
    const double c0[12] = {1.5,   -800.0, 2e5,  3e-3,  -1.1,  400.0,
                           -2e-6, 1e-3,   -0.3, 4e-10, -2e-7, 5e-5};
    std::vector<double> X(12 * 12), Y(12);
    int k = 0;
    for (double T : {350.0, 400.0, 450.0})
        for (double p : {100.0, 400.0, 700.0, 1000.0}) {
            GasRow(T, p, &X[12 * k]);
            Y[k] = 0.0;
            for (int j = 0; j < 12; ++j) Y[k] += c0[j] * X[12 * k + j];
            ++k;
        }
    const Fit f = FitOf(X, Y, 12, 12, 12);
    ASSERT_EQ(f.status, SNDL_NORMAL);
    for (int j = 0; j < 12; ++j) EXPECT_NEAR(f.c[j], c0[j], 1e-6 * std::fabs(c0[j])) << j;
    for (int i = 0; i < 12; ++i) EXPECT_NEAR(f.yCal[i], Y[i], 1e-10 * std::fabs(Y[i])) << i;
    EXPECT_EQ(f.sigma, 0.0);
}

// Catches a wrong leading dimension or term count: a 4-term cubic in T and a 3-term quadratic
// read from rows wider than the fit (nCol > nTerm) are solved exactly.
TEST(SolveLsqr, SmallSquareSystemsWithWiderRows) {
    const double c0[4] = {1.2e-3, -5e-6, 8e-9, -4e-12};
    std::vector<double> X(4 * 6, 99.0), Y(4);
    for (int i = 0; i < 4; ++i) {
        const double T = 300.0 + 50.0 * i;
        Y[i] = 0.0;
        for (int j = 0; j < 4; ++j) {
            X[6 * i + j] = std::pow(T, j);
            Y[i] += c0[j] * X[6 * i + j];
        }
    }
    const Fit f = FitOf(X, Y, 4, 4, 6);
    ASSERT_EQ(f.status, SNDL_NORMAL);
    for (int j = 0; j < 4; ++j) EXPECT_NEAR(f.c[j], c0[j], 1e-7 * std::fabs(c0[j])) << j;

    std::vector<double> Xq = {1, 0.0, 0.0, 1, 0.1, 0.01, 1, 0.2, 0.04};
    const Fit q = FitOf(Xq, {1.0, 0.97, 0.95}, 3, 3, 3);
    ASSERT_EQ(q.status, SNDL_NORMAL);
    EXPECT_NEAR(q.c[0], 1.0, 1e-14);
    EXPECT_NEAR(q.c[1], -0.35, 1e-12);
    EXPECT_NEAR(q.c[2], 0.5, 1e-11);
}

// Catches a rank test fooled by noise, or a solver that returns garbage for a singular basis:
// two equal temperatures in the 3 x 4 grid leave only 8 independent rows.
TEST(SolveLsqr, EqualTemperaturesAreRankDeficient) {
    std::vector<double> X(12 * 12), Y(12);
    int k = 0;
    for (double T : {350.0, 400.0, 400.0})
        for (double p : {100.0, 400.0, 700.0, 1000.0}) {
            GasRow(T, p, &X[12 * k]);
            Y[k] = Density(T, p);
            ++k;
        }
    EXPECT_EQ(FitOf(X, Y, 12, 12, 12).status, SNDL_ERR_RANK);
    // A narrow but workable range is full rank; a 1 % pressure span is too narrow to tell p^3
    // from p^2 at this tolerance.
    auto grid = [&](double T0, double dT, double p0, double dp) {
        int r = 0;
        for (int i = 0; i < 3; ++i)
            for (int j = 0; j < 4; ++j) GasRow(T0 + i * dT, p0 + j * dp, &X[12 * r++]);
        return FitOf(X, Y, 12, 12, 12).status;
    };
    EXPECT_EQ(grid(400.0, 2.5, 100.0, 50.0 / 3.0), SNDL_NORMAL);
    EXPECT_EQ(grid(400.0, 2.5, 100.0, 1.0 / 3.0), SNDL_ERR_RANK);
}

// Normal equations of the column-scaled basis, solved in long double: an independent path to
// the least-squares coefficients.
std::vector<double> NormalEquations(const std::vector<double>& X, const std::vector<double>& Y,
                                    int n, int m) {
    std::vector<long double> s(m), a(m * m), b(m);
    for (int j = 0; j < m; ++j) {
        long double q = 0;
        for (int i = 0; i < n; ++i) q += (long double)X[m * i + j] * X[m * i + j];
        s[j] = 1.0L / std::sqrt(q);
    }
    for (int r = 0; r < m; ++r) {
        for (int c = 0; c < m; ++c)
            for (int i = 0; i < n; ++i) a[m * r + c] += X[m * i + r] * s[r] * X[m * i + c] * s[c];
        for (int i = 0; i < n; ++i) b[r] += X[m * i + r] * s[r] * Y[i];
    }
    for (int col = 0; col < m; ++col) {
        int piv = col;
        for (int r = col + 1; r < m; ++r)
            if (std::fabs(a[m * r + col]) > std::fabs(a[m * piv + col])) piv = r;
        for (int c = 0; c < m; ++c) std::swap(a[m * col + c], a[m * piv + c]);
        std::swap(b[col], b[piv]);
        for (int r = col + 1; r < m; ++r) {
            const long double f = a[m * r + col] / a[m * col + col];
            for (int c = col; c < m; ++c) a[m * r + c] -= f * a[m * col + c];
            b[r] -= f * b[col];
        }
    }
    std::vector<double> x(m);
    std::vector<long double> xl(m);
    for (int r = m - 1; r >= 0; --r) {
        long double v = b[r];
        for (int c = r + 1; c < m; ++c) v -= a[m * r + c] * xl[c];
        xl[r] = v / a[m * r + r];
        x[r] = static_cast<double>(xl[r] * s[r]);
    }
    return x;
}

// Catches a wrong least-squares solution or sigma in the overdetermined 63-point density fit
// (7 temperatures by 9 pressures), against the normal equations in extended precision.
TEST(SolveLsqr, Overdetermined63By12MatchesNormalEquations) {
    std::vector<double> X(63 * 12), Y(63);
    int k = 0;
    for (int i = 0; i < 7; ++i)
        for (int j = 0; j < 9; ++j) {
            const double T = 420.0 + 20.0 * i, p = 100.0 + 150.0 * j;
            GasRow(T, p, &X[12 * k]);
            Y[k] = Density(T, p) * (1.0 + 1e-4 * std::sin(7.0 * k));  // table noise
            ++k;
        }
    const std::vector<double> ref = NormalEquations(X, Y, 63, 12);
    const Fit f = FitOf(X, Y, 63, 12, 12);
    ASSERT_EQ(f.status, SNDL_NORMAL);
    double ss = 0.0;
    for (int i = 0; i < 63; ++i) {
        double y = 0.0;
        for (int j = 0; j < 12; ++j) y += ref[j] * X[12 * i + j];
        EXPECT_NEAR(f.yCal[i], y, 1e-9 * std::fabs(y)) << i;
        ss += (Y[i] - y) * (Y[i] - y);
    }
    for (int j = 0; j < 12; ++j) EXPECT_NEAR(f.c[j], ref[j], 1e-5 * std::fabs(ref[j])) << j;
    EXPECT_NEAR(f.sigma, std::sqrt(ss / (63 - 12)), 1e-6 * f.sigma);
    EXPECT_GT(f.sigma, 0.0);
}

// Catches sizes that slip through to the decomposition: each bad combination has its status.
TEST(SolveLsqr, SizeStatuses) {
    std::vector<double> X(12 * 12, 1.0), Y(12, 1.0), c(12), yCal(12);
    double sigma = 0.0;
    EXPECT_EQ(SolveLsqr(X.data(), Y.data(), 3, 0, 4, 4, c.data(), yCal.data(), &sigma, kTol),
              SNDL_ERR_LESSDATA);
    EXPECT_EQ(SolveLsqr(X.data(), Y.data(), 0, 0, 3, 3, c.data(), yCal.data(), &sigma, kTol),
              SNDL_ERR_LESSDATA);
    EXPECT_EQ(SolveLsqr(X.data(), Y.data(), 12, 0, 4, 3, c.data(), yCal.data(), &sigma, kTol),
              SNDL_ERR_SIZE);
    EXPECT_EQ(SolveLsqr(X.data(), Y.data(), 12, 0, 0, 3, c.data(), yCal.data(), &sigma, kTol),
              SNDL_ERR_SIZE);
    EXPECT_EQ(SolveLsqr(X.data(), Y.data(), -1, 0, 3, 3, c.data(), yCal.data(), &sigma, kTol),
              SNDL_ERR_SIZE);
    EXPECT_EQ(SolveLsqr(X.data(), Y.data(), 12, -1, 3, 3, c.data(), yCal.data(), &sigma, kTol),
              SNDL_ERR_SIZE);
    EXPECT_EQ(SolveLsqr(nullptr, Y.data(), 12, 0, 3, 3, c.data(), yCal.data(), &sigma, kTol),
              SNDL_ERR_SIZE);
}

// Catches constraint rows that are ignored: with c0 + c1 = 0 imposed, a line through (0, 1),
// (1, 2), (2, 3) is fitted by c0 (1 - x) in the least-squares sense.
TEST(SolveLsqr, ConstraintRowsAreHonoured) {
    std::vector<double> X = {1, 0, 1, 1, 1, 2, 1, 1};  // three data rows, one constraint row
    std::vector<double> Y = {1, 2, 3};
    std::vector<double> c(2), yCal(3);
    double sigma = 0.0;
    ASSERT_EQ(SolveLsqr(X.data(), Y.data(), 3, 1, 2, 2, c.data(), yCal.data(), &sigma, kTol),
              SNDL_NORMAL);
    EXPECT_NEAR(c[0] + c[1], 0.0, 1e-14);
    // Minimise (c - 1)^2 + (0 - 2)^2 + (-c - 3)^2: c = -1.
    EXPECT_NEAR(c[0], -1.0, 1e-13);
    EXPECT_NEAR(yCal[2], 1.0, 1e-13);
}

}  // namespace
