// The configuration report, compared line by line with the text a user gets.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "FileTestSupport.h"
#include "ModReport.h"

namespace {

using qdf::clsExGlobalVars;

std::vector<std::string> Split(const std::string& text, const std::string& sep) {
    std::vector<std::string> lines;
    size_t start = 0;
    for (size_t end; (end = text.find(sep, start)) != std::string::npos; start = end + sep.size())
        lines.push_back(text.substr(start, end - start));
    if (start < text.size()) lines.push_back(text.substr(start) + "<no CR LF>");
    return lines;
}

// Expected text is written one report line per source line.
void ExpectLines(const std::vector<std::string>& got, std::string want) {
    if (!want.empty() && want.back() != '\n') want += '\n';
    const std::vector<std::string> w = Split(want, "\n");
    for (size_t i = 0; i < std::min(got.size(), w.size()); ++i)
        EXPECT_EQ(got[i], w[i]) << "line " << i + 1;
    EXPECT_EQ(got.size(), w.size());
}

const std::string kGeneral = R"x("========","========","REPORT FILE","========","========"
""
""
"<General Information>"
"Program Name: ","QDFSondra"
"Software Revision Name","1.05.00"
"File Format Revision Number","1.00.00"
"Configuration Date and Time","2024-03-05 14:07:09"
"Configuration User Name","operator"
"Configuration Software Revision","1.04.00"
"Field Communication Type","HART"
)x";

const std::string kPrimaryDevice = R"x("<Primary Device and Pipe Setup>"
"Primary Device Type","Orifice"
"Primary Device Name","Orifice Flange Taps [ISO5167-2 2003]"
"Primary Device Code",6
"Primary Device Discharge Coefficient",-999999
"Primary Device Expansion Factor",-999999
"Primary Device Diameter",50.8
"Primary Device Diameter Unit","mm"
"Primary Device Temperature",20
"Primary Device Temperature Unit","degC"
"Primary Device Material","304 Stainless Steel"
""
"Pipe Diameter",102.26
"Pipe Diameter Unit","in"
"Pipe Temperature",68
"Pipe Temperature Unit","degF"
"Pipe Material","Carbon Steel"
""
)x";

class Report : public qdf::test::FileTest {
  protected:
    // General values, an orifice (coefficient and expansion factor left unentered), a range.
    void Fill(std::int32_t mode) {
        clsExGlobalVars& s = store;
        s.Mgt_ProgramName = "QDFSondra";
        s.Mgt_SoftRevNO = "1.05.00";
        s.Mgt_FileFormatRevNo = "1.00.00";
        s.Mgt_ConfDate = "2024-03-05 14:07:09";
        s.Mgt_UserName = "operator";
        s.Mgt_CfgSoftRev = "1.04.00";
        s.Mgt_FldCommType = 0;
        s.Xmtr_SimpleFlowCalcMode = mode;
        s.Xmtr_Tag = "FT-101";
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
    void FillBasic(std::int32_t mode) {
        Fill(mode);  // the auto compensation entries must stay out of a basic report
        store.Xmtr_SimpleFluidTypeCode = 1;
        store.Xmtr_SimpleDensityBase = 998.2;
        store.Xmtr_SimpleRefTemp = 20;
        store.Xmtr_SimpleTempUnit = 32;
        store.Xmtr_SimpleRefStaticPress = 1.5;
        store.Xmtr_SimpleStaticPressUnit = 7;
        store.press_units.ReDim(1);
        store.press_units_index.ReDim(1);
        store.press_units[0] = "bar";
        store.press_units_index[0] = 7;
        store.press_units[1] = "kPa";
        store.press_units_index[1] = 12;
        store.Xmtr_SimpleFlowCalcFixedVar = 0.5;
        store.Xmtr_SimpleTempK1ForLqdVar = -0.0002;
    }
    std::vector<std::string> Write() {
        const std::string path = Path("report.csv");
        EXPECT_EQ(qdf::WriteReport(store, path), 0);
        return Split(ReadText(path), "\r\n");
    }
    // The lines from "<Fluid Type Setup>" on.
    std::vector<std::string> WriteFromFluid() {
        std::vector<std::string> all = Write();
        auto it = std::find(all.begin(), all.end(), R"("<Fluid Type Setup>")");
        EXPECT_NE(it, all.end());
        return {it, all.end()};
    }
};

std::string Head(const std::string& mode) {
    return kGeneral + "\"Flow Configuration Mode\",\"" + mode + "\"\n\"Tag\",\"FT-101\"\n\"\"\n";
}

const std::string kBasic = R"x(""
"<Basic Mode Setup>"
"Fluid Type","Liquid"
"Simple Density Base",998.2
"Reference Temperature",20
"Reference Temperature Unit","degC"
"Reference Static Pressure",1.5
"Reference Static Pressure Unit","bar"
"K Factor",0.5
"Temperature K1",-2e-04
)x";

// Detects: a wrong label, order or value form anywhere in the gas report, a table shortened
// to the grid's filled rows, the viscosity not rounded through its exponent pattern, a blank
// row written where an empty line belongs.
TEST_F(Report, GasReportLineByLine) {
    Fill(0);
    store.UI_FluidType = 2;
    store.UI_FluidCat = 6;
    store.UI_ChemID = "74-84-0";
    store.UI_FluidName = "ETHANE";
    store.UI_DensUnit = 92;
    for (size_t i = 0; i < 6; ++i) {  // two of four pressures computed
        store.UI_DensAbsPress[i] = i % 2 ? 800 : 200;
        store.UI_DensTemp[i] = 25.0 * static_cast<double>(i / 2);
        store.UI_Dens[i] = 2.5 + static_cast<double>(i);
    }
    store.UI_ViscUnit = 0;
    const double vis[] = {8.5123456789e-6, 8.9e-6, 9.5e-6, 1.0e-5};
    for (size_t i = 0; i < 4; ++i) {
        store.UI_ViscTemp[i] = 10.0 * static_cast<double>(i);
        store.UI_Visc[i] = vis[i];
    }
    store.UI_RefDensValue = 1.2712;
    store.UI_RefDensUnit = 92;
    store.UI_IsenExpValue = 1.19;
    store.UI_MolWeight = 30.069;
    ExpectLines(Write(), Head("Auto compensation mode") + kPrimaryDevice + R"x("<Fluid Type Setup>"
"Fluid Type","Gas"
"Fluid Category","Gas (DIPPR)"
"Chemical ID","74-84-0"
"Fluid Name","ETHANE"
""
"<Fluid Operating Range Setup>"
"Range P1",200
"Range P2",800
"Range P Unit","kPa abs"
"Atmospheric Pressure",101.325
"Atmospheric Pressure Unit","kPa abs"
"Range T1",0
"Range T2",50
"Range T Unit","degC"
"Pressure Reference Conditions (Standard or Normal)",101.325
"Pressure Reference Conditions (Standard or Normal) Unit","kPa abs"
"Temperature Reference Conditions (Standard or Normal)",15
"Temperature Reference Conditions (Standard or Normal) Unit","degC"
""
"<Physical Property Setup>"
"<Density Information>"
"Density Unit","kg/m3"
""
"Pressure (kPa abs)","Temperature (deg C)","Density (kg/m3)"
200,0,2.5
800,0,3.5
200,25,4.5
800,25,5.5
200,50,6.5
800,50,7.5
0,0,0
0,0,0
0,0,0
0,0,0
0,0,0
0,0,0

"<Viscosity Information>"
"Viscosity Unit","Pa sec"
""
"Temperature (deg C)","Viscosity (Pa sec)"
0,8.51234568e-06
10,8.9e-06
20,9.5e-06
30,1e-05
""
"Reference Density (Standard or Normal) Value",1.2712
"Reference Density (Standard or Normal) Unit","kg/m3"
"Isentropic Exponent Value",1.19
"Molecular Weight Value",30.069
""
)x");
}

// Detects: pressure or isentropic rows written for a table liquid, a Chemical ID row (or a
// blank in its place) for an empty identifier, the liquid density table without its two head
// rows or with more than four rows, deg F and lb/ft3 texts taken from the wrong tables.
TEST_F(Report, LiquidReportLineByLine) {
    Fill(0);  // pressures are in the store but not reported for this liquid
    store.UI_FluidType = 1;
    store.UI_FluidCat = 1;
    store.UI_FluidName = "METHANOL";
    store.UI_RangeTUnit = 33;
    store.UI_TempRefUnit = 33;
    store.UI_DensUnit = 94;
    store.UI_ViscUnit = 1;
    for (size_t i = 0; i < 5; ++i) {  // the fifth row is never printed
        store.UI_DensTemp[i] = store.UI_ViscTemp[i] = 50.0 + 25.0 * static_cast<double>(i);
        store.UI_Dens[i] = 49.5 - 0.5 * static_cast<double>(i);
        store.UI_Visc[i] = 0.000123456789123 / static_cast<double>(i + 1);
    }
    store.UI_RefDensValue = 49.9;
    store.UI_RefDensUnit = 94;
    store.UI_IsenExpValue = 1.4;
    ExpectLines(WriteFromFluid(), R"x("<Fluid Type Setup>"
"Fluid Type","Liquid"
"Fluid Category","Liquid (DIPPR)"
"Fluid Name","METHANOL"
""
"<Fluid Operating Range Setup>"
"Range T1",0
"Range T2",50
"Range T Unit","degF"
"Temperature Reference Conditions (Standard or Normal)",15
"Temperature Reference Conditions (Standard or Normal) Unit","degF"
""
"<Physical Property Setup>"
"<Density Information>"
"Density Unit","lb/ft3"
""
"Temperature","Density"
"Temperature (deg F)","Density (lb/ft3)"
50,49.5
75,49
100,48.5
125,48

"<Viscosity Information>"
"Viscosity Unit","lb/ft Sec"
""
"Temperature (deg F)","Viscosity (lb/ft sec)"
50,0.000123456789
75,6.17283946e-05
100,4.1152263e-05
125,3.08641973e-05
""
"Reference Density (Standard or Normal) Value",49.9
"Reference Density (Standard or Normal) Unit","lb/ft3"
""
)x");
}

// Detects: range or reference temperature rows for saturated steam, table temperatures taken
// from the entered-unit arrays instead of the kelvin ones, a missing or unrounded conversion
// into the range unit (248.37800000000007, -459.66999999999996), gauge units in the head row.
TEST_F(Report, SaturatedSteamReportLineByLine) {
    Fill(0);
    store.UI_FluidType = 2;
    store.UI_FluidCat = 5;
    store.UI_FluidName = "Saturated steam";
    store.UI_RangePUnit = 3;
    store.UI_RangeTUnit = 33;
    store.UI_DensUnit = 94;
    store.UI_ViscUnit = 0;
    const double kelvin[] = {393.36, 453.03, 373.15, 423.15};
    for (size_t i = 0; i < 12; ++i) {
        store.UI_DensAbsPress[i] = 100.0 * static_cast<double>(i + 1);
        store.UI_DensTemp[i] = -1;  // stale entered-unit values: not used for steam
        store.UI_Dens[i] = 0.5;
        if (i < 3) store.UI_DensTempStandard[i] = kelvin[i];
    }
    for (size_t i = 0; i < 4; ++i) {
        store.UI_ViscTemp[i] = -1;
        store.UI_ViscTempStandard[i] = i < 3 ? kelvin[3 - i] : 0.0;
        store.UI_Visc[i] = 1.3e-5;
    }
    store.UI_RefDensValue = 0.0374;
    store.UI_RefDensUnit = 94;
    store.UI_IsenExpValue = 1.3;
    store.UI_MolWeight = 18.015;
    ExpectLines(WriteFromFluid(), R"x("<Fluid Type Setup>"
"Fluid Type","Gas"
"Fluid Category","Steam"
"Fluid Name","Saturated steam"
""
"<Fluid Operating Range Setup>"
"Range P1",200
"Range P2",800
"Range P Unit","kPa gauge"
"Atmospheric Pressure",101.325
"Atmospheric Pressure Unit","kPa abs"
"Pressure Reference Conditions (Standard or Normal)",101.325
"Pressure Reference Conditions (Standard or Normal) Unit","kPa abs"
""
"<Physical Property Setup>"
"<Density Information>"
"Density Unit","lb/ft3"
""
"Pressure (kPa gauge)","Temperature (deg F)","Density (lb/ft3)"
100,248.378,0.5
200,355.784,0.5
300,212,0.5
400,-459.67,0.5
500,-459.67,0.5
600,-459.67,0.5
700,-459.67,0.5
800,-459.67,0.5
900,-459.67,0.5
1000,-459.67,0.5
1100,-459.67,0.5
1200,-459.67,0.5

"<Viscosity Information>"
"Viscosity Unit","Pa sec"
""
"Temperature (deg F)","Viscosity (Pa sec)"
302,1.3e-05
212,1.3e-05
355.784,1.3e-05
-459.67,1.3e-05
""
"Reference Density (Standard or Normal) Value",0.0374
"Reference Density (Standard or Normal) Unit","lb/ft3"
"Isentropic Exponent Value",1.3
"Molecular Weight Value",18.015
""
)x");
}

// Detects: a composition row missing or out of store order, the gross methods' reference
// conditions, heating value, nitrogen, hydrogen and carbon monoxide rows given to the wrong
// method, a block written for a name that only differs in case from a method.
TEST_F(Report, NaturalGasBlocksByMethod) {
    Fill(0);
    store.UI_FluidType = 2;
    store.UI_FluidCat = 4;
    store.UI_DtlMethaneMole = 0.9;
    store.UI_DtlArMole = 0.001;
    store.UI_RgRelDens = 0.6;
    store.UI_CO2Mole = 0.01;
    store.UI_VgHv = 38.5;
    store.UI_VgHvUnit = 0;
    store.UI_N2Mole = 0.02;
    store.UI_H2Mole = 0.003;
    store.UI_COMole = 0.004;
    // The lines between "Fluid Name" and the blank row ahead of the range section.
    auto block = [&](const std::string& method) {
        store.UI_FluidName = method;
        std::vector<std::string> lines = WriteFromFluid();
        auto end = std::find(lines.begin(), lines.end(), R"("<Fluid Operating Range Setup>")");
        return std::vector<std::string>(lines.begin() + 4, end - 1);
    };
    for (const char* m :
         {"AGA8 Detail Characterization Method", "ISO12213 molar-composition analysis"}) {
        const std::vector<std::string> detail = block(m);
        ASSERT_EQ(detail.size(), 25u) << m;
        EXPECT_EQ(detail[2], R"("<Mole Component Information>")");
        EXPECT_EQ(detail[3], R"("Detail Total Mole",-999999)");
        EXPECT_EQ(detail[4], R"("Methane Mole",0.9)");
        EXPECT_EQ(detail[10], R"("Hydrogen Sulfide Mole",-999999)");
        EXPECT_EQ(detail[23], R"("Helium-4 Mole",-999999)");
        EXPECT_EQ(detail[24], R"("Argon Mole",0.001)");
    }
    const std::string us = R"x("Real Gas Relative Density","at 60 degF, 14.73 psi abs",0.6
"Carbon Dioxide Mole",0.01
)x";
    ExpectLines(block("AGA8 Gross Characterization Method 1"),
                "\"\"\n\"<Natural Gas Setup>\"\n" + us +
                    R"x("Volumetric Gross Heating Value","at 60 degF, 14.73 psi abs",38.5
"Volumetric Gross Heating Value Unit","MJ/m3"
"Carbon Monoxide Mole",0.004)x");
    ExpectLines(block("AGA8 Gross Characterization Method 2"), "\"\"\n\"<Natural Gas Setup>\"\n" +
                                                                   us +
                                                                   R"x("Nitrogen Mole",0.02
"Carbon Monoxide Mole",0.004)x");
    ExpectLines(block("ISO12213 physical properties"), R"x(""
"<Natural Gas Setup>"
"Real Gas Relative Density","at 0 degC, 1.01325 bar abs",0.6
"Carbon Dioxide Mole",0.01
"Volumetric Gross Heating Value","at 25 degC, 1.01325 bar abs",38.5
"Volumetric Gross Heating Value Unit","MJ/m3"
"Hydrogen Mole",0.003)x");
    EXPECT_TRUE(block("aga8 detail characterization method").empty());
}

// Detects: the auto compensation sections written in basic mode, the device pressure unit text
// not taken from the device's unit list, a mode other than 0 or 1 treated as auto or given a
// mode text.
TEST_F(Report, BasicModeReportLineByLine) {
    for (std::int32_t mode : {1, 2}) {
        FillBasic(mode);
        ExpectLines(Write(), Head(mode == 1 ? "Basic mode" : "") + kBasic);
    }
}

// Detects: sentinels replaced by empty fields or zeros, a head row written for unknown unit
// codes, a gas table shortened when its units are unknown.
TEST_F(Report, NothingEnteredPrintsSentinelsAndNoHeadRows) {
    store.Xmtr_SimpleFlowCalcMode = 0;
    store.UI_FluidType = 2;
    store.UI_RangeTUnit = 32;  // known temperature, unknown pressure and viscosity units
    const std::vector<std::string> lines = Write();
    auto count = [&](const std::string& l) { return std::count(lines.begin(), lines.end(), l); };
    EXPECT_EQ(count(R"("Primary Device Code",-999999)"), 1);
    EXPECT_EQ(count(R"("Range P1",-999999)"), 1);
    EXPECT_EQ(count(R"("Molecular Weight Value",-999999)"), 1);
    EXPECT_EQ(count(R"("Fluid Category","")"), 1);
    EXPECT_EQ(count(R"("Chemical ID","")"), 0);
    EXPECT_EQ(count("0,0,0"), 12);
    EXPECT_EQ(count("0,0"), 4);
    for (const std::string& l : lines) {
        EXPECT_NE(l.rfind(R"("Pressure ()", 0), 0u) << l;
        EXPECT_NE(l.rfind(R"("Temperature ()", 0), 0u) << l;
    }
}

// Detects: a failed open passing silently or shown with another text or title, the dialog
// offered without the CSV filter or the kept path, a cancelled dialog that writes or forgets
// the kept path, an existing file overwritten without a yes, a new file asked about.
TEST_F(Report, MenuCommandAndFailures) {
    FillBasic(1);
    EXPECT_EQ(qdf::WriteReport(store, Path("no-such-folder/r.csv")), 1);
    const qdf::test::Shown openFailed{"QDF300 Warning", "Report file can't be opened!", 1, 2, 4};
    EXPECT_EQ(frame.shown, std::vector<qdf::test::Shown>{openFailed});

    store.Gbl_ReportFilePath = "last.csv";
    std::vector<std::string> requests;
    std::string answer;
    const qdf::ChooseFile dialog = [&](const std::string& filter, const std::string& offered) {
        requests.push_back(filter + "|" + offered);
        return answer;
    };
    frame.shown.clear();
    EXPECT_FALSE(qdf::ReportCommand(store, frame, dialog));
    EXPECT_EQ(requests, std::vector<std::string>{"CSV File (*.CSV) | *.CSV|last.csv"});
    EXPECT_EQ(store.Gbl_ReportFilePath, "last.csv");

    answer = Path("r.csv");
    EXPECT_TRUE(qdf::ReportCommand(store, frame, dialog));
    EXPECT_EQ(store.Gbl_ReportFilePath, answer);
    EXPECT_TRUE(frame.shown.empty());
    ExpectLines(Split(ReadText(answer), "\r\n"), Head("Basic mode") + kBasic);

    WriteText(answer, "keep");
    frame.answers = {7};
    EXPECT_FALSE(qdf::ReportCommand(store, frame, dialog));
    EXPECT_EQ(ReadText(answer), "keep");
    const qdf::test::Shown ask{"QDF300 Warning", "Report file exists. Overwrite?", 3, 5, 7};
    EXPECT_EQ(frame.shown, std::vector<qdf::test::Shown>{ask});
    frame.answers = {6};
    EXPECT_TRUE(qdf::ReportCommand(store, frame, dialog));
    EXPECT_NE(ReadText(answer), "keep");

    frame.shown.clear();
    answer = Path("no-such-folder/r.csv");
    EXPECT_FALSE(qdf::ReportCommand(store, frame, dialog));
    EXPECT_EQ(frame.shown, std::vector<qdf::test::Shown>{openFailed});
}

}  // namespace
