#pragma once
// An instrument list for batch configuration: one row per tag, a header row naming the
// columns. Each good row becomes a wizard script that walks the real pages as a user would, so
// a row meets exactly the checks and messages of the pages. Qt-free: the playing is elsewhere.

#include <cstddef>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

namespace qdf::cli {

// What a row cannot be turned into a script for: the line of the file (1 is the header), the
// column's name (empty for the row as a whole) and what is wrong.
struct ListError {
    std::size_t line = 0;
    std::string column;
    std::string text;
};

struct InstrumentRow {
    std::size_t line = 0;
    std::string tag;
    nlohmann::json script;  // {"steps": [...]} in the form the frame's script player takes
};

struct InstrumentList {
    std::vector<InstrumentRow> rows;
    std::vector<ListError> errors;  // rows left out, in file order
    // A list that cannot be read at all (no header, an unknown column): the first error.
    bool unusable = false;
};

// The columns a list may have, in the order the README documents them.
const std::vector<std::string>& BatchColumns();

// Reads the list's text (UTF-8, comma-separated, fields may be double-quoted with "" for a
// quote, CR LF or LF line ends, blank lines and lines starting with "#" skipped). `listFolder`
// resolves relative file names of custom tables.
InstrumentList ParseInstrumentList(const std::string& text, const std::string& listFolder);

// Splits one line into fields; false for an unterminated quote.
bool SplitCsvLine(const std::string& line, std::vector<std::string>& fields);

// A tag as a file name: characters other than letters, digits, "-", "_" and "." become "_".
std::string TagFileName(const std::string& tag);

}  // namespace qdf::cli
