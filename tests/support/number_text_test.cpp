#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "../common/DataTable.h"
#include "NumberText.h"

namespace {

using qdf::testdata::Row;

// The rows of data/number_texts.csv for one function.
std::vector<Row> Texts(const std::string& function) {
    std::vector<Row> out;
    for (Row& r : qdf::testdata::Load("tests/support/data/number_texts.csv"))
        if (r.text("function") == function) out.push_back(std::move(r));
    return out;
}

TEST(NumToText, GeneralFormOfDoubles) {
    // Catches a wrong digit count, a missing switch to or from the exponent form, and
    // trailing zeros or a sign left on zero.
    for (const Row& r : Texts("NumToText"))
        EXPECT_EQ(qdf::NumToText(r.num("value")), r.text("text")) << r.where();
    EXPECT_EQ(qdf::NumToText(std::numeric_limits<double>::quiet_NaN()), "NaN");
    EXPECT_EQ(qdf::NumToText(-std::numeric_limits<double>::infinity()), "-Inf");
}

TEST(NumToText, SinglePrecisionShowsSevenDigits) {
    // Catches a narrowed limit printed with the double's digits ("14.5037746429443").
    EXPECT_EQ(qdf::NumToTextSingle(static_cast<float>(100 / 6.894757)), "14.50377");
    EXPECT_EQ(qdf::NumToTextSingle(0.1f), "0.1");
    EXPECT_EQ(qdf::NumToTextSingle(static_cast<float>(373.15 - 273.15)), "100");
    EXPECT_EQ(qdf::NumToTextSingle(12345678.0f), "1.234568E+07");
}

TEST(FormatNumber, FixedIntegerAndExponentPatterns) {
    // Catches rounding on the binary value instead of the decimal one, half-even rounding,
    // carries across the point or into the exponent, a lost or extra point, a minus on a
    // rounded zero, a zero shown below one half by "########", an unnormalised mantissa, short
    // exponent digits and the sign rule of "E-".
    for (const Row& r : Texts("FormatNumber"))
        EXPECT_EQ(qdf::FormatNumber(r.num("value"), r.text("pattern")), r.text("text"))
            << r.where();
}

TEST(FormatNumber, RejectsUnknownPatterns) {
    // Catches a pattern silently misread as another one.
    for (const char* p : {"", "#,##0", "0.0E", "0.0E00", "##0.#E+00", "abc", "0.0%", "."})
        EXPECT_THROW(qdf::FormatNumber(1.0, p), std::invalid_argument) << p;
}

TEST(ParseNumber, AcceptedTexts) {
    // Catches a lost sign, commas not ignored, a bare point on either side refused, and
    // blanks around the number refused.
    for (const Row& r : Texts("ParseNumber")) {
        auto v = qdf::ParseNumber(r.text("text"));
        ASSERT_TRUE(v.has_value()) << r.where();
        EXPECT_EQ(*v, r.num("value")) << r.where();
        EXPECT_TRUE(qdf::IsNumeric(r.text("text"))) << r.where();
    }
}

TEST(ParseNumber, RefusedTexts) {
    // Catches the texts the number boxes let through but that are not numbers ("1e" above
    // all), values out of range, and forms a lenient library parser would take.
    for (const char* t :
         {"",      " ",   "1e",  "1e+",  "e5",    ".",     "-",      "+",   "1..2", "1.2.3",
          "1.2,3", ",5",  "5,",  "1,,0", "0x10",  "1e400", "-1e400", "inf", "nan",  "1 2",
          "1-",    "(1)", "1d5", "$5",   "1e5.5", "--1",   "+-1",    "1,.5"}) {
        EXPECT_FALSE(qdf::IsNumeric(t)) << '"' << t << '"';
        EXPECT_FALSE(qdf::ParseNumber(t).has_value()) << '"' << t << '"';
    }
}

TEST(ParseNumber, LongTexts) {
    // Catches a long number cut to a fixed buffer (digits lost, a value changed), and an
    // overflow taken for an underflow or the other way round.
    const std::string zeros(300, '0');
    EXPECT_EQ(qdf::ParseNumber("1" + zeros + "e-300"), 1.0);
    EXPECT_EQ(qdf::ParseNumber(" 0." + zeros + "25e302\t"), 25.0);
    EXPECT_EQ(qdf::ParseNumber("-" + std::string(400, '9')), std::nullopt);
    EXPECT_EQ(qdf::ParseNumber("0." + std::string(400, '0') + "1"), 0.0);
    EXPECT_EQ(qdf::ParseNumber("1" + zeros + "x"), std::nullopt);
    std::string grouped = "1";
    for (int i = 0; i < 100; ++i) grouped += ",000";
    EXPECT_EQ(qdf::ParseNumber(grouped), 1e300);
    std::string dotted = "+1";
    for (int i = 0; i < 100; ++i) dotted += ".000";
    EXPECT_EQ(qdf::ParseNumber(dotted + ",5", qdf::NumberSeparators{",", "."}), 1e300);
}

TEST(ParseNumber, ReadsBackWhatTheFormatsWrite) {
    // Catches a format whose text the numeric test refuses ("5.", exponents), which would break
    // rounding through text.
    for (double v : {5.0, 0.5, -1234.56789, 1.83e-5, 1e-12, 6.02214076e23, 1.0 / 3.0}) {
        for (const char* p : {"##0.########", "#.########E+00", "#.########E-00"}) {
            std::string text = qdf::FormatNumber(v, p);
            auto back = qdf::ParseNumber(text);
            ASSERT_TRUE(back.has_value()) << text;
            if (p[0] != '#' || p[1] != '#')  // exponent forms keep 9 significant digits
                EXPECT_NEAR(*back, v, std::fabs(v) * 1e-8) << text;
            else
                EXPECT_NEAR(*back, v, 5e-9) << text;
        }
        auto plain = qdf::ParseNumber(qdf::NumToText(v));
        ASSERT_TRUE(plain.has_value());
        EXPECT_NEAR(*plain, v, std::fabs(v) * 1e-14);
    }
}

}  // namespace

namespace {

TEST(ParseNumber, UserSeparators) {
    // Catches a decimal comma read as grouping (1,5 -> 15 on a German desktop), a grouping
    // point taken as the decimal one, a multi-byte separator (French narrow no-break space)
    // cut in half, and separators leaking into the files' form.
    const qdf::NumberSeparators comma{",", "."};
    const qdf::NumberSeparators french{",", "\u202f"};
    const qdf::NumberSeparators none{".", ""};
    struct Case {
        const qdf::NumberSeparators* seps;
        const char* text;
        std::optional<double> value;
    };
    const Case cases[] = {
        {&comma, "1,5", 1.5},       {&comma, "1.000,5", 1000.5},
        {&comma, "-2,5E-1", -0.25}, {&comma, "1.5", 15.0},
        {&comma, ",5", 0.5},        {&comma, "5,", 5.0},
        {&comma, "1,5,5", {}},      {&comma, "1,2.3", {}},
        {&comma, "1..0", {}},       {&french, "1\u202f000,25", 1000.25},
        {&french, "2,25", 2.25},    {&french, "1\u202f", {}},
        {&french, "1.5", {}},       {&none, "1,5", {}},
        {&none, "1500.5", 1500.5},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(qdf::ParseNumber(c.text, *c.seps), c.value) << c.text;
        EXPECT_EQ(qdf::IsNumeric(c.text, *c.seps), c.value.has_value()) << c.text;
    }
    // The files' form does not move.
    EXPECT_EQ(qdf::ParseNumber("1,5"), 15.0);
    EXPECT_EQ(qdf::ParseNumber("1,5", qdf::NumberSeparators{}), 15.0);

    EXPECT_EQ(qdf::NumToText(-1234.5, comma), "-1234,5");
    EXPECT_EQ(qdf::NumToText(1e-5, comma), "1E-05");
    EXPECT_EQ(qdf::NumToText(2.5e-7, comma), "2,5E-07");
    EXPECT_EQ(qdf::NumToTextSingle(0.1f, comma), "0,1");
    EXPECT_EQ(qdf::NumToText(-1234.5), "-1234.5");
}

}  // namespace
