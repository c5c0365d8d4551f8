#include "clsExGlobalVars.h"

#include <charconv>
#include <stdexcept>
#include <string_view>
#include <vector>

#include "DateText.h"
#include "Nation.h"
#include "StoreRegistry.h"

namespace qdf {

namespace {

struct UnitRow {
    const char* text;
    std::int16_t code;
};

// Unit lists for a device that delivers none (Fieldbus). Nation 122 gets the short metric list.
constexpr UnitRow kPressFull[] = {
    {"inH2O @ 68degF", 1},
    {"inHg", 2},
    {"ftH2O @ 68degF", 3},
    {"mmH2O @ 68degF", 4},
    {"mmHg", 5},
    {"psi", 6},
    {"bar", 7},
    {"mbar", 8},
    {"g/cm2", 9},
    {"kg/cm2", 10},
    {"Pa", 11},
    {"kPa", 12},
    {"torr", 13},
    {"atm", 14},
    {"MPa", 237},
    {"inH2O", 238},
    {"mmH2O", 239},
    {"ftH2O", 240},
    {"hPa", 241},
};
constexpr UnitRow kPressShort[] = {
    {"bar", 7}, {"mbar", 8}, {"Pa", 11}, {"kPa", 12}, {"atm", 14}, {"MPa", 237}, {"hPa", 241},
};
constexpr UnitRow kTempFull[] = {{"degC", 32}, {"degF", 33}, {"Kelvin", 35}};
constexpr UnitRow kTempShort[] = {{"degC", 32}, {"Kelvin", 35}};

template <std::size_t N>
void FillUnits(const UnitRow (&rows)[N], DynArray<std::string>& texts,
               DynArray<std::int16_t>& codes) {
    texts.ReDim(static_cast<std::int32_t>(N) - 1);
    codes.ReDim(static_cast<std::int32_t>(N) - 1);
    for (std::size_t i = 0; i < N; ++i) {
        texts[static_cast<std::int64_t>(i)] = rows[i].text;
        codes[static_cast<std::int64_t>(i)] = rows[i].code;
    }
}

// A device enumeration: "code:text" entries; the code must be a 16-bit integer.
void SplitUnitList(const Value& list, DynArray<std::string>& texts, DynArray<std::int16_t>& codes) {
    if (!list.isStringArray())
        throw std::invalid_argument("a device unit list must be an array of strings");
    const auto& entries = list.strings();
    if (entries.empty()) throw std::invalid_argument("a device unit list without units");
    const auto upper = static_cast<std::int32_t>(entries.size()) - 1;
    texts.ReDim(upper);
    codes.ReDim(upper);
    for (std::int32_t i = 0; i <= upper; ++i) {
        const std::string& e = entries[static_cast<std::size_t>(i)];
        const auto colon = e.find(':');
        // Without a colon the code part is empty, which is no number.
        const std::string code = colon == std::string::npos ? std::string() : e.substr(0, colon);
        codes[i] = *ConvertToKind(Value(code), MemberKind::Int16).get_if<std::int16_t>();
        texts[i] = colon == std::string::npos ? std::string() : e.substr(colon + 1);
    }
}

std::string RightTrim(std::string s) {
    while (!s.empty() && s.back() == ' ') s.pop_back();
    return s;
}

// Device parameter names by logical name: {logical, HART name, FFH1 name}.
struct DDRow {
    const char* logical;
    const char* hart;
    const char* ff;
};
constexpr DDRow kDDNames[] = {
    {"DDC__FDTUserLevel", "__DDC__FDTUserLevel", "__DDC_ADDONS.0.__DDC__FDTUSERLEVEL"},
    {"DDC__FDTUserName", "__DDC__FDTUserName", "__DDC__FDTUserName"},
    {"tag", "tag", "__DDC_ADDONS.0.PD_TAG"},
    {"Xmtr_SimpleFluidTypeCode", "fluid_type", "FLOW_TRANSDUCER_BLOCK.0.FLUID_TYPE_CODE"},
    {"Xmtr_SimpleRefStaticPress", "ref_sp", "FLOW_TRANSDUCER_BLOCK.0.REF_STATIC_PRESSURE"},
    {"Xmtr_SimpleRefTemp", "ref_temp", "FLOW_TRANSDUCER_BLOCK.0.REF_EXT_TEMPERATURE"},
    {"Xmtr_SimpleStaticPressUnit", "static_pressure_units", "static_pressure_units"},
    {"XmtrFF_FtbStaticPressUnit", "static_pressure_units",
     "FLOW_TRANSDUCER_BLOCK.0.STATIC_PRESSURE_UNIT"},
    {"Xmtr_SimpleTempK1ForLqdVar", "temp_k1", "FLOW_TRANSDUCER_BLOCK.0.TEMP_K1_FOR_LIQUID"},
    {"Xmtr_SimpleTempUnit", "et_units", "et_units"},
    {"XmtrFF_FtbTempUnitCode", "et_units", "FLOW_TRANSDUCER_BLOCK.0.EXT_TEMPERATURE_UNIT"},
    {"Xmtr_SimpleFlowCalcMode", "flow_calc_mode", "FLOW_TRANSDUCER_BLOCK.0.FLOW_CALCULATION_MODE"},
    {"Xmtr_SimpleDensityBase", "simple_dens_base", "simple_dens_base"},
    {"et_units", "et_units", "FLOW_TRANSDUCER_BLOCK.0.EXT_TEMPERATURE_UNIT"},
    {"static_pressure_units", "static_pressure_units",
     "FLOW_TRANSDUCER_BLOCK.0.STATIC_PRESSURE_UNIT"},
    {"Xmtr_CONFIG_DATE", "", "FLOW_TRANSDUCER_BLOCK.0.CONFIG_DATE"},
    {"Xmtr_CONFIG_OSTRING32", "", "FLOW_TRANSDUCER_BLOCK.0.CONFIG_OSTRING32"},
    {"Xmtr_CONFIG_SOFT_REV", "", "FLOW_TRANSDUCER_BLOCK.0.CONFIG_SOFT_REV"},
    {"Xmtr_CONFIG_VSTRING16_1", "", "FLOW_TRANSDUCER_BLOCK.0.CONFIG_VSTRING16.ENTRY1"},
    {"Xmtr_CONFIG_VSTRING16_2", "", "FLOW_TRANSDUCER_BLOCK.0.CONFIG_VSTRING16.ENTRY2"},
    {"Xmtr_CONFIG_VSTRING32", "", "FLOW_TRANSDUCER_BLOCK.0.CONFIG_VSTRING32"},
    {"Xmtr_CONFIG_WHO", "", "FLOW_TRANSDUCER_BLOCK.0.CONFIG_WHO"},
    {"Xmtr_SimpleFlowCalcFixedVar", "flow_calc_fixed", "FLOW_TRANSDUCER_BLOCK.0.FIXED_FLOW_VALUE"},
};

// The property bag's order. A name ending in "_" is an array.
const std::vector<std::string_view> kBagOrder = {
    "Y21_",
    "XAga_",
    "Gbl_ReadyToDownload",
    "Gbl_OpenMgtFilePath",
    "Gbl_OpenXmtrFilePath",
    "Gbl_OpenUIFilePath",
    "Gbl_SaveBinaryFilePath",
    "Gbl_SaveXmtrFilePath",
    "Gbl_SaveUIFilePath",
    "Gbl_SaveCalcFilePath",
    "Gbl_ReadFromFile",
    "Gbl_BinaryFileName",
    "Gbl_ReadyToSave",
    "Gbl_DoInitialize",
    "Mgt_",
    "UI_",
    "Xmtr_",
    "Gbl_ErrorCode",
    "Gbl_ErrorSubCode",
    "Gbl_ErrorMessage",
    "Gbl_HartMenuWindow",
    "Gbl_HartOfflineWindow",
    "NewAgaSetup",
    "c_",
    "Gbl_InitialDisplayCurrentValueFlag",
    "Gbl_Aga8DetailMethodName",
    "Gbl_OperatingRangeSetupCategory",
    "Gbl_OperatingRangeSetupLiquidCategory",
    "Gbl_OperatingRangeSetupMethod",
    "Gbl_OperatingRangeSetupLiquid",
    "Gbl_PhysicalPropertyCategory",
    "Gbl_PhysicalPropertyName",
    "CurrPMFDrive",
    "LoadFileName",
    "ClickViaFile",
    "calc_LowValDpP1Ratio",
    "calc_UpValDpP1Ratio",
    "calc_GasExpFactor_",
    "calc_DPP1Ratio_",
    "calc_Beta",
    "calc_GasExpFactorYcal_",
    "calc_DensityYcal_",
    "calc_ViscosityYcal_",
    "calc_GasExpFactorSigma",
    "calc_DensitySigma",
    "calc_ViscositySigma",
    "Mgt_ProgramName",
    "Mgt_SoftRevNO",
    "Mgt_FileFormatRevNo",
    "Mgt_ConfDate",
    "Mgt_UserName",
    "Mgt_UserRole",
    "Mgt_DebugModeFlag",
    "Mgt_ConfigCompleteFlag",
    "Mgt_OnlineModeFlag",
    "Mgt_DisplayCurrentValueFlag",
    "Mgt_MtdGasVisCalc",
    "Mgt_MtdIsenExpCalc",
    "Mgt_GasDensDiv",
    "Mgt_GasDensTempDiv",
    "Mgt_GasDensPressDiv",
    "Mgt_LqdDensTempDiv",
    "Mgt_GasVisTempDiv",
    "Mgt_LqdVisTempDiv",
    "Mgt_GasExpFacDiv",
    "Mgt_SaturatedSteamPressDiv",
    "Mgt_FldCommType",
    "Mgt_HrtCommtype",
    "Mgt_DbName",
    "Mgt_PollAddr",
    "Mgt_LongAddr",
    "Mgt_DigLen",
    "Mgt_MtdAirGasDensityCalculation",
    "Mgt_Reserve1",
    "Mgt_Reserve2",
    "Mgt_Reserve3",
    "Mgt_Reserve4",
    "Mgt_Reserve5",
    "Mgt_Reserve6",
    "Mgt_Reserve7",
    "Mgt_Reserve8",
    "Mgt_Reserve9",
    "Mgt_Reserve10",
    "Mgt_CfgSoftRev",
    "Mgt_Reserve12",
    "Mgt_Reserve13",
    "Mgt_Reserve14",
    "Mgt_Reserve15",
    "Mgt_Reserve16",
    "Mgt_Reserve17",
    "Mgt_Reserve18",
    "Mgt_Reserve19",
    "Mgt_Reserve20",
    "UI_NeverUsedRecord",
    "UI_PEType",
    "UI_PESubCodeName",
    "UI_PEName",
    "UI_PEDiameter",
    "UI_PEDiameterUnit",
    "UI_PETemp",
    "UI_PETempUnit",
    "UI_PEMaterial",
    "UI_PEPipeDiameter",
    "UI_PEPipeDiameterUnit",
    "UI_PipeTemperature",
    "UI_PipeTemperatureUnit",
    "UI_PipeMaterial",
    "UI_FluidType",
    "UI_FluidCat",
    "UI_FluidName",
    "UI_ChemID",
    "UI_DtlTotalMole",
    "UI_DtlMethaneMole",
    "UI_DtlN2Mole",
    "UI_DtlCO2Mole",
    "UI_DtlEthaneMole",
    "UI_DtlPropaneMole",
    "UI_DtlWaterMole",
    "UI_DtlH2SMole",
    "UI_DtlH2Mole",
    "UI_DtlCOMole",
    "UI_DtlO2Mole",
    "UI_DtlIsobutaneMole",
    "UI_DtlButaneMole",
    "UI_DtlIsoPentaneMole",
    "UI_DtlPentaneMole",
    "UI_DtlHexaneMole",
    "UI_DtlHeptaneMole",
    "UI_DtlOctaneMole",
    "UI_DtlNonaneMole",
    "UI_DtlDecaneMole",
    "UI_DtlHe4Mole",
    "UI_DtlArMole",
    "UI_RgRelDens",
    "UI_CO2Mole",
    "UI_VgHv",
    "UI_VgHvUnit",
    "UI_N2Mole",
    "UI_H2Mole",
    "UI_COMole",
    "UI_RangeP1",
    "UI_RangeP2",
    "UI_RangePUnit",
    "UI_RangeT1",
    "UI_RangeT2",
    "UI_RangeTUnit",
    "UI_PressRef",
    "UI_PressRefUnit",
    "UI_TempRef",
    "UI_TempRefUnit",
    "UI_DensUnit",
    "UI_DensAbsPress_",
    "UI_DensTemp_",
    "UI_Dens_",
    "UI_DensStandard_",
    "UI_ViscUnit",
    "UI_ViscTemp_",
    "UI_Visc_",
    "UI_ViscStandard_",
    "UI_VisPress_",
    "UI_RefDensValue",
    "UI_RefDensUnit",
    "UI_IsenExpValue",
    "UI_RefDensValueStandard",
    "UI_PEDiameterStandard",
    "UI_PETempStandard",
    "UI_PEPipeDiameterStandard",
    "UI_PEPipeTempStandard",
    "UI_VgHvStandard",
    "UI_RangeP1Standard",
    "UI_RangeP2Standard",
    "UI_RangeT1Standard",
    "UI_RangeT2Standard",
    "UI_PressRefStandard",
    "UI_TempRefStandard",
    "UI_DensAbsPressStandard_",
    "UI_DensTempStandard_",
    "UI_ViscTempStandard_",
    "UI_PEPrimaryDeviceCode",
    "UI_PESubcode",
    "UI_FluidNameMethodCode",
    "UI_AtmPressUnit",
    "UI_Reserve5",
    "UI_Reserve6",
    "UI_Reserve7",
    "UI_Reserve8",
    "UI_Reserve9",
    "UI_Reserve10",
    "UI_Reserve11",
    "UI_Reserve12",
    "UI_Reserve13",
    "UI_Reserve14",
    "UI_Reserve15",
    "UI_Reserve16",
    "UI_Reserve17",
    "UI_Reserve18",
    "UI_Reserve19",
    "UI_Reserve20",
    "UI_PEDisCoeff",
    "UI_PEGasExpFac",
    "UI_AtmPress",
    "UI_AtmPressStandard",
    "UI_MolWeight",
    "UI_Reserve26",
    "UI_Reserve27",
    "UI_Reserve28",
    "UI_Reserve29",
    "UI_Reserve30",
    "Xmtr_DensUnitCode",
    "Xmtr_LenUnitCode",
    "Xmtr_TempUnitCode",
    "Xmtr_RefDensUnitCode",
    "Xmtr_SimpleFluidTypeCode",
    "Xmtr_SimpleStaticPressUnit",
    "Xmtr_NeverUse",
    "Xmtr_SimpleTempUnit",
    "Xmtr_Reserve1",
    "Xmtr_Reserve2",
    "Xmtr_Reserve3",
    "Xmtr_Reserve4",
    "Xmtr_Reserve5",
    "Xmtr_Reserve6",
    "Xmtr_Reserve7",
    "Xmtr_Reserve8",
    "Xmtr_Reserve9",
    "Xmtr_Reserve10",
    "Xmtr_Reserve12",
    "Xmtr_Reserve13",
    "Xmtr_Reserve14",
    "Xmtr_Reserve15",
    "Xmtr_Reserve16",
    "Xmtr_Reserve17",
    "Xmtr_Reserve18",
    "Xmtr_Reserve19",
    "Xmtr_Reserve20",
    "Xmtr_Reserve21",
    "Xmtr_Reserve22",
    "Xmtr_Reserve23",
    "Xmtr_Reserve24",
    "Xmtr_Reserve25",
    "Xmtr_Reserve26",
    "Xmtr_Reserve27",
    "Xmtr_Reserve28",
    "Xmtr_Reserve29",
    "Xmtr_Reserve30",
    "Xmtr_Tag",
    "Xmtr_ModeSwitch",
    "Xmtr_DPUnit",
    "Xmtr_DPValue",
    "Xmtr_SPUnit",
    "Xmtr_SPValue",
    "Xmtr_PTUnit",
    "Xmtr_PTValue",
    "Xmtr_FlowData",
    "Xmtr_FlowDataUnit",
    "Xmtr_Out_SP",
    "Xmtr_Out_SP_Unit",
    "Xmtr_Out_DP",
    "Xmtr_Out_DP_Unit",
    "Xmtr_Out_PT",
    "Xmtr_Out_PT_Unit",
    "Xmtr_Out_DiscCoeff",
    "Xmtr_Out_ExpFac",
    "Xmtr_Out_ReyNo",
    "Xmtr_Out_Dens",
    "Xmtr_Out_DensUnit",
    "Xmtr_Out_Visc",
    "Xmtr_Out_ViscUnit",
};

std::string_view ArrayName(std::string_view entry) {
    return entry.ends_with('_') ? entry.substr(0, entry.size() - 1) : std::string_view();
}

// The bag's keys, "m_<member>" and "m_<array>_<index>", built in one buffer: thousands of them
// are written and looked up per save and restore, and a string each would dominate both.
class BagKey {
  public:
    BagKey() { buf_.reserve(64); }
    std::string_view Scalar(std::string_view member) {
        buf_.assign("m_").append(member);
        return buf_;
    }
    // Sets the array whose element keys At and Tail give.
    void Array(std::string_view array) {
        buf_.assign("m_").append(array).push_back('_');
        base_ = buf_.size();
        buf_.resize(base_ + 16);  // room for any index
    }
    std::string_view At(std::int32_t i) {
        const char* end = std::to_chars(buf_.data() + base_, buf_.data() + buf_.size(), i).ptr;
        return std::string_view(buf_.data(), static_cast<std::size_t>(end - buf_.data()));
    }
    std::string_view Tail(std::string_view tail) {
        buf_.resize(base_);
        buf_.append(tail);
        return buf_;
    }

  private:
    std::string buf_;
    std::size_t base_ = 0;
};

}  // namespace

const std::vector<std::string_view>& PropertyBagOrder() {
    return kBagOrder;
}

bool NotReadBackFromBag(std::string_view member) {
    static constexpr std::string_view kSessionOnly[] = {
        "CurrPMFDrive",       "Mgt_ProgramName", "Mgt_SoftRevNO", "Mgt_FileFormatRevNo",
        "Mgt_ConfDate",       "Mgt_UserName",    "Mgt_UserRole",  "Mgt_DebugModeFlag",
        "Mgt_OnlineModeFlag", "Mgt_FldCommType"};
    for (std::string_view n : kSessionOnly)
        if (n == member) return true;
    return false;
}

std::vector<std::string> PropertyBagKeys(const clsExGlobalVars& s) {
    std::vector<std::string> keys;
    for (std::string_view entry : kBagOrder) {
        if (std::string_view arr = ArrayName(entry); !arr.empty()) {
            const std::string base = "m_" + std::string(arr) + "_";
            const std::int32_t up = MemberUpper(s, arr);
            for (std::int32_t i = 0; i <= up; ++i) keys.push_back(base + std::to_string(i));
            keys.push_back(base + "arrayIndex");
        } else {
            keys.push_back("m_" + std::string(entry));
        }
    }
    return keys;
}

clsExGlobalVars::clsExGlobalVars() = default;
clsExGlobalVars::~clsExGlobalVars() = default;

void clsExGlobalVars::AssignValuesFrom(const clsExGlobalVars& other) {
    if (this != &other) *this = other;
}

void clsExGlobalVars::ClearPageList() {
    PageList.fill(std::string());
    CurrentPage = 0;
}

bool DeviceUnitOfferedInJapan(std::int32_t code, bool pressure) {
    auto holds = [code](const auto& rows) {
        for (const UnitRow& r : rows)
            if (r.code == code) return true;
        return false;
    };
    return pressure ? holds(kPressShort) : holds(kTempShort);
}

void clsExGlobalVars::SetUnitTables() {
    if (UserNation() == kNationJapan) {
        FillUnits(kPressShort, press_units, press_units_index);
        FillUnits(kTempShort, temp_units, temp_units_index);
    } else {
        FillUnits(kPressFull, press_units, press_units_index);
        FillUnits(kTempFull, temp_units, temp_units_index);
    }
}

std::vector<std::string> clsExGlobalVars::InitializeUnits(const Value& pressUnits,
                                                          const Value& tempUnits,
                                                          const Value& tagArg,
                                                          const Value& userLevel,
                                                          const Value& userName) {
    XLsqr.ReDim(0, 0);
    press_units.ReDim(0);
    press_units_index.ReDim(0);
    temp_units.ReDim(0);
    temp_units_index.ReDim(0);
    std::vector<std::string> unusable;
    if (BusID == "HART") {
        // A list the device does not deliver, or delivers malformed, stays empty: the rest of
        // the load (role, user, tag, date) must not depend on it.
        auto split = [&unusable](const Value& list, DynArray<std::string>& texts,
                                 DynArray<std::int16_t>& codes, const char* name) {
            try {
                SplitUnitList(list, texts, codes);
            } catch (const std::exception&) {
                texts.ReDim(-1);
                codes.ReDim(-1);
                unusable.emplace_back(name);
            }
        };
        split(pressUnits, press_units, press_units_index, "static_pressure_units");
        split(tempUnits, temp_units, temp_units_index, "et_units");
    } else {
        SetUnitTables();
    }

    // A value the frame never delivered is empty and reads as an empty text.
    auto text = [](const Value& v) {
        try {
            return ConvertToKind(v, MemberKind::String).str();
        } catch (const std::exception&) {
            return std::string();
        }
    };
    tag = RightTrim(text(tagArg));
    Xmtr_Tag = tag;

    // A level that is no number is "any other level".
    double level = -1.0;
    try {
        level = ConvertToKind(userLevel, MemberKind::Double).toDouble();
    } catch (const std::exception&) {
    }
    if (level == 0.0) {
        readonly_ = kTrue;
        Mgt_UserRole = "Observer";
    } else if (level == 1.0) {
        readonly_ = kTrue;
        Mgt_UserRole = "Operator";
    } else if (level == 2.0) {
        readonly_ = kFalse;
        Mgt_UserRole = "Maintenance";
    } else if (level == 3.0) {
        readonly_ = kFalse;
        Mgt_UserRole = "Planning Eng./Administrator";
    } else {
        readonly_ = kTrue;
    }

    // The frame's own name is no user name.
    const std::string user = text(userName);
    Mgt_UserName = (user == "PACTware" || user.empty()) ? Mgt_UserRole : user;

    Mgt_ConfDate = NowDateTime();
    Mgt_CfgSoftRev = Mgt_SoftRevNO;
    varsChanged = kTrue;
    if (!propertyBag) propertyBag = std::make_shared<PropertyBag>();
    return unusable;
}

void clsExGlobalVars::Initialize() {
    if (!ddNames_) ddNames_ = std::make_shared<PropertyBag>();
    for (const DDRow& row : kDDNames) {
        ddNames_->WriteProperty(std::string("HART_") + row.logical, Value(row.hart));
        ddNames_->WriteProperty(std::string("FFH1_") + row.logical, Value(row.ff));
    }
}

std::string clsExGlobalVars::GetDDName(const std::string& busId, const std::string& name) const {
    if (!ddNames_) return {};
    const Value* v = ddNames_->Find(busId + "_" + name);
    return v ? v->str() : std::string();
}

void clsExGlobalVars::Terminate() {
    ClearPageList();
    SDKManager = nullptr;
    FCWParent = nullptr;
    FCWMain = nullptr;
    propertyBag.reset();
    ddNames_.reset();
    FCWBO = nullptr;
}

void clsExGlobalVars::InitializePropertyBagFromVars() {
    // Sized first, so that filling it never grows it: every key, and room for their characters
    // (each array key is at most as long as the one of its top index or its "arrayIndex" key).
    std::size_t count = 0, keyBytes = 0;
    for (std::string_view entry : kBagOrder) {
        if (std::string_view arr = ArrayName(entry); !arr.empty()) {
            const std::size_t n = static_cast<std::size_t>(FindMember(arr)->upper(*this) + 2);
            count += n;
            keyBytes += n * (arr.size() + 3 + 10);
        } else {
            count += 1;
            keyBytes += entry.size() + 2;
        }
    }
    auto bag = std::make_shared<PropertyBag>();
    bag->Reserve(count, keyBytes);
    BagKey key;
    for (std::string_view entry : kBagOrder) {
        if (std::string_view arr = ArrayName(entry); !arr.empty()) {
            const MemberInfo& m = *FindMember(arr);
            key.Array(arr);
            const std::int32_t up = m.upper(*this);
            for (std::int32_t i = 0; i <= up; ++i) bag->WriteProperty(key.At(i), m.getAt(*this, i));
            bag->WriteProperty(key.Tail("arrayIndex"), Value(up));
        } else {
            bag->WriteProperty(key.Scalar(entry), FindMember(entry)->get(*this));
        }
    }
    propertyBag = std::move(bag);
}

void clsExGlobalVars::InitializeVarsFromPropertyBag() {
    if (!propertyBag) return;
    const PropertyBag& bag = *propertyBag;
    BagKey key;
    // Errors are ignored key by key: a missing or unreadable key leaves its member as it was.
    // A missing key is looked for, not thrown for: a bag of an older revision lacks thousands.
    for (std::string_view entry : kBagOrder) {
        if (std::string_view arr = ArrayName(entry); !arr.empty()) {
            const MemberInfo& m = *FindMember(arr);
            key.Array(arr);
            const std::int32_t up = m.upper(*this);
            for (std::int32_t i = 0; i <= up; ++i) {
                const Value* v = bag.Find(key.At(i));
                if (!v) continue;
                try {
                    m.setAt(*this, i, *v);
                } catch (const std::exception&) {
                }
            }
        } else if (!NotReadBackFromBag(entry)) {
            const Value* v = bag.Find(key.Scalar(entry));
            if (!v) continue;
            try {
                FindMember(entry)->set(*this, *v);
            } catch (const std::exception&) {
            }
        }
    }
}

}  // namespace qdf
