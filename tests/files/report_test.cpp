// The configuration report, compared line by line with the text a user gets.

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "../common/DataTable.h"
#include "../common/StoreMembers.h"
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

class Report : public qdf::test::FileTest {
  protected:
    // General values, an orifice (coefficient and expansion factor left unentered), a range;
    // the auto compensation entries must stay out of a basic report.
    void FillBasic(std::int32_t mode) {
        qdf::testdata::ApplyMembers(store, "tests/files/data/report_common.json");
        qdf::testdata::ApplyMembers(store, "tests/files/data/report_basic.json");
        store.Xmtr_SimpleFlowCalcMode = mode;
        store.press_units.ReDim(1);
        store.press_units_index.ReDim(1);
        store.press_units[0] = "bar";
        store.press_units_index[0] = 7;
        store.press_units[1] = "kPa";
        store.press_units_index[1] = 12;
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

class ReportCase : public Report, public ::testing::WithParamInterface<qdf::testdata::Row> {};

// Detects: any line of a report that differs from its expected text; the faults each case
// catches are named beside it in data/report_cases.csv.
TEST_P(ReportCase, LineByLine) {
    const qdf::testdata::Row& r = GetParam();
    std::istringstream files(r.text("members"));
    for (std::string file; files >> file;)
        qdf::testdata::ApplyMembers(store, "tests/files/data/" + file);
    qdf::test::ExpectDataLines(r.text("part") == "fluid" ? WriteFromFluid() : Write(),
                               r.text("expected"));
}
INSTANTIATE_TEST_SUITE_P(
    Table, ReportCase,
    ::testing::ValuesIn(qdf::testdata::Load("tests/files/data/report_cases.csv")),
    qdf::testdata::RowName);

// Detects: a composition row missing or out of store order, the gross methods' reference
// conditions, heating value, nitrogen, hydrogen and carbon monoxide rows given to the wrong
// method, a block written for a name that only differs in case from a method.
TEST_F(Report, NaturalGasBlocksByMethod) {
    qdf::testdata::ApplyMembers(store, "tests/files/data/report_common.json");
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
    for (const auto& [method, file] :
         {std::pair{"AGA8 Gross Characterization Method 1", "report_ng_gross1.txt"},
          std::pair{"AGA8 Gross Characterization Method 2", "report_ng_gross2.txt"},
          std::pair{"ISO12213 physical properties", "report_ng_iso_physical.txt"}})
        qdf::test::ExpectDataLines(block(method), file);
    EXPECT_TRUE(block("aga8 detail characterization method").empty());
}

// Detects: the auto compensation sections written in basic mode, the device pressure unit text
// not taken from the device's unit list, a mode other than 0 or 1 treated as auto or given a
// mode text.
TEST_F(Report, BasicModeReportLineByLine) {
    for (std::int32_t mode : {1, 2}) {
        FillBasic(mode);
        qdf::test::ExpectDataLines(
            Write(), mode == 1 ? "report_basic.txt" : "report_basic_unknown_mode.txt");
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
    qdf::test::ExpectDataLines(Split(ReadText(answer), "\r\n"), "report_basic.txt");

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
