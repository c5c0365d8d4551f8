#pragma once
// The machine-wide settings the module reads: an ini-form file standing in for the system
// registry. Sections are named by key paths ("SOFTWARE\TAVRIN\DTMs\SondraCommon"), entries by
// value names. A value written "dword:0000000A" is a 32-bit number and reads as "10".
//
// The file is QDF_REGISTRY when set, else $XDG_CONFIG_HOME/TAVRIN/registry.ini (with
// XDG_CONFIG_HOME defaulting to $HOME/.config).

#include <string>

namespace qdf::module {

enum class RootKey { LocalMachine, CurrentUser };

inline constexpr const char* kSondraCommonKey = "SOFTWARE\\TAVRIN\\DTMs\\SondraCommon";
inline constexpr const char* kQDFSondraKey = "SOFTWARE\\TAVRIN\\DTMs\\QDFSondra";

std::string RegistryFilePath();

// True with the value as text when the key and value exist; false and "" otherwise. Only the
// local machine root is kept in the file.
bool GetKeyValue(RootKey root, const std::string& subKey, const std::string& valueName,
                 std::string& value);

}  // namespace qdf::module
