#pragma once
// The qdf command line tool, callable in-process so tests can run its commands.

#include <iosfwd>
#include <string>
#include <vector>

namespace qdf::cli {

struct Io {
    std::istream& in;
    std::ostream& out;
    std::ostream& err;
};

// Runs one command line (args without the program name); returns the process exit code.
int run(const std::vector<std::string>& args, Io io);

// Formats a number with 17 significant digits, as every numeric column of the tool.
std::string number(double v);

}  // namespace qdf::cli
