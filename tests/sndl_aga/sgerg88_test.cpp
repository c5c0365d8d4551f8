// ISO 12213-3 (SGERG-88) against the standard's example gases and computed cases.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "../common/DataTable.h"
#include "aga_internal.h"
#include "sndl/sndl_aga.h"

using namespace sndl::aga;

namespace {

using qdf::testdata::Row;

const std::vector<Row>& sgergCases() {
    static const std::vector<Row> rows =
        qdf::testdata::Load("tests/sndl_aga/data/sgerg88_cases.csv");
    return rows;
}

class SgergCase : public ::testing::TestWithParam<Row> {};

TEST_P(SgergCase, ReproducesCompressionFactor) {
    // Catches errors in step 1 (B at 0 degC, the H2/CO terms of gas 4, the nitrogen cube term
    // of gas 6) and unit slips (bar against Pa, percent against fraction, Hs basis).
    const Row& row = GetParam();
    const double Hs = row.num("Hs"), d = row.num("d"), xCO2 = row.num("xCO2");
    const double xH2 = row.num("xH2"), T = row.num("T_K"), P = row.num("P_Pa");

    GrossGas gas{};
    ASSERT_EQ(sgergCharacterize(Hs, d, xCO2, xH2, gas), SNDL_NORMAL);
    // The published step 1 stops early (x_N2 within 2e-6, H within 6e-6 relative).
    EXPECT_NEAR(gas.xCH, row.num("xCH"), 1e-5);
    EXPECT_NEAR(gas.xN2, row.num("xN2"), 1e-5);
    EXPECT_NEAR(gas.HCH, row.num("HCH"), 2e-5 * row.num("HCH"));

    double x[4] = {0.0, xCO2, xH2, 0.0};
    double vdn = 0, mw = 0;
    ASSERT_EQ(IsoPpmVdnMw(T, P, Hs, d, x, 0, &vdn, &mw), SNDL_NORMAL);
    const double Z = P / 1000.0 / (vdn * kR * T);
    if (row.has("Z_pub")) {
        EXPECT_NEAR(Z, row.num("Z_pub"), 1e-5);
    }
    EXPECT_NEAR(Z, row.num("Z"), 1e-5 * row.num("Z"));
    EXPECT_NEAR(vdn, row.num("D"), 1e-5 * row.num("D"));
    EXPECT_NEAR(mw, row.num("M"), 2e-5 * row.num("M"));
}

INSTANTIATE_TEST_SUITE_P(Iso12213, SgergCase, ::testing::ValuesIn(sgergCases()),
                         qdf::testdata::RowName);

TEST(SgergReject, RefusesInputsOutsideTheMethod) {
    // Catches accepting gases the method cannot represent, or the wrong status for each.
    const struct {
        double Hs, d, xCO2, xH2, T, P;
        int32_t status;
        const char* why;
    } rejects[] = {
        {30, 0.75, 0.2, 0, 263, 6e6, SNDL_ERR_XINVALID, "d below the limit for the derived N2"},
        {44, 0.55, 0, 0, 280, 5e6, SNDL_ERR_XINVALID, "derived N2 below -0.01"},
        {38, 0.62, 0.01, 0, 280, 13e6, SNDL_ERR_POVER, "pressure above 12 MPa"},
        {50, 0.62, 0.01, 0, 280, 5e6, SNDL_ERR_HOVER, "Hs above 48 MJ/m3"},
        {19.9, 0.62, 0.01, 0, 280, 5e6, SNDL_ERR_HUNDER, "Hs below 20 MJ/m3"},
        {38, 0.95, 0.01, 0, 280, 5e6, SNDL_ERR_GOVER, "d above 0.90"},
        {38, 0.54, 0.01, 0, 280, 5e6, SNDL_ERR_GUNDER, "d below 0.55"},
        {38, 0.62, 0.35, 0, 280, 5e6, SNDL_ERR_YRANGE, "xCO2 above 0.30"},
        {38, 0.62, 0.01, 0.11, 280, 5e6, SNDL_ERR_YRANGE, "xH2 above 0.10"},
        {38, 0.56, 0.02, 0, 280, 5e6, SNDL_ERR_XINVALID, "d below 0.55 + 0.97 xCO2"},
        {38, 0.62, 0.01, 0, 340, 5e6, SNDL_ERR_TOVER, "T above 338.15 K"},
        {38, 0.62, 0.01, 0, 250, 5e6, SNDL_ERR_TUNDER, "T below 250.15 K"},
    };
    for (const auto& r : rejects) {
        double x[4] = {0, r.xCO2, r.xH2, 0};
        double vdn = -1, mw = -1;
        EXPECT_EQ(IsoPpmVdnMw(r.T, r.P, r.Hs, r.d, x, 0, &vdn, &mw), r.status) << r.why;
    }
}

}  // namespace
