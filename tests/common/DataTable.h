// Reference tables kept as text files beside the tests: comma-separated, '#' starts a comment
// line, the first other line names the columns. A cell may be double-quoted ("" is a quote) to
// hold a comma. A missing file, a short row or a cell that is not wholly a number throws, so a
// damaged table fails loudly instead of checking fewer rows.
#ifndef TESTS_COMMON_DATATABLE_H
#define TESTS_COMMON_DATATABLE_H

#include <gtest/gtest.h>

#include <cctype>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

namespace qdf::testdata {

class Row {
  public:
    Row(std::shared_ptr<const std::vector<std::string>> header, std::vector<std::string> cells,
        std::string where, int line)
        : header_(std::move(header)),
          cells_(std::move(cells)),
          where_(std::move(where)),
          line_(line) {}

    const std::string& text(const std::string& column) const {
        for (std::size_t i = 0; i < header_->size(); ++i)
            if ((*header_)[i] == column) return cells_[i];
        throw std::out_of_range(where_ + ": no column " + column);
    }
    bool has(const std::string& column) const { return !text(column).empty(); }
    double num(const std::string& column) const {
        const std::string& t = text(column);
        char* end = nullptr;
        const double v = std::strtod(t.c_str(), &end);
        if (t.empty() || *end != '\0')
            throw std::invalid_argument(where_ + ": " + column + "=" + t);
        return v;
    }
    std::int32_t integer(const std::string& column) const {
        const double v = num(column);
        if (v != static_cast<std::int32_t>(v)) throw std::invalid_argument(where_ + ": " + column);
        return static_cast<std::int32_t>(v);
    }
    // "file:line first-cell", for failure messages.
    const std::string& where() const { return where_; }
    const std::string& first() const { return cells_.front(); }
    int line() const { return line_; }

  private:
    std::shared_ptr<const std::vector<std::string>> header_;
    std::vector<std::string> cells_;
    std::string where_;
    int line_;
};

inline void PrintTo(const Row& row, std::ostream* os) {
    *os << row.where();
}

inline std::vector<std::string> SplitCells(const std::string& line) {
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

// path: from the repository root, e.g. "tests/model/data/bag_keys.csv".
inline std::vector<Row> Load(const std::string& path) {
    std::ifstream in(std::string(QDF_SOURCE_DIR) + "/" + path);
    if (!in) throw std::runtime_error("cannot open " + path);
    std::shared_ptr<std::vector<std::string>> header;
    std::vector<Row> rows;
    std::string line;
    for (int number = 1; std::getline(in, line); ++number) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (line.empty() || line[0] == '#') continue;
        std::vector<std::string> cells = SplitCells(line);
        if (!header) {
            header = std::make_shared<std::vector<std::string>>(std::move(cells));
            continue;
        }
        const std::string where = path + ":" + std::to_string(number) + " " + cells.front();
        if (cells.size() != header->size()) throw std::runtime_error(where + ": cell count");
        rows.emplace_back(header, std::move(cells), where, number);
    }
    if (rows.empty()) throw std::runtime_error(path + ": no rows");
    return rows;
}

// A parameterised test's name: the row's first cell and its line, in letters, digits and '_'.
inline std::string RowName(const ::testing::TestParamInfo<Row>& info) {
    std::string name = info.param.first() + "_line" + std::to_string(info.param.line());
    for (char& c : name)
        if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
    return name;
}

}  // namespace qdf::testdata

#endif
