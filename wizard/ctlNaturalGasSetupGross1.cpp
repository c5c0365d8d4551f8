#include "ctlNaturalGasSetupGross1.h"

#include "PhysicalProp.h"
#include "clsExGlobalVars.h"

namespace {

const qdf::wizard::GrossPageDesign kGross1 = {
    .objectName = "ctlNaturalGasSetupGross11",
    .controlName = "ctlNaturalGasSetupGross1",
    .method = "AGA8 Gross Characterization Method 1",
    .densityReference = "at 60 degF, 14.73 psi abs",
    .heatingValueReference = "at 60 degF, 14.73 psi abs",
    .nitrogen = false,
    .carbonMonoxide = true,
    .relativeDensity = {0.554, 0.87, "The valid range of real gas relative density is between ",
                        ""},
    .co2 = {0, 30, "The valid range of CO2 is between ", ""},
    .heatingValueMJ = {17.76, 42.87,
                       "The valid range of volumetric gross heating value is between ", " MJ/m3"},
    .heatingValueBTU = {476.66, 1150.59,
                        "The valid range of volumetric gross heating value is between ",
                        " BTU/ft3"},
    .n2 = {},
    .h2 = {0, 10, "The valid range of H2 mole is between ", "%"},
    .co = {0, 3, "The valid range of CO mole is between ", "%"},
    .loadVector =
        [](qdf::clsExGlobalVars& s) {
            qdf::LoadGross1Vector(s, s.UI_CO2Mole, s.UI_H2Mole, s.UI_COMole);
        },
};

}  // namespace

ctlNaturalGasSetupGross1::ctlNaturalGasSetupGross1(QWidget* parent)
    : NaturalGasGrossPage(kGross1, parent) {}
