#include "ctlNaturalGasSetupISO.h"

#include "PhysicalProp.h"
#include "clsExGlobalVars.h"

namespace {

const qdf::wizard::GrossPageDesign kIso = {
    .objectName = "ctlNaturalGasSetupISO1",
    .controlName = "ctlNaturalGasSetupISO",
    .method = "ISO12213 physical properties",
    .densityReference = "at 0 degC 1.01325 bar abs",
    .heatingValueReference = "at 25 degC 1.01325 bar abs",
    .nitrogen = false,
    .carbonMonoxide = false,
    .relativeDensity = {0.55, 0.9, "The valid range of real gas relative density is between ", ""},
    .co2 = {0, 30, "The valid range of CO2 is between ", ""},
    .heatingValueMJ = {20, 48, "The valid range of volumetric gross heating value is between ",
                       " MJ/m3"},
    .heatingValueBTU = {536.78, 1288.28,
                        "The valid range of volumetric gross heating value is between ",
                        " BTU/ft3"},
    .n2 = {},
    .h2 = {0, 10, "The valid range of H2 mole is between ", "%"},
    .co = {},
    .loadVector = [](qdf::clsExGlobalVars& s) { qdf::LoadIsoVector(s, s.UI_CO2Mole, s.UI_H2Mole); },
};

}  // namespace

ctlNaturalGasSetupISO::ctlNaturalGasSetupISO(QWidget* parent) : NaturalGasGrossPage(kIso, parent) {}
