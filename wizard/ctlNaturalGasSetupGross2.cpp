#include "ctlNaturalGasSetupGross2.h"

#include "PhysicalProp.h"
#include "clsExGlobalVars.h"

namespace {

const qdf::wizard::GrossPageDesign kGross2 = {
    .objectName = "ctlNaturalGasSetupGross21",
    .controlName = "ctlNaturalGasSetupGross2",
    .method = "AGA8 Gross Characterization Method 2",
    .densityReference = "at 60 degF, 14.73 psi abs",
    .heatingValueReference = nullptr,
    .nitrogen = true,
    .carbonMonoxide = true,
    .relativeDensity = {0.554, 0.87, "The valid range of real gas relative density is between ",
                        ""},
    .co2 = {0, 30, "The valid range of CO2 mole is between ", ""},
    .heatingValueMJ = {},
    .heatingValueBTU = {},
    .n2 = {0, 50, "The valid range of Nitrogen mole is between ", "%"},
    .h2 = {0, 10, "The valid range of H2 mole is between ", "%"},
    .co = {0, 3, "The valid range of CO mole is between ", "%"},
    .loadVector =
        [](qdf::clsExGlobalVars& s) {
            qdf::LoadGross2Vector(s, s.UI_CO2Mole, s.UI_H2Mole, s.UI_COMole, s.UI_N2Mole);
        },
};

}  // namespace

ctlNaturalGasSetupGross2::ctlNaturalGasSetupGross2(QWidget* parent)
    : NaturalGasGrossPage(kGross2, parent) {}
