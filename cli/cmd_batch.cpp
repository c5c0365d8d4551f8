// qdf batch LIST.csv --out DIR [--device-kind HART|FFH1]: the instrument list configured
// through the wizard's pages by qdf-batch, the program beside this one.

#include "Commands.h"
#include "Sibling.h"

namespace qdf::cli {

int cmdBatch(const std::vector<std::string>& args, Io io) {
    return RunSibling("batch", "qdf-batch", args, io);
}

}  // namespace qdf::cli
