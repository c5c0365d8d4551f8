// Arbitrary text through the numeric test, the number formats and the code page conversion:
// none may crash, and what one writes the other must read back.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>

#include "AnsiText.h"
#include "NumberText.h"

namespace {

const char* const kPatterns[] = {"##0.########",   "##0.#######",     "####0.########",
                                 "###0.########",  "#####0.########", "########",
                                 "#.########E+00", "#.########E-00"};

void CheckNumber(double v) {
    // Near the top of the range the 15-digit text lies beyond the largest double and rightly
    // does not read back.
    if (!std::isfinite(v) || std::fabs(v) > 1e308) return;
    std::optional<double> back = qdf::ParseNumber(qdf::NumToText(v));
    if (!back || std::fabs(*back - v) > std::fabs(v) * 1e-14) std::abort();
    for (const char* p : kPatterns) {
        std::string text = qdf::FormatNumber(v, p);
        if (!text.empty() && !qdf::IsNumeric(text)) std::abort();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::string text(reinterpret_cast<const char*>(data), size);

    std::optional<double> v = qdf::ParseNumber(text);
    if (v.has_value() != qdf::IsNumeric(text)) std::abort();
    if (v) CheckNumber(*v);

    if (size >= sizeof(double)) {  // the raw bits as a value: subnormals, NaN, extremes
        double raw;
        std::memcpy(&raw, data, sizeof raw);
        CheckNumber(raw);
    }

    if (qdf::Utf8ToAnsi(qdf::AnsiToUtf8(text)) != text) std::abort();
    if (qdf::Utf8ToAnsi(text).size() > size) std::abort();
    return 0;
}
