// Reference tables kept as text files beside the tests, in the form support/TextTable.h reads;
// a missing file throws too.
#ifndef TESTS_COMMON_DATATABLE_H
#define TESTS_COMMON_DATATABLE_H

#include <gtest/gtest.h>

#include <cctype>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <memory>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "TextTable.h"

// In the row's own namespace, where GoogleTest looks for it: a failing row prints as its place.
namespace qdf::table {
inline void PrintTo(const Row& row, std::ostream* os) {
    *os << row.where();
}
}  // namespace qdf::table

namespace qdf::testdata {

using qdf::table::Row;
using qdf::table::SplitCells;

// path: from the repository root, e.g. "tests/model/data/bag_keys.csv".
inline std::vector<Row> Load(const std::string& path) {
    std::ifstream in(std::string(QDF_SOURCE_DIR) + "/" + path, std::ios::binary);
    if (!in) throw std::runtime_error("cannot open " + path);
    const std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    return qdf::table::Parse(text, path);
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
