#include "LineForm.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <fstream>
#include <iterator>
#include <limits>
#include <stdexcept>

#include "AnsiText.h"
#include "FileErrors.h"
#include "NumberText.h"
#include "StoreRegistry.h"

namespace qdf {

std::string ShortestDouble(double v) {
    char buf[64];
    const auto res = std::to_chars(buf, buf + sizeof buf, v);
    return std::string(buf, res.ptr);
}

// Each field goes in with one append where it can: its separator (none first on a line) is
// written in front of it.
LineBuilder& LineBuilder::Str(std::string_view text) {
    text_.append(first_ ? "\"" : ",\"");
    first_ = false;
    for (std::size_t quote; (quote = text.find('"')) != std::string_view::npos;) {
        text_.append(text.data(), quote + 1);
        text_ += '"';
        text.remove_prefix(quote + 1);
    }
    text_ += text;
    text_ += '"';
    return *this;
}

LineBuilder& LineBuilder::Dbl(double v) {
    char buf[64];
    buf[0] = ',';
    text_.append(first_ ? buf + 1 : buf, std::to_chars(buf + 1, std::end(buf), v).ptr);
    first_ = false;
    return *this;
}

LineBuilder& LineBuilder::Int(std::int64_t v) {
    char buf[24];
    buf[0] = ',';
    text_.append(first_ ? buf + 1 : buf, std::to_chars(buf + 1, std::end(buf), v).ptr);
    first_ = false;
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

LineReader::LineReader(std::string_view ansiText)
    : text_(AnsiAsUtf8(ansiText, utf8_)), cr_(Find('\r')), lf_(Find('\n')) {}

std::size_t LineReader::Find(char c) const {
    const std::size_t at = text_.find(c, pos_);
    return at == std::string_view::npos ? text_.size() : at;
}

std::string_view LineReader::Next() {
    if (cr_ < pos_) cr_ = Find('\r');
    if (lf_ < pos_) lf_ = Find('\n');
    const std::size_t end = std::min(cr_, lf_);
    const std::string_view line = text_.substr(pos_, end - pos_);
    pos_ = end;
    if (end == text_.size()) return line;
    // CR LF ends one line; an LF at the text's size is no LF.
    const bool crlf = end == cr_ && lf_ == end + 1 && lf_ < text_.size();
    pos_ += crlf ? 2 : 1;
    return line;
}

std::vector<std::string> SplitLines(std::string_view ansiText) {
    std::vector<std::string> lines;
    for (LineReader reader(ansiText); !reader.AtEnd();) lines.emplace_back(reader.Next());
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

std::string_view FieldReader::Next() {
    const auto comma = rest_.find(',');
    if (comma == std::string_view::npos) {
        done_ = true;
        return rest_;
    }
    const std::string_view field = rest_.substr(0, comma);
    rest_.remove_prefix(comma + 1);
    return field;
}

std::string_view WithoutQuotes(std::string_view text) {
    if (!text.empty() && text.front() == '"') text.remove_prefix(1);
    if (!text.empty() && text.back() == '"') text.remove_suffix(1);
    return text;
}

const MemberInfo& RowMember(std::string_view name, int dims) {
    const MemberInfo* m = FindMember(name);
    if (!m || m->dims != dims || m->kind == MemberKind::Link)
        throw std::logic_error("no store member " + std::string(name) + " of that shape");
    return *m;
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
