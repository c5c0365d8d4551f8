// The download lists as the frame receives them, write by write.

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "../common/DataTable.h"
#include "FakeFrame.h"
#include "ModDownload.h"
#include "clsExGlobalVars.h"

namespace qdf::test {
namespace {

using host::DownloadToFrame;
namespace testdata = qdf::testdata;

// One download list of data/download_writes.csv, as the frame must record it.
std::vector<RecordedWrite> Writes(const std::string& list) {
    std::vector<RecordedWrite> out;
    for (const testdata::Row& r : testdata::Load("tests/hostlink/data/download_writes.csv")) {
        if (r.text("list") != list) continue;
        const std::string& kind = r.text("kind");
        Value v = kind == "str"   ? Value(r.text("value"))
                  : kind == "f64" ? Value(r.num("value"))
                  : kind == "i16" ? Value(static_cast<std::int16_t>(r.integer("value")))
                                  : Value(r.integer("value"));
        out.push_back({r.text("menu"), r.text("parameter"), v});
    }
    if (out.empty()) throw std::invalid_argument("no download list " + list);
    return out;
}

void ExpectWrites(const std::vector<RecordedWrite>& got, const std::vector<RecordedWrite>& want) {
    ASSERT_EQ(got.size(), want.size());
    for (std::size_t i = 0; i < want.size(); ++i) {
        SCOPED_TRACE("row " + std::to_string(i + 1) + " " + want[i].parameter);
        EXPECT_EQ(got[i].menu, want[i].menu);
        EXPECT_EQ(got[i].parameter, want[i].parameter);
        EXPECT_EQ(got[i].value.kind(), want[i].value.kind());
        if (want[i].value.kind() == Value::Kind::Double) {
            EXPECT_NEAR(got[i].value.toDouble(), want[i].value.toDouble(),
                        1e-9 * (1.0 + std::fabs(want[i].value.toDouble())));
        } else {
            EXPECT_EQ(got[i].value, want[i].value);
        }
    }
}

class Download : public ::testing::Test {
  protected:
    void SetUp() override {
        s.SDKManager = &frame;
        s.varsChanged = kTrue;
        s.Xmtr_SimpleStaticPressUnit = 12;
        s.Xmtr_SimpleTempUnit = 32;
        s.Xmtr_SimpleDensityBase = 1.25;
        s.Xmtr_SimpleFlowCalcMode = 1;
        s.Xmtr_SimpleFluidTypeCode = 2;
        s.Xmtr_SimpleFlowCalcFixedVar = 0.75;
        s.Xmtr_SimpleRefStaticPress = 101.325;
        s.Xmtr_SimpleRefTemp = 15.0;
        s.Xmtr_SimpleTempK1ForLqdVar = -0.002;
        s.XmtrFF_FtbStaticPressUnit = 1133;
        s.XmtrFF_FtbTempUnitCode = 1001;
        // Every slot distinct, so a shifted or overrun index shows in the value written.
        for (int i = 0; i <= 6; ++i) {
            s.Xmtr_DisCoeff[i] = 1.5 + i;
            s.Xmtr_ExpFac[i] = 20.5 + i;
            s.Xmtr_VisCoeff[i] = 300.5 + i;
        }
        for (int i = 0; i <= 18; ++i) s.Xmtr_DensCoeff[i] = 4000.5 + i;
        s.Xmtr_PDCode = 2;
        s.Xmtr_FluidTypeCode = 3;
        s.Xmtr_DensUnitCode = 92;
        s.Xmtr_PDLenUnitCode = 49;
        s.Xmtr_PriDevTherExpFac = 1.6e-5;
        s.Xmtr_PipeTherExpFac = 1.1e-5;
        s.Xmtr_LenUnitCode = 45;
        s.Xmtr_Smalld = 0.05;
        s.Xmtr_BigD = 0.1;
        s.Xmtr_RefDensUnitCode = 94;
        s.Xmtr_VolFlowBaseDens = 1.2;
        s.UI_PETempStandard = 293.15;
        s.UI_PEPipeTempStandard = 303.15;
        s.HART_SimpleTempUnitSave = 33;   // deg F on the device at this moment
        s.FF_FtbTempUnitCodeSave = 1001;  // deg C
        s.XmtrFF_FtbDensUnitCode = 1097;
        s.XmtrFF_FtbLenUnitCode = 1013;
        s.Xmtr_CONFIG_SOFT_REV = "1.05.00";
        s.Xmtr_CONFIG_DATE = "2024-05-01 10:20";
        s.Xmtr_CONFIG_WHO = "Maintenance";
        s.Xmtr_CONFIG_VSTRING32 = "v32";
        s.Xmtr_CONFIG_VSTRING16_1 = "v16a";
        s.Xmtr_CONFIG_VSTRING16_2 = "v16b";
        s.Xmtr_CONFIG_OSTRING32 = "o32";
    }
    FakeFrame frame;
    clsExGlobalVars s;
};

TEST_F(Download, HartBasicWritesNineRowsInOrderForAnyNonZeroMode) {
    // Catches a wrong row, type or order in the HART basic list, or mode 5 taken as "nothing".
    s.BusID = "HART";
    s.Xmtr_SimpleFlowCalcMode = 5;
    DownloadToFrame(s);
    ExpectWrites(frame.writes, Writes("hart_basic"));
    EXPECT_EQ(s.varsChanged, kFalse);
}

TEST_F(Download, HartAutoWritesFiftyRowsWithZeroedSlotsAndDeviceUnitTemperatures) {
    // Catches a missing 16-bit clear, a shifted coefficient, or diameters' temperatures left in
    // Kelvin or converted with a unit other than the device's saved one.
    s.BusID = "HART";
    s.Xmtr_SimpleFlowCalcMode = 0;
    s.Xmtr_SimpleTempUnit = 35;  // the page's unit must not decide
    DownloadToFrame(s);
    ExpectWrites(frame.writes, Writes("hart_auto"));
    EXPECT_NEAR(s.Xmtr_TSmallD, 68.0, 1e-9);
    EXPECT_NEAR(s.Xmtr_TBigD, 86.0, 1e-9);
    EXPECT_EQ(s.varsChanged, kFalse);
}

TEST_F(Download, FFBasicWritesEightRowsUnderOneMenuWithoutConfigStrings) {
    // Catches FF codes swapped for HART ones, or the CONFIG_ strings sent in basic mode.
    s.BusID = "FFH1";
    DownloadToFrame(s);
    ExpectWrites(frame.writes, Writes("ff_basic"));
}

TEST_F(Download, FFAutoWritesFortySevenRowsWithSixteenDensityTermsAndNoClears) {
    // Catches the HART asymmetries leaking into the FF list (12 density terms, zero clears) or
    // the FF unit save ignored in the temperature conversion.
    s.BusID = "FFH1";
    s.Xmtr_SimpleFlowCalcMode = 0;
    DownloadToFrame(s);
    ExpectWrites(frame.writes, Writes("ff_auto"));
    EXPECT_NEAR(s.Xmtr_TSmallD, 20.0, 1e-9);
}

TEST_F(Download, FFWithAnotherModeWritesNothing) {
    // Catches the HART rule (any non-zero mode is basic) applied to Fieldbus.
    s.BusID = "FFH1";
    s.Xmtr_SimpleFlowCalcMode = 5;
    DownloadToFrame(s);
    EXPECT_TRUE(frame.writes.empty());
    EXPECT_TRUE(frame.calls.empty());
}

TEST_F(Download, UnknownParameterOrMenuIsSkippedAndTheListGoesOn) {
    // Catches a missing name that stops the list, or half a write sent for it.
    s.BusID = "HART";
    frame.unknown = {"simple_dens_base", "qdf_menu_diameter_config"};
    DownloadToFrame(s);
    std::vector<RecordedWrite> want = Writes("hart_basic");
    want.erase(want.begin() + 1, want.begin() + 3);
    want[1].value = Value(std::int32_t{1});
    ExpectWrites(frame.writes, want);
    for (const auto& c : frame.calls) {
        EXPECT_EQ(c.find("simple_dens_base"), std::string::npos) << c;
        EXPECT_EQ(c.find("qdf_menu_diameter_config"), std::string::npos) << c;
    }
    EXPECT_EQ(s.varsChanged, kFalse);
}

TEST_F(Download, FailureLeavesEarlierRowsWrittenAndStopsTheList) {
    // Catches a download that swallows the failure and goes on, rolls back, or clears
    // varsChanged or converts the diameters' temperatures despite stopping before them.
    s.BusID = "HART";
    s.Xmtr_SimpleFlowCalcMode = 0;
    frame.failAt = "WriteValue density_coef_03";
    EXPECT_THROW(DownloadToFrame(s), SDKError);
    ASSERT_EQ(frame.writes.size(), 22u);  // mode, 6 + 6 + 6 slots, density 00 to 02
    EXPECT_EQ(frame.writes.back().parameter, "density_coef_02");
    EXPECT_EQ(frame.calls.back(), "WriteValue qdf_menu_ieee_density_coef density_coef_03");
    EXPECT_EQ(s.varsChanged, kTrue);
    EXPECT_DOUBLE_EQ(s.Xmtr_TSmallD, kNotEntered);
}

}  // namespace
}  // namespace qdf::test
