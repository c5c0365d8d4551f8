#pragma once
// One qdf command line run in-process, with what it printed.

#include <sstream>
#include <string>
#include <vector>

#include "Cli.h"

namespace qdf::test {

struct QdfRun {
    int rc;
    std::string out, err;
};

inline QdfRun Qdf(const std::vector<std::string>& args) {
    std::istringstream in;
    std::ostringstream out, err;
    const int rc = qdf::cli::run(args, {in, out, err});
    return {rc, out.str(), err.str()};
}

}  // namespace qdf::test
