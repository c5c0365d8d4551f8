#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "ModLog.h"
#include "PropertyError.h"
#include "PropertyFixture.h"

namespace qdf::test {
namespace {

using LogTest = PropertyTest;

// "yyyy-mm-dd hh:nn:ss" in double quotes.
bool IsTimeStamp(const std::string& field) {
    const std::string form = "\"0000-00-00 00:00:00\"";
    if (field.size() != form.size()) return false;
    for (std::size_t i = 0; i < form.size(); ++i) {
        const bool digit = field[i] >= '0' && field[i] <= '9';
        if (form[i] == '0' ? !digit : field[i] != form[i]) return false;
    }
    return true;
}

void WriteBytes(const std::filesystem::path& p, std::size_t n, char ch = 'x') {
    std::ofstream out(p, std::ios::binary | std::ios::trunc);
    out << std::string(n, ch);
}

TEST_F(LogTest, ShortCalcEntryHasSevenFieldsAndSetsError600) {
    // Catches a wrong field order, a missing status name or the code written bare.
    store.Gbl_ErrorCode = 890;
    LogCalcError(store, 1, "Error", 2, "Physical Calc lib Error", 1.5, 101325.0, 300.0);
    const auto lines = LogLines();
    ASSERT_EQ(lines.size(), 1u);
    const auto f = Fields(lines[0]);
    ASSERT_EQ(f.size(), 7u);
    EXPECT_TRUE(IsTimeStamp(f[0])) << f[0];
    EXPECT_EQ(f[1], "\"Tag name\"");
    EXPECT_EQ(f[2], "\"FT-101\"");
    EXPECT_EQ(f[3], "\"Error\"");
    EXPECT_EQ(f[4], "\"600\"");
    EXPECT_EQ(f[5], "2");
    EXPECT_EQ(f[6], "\"Physical Calc lib Error - ERR_TUNDER\"");
    EXPECT_EQ(store.Gbl_ErrorCode, 600);
    EXPECT_EQ(store.Gbl_ErrorSubCode, 2);
    EXPECT_EQ(store.Gbl_ErrorMessage, "Physical Calc lib Error");
}

TEST_F(LogTest, LongEntryCarriesTheLabelOfEachKind) {
    // Catches a wrong label per calculation kind or values written in the wrong slots.
    const char* labels[] = {"\"Dens (kg/m3)\"", "\"Visc (Pa sec)\"", "\"IsenExp\"", "\"IsenExp\""};
    for (int kind = 1; kind <= 4; ++kind)
        LogCalcError(store, kind, "Warning", 5, "two phases", 0.25, 2.5e6, 4.5e2);
    const auto lines = LogLines();
    ASSERT_EQ(lines.size(), 4u);
    for (int kind = 1; kind <= 4; ++kind) {
        const auto f = Fields(lines[kind - 1]);
        ASSERT_EQ(f.size(), 13u) << lines[kind - 1];
        EXPECT_EQ(f[3], "\"Warning\"");
        EXPECT_EQ(f[4], "\"890\"");
        EXPECT_EQ(f[5], "5");
        EXPECT_EQ(f[6], "\"two phases - ERR_PHASE\"");
        EXPECT_EQ(f[7], labels[kind - 1]);
        EXPECT_EQ(f[8], "0.25");
        EXPECT_EQ(f[9], "\"Press (Pa abs)\"");
        EXPECT_EQ(f[10], "2500000");
        EXPECT_EQ(f[11], "\"Temp (Kelvin)\"");
        EXPECT_EQ(f[12], "450");
    }
    EXPECT_EQ(store.Gbl_ErrorCode, 890);
    EXPECT_EQ(store.Gbl_ErrorSubCode, 5);
}

TEST_F(LogTest, OddCasesOfTheCalcEntry) {
    // Catches status 0 treated as success, and a kind outside 1 to 4 skipping the error
    // members along with the line.
    LogCalcError(store, 1, "Warning", 0, "note", 0, 0, 0);
    auto f = Fields(LogLines().at(0));
    ASSERT_EQ(f.size(), 7u);
    EXPECT_EQ(f[3], "\"Warning\"");
    EXPECT_EQ(f[4], "\"600\"");
    EXPECT_EQ(f[6], "\"note - NORMAL\"");

    LogCalcError(store, 9, "Warning", 5, "two phases", 1, 2, 3);
    EXPECT_EQ(LogLines().size(), 1u);
    EXPECT_EQ(store.Gbl_ErrorCode, 890);
    EXPECT_EQ(store.Gbl_ErrorSubCode, 5);
    EXPECT_EQ(store.Gbl_ErrorMessage, "two phases");

    // A code outside the table has no name.
    LogCalcError(store, 1, "Error", 42, "odd", 0, 0, 0);
    EXPECT_EQ(Fields(LogLines().at(1)).at(6), "\"odd - \"");
}

TEST_F(LogTest, FileErrorEntryAndFieldbusFileName) {
    // Catches the file error's code written as text, and both buses sharing one file.
    store.BusID = "FFH1";
    store.tag = "PT \xC3\xA9";  // UTF-8 inside, Windows-1252 in the file
    LogFileError(store, 3, 17, "Bad block");
    EXPECT_FALSE(std::filesystem::exists(LogPath()));
    const auto lines = LogLines("QDFSondraFF.log");
    ASSERT_EQ(lines.size(), 1u);
    const auto f = Fields(lines[0]);
    ASSERT_EQ(f.size(), 7u);
    EXPECT_EQ(f[2], "\"PT \xE9\"");
    EXPECT_EQ(f[3], "\"Error\"");
    EXPECT_EQ(f[4], "3");
    EXPECT_EQ(f[5], "17");
    EXPECT_EQ(f[6], "\"Bad block\"");
    EXPECT_EQ(store.Gbl_ErrorCode, 3);
    EXPECT_EQ(store.Gbl_ErrorSubCode, 17);
    EXPECT_EQ(store.Gbl_ErrorMessage, "Bad block");
}

TEST_F(LogTest, MissingFolderLosesTheEntryAndThrows) {
    // Catches a log that creates its folder, or swallows the failure and sets the members.
    const auto missing = dir_ / "absent";
    ::setenv("QDF_LOG_DIR", missing.string().c_str(), 1);
    store.Gbl_ErrorCode = 600;
    EXPECT_THROW(LogCalcError(store, 1, "Error", 1, "x", 0, 0, 0), std::runtime_error);
    EXPECT_FALSE(std::filesystem::exists(missing));
    EXPECT_EQ(store.Gbl_ErrorCode, kNotEntered);
    EXPECT_EQ(store.Gbl_ErrorSubCode, kNotEntered);
    EXPECT_EQ(store.Gbl_ErrorMessage, "");
}

TEST_F(LogTest, DefaultFolderIsUnderHome) {
    // Catches a default folder other than the home's TavrinCorvane.
    ::unsetenv("QDF_LOG_DIR");
    const char* home = std::getenv("HOME");
    ::setenv("HOME", "/nonexistent-home", 1);
    EXPECT_EQ(LogFolder(), "/nonexistent-home/TavrinCorvane/");
    EXPECT_EQ(LogFilePath(store), "/nonexistent-home/TavrinCorvane/QDFSondra.log");
    if (home != nullptr) ::setenv("HOME", home, 1);
}

TEST_F(LogTest, RotationAtOneMegabyte) {
    // Catches rotating at exactly 1024 KB, rounding the size up, keeping two old generations,
    // or a rotated name other than base + "1." + extension.
    const auto log = LogPath();
    const auto old = LogPath("QDFSondra1.log");

    WriteBytes(log, 1024 * 1024);
    RotateLog(log.string());
    EXPECT_TRUE(std::filesystem::exists(log));
    EXPECT_FALSE(std::filesystem::exists(old));

    WriteBytes(log, 1024 * 1024 + 511);  // 1024.499 KB rounds to 1024
    RotateLog(log.string());
    EXPECT_FALSE(std::filesystem::exists(old));

    WriteBytes(log, 1024 * 1024 + 513, 'a');
    RotateLog(log.string());
    EXPECT_FALSE(std::filesystem::exists(log));
    ASSERT_TRUE(std::filesystem::exists(old));
    EXPECT_EQ(std::filesystem::file_size(old), 1024u * 1024u + 513u);

    // The second rotation replaces the first generation.
    WriteBytes(log, 1100 * 1024, 'b');
    RotateLog(log.string());
    EXPECT_EQ(std::filesystem::file_size(old), 1100u * 1024u);

    // No log at all costs nothing.
    EXPECT_NO_THROW(RotateLog((dir_ / "none.log").string()));
}

TEST_F(LogTest, EntryRotatesAnOversizedLogFirst) {
    // Catches an entry that appends to the full log instead of starting a new one.
    WriteBytes(LogPath(), 1025 * 1024);
    LogCalcError(store, 1, "Error", 1, "x", 0, 0, 0);
    EXPECT_EQ(LogLines().size(), 1u);
    EXPECT_TRUE(std::filesystem::exists(LogPath("QDFSondra1.log")));
}

TEST_F(LogTest, ReportPropertyErrorLevelsAndKinds) {
    // Catches the two-phase code logged as an error, a kind outside 1 to 4 still logging, or
    // a stale 890 surviving the next report.
    EXPECT_EQ(ReportPropertyError(store, 5, 2, 373.0, 101325.0, 1.2e-5), 0);
    EXPECT_EQ(store.Gbl_ErrorCode, 890);
    EXPECT_EQ(store.Gbl_ErrorMessage,
              "The specified operating condition includes both gas and liquid phases");
    auto f = Fields(LogLines().at(0));
    EXPECT_EQ(f[3], "\"Warning\"");
    EXPECT_EQ(f[7], "\"Visc (Pa sec)\"");
    EXPECT_EQ(f[8], "1.2E-05");

    EXPECT_EQ(ReportPropertyError(store, -1, 4, 0, 0, 0), 0);
    EXPECT_EQ(store.Gbl_ErrorCode, 600);
    EXPECT_EQ(store.Gbl_ErrorSubCode, -1);
    EXPECT_EQ(store.Gbl_ErrorMessage, "Physical Calc lib Error");
    EXPECT_EQ(Fields(LogLines().at(1)).at(6), "\"Physical Calc lib Error - ERR_CALC\"");

    EXPECT_EQ(ReportPropertyError(store, 3, 0, 0, 0, 0), 1);
    EXPECT_EQ(ReportPropertyError(store, 3, 5, 0, 0, 0), 1);
    EXPECT_EQ(LogLines().size(), 2u);
    EXPECT_EQ(store.Gbl_ErrorSubCode, -1);
}

TEST(StatusNameTest, EveryCodeOfTheTable) {
    // Catches an off-by-one in the name table.
    EXPECT_EQ(StatusName(-1), "ERR_CALC");
    EXPECT_EQ(StatusName(0), "NORMAL");
    EXPECT_EQ(StatusName(5), "ERR_PHASE");
    EXPECT_EQ(StatusName(12), "ERR_XINVALID");
    EXPECT_EQ(StatusName(17), "ERR_LESSDATA");
    EXPECT_EQ(StatusName(18), "");
    EXPECT_EQ(StatusName(-2), "");
}

}  // namespace
}  // namespace qdf::test
