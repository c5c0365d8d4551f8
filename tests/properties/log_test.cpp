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

TEST_F(LogTest, ShortAndLongCalcEntries) {
    // Catches a wrong field order, the code written bare, a missing status name, or a wrong
    // label for a calculation kind.
    LogCalcError(store, 1, "Error", 2, "Physical Calc lib Error", 1.5, 101325.0, 300.0);
    const char* labels[] = {"\"Dens (kg/m3)\"", "\"Visc (Pa sec)\"", "\"IsenExp\"", "\"IsenExp\""};
    for (int kind = 1; kind <= 4; ++kind)
        LogCalcError(store, kind, "Warning", 5, "two phases", 1.2e-5, 2.5e6, 4.5e2);
    const auto lines = LogLines();
    ASSERT_EQ(lines.size(), 5u);
    const auto s = Fields(lines[0]);
    ASSERT_EQ(s.size(), 7u);
    EXPECT_TRUE(IsTimeStamp(s[0])) << s[0];
    EXPECT_EQ(s[1] + s[2] + s[3] + s[4] + s[5], "\"Tag name\"\"FT-101\"\"Error\"\"600\"2");
    EXPECT_EQ(s[6], "\"Physical Calc lib Error - ERR_TUNDER\"");
    for (int kind = 1; kind <= 4; ++kind) {
        const auto f = Fields(lines[kind]);
        ASSERT_EQ(f.size(), 13u) << lines[kind];
        EXPECT_EQ(f[3] + f[4] + f[5] + f[6], "\"Warning\"\"890\"5\"two phases - ERR_PHASE\"");
        EXPECT_EQ(f[7], labels[kind - 1]);
        EXPECT_EQ(f[8] + f[9] + f[10] + f[11] + f[12],
                  "1.2E-05\"Press (Pa abs)\"2500000\"Temp (Kelvin)\"450");
    }
    EXPECT_EQ(store.Gbl_ErrorCode, 890);
    EXPECT_EQ(store.Gbl_ErrorSubCode, 5);
    EXPECT_EQ(store.Gbl_ErrorMessage, "two phases");
}

TEST_F(LogTest, OddCasesOfTheCalcEntry) {
    // Catches status 0 taken for success, a kind outside 1 to 4 skipping the error members
    // along with its line, or a code outside the table given a name.
    LogCalcError(store, 1, "Warning", 0, "note", 0, 0, 0);
    auto f = Fields(LogLines().at(0));
    ASSERT_EQ(f.size(), 7u);
    EXPECT_EQ(f[3] + f[4] + f[6], "\"Warning\"\"600\"\"note - NORMAL\"");
    EXPECT_EQ(store.Gbl_ErrorCode, 600);

    LogCalcError(store, 9, "Warning", 5, "two phases", 1, 2, 3);
    EXPECT_EQ(LogLines().size(), 1u);
    EXPECT_EQ(store.Gbl_ErrorCode, 890);
    EXPECT_EQ(store.Gbl_ErrorSubCode, 5);

    LogCalcError(store, 1, "Error", 18, "odd", 0, 0, 0);
    EXPECT_EQ(Fields(LogLines().at(1)).at(6), "\"odd - \"");
    EXPECT_EQ(StatusName(-1), "ERR_CALC");
    EXPECT_EQ(StatusName(17), "ERR_LESSDATA");
}

TEST_F(LogTest, FileErrorEntryInTheFieldbusLog) {
    // Catches the file error's codes written as text, both buses sharing one file, or the tag
    // written in UTF-8.
    store.BusID = "FFH1";
    store.tag = "PT \xC3\xA9";
    LogFileError(store, 3, 17, "Bad block");
    EXPECT_FALSE(std::filesystem::exists(LogPath()));
    const auto f = Fields(LogLines("QDFSondraFF.log").at(0));
    ASSERT_EQ(f.size(), 7u);
    EXPECT_EQ(f[2] + f[3] + f[4] + f[5] + f[6], "\"PT \xE9\"\"Error\"317\"Bad block\"");
    EXPECT_EQ(store.Gbl_ErrorCode, 3);
    EXPECT_EQ(store.Gbl_ErrorSubCode, 17);
    EXPECT_EQ(store.Gbl_ErrorMessage, "Bad block");
}

TEST_F(LogTest, MissingFolderLosesTheEntry) {
    // Catches a log that creates its folder, or that swallows the failure and sets the members.
    const auto missing = dir_ / "absent";
    ::setenv("QDF_LOG_DIR", missing.string().c_str(), 1);
    store.Gbl_ErrorCode = 600;
    EXPECT_THROW(LogCalcError(store, 1, "Error", 1, "x", 0, 0, 0), std::runtime_error);
    EXPECT_FALSE(std::filesystem::exists(missing));
    EXPECT_EQ(store.Gbl_ErrorCode, kNotEntered);
    EXPECT_EQ(store.Gbl_ErrorSubCode, kNotEntered);
}

TEST_F(LogTest, RotationAboveOneMegabyte) {
    // Catches rotating at exactly 1024 KB, rounding the size up, keeping a second old
    // generation, or a rotated name other than base + "1." + extension.
    const auto log = LogPath();
    const auto old = LogPath("QDFSondra1.log");
    auto write = [&](std::size_t n) {
        std::ofstream(log, std::ios::binary) << std::string(n, 'x');
    };
    for (std::size_t n : {1024u * 1024u, 1024u * 1024u + 511u}) {
        write(n);
        RotateLog(log.string());
        EXPECT_FALSE(std::filesystem::exists(old)) << n;
    }
    write(1024 * 1024 + 513);
    RotateLog(log.string());
    EXPECT_FALSE(std::filesystem::exists(log));
    EXPECT_EQ(std::filesystem::file_size(old), 1024u * 1024u + 513u);
    write(1100 * 1024);
    // The next entry rotates first and starts a fresh log.
    LogCalcError(store, 1, "Error", 1, "x", 0, 0, 0);
    EXPECT_EQ(std::filesystem::file_size(old), 1100u * 1024u);
    EXPECT_EQ(LogLines().size(), 1u);
    EXPECT_NO_THROW(RotateLog((dir_ / "none.log").string()));
}

TEST_F(LogTest, ReportPropertyErrorLevelsAndKinds) {
    // Catches the two-phase code logged as an error, a kind outside 1 to 4 still logging, or
    // a stale 890 surviving the next report.
    EXPECT_EQ(ReportPropertyError(store, 5, 2, 373.0, 101325.0, 1e-5), 0);
    EXPECT_EQ(store.Gbl_ErrorMessage,
              "The specified operating condition includes both gas and liquid phases");
    EXPECT_EQ(Fields(LogLines().at(0)).at(3), "\"Warning\"");
    EXPECT_EQ(ReportPropertyError(store, -1, 4, 0, 0, 0), 0);
    EXPECT_EQ(store.Gbl_ErrorCode, 600);
    EXPECT_EQ(store.Gbl_ErrorSubCode, -1);
    EXPECT_EQ(store.Gbl_ErrorMessage, "Physical Calc lib Error");
    EXPECT_EQ(Fields(LogLines().at(1)).at(3), "\"Error\"");
    EXPECT_EQ(ReportPropertyError(store, 3, 0, 0, 0, 0), 1);
    EXPECT_EQ(ReportPropertyError(store, 3, 5, 0, 0, 0), 1);
    EXPECT_EQ(LogLines().size(), 2u);
    EXPECT_EQ(store.Gbl_ErrorSubCode, -1);
}

}  // namespace
}  // namespace qdf::test
