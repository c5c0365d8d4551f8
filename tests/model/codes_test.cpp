#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "CodeTables.h"
#include "FakeComponentList.h"
#include "clsExGlobalVars.h"

namespace qdf {
namespace {

// Older files write device names with other spacing, without brackets or in capitals.
TEST(PrimaryDeviceNames, TolerantMatchOfOlderSpellings) {
    struct Row {
        const char* name;
        int32_t code;
        int32_t subcode;
    } rows[] = {
        {"Orifice Corner Taps [ISO5167-2 2003]", 3, 0},
        {"Orifice Corner Taps ISO5167-1 1991", 2, 0},
        {"OrificeCornerTaps[ISO5167-1  1991]", 2, 0},
        {"ORIFICE CORNER TAPS [ISO5167-1 1991]", 2, 0},
        {"orifice corner taps iso5167-1 1991", 2, 0},
        {"ASME FLOW NOZZLES [ASME MFC-3M 1989] with low beta ratio", 14, 1},
        {"asme flow nozzles asme mfc-3m 1989 with throat tap flow nozzle", 14, 2},
        {"Classical Venturi tube with a machined convergent section [ISO5167-1 1991/ ISO5167-4 "
         "2003]",
         18, 0},
        {"Fixed mode", 1, 0},
        {"FIXEDMODE", 1, 0},
    };
    for (const auto& r : rows) {
        SCOPED_TRACE(r.name);
        const PrimaryDeviceRow* row = MatchPrimaryDeviceName(r.name);
        ASSERT_NE(row, nullptr);
        EXPECT_EQ(row->code, r.code);
        EXPECT_EQ(row->subcode, r.subcode);
    }
}

// Normalisation must not be looser than its rule: a "]" alone stays, and other characters
// still count.
TEST(PrimaryDeviceNames, NamesThatMustNotMatch) {
    for (const char* name : {"Orifice Corner Taps ISO5167-1 1991]", "Orifice Corner Taps",
                             "Orifice Corner Taps (ISO5167-1 1991)", "", "Fix"}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(MatchPrimaryDeviceName(name), nullptr);
    }
    EXPECT_EQ(NormalizeDeviceName("a]b c"), "A]BC");
    EXPECT_EQ(NormalizeDeviceName("[a] b"), "AB");
    EXPECT_EQ(NormalizeDeviceName("x]y"), "X]Y");
}

// Every row must be reachable by its own name; a duplicate after normalisation would shadow a
// later row, and the exact lookup must see the four blanks of code 18.
TEST(PrimaryDeviceNames, EveryRowReachableExactAndNormalised) {
    std::set<std::string> seen;
    for (const auto& row : kPrimaryDevices) {
        SCOPED_TRACE(std::string(row.name));
        EXPECT_TRUE(seen.insert(NormalizeDeviceName(row.name)).second);
        EXPECT_EQ(MatchPrimaryDeviceName(row.name), &row);
        EXPECT_EQ(FindPrimaryDeviceByName(row.name), &row);
    }
    EXPECT_EQ(std::size(kPrimaryDevices), 22u);
    EXPECT_EQ(FindPrimaryDeviceByName("Classical Venturi tube with a machined convergent section "
                                      "[ISO5167-1 1991/ ISO5167-4 2003]"),
              nullptr);
    EXPECT_EQ(FindPrimaryDeviceByName("fixed mode"), nullptr);
}

// The store keeps the old code when nothing matches, and only code 14 touches the sub-code.
TEST(PrimaryDeviceNames, TranslateIntoStore) {
    clsExGlobalVars store;
    store.UI_PEPrimaryDeviceCode = 7;
    store.UI_PESubcode = 2;
    EXPECT_EQ(TranslatePrimaryDeviceName(store, "no such device"), 1);
    EXPECT_EQ(store.UI_PEPrimaryDeviceCode, 7);
    EXPECT_EQ(store.UI_PESubcode, 2);

    EXPECT_EQ(TranslatePrimaryDeviceName(store, "Venturi nozzle ISO5167-1 1991/ ISO5167-3 2003"),
              0);
    EXPECT_EQ(store.UI_PEPrimaryDeviceCode, 15);
    EXPECT_EQ(store.UI_PESubcode, 2);

    EXPECT_EQ(TranslatePrimaryDeviceName(
                  store, "ASME FLOW NOZZLES [ASME MFC-3M 1989] with high beta ratio"),
              0);
    EXPECT_EQ(store.UI_PEPrimaryDeviceCode, 14);
    EXPECT_EQ(store.UI_PESubcode, 0);
}

// Material texts are compared exactly; anything else has no expansion.
TEST(Materials, ExpansionRateByExactText) {
    EXPECT_DOUBLE_EQ(MaterialExpansionRate("304 Stainless Steel"), 16.81e-6);
    EXPECT_DOUBLE_EQ(MaterialExpansionRate("316 Stainless Steel"), 16.81e-6);
    EXPECT_DOUBLE_EQ(MaterialExpansionRate("Carbon Steel"), 11.48e-6);
    EXPECT_DOUBLE_EQ(MaterialExpansionRate("Hastelloy C"), 11.3e-6);
    EXPECT_DOUBLE_EQ(MaterialExpansionRate("Monel"), 14.11e-6);
    for (const char* name : {"Brass", "carbon steel", "Carbon Steel ", "", "Monel\t"}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(MaterialExpansionRate(name), 0.0);
    }
    EXPECT_NE(MaterialExpansionRate(kDefaultPEMaterial), 0.0);
    EXPECT_NE(MaterialExpansionRate(kDefaultPipeMaterial), 0.0);
}

// Report texts differ from the page texts in places ("lb/ft Sec", "Pressurised water", "degF");
// each translator must read its own table, and an unknown code gives "" silently.
TEST(CodeTexts, ReportTranslators) {
    EXPECT_EQ(ViscosityUnitText(1), "lb/ft Sec");
    EXPECT_EQ(CategoryText(2), "Pressurised water");
    EXPECT_EQ(CategoryText(4), "Natural gas");
    EXPECT_EQ(RangeTempUnitText(33), "degF");
    EXPECT_EQ(RangePressUnitText(5), "psi gauge");
    EXPECT_EQ(CommunicationText(1), "Foundation Fieldbus");

    EXPECT_EQ(RangeTempUnitText(34), "");
    EXPECT_EQ(RefTempUnitText(-999999), "");
    EXPECT_EQ(AtmPressUnitText(3), "");
    EXPECT_EQ(RangePressUnitText(6), "");
    EXPECT_EQ(LengthUnitText(45), "");
    EXPECT_EQ(CategoryText(0), "");
    EXPECT_EQ(ModeText(2), "");
    EXPECT_EQ(DeviceTypeText(4), "");
}

// The device list may hold a code twice; the last entry wins, an absent code gives "".
TEST(CodeTexts, DevicePressureUnit) {
    const std::vector<int16_t> codes = {7, 12, 7, 237};
    const std::vector<std::string> texts = {"bar", "kPa", "bar (2)", "MPa"};
    EXPECT_EQ(DevicePressUnitText(codes, texts, 7), "bar (2)");
    EXPECT_EQ(DevicePressUnitText(codes, texts, 237), "MPa");
    EXPECT_EQ(DevicePressUnitText(codes, texts, 6), "");

    clsExGlobalVars store;
    store.press_units.ReDim(1);
    store.press_units_index.ReDim(1);
    store.press_units[0] = "psi";
    store.press_units_index[0] = 6;
    store.press_units[1] = "kPa";
    store.press_units_index[1] = 12;
    EXPECT_EQ(DevicePressUnitText(store, 12), "kPa");
    EXPECT_EQ(DevicePressUnitText(store, 11), "");
}

// The fluid page's lookup is exact: methods first, then the first catalogue entry of the name.
TEST(FluidNames, GetMethodCodeIsExact) {
    const auto list = test::SmallCatalogue();
    bool found = false;
    EXPECT_EQ(GetMethodCode("Saturated steam", &list, &found), -102);
    EXPECT_TRUE(found);
    EXPECT_EQ(GetMethodCode("ISO12213 physical properties", &list), -5);
    EXPECT_EQ(GetMethodCode("METHANE", &list, &found), 101);
    EXPECT_TRUE(found);
    EXPECT_EQ(GetMethodCode("Water", &list), 1921);

    for (const char* name : {"saturated steam", "Methane", "WATER", "", "Pressurised Water"}) {
        SCOPED_TRACE(name);
        found = true;
        EXPECT_EQ(GetMethodCode(name, &list, &found), 0);
        EXPECT_FALSE(found);
    }
    EXPECT_EQ(GetMethodCode("AGA8 Gross Characterization Method 2", nullptr), -3);
    EXPECT_EQ(GetMethodCode("METHANE", nullptr, &found), 0);
    EXPECT_FALSE(found);
}

// Names from older files: methods match in any case, components only exactly, and a failure
// stores 0 over whatever code was there.
TEST(FluidNames, TranslateIntoStore) {
    const auto list = test::SmallCatalogue();
    clsExGlobalVars store;
    EXPECT_EQ(TranslateFluidName(store, "superheated and saturated STEAM", &list), 0);
    EXPECT_EQ(store.UI_FluidNameMethodCode, -101);
    EXPECT_EQ(TranslateFluidName(store, "AGA8 DETAIL CHARACTERIZATION METHOD", &list), 0);
    EXPECT_EQ(store.UI_FluidNameMethodCode, -1);
    EXPECT_EQ(TranslateFluidName(store, "AIR", &list), 0);
    EXPECT_EQ(store.UI_FluidNameMethodCode, 914);

    EXPECT_EQ(TranslateFluidName(store, "Air", &list), 1);
    EXPECT_EQ(store.UI_FluidNameMethodCode, 0);

    store.UI_FluidNameMethodCode = 101;
    EXPECT_EQ(TranslateFluidName(store, "METHANE", nullptr), 1);
    EXPECT_EQ(store.UI_FluidNameMethodCode, 0);
}

}  // namespace
}  // namespace qdf
