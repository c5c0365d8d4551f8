// Import of device parameter files into the frame's offline data.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ModImportPMF.h"
#include "clsExGlobalVars.h"
#include "report_pmf_fakes.h"

namespace {

using qdf::clsExGlobalVars;
using qdf::Value;
using qdf::test::RecordingManager;
using qdf::test::ScratchDir;
using qdf::test::WriteBytes;

// Detects: a wrong type for a type name, integers rounded the wrong way at .5, a value text
// with commas cut at its first comma, out-of-range values passed on instead of dropped,
// untrimmed parts, an unknown or missing type name losing the text.
TEST(PmfImport, ValueTextsConvertByTheirTypeName) {
    using qdf::ParsePmfValue;
    EXPECT_EQ(ParsePmfValue(" 12 , vbInteger"), Value(std::int16_t{12}));
    EXPECT_EQ(ParsePmfValue("2.5,vbInteger"), Value(std::int16_t{2}));
    EXPECT_EQ(ParsePmfValue("3.5,vbInteger"), Value(std::int16_t{4}));
    EXPECT_EQ(ParsePmfValue("-32768,vbInteger"), Value(std::int16_t{-32768}));
    EXPECT_EQ(ParsePmfValue("32768,vbInteger"), std::nullopt);
    EXPECT_EQ(ParsePmfValue("70000,vbLong"), Value(std::int32_t{70000}));
    EXPECT_EQ(ParsePmfValue("255,vbByte"), Value(std::int16_t{255}));
    EXPECT_EQ(ParsePmfValue("256,vbByte"), std::nullopt);
    EXPECT_EQ(ParsePmfValue("-1,vbByte"), std::nullopt);
    EXPECT_EQ(ParsePmfValue("250.5,vbSingle"), Value(250.5f));
    EXPECT_EQ(ParsePmfValue("1e39,vbSingle"), std::nullopt);
    EXPECT_EQ(ParsePmfValue("1e3,vbDouble"), Value(1000.0));
    EXPECT_EQ(ParsePmfValue("101.3,vbDecimal"), Value(101.3));
    EXPECT_EQ(ParsePmfValue("1.23456,vbCurrency"), Value(1.2346));
    EXPECT_EQ(ParsePmfValue("True,vbBoolean"), Value(true));
    EXPECT_EQ(ParsePmfValue("false,vbBoolean"), Value(false));
    EXPECT_EQ(ParsePmfValue("0,vbBoolean"), Value(false));
    EXPECT_EQ(ParsePmfValue("yes,vbBoolean"), std::nullopt);
    EXPECT_EQ(ParsePmfValue("abc,vbDouble"), std::nullopt);
    EXPECT_EQ(ParsePmfValue(",vbInteger"), std::nullopt);
    EXPECT_EQ(ParsePmfValue("2024-03-05,vbDate"), Value("2024-03-05"));
    EXPECT_EQ(ParsePmfValue("LINE 4, NORTH ,vbString"), Value("LINE 4, NORTH"));
    EXPECT_EQ(ParsePmfValue("  no type  "), Value("no type"));
    EXPECT_EQ(ParsePmfValue("LINE 4, NORTH"), Value("LINE 4, NORTH"));
    EXPECT_EQ(ParsePmfValue(""), Value(""));
}

// Detects: a name of the table that a file key cannot reach (a typo in a short key), a wrong
// cut length, keys shorter than five characters matching something.
TEST(PmfImport, EveryParameterIsReachedWithEitherPrefixLength) {
    const char* names[] = {"pressure_units",
                           "pressure_lower_range_value",
                           "pressure_upper_range_value",
                           "pressure_damping_value",
                           "low_cut_point",
                           "low_cut_mode",
                           "hl_swap",
                           "ao_lower_limit",
                           "ao_upper_limit",
                           "static_pressure_units",
                           "ag_select_mode",
                           "atm_pres_value",
                           "sp_lrv",
                           "sp_urv",
                           "sp_damp",
                           "sp_hl_select",
                           "et_units",
                           "et_lrv",
                           "et_urv",
                           "et_damp",
                           "flow_units",
                           "flow_lrv",
                           "flow_urv",
                           "flow_damp",
                           "total_flow_units",
                           "engr_exp",
                           "engr_disp_lrv",
                           "engr_disp_urv",
                           "engr_disp_point",
                           "engr_disp_unit",
                           "disp_out_1",
                           "disp_out_2",
                           "disp_out_3",
                           "disp_out_4",
                           "disp_percent_reso",
                           "pres_disp_point",
                           "sp_disp_point",
                           "et_disp_point",
                           "flow_disp_point",
                           "total_flow_disp_point",
                           "bar_indicator",
                           "tag",
                           "date",
                           "descriptor",
                           "message",
                           "final_assembly_number"};
    ASSERT_EQ(std::size(names), 46u);
    for (const char* name : names) {
        for (const std::string prefix : {"P01", "P001"}) {
            const auto target = qdf::LookUpPmfKey(prefix + name);
            ASSERT_TRUE(target) << prefix + name;
            EXPECT_EQ(target->parameter, name);
        }
    }
    EXPECT_EQ(qdf::LookUpPmfKey("P01atm_pres_value")->group, "qdf_menu_sp_setup");
    EXPECT_EQ(qdf::LookUpPmfKey("P01sp_lrv")->group, "qdf_menu_dummy");
    EXPECT_EQ(qdf::LookUpPmfKey("P01flow_units")->group, "upload_variables");
    EXPECT_FALSE(qdf::LookUpPmfKey("P01unknown_param"));
    EXPECT_FALSE(qdf::LookUpPmfKey("P01tag_name"));
    EXPECT_FALSE(qdf::LookUpPmfKey("Ptag"));
    EXPECT_FALSE(qdf::LookUpPmfKey("P01t"));
}

const char* kPmfText =
    "; written by a device tool\r\n"
    "Model=QDF300\r\n"
    "[Device]\r\n"
    "P000pressure_units=99,vbInteger\r\n"
    "[Parameters]\r\n"
    "001pressure_units=12,vbInteger\r\n"
    "0012pressure_upper_range_value= 250.5 , vbSingle\r\n"
    "002low_cut_point=2.5,vbInteger\r\n"
    "abc=1,vbInteger\r\n"
    "003tag=FT-101,vbString\r\n"
    "004date=2024-03-05,vbDate\r\n"
    "005descriptor=LINE 4, NORTH,vbString\r\n"
    "006message=no type here\r\n"
    "007final_assembly_number=123456,vbLong\r\n"
    "008hl_swap=True,vbBoolean\r\n"
    "009bar_indicator=256,vbByte\r\n"
    "010sp_lrv=abc,vbDouble\r\n"
    "011unknown_param=5,vbInteger\r\n"
    "012atm_pres_value=101.3,vbDecimal\r\n"
    "013flow_units=57,vbInteger\r\n"
    "014et_units=32,vbInteger\r\n";

struct Expected {
    std::string menu;
    std::string parameter;
    Value value;
};

void ExpectWrites(const RecordingManager& frame, const std::vector<Expected>& want) {
    ASSERT_EQ(frame.writes.size(), want.size());
    for (size_t i = 0; i < want.size(); ++i) {
        EXPECT_EQ(frame.writes[i].menu, want[i].menu) << i;
        EXPECT_EQ(frame.writes[i].parameter, want[i].parameter) << i;
        EXPECT_EQ(frame.writes[i].value, want[i].value) << i;
    }
}

// Detects: entries of other sections imported, file order lost, the identification parameters
// left out, a refused or unknown parameter stopping the import, unknown keys or bad values
// written, the store touched.
TEST(PmfImport, WritesKnownEntriesOfParametersInFileOrder) {
    ScratchDir dir("pmf");
    const std::string path = dir.File("device.PMF");
    WriteBytes(path, kPmfText);
    RecordingManager frame;
    frame.unknown = {"flow_units"};  // a device revision without it
    frame.refused = {"hl_swap"};     // the frame refuses this one
    clsExGlobalVars s;
    s.SDKManager = &frame;
    s.Xmtr_Tag = "OLD";

    EXPECT_EQ(qdf::ImportPMFFile(s, path), 0);
    ExpectWrites(frame,
                 {
                     {"qdf_menu_dummy", "pressure_units", Value(std::int16_t{12})},
                     {"qdf_menu_dummy", "pressure_upper_range_value", Value(250.5f)},
                     {"upload_variables", "low_cut_point", Value(std::int16_t{2})},
                     {"upload_variables", "tag", Value("FT-101")},
                     {"upload_variables", "date", Value("2024-03-05")},
                     {"upload_variables", "descriptor", Value("LINE 4, NORTH")},
                     {"upload_variables", "message", Value("no type here")},
                     {"upload_variables", "final_assembly_number", Value(std::int32_t{123456})},
                     {"qdf_menu_sp_setup", "atm_pres_value", Value(101.3)},
                     {"upload_variables", "et_units", Value(std::int16_t{32})},
                 });
    EXPECT_EQ(s.Xmtr_Tag, "OLD");
    EXPECT_TRUE(frame.messages.shown.empty());
}

// Detects: a file without "Parameters" passing as success, an empty file reported as an
// error, a missing file or a missing frame not failing.
TEST(PmfImport, FileLevelFailures) {
    ScratchDir dir("pmf");
    RecordingManager frame;
    clsExGlobalVars s;
    s.SDKManager = &frame;

    const std::string other = dir.File("other.PMF");
    WriteBytes(other, "[Device]\r\n001tag=X,vbString\r\n");
    EXPECT_EQ(qdf::ImportPMFFile(s, other), 1);

    const std::string empty = dir.File("empty.PMF");
    WriteBytes(empty, "; nothing\r\nloose=1\r\n");
    EXPECT_EQ(qdf::ImportPMFFile(s, empty), 0);

    const std::string lower = dir.File("lower.PMF");
    WriteBytes(lower, "[parameters]\n001tag=X,vbString\n");
    EXPECT_EQ(qdf::ImportPMFFile(s, lower), 0);

    EXPECT_EQ(qdf::ImportPMFFile(s, dir.File("missing.PMF")), 1);
    ExpectWrites(frame, {{"upload_variables", "tag", Value("X")}});

    s.SDKManager = nullptr;
    EXPECT_EQ(qdf::ImportPMFFile(s, lower), 1);
}

// Detects: the dialog without the PMF filter, the chosen path not kept (or kept after a
// missing file), a missing file asked about instead of refused, an import without a yes, a
// failed import without its message.
TEST(PmfImport, MenuCommandScriptedDialogAndMessages) {
    ScratchDir dir("pmf");
    RecordingManager frame;
    clsExGlobalVars s;
    s.SDKManager = &frame;
    s.Gbl_SaveBinaryFilePath = "old.qmv";
    std::vector<std::string> filters;
    std::string answer;
    const qdf::ChooseFile dialog = [&](const std::string& filter, const std::string&) {
        filters.push_back(filter);
        return answer;
    };
    auto& shown = frame.messages.shown;

    // Cancelled: the empty choice is kept and nothing else happens.
    EXPECT_FALSE(qdf::ImportPMFCommand(s, frame.messages, dialog));
    EXPECT_EQ(filters, std::vector<std::string>{"PMF File (*.PMF) | *.PMF"});
    EXPECT_EQ(s.Gbl_SaveBinaryFilePath, "");
    EXPECT_TRUE(shown.empty());

    answer = dir.File("missing.PMF");
    EXPECT_FALSE(qdf::ImportPMFCommand(s, frame.messages, dialog));
    ASSERT_EQ(shown.size(), 1u);
    EXPECT_EQ(shown[0].title, "QDF300 Error");
    EXPECT_EQ(shown[0].text, "Error occurs while opening a file");
    EXPECT_EQ(std::vector<int>({shown[0].kind, shown[0].buttons, shown[0].defaultButton}),
              std::vector<int>({1, 2, 4}));
    EXPECT_EQ(s.Gbl_SaveBinaryFilePath, "");

    answer = dir.File("device.PMF");
    WriteBytes(answer, "[Parameters]\r\n001tag=FT-7,vbString\r\n");
    shown.clear();
    frame.messages.answers = {qdf::sdk::kMessageAnswerNo};
    EXPECT_FALSE(qdf::ImportPMFCommand(s, frame.messages, dialog));
    ASSERT_EQ(shown.size(), 1u);
    EXPECT_EQ(shown[0].title, "QDF300 Warning");
    EXPECT_EQ(shown[0].text,
              "Device configuration in offline data will be overwritten! Are you sure you want "
              "to proceed?");
    EXPECT_EQ(std::vector<int>({shown[0].kind, shown[0].buttons, shown[0].defaultButton}),
              std::vector<int>({3, 5, 7}));
    EXPECT_TRUE(frame.writes.empty());

    frame.messages.answers = {qdf::sdk::kMessageAnswerYes};
    EXPECT_TRUE(qdf::ImportPMFCommand(s, frame.messages, dialog));
    EXPECT_EQ(s.Gbl_SaveBinaryFilePath, answer);
    ExpectWrites(frame, {{"upload_variables", "tag", Value("FT-7")}});
    EXPECT_EQ(shown.size(), 2u);

    WriteBytes(answer, "[Device]\r\n001tag=FT-8,vbString\r\n");
    shown.clear();
    frame.messages.answers = {qdf::sdk::kMessageAnswerYes};
    EXPECT_FALSE(qdf::ImportPMFCommand(s, frame.messages, dialog));
    ASSERT_EQ(shown.size(), 2u);
    EXPECT_EQ(shown[1].text, "Error occurs while opening a file");
    EXPECT_EQ(shown[1].title, "QDF300 Error");
}

}  // namespace
