#include "Registry.h"

#include <cstdlib>
#include <string_view>

#include "IniSection.h"

namespace qdf::module {

std::string RegistryFilePath() {
    if (const char* p = std::getenv("QDF_REGISTRY"); p && *p) return p;
    std::string base;
    if (const char* x = std::getenv("XDG_CONFIG_HOME"); x && *x)
        base = x;
    else if (const char* h = std::getenv("HOME"); h && *h)
        base = std::string(h) + "/.config";
    else
        return {};
    return base + "/TAVRIN/registry.ini";
}

namespace {

// A double word is stored as its bytes, highest first, and read back as the number they make.
bool DwordText(std::string_view hex, std::string& out) {
    if (hex.empty() || hex.size() > 8) return false;
    unsigned long n = 0;
    for (char c : hex) {
        int d;
        if (c >= '0' && c <= '9')
            d = c - '0';
        else if (c >= 'a' && c <= 'f')
            d = c - 'a' + 10;
        else if (c >= 'A' && c <= 'F')
            d = c - 'A' + 10;
        else
            return false;
        n = n * 16 + static_cast<unsigned long>(d);
    }
    out = std::to_string(n);
    return true;
}

}  // namespace

bool GetKeyValue(RootKey root, const std::string& subKey, const std::string& valueName,
                 std::string& value) {
    value.clear();
    if (root != RootKey::LocalMachine) return false;
    const std::string path = RegistryFilePath();
    if (path.empty()) return false;
    IniSections sections;
    if (!ReadIniFile(path, sections)) return false;
    const clsIniSection* section = sections.Find(subKey);
    if (!section) return false;
    const clsIniEntry* entry = section->Find(valueName);
    if (!entry) return false;
    std::string text = entry->Value();
    constexpr std::string_view kDword = "dword:";
    if (text.starts_with(kDword)) {
        std::string number;
        if (!DwordText(std::string_view(text).substr(kDword.size()), number)) return false;
        value = number;
        return true;
    }
    // A string value ends at its terminating NUL, which is not part of it.
    if (const auto nul = text.find('\0'); nul != std::string::npos) text.resize(nul);
    value = text;
    return true;
}

}  // namespace qdf::module
