#pragma once
// Runs a program installed beside qdf (the parts that need the toolkit, which qdf does without)
// and passes its standard output through.

#include <string>
#include <vector>

#include "Cli.h"

namespace qdf::cli {

// The exit code of `program` run with `args`; 2 when it is missing or cannot start, with the
// reason on io.err under `command`'s name.
int RunSibling(const std::string& command, const std::string& program,
               const std::vector<std::string>& args, Io io);

}  // namespace qdf::cli
