// The flow parameter files: the UI, Xmtr, Mgt and Calc text files, by position and by line.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "../common/StoreMembers.h"
#include "AnsiText.h"
#include "FileTestSupport.h"
#include "LineForm.h"
#include "ModCalcValue.h"
#include "ModDefaults.h"
#include "ModUserInput.h"
#include "ModXmtrParam.h"

namespace qdf::test {
namespace {

// Lines without their CR LF; text after the last CR LF fails the test.
std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> out;
    std::size_t start = 0;
    while (start < text.size()) {
        const auto end = text.find("\r\n", start);
        EXPECT_NE(end, std::string::npos) << "last line without CR LF";
        if (end == std::string::npos) break;
        out.push_back(text.substr(start, end - start));
        start = end + 2;
    }
    return out;
}

std::string Join(const std::vector<std::string>& lines) {
    std::string t;
    for (const auto& l : lines) t += l + "\r\n";
    return t;
}

std::size_t IndexOf(const std::vector<std::string>& lines, const std::string& line) {
    for (std::size_t i = 0; i < lines.size(); ++i)
        if (lines[i] == line) return i;
    return std::string::npos;
}

class ParamFileTest : public FileTest {
  protected:
    void SetUp() override {
        FileTest::SetUp();
        InitializeDefaults(store);
    }

    // A gas on a P x N grid: temperatures 300 + column, pressures 100 + row, densities by index.
    void FillGas(int P, int N) {
        store.UI_FluidType = 2;
        store.UI_FluidCat = 6;
        store.UI_FluidName = "ETHANE";
        store.Mgt_GasDensPressDiv = P;
        store.Mgt_GasDensTempDiv = N;
        for (int c = 0; c < N; ++c)
            for (int r = 0; r < P; ++r) {
                store.UI_DensTemp[c * P + r] = 300 + c;
                store.UI_DensAbsPress[c * P + r] = 100 + r;
                store.UI_Dens[c * P + r] = 0.5 + c * P + r;
            }
        for (int i = 0; i < 32; ++i) {
            store.UI_VisPress[i] = 1000 + i;
            store.UI_ViscTemp[i] = 250.5 + i;
            store.UI_Visc[i] = 1e-5 * (i + 1);
        }
        store.UI_ViscUnit = 1;
        store.UI_PEName = "Orifice Flange Taps [ISO5167-2 2003]";
        store.UI_PEDiameter = 50.125;
        store.UI_RangeTUnit = 2;
        store.UI_IsenExpValue = 1.19;
        store.UI_Reserve26 = 26.5;
        store.UI_Reserve27 = 27.5;
        store.UI_Reserve30 = 30.5;
    }
};

TEST_F(ParamFileTest, NumbersTakeTheirShortestExactForm) {
    // Catches lost digits or a locale decimal comma in the files.
    for (double v : {0.1, 1e-05, -999999.0, 101.325, 1.0 / 3.0, 6.02214076e23}) {
        const std::string t = ShortestDouble(v);
        EXPECT_EQ(CellToDouble(t), v) << t;
        EXPECT_EQ(t.find(','), std::string::npos);
    }
    EXPECT_EQ(ShortestDouble(-999999.0), "-999999");
    EXPECT_EQ(ShortestDouble(0.25), "0.25");
}

TEST_F(ParamFileTest, GasTablesOfThreePressuresByTwoTemperatures) {
    // Catches a transposed matrix, pressures not repeated per column, or a density row with
    // the wrong first field.
    FillGas(3, 2);
    const auto lines = Lines(UIFileText(store));
    ASSERT_EQ(lines[3], "\"Primary Device Name\",\"Orifice Flange Taps [ISO5167-2 2003]\"");
    ASSERT_EQ(lines[52], "\"Range T Unit\",2");
    ExpectDataLines(lines, "ui_gas_3x2.txt", 58, false);
    // After the 32 viscosity rows: the reference group, then the standards.
    const std::size_t ref = IndexOf(lines, "\"Isentropic Exponent Value\",1.19");
    ASSERT_NE(ref, std::string::npos);
    EXPECT_EQ(lines[ref - 3], "\"\"");
    EXPECT_EQ(lines[ref + 1], "\"\"");
    EXPECT_EQ(lines.back(), "\"Reserve 30\",30.5");
    EXPECT_EQ(lines.size(), ref + 1 + 1 + 41);
}

TEST_F(ParamFileTest, GridSizesOutOfRangeWriteNoTableRows) {
    // Catches a writer that loops over a sentinel or oversized grid count.
    FillGas(3, 2);
    store.Mgt_GasDensPressDiv = 17;
    const auto lines = Lines(UIFileText(store));
    EXPECT_EQ(lines[59], "\"Temperature\"");
    EXPECT_EQ(lines[60], "\"\"");
    EXPECT_EQ(lines[61], "\"Pressure\"");
}

TEST_F(ParamFileTest, GasAndSteamFilesReadBackIntoTheStore) {
    // Catches a reader that misplaces cells of the matrix blocks, keeps quotes on UI strings,
    // or reads the viscosity pressure column back.
    struct Case {
        const char* name;
        bool steam;
    };
    for (const Case c : {Case{"gas", false}, Case{"saturated steam", true}}) {
        clsExGlobalVars defaults;
        InitializeDefaults(defaults);
        FillGas(4, 3);
        if (c.steam) {
            store.UI_FluidName = "Saturated steam";
            store.Mgt_GasDensDiv = 12;
            for (int i = 0; i < 12; ++i) {
                store.UI_DensTemp[i] = 400 + i;
                store.UI_DensAbsPress[i] = 2e5 + i;
                store.UI_Dens[i] = 1.5 + i;
            }
        }
        const std::string text = UIFileText(store);

        clsExGlobalVars back;
        InitializeDefaults(back);
        back.Mgt_GasDensPressDiv = 4;
        back.Mgt_GasDensTempDiv = 3;
        ASSERT_EQ(ImportUIText(back, text), 0) << c.name;
        EXPECT_EQ(back.UI_PEName, store.UI_PEName) << c.name;
        EXPECT_EQ(back.UI_FluidName, store.UI_FluidName) << c.name;
        EXPECT_EQ(back.UI_PEDiameter, 50.125) << c.name;
        EXPECT_EQ(back.UI_RangeTUnit, 2) << c.name;
        EXPECT_EQ(back.UI_ViscUnit, 1) << c.name;
        EXPECT_EQ(back.UI_IsenExpValue, 1.19) << c.name;
        EXPECT_EQ(back.UI_Reserve30, 30.5) << c.name;
        for (int k = 0; k < 12; ++k) {
            EXPECT_EQ(back.UI_DensTemp[k], store.UI_DensTemp[k]) << c.name << " " << k;
            EXPECT_EQ(back.UI_DensAbsPress[k], store.UI_DensAbsPress[k]) << c.name << " " << k;
            EXPECT_EQ(back.UI_Dens[k], store.UI_Dens[k]) << c.name << " " << k;
        }
        for (int i = 0; i < 32; ++i) {
            EXPECT_EQ(back.UI_ViscTemp[i], store.UI_ViscTemp[i]);
            EXPECT_EQ(back.UI_Visc[i], store.UI_Visc[i]);
        }
        EXPECT_EQ(back.UI_VisPress[5], defaults.UI_VisPress[5]) << "pressure column not read";
    }
}

TEST_F(ParamFileTest, LiquidFilePassesThroughThePressureState) {
    // Catches a reader "fixed" to skip the pressure state for liquids: the rows after the
    // temperature row land shifted, and the viscosity section then runs into a short row.
    store.UI_FluidType = 1;
    store.UI_FluidName = "WATER";
    store.Mgt_LqdDensTempDiv = 4;
    store.Mgt_GasDensPressDiv = 4;
    for (int i = 0; i < 4; ++i) {
        store.UI_DensTemp[i] = 280 + i;
        store.UI_Dens[i] = 990 + i;
    }
    for (int i = 0; i < 32; ++i) {
        store.UI_VisPress[i] = 7000 + i;
        store.UI_ViscTemp[i] = 280.5 + i;
        store.UI_Visc[i] = 0.001 + i;
    }
    store.UI_ViscUnit = 0;
    const std::string text = UIFileText(store);

    clsExGlobalVars back;
    InitializeDefaults(back);
    back.UI_FluidName = "before";
    EXPECT_EQ(ImportUIText(back, text), 1);
    EXPECT_EQ(back.UI.at(60), Value("280"));
    EXPECT_EQ(back.UI.at(63), Value("283"));
    // The pressure state took the column row, the density row, the blank line and the unit.
    EXPECT_EQ(back.UI.at(318), Value("280"));
    EXPECT_EQ(back.UI.at(322), Value("990"));
    EXPECT_EQ(back.UI.at(326), Value("0"));
    // The density state took the second viscosity row.
    EXPECT_EQ(back.UI.at(577), Value("281.5"));
    EXPECT_EQ(back.UI.at(578), Value("1.001"));
    EXPECT_EQ(back.UI.at(834), Value("283.5,3.001"));
    // The read failed, so nothing was distributed.
    EXPECT_EQ(back.UI_FluidName, "before");
}

// The text with its CR LF line ends replaced.
std::string WithLineEnds(std::string text, const std::string& end) {
    std::string out;
    for (std::size_t at; (at = text.find("\r\n")) != std::string::npos;) {
        out += text.substr(0, at) + end;
        text.erase(0, at + 2);
    }
    return out + text;
}

TEST_F(ParamFileTest, FilesOnDiskReadBackWithAnyLineEnd) {
    // Catches code page text read as UTF-8 or converted twice, a comma in a name that moves
    // the cells after it, numbers that lose digits on the way, and files with LF or CR line
    // ends (or none after the last line) read differently.
    FillGas(2, 2);
    store.UI_PEName = "Blende “Ø 50, DIN” – 3 €";
    store.UI_FluidName = "Ethan, rein";
    const double values[] = {0.1, 1.0 / 3.0, -2.5e-7, 5e-324, 1.7976931348623157e308};
    for (int i = 0; i < 4; ++i) store.UI_Dens[i] = values[i + 1];
    store.UI_PEDiameter = values[0];
    for (int i = 0; i < 5; ++i) store.Xmtr_DensCoeff[i] = values[i];
    store.Xmtr_Reserve21 = "Ø, €";
    const std::string ui = Utf8ToAnsi(UIFileText(store));
    const std::string xmtr = Utf8ToAnsi(XmtrFileText(store));
    ASSERT_NE(ui.find("\"Blende \x93\xD8 50, DIN\x94 \x96 3 \x80\""), std::string::npos);

    for (const std::string end : {"\r\n", "\n", "\r"}) {
        for (const bool lastEnd : {true, false}) {
            const auto form = [&](const std::string& text) {
                const std::string t = WithLineEnds(text, end);
                return lastEnd ? t : t.substr(0, t.size() - end.size());
            };
            const std::string shown = testing::PrintToString(end) + (lastEnd ? "" : " cut");
            clsExGlobalVars back;
            InitializeDefaults(back);
            back.Mgt_GasDensPressDiv = 2;
            back.Mgt_GasDensTempDiv = 2;
            ASSERT_EQ(ImportUIText(back, form(ui)), 0) << shown;
            EXPECT_EQ(back.UI_PEName, store.UI_PEName) << shown;
            EXPECT_EQ(back.UI_FluidName, store.UI_FluidName) << shown;
            EXPECT_EQ(back.UI_PEDiameter, store.UI_PEDiameter) << shown;
            for (int i = 0; i < 4; ++i) EXPECT_EQ(back.UI_Dens[i], store.UI_Dens[i]) << shown;
            EXPECT_EQ(back.UI_Reserve30, 30.5) << shown;

            ASSERT_EQ(ImportXmtrText(back, form(xmtr)), 0) << shown;
            for (int i = 0; i < 5; ++i)
                EXPECT_EQ(back.Xmtr_DensCoeff[i], store.Xmtr_DensCoeff[i]) << shown;
            EXPECT_EQ(back.Xmtr_Reserve21, "\"Ø, €\"") << shown;
        }
    }
}

TEST_F(ParamFileTest, UIRowsAreFoundByPositionOnly) {
    // Catches a reader that looks at labels, or stops quietly at rows past "Reserve 30".
    FillGas(3, 2);
    auto lines = Lines(UIFileText(store));
    lines[47] = "\"Rnage P1 (typo)\",12.5";
    clsExGlobalVars back;
    InitializeDefaults(back);
    back.Mgt_GasDensPressDiv = 3;
    back.Mgt_GasDensTempDiv = 2;
    ASSERT_EQ(ImportUIText(back, Join(lines)), 0);
    EXPECT_EQ(back.UI_RangeP1, 12.5);

    // A removed row shifts the rest: here the reserves, without a conversion failure.
    auto removed = lines;
    const std::size_t r26 = IndexOf(removed, "\"Reserve 26\",26.5");
    ASSERT_NE(r26, std::string::npos);
    removed.erase(removed.begin() + static_cast<std::ptrdiff_t>(r26));
    clsExGlobalVars shifted;
    InitializeDefaults(shifted);
    shifted.Mgt_GasDensPressDiv = 3;
    shifted.Mgt_GasDensTempDiv = 2;
    ASSERT_EQ(ImportUIText(shifted, Join(removed)), 0);
    EXPECT_EQ(shifted.UI_Reserve26, 27.5);
    EXPECT_EQ(shifted.UI_Reserve29, 30.5);
    EXPECT_EQ(shifted.UI_Reserve30, 0.0) << "cell 946 was never read";

    // Rows after the last one run the cell index out of its range: nothing is distributed.
    auto extra = lines;
    extra.push_back("\"Reserve 31\",1");
    clsExGlobalVars over;
    InitializeDefaults(over);
    over.Mgt_GasDensPressDiv = 3;
    over.Mgt_GasDensTempDiv = 2;
    EXPECT_EQ(ImportUIText(over, Join(extra)), 1);
    EXPECT_EQ(over.UI_RangeP1, -999999.0);
    EXPECT_EQ(over.UI.at(47), Value("12.5")) << "cells read so far stay";
}

TEST_F(ParamFileTest, XmtrFileRowsAndTheirQuirks) {
    // Catches a row 55 that exports anything but the reference pressure, or imports into it;
    // and string rows whose quotes are dropped.
    for (int i = 0; i < 18; ++i) store.Xmtr_DensCoeff[i] = 0.125 * i;
    store.Xmtr_DisCoeff[5] = 0.61;
    store.Xmtr_SimpleRefStaticPress = 101.325;
    store.Xmtr_NeverUse = 0;
    store.Xmtr_PDCode = 6;
    store.Xmtr_Reserve21 = "abc";
    const auto lines = Lines(XmtrFileText(store));
    ASSERT_EQ(lines.size(), 89u);
    EXPECT_EQ(lines[5], "\"Xmtr Discharge Coeff5 \",0.61");
    EXPECT_EQ(lines[18 + 17], "\"Xmtr Density Coefficient 17 \",2.125");
    EXPECT_EQ(lines[36], "\"Xmtr Primary Device Code\",6");
    EXPECT_EQ(lines[55], "\"Reference static pressure\",101.325");
    EXPECT_EQ(lines[69], "\"Reference static pressure\",101.325");
    EXPECT_EQ(lines[79], "\"Reserve 21\",\"abc\"");

    // Row 55 edited: it goes to Xmtr_NeverUse as an integer and is lost at the next export.
    auto edited = lines;
    edited[55] = "\"Reference static pressure\",555.5";
    edited[36] = "\"Primary Device Kode\",7";
    clsExGlobalVars back;
    InitializeDefaults(back);
    ASSERT_EQ(ImportXmtrText(back, Join(edited)), 0);
    EXPECT_EQ(back.Xmtr_NeverUse, 556.0);
    EXPECT_EQ(back.Xmtr_SimpleRefStaticPress, 101.325);
    EXPECT_EQ(back.Xmtr_PDCode, 7);
    EXPECT_EQ(back.Xmtr_DensCoeff[17], 2.125);
    EXPECT_EQ(back.Xmtr_Reserve21, "\"abc\"");
    const auto again = Lines(XmtrFileText(back));
    EXPECT_EQ(again[55], "\"Reference static pressure\",101.325");
}

TEST_F(ParamFileTest, XmtrImportFailures) {
    // Catches members overwritten by a file that fails while being read, and a failed
    // conversion that doesn't stop the import.
    const auto lines = Lines(XmtrFileText(store));
    store.Xmtr_PDCode = 6;
    store.Xmtr_DisCoeff[0] = 0.5;
    auto tooLong = lines;
    for (int i = 0; i < 70; ++i) tooLong.push_back("\"more\",1");
    tooLong[0] = "\"Xmtr Discharge Coeff0 \",0.75";
    EXPECT_EQ(ImportXmtrText(store, Join(tooLong)), 1);
    EXPECT_EQ(store.Xmtr_DisCoeff[0], 0.5);
    EXPECT_EQ(store.Xmtr.at(0), "0.75") << "cells read so far stay";

    auto bad = lines;
    bad[0] = "\"Xmtr Discharge Coeff0 \",0.75";
    bad[40] = "\"Primary Device Thermal Expansion Factor\",abc";
    EXPECT_EQ(ImportXmtrText(store, Join(bad)), 1);
    EXPECT_EQ(store.Xmtr_DisCoeff[0], 0.75) << "rows before the bad one are set";
    EXPECT_EQ(store.Xmtr_PDCode, -999999) << "row 36 came before the failure";
    store.Xmtr_PDCode = 6;
    EXPECT_EQ(ImportXmtrFile(store, Path("missing.csv")), 1);
    EXPECT_EQ(store.Xmtr_PDCode, 6);
}

TEST_F(ParamFileTest, MgtFileSetsTheManagementMembers) {
    // Catches rows read from the wrong position, dropped rows that are taken, or quotes lost.
    const std::vector<std::string> rows = DataLines("mgt_rows.csv");
    ASSERT_EQ(rows.size(), 45u);
    ASSERT_EQ(ImportMgtText(store, Join(rows)), 0);
    testdata::ExpectMembers(store, "tests/files/data/mgt_rows.json");

    auto tooLong = rows;
    tooLong[5] = "debug,0";
    tooLong.resize(82, "x,1");
    EXPECT_EQ(ImportMgtText(store, Join(tooLong)), 1);
    EXPECT_EQ(store.Mgt_DebugModeFlag, 1);
}

TEST_F(ParamFileTest, CalcFileSections) {
    // Catches a missing section, a wrong header text or an index column that isn't 0-based.
    store.calc_LowValDpP1Ratio = 0.01;
    store.calc_Beta = 0.5;
    store.calc_DensityYcal[255] = 7.25;
    store.calc_ViscositySigma = 1e-9;
    const std::string path = Path("calc.csv");
    ExportCalcFile(store, path);
    const auto lines = Lines(ReadText(path));
    ASSERT_EQ(lines.size(), 2u + 32 + 1 + 2 * (2 + 32) + 2 * (2 + 256) + 4);
    EXPECT_EQ(lines[0], "\"Lower value of DP P1 Ratio\",0.01");
    EXPECT_EQ(lines[2], "\"DP P1 ratio value\",0");
    EXPECT_EQ(lines[34], "\"Beta\",0.5");
    EXPECT_EQ(lines[35], "\"\"");
    EXPECT_EQ(lines[36], "\"Gas Expansion Factor\"");
    EXPECT_EQ(lines[37], "0,0");
    const std::size_t dens = IndexOf(lines, "\"Density  Ycal\"");
    ASSERT_NE(dens, std::string::npos);
    EXPECT_EQ(lines[dens + 256], "255,7.25");
    EXPECT_EQ(lines[lines.size() - 3], "\"Gas Expansion Factor Sigma\",-999999");
    EXPECT_EQ(lines.back(), "\"Viscosity Sigma\",1e-09");
}

}  // namespace
}  // namespace qdf::test
