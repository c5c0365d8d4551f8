#pragma once
// Reporting of property library failures: the status names of the libraries and the one
// routine through which every failure is logged and left in the store's error members.

#include <cstdint>
#include <string>

#include "clsExGlobalVars.h"

namespace qdf {

// Kinds of calculation a failure belongs to.
inline constexpr int32_t kReportDensity = 1;
inline constexpr int32_t kReportViscosity = 2;
inline constexpr int32_t kReportIsentropic = 3;
inline constexpr int32_t kReportOther = 4;

// Two-phase warning and library failure, as left in Gbl_ErrorCode.
inline constexpr int32_t kErrTwoPhase = 890;
inline constexpr int32_t kErrPropertyLib = 600;

// "ERR_CALC", "NORMAL", "ERR_TOVER", ... for -1 to 17; "" for any other code.
std::string StatusName(int32_t code);

// Logs a library status (code 5 as a warning that the point is two-phase, any other as an
// error) and sets Gbl_ErrorCode 890 or 600, Gbl_ErrorSubCode and Gbl_ErrorMessage. Kinds 1 to
// 4 return 0; any other kind returns 1 and does nothing. A log that cannot be written throws
// (see LogCalcError).
int32_t ReportPropertyError(clsExGlobalVars& store, int32_t code, int32_t kind, double tempK,
                            double pressPa, double value);

// While one is alive, reports set the error members as usual but write nothing to the log: a
// check that evaluates a thousand points must not fill the service log, nor fail without one.
class QuietPropertyReports {
  public:
    QuietPropertyReports();
    ~QuietPropertyReports();
    QuietPropertyReports(const QuietPropertyReports&) = delete;
    QuietPropertyReports& operator=(const QuietPropertyReports&) = delete;
    static bool Active();
};

// True when the last report was the two-phase warning, which lets the value stand.
bool IsTwoPhaseWarning(const clsExGlobalVars& store);

}  // namespace qdf
