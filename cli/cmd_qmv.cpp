// qdf qmv dump FILE.qmv | qdf qmv write IN.json OUT.qmv: inspection and making of QMV files.

#include <fstream>
#include <iterator>
#include <map>
#include <ostream>
#include <string>
#include <vector>

#include "Commands.h"
#include "FileCommandSupport.h"
#include "ModBinary.h"
#include "ModDefaults.h"
#include "StoreRegistry.h"
#include "clsExGlobalVars.h"

namespace qdf::cli {

namespace {

int Dump(const std::string& path, Io io) {
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        io.err << "qdf qmv dump: cannot open " << path << "\n";
        return 1;
    }
    const std::vector<std::uint8_t> bytes((std::istreambuf_iterator<char>(in)),
                                          std::istreambuf_iterator<char>());
    nlohmann::ordered_json out;
    const bool whole = QmvMembersJson(bytes, out);

    // The status is what loading the file into a new configuration gives.
    clsExGlobalVars store;
    InitializeDefaults(store);
    const std::int32_t status = whole ? OpenBinaryBytes(store, bytes) : 1;

    out["status"] = status;
    PrintJsonObject(io.out, out);
    return status == 0 ? 0 : 1;
}

int Write(const std::string& jsonPath, const std::string& qmvPath, Io io) {
    std::ifstream in(jsonPath);
    if (!in) {
        io.err << "qdf qmv write: cannot open " << jsonPath << "\n";
        return 1;
    }
    nlohmann::ordered_json j;
    try {
        j = nlohmann::ordered_json::parse(in);
    } catch (const std::exception& e) {
        io.err << "qdf qmv write: " << jsonPath << ": " << e.what() << "\n";
        return 1;
    }
    if (!j.is_object()) {
        io.err << "qdf qmv write: " << jsonPath << " holds no JSON object\n";
        return 1;
    }
    clsExGlobalVars store;
    InitializeDefaults(store);
    LoadRecordsToStore(store);
    for (const auto& [name, value] : j.items()) {
        if (name == "status") continue;  // what dump adds
        const MemberInfo* m = FindMember(name);
        if (!m) {
            io.err << "qdf qmv write: no member " << name << "\n";
            return 1;
        }
        try {
            MemberFromJson(store, *m, value);
        } catch (const std::exception& e) {
            io.err << "qdf qmv write: " << name << ": " << e.what() << "\n";
            return 1;
        }
    }
    try {
        SaveBinaryFile(store, qmvPath);
    } catch (const std::exception& e) {
        io.err << "qdf qmv write: " << e.what() << "\n";
        return 1;
    }
    return 0;
}

}  // namespace

int cmdQmv(const std::vector<std::string>& args, Io io) {
    if (args.size() == 2 && args[0] == "dump") return Dump(args[1], io);
    if (args.size() == 3 && args[0] == "write") return Write(args[1], args[2], io);
    io.err << "usage: qdf qmv dump FILE.qmv\n       qdf qmv write IN.json OUT.qmv\n";
    return 2;
}

}  // namespace qdf::cli
