#pragma once
// The line form shared by the parameter files (and usable by the report): comma-separated
// fields, strings in double quotes, numbers bare with a point, CR LF line ends, Windows-1252 on
// disk. Writers build the text in memory and write it in one go; readers take the whole file
// as lines and address rows by position only.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qdf {

class clsExGlobalVars;
struct MemberInfo;

// A double with full precision in its shortest form that reads back exactly: fixed notation
// where that is shorter, exponent form otherwise ("1e-05", "-999999", "0.1").
std::string ShortestDouble(double v);

// One line being built. Add* append a field, separated by a comma from the previous one.
class LineBuilder {
  public:
    LineBuilder() = default;
    // Room for about that many bytes of text, so a whole file is built in one allocation.
    explicit LineBuilder(std::size_t capacity) { text_.reserve(capacity); }

    // A string in double quotes; an embedded quote is doubled so spreadsheets keep the text.
    LineBuilder& Str(std::string_view text);
    LineBuilder& Dbl(double v);
    LineBuilder& Int(std::int64_t v);
    // The line ends here: CR LF appended to the text. A line with no field is a blank line.
    void End();

    // The whole text so far (UTF-8); Save converts it and replaces the file.
    const std::string& Text() const { return text_; }
    // The text handed over without a copy; the builder is left empty.
    std::string TakeText() { return std::move(text_); }
    void Save(const std::string& path) const;

  private:
    std::string text_;
    bool first_ = true;
};

// Splits text at CR LF, a lone CR or a lone LF; the text after the last line end forms a last
// line only when it is not empty. Bytes are Windows-1252, returned as UTF-8.
std::vector<std::string> SplitLines(std::string_view ansiText);

// The lines of SplitLines one at a time, as views: the text is converted once, as a whole (or
// not at all when it is plain ASCII), and no line is copied. The views stay valid while the
// reader and the text it was given live; the reader cannot be copied or moved for that reason.
class LineReader {
  public:
    explicit LineReader(std::string_view ansiText);
    LineReader(const LineReader&) = delete;
    LineReader& operator=(const LineReader&) = delete;

    bool AtEnd() const { return pos_ == text_.size(); }
    // The next line without its end; only when not AtEnd.
    std::string_view Next();

  private:
    std::size_t Find(char c) const;

    std::string utf8_;
    std::string_view text_;
    std::size_t pos_ = 0;
    // The next CR and LF from pos_ on (the text's size when there is none). Each is searched
    // for again only once passed, so a text with one kind of line end is not searched to its
    // end for the other kind on every line.
    std::size_t cr_ = 0;
    std::size_t lf_ = 0;
};

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

// The fields of SplitFields one at a time, without a vector.
class FieldReader {
  public:
    explicit FieldReader(std::string_view row) : rest_(row) {}
    bool AtEnd() const { return done_; }
    // The next field; only when not AtEnd.
    std::string_view Next();

  private:
    std::string_view rest_;
    bool done_ = false;
};

// The text without one enclosing pair of double quotes (each end is dropped if it is a quote).
std::string_view WithoutQuotes(std::string_view text);

// The store member a row table names (dims 0 for a scalar, 1 for an array), looked up once when
// the table is built rather than per cell. A name the store lacks, or of the other shape, is an
// error in the table: std::logic_error.
const MemberInfo& RowMember(std::string_view name, int dims);

// Number conversion of a cell by the general numeric test; throws std::invalid_argument for a
// text that is no number.
double CellToDouble(std::string_view cell);
// The same, rounded half to even to a 32-bit integer; std::overflow_error outside its range.
std::int32_t CellToInt32(std::string_view cell);
std::int16_t CellToInt16(std::string_view cell);

}  // namespace qdf
