// Import of device parameter files into the frame's offline data.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <map>
#include <set>

#include "FileTestSupport.h"
#include "ModImportPMF.h"

namespace {

using qdf::Value;

struct Written {
    std::string menu, parameter;
    Value value;
    friend bool operator==(const Written&, const Written&) = default;
};

// A frame that knows every name but those listed, records each value written, and refuses the
// writes of the parameters listed.
class WritingFrame : public qdf::test::FakeFrame, public ISDKParameterWriter {
  public:
    std::set<std::string> unknown, refused;
    std::vector<Written> writes;

    ISDKVariable* FindVariable(std::int32_t kind, const std::string& name) override {
        if (kind != 1 || name.empty() || unknown.count(name)) return nullptr;
        auto& v = vars_[name];
        if (!v) v = std::make_unique<Named>(name);
        return v.get();
    }
    std::shared_ptr<ISDKParameterWriter> GetParameterWriter() override {
        return std::shared_ptr<ISDKParameterWriter>(std::shared_ptr<void>(), this);
    }
    void OpenMenu(ISDKVariable*, ISDKAsyncStatus*) override {}
    void BeginWrite(ISDKVariable*, ISDKVariable*, ISDKAsyncStatus*) override {}
    void WriteValue(ISDKVariable* m, ISDKVariable* p, const Value& v, ISDKAsyncStatus*) override {
        if (refused.count(p->Name())) throw SDKError("refused");
        writes.push_back({m->Name(), p->Name(), v});
    }
    void EndWrite(ISDKVariable*, ISDKVariable*, ISDKAsyncStatus*) override {}
    void CloseMenu(ISDKVariable*, ISDKAsyncStatus*) override {}

  private:
    struct Named : ISDKVariable {
        explicit Named(std::string n) : name(std::move(n)) {}
        std::string Name() const override { return name; }
        std::string name;
    };
    std::map<std::string, std::unique_ptr<Named>> vars_;
};

class PmfImport : public qdf::test::FileTest {
  protected:
    void SetUp() override {
        FileTest::SetUp();
        store.SDKManager = &device;
    }
    WritingFrame device;
};

// Detects: a wrong type for a type name, integers rounded the wrong way at .5, a value text
// with commas cut at its first comma, out-of-range values passed on instead of dropped,
// untrimmed parts, an unknown or missing type name losing the text.
TEST_F(PmfImport, ValueTextsConvertByTheirTypeName) {
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
TEST_F(PmfImport, EveryParameterIsReachedWithEitherPrefixLength) {
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

// Detects: entries of other sections imported, file order lost, the identification parameters
// left out, a refused or unknown parameter stopping the import, unknown keys or bad values
// written, the store touched.
TEST_F(PmfImport, WritesKnownEntriesOfParametersInFileOrder) {
    const std::string path = Path("device.PMF");
    WriteText(path, kPmfText);
    device.unknown = {"flow_units"};  // a device revision without it
    device.refused = {"hl_swap"};     // the frame refuses this one
    store.Xmtr_Tag = "OLD";

    EXPECT_EQ(qdf::ImportPMFFile(store, path), 0);
    EXPECT_EQ(device.writes,
              (std::vector<Written>{
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
              }));
    EXPECT_EQ(store.Xmtr_Tag, "OLD");
    EXPECT_TRUE(device.shown.empty());
}

// Detects: a file without "Parameters" passing as success, an empty file reported as an
// error, a section name compared with its case, a missing file or a missing frame not failing.
TEST_F(PmfImport, FileLevelFailures) {
    WriteText(Path("other.PMF"), "[Device]\r\n001tag=X,vbString\r\n");
    EXPECT_EQ(qdf::ImportPMFFile(store, Path("other.PMF")), 1);
    WriteText(Path("empty.PMF"), "; nothing\r\nloose=1\r\n");
    EXPECT_EQ(qdf::ImportPMFFile(store, Path("empty.PMF")), 0);
    WriteText(Path("lower.PMF"), "[parameters]\n001tag=X,vbString\n");
    EXPECT_EQ(qdf::ImportPMFFile(store, Path("lower.PMF")), 0);
    EXPECT_EQ(qdf::ImportPMFFile(store, Path("missing.PMF")), 1);
    EXPECT_EQ(device.writes, (std::vector<Written>{{"upload_variables", "tag", Value("X")}}));
    store.SDKManager = nullptr;
    EXPECT_EQ(qdf::ImportPMFFile(store, Path("lower.PMF")), 1);
}

// Detects: the command running on a Fieldbus device, the dialog without the PMF filter, the chosen
// path not kept (or kept after a missing file), a missing file asked about instead of refused, an
// import without a yes, a failed import without its message.
TEST_F(PmfImport, MenuCommandScriptedDialogAndMessages) {
    using qdf::test::Shown;
    store.Gbl_SaveBinaryFilePath = "old.qmv";
    std::vector<std::string> filters;
    std::string answer;
    const qdf::ChooseFile dialog = [&](const std::string& filter, const std::string&) {
        filters.push_back(filter);
        return answer;
    };
    const Shown openError{"QDF300 Error", "Error occurs while opening a file", 1, 2, 4};
    const Shown ask{"QDF300 Warning",
                    "Device configuration in offline data will be overwritten! Are you sure you "
                    "want to proceed?",
                    3, 5, 7};

    store.BusID = "FFH1";  // no PMF files on Fieldbus: not even the dialog
    EXPECT_FALSE(qdf::ImportPMFCommand(store, device, dialog));
    EXPECT_TRUE(filters.empty());
    store.BusID = "HART";

    // Cancelled: the empty choice is kept and nothing else happens.
    EXPECT_FALSE(qdf::ImportPMFCommand(store, device, dialog));
    EXPECT_EQ(filters, std::vector<std::string>{"PMF File (*.PMF) | *.PMF"});
    EXPECT_EQ(store.Gbl_SaveBinaryFilePath, "");
    EXPECT_TRUE(device.shown.empty());

    answer = Path("missing.PMF");
    EXPECT_FALSE(qdf::ImportPMFCommand(store, device, dialog));
    EXPECT_EQ(device.shown, std::vector<Shown>{openError});
    EXPECT_EQ(store.Gbl_SaveBinaryFilePath, "");

    answer = Path("device.PMF");
    WriteText(answer, "[Parameters]\r\n001tag=FT-7,vbString\r\n");
    device.shown.clear();
    device.answers = {7};
    EXPECT_FALSE(qdf::ImportPMFCommand(store, device, dialog));
    EXPECT_EQ(device.shown, std::vector<Shown>{ask});
    EXPECT_TRUE(device.writes.empty());

    device.answers = {6};
    EXPECT_TRUE(qdf::ImportPMFCommand(store, device, dialog));
    EXPECT_EQ(store.Gbl_SaveBinaryFilePath, answer);
    EXPECT_EQ(device.writes, (std::vector<Written>{{"upload_variables", "tag", Value("FT-7")}}));

    WriteText(answer, "[Device]\r\n001tag=FT-8,vbString\r\n");
    device.shown.clear();
    device.answers = {6};
    EXPECT_FALSE(qdf::ImportPMFCommand(store, device, dialog));
    EXPECT_EQ(device.shown, (std::vector<Shown>{ask, openError}));
}

}  // namespace
