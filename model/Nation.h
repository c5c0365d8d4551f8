#pragma once
// The user's nation, as the unit lists and the location text need it. On this platform it is the
// territory of the user's locale (LC_ALL, else LC_MESSAGES, else LANG): "JP" gives 122.

#include <cstdint>
#include <string>

namespace qdf {

inline constexpr std::int32_t kNationJapan = 122;

// 122 for the territory JP; 0 for any other or none (only 122 changes behaviour).
std::int32_t UserNation();
// "Japan" for nation 122, else "Other".
std::string PCLocation(std::int32_t nation);

}  // namespace qdf
