#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "../common/DataTable.h"
#include "sndl/dippr_catalogue.hpp"
#include "sndl/sndl_dippr.h"

using namespace sndl::dippr;

namespace {

using qdf::testdata::Row;

// The library's value for one row of the reference table, in the table's units.
int32_t Compute(const Row& row, double& value) {
    const int pos = FindByName(row.text("compound").c_str());
    if (pos < 0) return SNDL_ERR_NOCOMP;
    const Component& c = kComponents[pos];
    const std::string& q = row.text("quantity");
    const double T = row.num("T_K");
    if (q == "vp") {
        value = Evaluate(c.vp, T, c.tc_K);
        return value > 0 ? 0 : -1;
    }
    if (q == "ldn_mass") {
        double mw = 0;
        const int32_t st = DprLdn(c.id, T, &value);
        DprMw(c.id, &mw);
        value *= mw;
        return st;
    }
    if (q == "lvs") return DprLvs(c.id, T, &value);
    if (q == "vvs") return DprVvs(c.id, T, &value);
    if (q == "icp") return DprIcp(c.id, T, &value);
    return -1;
}

class CorrelationCheckTest : public ::testing::TestWithParam<Row> {};

}  // namespace

// Catches a wrong coefficient, unit or equation form: each correlation must give the value
// printed for it (6 digits) and stay within the deviation recorded against the independent
// source.
TEST_P(CorrelationCheckTest, ReproducesRecordedValues) {
    const Row& row = GetParam();
    double v = 0.0;
    ASSERT_EQ(Compute(row, v), SNDL_NORMAL) << row.where();
    EXPECT_NEAR(v / row.num("correlation"), 1.0, 6e-6) << row.where();
    const double dev = (v - row.num("independent")) / row.num("independent");
    EXPECT_NEAR(dev, row.num("deviation"), 1.5e-4)
        << row.where() << " against " << row.text("source");
}

INSTANTIATE_TEST_SUITE_P(
    Table, CorrelationCheckTest,
    ::testing::ValuesIn(qdf::testdata::Load("tests/sndl_dippr/data/correlation_checks.csv")),
    qdf::testdata::RowName);

// Catches a corrupt row anywhere in the catalogue (a lost exponent, a coefficient in the wrong
// column): every correlation of every component must be physically plausible over its range.
TEST(Correlations, EveryRowIsPlausibleOverItsRange) {
    for (const Component& c : kComponents) {
        SCOPED_TRACE(c.name);
        for (double f : {0.0, 0.5, 1.0}) {
            double v = 0.0;
            // The upper end exactly, so that rounding does not leave the range.
            auto at = [f](const Correlation& k) {
                return f == 1.0 ? k.tmax_K : k.tmin_K + f * (k.tmax_K - k.tmin_K);
            };
            const double tIcp = at(c.icp);
            ASSERT_EQ(DprIcp(c.id, tIcp, &v), 0);
            // Never below the translational 5/2 R, and below 300 R for these molecules.
            EXPECT_GT(v, 20786.0 * 0.999) << tIcp;
            EXPECT_LT(v, 300 * 8314.0) << tIcp;

            const double tVvs = at(c.vvs);
            ASSERT_EQ(DprVvs(c.id, tVvs, &v), 0);
            EXPECT_GT(v, 1e-7) << tVvs;
            EXPECT_LT(v, 2e-4) << tVvs;

            const double tLvs = at(c.lvs);
            ASSERT_EQ(DprLvs(c.id, tLvs, &v), 0);
            EXPECT_GT(v, 1e-6) << tLvs;
            EXPECT_LT(v, 2000.0) << tLvs;  // glycols near their glass point

            const double tLdn = at(c.ldn);
            ASSERT_EQ(DprLdn(c.id, tLdn, &v), 0);
            EXPECT_GT(v * c.mw_kg_kmol, 30.0) << tLdn;
            EXPECT_LT(v * c.mw_kg_kmol, 4000.0) << tLdn;  // bromine is above 3000
        }
        // A vapour-pressure fit that runs to Tc ends at about the critical pressure. Five
        // rows of the second source do not: their fits and critical constants disagree.
        const std::string name = c.name;
        const bool knownMismatch = name == "ANILINE" || name == "NITROBENZENE" ||
                                   name == "TRICHLOROETHYLENE" || name == "DIETHYLENE GLYCOL" ||
                                   name == "TRIETHYLENE GLYCOL";
        if (c.vp.tmax_K >= 0.99 * c.tc_K && !knownMismatch) {
            EXPECT_NEAR(Evaluate(c.vp, c.vp.tmax_K, c.tc_K) / c.pc_Pa, 1.0, 0.06);
        }
        // At the normal boiling point it is one atmosphere. CO2 and SF6 sublime, so their tb
        // is off the liquid curve.
        if (c.id != 909 && name != "SULFUR HEXAFLUORIDE") {
            EXPECT_NEAR(Evaluate(c.vp, c.tb_K, c.tc_K) / 101325.0, 1.0, 0.12) << c.tb_K;
        }
    }
}

// Catches a range test that refuses to compute: outside its range a correlation still gives
// its value, with status 1 above and 2 below, continuous with the value at the limit.
TEST(Correlations, OutOfRangeStatusKeepsTheValue) {
    double lo = 0, hi = 0, atLimit = 0, beyond = 0;
    ASSERT_EQ(DprVvsRng(905, &lo, &hi), 0);  // nitrogen
    ASSERT_EQ(DprVvs(905, hi, &atLimit), 0);
    EXPECT_EQ(DprVvs(905, hi * 1.001, &beyond), SNDL_ERR_TOVER);
    EXPECT_NEAR(beyond / atLimit, 1.0, 2e-3);
    ASSERT_EQ(DprVvs(905, lo, &atLimit), 0);
    EXPECT_EQ(DprVvs(905, lo * 0.999, &beyond), SNDL_ERR_TUNDER);
    EXPECT_NEAR(beyond / atLimit, 1.0, 2e-3);

    ASSERT_EQ(DprIcpRng(902, &lo, &hi), 0);  // hydrogen: the fit begins at 250 K
    EXPECT_EQ(DprIcp(902, 200.0, &beyond), SNDL_ERR_TUNDER);
    EXPECT_GT(beyond, 20000.0);
    EXPECT_EQ(DprLvs(1, 200.0, &beyond), SNDL_ERR_TOVER);  // methane liquid above Tc
    EXPECT_TRUE(std::isfinite(beyond));
}

// Catches NaN or overflow at the edges of the forms: equation 105 and 116 beyond their
// critical temperature, equation 107 far below its range where C/T is large.
TEST(Correlations, FormsStayFiniteAtTheirEdges) {
    double v = 0;
    // Water's liquid density (equation 116) is A, the critical molar density, at Tc and above.
    EXPECT_EQ(DprLdn(1921, 647.096, &v), 0);
    EXPECT_NEAR(v, 17.863, 1e-12);
    EXPECT_EQ(DprLdn(1921, 700.0, &v), SNDL_ERR_TOVER);
    EXPECT_NEAR(v, 17.863, 1e-12);
    // Equation 105 above its C gives A/B (air: C = 132.45 K, below the row's Tc).
    EXPECT_EQ(DprLdn(915, 132.5, &v), SNDL_ERR_TOVER);
    EXPECT_NEAR(v, 2.8963 / 0.26733, 1e-12);
    // Equation 107 at 1 K: C/T in the thousands; the value tends to A.
    EXPECT_EQ(DprIcp(1, 1.0, &v), SNDL_ERR_TUNDER);
    EXPECT_NEAR(v, 33298.0, 1e-6);
    // Bad temperatures and missing outputs are refused without a value.
    EXPECT_EQ(DprIcp(1, 0.0, &v), SNDL_ERR_XINVALID);
    EXPECT_EQ(DprLvs(1, -5.0, &v), SNDL_ERR_XINVALID);
    EXPECT_EQ(DprVvs(1, std::nan(""), &v), SNDL_ERR_XINVALID);
    EXPECT_EQ(DprVvs(1, 300.0, nullptr), SNDL_ERR_XINVALID);
    EXPECT_EQ(DprVvsRng(1, nullptr, &v), SNDL_ERR_XINVALID);
}
