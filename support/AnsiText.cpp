#include "AnsiText.h"

#include <array>
#include <cstdint>
#include <cstring>

namespace qdf {

namespace {

// Code points of 0x80-0x9F. The unassigned bytes map to themselves.
constexpr char32_t kHighControls[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  // 0x80
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,  // 0x88
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 0x90
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,  // 0x98
};

// Every byte's UTF-8 form, padded to three bytes, and its length: converting a byte is one
// look-up and three stores, with no test on the byte.
struct Utf8Form {
    char bytes[3];
    unsigned char size;
};

constexpr std::array<Utf8Form, 256> MakeUtf8Forms() {
    std::array<Utf8Form, 256> forms{};
    for (unsigned b = 0; b < 256; ++b) {
        const char32_t cp = b >= 0x80 && b < 0xA0 ? kHighControls[b - 0x80] : char32_t{b};
        Utf8Form& f = forms[b];
        if (cp < 0x80) {
            f = {{static_cast<char>(cp), 0, 0}, 1};
        } else if (cp < 0x800) {
            f = {{static_cast<char>(0xC0 | (cp >> 6)), static_cast<char>(0x80 | (cp & 0x3F)), 0},
                 2};
        } else {
            f = {
                {static_cast<char>(0xE0 | (cp >> 12)), static_cast<char>(0x80 | ((cp >> 6) & 0x3F)),
                 static_cast<char>(0x80 | (cp & 0x3F))},
                3};
        }
    }
    return forms;
}

constexpr std::array<Utf8Form, 256> kUtf8Forms = MakeUtf8Forms();

// The first byte from 0x80 up, or the text's size when it is plain ASCII. Eight bytes at a time
// while none has its top bit set.
std::size_t FirstHighByte(std::string_view text) {
    std::size_t i = 0;
    for (std::uint64_t word; i + 8 <= text.size(); i += 8) {
        std::memcpy(&word, text.data() + i, 8);
        if (word & 0x8080808080808080u) break;
    }
    while (i < text.size() && static_cast<unsigned char>(text[i]) < 0x80) ++i;
    return i;
}

// Converted a piece at a time on the stack and appended, so the text is never zero-filled
// first; the room reserved is what the longest forms (three bytes a byte) could take.
void ConvertInto(std::string& out, std::string_view ansi, std::size_t asciiPrefix) {
    constexpr std::size_t kPiece = 64;
    std::string_view high = ansi.substr(asciiPrefix);
    out.reserve(asciiPrefix + 3 * high.size());
    out.assign(ansi.substr(0, asciiPrefix));
    char converted[3 * kPiece];
    while (!high.empty()) {
        const std::string_view piece = high.substr(0, kPiece);
        char* p = converted;
        for (char c : piece) {
            const Utf8Form& f = kUtf8Forms[static_cast<unsigned char>(c)];
            p[0] = f.bytes[0];
            p[1] = f.bytes[1];
            p[2] = f.bytes[2];
            p += f.size;
        }
        out.append(converted, p);
        high.remove_prefix(piece.size());
    }
}

char AnsiOf(char32_t cp) {
    if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF)) return static_cast<char>(cp);
    for (int i = 0; i < 32; ++i)
        if (kHighControls[i] == cp) return static_cast<char>(0x80 + i);
    return '?';
}

}  // namespace

std::string AnsiToUtf8(std::string_view ansi) {
    std::string out;
    ConvertInto(out, ansi, FirstHighByte(ansi));
    return out;
}

std::string_view AnsiAsUtf8(std::string_view ansi, std::string& buffer) {
    const std::size_t ascii = FirstHighByte(ansi);
    if (ascii == ansi.size()) return ansi;
    ConvertInto(buffer, ansi, ascii);
    return buffer;
}

std::string Utf8ToAnsi(std::string_view utf8) {
    std::string out;
    out.reserve(utf8.size());
    size_t i = FirstHighByte(utf8);
    out.append(utf8.substr(0, i));
    const size_t n = utf8.size();
    auto byte = [&](size_t k) { return static_cast<unsigned char>(utf8[k]); };
    while (i < n) {
        unsigned char b = byte(i);
        int extra;
        char32_t cp;
        if (b < 0x80) {
            out.push_back(static_cast<char>(b));
            ++i;
            continue;
        } else if (b >= 0xC2 && b <= 0xDF) {
            extra = 1;
            cp = b & 0x1F;
        } else if (b >= 0xE0 && b <= 0xEF) {
            extra = 2;
            cp = b & 0x0F;
        } else if (b >= 0xF0 && b <= 0xF4) {
            extra = 3;
            cp = b & 0x07;
        } else {
            out.push_back('?');
            ++i;
            continue;
        }
        bool ok = i + static_cast<size_t>(extra) < n;
        for (int k = 1; ok && k <= extra; ++k) {
            unsigned char c = byte(i + static_cast<size_t>(k));
            if ((c & 0xC0) != 0x80) ok = false;
            cp = (cp << 6) | (c & 0x3F);
        }
        // Shortest form only, no surrogates, nothing beyond the last plane.
        constexpr char32_t kMin[4] = {0, 0x80, 0x800, 0x10000};
        if (!ok || cp < kMin[extra] || (cp >= 0xD800 && cp <= 0xDFFF) || cp > 0x10FFFF) {
            out.push_back('?');
            ++i;
            continue;
        }
        out.push_back(AnsiOf(cp));
        i += static_cast<size_t>(extra) + 1;
    }
    return out;
}

}  // namespace qdf
