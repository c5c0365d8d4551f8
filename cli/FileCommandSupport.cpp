#include "FileCommandSupport.h"

#include "Cli.h"
#include "ModBinary.h"

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

namespace {

nlohmann::ordered_json ValueJson(const Value& v) {
    switch (v.kind()) {
        case Value::Kind::String:
            return v.str();
        case Value::Kind::Int16:
        case Value::Kind::Int32:
            return static_cast<std::int64_t>(v.toDouble());
        default:
            return v.toDouble();
    }
}

}  // namespace

bool QmvMembersJson(std::span<const std::uint8_t> bytes, nlohmann::ordered_json& members) {
    std::vector<QmvMemberValue> values;
    const bool whole = ParseBinaryBytes(bytes, values);
    members = nlohmann::ordered_json::object();
    for (const QmvMemberValue& m : values) {
        const std::string name(m.member);
        if (m.index < 0) {
            members[name] = ValueJson(m.value);
            continue;
        }
        auto& array = members[name];
        if (!array.is_array()) array = nlohmann::ordered_json::array();
        while (array.size() <= static_cast<std::size_t>(m.index)) array.push_back(nullptr);
        array[static_cast<std::size_t>(m.index)] = ValueJson(m.value);
    }
    return whole;
}

}  // namespace qdf::cli
