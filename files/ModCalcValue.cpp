#include "ModCalcValue.h"

#include "LineForm.h"
#include "clsExGlobalVars.h"

namespace qdf {

namespace {

template <class Array>
void IndexedRows(LineBuilder& out, const char* title, const Array& values, std::int32_t count) {
    out.Str("").End();
    out.Str(title).End();
    for (std::int32_t i = 0; i < count; ++i) out.Int(i).Dbl(values.at(i)).End();
}

}  // namespace

std::string CalcFileText(const clsExGlobalVars& s) {
    LineBuilder out;
    out.Str("Lower value of DP P1 Ratio").Dbl(s.calc_LowValDpP1Ratio).End();
    out.Str("Upper value of DP P1 Ratio").Dbl(s.calc_UpValDpP1Ratio).End();
    for (std::int32_t i = 0; i < 32; ++i)
        out.Str("DP P1 ratio value").Dbl(s.calc_DPP1Ratio.at(i)).End();
    out.Str("Beta").Dbl(s.calc_Beta).End();
    IndexedRows(out, "Gas Expansion Factor", s.calc_GasExpFactor, 32);
    IndexedRows(out, "Gas Expansion Factor Ycal", s.calc_GasExpFactorYcal, 32);
    IndexedRows(out, "Density  Ycal", s.calc_DensityYcal, 256);
    IndexedRows(out, "Viscosity Ycal", s.calc_ViscosityYcal, 256);
    out.Str("").End();
    out.Str("Gas Expansion Factor Sigma").Dbl(s.calc_GasExpFactorSigma).End();
    out.Str("Density Sigma").Dbl(s.calc_DensitySigma).End();
    out.Str("Viscosity Sigma").Dbl(s.calc_ViscositySigma).End();
    return out.Text();
}

void ExportCalcFile(clsExGlobalVars& store, const std::string& path) {
    SaveText(CalcFileText(store), path);
}

}  // namespace qdf
