#pragma once
// What the store holds before the device, the persisted state or the user reach it, and what
// the resets put back.

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "BoundedArray.h"
#include "Value.h"

namespace qdf {

class clsExGlobalVars;

// ---- defaults -------------------------------------------------------------------------------
// Management, user input and calculation option defaults, ClickViaFile, LoadFileName.
void InitializeDefaults(clsExGlobalVars& s);
void SetManagementDefaults(clsExGlobalVars& s);
void SetUserInputDefaults(clsExGlobalVars& s);
// Also takes the module-level copy of the UI_ record.
void SetCalculationOptionDefaults(clsExGlobalVars& s);

// The host process's command line (the arguments, without the program). Until a host sets one
// there is none and LoadFileName stays empty.
void SetHostCommandLine(std::string commandLine);
void ClearHostCommandLine();
// The command line as LoadFileName takes it: a pair of enclosing double quotes is dropped.
std::string LoadFileNameFromCommandLine(std::string_view commandLine);

// The module-level copy of the UI_ members, in declared order, as SetCalculationOptionDefaults
// last took it. A scalar has one value; an array all its elements.
struct RecordField {
    std::string_view name;  // the store's own name, which lives as long as the program
    bool isArray = false;
    std::span<const Value> values;  // valid until the record is taken again
};
const std::vector<RecordField>& ModuleUIRecord();

// ---- resets ---------------------------------------------------------------------------------
void ResetOperatingRange(clsExGlobalVars& s);
void ResetOperatingTemperature(clsExGlobalVars& s);
void ResetReferenceProperties(clsExGlobalVars& s);
// Also clears index 256 of the density tables, one beyond what the defaults set.
void ResetPropertyTables(clsExGlobalVars& s);

// ---- compound tables ------------------------------------------------------------------------
// One row of the module-wide component tables: the fluid's name and identifier and the limits
// within which its correlations are used.
struct CompoundRecord {
    std::string Name;
    std::int32_t ID = 0;
    double MinTemp = 0.0;
    double MaxTemp = 0.0;
    double MinPress = 0.0;
    double MaxPress = 0.0;
    friend bool operator==(const CompoundRecord&, const CompoundRecord&) = default;
};
inline constexpr std::size_t kCompoundRows = 251;
using CompoundTable = BoundedArray<CompoundRecord, kCompoundRows>;
CompoundTable& LiquidCompoundTable();
CompoundTable& GasCompoundTable();
// Rows 0 to 250 of both tables back to their empty state.
void ResetCompoundTables();

}  // namespace qdf
