#pragma once
// The self-test: the published verification values of the property standards, compiled into the
// program, recomputed by the libraries this copy of the program runs on. Each case names its
// standard, its table and its tolerance; a line per standard sums them up.

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace qdf::flowcheck {

struct SelfTestCase {
    std::string standard;  // "IAPWS-IF97", ...
    std::string table;     // where the values are printed
    std::string name;      // the table row and the quantity
    double expected = 0.0;
    double computed = 0.0;   // NaN when the library gave no value
    double tolerance = 0.0;  // absolute, from the printed digits or the standard's own check
    // |computed - expected| / tolerance: within 1 passes.
    double Deviation() const;
    bool Passed() const { return Deviation() <= 1.0; }
};

struct SelfTestLine {
    std::string standard;
    std::size_t cases = 0;
    std::size_t passed = 0;
    double worstDeviation = 0.0;  // in units of the case's tolerance
    std::string worstCase;
};

struct SelfTestSuite {
    const char* key;  // for --table KEY=FILE
    const char* standard;
    const char* table;
    const char* file;  // the compiled-in table
};

// The suites in the order they run and print.
const std::vector<SelfTestSuite>& SelfTestSuites();

// Every case. `tableText` gives a suite's table text (the compiled-in copy unless a caller
// supplies another, as `qdf selftest --table` does); a table that cannot be read gives one
// failing case naming the fault.
std::vector<SelfTestCase> RunSelfTest(
    const std::function<std::string(const SelfTestSuite&)>& tableText = {});

// A table source for RunSelfTest: the files given by suite key (a copy under review, say),
// the compiled-in tables for the rest. Throws std::invalid_argument for a key no suite has.
std::function<std::string(const SelfTestSuite&)> TablesFromFiles(
    const std::map<std::string, std::string>& files);

// One line per standard, in suite order.
std::vector<SelfTestLine> SummarizeSelfTest(const std::vector<SelfTestCase>& cases);

// The compiled-in copy of a table by its file name; empty when there is none.
std::string_view CompiledTable(const SelfTestSuite& suite);

}  // namespace qdf::flowcheck
