// Statuses of the five entry points and identities that need no published data.
#include <gtest/gtest.h>

#include <cmath>

#include "aga_internal.h"
#include "sndl/sndl_aga.h"

using namespace sndl::aga;

namespace {

struct Analysis {
    double y[kComponents] = {};
};

// Gulf Coast gas of the 1994 report.
Analysis gulfCoast() {
    return {{0.965222, 0.002595, 0.005956, 0.018186, 0.004596, 0, 0, 0, 0, 0, 0.000977, 0.001007,
             0.000473, 0.000324, 0.000664}};
}

int32_t detail(Analysis a, double T = 300, double P = 5e6) {
    double vdn = 0, mw = 0;
    return AgaDtlVdnMw(T, P, a.y, &vdn, &mw);
}
int32_t iso(Analysis a, double T = 300, double P = 5e6) {
    double vdn = 0, mw = 0;
    return IsoMcaVdnMw(T, P, a.y, &vdn, &mw);
}

TEST(CompositionStatus, FractionsAndSumsPerMethod) {
    // Catches a composition check missing, too strict, or with the wrong status code.
    Analysis a = gulfCoast();
    EXPECT_EQ(detail(a), SNDL_NORMAL);
    EXPECT_EQ(iso(a), SNDL_NORMAL);

    Analysis negative = a;
    negative.y[kEthane] = -0.001;
    negative.y[kMethane] += 0.019186;
    EXPECT_EQ(detail(negative), SNDL_ERR_YRANGE);

    Analysis offSum = a;
    offSum.y[kMethane] += 2e-6;
    EXPECT_EQ(detail(offSum), SNDL_ERR_YSUM);
    EXPECT_EQ(iso(offSum), SNDL_ERR_YSUM);
    Analysis rounded = a;  // published analyses sum to 1 only within their rounding
    rounded.y[kMethane] += 5e-7;
    EXPECT_EQ(detail(rounded), SNDL_NORMAL);

    // Outside ISO 12213-2's range but within the detail method's.
    Analysis lean;
    lean.y[kMethane] = 0.45;
    lean.y[kNitrogen] = 0.45;
    lean.y[kEthane] = 0.10;
    EXPECT_EQ(detail(lean), SNDL_NORMAL);
    EXPECT_EQ(iso(lean), SNDL_ERR_YRANGE);
    Analysis butanes = a;  // each within 1.5 %, together above
    butanes.y[kIsobutane] = 0.009;
    butanes.y[kButane] = 0.009;
    butanes.y[kMethane] -= 0.009 - 0.000977 + 0.009 - 0.001007;
    EXPECT_EQ(detail(butanes), SNDL_NORMAL);
    EXPECT_EQ(iso(butanes), SNDL_ERR_YRANGE);
}

TEST(RangeStatus, OutsideTemperatureAndPressureStillGivesTheValue) {
    // Catches a range status that withholds the value, or one on the wrong side.
    Analysis a = gulfCoast();
    double vdn = 0, mw = 0;
    EXPECT_EQ(AgaDtlVdnMw(700, 5e6, a.y, &vdn, &mw), SNDL_ERR_TOVER);
    DetailProps props{};
    detailProps(a.y, 700, vdn, props);
    EXPECT_NEAR(props.P, 5000, 1e-9 * 5000);
    EXPECT_GT(mw, 16.0);
    EXPECT_EQ(AgaDtlVdnMw(140, 1e5, a.y, &vdn, &mw), SNDL_ERR_TUNDER);
    EXPECT_EQ(AgaDtlVdnMw(300, 300e6, a.y, &vdn, &mw), SNDL_ERR_POVER);
    EXPECT_GT(vdn, 10.0);
    EXPECT_EQ(IsoMcaVdnMw(220, 5e6, a.y, &vdn, &mw), SNDL_ERR_TUNDER);
    EXPECT_EQ(IsoMcaVdnMw(300, 66e6, a.y, &vdn, &mw), SNDL_ERR_POVER);
    EXPECT_EQ(AgaDtlVdnMw(300, 66e6, a.y, &vdn, &mw), SNDL_NORMAL);

    double x[4] = {0.01, 0.006, 0, 0};
    EXPECT_EQ(AgaGr2VdnMw(340, 5e6, 0.6, x, 4, &vdn, &mw), SNDL_ERR_TOVER);
    EXPECT_GT(vdn, 1.0);
    EXPECT_EQ(AgaGr2VdnMw(260, 5e6, 0.6, x, 4, &vdn, &mw), SNDL_ERR_TUNDER);
    EXPECT_EQ(AgaGr1VdnMw(300, 12.5e6, 38, 0.6, x, 4, &vdn, &mw), SNDL_ERR_POVER);
}

TEST(GrossStatus, HeatingValueDensityAndVector) {
    // Catches wrong limits or codes for the gross inputs, and a page-accepted boundary
    // (476.66 BTU/ft3 converted to MJ/m3) refused by the library.
    double x[4] = {0.01, 0.006, 0, 0};
    double vdn = 0, mw = 0;
    auto gr1 = [&](double hv, double rd) { return AgaGr1VdnMw(300, 5e6, hv, rd, x, 4, &vdn, &mw); };
    EXPECT_EQ(gr1(38.6, 0.58), SNDL_NORMAL);
    EXPECT_EQ(gr1(42.9, 0.7), SNDL_ERR_HOVER);
    EXPECT_EQ(gr1(17.7, 0.6), SNDL_ERR_HUNDER);
    EXPECT_EQ(gr1(476.66 * 1.055056 / 1000 / std::pow(0.3048, 3), 0.6), SNDL_NORMAL);
    EXPECT_EQ(gr1(38.6, 0.871), SNDL_ERR_GOVER);
    EXPECT_EQ(gr1(38.6, 0.553), SNDL_ERR_GUNDER);
    EXPECT_EQ(AgaGr2VdnMw(300, 5e6, 0.553, x, 4, &vdn, &mw), SNDL_ERR_GUNDER);
    EXPECT_EQ(AgaGr2VdnMw(300, 5e6, 0.554, x, 4, &vdn, &mw), SNDL_NORMAL);
    EXPECT_EQ(AgaGr1VdnMw(300, 5e6, 38.6, 0.58, x, 3, &vdn, &mw), SNDL_ERR_XINVALID);
    EXPECT_EQ(AgaGr1VdnMw(300, 5e6, 38.6, 0.58, nullptr, 4, &vdn, &mw), SNDL_ERR_XINVALID);
    double badCO[4] = {0.01, 0.006, 0, 0.04};
    EXPECT_EQ(AgaGr2VdnMw(300, 5e6, 0.6, badCO, 4, &vdn, &mw), SNDL_ERR_YRANGE);
    double badN2[4] = {0.51, 0.006, 0, 0};
    EXPECT_EQ(AgaGr2VdnMw(300, 5e6, 0.6, badN2, 4, &vdn, &mw), SNDL_ERR_YRANGE);
    // Pure methane by heating value and density: the fit leaves a negative nitrogen fraction.
    EXPECT_EQ(gr1(37.7, 0.5539 + 0.0001), SNDL_ERR_XINVALID);
}

TEST(PhaseStatus, NoGasRootGivesDenseValueWithStatusFive) {
    // Catches a solve that returns a liquid-like root silently, or fails beyond the spinodal.
    Analysis methane;
    methane.y[kMethane] = 1.0;
    double vdn = 0, mw = 0;
    EXPECT_EQ(AgaDtlVdnMw(150, 0.9e6, methane.y, &vdn, &mw), SNDL_NORMAL);
    EXPECT_LT(vdn, 1.5);
    EXPECT_EQ(AgaDtlVdnMw(150, 3e6, methane.y, &vdn, &mw), SNDL_ERR_PHASE);
    EXPECT_GT(vdn, 15.0);
    DetailProps props{};
    detailProps(methane.y, 150, vdn, props);
    EXPECT_NEAR(props.P, 3000, 1e-9 * 3000);
    EXPECT_GT(props.dPdD, 0.0);
}

TEST(VanishingPressure, EveryMethodTendsToTheIdealGas) {
    // Catches a unit slip in pressure or density at the entry points (Pa against kPa or bar).
    Analysis a = gulfCoast();
    const double T = 300, P = 1.0, ideal = P / 1000.0 / (kR * T);
    double vdn = 0, mw = 0;
    ASSERT_EQ(AgaDtlVdnMw(T, P, a.y, &vdn, &mw), SNDL_NORMAL);
    EXPECT_NEAR(vdn / ideal, 1.0, 1e-6);
    ASSERT_EQ(IsoMcaVdnMw(T, P, a.y, &vdn, &mw), SNDL_NORMAL);
    EXPECT_NEAR(vdn / ideal, 1.0, 1e-6);
    double x[4] = {0.002595, 0.005956, 0, 0};
    ASSERT_EQ(AgaGr1VdnMw(T, P, 38.6021308, 0.581078, x, 4, &vdn, &mw), SNDL_NORMAL);
    EXPECT_NEAR(vdn / ideal, 1.0, 1e-6);
    ASSERT_EQ(AgaGr2VdnMw(T, P, 0.581078, x, 4, &vdn, &mw), SNDL_NORMAL);
    EXPECT_NEAR(vdn / ideal, 1.0, 1e-6);
    ASSERT_EQ(IsoPpmVdnMw(T, P, 40.66, 0.581, x, 0, &vdn, &mw), SNDL_NORMAL);
    EXPECT_NEAR(vdn / ideal, 1.0, 1e-6);
    ASSERT_EQ(AgaDtlVdnMw(T, 0.0, a.y, &vdn, &mw), SNDL_NORMAL);
    EXPECT_EQ(vdn, 0.0);
    EXPECT_EQ(AgaDtlVdnMw(T, -1.0, a.y, &vdn, &mw), SNDL_ERR_XINVALID);
    EXPECT_EQ(AgaDtlVdnMw(std::nan(""), P, a.y, &vdn, &mw), SNDL_ERR_XINVALID);
}

}  // namespace
