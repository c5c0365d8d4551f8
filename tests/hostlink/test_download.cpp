// The download lists as the frame receives them, write by write.

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "FakeFrame.h"
#include "ModDownload.h"
#include "clsExGlobalVars.h"

namespace qdf::test {
namespace {

using host::DownloadToFrame;

Value I16(int v) {
    return Value(static_cast<std::int16_t>(v));
}
Value I32(int v) {
    return Value(static_cast<std::int32_t>(v));
}
Value F64(double v) {
    return Value(v);
}
Value Str(const char* v) {
    return Value(v);
}

const std::string B = "FLOW_TRANSDUCER_BLOCK.0.";

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

const std::vector<RecordedWrite> kHartBasic = {
    {"qdf_menu_dummy", "static_pressure_units", I32(12)},
    {"qdf_menu_diameter_config", "et_units", I32(32)},
    {"qdf_menu_dummy", "simple_dens_base", F64(1.25)},
    {"qdf_menu_basic_flow_calc", "flow_calc_mode", I32(5)},
    {"qdf_menu_basic_flow_calc", "fluid_type", I32(2)},
    {"qdf_menu_basic_flow_calc", "flow_calc_fixed", F64(0.75)},
    {"qdf_menu_basic_flow_calc", "ref_sp", F64(101.325)},
    {"qdf_menu_basic_flow_calc", "ref_temp", F64(15.0)},
    {"qdf_menu_basic_flow_calc", "temp_k1", F64(-0.002)},
};

TEST_F(Download, HartBasicWritesNineRowsInOrderForAnyNonZeroMode) {
    // Catches a wrong row, type or order in the HART basic list, or mode 5 taken as "nothing".
    s.BusID = "HART";
    s.Xmtr_SimpleFlowCalcMode = 5;
    DownloadToFrame(s);
    ExpectWrites(frame.writes, kHartBasic);
    EXPECT_EQ(s.varsChanged, kFalse);
}

TEST_F(Download, HartAutoWritesFiftyRowsWithZeroedSlotsAndDeviceUnitTemperatures) {
    // Catches a missing 16-bit clear, a shifted coefficient, or diameters' temperatures left in
    // Kelvin or converted with a unit other than the device's saved one.
    s.BusID = "HART";
    s.Xmtr_SimpleFlowCalcMode = 0;
    s.Xmtr_SimpleTempUnit = 35;  // the page's unit must not decide
    DownloadToFrame(s);
    const std::vector<RecordedWrite> want = {
        {"qdf_menu_basic_flow_calc", "flow_calc_mode", I16(0)},
        {"qdf_menu_ieee_discharge_coef", "discharge_coef_0", F64(1.5)},
        {"qdf_menu_ieee_discharge_coef", "discharge_coef_1", F64(2.5)},
        {"qdf_menu_ieee_discharge_coef", "discharge_coef_2", F64(3.5)},
        {"qdf_menu_ieee_discharge_coef", "discharge_coef_3", F64(4.5)},
        {"qdf_menu_ieee_discharge_coef", "discharge_coef_4", F64(5.5)},
        {"qdf_menu_ieee_discharge_coef", "discharge_coef_5", I16(0)},
        {"qdf_menu_ieee_expansion_coef", "expansion_fact_coef_0", F64(20.5)},
        {"qdf_menu_ieee_expansion_coef", "expansion_fact_coef_1", F64(21.5)},
        {"qdf_menu_ieee_expansion_coef", "expansion_fact_coef_2", F64(22.5)},
        {"qdf_menu_ieee_expansion_coef", "expansion_fact_coef_3", I16(0)},
        {"qdf_menu_ieee_expansion_coef", "expansion_fact_coef_4", I16(0)},
        {"qdf_menu_ieee_expansion_coef", "expansion_fact_coef_5", I16(0)},
        {"qdf_menu_ieee_viscosity_coef", "viscosity_coef_0", F64(300.5)},
        {"qdf_menu_ieee_viscosity_coef", "viscosity_coef_1", F64(301.5)},
        {"qdf_menu_ieee_viscosity_coef", "viscosity_coef_2", F64(302.5)},
        {"qdf_menu_ieee_viscosity_coef", "viscosity_coef_3", F64(303.5)},
        {"qdf_menu_ieee_viscosity_coef", "viscosity_coef_4", I16(0)},
        {"qdf_menu_ieee_viscosity_coef", "viscosity_coef_5", I16(0)},
        {"qdf_menu_ieee_density_coef", "density_coef_00", F64(4000.5)},
        {"qdf_menu_ieee_density_coef", "density_coef_01", F64(4001.5)},
        {"qdf_menu_ieee_density_coef", "density_coef_02", F64(4002.5)},
        {"qdf_menu_ieee_density_coef", "density_coef_03", F64(4003.5)},
        {"qdf_menu_ieee_density_coef", "density_coef_04", F64(4004.5)},
        {"qdf_menu_ieee_density_coef", "density_coef_05", F64(4005.5)},
        {"qdf_menu_ieee_density_coef", "density_coef_06", F64(4006.5)},
        {"qdf_menu_ieee_density_coef", "density_coef_07", F64(4007.5)},
        {"qdf_menu_ieee_density_coef", "density_coef_08", F64(4008.5)},
        {"qdf_menu_ieee_density_coef", "density_coef_09", F64(4009.5)},
        {"qdf_menu_ieee_density_coef", "density_coef_10", F64(4010.5)},
        {"qdf_menu_ieee_density_coef", "density_coef_11", F64(4011.5)},
        {"qdf_menu_ieee_density_coef", "density_coef_12", I16(0)},
        {"qdf_menu_ieee_density_coef", "density_coef_13", I16(0)},
        {"qdf_menu_ieee_density_coef", "density_coef_14", I16(0)},
        {"qdf_menu_ieee_density_coef", "density_coef_15", I16(0)},
        {"qdf_menu_ieee_density_coef", "density_coef_16", I16(0)},
        {"qdf_menu_ieee_density_coef", "density_coef_17", I16(0)},
        {"qdf_menu_additional_flow_info", "primary_device", I32(2)},
        {"qdf_menu_additional_flow_info", "fluid_type", I32(3)},
        {"qdf_menu_additional_flow_info", "density_unit", I32(92)},
        {"qdf_menu_additional_flow_info", "length_units", I32(49)},
        {"qdf_menu_additional_flow_info", "factor_alpha_small_d", F64(1.6e-5)},
        {"qdf_menu_additional_flow_info", "factor_alpha_large_d", F64(1.1e-5)},
        {"qdf_menu_diameter_config", "length_units", I32(45)},
        {"qdf_menu_diameter_config", "small_d_r", F64(0.05)},
        {"qdf_menu_diameter_config", "large_d_r", F64(0.1)},
        {"qdf_menu_diameter_config", "t_small_d_r", F64(68.0)},
        {"qdf_menu_diameter_config", "t_large_d_r", F64(86.0)},
        {"qdf_menu_flow_base_density", "density_unit", I32(94)},
        {"qdf_menu_flow_base_density", "vol_flow_base_dens", F64(1.2)},
    };
    ExpectWrites(frame.writes, want);
    EXPECT_NEAR(s.Xmtr_TSmallD, 68.0, 1e-9);
    EXPECT_NEAR(s.Xmtr_TBigD, 86.0, 1e-9);
    EXPECT_EQ(s.varsChanged, kFalse);
}

TEST_F(Download, FFBasicWritesEightRowsUnderOneMenuWithoutConfigStrings) {
    // Catches FF codes swapped for HART ones, or the CONFIG_ strings sent in basic mode.
    s.BusID = "FFH1";
    const std::string m = B + "FTB_ORIGINAL_PARAMETER_MENU_PART1";
    DownloadToFrame(s);
    ExpectWrites(frame.writes, {
                                   {m, B + "STATIC_PRESSURE_UNIT", I32(1133)},
                                   {m, B + "EXT_TEMPERATURE_UNIT", I32(1001)},
                                   {m, B + "FLOW_CALCULATION_MODE", I32(1)},
                                   {m, B + "FIXED_FLOW_VALUE", F64(0.75)},
                                   {m, B + "REF_STATIC_PRESSURE", F64(101.325)},
                                   {m, B + "REF_EXT_TEMPERATURE", F64(15.0)},
                                   {m, B + "TEMP_K1_FOR_LIQUID", F64(-0.002)},
                                   {m, B + "FLUID_TYPE_CODE", I32(2)},
                               });
}

TEST_F(Download, FFAutoWritesFortySevenRowsWithSixteenDensityTermsAndNoClears) {
    // Catches the HART asymmetries leaking into the FF list (12 density terms, zero clears) or
    // the FF unit save ignored in the temperature conversion.
    s.BusID = "FFH1";
    s.Xmtr_SimpleFlowCalcMode = 0;
    DownloadToFrame(s);
    const std::vector<RecordedWrite> want = {
        {B + "FTB_ORIGINAL_PARAMETER_MENU_PART1", B + "FLOW_CALCULATION_MODE", I32(0)},
        {B + "FTB_ORIGINAL_PARAMETER_MENU_PART1", B + "FLUID_TYPE_CODE", I32(2)},
        {B + "FTB_ORIGINAL_PARAMETER_MENU_PART2", B + "DENSITY_UNIT_CODE", I32(1097)},
        {B + "FTB_ORIGINAL_PARAMETER_MENU_PART2", B + "LENGTH_UNIT_CODE", I32(1013)},
        {B + "FTB_ORIGINAL_PARAMETER_MENU_PART2", B + "PRIMARY_DEVICE_CODE", I32(2)},
        {B + "FTB_ORIGINAL_PARAMETER_MENU_PART2", B + "PRIMARY_DEVICE_DIAMETER", F64(0.05)},
        {B + "FTB_ORIGINAL_PARAMETER_MENU_PART2", B + "PRIMARY_DEVICE_EXPANSION_COEF", F64(1.6e-5)},
        {B + "FTB_ORIGINAL_PARAMETER_MENU_PART2", B + "PRIMARY_DEVICE_REF_TEMPERATURE", F64(20.0)},
        {B + "FTB_ORIGINAL_PARAMETER_MENU_PART2", B + "PIPE_DIAMETER", F64(0.1)},
        {B + "FTB_ORIGINAL_PARAMETER_MENU_PART2", B + "PIPE_EXPANSION_COEF", F64(1.1e-5)},
        {B + "FTB_ORIGINAL_PARAMETER_MENU_PART2", B + "PIPE_REF_TEMPERATURE", F64(30.0)},
        {B + "FTB_ORIGINAL_PARAMETER_MENU_PART2", B + "BASE_DENSITY_FOR_VOLUME_FLOW", F64(1.2)},
        {B + "FLOW_CONF1_MENU", B + "FLOW_CONFIG1.ENTRY1", F64(1.5)},
        {B + "FLOW_CONF1_MENU", B + "FLOW_CONFIG1.ENTRY2", F64(2.5)},
        {B + "FLOW_CONF1_MENU", B + "FLOW_CONFIG1.ENTRY3", F64(3.5)},
        {B + "FLOW_CONF1_MENU", B + "FLOW_CONFIG1.ENTRY4", F64(4.5)},
        {B + "FLOW_CONF1_MENU", B + "FLOW_CONFIG1.ENTRY5", F64(5.5)},
        {B + "FLOW_CONF2_MENU", B + "FLOW_CONFIG2.ENTRY1", F64(20.5)},
        {B + "FLOW_CONF2_MENU", B + "FLOW_CONFIG2.ENTRY2", F64(21.5)},
        {B + "FLOW_CONF2_MENU", B + "FLOW_CONFIG2.ENTRY3", F64(22.5)},
        {B + "FLOW_CONF3_MENU", B + "FLOW_CONFIG3.ENTRY1", F64(4000.5)},
        {B + "FLOW_CONF3_MENU", B + "FLOW_CONFIG3.ENTRY2", F64(4001.5)},
        {B + "FLOW_CONF3_MENU", B + "FLOW_CONFIG3.ENTRY3", F64(4002.5)},
        {B + "FLOW_CONF3_MENU", B + "FLOW_CONFIG3.ENTRY4", F64(4003.5)},
        {B + "FLOW_CONF3_MENU", B + "FLOW_CONFIG3.ENTRY5", F64(4004.5)},
        {B + "FLOW_CONF3_MENU", B + "FLOW_CONFIG3.ENTRY6", F64(4005.5)},
        {B + "FLOW_CONF3_MENU", B + "FLOW_CONFIG3.ENTRY7", F64(4006.5)},
        {B + "FLOW_CONF3_MENU", B + "FLOW_CONFIG3.ENTRY8", F64(4007.5)},
        {B + "FLOW_CONF3_MENU", B + "FLOW_CONFIG3.ENTRY9", F64(4008.5)},
        {B + "FLOW_CONF3_MENU", B + "FLOW_CONFIG3.ENTRY10", F64(4009.5)},
        {B + "FLOW_CONF3_MENU", B + "FLOW_CONFIG3.ENTRY11", F64(4010.5)},
        {B + "FLOW_CONF3_MENU", B + "FLOW_CONFIG3.ENTRY12", F64(4011.5)},
        {B + "FLOW_CONF3_MENU", B + "FLOW_CONFIG3.ENTRY13", F64(4012.5)},
        {B + "FLOW_CONF3_MENU", B + "FLOW_CONFIG3.ENTRY14", F64(4013.5)},
        {B + "FLOW_CONF3_MENU", B + "FLOW_CONFIG3.ENTRY15", F64(4014.5)},
        {B + "FLOW_CONF3_MENU", B + "FLOW_CONFIG3.ENTRY16", F64(4015.5)},
        {B + "FLOW_CONF4_MENU", B + "FLOW_CONFIG4.ENTRY1", F64(300.5)},
        {B + "FLOW_CONF4_MENU", B + "FLOW_CONFIG4.ENTRY2", F64(301.5)},
        {B + "FLOW_CONF4_MENU", B + "FLOW_CONFIG4.ENTRY3", F64(302.5)},
        {B + "FLOW_CONF4_MENU", B + "FLOW_CONFIG4.ENTRY4", F64(303.5)},
        {B + "FTB_ORIGINAL_PARAMETER_MENU_PART2", B + "CONFIG_SOFT_REV", Str("1.05.00")},
        {B + "FTB_ORIGINAL_PARAMETER_MENU_PART2", B + "CONFIG_DATE", Str("2024-05-01 10:20")},
        {B + "FTB_ORIGINAL_PARAMETER_MENU_PART2", B + "CONFIG_WHO", Str("Maintenance")},
        {B + "FTB_ORIGINAL_PARAMETER_MENU_PART2", B + "CONFIG_VSTRING32", Str("v32")},
        {B + "CONF_VSTRING16_MENU", B + "CONFIG_VSTRING16.ENTRY1", Str("v16a")},
        {B + "CONF_VSTRING16_MENU", B + "CONFIG_VSTRING16.ENTRY2", Str("v16b")},
        {B + "FTB_ORIGINAL_PARAMETER_MENU_PART2", B + "CONFIG_OSTRING32", Str("o32")},
    };
    ExpectWrites(frame.writes, want);
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
    std::vector<RecordedWrite> want = kHartBasic;
    want.erase(want.begin() + 1, want.begin() + 3);
    want[1].value = I32(1);
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
