#include "LineForm.h"

#include <charconv>
#include <cmath>
#include <fstream>
#include <iterator>
#include <limits>
#include <stdexcept>

#include "AnsiText.h"
#include "FileErrors.h"
#include "NumberText.h"

namespace qdf {

std::string ShortestDouble(double v) {
    char buf[64];
    const auto res = std::to_chars(buf, buf + sizeof buf, v);
    return std::string(buf, res.ptr);
}

void LineBuilder::Sep() {
    if (!first_) text_ += ',';
    first_ = false;
}

LineBuilder& LineBuilder::Str(std::string_view text) {
    Sep();
    text_ += '"';
    for (char ch : text) {
        if (ch == '"') text_ += '"';
        text_ += ch;
    }
    text_ += '"';
    return *this;
}

LineBuilder& LineBuilder::Dbl(double v) {
    Sep();
    text_ += ShortestDouble(v);
    return *this;
}

LineBuilder& LineBuilder::Int(std::int64_t v) {
    Sep();
    text_ += std::to_string(v);
    return *this;
}

void LineBuilder::End() {
    text_ += "\r\n";
    first_ = true;
}

void LineBuilder::Save(const std::string& path) const {
    SaveText(text_, path);
}

void SaveText(const std::string& utf8, const std::string& path) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    if (!out) throw FileAccessError(path);
    const std::string ansi = Utf8ToAnsi(utf8);
    out.write(ansi.data(), static_cast<std::streamsize>(ansi.size()));
    out.close();
    if (!out) throw std::runtime_error("write failed: " + path);
}

std::vector<std::string> SplitLines(std::string_view ansiText) {
    std::vector<std::string> lines;
    std::size_t start = 0;
    const std::size_t n = ansiText.size();
    for (std::size_t i = 0; i < n; ++i) {
        const char ch = ansiText[i];
        if (ch != '\r' && ch != '\n') continue;
        lines.push_back(AnsiToUtf8(ansiText.substr(start, i - start)));
        if (ch == '\r' && i + 1 < n && ansiText[i + 1] == '\n') ++i;
        start = i + 1;
    }
    if (start < n) lines.push_back(AnsiToUtf8(ansiText.substr(start)));
    return lines;
}

std::string ReadFileBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) throw FileAccessError(path);
    return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

std::vector<std::string> ReadLines(const std::string& path) {
    return SplitLines(ReadFileBytes(path));
}

std::int32_t ImportFromFile(clsExGlobalVars& store, const std::string& path,
                            std::int32_t (*importText)(clsExGlobalVars&, std::string_view)) {
    try {
        return importText(store, ReadFileBytes(path));
    } catch (const std::exception&) {
        return 1;
    }
}

std::string_view CellOf(std::string_view row) {
    const auto comma = row.find(',');
    return comma == std::string_view::npos ? row : row.substr(comma + 1);
}

std::vector<std::string_view> SplitFields(std::string_view row) {
    std::vector<std::string_view> fields;
    std::size_t start = 0;
    for (;;) {
        const auto comma = row.find(',', start);
        if (comma == std::string_view::npos) {
            fields.push_back(row.substr(start));
            return fields;
        }
        fields.push_back(row.substr(start, comma - start));
        start = comma + 1;
    }
}

std::string_view WithoutQuotes(std::string_view text) {
    if (!text.empty() && text.front() == '"') text.remove_prefix(1);
    if (!text.empty() && text.back() == '"') text.remove_suffix(1);
    return text;
}

double CellToDouble(std::string_view cell) {
    const auto v = ParseNumber(cell);
    if (!v) throw std::invalid_argument("not a number: " + std::string(cell));
    return *v;
}

namespace {
template <class I>
I RoundToInt(std::string_view cell) {
    const double r = std::nearbyint(CellToDouble(cell));
    if (!(r >= static_cast<double>(std::numeric_limits<I>::min()) &&
          r <= static_cast<double>(std::numeric_limits<I>::max())))
        throw std::overflow_error("integer overflow: " + std::string(cell));
    return static_cast<I>(r);
}
}  // namespace

std::int32_t CellToInt32(std::string_view cell) {
    return RoundToInt<std::int32_t>(cell);
}
std::int16_t CellToInt16(std::string_view cell) {
    return RoundToInt<std::int16_t>(cell);
}

}  // namespace qdf
