// qdf diff A B: the members in which two configurations differ, QMV or JSON in any mix, so a
// configuration can be reviewed as text.

#include <fstream>
#include <iterator>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "Commands.h"
#include "FileCommandSupport.h"
#include "StoreRegistry.h"

namespace qdf::cli {

namespace {

using Json = nlohmann::ordered_json;

// The members a file carries: a JSON object as `qdf qmv dump` prints it (its "status" left
// out), or a QMV file. Nothing on a file that cannot be read, with the reason on `err`.
std::optional<Json> Members(const std::string& path, std::ostream& err) {
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        err << "qdf diff: cannot open " << path << "\n";
        return std::nullopt;
    }
    const std::vector<std::uint8_t> bytes((std::istreambuf_iterator<char>(in)),
                                          std::istreambuf_iterator<char>());
    std::size_t first = 0;
    while (first < bytes.size() && std::isspace(bytes[first])) ++first;
    const bool json = path.ends_with(".json") || (first < bytes.size() && bytes[first] == '{');
    Json members;
    if (!json) {
        if (!QmvMembersJson(bytes, members)) {
            err << "qdf diff: " << path << " is not a whole QMV file\n";
            return std::nullopt;
        }
        return members;
    }
    try {
        members = Json::parse(bytes.begin(), bytes.end());
    } catch (const std::exception& e) {
        err << "qdf diff: " << path << ": " << e.what() << "\n";
        return std::nullopt;
    }
    if (!members.is_object()) {
        err << "qdf diff: " << path << " holds no JSON object\n";
        return std::nullopt;
    }
    members.erase("status");
    for (const auto& [name, value] : members.items()) {
        const MemberInfo* m = FindMember(name);
        if (!m) {
            err << "qdf diff: " << path << ": no member " << name << "\n";
            return std::nullopt;
        }
        if ((m->dims == 0) == value.is_array()) {
            err << "qdf diff: " << path << ": " << name
                << (m->dims == 0 ? " is not an array\n" : " is an array\n");
            return std::nullopt;
        }
    }
    return members;
}

// A missing member or element reads as null, so a member only one side carries shows.
const Json& At(const Json& object, const std::string& name) {
    static const Json none;
    const auto it = object.find(name);
    return it == object.end() ? none : *it;
}

const Json& At(const Json& array, std::size_t i) {
    static const Json none;
    return array.is_array() && i < array.size() ? array[i] : none;
}

}  // namespace

int cmdDiff(const std::vector<std::string>& args, Io io) {
    if (args.size() != 2) {
        io.err << "usage: qdf diff A B   (QMV or JSON files)\n";
        return 2;
    }
    const auto a = Members(args[0], io.err);
    const auto b = Members(args[1], io.err);
    if (!a || !b) return 2;

    int differences = 0;
    auto show = [&](const std::string& name, const Json& old, const Json& now) {
        if (old == now) return;
        io.out << name << ": " << JsonText(old) << " -> " << JsonText(now) << "\n";
        ++differences;
    };
    for (const MemberInfo& m : StoreMembers()) {
        const std::string name(m.name);
        const Json& x = At(*a, name);
        const Json& y = At(*b, name);
        if (m.dims == 0) {
            show(name, x, y);
            continue;
        }
        const std::size_t n = std::max(x.is_array() ? x.size() : 0, y.is_array() ? y.size() : 0);
        for (std::size_t i = 0; i < n; ++i)
            show(name + "[" + std::to_string(i) + "]", At(x, i), At(y, i));
    }
    return differences ? 1 : 0;
}

}  // namespace qdf::cli
