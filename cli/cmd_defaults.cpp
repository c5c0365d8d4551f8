// qdf defaults: the store as a module opened with no persisted data holds it.

#include <ostream>

#include "Commands.h"
#include "ModDefaults.h"
#include "StoreRegistry.h"
#include "clsExGlobalVars.h"

namespace qdf::cli {

int cmdDefaults(const std::vector<std::string>& args, Io io) {
    if (!args.empty()) {
        io.err << "usage: qdf defaults\n";
        return 2;
    }
    clsExGlobalVars store;
    InitializeDefaults(store);
    // One member per line, arrays on their line, so the output stays readable.
    const auto members = PersistedMembersToJson(store);
    io.out << "{";
    const char* sep = "\n";
    for (const auto& [name, value] : members.items()) {
        io.out << sep << "  " << nlohmann::ordered_json(name).dump() << ": " << value.dump();
        sep = ",\n";
    }
    io.out << "\n}\n";
    return 0;
}

}  // namespace qdf::cli
