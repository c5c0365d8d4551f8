#include "Sibling.h"

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <climits>
#include <cstdio>
#include <ostream>

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

std::string SiblingPath(const std::string& program) {
    std::array<char, PATH_MAX> buf{};
    const ssize_t n = readlink("/proc/self/exe", buf.data(), buf.size() - 1);
    if (n <= 0) return program;
    std::string self(buf.data(), static_cast<std::size_t>(n));
    const auto slash = self.rfind('/');
    return self.substr(0, slash + 1) + program;
}

}  // namespace

int RunSibling(const std::string& command, const std::string& program,
               const std::vector<std::string>& args, Io io) {
    const std::string path = SiblingPath(program);
    if (access(path.c_str(), X_OK) != 0) {
        io.err << "qdf " << command << ": " << path
               << " is missing (built with the Qt parts only)\n";
        return 2;
    }
    std::string line = ShellQuote(path);
    for (const std::string& a : args) line += " " + ShellQuote(a);
    FILE* pipe = popen(line.c_str(), "r");
    if (!pipe) {
        io.err << "qdf " << command << ": cannot start " << path << "\n";
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
