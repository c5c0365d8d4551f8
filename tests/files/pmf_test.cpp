// Import of device parameter files into the frame's offline data.

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "../common/DataTable.h"
#include "FileTestSupport.h"
#include "ModImportPMF.h"

namespace {

using qdf::Value;
namespace testdata = qdf::testdata;

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

// A value of the data tables by its kind: i16, i32, f32, f64, bool or str.
Value DataValue(const testdata::Row& r) {
    const std::string& kind = r.text("kind");
    if (kind == "i16") return Value(static_cast<std::int16_t>(r.integer("value")));
    if (kind == "i32") return Value(r.integer("value"));
    if (kind == "f32") return Value(static_cast<float>(r.num("value")));
    if (kind == "f64") return Value(r.num("value"));
    if (kind == "str") return Value(r.text("value"));
    if (kind == "bool" && (r.text("value") == "true" || r.text("value") == "false"))
        return Value(r.text("value") == "true");
    throw std::invalid_argument(r.where() + ": kind " + kind);
}

class PmfValueText : public ::testing::TestWithParam<testdata::Row> {};

// Detects: a wrong type for a type name, integers rounded the wrong way at .5, a value text
// with commas cut at its first comma, out-of-range values passed on instead of dropped,
// untrimmed parts, an unknown or missing type name losing the text.
TEST_P(PmfValueText, ConvertsByItsTypeName) {
    const testdata::Row& r = GetParam();
    const std::optional<Value> got = qdf::ParsePmfValue(r.text("text"));
    if (r.text("kind") == "none") {
        EXPECT_EQ(got, std::nullopt);
    } else {
        EXPECT_EQ(got, DataValue(r));
    }
}
INSTANTIATE_TEST_SUITE_P(Table, PmfValueText,
                         ::testing::ValuesIn(testdata::Load("tests/files/data/pmf_values.csv")),
                         testdata::RowName);

// Detects: a name of the table that a file key cannot reach (a typo in a short key), a wrong
// cut length, a parameter under the wrong menu, keys shorter than five characters matching.
TEST_F(PmfImport, EveryParameterIsReachedWithEitherPrefixLength) {
    const auto rows = testdata::Load("tests/files/data/pmf_parameters.csv");
    ASSERT_EQ(rows.size(), 46u);
    for (const testdata::Row& r : rows) {
        for (const std::string prefix : {"P01", "P001"}) {
            const auto target = qdf::LookUpPmfKey(prefix + r.text("parameter"));
            ASSERT_TRUE(target) << r.where() << " " << prefix;
            EXPECT_EQ(target->parameter, r.text("parameter"));
            if (r.has("group")) {
                EXPECT_EQ(target->group, r.text("group")) << r.where();
            }
        }
    }
    EXPECT_FALSE(qdf::LookUpPmfKey("P01unknown_param"));
    EXPECT_FALSE(qdf::LookUpPmfKey("P01tag_name"));
    EXPECT_FALSE(qdf::LookUpPmfKey("Ptag"));
    EXPECT_FALSE(qdf::LookUpPmfKey("P01t"));
}

// Detects: entries of other sections imported, file order lost, the identification parameters
// left out, a refused or unknown parameter stopping the import, unknown keys or bad values
// written, the store touched.
TEST_F(PmfImport, WritesKnownEntriesOfParametersInFileOrder) {
    // Device tools write CR LF lines.
    std::string text;
    for (const std::string& line : qdf::test::DataLines("device.pmf")) text += line + "\r\n";
    const std::string path = Path("device.PMF");
    WriteText(path, text);
    device.unknown = {"flow_units"};  // a device revision without it
    device.refused = {"hl_swap"};     // the frame refuses this one
    store.Xmtr_Tag = "OLD";

    EXPECT_EQ(qdf::ImportPMFFile(store, path), 0);
    const auto rows = testdata::Load("tests/files/data/pmf_writes.csv");
    ASSERT_EQ(device.writes.size(), rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i)
        EXPECT_EQ(device.writes[i],
                  (Written{rows[i].text("menu"), rows[i].text("parameter"), DataValue(rows[i])}))
            << rows[i].where();
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
