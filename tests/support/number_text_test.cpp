#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <stdexcept>
#include <string>

#include "NumberText.h"

namespace {

struct TextCase {
    double value;
    const char* text;
};

TEST(NumToText, GeneralFormOfDoubles) {
    // Catches a wrong digit count, a missing switch to or from the exponent form, and
    // trailing zeros or a sign left on zero.
    const TextCase cases[] = {
        {0.0, "0"},
        {-0.0, "0"},
        {0.5, "0.5"},
        {-0.5, "-0.5"},
        {101.325, "101.325"},
        {273.15, "273.15"},
        {0.1 + 0.2, "0.3"},
        {1.0 / 3.0, "0.333333333333333"},
        {2.0 / 3.0, "0.666666666666667"},
        {-999999.0, "-999999"},
        {123456789012345.0, "123456789012345"},
        {1234567890123456.0, "1.23456789012346E+15"},
        {1e15, "1E+15"},
        {0.0001, "0.0001"},
        {0.00001, "1E-05"},
        {-1.5e-10, "-1.5E-10"},
        {1e100, "1E+100"},
        {6.894757, "6.894757"},
    };
    for (const auto& c : cases) EXPECT_EQ(qdf::NumToText(c.value), c.text) << c.text;
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

struct FormatCase {
    double value;
    const char* pattern;
    const char* text;
};

TEST(FormatNumber, FixedPatterns) {
    // Catches rounding on the binary value instead of the decimal one, half-even rounding,
    // carries across the point, a lost or extra point, and a minus on a rounded zero.
    const FormatCase cases[] = {
        {5.0, "##0.########", "5."},
        {0.5, "##0.########", "0.5"},
        {0.0, "##0.########", "0."},
        {1.000000005, "##0.########", "1.00000001"},
        {5e-9, "##0.########", "0.00000001"},
        {4.9e-9, "##0.########", "0."},
        {-4e-9, "##0.########", "0."},
        {99.999999999, "##0.########", "100."},
        {-1.23456789012, "##0.#######", "-1.2345679"},
        {0.99999999999, "##0.#######", "1."},
        {33.333333333333336, "####0.########", "33.33333333"},
        {1234567.125, "####0.########", "1234567.125"},
        {0.45359237 / (0.3048 * 0.3048 * 0.3048), "###0.########", "16.01846337"},
        {1e20, "###0.########", "100000000000000000000."},
    };
    for (const auto& c : cases)
        EXPECT_EQ(qdf::FormatNumber(c.value, c.pattern), c.text) << c.value << " " << c.pattern;
}

TEST(FormatNumber, IntegerPattern) {
    // Catches a zero shown for values below one half, and rounding half to even.
    const FormatCase cases[] = {
        {12345678.0, "########", "12345678"},
        {0.4, "########", ""},
        {0.0, "########", ""},
        {0.5, "########", "1"},
        {2.5, "########", "3"},
        {-2.5, "########", "-3"},
        {99999999.5, "########", "100000000"},
        {15000000000.0, "########", "15000000000"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(qdf::FormatNumber(c.value, c.pattern), c.text) << c.value << " " << c.pattern;
}

TEST(FormatNumber, ExponentPatterns) {
    // Catches an unnormalised mantissa, a carry that does not move the exponent, short exponent
    // digits and the sign rule of "E-".
    const FormatCase cases[] = {
        {1.83e-5, "#.########E+00", "1.83E-05"},
        {1.0, "#.########E+00", "1.E+00"},
        {0.0, "#.########E+00", "0.E+00"},
        {-123456.789, "#.########E+00", "-1.23456789E+05"},
        {9.9999999999e-6, "#.########E+00", "1.E-05"},
        {1.5e100, "#.########E+00", "1.5E+100"},
        {2.5e7, "#.########E-00", "2.5E07"},
        {2.5e-7, "#.########E-00", "2.5E-07"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(qdf::FormatNumber(c.value, c.pattern), c.text) << c.value << " " << c.pattern;
}

TEST(FormatNumber, RejectsUnknownPatterns) {
    // Catches a pattern silently misread as another one.
    for (const char* p : {"", "#,##0", "0.0E", "0.0E00", "##0.#E+00", "abc", "0.0%", "."})
        EXPECT_THROW(qdf::FormatNumber(1.0, p), std::invalid_argument) << p;
}

TEST(ParseNumber, AcceptedTexts) {
    // Catches a lost sign, commas not ignored, a bare point on either side refused, and
    // blanks around the number refused.
    const TextCase cases[] = {
        {0.0, "0"},
        {12.0, " 12 "},
        {7.0, "\t7\t"},
        {1.5, "+1.5"},
        {-0.5, "-.5"},
        {5.0, "5."},
        {1000.25, "1,000.25"},
        {15.0, "1,5"},
        {1234567.0, "1,234,567"},
        {1e5, "1e5"},
        {0.001, "1E-3"},
        {-250.0, "-2.5e+2"},
        {1.0, "0001"},
        {0.0, "1e-400"},
        {1e300, "1e300"},
        {std::numeric_limits<double>::max(), "1.7976931348623157e308"},
        {0.1, "0.1"},
    };
    for (const auto& c : cases) {
        auto v = qdf::ParseNumber(c.text);
        ASSERT_TRUE(v.has_value()) << c.text;
        EXPECT_EQ(*v, c.value) << c.text;
        EXPECT_TRUE(qdf::IsNumeric(c.text)) << c.text;
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
