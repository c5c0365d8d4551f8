#pragma once
// Reference tables as text: comma-separated, '#' starts a comment line, the first other line
// names the columns. A cell may be double-quoted ("" is a quote) to hold a comma. A short row or
// a cell that is not wholly a number throws, so a damaged table fails loudly instead of checking
// fewer rows. The tests read them from files, the self-test from the copies compiled in.

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace qdf::table {

class Row {
  public:
    Row(std::shared_ptr<const std::vector<std::string>> header, std::vector<std::string> cells,
        std::string where, int line);

    // Throws std::out_of_range for a column the table does not have.
    const std::string& text(const std::string& column) const;
    bool has(const std::string& column) const { return !text(column).empty(); }
    // Throws std::invalid_argument for an empty cell or one that is not wholly a number.
    double num(const std::string& column) const;
    std::int32_t integer(const std::string& column) const;
    // "table:line first-cell", for failure messages.
    const std::string& where() const { return where_; }
    const std::string& first() const { return cells_.front(); }
    int line() const { return line_; }

  private:
    std::shared_ptr<const std::vector<std::string>> header_;
    std::vector<std::string> cells_;
    std::string where_;
    int line_;
};

std::vector<std::string> SplitCells(std::string_view line);

// Every row of a table's text; `name` goes into each row's where(). Throws std::runtime_error
// on a row whose cell count differs from the header's, or a table without rows.
std::vector<Row> Parse(std::string_view text, const std::string& name);

// Half a unit in the last digit of a number as printed ("3.94913866e+01" gives 5e-8): the
// tolerance a value printed to so many digits carries.
double HalfUnitInLastDigit(std::string_view printed);

}  // namespace qdf::table
