// Linear least squares for the coefficient fits: column-equilibrated, column-pivoting
// Householder QR (rank revealing), with optional homogeneous equality constraints.
//
// tol is a relative rank threshold on the pivots of R after every column of the basis is
// scaled to unit length. The scaling makes the test independent of the units of the basis (1/T
// next to p^3 in kPa spans twenty decades); without it every such fit would look rank deficient.
#include "sndl/sndl_math.h"

#include <Eigen/Dense>
#include <cmath>

namespace {

// Up to this size the work matrices live on the stack; the usual fits are 12 x 12 and 63 x 12.
constexpr int kMaxRows = 128;
constexpr int kMaxCols = 16;

using Small =
    Eigen::Matrix<double, Eigen::Dynamic, Eigen::Dynamic, Eigen::ColMajor, kMaxRows, kMaxCols>;
using SmallVec = Eigen::Matrix<double, Eigen::Dynamic, 1, 0, kMaxRows, 1>;
using RowMajorMap =
    Eigen::Map<Eigen::Matrix<double, Eigen::Dynamic, Eigen::Dynamic, Eigen::RowMajor>, 0,
               Eigen::OuterStride<>>;

template <class Mat, class Vec>
int32_t Solve(RowMajorMap X, const double* Y, int nData, int nCons, int nTerm, double* c,
              double* yCal, double* sigma, double tol) {
    // Scale columns to unit length over data and constraint rows together.
    Vec scale(nTerm);
    for (int j = 0; j < nTerm; ++j) {
        const double n = X.col(j).norm();
        scale(j) = n > 0.0 ? 1.0 / n : 1.0;
        X.col(j) *= scale(j);
    }

    Mat A = X.topRows(nData);
    Vec b = Eigen::Map<const Eigen::VectorXd>(Y, nData);
    Vec z(nTerm);
    if (nCons > 0) {
        // Constraint rows C c = 0: search within the null space of C only.
        Eigen::ColPivHouseholderQR<Mat> qc(Mat(X.bottomRows(nCons).transpose()));
        qc.setThreshold(tol);
        const int free = nTerm - static_cast<int>(qc.rank());
        if (free <= 0) return SNDL_ERR_RANK;
        const Mat Q = qc.householderQ();
        const Mat N = Q.rightCols(free);
        Eigen::ColPivHouseholderQR<Mat> qr(Mat(A * N));
        qr.setThreshold(tol);
        if (qr.rank() < free) return SNDL_ERR_RANK;
        z = N * Vec(qr.solve(b));
    } else {
        Eigen::ColPivHouseholderQR<Mat> qr(A);
        qr.setThreshold(tol);
        if (qr.rank() < nTerm) return SNDL_ERR_RANK;
        z = qr.solve(b);
    }

    double ss = 0.0;
    for (int i = 0; i < nData; ++i) {
        const double f = A.row(i).dot(z);
        yCal[i] = f;
        ss += (Y[i] - f) * (Y[i] - f);
    }
    for (int j = 0; j < nTerm; ++j) c[j] = z(j) * scale(j);
    const int dof = nData + nCons - nTerm;
    *sigma = dof > 0 ? std::sqrt(ss / dof) : 0.0;
    return SNDL_NORMAL;
}

}  // namespace

extern "C" int32_t SolveLsqr(double* X, double* Y, int32_t nData, int32_t nCons, int32_t nTerm,
                             int32_t nCol, double* c, double* yCal, double* sigma, double tol) {
    if (X == nullptr || Y == nullptr || c == nullptr || yCal == nullptr || sigma == nullptr ||
        nTerm < 1 || nData < 0 || nCons < 0 || nCol < nTerm || !(tol >= 0.0))
        return SNDL_ERR_SIZE;
    if (nData < nTerm - nCons) return SNDL_ERR_LESSDATA;
    const int rows = nData + nCons;
    for (int i = 0; i < rows * nCol; ++i)
        if (!std::isfinite(X[i])) return SNDL_ERR_XINVALID;
    for (int i = 0; i < nData; ++i)
        if (!std::isfinite(Y[i])) return SNDL_ERR_XINVALID;

    RowMajorMap map(X, rows, nTerm, Eigen::OuterStride<>(nCol));
    if (rows <= kMaxRows && nTerm <= kMaxCols && nCons <= kMaxCols)
        return Solve<Small, SmallVec>(map, Y, nData, nCons, nTerm, c, yCal, sigma, tol);
    return Solve<Eigen::MatrixXd, Eigen::VectorXd>(map, Y, nData, nCons, nTerm, c, yCal, sigma,
                                                   tol);
}
