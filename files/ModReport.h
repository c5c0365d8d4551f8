#pragma once
// The configuration report: a text file in the parameter files' line form that lists the
// configuration in words for the plant documents. It prints what the store holds, sentinels
// included, and runs no calculation of its own.

#include <cstdint>
#include <string>

#include "FileChooser.h"

class ISDKMessageService;

namespace qdf {

class clsExGlobalVars;

inline constexpr const char* kReportOpenFailed = "Report file can't be opened!";
inline constexpr const char* kReportExists = "Report file exists. Overwrite?";

// Writes the report over `path`. Any failure shows kReportOpenFailed through the store's frame
// (when it has one) and returns 1; the lines written up to the failure stay in the file.
std::int32_t WriteReport(clsExGlobalVars& store, const std::string& path);

// The Report menu command: the save dialog offers Gbl_ReportFilePath and the choice is kept
// there; an existing file is overwritten only after a yes. Returns true when a report was
// written. The store's values are not changed apart from the path.
bool ReportCommand(clsExGlobalVars& store, ISDKMessageService& messages, const ChooseFile& save);

}  // namespace qdf
