#pragma once
// The line form shared by the parameter files (and usable by the report): comma-separated
// fields, strings in double quotes, numbers bare with a point, CR LF line ends, Windows-1252 on
// disk. Writers build the text in memory and write it in one go; readers take the whole file
// as lines and address rows by position only.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qdf {

class clsExGlobalVars;

// A double with full precision in its shortest form that reads back exactly: fixed notation
// where that is shorter, exponent form otherwise ("1e-05", "-999999", "0.1").
std::string ShortestDouble(double v);

// One line being built. Add* append a field, separated by a comma from the previous one.
class LineBuilder {
  public:
    // A string in double quotes; an embedded quote is doubled so spreadsheets keep the text.
    LineBuilder& Str(std::string_view text);
    LineBuilder& Dbl(double v);
    LineBuilder& Int(std::int64_t v);
    // The line ends here: CR LF appended to the text. A line with no field is a blank line.
    void End();

    // The whole text so far (UTF-8); Save converts it and replaces the file.
    const std::string& Text() const { return text_; }
    void Save(const std::string& path) const;

  private:
    void Sep();
    std::string text_;
    bool first_ = true;
};

// Splits text at CR LF, a lone CR or a lone LF; the text after the last line end forms a last
// line only when it is not empty. Bytes are Windows-1252, returned as UTF-8.
std::vector<std::string> SplitLines(std::string_view ansiText);
// The file's lines; throws FileAccessError when it cannot be opened.
std::vector<std::string> ReadLines(const std::string& path);
// The file's bytes as they stand; throws FileAccessError when it cannot be opened.
std::string ReadFileBytes(const std::string& path);
// A text importer run over the file's bytes; a file that cannot be read, or any other
// failure, gives 1.
std::int32_t ImportFromFile(clsExGlobalVars& store, const std::string& path,
                            std::int32_t (*importText)(clsExGlobalVars&, std::string_view));
// Replaces the file with the UTF-8 text in Windows-1252; FileAccessError when it can't be
// opened for writing.
void SaveText(const std::string& utf8, const std::string& path);

// What follows the first comma of a row, or the whole row when it has none.
std::string_view CellOf(std::string_view row);
// The fields between commas (a row without commas is one field; quotes are not special).
std::vector<std::string_view> SplitFields(std::string_view row);
// The text without one enclosing pair of double quotes (each end is dropped if it is a quote).
std::string_view WithoutQuotes(std::string_view text);

// Number conversion of a cell by the general numeric test; throws std::invalid_argument for a
// text that is no number.
double CellToDouble(std::string_view cell);
// The same, rounded half to even to a 32-bit integer; std::overflow_error outside its range.
std::int32_t CellToInt32(std::string_view cell);
std::int16_t CellToInt16(std::string_view cell);

}  // namespace qdf
