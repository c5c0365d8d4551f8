#include "XmtrParams.h"

#include <exception>
#include <string>
#include <string_view>

#include "CodeTables.h"
#include "FlowCoeff.h"
#include "ModUnit.h"
#include "Numeric.h"

namespace qdf {

namespace {

constexpr int32_t kHartKgPerM3 = 92;
constexpr int32_t kHartLbPerFt3 = 94;

// The first `count` characters of a UTF-8 text; the device fields count characters, and a cut
// through a multi-byte sequence would leave invalid text behind.
std::string LeftChars(std::string_view text, std::size_t count) {
    std::size_t chars = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool continuation = (static_cast<unsigned char>(text[i]) & 0xC0) == 0x80;
        if (!continuation) {
            if (chars == count) return std::string(text.substr(0, i));
            ++chars;
        }
    }
    return std::string(text);
}

}  // namespace

int32_t AssembleTransmitterParameters(clsExGlobalVars& store) {
    try {
        // An unknown name leaves the code the lookup was given; the set is still written.
        int32_t pdCode = store.Xmtr_PDCode;
        LookupPrimaryDeviceCode(store, store.UI_PEName, pdCode);
        store.Xmtr_PDCode = pdCode;
        store.Xmtr_FluidTypeCode = store.UI_FluidType;
        store.Xmtr_SimpleFluidTypeCode = store.UI_FluidType;
        store.Xmtr_DensUnitCode = store.UI_DensUnit;
        store.Xmtr_PDLenUnitCode = kHartMetre;
        store.Xmtr_PriDevTherExpFac = MaterialExpansionRate(store.UI_PEMaterial);
        store.Xmtr_PipeTherExpFac = MaterialExpansionRate(store.UI_PipeMaterial);
        store.Xmtr_LenUnitCode = kHartMetre;
        store.Xmtr_Smalld = numeric::Checked(MmToM(store.UI_PEDiameterStandard));
        store.Xmtr_BigD = numeric::Checked(MmToM(store.UI_PEPipeDiameterStandard));
        store.Xmtr_RefDensUnitCode = store.UI_RefDensUnit;
        store.Xmtr_VolFlowBaseDens = store.UI_RefDensValue;
        if (store.Xmtr_DensUnitCode == kHartKgPerM3) store.XmtrFF_FtbDensUnitCode = kFfKgPerM3;
        if (store.Xmtr_DensUnitCode == kHartLbPerFt3) store.XmtrFF_FtbDensUnitCode = kFfLbPerFt3;
        store.XmtrFF_FtbLenUnitCode = kFfMetre;
        store.Xmtr_CONFIG_SOFT_REV = LeftChars(store.Mgt_CfgSoftRev, 16);
        store.Xmtr_CONFIG_DATE = LeftChars(store.Mgt_ConfDate, 16);
        store.Xmtr_CONFIG_WHO = LeftChars(store.Mgt_UserName, 32);
        return 0;
    } catch (const std::exception&) {
        return 1;
    }
}

}  // namespace qdf
