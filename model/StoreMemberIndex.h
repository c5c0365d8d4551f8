#pragma once
// The store's member names in declared order and a hash index over them, both made at compile
// time: a format whose field list names members resolves each name to its position when it is
// compiled (a misspelt name does not build), and a lookup at run time costs one hash and one
// comparison, with nothing to build at start-up.

#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <stdexcept>
#include <string_view>

namespace qdf {

inline constexpr std::string_view kStoreMemberNames[] = {
#define SCALAR(n, k, p) #n,
#define ARRAY(n, k, p) #n,
#define ARRAY2D(n) #n,
#define LINK(n) #n,
#define READONLY() "readonly",
#include "StoreMembers.def"
#undef SCALAR
#undef ARRAY
#undef ARRAY2D
#undef LINK
#undef READONLY
};

inline constexpr std::size_t kStoreMemberCount = std::size(kStoreMemberNames);

namespace member_index {

// FNV-1a: short names, few instructions a character.
constexpr std::uint32_t Hash(std::string_view s) {
    std::uint32_t h = 2166136261u;
    for (char ch : s) {
        h ^= static_cast<unsigned char>(ch);
        h *= 16777619u;
    }
    return h;
}

// A power of two above four times the members keeps probe runs short.
inline constexpr std::size_t kSlots = 2048;
static_assert(kSlots >= 4 * kStoreMemberCount);

// Each slot holds a position plus one; 0 is free.
constexpr std::array<std::uint16_t, kSlots> Build() {
    std::array<std::uint16_t, kSlots> slots{};
    for (std::size_t i = 0; i < kStoreMemberCount; ++i) {
        std::size_t at = Hash(kStoreMemberNames[i]) & (kSlots - 1);
        while (slots[at] != 0) at = (at + 1) & (kSlots - 1);
        slots[at] = static_cast<std::uint16_t>(i + 1);
    }
    return slots;
}

inline constexpr std::array<std::uint16_t, kSlots> kSlotTable = Build();

}  // namespace member_index

// Position of the member in declared order, or -1 when the store has none of that name.
constexpr int MemberPosition(std::string_view name) {
    std::size_t at = member_index::Hash(name) & (member_index::kSlots - 1);
    while (const std::uint16_t slot = member_index::kSlotTable[at]) {
        if (kStoreMemberNames[slot - 1] == name) return slot - 1;
        at = (at + 1) & (member_index::kSlots - 1);
    }
    return -1;
}

// For tables made at compile time: a name the store lacks stops the build there (and throws
// std::invalid_argument if ever evaluated at run time).
constexpr std::uint16_t RequiredMemberPosition(std::string_view name) {
    const int at = MemberPosition(name);
    if (at < 0) throw std::invalid_argument("the store has no member of this name");
    return static_cast<std::uint16_t>(at);
}

}  // namespace qdf
