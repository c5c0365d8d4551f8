// Check-value tables of tests/sndl_aga/data: comma-separated, '#' comment lines, one header.
#ifndef TESTS_SNDL_AGA_CASE_TABLE_H
#define TESTS_SNDL_AGA_CASE_TABLE_H

#include <cctype>
#include <cstdlib>
#include <fstream>
#include <ostream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

struct CaseRow {
    std::vector<std::string> names;
    std::vector<std::string> cells;

    const std::string& text(const std::string& name) const {
        for (size_t i = 0; i < names.size(); ++i) {
            if (names[i] == name) return cells.at(i);
        }
        throw std::out_of_range("no column " + name);
    }
    bool has(const std::string& name) const { return !text(name).empty(); }
    double num(const std::string& name) const { return std::strtod(text(name).c_str(), nullptr); }
};

// Failing parameterised tests name their row.
inline void PrintTo(const CaseRow& row, std::ostream* os) {
    *os << row.cells.at(0);
}

inline std::vector<CaseRow> loadCases(const std::string& file) {
    std::ifstream in(std::string(QDF_SOURCE_DIR) + "/tests/sndl_aga/data/" + file);
    std::vector<CaseRow> rows;
    std::vector<std::string> header;
    std::string line;
    while (std::getline(in, line)) {
        if (line.empty() || line[0] == '#') continue;
        std::vector<std::string> cells;
        std::stringstream ss(line);
        std::string cell;
        while (std::getline(ss, cell, ',')) cells.push_back(cell);
        if (line.back() == ',') cells.emplace_back();
        if (header.empty()) {
            header = cells;
        } else {
            cells.resize(header.size());
            rows.push_back({header, cells});
        }
    }
    return rows;
}

// A case id as a test name: letters, digits and underscores only.
inline std::string caseName(const std::string& id) {
    std::string out = id;
    for (char& c : out) {
        if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
    }
    return out;
}

#endif
