#include "FileCommandSupport.h"

#include "Cli.h"
#include "ComponentTables.h"

namespace qdf::cli {

std::string JsonText(const nlohmann::ordered_json& v) {
    if (v.is_number_float()) return number(v.get<double>());
    if (v.is_array()) {
        std::string t = "[";
        for (std::size_t i = 0; i < v.size(); ++i) t += (i ? "," : "") + JsonText(v[i]);
        return t + "]";
    }
    if (v.is_object()) {
        std::string t = "{";
        const char* sep = "";
        for (const auto& [k, x] : v.items()) {
            t += sep + nlohmann::ordered_json(k).dump() + ":" + JsonText(x);
            sep = ",";
        }
        return t + "}";
    }
    return v.dump();
}

void PrintJsonObject(std::ostream& out, const nlohmann::ordered_json& object) {
    out << "{";
    const char* sep = "\n";
    for (const auto& [k, x] : object.items()) {
        out << sep << "  " << nlohmann::ordered_json(k).dump() << ": " << JsonText(x);
        sep = ",\n";
    }
    out << "\n}\n";
}

void BuildCatalogue() {
    static const bool built = [] {
        CompoundTables().Build();
        return true;
    }();
    (void)built;
}

}  // namespace qdf::cli
