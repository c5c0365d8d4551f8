#pragma once
// The QMV file: the wizard's own binary save file. Nine blocks back to back, little-endian, no
// header, no padding; strings are a 2-byte byte count followed by Windows-1252 text. The format's
// revision is the third string of the first block.
//
// The management block lives in a module-level record for the life of the program: a save
// fills it from the store except for its sixth field, an unused slot that only a read sets, so
// a file saved after a read repeats the slot of the file that was read.

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "Value.h"

namespace qdf {

class clsExGlobalVars;
class IComponentList;

// The revision this program writes; also read: "1.0.0" and "0.10.0", whose codes are rebuilt
// from the names they carry.
inline constexpr const char* kQmvRevision = "1.00.00";

// Resets the calculation options, date, user and reserves of the record and copies them to the
// store. Runs at the start of a new configuration, after the defaults.
void LoadRecordsToStore(clsExGlobalVars& store);

// Writes the nine blocks over the file from its first byte without shortening it. Throws
// FileAccessError when the file cannot be opened for writing, other exceptions on a failed
// write or a value the format cannot hold.
void SaveBinaryFile(clsExGlobalVars& store, const std::string& path);
// The bytes SaveBinaryFile writes (and the record update it makes).
std::vector<std::uint8_t> BinaryFileBytes(clsExGlobalVars& store);

// Reads a file into the store: 0 on success, 1 on failure. A file that cannot be read whole
// leaves the store unchanged and shows nothing; an unknown revision logs, warns and leaves the
// store unchanged; an old revision whose names don't translate loads but returns 1 after an
// error message. Messages go through the store's frame, when it has one. components is the
// catalogue for fluid names (null: the property engine's tables).
std::int32_t OpenBinaryFile(clsExGlobalVars& store, const std::string& path,
                            const IComponentList* components = nullptr);
// The same over bytes already in memory.
std::int32_t OpenBinaryBytes(clsExGlobalVars& store, std::span<const std::uint8_t> bytes,
                             const IComponentList* components = nullptr);

// One stored member of the file, in file order: a scalar, or one element of an array.
struct QmvMemberValue {
    std::string_view member;
    std::int32_t index;  // -1 for a scalar
    Value value;
};
// Parses bytes without touching the store or the record. Returns false for a truncated file;
// values holds every field read up to the failure (the unused slot is left out).
bool ParseBinaryBytes(std::span<const std::uint8_t> bytes, std::vector<QmvMemberValue>& values);

// Back to the record's state at program start (all empty and 0).
void ResetBinaryRecord();

}  // namespace qdf
