#pragma once
// The Flow Param (UI) file: the user's entries and the property tables. The tables' shape
// follows the fluid kind (gas, saturated steam, liquid) and the grid sizes of the Mgt_ members:
// P pressures by N temperatures for a gas, G points for saturated steam, L for a liquid.
//
// The import walks the file with a cell index into the store's UI array, section by section,
// and only then distributes the cells into the members. It keeps the program's known quirk: a
// liquid file has no pressure block, yet the reader passes through that state, so the rows
// after a liquid's temperature row land shifted.

#include <cstdint>
#include <string>
#include <string_view>

namespace qdf {

class clsExGlobalVars;

void ExportUIFile(clsExGlobalVars& store, const std::string& path);
std::string UIFileText(const clsExGlobalVars& store);

// 0, or 1 when the file failed to open, to read (the cell index ran out of its range, a row
// lacked a field) or to convert; cells and members stored before the failure stay.
std::int32_t ImportUIFile(clsExGlobalVars& store, const std::string& path);
std::int32_t ImportUIText(clsExGlobalVars& store, std::string_view ansiText);

}  // namespace qdf
