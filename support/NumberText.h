#pragma once
// Numbers as the user sees and types them. Every routine here is independent of the process
// locale. Without separators given, the decimal separator is a point and the grouping one a
// comma: the form of every file, which must read the same on every desktop. The pages pass
// the user's own separators instead.

#include <optional>
#include <string>
#include <string_view>

namespace qdf {

// The separators of a number text: the decimal one and the one between digit groups (empty:
// no grouping). The defaults are the files' form.
struct NumberSeparators {
    std::string decimal = ".";
    std::string group = ",";
};

// The plain number-to-text conversion, the general format of a double:
// - at most 15 significant digits, rounded to nearest; trailing zeros and a bare point dropped;
// - fixed notation when the decimal exponent x of the rounded value is -5 < x < 15, so
//   0.0001 -> "0.0001", 123456789012345 -> "123456789012345";
// - otherwise one digit, the fraction and "E", a sign and at least two exponent digits:
//   0.00001 -> "1E-05", 1e15 -> "1E+15", 1234567890123456 -> "1.23456789012346E+15";
// - a leading "-" for negative values; negative zero is "0";
// - NaN, infinities: "NaN", "Inf", "-Inf" (no user entry produces them).
std::string NumToText(double v);

// The same general format for a value narrowed to single precision: 7 significant digits,
// exponent form from 1E+07 up and below 1E-04. Range limits in messages are shown this way.
std::string NumToTextSingle(float v);

// Formats a value by a digit pattern, as used for rounding through text and for grids:
// "##0.########", "##0.#######", "####0.########", "###0.########", "#####0.########",
// "########", "#.########E+00", "#.########E-00".
// Pattern: integer placeholders, optionally "." and fraction placeholders, optionally an
// exponent part "E+0..." / "E-0..." (or "e"). "0" is a digit that is always shown, "#" one shown
// only when significant.
// - The value is first taken to 15 significant digits, then rounded half away from zero to the
//   pattern's fraction places, so 1.005 with two places gives "1.01" as the user expects.
// - All integer digits are shown; the integer "0" placeholders pad with leading zeros, so with
//   no "0" in the integer part a value below one shows no integer digit ("########" gives ""
//   for 0.4 and for 0).
// - Fraction digits beyond the last "0" placeholder are dropped when they are trailing zeros.
//   The point stays when the pattern has one, even with no digit after it: 5 with
//   "##0.########" gives "5.", which still reads back as 5.
// - Exponent patterns keep one mantissa digit before the point: 0.0000183 with "#.########E+00"
//   gives "1.83E-05", 1 gives "1.E+00", 0 gives "0.E+00". "E+" always writes the exponent's
//   sign, "E-" only a minus. The exponent has at least as many digits as the pattern's zeros.
// - A result that rounds to zero carries no minus sign.
// - NaN and infinities give the NumToText form.
// Throws std::invalid_argument for a pattern outside this grammar.
std::string FormatNumber(double v, std::string_view pattern);

// The general numeric test and conversion. A text is a number when, after optional leading and
// trailing blanks (spaces, tabs), it is:
//   [sign] mantissa [exponent]
//   sign     = "+" | "-"
//   mantissa = integer ["." [digits]] | "." digits
//   integer  = digit { ["," ] digit }     grouping commas stand between digits, any group size,
//                                         and are ignored: "1,000.5" is 1000.5, "1,5" is 15
//   exponent = ("E" | "e") [sign] digits
// so "1e", "1e+", ".", "-", "1..2", "1.2,3", ",5", "5,", "1,,0", "" and "0x10" are not numbers.
// The value must be a finite double: "1e400" is not a number; "1e-400" is 0.
bool IsNumeric(std::string_view text);
std::optional<double> ParseNumber(std::string_view text);
// The same test with other separators: under a decimal comma and a grouping point, "1,5" is
// 1.5 and "1.000,5" is 1000.5.
bool IsNumeric(std::string_view text, const NumberSeparators& seps);
std::optional<double> ParseNumber(std::string_view text, const NumberSeparators& seps);
// NumToText and NumToTextSingle with the given decimal separator.
std::string NumToText(double v, const NumberSeparators& seps);
std::string NumToTextSingle(float v, const NumberSeparators& seps);

}  // namespace qdf
