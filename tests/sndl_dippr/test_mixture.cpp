#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "sndl/dippr_catalogue.hpp"
#include "sndl/sndl_dippr.h"

using namespace sndl::dippr;

namespace {

// Dry air by its main components (mole fractions of the standard atmosphere).
std::array<int32_t, 4> kAirIds = {905, 901, 914, 909};
std::array<double, 4> kAirY = {0.78084, 0.209476, 0.00934, 0.000344};

// The natural gas components by their list positions, in Y21 order.
std::array<int32_t, 21> Y21Ids() {
    const int pos[21] = {13, 14, 3,  6,  16, 18, 10, 9,  4, 15, 11,
                         19, 12, 25, 22, 21, 24, 23, 20, 8, 2};
    std::array<int32_t, 21> ids{};
    for (int i = 0; i < 21; ++i) ids[i] = kComponents[pos[i]].id;
    return ids;
}

}  // namespace

// Catches a mixing rule that does not reduce to the pure value for a single component.
TEST(Mixture, PureLimit) {
    int32_t ids[3] = {1, 905, 3};
    double y[3] = {0.0, 1.0, 0.0};
    double mix = 0, pure = 0;
    ASSERT_EQ(DprMixVvs(3, ids, 300.0, y, &mix), 0);
    ASSERT_EQ(DprVvs(905, 300.0, &pure), 0);
    EXPECT_DOUBLE_EQ(mix, pure);
    ASSERT_EQ(DprMixIcp(3, ids, 300.0, y, &mix), 0);
    ASSERT_EQ(DprIcp(905, 300.0, &pure), 0);
    EXPECT_DOUBLE_EQ(mix, pure);
    // A single component goes to its reference equation.
    ASSERT_EQ(DprMixVdn(3, ids, 300.0, 5e6, y, &mix), 0);
    ASSERT_EQ(DprVdn(905, 300.0, 5e6, &pure), 0);
    EXPECT_DOUBLE_EQ(mix, pure);
}

// Catches fractions used unscaled: doubling every fraction must not change any result.
TEST(Mixture, FractionsAreNormalised) {
    std::array<double, 4> twice{};
    for (int i = 0; i < 4; ++i) twice[i] = 2.0 * kAirY[i];
    using Fn = int32_t (*)(int32_t, int32_t*, double, double*, double*);
    for (Fn f : {DprMixVvs, DprMixIcp}) {
        double a = 0, b = 0;
        ASSERT_EQ(f(4, kAirIds.data(), 300.0, kAirY.data(), &a), 0);
        ASSERT_EQ(f(4, kAirIds.data(), 300.0, twice.data(), &b), 0);
        EXPECT_NEAR(a / b, 1.0, 1e-14);
    }
    double a = 0, b = 0;
    ASSERT_EQ(DprMixVdn(4, kAirIds.data(), 300.0, 1e6, kAirY.data(), &a), 0);
    ASSERT_EQ(DprMixVdn(4, kAirIds.data(), 300.0, 1e6, twice.data(), &b), 0);
    EXPECT_NEAR(a / b, 1.0, 1e-14);
    EXPECT_EQ(twice[0], 2.0 * kAirY[0]) << "the caller's fractions stay as given";
}

// Catches a wrong Wilke term or a plain average: air mixed from its components must agree
// with the catalogue's own air row for viscosity, heat capacity and density.
TEST(Mixture, AirFromComponentsMatchesTheAirRow) {
    for (double T : {250.0, 300.0, 500.0}) {
        SCOPED_TRACE(T);
        double mix = 0, air = 0;
        ASSERT_EQ(DprMixVvs(4, kAirIds.data(), T, kAirY.data(), &mix), 0);
        ASSERT_EQ(DprVvs(915, T, &air), 0);
        EXPECT_NEAR(mix / air, 1.0, 0.01);
        ASSERT_EQ(DprMixIcp(4, kAirIds.data(), T, kAirY.data(), &mix), 0);
        ASSERT_EQ(DprIcp(915, T, &air), 0);
        EXPECT_NEAR(mix / air, 1.0, 0.01);
        ASSERT_EQ(DprMixVdn(4, kAirIds.data(), T, 5e6, kAirY.data(), &mix), 0);
        ASSERT_EQ(DprVdn(915, T, 5e6, &air), 0);
        EXPECT_NEAR(mix / air, 1.0, 0.01);
    }
}

// Catches failures with the full natural gas vector, as the wizard passes it.
TEST(Mixture, TwentyOneComponents) {
    std::array<int32_t, 21> ids = Y21Ids();
    std::array<double, 21> y{};
    y.fill(0.001);
    y[0] = 0.9;
    double vis = 0, cp = 0, vdn = 0;
    EXPECT_EQ(DprMixVvs(21, ids.data(), 300.0, y.data(), &vis), 0);
    EXPECT_GT(vis, 1.0e-5);
    EXPECT_LT(vis, 1.3e-5);
    EXPECT_EQ(DprMixIcp(21, ids.data(), 300.0, y.data(), &cp), 0);
    EXPECT_GT(cp, 35000.0);
    EXPECT_EQ(DprMixVdn(21, ids.data(), 300.0, 5e6, y.data(), &vdn), 0);
    const double z = 5e6 / (vdn * 8314.462618 * 300.0);
    EXPECT_GT(z, 0.85);
    EXPECT_LT(z, 0.95);
}

// Catches bad input that slips through: negative fractions, zero sums, unknown components,
// impossible counts. A zero fraction of an unknown id takes no part.
TEST(Mixture, BadInput) {
    int32_t ids[2] = {1, 905};
    double v = -1.0;
    double neg[2] = {1.2, -0.2};
    EXPECT_EQ(DprMixVvs(2, ids, 300.0, neg, &v), SNDL_ERR_YRANGE);
    double zero[2] = {0.0, 0.0};
    EXPECT_EQ(DprMixIcp(2, ids, 300.0, zero, &v), SNDL_ERR_YSUM);
    double y[2] = {0.5, 0.5};
    EXPECT_EQ(DprMixVdn(0, ids, 300.0, 1e5, y, &v), SNDL_ERR_XINVALID);
    EXPECT_EQ(DprMixVdn(2, nullptr, 300.0, 1e5, y, &v), SNDL_ERR_XINVALID);
    int32_t unknown[2] = {1, 777777};
    EXPECT_EQ(DprMixVvs(2, unknown, 300.0, y, &v), SNDL_ERR_NOCOMP);
    EXPECT_EQ(v, -1.0);
    double onlyFirst[2] = {1.0, 0.0};
    EXPECT_EQ(DprMixVvs(2, unknown, 300.0, onlyFirst, &v), SNDL_NORMAL);
}

// Catches range and phase statuses that the mixture hides.
TEST(Mixture, StatusesPassThrough) {
    int32_t ids[2] = {3, 5};  // propane, n-butane
    double y[2] = {0.5, 0.5}, v = 0;
    EXPECT_EQ(DprMixVdn(2, ids, 300.0, 1e5, y, &v), SNDL_NORMAL);
    EXPECT_EQ(DprMixVdn(2, ids, 300.0, 3e6, y, &v), SNDL_ERR_PHASE);
    EXPECT_GT(v * 51.1, 400.0) << "liquid-like root beyond the gas branch";
    EXPECT_EQ(DprMixIcp(2, ids, 100.0, y, &v), SNDL_ERR_TUNDER);
    EXPECT_GT(v, 0.0);
    EXPECT_EQ(DprMixVvs(2, ids, 1200.0, y, &v), SNDL_ERR_TOVER);
    EXPECT_GT(v, 0.0);
}
