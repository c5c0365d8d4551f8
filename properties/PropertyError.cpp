#include "PropertyError.h"

#include <array>

#include "ModLog.h"

namespace qdf {

std::string StatusName(int32_t code) {
    static constexpr std::array<const char*, 19> kNames{
        "ERR_CALC",   "NORMAL",     "ERR_TOVER",  "ERR_TUNDER",   "ERR_POVER",
        "ERR_PUNDER", "ERR_PHASE",  "ERR_NOCOMP", "ERR_NODATA",   "ERR_RANK",
        "ERR_SIZE",   "ERR_YRANGE", "ERR_YSUM",   "ERR_XINVALID", "ERR_HOVER",
        "ERR_HUNDER", "ERR_GOVER",  "ERR_GUNDER", "ERR_LESSDATA"};
    if (code < -1 || code > 17) return "";
    return kNames[static_cast<std::size_t>(code + 1)];
}

namespace {
thread_local int quietReports = 0;
}  // namespace

QuietPropertyReports::QuietPropertyReports() {
    ++quietReports;
}
QuietPropertyReports::~QuietPropertyReports() {
    --quietReports;
}
bool QuietPropertyReports::Active() {
    return quietReports > 0;
}

int32_t ReportPropertyError(clsExGlobalVars& store, int32_t code, int32_t kind, double tempK,
                            double pressPa, double value) {
    if (kind < kReportDensity || kind > kReportOther) return 1;
    if (QuietPropertyReports::Active()) {
        store.Gbl_ErrorCode = code == 5 ? kErrTwoPhase : kErrPropertyLib;
        store.Gbl_ErrorSubCode = code;
        store.Gbl_ErrorMessage = code == 5
                                     ? "The specified operating condition includes both gas and "
                                       "liquid phases"
                                     : "Physical Calc lib Error";
        return 0;
    }
    if (code == 5) {
        LogCalcError(store, kind, "Warning", code,
                     "The specified operating condition includes both gas and liquid phases", value,
                     pressPa, tempK);
    } else {
        LogCalcError(store, kind, "Error", code, "Physical Calc lib Error", value, pressPa, tempK);
    }
    return 0;
}

bool IsTwoPhaseWarning(const clsExGlobalVars& store) {
    return store.Gbl_ErrorCode == kErrTwoPhase && store.Gbl_ErrorSubCode == 5;
}

}  // namespace qdf
