#pragma once
// One registry of the store's members: name, kind, whether it is persisted, and how to reach it.
// Every format (property bag, QMV blocks, parameter files, report, JSON) is an ordered list of
// member names walked through this table, so the orders stay visible as data.

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <nlohmann/json.hpp>

#include "Value.h"

namespace qdf {

class clsExGlobalVars;

enum class MemberKind {
    String,
    Bool16,  // 16-bit boolean, -1 true / 0 false; a Value of kind Bool
    Int16,
    Int32,
    Double,
    Cell,  // a general value (number, string or empty)
    Link,  // an object link; not reachable as a value
};

struct MemberInfo {
    std::string_view name;
    MemberKind kind;  // for arrays: the element kind
    int dims;         // 0 scalar, 1 array, 2 two-dimensional array
    bool persisted;

    // Scalars. set is null for a read-only member.
    Value (*get)(const clsExGlobalVars&) = nullptr;
    void (*set)(clsExGlobalVars&, const Value&) = nullptr;
    // One-dimensional arrays (lower bound 0).
    std::int32_t (*upper)(const clsExGlobalVars&) = nullptr;
    Value (*getAt)(const clsExGlobalVars&, std::int32_t) = nullptr;
    void (*setAt)(clsExGlobalVars&, std::int32_t, const Value&) = nullptr;
    // Arrays of doubles only: an element set without a general value in between.
    void (*setDoubleAt)(clsExGlobalVars&, std::int32_t, double) = nullptr;
    // Appends every element in index order: one call for a whole array.
    void (*getAll)(const clsExGlobalVars&, std::vector<Value>&) = nullptr;
};

// Every member in declared order.
std::span<const MemberInfo> StoreMembers();
// The member at a position of StoreMembers (as MemberPosition gives it); unchecked.
const MemberInfo& MemberAt(std::size_t position);
// nullptr when the store has no member of that name.
const MemberInfo* FindMember(std::string_view name);

// By name. Unknown names and a wrong shape (scalar vs array) throw std::invalid_argument; an
// index out of bounds throws std::out_of_range; a value that does not convert to the member's
// kind throws std::invalid_argument (std::overflow_error when out of the integer's range).
Value GetMember(const clsExGlobalVars& s, std::string_view name);
void SetMember(clsExGlobalVars& s, std::string_view name, const Value& v);
std::int32_t MemberUpper(const clsExGlobalVars& s, std::string_view name);
Value GetElement(const clsExGlobalVars& s, std::string_view name, std::int32_t i);
void SetElement(clsExGlobalVars& s, std::string_view name, std::int32_t i, const Value& v);

// Conversion of a general value into a member kind, with the coercions of the store's set
// operations: numbers and numeric strings convert, integers round half to even.
Value ConvertToKind(const Value& v, MemberKind kind);

// A member as JSON: booleans as true/false, arrays as arrays in index order, an empty cell null.
nlohmann::ordered_json MemberToJson(const clsExGlobalVars& s, const MemberInfo& m);
// Sets a scalar or a whole array from JSON (an array may be shorter than the member's bounds:
// only the elements given are set; a longer one throws std::out_of_range).
void MemberFromJson(clsExGlobalVars& s, const MemberInfo& m, const nlohmann::ordered_json& j);
// Every persisted member, in declared order, as one object keyed by member name.
nlohmann::ordered_json PersistedMembersToJson(const clsExGlobalVars& s);

// The persisted members in the order of the property bag; a name ending in "_" is an array,
// written element by element and then its "_arrayIndex" key.
const std::vector<std::string_view>& PropertyBagOrder();
// Members written to the bag but never read back: they describe the present session.
bool NotReadBackFromBag(std::string_view member);
// Every key InitializePropertyBagFromVars writes, in order.
std::vector<std::string> PropertyBagKeys(const clsExGlobalVars& s);

}  // namespace qdf
