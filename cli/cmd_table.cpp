#include "Commands.h"

namespace qdf::cli {

// Each defined in its own cmd_*.cpp.
int cmdDefaults(const std::vector<std::string>& args, Io io);
int cmdProp(const std::vector<std::string>& args, Io io);
int cmdWizard(const std::vector<std::string>& args, Io io);
int cmdQmv(const std::vector<std::string>& args, Io io);
int cmdCalc(const std::vector<std::string>& args, Io io);
int cmdBatch(const std::vector<std::string>& args, Io io);
int cmdDiff(const std::vector<std::string>& args, Io io);

std::span<const Command> commands() {
    static const Command table[] = {
        {"defaults", cmdDefaults}, {"prop", cmdProp},   {"wizard", cmdWizard}, {"qmv", cmdQmv},
        {"calc", cmdCalc},         {"batch", cmdBatch}, {"diff", cmdDiff},
    };
    return table;
}

}  // namespace qdf::cli
