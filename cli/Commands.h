#pragma once
// The subcommands of qdf; each lives in its own cmd_*.cpp.

#include <span>
#include <string>
#include <vector>

#include "Cli.h"

namespace qdf::flowcheck {
struct FlowCheckResult;
}

namespace qdf::cli {

struct Command {
    const char* name;
    int (*run)(const std::vector<std::string>& args, Io io);
    const char* usage;  // the command's arguments, after "qdf NAME "
    const char* help;   // what it does, in lines of at most 78 characters
};

// qdf check with its arguments; the result, when asked for, is the check it printed.
int RunCheck(const std::vector<std::string>& args, Io io, flowcheck::FlowCheckResult* result);

// Every subcommand that this build carries (defined in cmd_table.cpp).
std::span<const Command> commands();

}  // namespace qdf::cli
