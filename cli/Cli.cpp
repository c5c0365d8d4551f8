#include "Cli.h"

#include <charconv>
#include <cstdio>
#include <ostream>

#include "Commands.h"

namespace qdf::cli {

namespace {

const char* const kUsage =
    "usage: qdf --version\n"
    "       qdf defaults\n"
    "       qdf prop OPERATION   (rows on standard input)\n"
    "       qdf qmv dump FILE.qmv | qdf qmv write IN.json OUT.qmv\n"
    "       qdf calc FILE.qmv [--xmtr F.csv] [--calc F.csv] [--ui F.csv] [--report F.csv]\n"
    "       qdf wizard --device DEVICE.json --script SCRIPT.json\n";

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
        io.err << kUsage;
        return 2;
    }
    const std::string& cmd = args[0];
    const std::vector<std::string> rest(args.begin() + 1, args.end());
    if (cmd == "--version" || cmd == "version") {
        io.out << "qdf " << QDF_VERSION << "\n";
        return 0;
    }
    for (const Command& c : commands()) {
        if (cmd == c.name) return c.run(rest, io);
    }
    io.err << "qdf: unknown command '" << cmd << "'\n" << kUsage;
    return 2;
}

}  // namespace qdf::cli
