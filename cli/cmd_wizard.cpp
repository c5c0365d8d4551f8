// qdf wizard: runs the headless wizard (the qdf-wizard program beside this one, which needs the
// toolkit this tool does without) and passes its output through.

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <climits>
#include <cstdio>
#include <ostream>
#include <string>
#include <vector>

#include "Cli.h"

namespace qdf::cli {

namespace {

std::string ShellQuote(const std::string& s) {
    std::string q = "'";
    for (char c : s) {
        if (c == '\'')
            q += "'\\''";
        else
            q += c;
    }
    return q + "'";
}

std::string HelperPath() {
    std::array<char, PATH_MAX> buf{};
    const ssize_t n = readlink("/proc/self/exe", buf.data(), buf.size() - 1);
    if (n <= 0) return "qdf-wizard";
    std::string self(buf.data(), static_cast<std::size_t>(n));
    const auto slash = self.rfind('/');
    return self.substr(0, slash + 1) + "qdf-wizard";
}

}  // namespace

int cmdWizard(const std::vector<std::string>& args, Io io) {
    const std::string helper = HelperPath();
    if (access(helper.c_str(), X_OK) != 0) {
        io.err << "qdf wizard: " << helper << " is missing (built with the Qt parts only)\n";
        return 2;
    }
    std::string command = ShellQuote(helper);
    for (const std::string& a : args) command += " " + ShellQuote(a);
    FILE* pipe = popen(command.c_str(), "r");
    if (!pipe) {
        io.err << "qdf wizard: cannot start " << helper << "\n";
        return 2;
    }
    std::array<char, 4096> chunk{};
    std::size_t got;
    while ((got = std::fread(chunk.data(), 1, chunk.size(), pipe)) > 0)
        io.out.write(chunk.data(), static_cast<std::streamsize>(got));
    const int status = pclose(pipe);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 1;
}

}  // namespace qdf::cli
