#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "IniSection.h"

namespace {

namespace fs = std::filesystem;

std::vector<std::string> Keys(const qdf::clsIniSection& s) {
    std::vector<std::string> keys;
    for (const auto& e : s) keys.push_back(e.Key());
    return keys;
}

qdf::IniSections Parse(const std::string& text) {
    qdf::IniSections out;
    std::istringstream in(text);
    EXPECT_TRUE(qdf::ReadIniText(in, out));
    return out;
}

TEST(IniReader, LineRules) {
    // Catches comments or stray lines read as entries, entries ahead of the first head kept,
    // keys or values trimmed at the "=", and a split at the last "=" instead of the first.
    auto sections = Parse(
        "orphan=1\r\n"
        "[Parameters]\r\n"
        "  ; a comment\r\n"
        "0001pressure_units = 12,vbInteger  \r\n"
        "=no key\r\n"
        "no equals sign\r\n"
        "\r\n"
        "0002tag=A=B\r\n"
        ";0003skipped=1\r\n");
    ASSERT_EQ(sections.Count(), 1);
    const auto& p = sections.Item("Parameters");
    EXPECT_EQ(Keys(p), (std::vector<std::string>{"0001pressure_units ", "0002tag"}));
    EXPECT_EQ(p.Item("0001pressure_units ").Value(), " 12,vbInteger");
    EXPECT_EQ(p.Item("0002tag").Value(), "A=B");
    EXPECT_EQ(sections.Find("orphan"), nullptr);
}

TEST(IniReader, RepeatedHeadsAndKeysMerge) {
    // Catches a second head that starts a new section, and a repeated key (in any letter case)
    // that adds a second entry instead of replacing the value.
    auto sections = Parse(
        "[Parameters]\n"
        "Key=first\n"
        "Other=x\n"
        "[More]\n"
        "a=1\n"
        "[parameters]\n"
        "KEY=second\n"
        "Last=y");
    ASSERT_EQ(sections.Count(), 2);
    const auto& p = sections.Item("PARAMETERS");
    EXPECT_EQ(p.Name(), "Parameters");
    EXPECT_EQ(Keys(p), (std::vector<std::string>{"Key", "Other", "Last"}));
    EXPECT_EQ(p.Item("key").Value(), "second");
    EXPECT_THROW(sections.Item("Missing"), std::out_of_range);
}

TEST(IniReader, LineEndsAndCodePage) {
    // Catches lone CR line ends merged into one line, blanks other than spaces kept, and
    // code page bytes passed through undecoded.
    auto sections = Parse(
        "\t[Unit]\t\rname=\xB0"
        "C\rsign=\x80\n[]\nx=1");
    ASSERT_EQ(sections.Count(), 2);
    EXPECT_EQ(sections.Item("Unit").Item("name").Value(), "°C");
    EXPECT_EQ(sections.Item("Unit").Item("sign").Value(), "€");
    EXPECT_EQ(sections.Item("").Item("x").Value(), "1");
}

TEST(IniReader, FilesAndFailures) {
    // Catches a missing or unreadable file reported as success, and the module-level result
    // keeping sections of an earlier file.
    fs::path dir = fs::temp_directory_path() / ("qdf_ini_test_" + std::to_string(::getpid()));
    fs::create_directories(dir);
    auto write = [&](const char* name, const std::string& text) {
        std::ofstream(dir / name, std::ios::binary) << text;
        return (dir / name).string();
    };
    std::string first = write("a.PMF", "[Old]\nk=v\n");
    std::string second = write("b.PMF", "[Parameters]\nk=v\n");

    qdf::IniSections out;
    EXPECT_FALSE(qdf::ReadIniFile((dir / "missing.PMF").string(), out));
    EXPECT_FALSE(qdf::ReadIniFile(dir.string(), out));  // a folder opens but cannot be read

    ASSERT_TRUE(qdf::ReadIniFile(first));
    ASSERT_TRUE(qdf::ReadIniFile(second));
    EXPECT_EQ(qdf::ParsedIniSections().Count(), 1);
    EXPECT_NE(qdf::ParsedIniSections().Find("Parameters"), nullptr);
    fs::remove_all(dir);
}

TEST(IniSection, CollectionOperations) {
    // Catches a duplicate key accepted, lookups that go stale after a removal shifts the
    // indexes, and a copy that shares its entries with the original.
    qdf::clsIniSection s("S");
    s.AddEntry("a").SetValue("1");
    s.AddNewEntry("b").SetValue("2");
    s.AddEntry("c").SetValue("3");
    EXPECT_EQ(&s.AddEntry("A"), &s.Item("a"));
    EXPECT_THROW(s.AddNewEntry("B"), std::invalid_argument);
    EXPECT_EQ(s.Count(), 3);

    qdf::clsIniSection copy = s.Copy();
    copy.Item("a").SetValue("changed");
    copy.RemoveAll();
    EXPECT_EQ(copy.Count(), 0);
    EXPECT_EQ(s.Item("a").Value(), "1");

    s.Remove(0);
    EXPECT_EQ(s.Item("c").Value(), "3");
    EXPECT_EQ(s.Item(0).Key(), "b");
    s.Remove("B");
    EXPECT_EQ(Keys(s), (std::vector<std::string>{"c"}));
    EXPECT_EQ(s.Item("c").Value(), "3");
    EXPECT_THROW(s.Remove("b"), std::out_of_range);
    EXPECT_THROW(s.Remove(1), std::out_of_range);
    EXPECT_THROW(s.Item(-1), std::out_of_range);
    EXPECT_THROW(s.Item("zz"), std::out_of_range);
    s.AddNewEntry("a");  // a removed key may come back
    EXPECT_EQ(Keys(s), (std::vector<std::string>{"c", "a"}));
}

}  // namespace
