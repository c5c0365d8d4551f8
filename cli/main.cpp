#include <iostream>

#include "Cli.h"

int main(int argc, char** argv) {
    std::vector<std::string> args(argv + 1, argv + argc);
    return qdf::cli::run(args, {std::cin, std::cout, std::cerr});
}
