#pragma once
// The transmitter's parameter set apart from the coefficient arrays: device code, fluid type,
// units, diameters in metres, thermal expansion of the materials (MaterialExpansionRate of
// CodeTables.h), base density and the configuration stamps. The download and the exports read
// these members; nothing here checks a value against a range.

#include <cstdint>

#include "clsExGlobalVars.h"

namespace qdf {

// Fieldbus unit codes written with the HART ones.
inline constexpr int32_t kFfKgPerM3 = 1097;
inline constexpr int32_t kFfLbPerFt3 = 1107;
inline constexpr int32_t kFfMetre = 1010;
inline constexpr int32_t kHartMetre = 45;

// Returns 0, or 1 on a numeric failure.
int32_t AssembleTransmitterParameters(clsExGlobalVars& store);

}  // namespace qdf
