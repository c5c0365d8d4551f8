#include "TextTable.h"

#include <cmath>
#include <cstdlib>
#include <stdexcept>

namespace qdf::table {

Row::Row(std::shared_ptr<const std::vector<std::string>> header, std::vector<std::string> cells,
         std::string where, int line)
    : header_(std::move(header)), cells_(std::move(cells)), where_(std::move(where)), line_(line) {}

const std::string& Row::text(const std::string& column) const {
    for (std::size_t i = 0; i < header_->size(); ++i)
        if ((*header_)[i] == column) return cells_[i];
    throw std::out_of_range(where_ + ": no column " + column);
}

double Row::num(const std::string& column) const {
    const std::string& t = text(column);
    char* end = nullptr;
    const double v = std::strtod(t.c_str(), &end);
    if (t.empty() || *end != '\0') throw std::invalid_argument(where_ + ": " + column + "=" + t);
    return v;
}

std::int32_t Row::integer(const std::string& column) const {
    const double v = num(column);
    if (v != static_cast<std::int32_t>(v)) throw std::invalid_argument(where_ + ": " + column);
    return static_cast<std::int32_t>(v);
}

std::vector<std::string> SplitCells(std::string_view line) {
    std::vector<std::string> cells(1);
    bool quoted = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const char c = line[i];
        if (quoted && c == '"' && i + 1 < line.size() && line[i + 1] == '"') {
            cells.back() += '"';
            ++i;
        } else if (c == '"') {
            quoted = !quoted;
        } else if (c == ',' && !quoted) {
            cells.emplace_back();
        } else {
            cells.back() += c;
        }
    }
    return cells;
}

std::vector<Row> Parse(std::string_view text, const std::string& name) {
    std::shared_ptr<std::vector<std::string>> header;
    std::vector<Row> rows;
    int number = 0;
    while (!text.empty()) {
        ++number;
        const auto eol = text.find('\n');
        std::string_view line = text.substr(0, eol);
        text.remove_prefix(eol == std::string_view::npos ? text.size() : eol + 1);
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        if (line.empty() || line[0] == '#') continue;
        std::vector<std::string> cells = SplitCells(line);
        if (!header) {
            header = std::make_shared<std::vector<std::string>>(std::move(cells));
            continue;
        }
        std::string where = name + ":" + std::to_string(number) + " " + cells.front();
        if (cells.size() != header->size()) throw std::runtime_error(where + ": cell count");
        rows.emplace_back(header, std::move(cells), std::move(where), number);
    }
    if (rows.empty()) throw std::runtime_error(name + ": no rows");
    return rows;
}

double HalfUnitInLastDigit(std::string_view printed) {
    const std::string_view mantissa = printed.substr(0, printed.find_first_of("eE"));
    int digits = 0;
    bool leading = true;
    for (char c : mantissa) {
        if (c < '0' || c > '9') continue;
        if (leading && c == '0') continue;
        leading = false;
        ++digits;
    }
    const double v = std::fabs(std::strtod(std::string(printed).c_str(), nullptr));
    const int magnitude = static_cast<int>(std::floor(std::log10(v)));
    return 0.5 * std::pow(10.0, magnitude - digits + 1);
}

}  // namespace qdf::table
