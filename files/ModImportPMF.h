#pragma once
// Import of a device parameter file (PMF): an ini-form file another device tool leaves, whose
// section "Parameters" holds the device's ordinary settings (ranges, units, display, tag). The
// import writes them into the frame's offline data of the device and leaves the store alone.
// HART devices only.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "FileChooser.h"
#include "Value.h"

class ISDKMessageService;

namespace qdf {

class clsExGlobalVars;
class IniSections;

inline constexpr const char* kPmfOverwriteQuestion =
    "Device configuration in offline data will be overwritten! Are you sure you want to proceed?";
inline constexpr const char* kFileOpenError = "Error occurs while opening a file";

// The device parameter an entry key of the file stands for, with its parameter group. The keys
// carry a prefix of running characters of unknown content: the name is looked up without the
// key's first 4 characters, then without its first 5.
struct PmfTarget {
    std::string group;
    std::string parameter;
};
std::optional<PmfTarget> LookUpPmfKey(std::string_view fileKey);

// The value of an entry text "value, type name" ("12.5,vbSingle"); both parts trimmed. A text
// without a comma is a string. Type names: vbInteger, vbLong, vbSingle, vbDouble, vbCurrency,
// vbDate, vbString, vbBoolean, vbDecimal, vbByte; a name not among them keeps the text. Empty
// when the value does not convert to its type.
std::optional<Value> ParsePmfValue(std::string_view text);

// Reads the file and writes every known entry of "Parameters" through the store's frame.
// Returns 0, or 1 when the file cannot be read, has sections but none named "Parameters", or
// the store has no frame. A file without sections writes nothing and returns 0. A parameter
// that the frame fails to set is passed over.
std::int32_t ImportPMFFile(clsExGlobalVars& store, const std::string& path);
// The same over sections already read.
std::int32_t ImportPMFSections(clsExGlobalVars& store, const IniSections& sections);

// The Import PMF menu command: open dialog (path kept in Gbl_SaveBinaryFilePath), existence
// test, the overwrite question, the import. Returns true when the import ran through. Does
// nothing on a Fieldbus device.
bool ImportPMFCommand(clsExGlobalVars& store, ISDKMessageService& messages, const ChooseFile& open);

}  // namespace qdf
