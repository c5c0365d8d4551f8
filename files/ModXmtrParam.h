#pragma once
// The Flow Param (Xmtr) file, read and written, and the Flow Param (Mgt) file, read only. Rows
// are found by position; the label in the first field is never read.
//
// An import first takes every row's cell into the store's string array (Xmtr or Mgt) and only
// then converts them into the members, so a file that fails while being read leaves the members
// as they were. A conversion that fails ends the import there, with the members before it set.

#include <cstdint>
#include <string>
#include <string_view>

namespace qdf {

class clsExGlobalVars;

// 89 rows. Rows 55 and 69 both carry Xmtr_SimpleRefStaticPress.
void ExportXmtrFile(clsExGlobalVars& store, const std::string& path);
std::string XmtrFileText(const clsExGlobalVars& store);

// Import returns 0, or 1 when the file failed to open, to read or to convert. Row 55 goes to
// Xmtr_NeverUse as an integer, Xmtr_SimpleRefStaticPress takes row 69 only, and the string rows
// keep their double quotes.
std::int32_t ImportXmtrFile(clsExGlobalVars& store, const std::string& path);
std::int32_t ImportXmtrText(clsExGlobalVars& store, std::string_view ansiText);

// The Mgt file's rows 0 to 44; rows 3, 4, 7 and 18 are read and dropped; strings keep quotes.
std::int32_t ImportMgtFile(clsExGlobalVars& store, const std::string& path);
std::int32_t ImportMgtText(clsExGlobalVars& store, std::string_view ansiText);

}  // namespace qdf
