// The QMV file against a layout kept in data/qmv_layout.csv, independently of the reader's and
// writer's own tables.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>
#include <thread>
#include <vector>

#include <sys/stat.h>

#include "../common/DataTable.h"
#include "../common/StoreMembers.h"
#include "FileTestSupport.h"
#include "ModBinary.h"
#include "ModDefaults.h"
#include "StoreRegistry.h"

namespace qdf::test {
namespace {

struct Col {
    char type;  // as in data/qmv_layout.csv
    std::string member;
};

const std::vector<testdata::Row>& LayoutRows() {
    static const std::vector<testdata::Row> rows =
        testdata::Load("tests/files/data/qmv_layout.csv");
    return rows;
}

// One scalar block of the layout, in file order.
std::vector<Col> Layout(int block) {
    std::vector<Col> cols;
    for (const testdata::Row& r : LayoutRows())
        if (r.integer("block") == block) cols.push_back({r.text("type").at(0), r.text("member")});
    EXPECT_FALSE(cols.empty()) << block;
    return cols;
}

// Builds a file field by field and remembers what each member must read back as.
class QmvBuilder {
  public:
    std::vector<std::uint8_t> bytes;
    std::vector<std::pair<std::string, Value>> scalars;
    std::vector<std::tuple<std::string, int, double>> elements;

    void Put(std::uint64_t v, int n) {
        for (int i = 0; i < n; ++i) bytes.push_back(static_cast<std::uint8_t>(v >> (8 * i)));
    }
    void Str(const std::string& ansi) {
        Put(ansi.size(), 2);
        bytes.insert(bytes.end(), ansi.begin(), ansi.end());
    }
    void Dbl(double d) {
        std::uint64_t b;
        std::memcpy(&b, &d, 8);
        Put(b, 8);
    }

    // Every field gets a value of its own, derived from its position in the file.
    void Block(const std::vector<Col>& cols, const std::string& revision, std::int32_t slot) {
        for (const Col& c : cols) {
            const int n = static_cast<int>(scalars.size() + elements.size());
            const std::string& name = c.member;
            switch (c.type) {
                case 'S': {
                    const std::string text =
                        name == "Mgt_FileFormatRevNo" ? revision : "v" + std::to_string(n);
                    Str(text);
                    scalars.emplace_back(name, Value(text));
                    break;
                }
                case 'I':
                    Put(static_cast<std::uint32_t>(100 + n), 4);
                    scalars.emplace_back(name, Value(std::int32_t{100 + n}));
                    break;
                case 'H':
                    Put(static_cast<std::uint16_t>(-3), 2);
                    scalars.emplace_back(name, Value(std::int16_t{-3}));
                    break;
                case 'N':
                    Put(static_cast<std::uint32_t>(-7), 4);
                    scalars.emplace_back(name, Value(-7.0));
                    break;
                case 'X':
                    Put(static_cast<std::uint32_t>(slot), 4);
                    break;
                default:
                    Dbl(n + 0.25);
                    scalars.emplace_back(name, Value(n + 0.25));
            }
        }
    }
    void Rows(const std::vector<const char*>& members, int rows) {
        for (int i = 0; i < rows; ++i)
            for (const char* m : members) {
                const double v = 1e3 * static_cast<double>(elements.size()) + 0.5;
                Dbl(v);
                elements.emplace_back(m, i, v);
            }
    }

    static QmvBuilder Full(const std::string& revision, std::int32_t slot = 0) {
        QmvBuilder b;
        b.Block(Layout(1), revision, slot);
        b.Block(Layout(2), revision, slot);
        b.Rows({"UI_ViscTemp", "UI_VisPress", "UI_Visc"}, 32);
        b.Rows({"UI_DensAbsPress", "UI_DensTemp", "UI_Dens"}, 256);
        b.Rows({"Xmtr_DisCoeff"}, 6);
        b.Rows({"Xmtr_ExpFac"}, 6);
        b.Rows({"Xmtr_VisCoeff"}, 6);
        b.Rows({"Xmtr_DensCoeff"}, 18);
        b.Block(Layout(9), revision, slot);
        return b;
    }

    // Puts every member the file carries into the store, as a writer would find them.
    void ApplyTo(clsExGlobalVars& s) const {
        for (const auto& [name, v] : scalars) SetMember(s, name, v);
        for (const auto& [name, i, v] : elements) SetElement(s, name, i, Value(v));
    }
};

bool IsNotReadBack(const std::string& m) {
    for (const testdata::Row& r : LayoutRows())
        if (r.text("member") == m) return r.integer("kept") == 1;
    return false;
}

class QmvTest : public FileTest {
  protected:
    void SetUp() override {
        FileTest::SetUp();
        ResetBinaryRecord();
        InitializeDefaults(store);
    }
    // A snapshot of every member a file could touch, to prove a failed read touched nothing.
    nlohmann::ordered_json Snapshot() const { return PersistedMembersToJson(store); }
};

TEST_F(QmvTest, HandBuiltFileReadsIntoEveryMember) {
    // Catches a field out of order, a wrong width (the 16-bit unit, the integer Xmtr_NeverUse)
    // and a block 1 member read back that should stay the session's.
    const QmvBuilder file = QmvBuilder::Full("1.00.00");
    store.Mgt_ProgramName = "session";
    store.Mgt_PollAddr = 3;
    ASSERT_EQ(OpenBinaryBytes(store, file.bytes), 0);
    for (const auto& [name, v] : file.scalars) {
        if (IsNotReadBack(name)) continue;
        EXPECT_EQ(GetMember(store, name), ConvertToKind(v, FindMember(name)->kind)) << name;
    }
    for (const auto& [name, i, v] : file.elements)
        EXPECT_EQ(GetElement(store, name, i).toDouble(), v) << name << " " << i;
    EXPECT_EQ(store.Mgt_ProgramName, "session");
    EXPECT_EQ(store.Mgt_PollAddr, 3);
    EXPECT_EQ(store.Mgt_FileFormatRevNo, "1.00.00");
    EXPECT_EQ(store.UI_RangeTUnit, -3);
    EXPECT_EQ(store.Xmtr_NeverUse, -7.0);
    EXPECT_TRUE(frame.shown.empty());
}

TEST_F(QmvTest, WriterProducesTheHandBuiltBytes) {
    // Catches any difference in layout between writer and format: order, widths, padding,
    // string form, and the slot written as 0 before any read.
    const QmvBuilder file = QmvBuilder::Full("1.00.00");
    file.ApplyTo(store);
    EXPECT_EQ(BinaryFileBytes(store), file.bytes);

    // With empty strings the file is its fixed bytes plus two per string.
    clsExGlobalVars blank;
    std::vector<QmvMemberValue> carried;
    ASSERT_TRUE(ParseBinaryBytes(BinaryFileBytes(blank), carried));
    for (const QmvMemberValue& m : carried)
        if (m.value.isString()) SetMember(blank, m.member, Value(""));
    const std::size_t fixed = 112 + 590 + 768 + 6144 + 3 * 48 + 144 + 256;
    EXPECT_EQ(BinaryFileBytes(blank).size(), fixed + 2 * (17 + 15 + 10));
}

TEST_F(QmvTest, NeverUseIsRoundedAndTextTakesTheAnsiCodePage) {
    // Catches a truncating conversion of Xmtr_NeverUse and UTF-8 bytes leaking into the file.
    store.Xmtr_NeverUse = 41.7;
    store.UI_PEMaterial = "Stahl \xC3\xBC";  // u with diaeresis
    const auto bytes = BinaryFileBytes(store);
    const std::vector<std::uint8_t> ansi = {'S', 't', 'a', 'h', 'l', ' ', 0xFC};
    EXPECT_NE(std::search(bytes.begin(), bytes.end(), ansi.begin(), ansi.end()), bytes.end());
    clsExGlobalVars back;
    InitializeDefaults(back);
    ASSERT_EQ(OpenBinaryBytes(back, bytes), 0);
    EXPECT_EQ(back.Xmtr_NeverUse, 42.0);
    EXPECT_EQ(back.UI_PEMaterial, "Stahl \xC3\xBC");
}

TEST_F(QmvTest, OldRevisionsTranslateNamesIntoCodes) {
    // Catches old files taken with their untrusted codes, or a revision compared loosely.
    for (const std::string rev : {"1.0.0", "0.10.0"}) {
        QmvBuilder file = QmvBuilder::Full(rev);
        clsExGlobalVars s;
        InitializeDefaults(s);
        s.SDKManager = &frame;
        file.ApplyTo(s);
        s.Mgt_FileFormatRevNo = rev;
        s.UI_PEName = "ASME FLOW NOZZLES [ASME MFC-3M 1989] with low beta ratio";
        s.UI_FluidName = "AGA8 Detail Characterization Method";
        s.UI_PEPrimaryDeviceCode = 2;
        s.UI_FluidNameMethodCode = 55;
        const auto bytes = BinaryFileBytes(s);
        EXPECT_EQ(OpenBinaryBytes(store, bytes), 0) << rev;
        EXPECT_EQ(store.UI_PEPrimaryDeviceCode, 14) << rev;
        EXPECT_EQ(store.UI_PESubcode, 1) << rev;
        EXPECT_EQ(store.UI_FluidNameMethodCode, -1) << rev;
    }
    EXPECT_TRUE(frame.shown.empty());
    // Close is not enough: "1.00.0" is neither the current nor an old revision.
    EXPECT_EQ(OpenBinaryBytes(store, QmvBuilder::Full("1.00.0").bytes), 1);
}

TEST_F(QmvTest, OldRevisionTranslationFailures) {
    // Catches a failed translation that doesn't report, reports the wrong step, or rolls back
    // the values already loaded.
    struct Case {
        const char* device;
        const char* fluid;
        std::vector<std::string> texts;
    };
    const Case cases[] = {
        {"Unknown plate",
         "AGA8 Detail Characterization Method",
         {"Error occurs in translating primary element code"}},
        {"Orifice Corner Taps [ISO5167-2 2003]",
         "No such fluid",
         {"Error occurs in translating fluid name code"}},
    };
    for (const Case& c : cases) {
        frame.shown.clear();
        clsExGlobalVars s;
        InitializeDefaults(s);
        s.Mgt_FileFormatRevNo = "1.0.0";
        s.UI_PEName = c.device;
        s.UI_FluidName = c.fluid;
        s.UI_RangeP1 = 123.5;
        const auto bytes = BinaryFileBytes(s);
        EXPECT_EQ(OpenBinaryBytes(store, bytes), 1) << c.device;
        EXPECT_EQ(store.UI_RangeP1, 123.5) << "values stay loaded";
        EXPECT_EQ(store.UI_PEName, c.device);
        ASSERT_EQ(frame.shown.size(), c.texts.size());
        EXPECT_EQ(frame.shown[0], (Shown{"QDF300 Error", c.texts[0], 1, 2, 4}));
    }
}

TEST_F(QmvTest, UnknownRevisionIsRefusedWithLogAndWarning) {
    // Catches a newer file loaded anyway, a missing log entry or a warning text that differs.
    store.UI_RangeP1 = 5.0;
    const auto before = Snapshot();
    ASSERT_EQ(OpenBinaryBytes(store, QmvBuilder::Full("1.05.00").bytes), 1);
    ASSERT_EQ(frame.shown.size(), 1u);
    EXPECT_EQ(frame.shown[0],
              (Shown{"QDF300 Warning",
                     "Current file format is version1.05.00 This program only supports version "
                     "1.00.00.",
                     1, 2, 4}));
    const std::string log = ReadText(Path("QDFSondra.log"));
    EXPECT_NE(log.find("Current file format error"), std::string::npos);
    EXPECT_EQ(store.Gbl_ErrorCode, 2);
    // Apart from the error members the log sets, nothing changed.
    auto after = Snapshot();
    auto expected = before;
    for (const char* m : {"Gbl_ErrorCode", "Gbl_ErrorSubCode", "Gbl_ErrorMessage"}) {
        after.erase(m);
        expected.erase(m);
    }
    EXPECT_EQ(after, expected);
}

TEST_F(QmvTest, TruncatedFileFailsQuietlyAndChangesNothing) {
    // Catches a partial load, a read past the end, or a message on a damaged file.
    const auto bytes = QmvBuilder::Full("1.00.00").bytes;
    const auto before = Snapshot();
    // Every 37th length reaches into strings, their length words and the fixed-width runs.
    std::vector<std::size_t> cuts{0, 1, 9, bytes.size() - 1};
    for (std::size_t cut = 200; cut < bytes.size(); cut += 37) cuts.push_back(cut);
    for (std::size_t cut : cuts) {
        const std::vector<std::uint8_t> part(bytes.begin(), bytes.begin() + cut);
        EXPECT_EQ(OpenBinaryBytes(store, part), 1) << cut;
        EXPECT_EQ(Snapshot(), before) << cut;
    }
    EXPECT_TRUE(frame.shown.empty());
    EXPECT_EQ(OpenBinaryFile(store, Path("missing.qmv")), 1);
}

TEST_F(QmvTest, ReadsFromAPipeAsFromAFile) {
    // Catches a reader that trusts the size a file reports: a pipe reports none, and the
    // bytes arrive in pieces smaller than the file.
    const std::string path = Path("pipe.qmv");
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    store.UI_RangeT1 = 55.5;
    const auto bytes = BinaryFileBytes(store);
    std::thread writer([&] {
        std::FILE* out = std::fopen(path.c_str(), "wb");
        if (!out) return;
        for (std::size_t at = 0; at < bytes.size(); at += 1000)
            std::fwrite(bytes.data() + at, 1, std::min<std::size_t>(1000, bytes.size() - at), out);
        std::fclose(out);
    });
    clsExGlobalVars back;
    InitializeDefaults(back);
    const std::int32_t rc = OpenBinaryFile(back, path);
    writer.join();
    EXPECT_EQ(rc, 0);
    EXPECT_EQ(back.UI_RangeT1, 55.5);
}

TEST_F(QmvTest, SavingOverALongerFileKeepsItsTailAndStillReads) {
    // Catches a writer that truncates (or deletes) the old file, and a reader that needs the
    // file to end after block 9.
    const std::string path = Path("old.qmv");
    const std::vector<std::uint8_t> old(20000, 0xAB);
    WriteBytes(path, old);
    store.UI_RangeT1 = 77.0;
    SaveBinaryFile(store, path);
    const auto now = ReadBytes(path);
    ASSERT_EQ(now.size(), old.size());
    const auto written = BinaryFileBytes(store);
    EXPECT_TRUE(std::equal(written.begin(), written.end(), now.begin()));
    EXPECT_EQ(now.back(), 0xAB);

    clsExGlobalVars back;
    InitializeDefaults(back);
    EXPECT_EQ(OpenBinaryFile(back, path), 0);
    EXPECT_EQ(back.UI_RangeT1, 77.0);
}

TEST_F(QmvTest, SlotOfBlockOneIsCarriedFromReadToSave) {
    // Catches a slot written as 0 after a read, or taken from anything but the last read file.
    auto slotOf = [](const std::vector<std::uint8_t>& b) {
        // After five strings: their lengths are in the file.
        std::size_t pos = 0;
        for (int i = 0; i < 5; ++i) pos += 2 + (b[pos] | (b[pos + 1] << 8));
        return static_cast<std::int32_t>(b[pos] | (b[pos + 1] << 8) | (b[pos + 2] << 16) |
                                         (static_cast<std::uint32_t>(b[pos + 3]) << 24));
    };
    EXPECT_EQ(slotOf(BinaryFileBytes(store)), 0);
    ASSERT_EQ(OpenBinaryBytes(store, QmvBuilder::Full("1.00.00", 4242).bytes), 0);
    const std::string path = Path("saved.qmv");
    SaveBinaryFile(store, path);
    EXPECT_EQ(slotOf(ReadBytes(path)), 4242);
    // A refused file still passes through the record.
    EXPECT_EQ(OpenBinaryBytes(store, QmvBuilder::Full("9", -5).bytes), 1);
    EXPECT_EQ(slotOf(BinaryFileBytes(store)), -5);
}

TEST_F(QmvTest, LoadRecordsToStoreResetsTheCalculationOptions) {
    // Catches options of a previously read file surviving into a new configuration.
    ASSERT_EQ(OpenBinaryBytes(store, QmvBuilder::Full("1.00.00").bytes), 0);
    store.Mgt_ConfDate = "2020-01-01 00:00:00";
    store.Mgt_UserName = "someone";
    LoadRecordsToStore(store);
    testdata::ExpectMembers(store, "tests/files/data/qmv_reset_options.json");
}

}  // namespace
}  // namespace qdf::test
