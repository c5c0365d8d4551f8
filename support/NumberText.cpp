#include "NumberText.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <stdexcept>
#include <system_error>

namespace qdf {

namespace {

std::string NonFiniteText(double v) {
    if (std::isnan(v)) return "NaN";
    return v < 0 ? "-Inf" : "Inf";
}

// to_chars in the general form with the given significant digits, then the exponent letter
// upper-cased; to_chars already writes at least two exponent digits.
template <class T>
std::string GeneralText(T v, int digits) {
    if (!std::isfinite(v)) return NonFiniteText(v);
    if (v == 0) return "0";
    char buf[64];
    auto res = std::to_chars(buf, buf + sizeof buf, v, std::chars_format::general, digits);
    std::string out(buf, res.ptr);
    for (char& c : out)
        if (c == 'e') c = 'E';
    return out;
}

// A non-negative value as decimal digits: value = 0.d1d2d3... * 10^exp10. Zero has no digits.
struct Decimal {
    std::string digits;
    int exp10 = 0;
};

void TrimTrailingZeros(Decimal& d) {
    while (!d.digits.empty() && d.digits.back() == '0') d.digits.pop_back();
    if (d.digits.empty()) d.exp10 = 0;
}

// The 15 significant digits the user's number carries; any binary noise beyond them is not
// part of the value as far as rounding is concerned.
Decimal ToDecimal(double magnitude) {
    Decimal d;
    if (magnitude == 0) return d;
    char buf[64];
    auto res = std::to_chars(buf, buf + sizeof buf, magnitude, std::chars_format::scientific, 14);
    std::string_view s(buf, static_cast<size_t>(res.ptr - buf));
    size_t e = s.find('e');
    d.digits.push_back(s[0]);
    d.digits.append(s.substr(2, e - 2));
    d.exp10 = std::atoi(std::string(s.substr(e + 1)).c_str()) + 1;
    TrimTrailingZeros(d);
    return d;
}

// Keeps the first `keep` digits, rounding half away from zero.
void RoundDigits(Decimal& d, int keep) {
    if (keep >= static_cast<int>(d.digits.size())) return;
    if (keep < 0) {
        d.digits.clear();
        d.exp10 = 0;
        return;
    }
    bool up = d.digits[static_cast<size_t>(keep)] >= '5';
    d.digits.resize(static_cast<size_t>(keep));
    if (up) {
        int i = keep - 1;
        while (i >= 0 && d.digits[static_cast<size_t>(i)] == '9') {
            d.digits[static_cast<size_t>(i)] = '0';
            --i;
        }
        if (i >= 0) {
            ++d.digits[static_cast<size_t>(i)];
        } else {
            d.digits.insert(d.digits.begin(), '1');
            ++d.exp10;
        }
    }
    TrimTrailingZeros(d);
}

char DigitAt(const Decimal& d, long index) {
    if (index < 0 || index >= static_cast<long>(d.digits.size())) return '0';
    return d.digits[static_cast<size_t>(index)];
}

struct Pattern {
    int intPlaces = 0;
    int intZeros = 0;
    bool point = false;
    int fracPlaces = 0;
    int fracMin = 0;  // places up to the last "0" placeholder
    bool exponent = false;
    bool expPlus = false;  // "E+": the exponent's sign is always written
    int expDigits = 0;
};

Pattern ParsePattern(std::string_view p) {
    Pattern pat;
    size_t i = 0;
    auto bad = [&] {
        return std::invalid_argument("unsupported number pattern \"" + std::string(p) + "\"");
    };
    for (; i < p.size() && (p[i] == '#' || p[i] == '0'); ++i) {
        ++pat.intPlaces;
        if (p[i] == '0') ++pat.intZeros;
    }
    if (i < p.size() && p[i] == '.') {
        pat.point = true;
        for (++i; i < p.size() && (p[i] == '#' || p[i] == '0'); ++i) {
            ++pat.fracPlaces;
            if (p[i] == '0') pat.fracMin = pat.fracPlaces;
        }
    }
    if (i < p.size() && (p[i] == 'E' || p[i] == 'e')) {
        pat.exponent = true;
        if (++i >= p.size() || (p[i] != '+' && p[i] != '-')) throw bad();
        pat.expPlus = p[i] == '+';
        for (++i; i < p.size() && p[i] == '0'; ++i) ++pat.expDigits;
        if (pat.expDigits == 0 || pat.intPlaces != 1) throw bad();
    }
    if (i != p.size() || pat.intPlaces + pat.fracPlaces == 0) throw bad();
    return pat;
}

std::string FractionText(const Decimal& d, long first, const Pattern& pat) {
    std::string frac;
    for (int j = 0; j < pat.fracPlaces; ++j) frac.push_back(DigitAt(d, first + j));
    while (static_cast<int>(frac.size()) > pat.fracMin && frac.back() == '0') frac.pop_back();
    return frac;
}

}  // namespace

std::string NumToText(double v) {
    return GeneralText(v, 15);
}

std::string NumToTextSingle(float v) {
    return GeneralText(v, 7);
}

std::string FormatNumber(double v, std::string_view pattern) {
    Pattern pat = ParsePattern(pattern);
    if (!std::isfinite(v)) return NonFiniteText(v);
    Decimal d = ToDecimal(std::fabs(v));
    std::string body;
    if (pat.exponent) {
        RoundDigits(d, 1 + pat.fracPlaces);
        int exp = d.digits.empty() ? 0 : d.exp10 - 1;
        body.push_back(DigitAt(d, 0));
        if (pat.point) body += "." + FractionText(d, 1, pat);
        body.push_back(pattern[static_cast<size_t>(pat.intPlaces + pat.point + pat.fracPlaces)]);
        if (exp < 0)
            body.push_back('-');
        else if (pat.expPlus)
            body.push_back('+');
        std::string e = std::to_string(std::abs(exp));
        if (static_cast<int>(e.size()) < pat.expDigits)
            e.insert(0, static_cast<size_t>(pat.expDigits) - e.size(), '0');
        body += e;
    } else {
        RoundDigits(d, d.exp10 + pat.fracPlaces);
        std::string intText;
        for (long j = 0; j < d.exp10; ++j) intText.push_back(DigitAt(d, j));
        if (static_cast<int>(intText.size()) < pat.intZeros)
            intText.insert(0, static_cast<size_t>(pat.intZeros) - intText.size(), '0');
        body = intText;
        if (pat.point) body += "." + FractionText(d, d.exp10, pat);
    }
    bool negative = v < 0 && !d.digits.empty();
    return negative ? "-" + body : body;
}

std::optional<double> ParseNumber(std::string_view text) {
    static const NumberSeparators kFileForm;
    return ParseNumber(text, kFileForm);
}

std::optional<double> ParseNumber(std::string_view text, const NumberSeparators& seps) {
    const std::string_view decimal = seps.decimal;
    const std::string_view group = seps.group;
    auto blank = [](char c) { return c == ' ' || c == '\t'; };
    size_t b = 0, e = text.size();
    while (b < e && blank(text[b])) ++b;
    while (e > b && blank(text[e - 1])) --e;
    std::string_view s = text.substr(b, e - b);
    auto digit = [](char c) { return c >= '0' && c <= '9'; };

    // The number is rewritten in from_chars' own form, "[-]digits[.digits]e[-]digits", without
    // grouping; it is never longer than the text plus a zero, the exponent letter and a
    // saturated exponent, so it fits on the stack unless the text is unusually long.
    char small[256];
    std::string large;
    char* out = small;
    if (s.size() + 16 > sizeof small) {
        large.resize(s.size() + 16);
        out = large.data();
    }
    size_t n = 0;

    size_t i = 0;
    bool negative = false;
    if (i < s.size() && (s[i] == '+' || s[i] == '-')) negative = s[i++] == '-';
    if (negative) out[n++] = '-';

    auto at = [&s](size_t pos, std::string_view mark) {
        return !mark.empty() && s.substr(pos).starts_with(mark);
    };
    const size_t intStart = n;
    while (i < s.size() && digit(s[i])) {
        out[n++] = s[i++];
        // A separator is looked for only where the digits stop.
        if (i < s.size() && !digit(s[i]) && at(i, group) && i + group.size() < s.size() &&
            digit(s[i + group.size()]))
            i += group.size();
    }
    const std::string_view intDigits(out + intStart, n - intStart);
    if (intDigits.empty()) out[n++] = '0';
    std::string_view fracDigits;
    if (at(i, decimal)) {
        const size_t point = n++;
        out[point] = '.';
        for (i += decimal.size(); i < s.size() && digit(s[i]); ++i) out[n++] = s[i];
        fracDigits = std::string_view(out + point + 1, n - point - 1);
        if (fracDigits.empty()) n = point;  // a point without digits is not written
    }
    if (intDigits.empty() && fracDigits.empty()) return std::nullopt;

    long exp = 0;
    if (i < s.size() && (s[i] == 'e' || s[i] == 'E')) {
        ++i;
        bool expNegative = false;
        if (i < s.size() && (s[i] == '+' || s[i] == '-')) expNegative = s[i++] == '-';
        if (i >= s.size() || !digit(s[i])) return std::nullopt;
        // Saturated: far beyond any double's range either way, and no overflow of our own.
        for (; i < s.size() && digit(s[i]); ++i) exp = std::min(exp * 10 + (s[i] - '0'), 100000L);
        if (expNegative) exp = -exp;
    }
    if (i != s.size()) return std::nullopt;

    out[n++] = 'e';
    n = static_cast<size_t>(std::to_chars(out + n, out + n + 8, exp).ptr - out);

    double value = 0;
    auto res = std::from_chars(out, out + n, value, std::chars_format::general);
    if (res.ec == std::errc::result_out_of_range) {
        // Tell overflow from underflow by the decimal order of the first significant digit.
        size_t nz = intDigits.find_first_not_of('0');
        long order;
        if (nz != std::string::npos) {
            order = static_cast<long>(intDigits.size() - nz) - 1 + exp;
        } else {
            size_t fz = fracDigits.find_first_not_of('0');
            if (fz == std::string::npos) return negative ? -0.0 : 0.0;
            order = -static_cast<long>(fz) - 1 + exp;
        }
        if (order >= 0) return std::nullopt;
        return negative ? -0.0 : 0.0;
    }
    if (res.ec != std::errc() || !std::isfinite(value)) return std::nullopt;
    return value;
}

bool IsNumeric(std::string_view text) {
    return ParseNumber(text).has_value();
}

bool IsNumeric(std::string_view text, const NumberSeparators& seps) {
    return ParseNumber(text, seps).has_value();
}

std::string NumToText(double v, const NumberSeparators& seps) {
    std::string text = NumToText(v);
    const std::size_t point = text.find('.');
    if (point != std::string::npos) text.replace(point, 1, seps.decimal);
    return text;
}

std::string NumToTextSingle(float v, const NumberSeparators& seps) {
    std::string text = NumToTextSingle(v);
    const std::size_t point = text.find('.');
    if (point != std::string::npos) text.replace(point, 1, seps.decimal);
    return text;
}

}  // namespace qdf
