// Any byte string read as an ini file: the reader must finish, and what it keeps must be
// reachable by its own keys.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

#include "IniSection.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::istringstream in(std::string(reinterpret_cast<const char*>(data), size));
    qdf::IniSections sections;
    if (!qdf::ReadIniText(in, sections)) std::abort();  // memory never fails to read
    for (const qdf::clsIniSection& s : sections) {
        if (sections.Find(s.Name()) != &s) std::abort();
        int n = 0;
        for (const qdf::clsIniEntry& e : s) {
            const std::string& k = e.Key();
            if (k.empty() || k.front() == ' ' || k.front() == ';' || s.Find(k) != &e) std::abort();
            ++n;
        }
        if (n != s.Count() || s.Copy().Count() != n) std::abort();
    }
    return 0;
}
