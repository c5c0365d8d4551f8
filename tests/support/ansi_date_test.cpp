#include <gtest/gtest.h>

#include <ctime>
#include <string>

#include "AnsiText.h"
#include "DateText.h"

namespace {

TEST(AnsiText, CodePageCharactersBothWays) {
    // Catches Latin-1 used in place of the code page (euro sign, curly quotes, dashes) and
    // two-byte forms written wrongly.
    const std::string ansi =
        "Caf\xE9 \x80 \x93x\x94 \x96 \x99 \xB0"
        "C \xFF";
    const std::string utf8 = "Café € “x” – ™ °C ÿ";
    EXPECT_EQ(qdf::AnsiToUtf8(ansi), utf8);
    EXPECT_EQ(qdf::Utf8ToAnsi(utf8), ansi);
    EXPECT_EQ(qdf::AnsiToUtf8("plain, \"ascii\"\r\n"), "plain, \"ascii\"\r\n");
}

TEST(AnsiText, EveryByteSurvivesTheRoundTrip) {
    // Catches an unassigned byte (0x81, 0x8D, 0x8F, 0x90, 0x9D) or NUL lost on the way through
    // the program.
    std::string all;
    for (int b = 0; b < 256; ++b) all.push_back(static_cast<char>(b));
    EXPECT_EQ(qdf::Utf8ToAnsi(qdf::AnsiToUtf8(all)), all);
}

TEST(AnsiText, CodePageByteAnywhereInALongText) {
    // Catches a code page byte missed by the plain ASCII scan when it is not the first of its
    // group of eight, and the text on either side of it lost or duplicated.
    for (std::size_t at = 0; at < 20; ++at) {
        std::string ansi(20, 'a');
        ansi[at] = '\x80';
        const std::string utf8 = std::string(at, 'a') + "€" + std::string(19 - at, 'a');
        std::string buffer;
        EXPECT_EQ(qdf::AnsiAsUtf8(ansi, buffer), utf8) << at;
        EXPECT_EQ(qdf::AnsiToUtf8(ansi), utf8) << at;
        EXPECT_EQ(qdf::Utf8ToAnsi(utf8), ansi) << at;
    }
    std::string buffer = "old";
    EXPECT_EQ(qdf::AnsiAsUtf8("plain text, longer than eight", buffer),
              "plain text, longer than eight");
}

TEST(AnsiText, UnwritableAndMalformedTextBecomesQuestionMarks) {
    // Catches characters dropped or truncated to a wrong byte, and malformed input read past its
    // end or decoded to a character.
    EXPECT_EQ(qdf::Utf8ToAnsi("日本 x"), "?? x");
    EXPECT_EQ(qdf::Utf8ToAnsi("\xF0\x9F\x98\x80!"), "?!");
    EXPECT_EQ(qdf::Utf8ToAnsi("\xC2\x80"), "?");     // U+0080 is no code page character
    EXPECT_EQ(qdf::Utf8ToAnsi("\xC2\x81"), "\x81");  // the unassigned byte comes back
    EXPECT_EQ(qdf::Utf8ToAnsi("\xC3"), "?");
    EXPECT_EQ(qdf::Utf8ToAnsi("\xC3"
                              "A"),
              "?A");
    EXPECT_EQ(qdf::Utf8ToAnsi("\xC0\xAF"), "??");            // overlong "/"
    EXPECT_EQ(qdf::Utf8ToAnsi("\xE0\x80\xAF"), "???");       // overlong "/"
    EXPECT_EQ(qdf::Utf8ToAnsi("\xED\xA0\x80"), "???");       // surrogate
    EXPECT_EQ(qdf::Utf8ToAnsi("\xF4\x90\x80\x80"), "????");  // beyond U+10FFFF
    EXPECT_EQ(qdf::Utf8ToAnsi("\xE2\x82"), "??");            // cut-off euro sign
}

std::tm Tm(int year, int month, int day, int h, int m, int s) {
    std::tm t{};
    t.tm_year = year - 1900;
    t.tm_mon = month - 1;
    t.tm_mday = day;
    t.tm_hour = h;
    t.tm_min = m;
    t.tm_sec = s;
    return t;
}

TEST(DateText, FixedWidthFields) {
    // Catches the month off by one, a twelve-hour clock, and fields without their leading zero.
    EXPECT_EQ(qdf::FormatDateTime(Tm(2024, 3, 7, 9, 5, 0)), "2024-03-07 09:05:00");
    EXPECT_EQ(qdf::FormatDateTime(Tm(1999, 12, 31, 23, 59, 59)), "1999-12-31 23:59:59");
    EXPECT_EQ(qdf::FormatDateTime(Tm(2000, 1, 1, 0, 0, 0)), "2000-01-01 00:00:00");
    EXPECT_EQ(qdf::FormatDateTime(Tm(999, 6, 15, 13, 0, 1)), "0999-06-15 13:00:01");
    EXPECT_EQ(qdf::NowDateTime().size(), 19u);
}

}  // namespace
