#include "Cli.h"

#include <charconv>
#include <cstdio>
#include <ostream>
#include <sstream>

#include "Commands.h"

namespace qdf::cli {

namespace {

std::string UsageLine(const Command& c) {
    return std::string("qdf ") + c.name + (*c.usage ? " " : "") + c.usage;
}

// The whole help with `full`: each command's text under its usage line, indented, which is
// also what the manual page is made from.
void Usage(std::ostream& out, bool full) {
    out << "Usage: qdf COMMAND [ARGUMENTS]\n"
           "Flow configuration of QDF300 transmitters: property calculator, calculation and\n"
           "inspection of saved configurations, headless wizard and batch configuration.\n\n"
           "Commands:\n";
    for (const Command& c : commands()) {
        out << "  " << UsageLine(c) << "\n";
        if (!full) continue;
        std::istringstream lines(c.help);
        for (std::string line; std::getline(lines, line);) out << "      " << line << "\n";
        out << "\n";
    }
    out << (full ? "" : "\n")
        << "  qdf help COMMAND   what a command does (also qdf COMMAND --help)\n"
        << "  qdf --version\n";
}

void CommandHelp(std::ostream& out, const Command& c) {
    out << "Usage: " << UsageLine(c) << "\n\n" << c.help;
}

const Command* Find(const std::string& name) {
    for (const Command& c : commands())
        if (name == c.name) return &c;
    return nullptr;
}

}  // namespace

// Not printf: a Qt program runs under the user's C locale, and a printed row must not change
// its decimal point with the desktop.
std::string number(double v) {
    char buf[40];
    const auto res = std::to_chars(buf, buf + sizeof buf, v, std::chars_format::general, 17);
    return std::string(buf, res.ptr);
}

int run(const std::vector<std::string>& args, Io io) {
    if (args.empty()) {
        Usage(io.err, false);
        return 2;
    }
    const std::string& cmd = args[0];
    const std::vector<std::string> rest(args.begin() + 1, args.end());
    if (cmd == "--version" || cmd == "version") {
        io.out << "qdf " << QDF_VERSION << "\n";
        return 0;
    }
    if (cmd == "--help" || cmd == "-h" || cmd == "help") {
        if (rest.empty()) {
            Usage(io.out, true);
            return 0;
        }
        if (const Command* c = Find(rest[0])) {
            CommandHelp(io.out, *c);
            return 0;
        }
        io.err << "qdf: unknown command '" << rest[0] << "'\n";
        return 2;
    }
    const Command* c = Find(cmd);
    if (!c) {
        io.err << "qdf: unknown command '" << cmd << "'\n";
        Usage(io.err, false);
        return 2;
    }
    if (rest.size() == 1 && (rest[0] == "--help" || rest[0] == "-h")) {
        CommandHelp(io.out, *c);
        return 0;
    }
    return c->run(rest, io);
}

}  // namespace qdf::cli
