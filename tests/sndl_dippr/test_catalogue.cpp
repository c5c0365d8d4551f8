#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <set>
#include <string>
#include <vector>

#include "sndl/dippr_catalogue.hpp"
#include "sndl/sndl_dippr.h"

using namespace sndl::dippr;

namespace {

struct Listed {
    int count;
    std::vector<char> names;
    std::array<int32_t, SNDL_DPR_IDS> ids;
};

// The caller's buffers as the wizard prepares them: blanks, and ids it can recognise.
Listed CallGetClist() {
    Listed l{};
    l.names.assign(SNDL_DPR_NAMES_BYTES, ' ');
    l.ids.fill(-7);
    l.count = DprGetClist(l.names.data(), l.ids.data());
    return l;
}

std::string NameAt(const Listed& l, int i) {
    const char* field = l.names.data() + i * SNDL_DPR_NAME_WIDTH;
    return std::string(field, strnlen(field, SNDL_DPR_NAME_WIDTH));
}

}  // namespace

// Catches a list order that moves a natural gas component away from the position callers use.
TEST(Catalogue, FixedPositionsAndIds) {
    const Listed l = CallGetClist();
    ASSERT_EQ(l.count, 200);
    const std::array<const char*, 26> fixed = {
        "AIR",        "AMMONIA",  "ARGON",    "CARBON DIOXIDE", "CARBON MONOXIDE",  "CHLORINE",
        "ETHANE",     "ETHYLENE", "HELIUM-4", "HYDROGEN",       "HYDROGEN SULFIDE", "ISOBUTANE",
        "ISOPENTANE", "METHANE",  "NITROGEN", "OXYGEN",         "PROPANE",          "PROPYLENE",
        "WATER",      "n-BUTANE", "n-DECANE", "n-HEPTANE",      "n-HEXANE",         "n-NONANE",
        "n-OCTANE",   "n-PENTANE"};
    for (int i = 0; i < 26; ++i) EXPECT_EQ(NameAt(l, i), fixed[i]) << "position " << i;
    EXPECT_EQ(NameAt(l, 13), "METHANE");
    EXPECT_EQ(l.ids[14], 905);   // nitrogen
    EXPECT_EQ(l.ids[15], 901);   // oxygen
    EXPECT_EQ(l.ids[2], 914);    // argon
    EXPECT_EQ(l.ids[3], 909);    // carbon dioxide
    EXPECT_EQ(l.ids[13], 1);     // methane
    EXPECT_EQ(l.ids[18], 1921);  // water
}

// Catches writes past the 200 fields, unterminated names and ids that do not match names.
TEST(Catalogue, BufferLayout) {
    const Listed l = CallGetClist();
    std::set<int32_t> ids;
    std::set<std::string> names;
    for (int i = 0; i < l.count; ++i) {
        const std::string name = NameAt(l, i);
        EXPECT_LT(name.size(), static_cast<size_t>(SNDL_DPR_NAME_WIDTH)) << i;
        EXPECT_FALSE(name.empty()) << i;
        EXPECT_EQ(name, kComponents[i].name);
        EXPECT_EQ(FindByName(name), i);
        EXPECT_EQ(FindById(l.ids[i]), i);
        ids.insert(l.ids[i]);
        names.insert(name);
    }
    EXPECT_EQ(ids.size(), 200u) << "ids must be unique";
    EXPECT_EQ(names.size(), 200u) << "names must be unique";
    for (int i = 200 * SNDL_DPR_NAME_WIDTH; i < SNDL_DPR_NAMES_BYTES; ++i) {
        ASSERT_EQ(l.names[i], ' ') << "byte " << i;
    }
    for (int i = 200; i < SNDL_DPR_IDS; ++i) EXPECT_EQ(l.ids[i], -7) << i;
    // Past position 25 the list is in plain byte order of the names.
    for (int i = 27; i < l.count; ++i) EXPECT_LT(NameAt(l, i - 1), NameAt(l, i)) << i;
}

// Catches a lookup that folds case: the translators match names exactly.
TEST(Catalogue, NameLookupIsExact) {
    EXPECT_EQ(FindByName("n-BUTANE"), 19);
    EXPECT_EQ(FindByName("N-BUTANE"), -1);
    EXPECT_EQ(FindByName("methane"), -1);
    EXPECT_EQ(FindByName("METHANE "), -1);
    EXPECT_EQ(FindByName(""), -1);
}

// Catches an operation that answers for an id that is not in the catalogue.
TEST(Catalogue, UnknownIdIsRefusedByEveryOperation) {
    const int32_t bad = 123456;
    double v = -1.0, lo = -1.0, hi = -1.0;
    EXPECT_EQ(DprMw(bad, &v), SNDL_ERR_NOCOMP);
    EXPECT_EQ(DprIcp(bad, 300, &v), SNDL_ERR_NOCOMP);
    EXPECT_EQ(DprVdn(bad, 300, 1e5, &v), SNDL_ERR_NOCOMP);
    EXPECT_EQ(DprLdn(bad, 300, &v), SNDL_ERR_NOCOMP);
    EXPECT_EQ(DprVvs(bad, 300, &v), SNDL_ERR_NOCOMP);
    EXPECT_EQ(DprLvs(bad, 300, &v), SNDL_ERR_NOCOMP);
    EXPECT_EQ(v, -1.0) << "an unknown id must leave the output alone";
    using RangeFn = int32_t (*)(int32_t, double*, double*);
    for (RangeFn f : {DprIcpRng, DprVdnRng, DprVvsRng, DprLdnRng, DprLvsRng, DprVpRng}) {
        EXPECT_EQ(f(bad, &lo, &hi), SNDL_ERR_NOCOMP);
    }
    EXPECT_EQ(lo, -1.0);
    EXPECT_EQ(DprMw(0, &v), SNDL_ERR_NOCOMP);
}

// Catches range operations wired to the wrong correlation of the row.
TEST(Catalogue, RangesComeFromTheirOwnCorrelation) {
    double lo = 0, hi = 0;
    ASSERT_EQ(DprIcpRng(1, &lo, &hi), 0);  // methane
    EXPECT_EQ(lo, 50.0);
    EXPECT_EQ(hi, 1500.0);
    ASSERT_EQ(DprVvsRng(1, &lo, &hi), 0);
    EXPECT_EQ(lo, 90.69);
    EXPECT_EQ(hi, 1000.0);
    ASSERT_EQ(DprLvsRng(1, &lo, &hi), 0);
    EXPECT_EQ(hi, 188.0);
    ASSERT_EQ(DprLdnRng(1921, &lo, &hi), 0);  // water, equation 116
    EXPECT_EQ(lo, 273.16);
    EXPECT_EQ(hi, 647.096);
    ASSERT_EQ(DprVpRng(909, &lo, &hi), 0);  // carbon dioxide starts at its triple point
    EXPECT_EQ(lo, 216.58);
    EXPECT_EQ(hi, 304.21);
    // Vapour density: the reference equation's 60 K to 700 K for methane, the cubic's own for
    // ammonia (triple point to 1500 K).
    ASSERT_EQ(DprVdnRng(1, &lo, &hi), 0);
    EXPECT_EQ(lo, 90.69);
    EXPECT_EQ(hi, 700.0);
    ASSERT_EQ(DprVdnRng(902, &lo, &hi), 0);  // hydrogen: the 60 K floor
    EXPECT_EQ(lo, 60.0);
    ASSERT_EQ(DprVdnRng(1911, &lo, &hi), 0);
    EXPECT_EQ(lo, 195.41);
    EXPECT_EQ(hi, 1500.0);
}
