#pragma once
// The Flow Param (Calc) file: the fit results, written only (nothing reads it back).

#include <string>

namespace qdf {

class clsExGlobalVars;

void ExportCalcFile(clsExGlobalVars& store, const std::string& path);
std::string CalcFileText(const clsExGlobalVars& store);

}  // namespace qdf
