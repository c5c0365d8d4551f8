// qdf wizard: runs the headless wizard (the qdf-wizard program beside this one, which needs the
// toolkit this tool does without) and passes its output through.

#include "Commands.h"
#include "Sibling.h"

namespace qdf::cli {

int cmdWizard(const std::vector<std::string>& args, Io io) {
    return RunSibling("wizard", "qdf-wizard", args, io);
}

}  // namespace qdf::cli
