#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <string>

#include "CodeTables.h"
#include "ComponentTables.h"
#include "ModUnit.h"
#include "PropertyFixture.h"
#include "SND.h"
#include "sndl/sndl_dippr.h"

namespace qdf::test {
namespace {

TEST(ClistTest, NamesAreCutAtTheirNulOrFieldEnd) {
    // Catches names that keep their padding, or a 50-byte name cut short or run into the next.
    std::string buffer(SND::kClistNameBytes, ' ');
    const std::string fifty(50, 'Q');
    buffer.replace(0, 4, std::string("AIR\0", 4));
    buffer.replace(50, 50, fifty);
    buffer.replace(100, 8, std::string("METHANE\0", 8));
    const auto names = SND::SplitClistNames(buffer, 3);
    ASSERT_EQ(names.size(), 3u);
    EXPECT_EQ(names[0], "AIR");
    EXPECT_EQ(names[1], fifty);
    EXPECT_EQ(names[2], "METHANE");
    EXPECT_TRUE(SND::SplitClistNames(buffer, 0).empty());
}

TEST(ClistTest, WrapperGivesArraysOfExactlyTheCount) {
    // Catches arrays sized to the buffer instead of the count, or names and ids out of step.
    std::vector<std::string> names;
    std::vector<int32_t> ids;
    const int32_t count = SND::DprGetClist(names, ids);
    ASSERT_GE(count, 26);
    EXPECT_EQ(names.size(), static_cast<std::size_t>(count));
    EXPECT_EQ(ids.size(), static_cast<std::size_t>(count));
    // The natural gas components stand at the positions the mixtures rely on.
    EXPECT_EQ(names[13] + names[25], "METHANEn-PENTANE");
    EXPECT_EQ(ids[14], 905);
}

// The narrowest of three ranges, asked of the library directly.
void Narrowest(int32_t (*a)(int32_t, double*, double*), int32_t (*b)(int32_t, double*, double*),
               int32_t (*c)(int32_t, double*, double*), int32_t id, double& lo, double& hi) {
    double l[3] = {0, 0, 0}, h[3] = {0, 0, 0};
    a(id, &l[0], &h[0]);
    b(id, &l[1], &h[1]);
    c(id, &l[2], &h[2]);
    lo = std::max({l[0], l[1], l[2]});
    hi = std::min({h[0], h[1], h[2]});
}

class TablesTest : public ::testing::Test {
  protected:
    void SetUp() override { ASSERT_EQ(tables.Build(), 0); }
    ComponentTables tables;
};

TEST_F(TablesTest, LimitsAreTheNarrowestOfTheThreeRanges) {
    // Catches liquid and gas ranges swapped, a wrong range call, or the widest range taken.
    for (const char* name : {"ETHANE", "n-HEXANE", "AMMONIA", "WATER"}) {
        SCOPED_TRACE(name);
        double lo = 0, hi = 0, expLo = 0, expHi = 0;
        ASSERT_TRUE(tables.FindGasLimits(name, lo, hi));
        int pos = -1;
        for (int i = 0; i < tables.Count(); ++i)
            if (tables.Name(i) == name) pos = i;
        ASSERT_GE(pos, 0);
        const int32_t id = tables.Id(pos);
        Narrowest(DprVdnRng, DprIcpRng, DprVvsRng, id, expLo, expHi);
        EXPECT_EQ(lo, expLo);
        EXPECT_EQ(hi, expHi);
        ASSERT_TRUE(tables.FindLiquidLimits(name, lo, hi));
        Narrowest(DprLvsRng, DprLdnRng, DprVpRng, id, expLo, expHi);
        EXPECT_EQ(lo, expLo);
        EXPECT_EQ(hi, expHi);
        EXPECT_LT(lo, hi);
    }
}

TEST_F(TablesTest, AirGasLimitsAreFixedAndTablesHoldTheWholeCatalogue) {
    // Catches "AIR" taking the correlation ranges, or rows beyond the catalogue not reset.
    double lo = 0, hi = 0;
    ASSERT_TRUE(tables.FindGasLimits("AIR", lo, hi));
    EXPECT_EQ(lo, 194.67);
    EXPECT_EQ(hi, 772.9);
    std::vector<std::string> names;
    std::vector<int32_t> ids;
    const int32_t count = SND::DprGetClist(names, ids);
    ASSERT_EQ(tables.Count(), count);
    EXPECT_EQ(tables.Liquid()[count - 1].Name, names.back());
    EXPECT_EQ(tables.Gas()[count - 1].ID, ids.back());
    EXPECT_EQ(tables.Gas()[0].MaxPress, 10000.0);
    EXPECT_EQ(tables.Liquid()[0].MaxPress, 1000.0);
    const auto& spare = tables.Gas()[ComponentTables::kRows - 1];
    EXPECT_EQ(spare.Name, "");
    EXPECT_EQ(spare.ID, 0);
    EXPECT_EQ(spare.MinTemp, 0.0);
    EXPECT_EQ(spare.MaxTemp, 100.0);
}

TEST_F(TablesTest, LookupsAreWholeNameAndCaseExact) {
    // Catches prefix or case-folded matches, and outputs touched by a failed lookup.
    double lo = -1, hi = -2;
    EXPECT_FALSE(tables.FindGasLimits("ETHAN", lo, hi));
    EXPECT_FALSE(tables.FindGasLimits("ethane", lo, hi));
    EXPECT_FALSE(tables.FindLiquidLimits("ETHANE ", lo, hi));
    EXPECT_EQ(lo, -1);
    EXPECT_EQ(hi, -2);
    // The model's lookups served from these tables.
    EXPECT_EQ(FindGasLimits(tables, "ETHANE", lo, hi), 0);
    EXPECT_EQ(FindLiquidLimits(tables, "no such fluid", lo, hi), 1);
}

TEST_F(TablesTest, TranslatorsFindComponentCodes) {
    // Catches the translators not reaching the catalogue through the tables.
    EXPECT_EQ(GetMethodCode("ETHANE", &tables), 2);
    EXPECT_EQ(GetMethodCode("NITROGEN", &tables), 905);
    clsExGlobalVars store;
    EXPECT_EQ(TranslateFluidName(store, "AIR", &tables), 0);
    EXPECT_EQ(store.UI_FluidNameMethodCode, 915);
    EXPECT_EQ(TranslateFluidName(store, "air", &tables), 1);
    EXPECT_EQ(store.UI_FluidNameMethodCode, 0);
}

using LeastSquaresTest = PropertyTest;

TEST_F(LeastSquaresTest, BasisIsLaidOutRowAfterRowAndWrittenBack) {
    // Catches a transposed layout (wrong coefficients) and a basis not copied back.
    const int nData = 5, nTerm = 3;
    store.XLsqr.ReDim(nTerm - 1, nData - 1);
    double y[nData];
    for (int i = 0; i < nData; ++i) {
        const double x = 0.5 + i;
        for (int j = 0; j < nTerm; ++j) store.XLsqr(j, i) = std::pow(x, j);
        y[i] = 1.0 - 2.0 * x + 3.0 * x * x;
    }
    double c[nTerm] = {}, yCal[nData] = {}, sigma = -1;
    ASSERT_EQ(SND::RunLeastSquares(store, y, nData, 0, nTerm, c, yCal, sigma, 1e-12), 0);
    EXPECT_NEAR(c[0], 1.0, 1e-10);
    EXPECT_NEAR(c[1], -2.0, 1e-10);
    EXPECT_NEAR(c[2], 3.0, 1e-10);
    for (int i = 0; i < nData; ++i) EXPECT_NEAR(yCal[i], y[i], 1e-9);
    EXPECT_NEAR(sigma, 0.0, 1e-9);
    // The solver equilibrates the columns in place; the store sees what it left.
    for (int j = 0; j < nTerm; ++j) {
        double norm = 0;
        for (int i = 0; i < nData; ++i) norm += store.XLsqr(j, i) * store.XLsqr(j, i);
        EXPECT_NEAR(norm, 1.0, 1e-12) << "term " << j;
    }
}

}  // namespace
}  // namespace qdf::test
