#pragma once
// The service log of property library failures and file format errors. One append-only text
// file in the log folder: "$QDF_LOG_DIR" when set, else "$HOME/TavrinCorvane". The folder is
// never created here: without it an entry fails (std::runtime_error) and is lost, and the
// caller's failure path decides what that costs.
//
// Lines are comma-separated, strings in double quotes, numbers bare, CR LF, Windows-1252.

#include <cstdint>
#include <string>

#include "clsExGlobalVars.h"

namespace qdf {

// "QDFSondraFF.log" on "FFH1", "QDFSondra.log" on any other bus.
std::string LogFileName(const std::string& busId);
// The log folder, ending in "/".
std::string LogFolder();
// Folder and file name for the store's bus.
std::string LogFilePath(const clsExGlobalVars& store);

// A property library failure. kind: 1 density, 2 viscosity, 3 and 4 isentropic exponent.
// Clears the three error members first; then status 5 writes the long entry (kinds 1 to 4
// only) and sets Gbl_ErrorCode 890, any other status the short entry and 600. Gbl_ErrorSubCode
// takes the status and Gbl_ErrorMessage the text. Throws std::runtime_error when the log
// cannot be written, with the members left cleared.
void LogCalcError(clsExGlobalVars& store, int32_t kind, const std::string& level, int32_t status,
                  const std::string& text, double result, double pressPa, double tempK);

// A file format error: a short entry with the code and sub-code, which then go to
// Gbl_ErrorCode and Gbl_ErrorSubCode with the text in Gbl_ErrorMessage. Throws like
// LogCalcError.
void LogFileError(clsExGlobalVars& store, int32_t code, int32_t subCode, const std::string& text);

// A failure of the device link (a parameter the frame would not look up or observe): a short
// entry with level "Error", code and sub-code 0 and the text. The store's error members stay
// as they are. Throws like LogCalcError.
void LogLinkError(const clsExGlobalVars& store, const std::string& text);

// Moves the log aside once it has grown above 1024 KB (length / 1024, rounded half to even):
// "QDFSondra.log" becomes "QDFSondra1.log", replacing an older one. Never fails: a missing
// file or any file system error ends it quietly.
void RotateLog(const std::string& path);

}  // namespace qdf
