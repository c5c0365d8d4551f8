#pragma once
// Shared by the file commands (qmv, calc): JSON output, one member per line, numbers in the
// tool's 17-digit form; and the component catalogue that old files' fluid names need.

#include <ostream>
#include <string>

#include <nlohmann/json.hpp>

namespace qdf::cli {

// A JSON value with every floating-point number written by number().
std::string JsonText(const nlohmann::ordered_json& v);
// An object, one key per line.
void PrintJsonObject(std::ostream& out, const nlohmann::ordered_json& object);

// Fills the property engine's component tables once, so fluid names translate.
void BuildCatalogue();

}  // namespace qdf::cli
