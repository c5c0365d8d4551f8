// The configuration report, compared line by line with the text a user gets.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "ModReport.h"
#include "clsExGlobalVars.h"
#include "report_pmf_fakes.h"

namespace {

using qdf::clsExGlobalVars;
using qdf::test::ReadBytes;
using qdf::test::RecordingManager;
using qdf::test::ScratchDir;
using qdf::test::WriteBytes;

// Every line must end in CR LF; returns the lines without their ends.
std::vector<std::string> ReportLines(const std::string& path) {
    const std::string bytes = ReadBytes(path);
    std::vector<std::string> lines;
    size_t start = 0;
    while (start < bytes.size()) {
        const size_t end = bytes.find("\r\n", start);
        if (end == std::string::npos) {
            ADD_FAILURE() << "text after the last CR LF: " << bytes.substr(start);
            break;
        }
        lines.push_back(bytes.substr(start, end - start));
        start = end + 2;
    }
    return lines;
}

void ExpectLines(const std::vector<std::string>& got, const std::vector<std::string>& want) {
    for (size_t i = 0; i < std::min(got.size(), want.size()); ++i)
        EXPECT_EQ(got[i], want[i]) << "line " << i + 1;
    EXPECT_EQ(got.size(), want.size());
}

std::vector<std::string> Concat(std::initializer_list<std::vector<std::string>> parts) {
    std::vector<std::string> all;
    for (const auto& p : parts) all.insert(all.end(), p.begin(), p.end());
    return all;
}

void FillGeneral(clsExGlobalVars& s, std::int32_t mode) {
    s.Mgt_ProgramName = "QDFSondra";
    s.Mgt_SoftRevNO = "1.05.00";
    s.Mgt_FileFormatRevNo = "1.00.00";
    s.Mgt_ConfDate = "2024-03-05 14:07:09";
    s.Mgt_UserName = "operator";
    s.Mgt_CfgSoftRev = "1.04.00";
    s.Mgt_FldCommType = 0;
    s.Xmtr_SimpleFlowCalcMode = mode;
    s.Xmtr_Tag = "FT-101";
}

std::vector<std::string> GeneralLines(const std::string& modeText) {
    return {
        R"r("========","========","REPORT FILE","========","========")r",
        R"r("")r",
        R"r("")r",
        R"r("<General Information>")r",
        R"r("Program Name: ","QDFSondra")r",
        R"r("Software Revision Name","1.05.00")r",
        R"r("File Format Revision Number","1.00.00")r",
        R"r("Configuration Date and Time","2024-03-05 14:07:09")r",
        R"r("Configuration User Name","operator")r",
        R"r("Configuration Software Revision","1.04.00")r",
        R"r("Field Communication Type","HART")r",
        "\"Flow Configuration Mode\",\"" + modeText + "\"",
        R"r("Tag","FT-101")r",
        R"r("")r",
    };
}

// An orifice in a pipe; the discharge coefficient and expansion factor left unentered.
void FillPrimaryDevice(clsExGlobalVars& s) {
    s.UI_PEType = 0;
    s.UI_PEName = "Orifice Flange Taps [ISO5167-2 2003]";
    s.UI_PEPrimaryDeviceCode = 6;
    s.UI_PEDiameter = 50.8;
    s.UI_PEDiameterUnit = 49;
    s.UI_PETemp = 20;
    s.UI_PETempUnit = 32;
    s.UI_PEMaterial = "304 Stainless Steel";
    s.UI_PEPipeDiameter = 102.26;
    s.UI_PEPipeDiameterUnit = 47;
    s.UI_PipeTemperature = 68;
    s.UI_PipeTemperatureUnit = 33;
    s.UI_PipeMaterial = "Carbon Steel";
}

const std::vector<std::string> kPrimaryDeviceLines = {
    R"r("<Primary Device and Pipe Setup>")r",
    R"r("Primary Device Type","Orifice")r",
    R"r("Primary Device Name","Orifice Flange Taps [ISO5167-2 2003]")r",
    R"r("Primary Device Code",6)r",
    R"r("Primary Device Discharge Coefficient",-999999)r",
    R"r("Primary Device Expansion Factor",-999999)r",
    R"r("Primary Device Diameter",50.8)r",
    R"r("Primary Device Diameter Unit","mm")r",
    R"r("Primary Device Temperature",20)r",
    R"r("Primary Device Temperature Unit","degC")r",
    R"r("Primary Device Material","304 Stainless Steel")r",
    R"r("")r",
    R"r("Pipe Diameter",102.26)r",
    R"r("Pipe Diameter Unit","in")r",
    R"r("Pipe Temperature",68)r",
    R"r("Pipe Temperature Unit","degF")r",
    R"r("Pipe Material","Carbon Steel")r",
    R"r("")r",
};

void FillGasRange(clsExGlobalVars& s) {
    s.UI_RangeP1 = 200;
    s.UI_RangeP2 = 800;
    s.UI_RangePUnit = 0;
    s.UI_AtmPress = 101.325;
    s.UI_AtmPressUnit = 0;
    s.UI_RangeT1 = 0;
    s.UI_RangeT2 = 50;
    s.UI_RangeTUnit = 32;
    s.UI_PressRef = 101.325;
    s.UI_PressRefUnit = 0;
    s.UI_TempRef = 15;
    s.UI_TempRefUnit = 32;
}

// Detects: a wrong label, order or value form anywhere in the gas report, a table shortened
// to the grid's filled rows, the viscosity not rounded through its exponent pattern, a blank
// row written where an empty line belongs.
TEST(Report, GasReportLineByLine) {
    ScratchDir dir("report");
    clsExGlobalVars s;
    FillGeneral(s, 0);
    FillPrimaryDevice(s);
    s.UI_FluidType = 2;
    s.UI_FluidCat = 6;
    s.UI_ChemID = "74-84-0";
    s.UI_FluidName = "ETHANE";
    FillGasRange(s);
    s.UI_DensUnit = 92;
    // Only six of twelve rows computed (two pressures); the rest hold what the arrays hold.
    const double press[] = {200, 800, 200, 800, 200, 800};
    const double temp[] = {0, 0, 25, 25, 50, 50};
    const double dens[] = {2.68, 10.9, 2.45, 9.95, 2.26, 9.15};
    for (size_t i = 0; i < 6; ++i) {
        s.UI_DensAbsPress[i] = press[i];
        s.UI_DensTemp[i] = temp[i];
        s.UI_Dens[i] = dens[i];
    }
    s.UI_ViscUnit = 0;
    const double vt[] = {0, 10, 30, 50};
    const double vis[] = {8.5123456789e-6, 8.9e-6, 9.5e-6, 1.0e-5};
    for (size_t i = 0; i < 4; ++i) {
        s.UI_ViscTemp[i] = vt[i];
        s.UI_Visc[i] = vis[i];
    }
    s.UI_RefDensValue = 1.2712;
    s.UI_RefDensUnit = 92;
    s.UI_IsenExpValue = 1.19;
    s.UI_MolWeight = 30.069;

    const std::string path = dir.File("gas.csv");
    ASSERT_EQ(qdf::WriteReport(s, path), 0);

    ExpectLines(
        ReportLines(path),
        Concat({GeneralLines("Auto compensation mode"),
                kPrimaryDeviceLines,
                {
                    R"r("<Fluid Type Setup>")r",
                    R"r("Fluid Type","Gas")r",
                    R"r("Fluid Category","Gas (DIPPR)")r",
                    R"r("Chemical ID","74-84-0")r",
                    R"r("Fluid Name","ETHANE")r",
                    R"r("")r",
                    R"r("<Fluid Operating Range Setup>")r",
                    R"r("Range P1",200)r",
                    R"r("Range P2",800)r",
                    R"r("Range P Unit","kPa abs")r",
                    R"r("Atmospheric Pressure",101.325)r",
                    R"r("Atmospheric Pressure Unit","kPa abs")r",
                    R"r("Range T1",0)r",
                    R"r("Range T2",50)r",
                    R"r("Range T Unit","degC")r",
                    R"r("Pressure Reference Conditions (Standard or Normal)",101.325)r",
                    R"r("Pressure Reference Conditions (Standard or Normal) Unit","kPa abs")r",
                    R"r("Temperature Reference Conditions (Standard or Normal)",15)r",
                    R"r("Temperature Reference Conditions (Standard or Normal) Unit","degC")r",
                    R"r("")r",
                    R"r("<Physical Property Setup>")r",
                    R"r("<Density Information>")r",
                    R"r("Density Unit","kg/m3")r",
                    R"r("")r",
                    R"r("Pressure (kPa abs)","Temperature (deg C)","Density (kg/m3)")r",
                    "200,0,2.68",
                    "800,0,10.9",
                    "200,25,2.45",
                    "800,25,9.95",
                    "200,50,2.26",
                    "800,50,9.15",
                    "0,0,0",
                    "0,0,0",
                    "0,0,0",
                    "0,0,0",
                    "0,0,0",
                    "0,0,0",
                    "",
                    R"r("<Viscosity Information>")r",
                    R"r("Viscosity Unit","Pa sec")r",
                    R"r("")r",
                    R"r("Temperature (deg C)","Viscosity (Pa sec)")r",
                    "0,8.51234568e-06",
                    "10,8.9e-06",
                    "30,9.5e-06",
                    "50,1e-05",
                    R"r("")r",
                    R"r("Reference Density (Standard or Normal) Value",1.2712)r",
                    R"r("Reference Density (Standard or Normal) Unit","kg/m3")r",
                    R"r("Isentropic Exponent Value",1.19)r",
                    R"r("Molecular Weight Value",30.069)r",
                    R"r("")r",
                }}));
}

// Detects: pressure or isentropic rows written for a table liquid, a Chemical ID row (or a
// blank in its place) for an empty identifier, the liquid density table without its two head
// rows or with more than four rows, unit texts of deg F and lb/ft3 taken from the wrong tables.
TEST(Report, LiquidReportLineByLine) {
    ScratchDir dir("report");
    clsExGlobalVars s;
    FillGeneral(s, 0);
    FillPrimaryDevice(s);
    s.UI_FluidType = 1;
    s.UI_FluidCat = 1;
    s.UI_FluidName = "METHANOL";
    FillGasRange(s);  // pressures present in the store but not reported for this liquid
    s.UI_RangeT1 = 50;
    s.UI_RangeT2 = 120;
    s.UI_RangeTUnit = 33;
    s.UI_TempRef = 60;
    s.UI_TempRefUnit = 33;
    s.UI_DensUnit = 94;
    const double t[] = {50, 73.3, 96.7, 120};
    const double d[] = {49.6, 49.1, 48.5, 47.9};
    for (size_t i = 0; i < 4; ++i) {
        s.UI_DensTemp[i] = t[i];
        s.UI_Dens[i] = d[i];
        s.UI_ViscTemp[i] = t[i];
        s.UI_Visc[i] = 0.000123456789123 / static_cast<double>(i + 1);
    }
    s.UI_DensTemp[4] = 999;  // beyond the four rows: never printed
    s.UI_ViscUnit = 1;
    s.UI_RefDensValue = 49.9;
    s.UI_RefDensUnit = 94;
    s.UI_IsenExpValue = 1.4;

    const std::string path = dir.File("liquid.csv");
    ASSERT_EQ(qdf::WriteReport(s, path), 0);
    ExpectLines(
        ReportLines(path),
        Concat({GeneralLines("Auto compensation mode"),
                kPrimaryDeviceLines,
                {
                    R"r("<Fluid Type Setup>")r",
                    R"r("Fluid Type","Liquid")r",
                    R"r("Fluid Category","Liquid (DIPPR)")r",
                    R"r("Fluid Name","METHANOL")r",
                    R"r("")r",
                    R"r("<Fluid Operating Range Setup>")r",
                    R"r("Range T1",50)r",
                    R"r("Range T2",120)r",
                    R"r("Range T Unit","degF")r",
                    R"r("Temperature Reference Conditions (Standard or Normal)",60)r",
                    R"r("Temperature Reference Conditions (Standard or Normal) Unit","degF")r",
                    R"r("")r",
                    R"r("<Physical Property Setup>")r",
                    R"r("<Density Information>")r",
                    R"r("Density Unit","lb/ft3")r",
                    R"r("")r",
                    R"r("Temperature","Density")r",
                    R"r("Temperature (deg F)","Density (lb/ft3)")r",
                    "50,49.6",
                    "73.3,49.1",
                    "96.7,48.5",
                    "120,47.9",
                    "",
                    R"r("<Viscosity Information>")r",
                    R"r("Viscosity Unit","lb/ft Sec")r",
                    R"r("")r",
                    R"r("Temperature (deg F)","Viscosity (lb/ft sec)")r",
                    "50,0.000123456789",
                    "73.3,6.17283946e-05",
                    "96.7,4.1152263e-05",
                    "120,3.08641973e-05",
                    R"r("")r",
                    R"r("Reference Density (Standard or Normal) Value",49.9)r",
                    R"r("Reference Density (Standard or Normal) Unit","lb/ft3")r",
                    R"r("")r",
                }}));
}

// Detects: range or reference temperature rows for saturated steam, table temperatures taken
// from the entered-unit arrays instead of the kelvin ones, a missing or unrounded conversion
// into the range unit (248.37800000000007, -459.66999999999996), gauge units in the head row.
TEST(Report, SaturatedSteamReportLineByLine) {
    ScratchDir dir("report");
    clsExGlobalVars s;
    FillGeneral(s, 0);
    FillPrimaryDevice(s);
    s.UI_FluidType = 2;
    s.UI_FluidCat = 5;
    s.UI_FluidName = "Saturated steam";
    FillGasRange(s);
    s.UI_RangePUnit = 3;
    s.UI_RangeTUnit = 33;
    s.UI_DensUnit = 94;
    const double kelvin[] = {393.36, 453.03, 373.15};
    for (size_t i = 0; i < 12; ++i) {
        s.UI_DensAbsPress[i] = 100.0 * static_cast<double>(i + 1);
        s.UI_DensTemp[i] = -1;  // stale entered-unit values: not used for steam
        s.UI_Dens[i] = 0.1 * static_cast<double>(i + 1);
        if (i < 3) s.UI_DensTempStandard[i] = kelvin[i];
    }
    s.UI_ViscUnit = 0;
    const double vk[] = {393.36, 423.15, 453.03, 0};
    for (size_t i = 0; i < 4; ++i) {
        s.UI_ViscTemp[i] = -1;
        s.UI_ViscTempStandard[i] = vk[i];
        s.UI_Visc[i] = 1.3e-5;
    }
    s.UI_RefDensValue = 0.0374;
    s.UI_RefDensUnit = 94;
    s.UI_IsenExpValue = 1.3;
    s.UI_MolWeight = 18.015;

    const std::string path = dir.File("steam.csv");
    ASSERT_EQ(qdf::WriteReport(s, path), 0);
    ExpectLines(
        ReportLines(path),
        Concat({GeneralLines("Auto compensation mode"),
                kPrimaryDeviceLines,
                {
                    R"r("<Fluid Type Setup>")r",
                    R"r("Fluid Type","Gas")r",
                    R"r("Fluid Category","Steam")r",
                    R"r("Fluid Name","Saturated steam")r",
                    R"r("")r",
                    R"r("<Fluid Operating Range Setup>")r",
                    R"r("Range P1",200)r",
                    R"r("Range P2",800)r",
                    R"r("Range P Unit","kPa gauge")r",
                    R"r("Atmospheric Pressure",101.325)r",
                    R"r("Atmospheric Pressure Unit","kPa abs")r",
                    R"r("Pressure Reference Conditions (Standard or Normal)",101.325)r",
                    R"r("Pressure Reference Conditions (Standard or Normal) Unit","kPa abs")r",
                    R"r("")r",
                    R"r("<Physical Property Setup>")r",
                    R"r("<Density Information>")r",
                    R"r("Density Unit","lb/ft3")r",
                    R"r("")r",
                    R"r("Pressure (kPa gauge)","Temperature (deg F)","Density (lb/ft3)")r",
                    "100,248.378,0.1",
                    "200,355.784,0.2",
                    "300,212,0.30000000000000004",
                    "400,-459.67,0.4",
                    "500,-459.67,0.5",
                    "600,-459.67,0.6000000000000001",
                    "700,-459.67,0.7000000000000001",
                    "800,-459.67,0.8",
                    "900,-459.67,0.9",
                    "1000,-459.67,1",
                    "1100,-459.67,1.1",
                    "1200,-459.67,1.2000000000000002",
                    "",
                    R"r("<Viscosity Information>")r",
                    R"r("Viscosity Unit","Pa sec")r",
                    R"r("")r",
                    R"r("Temperature (deg F)","Viscosity (Pa sec)")r",
                    "248.378,1.3e-05",
                    "302,1.3e-05",
                    "355.784,1.3e-05",
                    "-459.67,1.3e-05",
                    R"r("")r",
                    R"r("Reference Density (Standard or Normal) Value",0.0374)r",
                    R"r("Reference Density (Standard or Normal) Unit","lb/ft3")r",
                    R"r("Isentropic Exponent Value",1.3)r",
                    R"r("Molecular Weight Value",18.015)r",
                    R"r("")r",
                }}));
}

// The lines a natural gas method adds between "Fluid Name" and the range section.
std::vector<std::string> NaturalGasBlock(const std::string& method) {
    ScratchDir dir("report");
    clsExGlobalVars s;
    FillGeneral(s, 0);
    s.UI_FluidType = 2;
    s.UI_FluidCat = 4;
    s.UI_FluidName = method;
    s.UI_DtlMethaneMole = 0.9;
    s.UI_DtlArMole = 0.001;
    s.UI_RgRelDens = 0.6;
    s.UI_CO2Mole = 0.01;
    s.UI_VgHv = 38.5;
    s.UI_VgHvUnit = 0;
    s.UI_N2Mole = 0.02;
    s.UI_H2Mole = 0.003;
    s.UI_COMole = 0.004;
    const std::string path = dir.File("ng.csv");
    EXPECT_EQ(qdf::WriteReport(s, path), 0);
    const std::vector<std::string> lines = ReportLines(path);
    std::vector<std::string> block;
    bool in = false;
    for (const std::string& l : lines) {
        if (l == R"r("<Fluid Operating Range Setup>")r") break;
        if (in) block.push_back(l);
        if (l.rfind(R"r("Fluid Name",)r", 0) == 0) in = true;
    }
    return block;
}

// Detects: a composition row missing, misnamed or out of store order; the gross methods'
// reference conditions, heating value, nitrogen, hydrogen and carbon monoxide rows given to the
// wrong method; a natural gas block written for a name that is no method.
TEST(Report, NaturalGasBlocksByMethod) {
    const std::vector<std::string> detail = NaturalGasBlock("AGA8 Detail Characterization Method");
    ASSERT_EQ(detail.size(), 26u);
    EXPECT_EQ(detail[0], R"r("")r");
    EXPECT_EQ(detail[1], R"r("<Natural Gas Setup>")r");
    EXPECT_EQ(detail[2], R"r("<Mole Component Information>")r");
    EXPECT_EQ(detail[3], R"r("Detail Total Mole",-999999)r");
    EXPECT_EQ(detail[4], R"r("Methane Mole",0.9)r");
    EXPECT_EQ(detail[10], R"r("Hydrogen Sulfide Mole",-999999)r");
    EXPECT_EQ(detail[15], R"r("n-Butane Mole",-999999)r");
    EXPECT_EQ(detail[23], R"r("Helium-4 Mole",-999999)r");
    EXPECT_EQ(detail[24], R"r("Argon Mole",0.001)r");
    EXPECT_EQ(detail[25], R"r("")r");
    EXPECT_EQ(NaturalGasBlock("ISO12213 molar-composition analysis"), detail);

    ExpectLines(NaturalGasBlock("AGA8 Gross Characterization Method 1"),
                {
                    R"r("")r",
                    R"r("<Natural Gas Setup>")r",
                    R"r("Real Gas Relative Density","at 60 degF, 14.73 psi abs",0.6)r",
                    R"r("Carbon Dioxide Mole",0.01)r",
                    R"r("Volumetric Gross Heating Value","at 60 degF, 14.73 psi abs",38.5)r",
                    R"r("Volumetric Gross Heating Value Unit","MJ/m3")r",
                    R"r("Carbon Monoxide Mole",0.004)r",
                    R"r("")r",
                });
    ExpectLines(NaturalGasBlock("AGA8 Gross Characterization Method 2"),
                {
                    R"r("")r",
                    R"r("<Natural Gas Setup>")r",
                    R"r("Real Gas Relative Density","at 60 degF, 14.73 psi abs",0.6)r",
                    R"r("Carbon Dioxide Mole",0.01)r",
                    R"r("Nitrogen Mole",0.02)r",
                    R"r("Carbon Monoxide Mole",0.004)r",
                    R"r("")r",
                });
    ExpectLines(NaturalGasBlock("ISO12213 physical properties"),
                {
                    R"r("")r",
                    R"r("<Natural Gas Setup>")r",
                    R"r("Real Gas Relative Density","at 0 degC, 1.01325 bar abs",0.6)r",
                    R"r("Carbon Dioxide Mole",0.01)r",
                    R"r("Volumetric Gross Heating Value","at 25 degC, 1.01325 bar abs",38.5)r",
                    R"r("Volumetric Gross Heating Value Unit","MJ/m3")r",
                    R"r("Hydrogen Mole",0.003)r",
                    R"r("")r",
                });
    // Names compare exactly: another spelling is an ordinary fluid name.
    ExpectLines(NaturalGasBlock("aga8 detail characterization method"), {R"r("")r"});
}

void FillBasic(clsExGlobalVars& s, std::int32_t mode) {
    FillGeneral(s, mode);
    s.Xmtr_SimpleFluidTypeCode = 1;
    s.Xmtr_SimpleDensityBase = 998.2;
    s.Xmtr_SimpleRefTemp = 20;
    s.Xmtr_SimpleTempUnit = 32;
    s.Xmtr_SimpleRefStaticPress = 1.5;
    s.Xmtr_SimpleStaticPressUnit = 7;
    s.press_units.ReDim(1);
    s.press_units_index.ReDim(1);
    s.press_units[0] = "bar";
    s.press_units_index[0] = 7;
    s.press_units[1] = "kPa";
    s.press_units_index[1] = 12;
    s.Xmtr_SimpleFlowCalcFixedVar = 0.5;
    s.Xmtr_SimpleTempK1ForLqdVar = -0.0002;
    // Auto compensation entries stay out of a basic report.
    FillPrimaryDevice(s);
}

std::vector<std::string> BasicLines(const std::string& modeText) {
    return Concat({GeneralLines(modeText),
                   {
                       R"r("")r",
                       R"r("<Basic Mode Setup>")r",
                       R"r("Fluid Type","Liquid")r",
                       R"r("Simple Density Base",998.2)r",
                       R"r("Reference Temperature",20)r",
                       R"r("Reference Temperature Unit","degC")r",
                       R"r("Reference Static Pressure",1.5)r",
                       R"r("Reference Static Pressure Unit","bar")r",
                       R"r("K Factor",0.5)r",
                       R"r("Temperature K1",-2e-04)r",
                   }});
}

// Detects: the auto compensation sections written in basic mode, the device pressure unit text
// not taken from the device's unit list, and a mode other than 0 or 1 treated as auto or given
// a mode text.
TEST(Report, BasicModeReportLineByLine) {
    ScratchDir dir("report");
    for (std::int32_t mode : {1, 2}) {
        clsExGlobalVars s;
        FillBasic(s, mode);
        const std::string path = dir.File("basic.csv");
        ASSERT_EQ(qdf::WriteReport(s, path), 0);
        ExpectLines(ReportLines(path), BasicLines(mode == 1 ? "Basic mode" : ""));
    }
}

// Detects: sentinels replaced by empty fields or zeros, a head row written for unknown unit
// codes, a gas table shortened when its units are unknown.
TEST(Report, NothingEnteredPrintsSentinelsAndNoHeadRows) {
    ScratchDir dir("report");
    clsExGlobalVars s;
    s.Xmtr_SimpleFlowCalcMode = 0;
    s.UI_FluidType = 2;
    s.UI_RangeTUnit = 32;  // known temperature, unknown pressure unit
    const std::string path = dir.File("empty.csv");
    ASSERT_EQ(qdf::WriteReport(s, path), 0);
    const std::vector<std::string> lines = ReportLines(path);
    auto has = [&](const std::string& l) {
        return std::find(lines.begin(), lines.end(), l) != lines.end();
    };
    EXPECT_TRUE(has(R"r("Primary Device Code",-999999)r"));
    EXPECT_TRUE(has(R"r("Primary Device Diameter Unit","")r"));
    EXPECT_TRUE(has(R"r("Range P1",-999999)r"));
    EXPECT_TRUE(has(R"r("Molecular Weight Value",-999999)r"));
    EXPECT_TRUE(has(R"r("Fluid Category","")r"));
    EXPECT_FALSE(has(R"r("Chemical ID","")r"));
    // Neither table has a head row: the pressure unit and the viscosity unit are unknown.
    for (const std::string& l : lines) {
        EXPECT_NE(l.rfind(R"r("Pressure ()r", 0), 0u) << l;
        EXPECT_NE(l.rfind(R"r("Temperature ()r", 0), 0u) << l;
    }
    const auto density = std::find(lines.begin(), lines.end(), R"r("Density Unit","")r");
    ASSERT_NE(density, lines.end());
    EXPECT_EQ(std::count(density, lines.end(), "0,0,0"), 12);
    EXPECT_EQ(*(density + 14), "");
    EXPECT_EQ(std::count(density, lines.end(), "0,0"), 4);
}

// Detects: a failed open passing silently, a message other than the one text and title, or
// no result when the store has no frame to show it through.
TEST(Report, UnwritablePathShowsTheOneWarning) {
    ScratchDir dir("report");
    RecordingManager frame;
    clsExGlobalVars s;
    FillBasic(s, 1);
    s.SDKManager = &frame;
    EXPECT_EQ(qdf::WriteReport(s, dir.File("no-such-folder/r.csv")), 1);
    ASSERT_EQ(frame.messages.shown.size(), 1u);
    EXPECT_EQ(frame.messages.shown[0].title, "QDF300 Warning");
    EXPECT_EQ(frame.messages.shown[0].text, "Report file can't be opened!");
    EXPECT_EQ(frame.messages.shown[0].buttons, 2);

    s.SDKManager = nullptr;
    EXPECT_EQ(qdf::WriteReport(s, dir.File("no-such-folder/r.csv")), 1);
}

// Detects: the dialog offered without the CSV filter or the last path, a cancelled dialog that
// still writes or clears the kept path, an existing file overwritten without a yes, a new file
// asked about, the chosen path not kept.
TEST(Report, MenuCommandAsksBeforeOverwriting) {
    ScratchDir dir("report");
    RecordingManager frame;
    clsExGlobalVars s;
    FillBasic(s, 1);
    s.SDKManager = &frame;
    s.Gbl_ReportFilePath = "last.csv";
    std::vector<std::string> requests;
    std::string answer;
    const qdf::ChooseFile dialog = [&](const std::string& filter, const std::string& offered) {
        requests.push_back(filter + "|" + offered);
        return answer;
    };

    EXPECT_FALSE(qdf::ReportCommand(s, frame.messages, dialog));
    EXPECT_EQ(requests, std::vector<std::string>{"CSV File (*.CSV) | *.CSV|last.csv"});
    EXPECT_EQ(s.Gbl_ReportFilePath, "last.csv");
    EXPECT_TRUE(frame.messages.shown.empty());

    const std::string path = dir.File("r.csv");
    answer = path;
    EXPECT_TRUE(qdf::ReportCommand(s, frame.messages, dialog));
    EXPECT_EQ(s.Gbl_ReportFilePath, path);
    EXPECT_TRUE(frame.messages.shown.empty());
    ExpectLines(ReportLines(path), BasicLines("Basic mode"));

    WriteBytes(path, "keep");
    frame.messages.answers = {qdf::sdk::kMessageAnswerNo};
    EXPECT_FALSE(qdf::ReportCommand(s, frame.messages, dialog));
    EXPECT_EQ(ReadBytes(path), "keep");
    ASSERT_EQ(frame.messages.shown.size(), 1u);
    const auto& q = frame.messages.shown[0];
    EXPECT_EQ(q.title, "QDF300 Warning");
    EXPECT_EQ(q.text, "Report file exists. Overwrite?");
    EXPECT_EQ(std::vector<int>({q.kind, q.buttons, q.defaultButton}), std::vector<int>({3, 5, 7}));

    frame.messages.answers = {qdf::sdk::kMessageAnswerYes};
    EXPECT_TRUE(qdf::ReportCommand(s, frame.messages, dialog));
    ExpectLines(ReportLines(path), BasicLines("Basic mode"));

    answer = dir.File("no-such-folder/r.csv");
    frame.messages.shown.clear();
    EXPECT_FALSE(qdf::ReportCommand(s, frame.messages, dialog));
    ASSERT_EQ(frame.messages.shown.size(), 1u);
    EXPECT_EQ(frame.messages.shown[0].text, "Report file can't be opened!");
}

}  // namespace
