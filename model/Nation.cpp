#include "Nation.h"

#include <cstdlib>
#include <string_view>

namespace qdf {

std::int32_t UserNation() {
    const char* locale = nullptr;
    for (const char* var : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char* v = std::getenv(var);
        if (v && *v) {
            locale = v;
            break;
        }
    }
    if (!locale) return 0;
    // language[_TERRITORY][.codeset][@modifier]
    std::string_view s(locale);
    const auto us = s.find('_');
    if (us == std::string_view::npos) return 0;
    std::string_view territory = s.substr(us + 1);
    territory = territory.substr(0, territory.find_first_of(".@"));
    return territory == "JP" ? kNationJapan : 0;
}

std::string PCLocation(std::int32_t nation) {
    return nation == kNationJapan ? "Japan" : "Other";
}

}  // namespace qdf
