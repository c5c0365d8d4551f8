// The line form's reader and writer on their own: line ends, fields, quoting, numbers.

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "LineForm.h"

namespace qdf::test {
namespace {

std::vector<std::string> ReadAll(std::string_view ansiText) {
    std::vector<std::string> lines;
    for (LineReader reader(ansiText); !reader.AtEnd();) lines.emplace_back(reader.Next());
    return lines;
}

TEST(LineReader, EveryKindOfLineEnd) {
    // Catches a lone CR at the very end taken for CR LF, CR LF counted as two ends, an empty
    // last line made up, a line end of one kind missed after lines ending in the other, and
    // code page bytes not converted.
    struct Case {
        std::string_view text;
        std::vector<std::string> lines;
    };
    const Case cases[] = {
        {"", {}},
        {"a", {"a"}},
        {"a\r\nb\r\n", {"a", "b"}},
        {"a\nb", {"a", "b"}},
        {"a\rb\r", {"a", "b"}},
        {"\r", {""}},
        {"\n\r", {"", ""}},
        {"a\r\r\nb", {"a", "", "b"}},
        {"a\r\n\r\n", {"a", ""}},
        {"a\nb\nc\rd\r\ne\n\nf", {"a", "b", "c", "d", "e", "", "f"}},
        {"x\x80,\x93y\x94\rz", {"x€,“y”", "z"}},
    };
    for (const Case& c : cases) {
        const std::string shown = testing::PrintToString(std::string(c.text));
        EXPECT_EQ(ReadAll(c.text), c.lines) << shown;
        EXPECT_EQ(SplitLines(c.text), c.lines) << shown;
    }
}

TEST(FieldReader, FieldsBetweenCommas) {
    // Catches the field after a trailing comma or before a leading one lost, and a row without
    // commas read as no field.
    struct Case {
        std::string_view row;
        std::vector<std::string_view> fields;
    };
    const Case cases[] = {
        {"", {""}},
        {"a", {"a"}},
        {"a,", {"a", ""}},
        {",a", {"", "a"}},
        {"\"x\",,1.5", {"\"x\"", "", "1.5"}},
    };
    for (const Case& c : cases) {
        std::vector<std::string_view> fields;
        for (FieldReader reader(c.row); !reader.AtEnd();) fields.push_back(reader.Next());
        EXPECT_EQ(fields, c.fields) << c.row;
        EXPECT_EQ(SplitFields(c.row), c.fields) << c.row;
    }
}

TEST(LineBuilder, QuotesNumbersAndLineEnds) {
    // Catches an embedded quote not doubled (or the text after it lost), an integer cut short,
    // and a missing separator or line end.
    LineBuilder out(16);
    out.Str("say \"hi\" twice").Str("\"").Str("").End();
    out.Dbl(0.1).Dbl(-2.5e-300).Int(std::numeric_limits<std::int64_t>::min()).End();
    out.End();
    EXPECT_EQ(out.Text(),
              "\"say \"\"hi\"\" twice\",\"\"\"\",\"\"\r\n"
              "0.1,-2.5e-300,-9223372036854775808\r\n"
              "\r\n");
    const std::string taken = out.TakeText();
    EXPECT_EQ(taken.substr(0, 5), "\"say ");
    EXPECT_EQ(out.Text(), "");
}

TEST(LineBuilder, NumbersReadBackExactly) {
    // Catches digits lost in the written form of extreme and inexact values.
    for (double v : {0.1, 1.0 / 3.0, -2.5e-7, 5e-324, 2.2250738585072014e-308,
                     1.7976931348623157e308, 123456789.125, -999999.0}) {
        LineBuilder out;
        out.Dbl(v);
        EXPECT_EQ(CellToDouble(out.Text()), v) << out.Text();
    }
}

}  // namespace
}  // namespace qdf::test
