#include "ModLog.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <system_error>
#include <vector>

#include "AnsiText.h"
#include "DateText.h"
#include "PropertyError.h"

namespace qdf {

namespace {

namespace fs = std::filesystem;

std::string Quoted(const std::string& text) {
    return "\"" + Utf8ToAnsi(text) + "\"";
}

// Full precision, shortest form that reads back to the same double.
std::string Bare(double v) {
    char buf[64];
    const auto res = std::to_chars(buf, buf + sizeof buf, v);
    std::string s(buf, res.ptr);
    for (char& ch : s)
        if (ch == 'e') ch = 'E';
    return s;
}

std::string Bare(int32_t v) {
    return std::to_string(v);
}

void AppendLine(const std::string& path, const std::vector<std::string>& fields, bool writeLine) {
    std::ofstream out(path, std::ios::binary | std::ios::app);
    if (!out) throw std::runtime_error("cannot open the log " + path);
    if (!writeLine) return;
    std::string line;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (i > 0) line += ',';
        line += fields[i];
    }
    line += "\r\n";
    out << line;
    out.flush();
    if (!out) throw std::runtime_error("cannot write the log " + path);
}

const char* ValueLabel(int32_t kind) {
    switch (kind) {
        case 1:
            return "Dens (kg/m3)";
        case 2:
            return "Visc (Pa sec)";
        default:
            return "IsenExp";
    }
}

}  // namespace

std::string LogFileName(const std::string& busId) {
    return busId == "FFH1" ? "QDFSondraFF.log" : "QDFSondra.log";
}

std::string LogFolder() {
    if (const char* dir = std::getenv("QDF_LOG_DIR"); dir != nullptr && *dir != '\0') {
        std::string folder = dir;
        if (folder.back() != '/') folder += '/';
        return folder;
    }
    const char* home = std::getenv("HOME");
    std::string folder = home != nullptr ? home : "";
    if (folder.empty() || folder.back() != '/') folder += '/';
    return folder + "TavrinCorvane/";
}

std::string LogFilePath(const clsExGlobalVars& store) {
    return LogFolder() + LogFileName(store.BusID);
}

void LogCalcError(clsExGlobalVars& store, int32_t kind, const std::string& level, int32_t status,
                  const std::string& text, double result, double pressPa, double tempK) {
    store.Gbl_ErrorCode = kNotEntered;
    store.Gbl_ErrorSubCode = kNotEntered;
    store.Gbl_ErrorMessage.clear();
    const std::string path = LogFilePath(store);
    RotateLog(path);

    const std::string message = text + " - " + StatusName(status);
    std::vector<std::string> fields{Quoted(NowDateTime()), Quoted("Tag name"), Quoted(store.tag),
                                    Quoted(level)};
    int32_t code = 600;
    bool writeLine = true;
    if (status == 5) {
        code = 890;
        writeLine = kind >= 1 && kind <= 4;
        fields.insert(
            fields.end(),
            {Quoted("890"), Bare(status), Quoted(message), Quoted(ValueLabel(kind)), Bare(result),
             Quoted("Press (Pa abs)"), Bare(pressPa), Quoted("Temp (Kelvin)"), Bare(tempK)});
    } else {
        fields.insert(fields.end(), {Quoted("600"), Bare(status), Quoted(message)});
    }
    AppendLine(path, fields, writeLine);

    store.Gbl_ErrorCode = code;
    store.Gbl_ErrorSubCode = status;
    store.Gbl_ErrorMessage = text;
}

void LogFileError(clsExGlobalVars& store, int32_t code, int32_t subCode, const std::string& text) {
    const std::string path = LogFilePath(store);
    RotateLog(path);
    AppendLine(path,
               {Quoted(NowDateTime()), Quoted("Tag name"), Quoted(store.tag), Quoted("Error"),
                Bare(code), Bare(subCode), Quoted(text)},
               true);
    store.Gbl_ErrorCode = code;
    store.Gbl_ErrorSubCode = subCode;
    store.Gbl_ErrorMessage = text;
}

void LogLinkError(const clsExGlobalVars& store, const std::string& text) {
    const std::string path = LogFilePath(store);
    RotateLog(path);
    AppendLine(path,
               {Quoted(NowDateTime()), Quoted("Tag name"), Quoted(store.tag), Quoted("Error"),
                Bare(int32_t{0}), Bare(int32_t{0}), Quoted(text)},
               true);
}

void RotateLog(const std::string& path) {
    try {
        std::error_code ec;
        const auto bytes = fs::file_size(path, ec);
        if (ec) return;
        // Integer conversion of the quotient rounds half to even.
        const double kb = std::nearbyint(static_cast<double>(bytes) / 1024.0);
        if (!(kb > 1024.0)) return;

        const fs::path log(path);
        const std::string name = log.filename().string();
        const auto dot = name.find('.');
        const std::string rotatedName = dot == std::string::npos
                                            ? name + "1."
                                            : name.substr(0, dot) + "1." + name.substr(dot + 1);
        const fs::path rotated = log.parent_path() / rotatedName;
        fs::remove(rotated, ec);
        if (ec) return;
        fs::copy_file(log, rotated, fs::copy_options::overwrite_existing, ec);
        if (ec) return;
        fs::remove(log, ec);
    } catch (...) {
        // Rotation is housekeeping; the entry goes on without it.
    }
}

}  // namespace qdf
