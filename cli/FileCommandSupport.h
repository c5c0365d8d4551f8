#pragma once
// Shared by the file commands (qmv, calc): JSON output, one member per line, numbers in the
// tool's 17-digit form; and the component catalogue that old files' fluid names need.

#include <cstdint>
#include <ostream>
#include <span>
#include <string>

#include <nlohmann/json.hpp>

namespace qdf::cli {

// A JSON value with every floating-point number written by number().
std::string JsonText(const nlohmann::ordered_json& v);
// An object, one key per line.
void PrintJsonObject(std::ostream& out, const nlohmann::ordered_json& object);

// What a QMV file's bytes carry, as one object keyed by member name (arrays in index order, the
// elements the file does not reach null). False when the file is cut short; the object then holds
// what was read up to there.
bool QmvMembersJson(std::span<const std::uint8_t> bytes, nlohmann::ordered_json& members);

}  // namespace qdf::cli
