#include "StoreRegistry.h"

#include <cctype>
#include <cmath>
#include <limits>
#include <optional>
#include <stdexcept>
#include <unordered_map>

#include "NumberText.h"
#include "clsExGlobalVars.h"

namespace qdf {

namespace {

[[noreturn]] void TypeMismatch(std::string_view what) {
    throw std::invalid_argument("type mismatch: " + std::string(what));
}

// Number of a general value: booleans are -1/0, empty is 0, a string must pass the numeric test.
double NumberOf(const Value& v) {
    switch (v.kind()) {
        case Value::Kind::Empty:
            return 0.0;
        case Value::Kind::String: {
            const std::optional<double> d = ParseNumber(v.str());
            if (!d) TypeMismatch("'" + v.str() + "' is not a number");
            return *d;
        }
        case Value::Kind::StringArray:
            TypeMismatch("an array is not a number");
        default:
            return v.toDouble();
    }
}

// Integers round half to even, as the store's integer conversion always has.
template <class I>
I IntegerOf(const Value& v) {
    if (const I* exact = v.get_if<I>()) return *exact;
    const double d = NumberOf(v);
    const double r = std::nearbyint(d);
    if (!(r >= static_cast<double>(std::numeric_limits<I>::min()) &&
          r <= static_cast<double>(std::numeric_limits<I>::max())))
        throw std::overflow_error("overflow converting " + std::to_string(d) + " to an integer");
    return static_cast<I>(r);
}

bool BoolOf(const Value& v) {
    if (const bool* b = v.get_if<bool>()) return *b;
    if (v.isString()) {
        std::string t;
        for (char ch : v.str())
            t += static_cast<char>(std::tolower(static_cast<unsigned char>(ch)));
        if (t == "true") return true;
        if (t == "false") return false;
    }
    return NumberOf(v) != 0.0;
}

// A number as text takes the plain number-to-text form.
std::string TextOf(const Value& v) {
    switch (v.kind()) {
        case Value::Kind::Empty:
            return {};
        case Value::Kind::String:
            return v.str();
        case Value::Kind::Bool:
            return *v.get_if<bool>() ? "True" : "False";
        case Value::Kind::Int16:
        case Value::Kind::Int32:
            return std::to_string(static_cast<long long>(v.toDouble()));
        case Value::Kind::StringArray:
            TypeMismatch("an array is not a text");
        case Value::Kind::Float:
            return NumToTextSingle(*v.get_if<float>());
        default:
            return NumToText(v.toDouble());
    }
}

template <MemberKind K, class T>
Value Encode(const T& x) {
    if constexpr (K == MemberKind::Bool16)
        return Value(x != 0);
    else
        return Value(x);
}

template <MemberKind K, class T>
void Decode(const Value& v, T& out) {
    if constexpr (K == MemberKind::Cell)
        out = v;
    else if constexpr (K == MemberKind::Bool16)
        out = BoolOf(v) ? kTrue : kFalse;
    else if constexpr (K == MemberKind::String)
        out = TextOf(v);
    else if constexpr (K == MemberKind::Double)
        out = NumberOf(v);
    else
        out = IntegerOf<T>(v);
}

using S = clsExGlobalVars;

template <auto P, MemberKind K>
MemberInfo Scalar(std::string_view name, bool persisted) {
    MemberInfo m{name, K, 0, persisted};
    m.get = [](const S& s) { return Encode<K>(s.*P); };
    m.set = [](S& s, const Value& v) { Decode<K>(v, s.*P); };
    return m;
}

template <auto P, MemberKind K>
MemberInfo Array(std::string_view name, bool persisted) {
    MemberInfo m{name, K, 1, persisted};
    m.upper = [](const S& s) { return static_cast<std::int32_t>((s.*P).upper()); };
    m.getAt = [](const S& s, std::int32_t i) { return Encode<K>((s.*P).at(i)); };
    m.setAt = [](S& s, std::int32_t i, const Value& v) { Decode<K>(v, (s.*P).at(i)); };
    return m;
}

MemberInfo ReadOnlyFlag() {
    MemberInfo m{"readonly", MemberKind::Bool16, 0, false};
    m.get = [](const S& s) { return Value(s.readonly() != 0); };
    return m;
}

#define SCALAR(n, k, p) Scalar<&S::n, MemberKind::k>(#n, p)
#define ARRAY(n, k, p) Array<&S::n, MemberKind::k>(#n, p)
#define ARRAY2D(n)                       \
    MemberInfo {                         \
#n, MemberKind::Double, 2, false \
    }
#define LINK(n)                        \
    MemberInfo {                       \
#n, MemberKind::Link, 0, false \
    }

std::vector<MemberInfo> BuildMembers() {
    return {
        SCALAR(calc_DensitySigma, Double, true),
        SCALAR(Mgt_HelpFilePath, String, false),
        LINK(FCWParent),
        LINK(FCWMain),
        LINK(SDKManager),
        SCALAR(moduleID, String, false),
        ReadOnlyFlag(),
        SCALAR(varsChanged, Bool16, false),
        LINK(propertyBag),
        SCALAR(varsInitialized, Bool16, false),
        SCALAR(BusID, String, false),
        LINK(FCWBO),
        SCALAR(Gbl_OpenMgtFilePath, String, true),
        SCALAR(Gbl_OpenXmtrFilePath, String, true),
        SCALAR(Gbl_OpenUIFilePath, String, true),
        SCALAR(Gbl_ReadyToDownload, Bool16, true),
        SCALAR(Gbl_SaveXmtrFilePath, String, true),
        SCALAR(Gbl_SaveUIFilePath, String, true),
        SCALAR(Gbl_SaveCalcFilePath, String, true),
        SCALAR(Gbl_SaveBinaryFilePath, String, true),
        SCALAR(Gbl_ReadFromFile, Bool16, true),
        SCALAR(Gbl_BinaryFileName, String, true),
        SCALAR(Gbl_ReadyToSave, Bool16, true),
        SCALAR(Gbl_DoInitialize, Bool16, true),
        SCALAR(CurrentPage, Int32, false),
        SCALAR(Gbl_ErrorCode, Int32, true),
        SCALAR(Gbl_ErrorSubCode, Int32, true),
        SCALAR(Gbl_ErrorMessage, String, true),
        SCALAR(Gbl_HartMenuWindow, Int32, true),
        SCALAR(Gbl_HartOfflineWindow, Int32, true),
        SCALAR(NewAgaSetup, Bool16, true),
        SCALAR(Gbl_InitialDisplayCurrentValueFlag, Int32, true),
        SCALAR(Gbl_Aga8DetailMethodName, String, true),
        SCALAR(Gbl_OperatingRangeSetupCategory, String, true),
        SCALAR(Gbl_OperatingRangeSetupLiquidCategory, String, true),
        SCALAR(Gbl_OperatingRangeSetupMethod, String, true),
        SCALAR(Gbl_OperatingRangeSetupLiquid, String, true),
        SCALAR(Gbl_PhysicalPropertyCategory, String, true),
        SCALAR(Gbl_PhysicalPropertyName, String, true),
        SCALAR(CurrPMFDrive, String, true),
        SCALAR(LoadFileName, String, true),
        SCALAR(ClickViaFile, Bool16, true),
        SCALAR(Gbl_ReportFilePath, String, false),
        ARRAY(Y21, Double, true),
        ARRAY(XAga, Double, true),
        ARRAY2D(XLsqr),
        ARRAY(Mgt, String, true),
        ARRAY(UI, Cell, true),
        ARRAY(Xmtr, String, true),
        ARRAY(c, Double, true),
        ARRAY(calc_GasExpFactor, Double, true),
        ARRAY(calc_DPP1Ratio, Double, true),
        ARRAY(calc_GasExpFactorYcal, Double, true),
        ARRAY(calc_DensityYcal, Double, true),
        ARRAY(calc_ViscosityYcal, Double, true),
        ARRAY(UI_DensAbsPress, Double, true),
        ARRAY(UI_DensTemp, Double, true),
        ARRAY(UI_Dens, Double, true),
        ARRAY(UI_DensStandard, Double, true),
        ARRAY(UI_ViscTemp, Double, true),
        ARRAY(UI_Visc, Double, true),
        ARRAY(UI_ViscStandard, Double, true),
        ARRAY(UI_VisPress, Double, true),
        ARRAY(UI_DensAbsPressStandard, Double, true),
        ARRAY(UI_DensTempStandard, Double, true),
        ARRAY(UI_ViscTempStandard, Double, true),
        ARRAY(Xmtr_DisCoeff, Double, false),
        ARRAY(Xmtr_ExpFac, Double, false),
        ARRAY(Xmtr_VisCoeff, Double, false),
        ARRAY(Xmtr_DensCoeff, Double, false),
        ARRAY(PageList, String, false),
        SCALAR(calc_LowValDpP1Ratio, Double, true),
        SCALAR(calc_UpValDpP1Ratio, Double, true),
        SCALAR(calc_Beta, Double, true),
        SCALAR(calc_GasExpFactorSigma, Double, true),
        SCALAR(calc_ViscositySigma, Double, true),
        SCALAR(Mgt_ProgramName, String, true),
        SCALAR(Mgt_SoftRevNO, String, true),
        SCALAR(Mgt_FileFormatRevNo, String, true),
        SCALAR(Mgt_ConfDate, String, true),
        SCALAR(Mgt_UserRole, String, true),
        SCALAR(Mgt_UserName, String, true),
        SCALAR(Mgt_DebugModeFlag, Int32, true),
        SCALAR(Mgt_ConfigCompleteFlag, Int32, true),
        SCALAR(Mgt_OnlineModeFlag, Int32, true),
        SCALAR(Mgt_DisplayCurrentValueFlag, Int32, true),
        SCALAR(Mgt_MtdGasVisCalc, Int32, true),
        SCALAR(Mgt_MtdIsenExpCalc, Int32, true),
        SCALAR(Mgt_GasDensDiv, Int32, true),
        SCALAR(Mgt_GasDensTempDiv, Int32, true),
        SCALAR(Mgt_GasDensPressDiv, Int32, true),
        SCALAR(Mgt_LqdDensTempDiv, Int32, true),
        SCALAR(Mgt_GasVisTempDiv, Int32, true),
        SCALAR(Mgt_LqdVisTempDiv, Int32, true),
        SCALAR(Mgt_GasExpFacDiv, Int32, true),
        SCALAR(Mgt_SaturatedSteamPressDiv, Int32, true),
        SCALAR(Mgt_FldCommType, Int32, true),
        SCALAR(Mgt_HrtCommtype, Int32, true),
        SCALAR(Mgt_DbName, String, true),
        SCALAR(Mgt_PollAddr, Int32, true),
        SCALAR(Mgt_LongAddr, String, true),
        SCALAR(Mgt_DigLen, Int32, true),
        SCALAR(Mgt_MtdAirGasDensityCalculation, Int32, true),
        SCALAR(Mgt_Reserve1, Int32, true),
        SCALAR(Mgt_Reserve2, Int32, true),
        SCALAR(Mgt_Reserve3, Int32, true),
        SCALAR(Mgt_Reserve4, Int32, true),
        SCALAR(Mgt_Reserve5, Int32, true),
        SCALAR(Mgt_Reserve6, Int32, true),
        SCALAR(Mgt_Reserve7, Int32, true),
        SCALAR(Mgt_Reserve8, Int32, true),
        SCALAR(Mgt_Reserve9, Int32, true),
        SCALAR(Mgt_Reserve10, Int32, true),
        SCALAR(Mgt_CfgSoftRev, String, true),
        SCALAR(Mgt_Reserve12, String, true),
        SCALAR(Mgt_Reserve13, String, true),
        SCALAR(Mgt_Reserve14, String, true),
        SCALAR(Mgt_Reserve15, String, true),
        SCALAR(Mgt_Reserve16, String, true),
        SCALAR(Mgt_Reserve17, String, true),
        SCALAR(Mgt_Reserve18, String, true),
        SCALAR(Mgt_Reserve19, String, true),
        SCALAR(Mgt_Reserve20, String, true),
        SCALAR(UI_NeverUsedRecord, Int32, true),
        SCALAR(UI_PEType, Int32, true),
        SCALAR(UI_PESubCodeName, String, true),
        SCALAR(UI_PEName, String, true),
        SCALAR(UI_PEDiameter, Double, true),
        SCALAR(UI_PEDiameterUnit, Int32, true),
        SCALAR(UI_PETemp, Double, true),
        SCALAR(UI_PETempUnit, Int32, true),
        SCALAR(UI_PEMaterial, String, true),
        SCALAR(UI_PEPipeDiameter, Double, true),
        SCALAR(UI_PEPipeDiameterUnit, Int32, true),
        SCALAR(UI_PipeTemperature, Double, true),
        SCALAR(UI_PipeTemperatureUnit, Int32, true),
        SCALAR(UI_PipeMaterial, String, true),
        SCALAR(UI_FluidType, Int32, true),
        SCALAR(UI_FluidCat, Int32, true),
        SCALAR(UI_FluidName, String, true),
        SCALAR(UI_ChemID, String, true),
        SCALAR(UI_DtlTotalMole, Double, true),
        SCALAR(UI_DtlMethaneMole, Double, true),
        SCALAR(UI_DtlN2Mole, Double, true),
        SCALAR(UI_DtlCO2Mole, Double, true),
        SCALAR(UI_DtlEthaneMole, Double, true),
        SCALAR(UI_DtlPropaneMole, Double, true),
        SCALAR(UI_DtlWaterMole, Double, true),
        SCALAR(UI_DtlH2SMole, Double, true),
        SCALAR(UI_DtlH2Mole, Double, true),
        SCALAR(UI_DtlCOMole, Double, true),
        SCALAR(UI_DtlO2Mole, Double, true),
        SCALAR(UI_DtlIsobutaneMole, Double, true),
        SCALAR(UI_DtlButaneMole, Double, true),
        SCALAR(UI_DtlIsoPentaneMole, Double, true),
        SCALAR(UI_DtlPentaneMole, Double, true),
        SCALAR(UI_DtlHexaneMole, Double, true),
        SCALAR(UI_DtlHeptaneMole, Double, true),
        SCALAR(UI_DtlOctaneMole, Double, true),
        SCALAR(UI_DtlNonaneMole, Double, true),
        SCALAR(UI_DtlDecaneMole, Double, true),
        SCALAR(UI_DtlHe4Mole, Double, true),
        SCALAR(UI_DtlArMole, Double, true),
        SCALAR(UI_RgRelDens, Double, true),
        SCALAR(UI_CO2Mole, Double, true),
        SCALAR(UI_VgHv, Double, true),
        SCALAR(UI_VgHvUnit, Int32, true),
        SCALAR(UI_N2Mole, Double, true),
        SCALAR(UI_H2Mole, Double, true),
        SCALAR(UI_COMole, Double, true),
        SCALAR(UI_RangeP1, Double, true),
        SCALAR(UI_RangeP2, Double, true),
        SCALAR(UI_RangePUnit, Int32, true),
        SCALAR(UI_RangeT1, Double, true),
        SCALAR(UI_RangeT2, Double, true),
        SCALAR(UI_RangeTUnit, Int16, true),
        SCALAR(UI_PressRef, Double, true),
        SCALAR(UI_PressRefUnit, Int32, true),
        SCALAR(UI_TempRef, Double, true),
        SCALAR(UI_TempRefUnit, Int32, true),
        SCALAR(UI_DensUnit, Int32, true),
        SCALAR(UI_ViscUnit, Int32, true),
        SCALAR(UI_RefDensValue, Double, true),
        SCALAR(UI_RefDensUnit, Int32, true),
        SCALAR(UI_IsenExpValue, Double, true),
        SCALAR(UI_RefDensValueStandard, Double, true),
        SCALAR(UI_PEDiameterStandard, Double, true),
        SCALAR(UI_PETempStandard, Double, true),
        SCALAR(UI_PEPipeDiameterStandard, Double, true),
        SCALAR(UI_PEPipeTempStandard, Double, true),
        SCALAR(UI_VgHvStandard, Double, true),
        SCALAR(UI_RangeP1Standard, Double, true),
        SCALAR(UI_RangeP2Standard, Double, true),
        SCALAR(UI_RangeT1Standard, Double, true),
        SCALAR(UI_RangeT2Standard, Double, true),
        SCALAR(UI_PressRefStandard, Double, true),
        SCALAR(UI_TempRefStandard, Double, true),
        SCALAR(UI_PEPrimaryDeviceCode, Int32, true),
        SCALAR(UI_PESubcode, Int32, true),
        SCALAR(UI_FluidNameMethodCode, Int32, true),
        SCALAR(UI_AtmPressUnit, Int32, true),
        SCALAR(UI_Reserve5, Int32, true),
        SCALAR(UI_Reserve6, Int32, true),
        SCALAR(UI_Reserve7, Int32, true),
        SCALAR(UI_Reserve8, Int32, true),
        SCALAR(UI_Reserve9, Int32, true),
        SCALAR(UI_Reserve10, Int32, true),
        SCALAR(UI_Reserve11, String, true),
        SCALAR(UI_Reserve12, String, true),
        SCALAR(UI_Reserve13, String, true),
        SCALAR(UI_Reserve14, String, true),
        SCALAR(UI_Reserve15, String, true),
        SCALAR(UI_Reserve16, String, true),
        SCALAR(UI_Reserve17, String, true),
        SCALAR(UI_Reserve18, String, true),
        SCALAR(UI_Reserve19, String, true),
        SCALAR(UI_Reserve20, String, true),
        SCALAR(UI_PEDisCoeff, Double, true),
        SCALAR(UI_PEGasExpFac, Double, true),
        SCALAR(UI_AtmPress, Double, true),
        SCALAR(UI_AtmPressStandard, Double, true),
        SCALAR(UI_MolWeight, Double, true),
        SCALAR(UI_Reserve26, Double, true),
        SCALAR(UI_Reserve27, Double, true),
        SCALAR(UI_Reserve28, Double, true),
        SCALAR(UI_Reserve29, Double, true),
        SCALAR(UI_Reserve30, Double, true),
        SCALAR(Xmtr_PDCode, Int32, false),
        SCALAR(Xmtr_FluidTypeCode, Int32, false),
        SCALAR(Xmtr_DensUnitCode, Int32, true),
        SCALAR(Xmtr_PDLenUnitCode, Int32, false),
        SCALAR(Xmtr_PriDevTherExpFac, Double, false),
        SCALAR(Xmtr_PipeTherExpFac, Double, false),
        SCALAR(Xmtr_LenUnitCode, Int32, true),
        SCALAR(Xmtr_Smalld, Double, false),
        SCALAR(Xmtr_BigD, Double, false),
        SCALAR(Xmtr_TempUnitCode, Int32, true),
        SCALAR(Xmtr_TSmallD, Double, false),
        SCALAR(Xmtr_TBigD, Double, false),
        SCALAR(Xmtr_RefDensUnitCode, Int32, true),
        SCALAR(Xmtr_VolFlowBaseDens, Double, false),
        SCALAR(Xmtr_SimpleFlowCalcMode, Int32, false),
        SCALAR(Xmtr_SimpleFluidTypeCode, Int32, true),
        SCALAR(Xmtr_SimpleFlowCalcFixedVar, Double, false),
        SCALAR(Xmtr_SimpleStaticPressUnit, Int32, true),
        SCALAR(Xmtr_NeverUse, Double, true),
        SCALAR(Xmtr_SimpleTempUnit, Int32, true),
        SCALAR(HART_SimpleTempUnitSave, Int32, false),
        SCALAR(Xmtr_SimpleRefTemp, Double, false),
        SCALAR(Xmtr_SimpleTempK1ForLqdVar, Double, false),
        SCALAR(Xmtr_SimpleDensityBase, Double, false),
        SCALAR(Xmtr_Reserve1, Int32, true),
        SCALAR(Xmtr_Reserve2, Int32, true),
        SCALAR(Xmtr_Reserve3, Int32, true),
        SCALAR(Xmtr_Reserve4, Int32, true),
        SCALAR(Xmtr_Reserve5, Int32, true),
        SCALAR(Xmtr_Reserve6, Int32, true),
        SCALAR(Xmtr_Reserve7, Int32, true),
        SCALAR(Xmtr_Reserve8, Int32, true),
        SCALAR(Xmtr_Reserve9, Int32, true),
        SCALAR(Xmtr_Reserve10, Int32, true),
        SCALAR(Xmtr_SimpleRefStaticPress, Double, false),
        SCALAR(Xmtr_Reserve12, Double, true),
        SCALAR(Xmtr_Reserve13, Double, true),
        SCALAR(Xmtr_Reserve14, Double, true),
        SCALAR(Xmtr_Reserve15, Double, true),
        SCALAR(Xmtr_Reserve16, Double, true),
        SCALAR(Xmtr_Reserve17, Double, true),
        SCALAR(Xmtr_Reserve18, Double, true),
        SCALAR(Xmtr_Reserve19, Double, true),
        SCALAR(Xmtr_Reserve20, Double, true),
        SCALAR(Xmtr_Reserve21, String, true),
        SCALAR(Xmtr_Reserve22, String, true),
        SCALAR(Xmtr_Reserve23, String, true),
        SCALAR(Xmtr_Reserve24, String, true),
        SCALAR(Xmtr_Reserve25, String, true),
        SCALAR(Xmtr_Reserve26, String, true),
        SCALAR(Xmtr_Reserve27, String, true),
        SCALAR(Xmtr_Reserve28, String, true),
        SCALAR(Xmtr_Reserve29, String, true),
        SCALAR(Xmtr_Reserve30, String, true),
        SCALAR(Xmtr_Tag, String, true),
        SCALAR(Xmtr_ModeSwitch, Int32, true),
        SCALAR(Xmtr_DPUnit, String, true),
        SCALAR(Xmtr_DPValue, Double, true),
        SCALAR(Xmtr_SPUnit, String, true),
        SCALAR(Xmtr_SPValue, Double, true),
        SCALAR(Xmtr_PTUnit, String, true),
        SCALAR(Xmtr_PTValue, Double, true),
        SCALAR(Xmtr_FlowData, Double, true),
        SCALAR(Xmtr_FlowDataUnit, String, true),
        SCALAR(Xmtr_Out_SP, Double, true),
        SCALAR(Xmtr_Out_SP_Unit, String, true),
        SCALAR(Xmtr_Out_DP, Double, true),
        SCALAR(Xmtr_Out_DP_Unit, String, true),
        SCALAR(Xmtr_Out_PT, Double, true),
        SCALAR(Xmtr_Out_PT_Unit, String, true),
        SCALAR(Xmtr_Out_DiscCoeff, Double, true),
        SCALAR(Xmtr_Out_ExpFac, Double, true),
        SCALAR(Xmtr_Out_ReyNo, Double, true),
        SCALAR(Xmtr_Out_Dens, Double, true),
        SCALAR(Xmtr_Out_DensUnit, String, true),
        SCALAR(Xmtr_Out_Visc, Double, true),
        SCALAR(Xmtr_Out_ViscUnit, Int32, true),
        SCALAR(tag, String, false),
        SCALAR(Xmtr_CONFIG_SOFT_REV, String, false),
        SCALAR(Xmtr_CONFIG_DATE, String, false),
        SCALAR(Xmtr_CONFIG_WHO, String, false),
        SCALAR(Xmtr_CONFIG_VSTRING32, String, false),
        SCALAR(Xmtr_CONFIG_VSTRING16_1, String, false),
        SCALAR(Xmtr_CONFIG_VSTRING16_2, String, false),
        SCALAR(Xmtr_CONFIG_OSTRING32, String, false),
        SCALAR(XmtrFF_FtbLenUnitCode, Int32, false),
        SCALAR(XmtrFF_FtbTempUnitCode, Int32, false),
        SCALAR(FF_FtbTempUnitCodeSave, Int32, false),
        SCALAR(XmtrFF_FtbDensUnitCode, Int32, false),
        SCALAR(XmtrFF_FtbStaticPressUnit, Int32, false),
        SCALAR(strCorvanePCLocation, String, false),
        ARRAY(press_units, String, false),
        ARRAY(press_units_index, Int16, false),
        ARRAY(temp_units, String, false),
        ARRAY(temp_units_index, Int16, false),
    };
}

#undef SCALAR
#undef ARRAY
#undef ARRAY2D
#undef LINK

const MemberInfo& Require(std::string_view name, int dims) {
    const MemberInfo* m = FindMember(name);
    if (!m) throw std::invalid_argument("the store has no member " + std::string(name));
    if (m->dims != dims || m->kind == MemberKind::Link)
        throw std::invalid_argument(std::string(name) + " cannot be reached that way");
    return *m;
}

Value ValueOfJson(const nlohmann::ordered_json& j) {
    if (j.is_null()) return Value();
    if (j.is_boolean()) return Value(j.get<bool>());
    if (j.is_number_integer()) {
        const auto n = j.get<long long>();
        if (n >= std::numeric_limits<std::int32_t>::min() &&
            n <= std::numeric_limits<std::int32_t>::max())
            return Value(static_cast<std::int32_t>(n));
        return Value(static_cast<double>(n));
    }
    if (j.is_number()) return Value(j.get<double>());
    if (j.is_string()) return Value(j.get<std::string>());
    TypeMismatch("JSON " + std::string(j.type_name()) + " is no member value");
}

nlohmann::ordered_json JsonOfValue(const Value& v) {
    switch (v.kind()) {
        case Value::Kind::Empty:
            return nullptr;
        case Value::Kind::Bool:
            return *v.get_if<bool>();
        case Value::Kind::Int16:
        case Value::Kind::Int32:
            return static_cast<std::int32_t>(v.toDouble());
        case Value::Kind::String:
            return v.str();
        case Value::Kind::StringArray:
            return v.strings();
        default:
            return v.toDouble();
    }
}

}  // namespace

const std::vector<MemberInfo>& StoreMembers() {
    static const std::vector<MemberInfo> members = BuildMembers();
    return members;
}

const MemberInfo* FindMember(std::string_view name) {
    static const auto index = [] {
        std::unordered_map<std::string_view, const MemberInfo*> idx;
        for (const MemberInfo& m : StoreMembers()) idx.emplace(m.name, &m);
        return idx;
    }();
    auto it = index.find(name);
    return it == index.end() ? nullptr : it->second;
}

Value GetMember(const clsExGlobalVars& s, std::string_view name) {
    return Require(name, 0).get(s);
}

void SetMember(clsExGlobalVars& s, std::string_view name, const Value& v) {
    const MemberInfo& m = Require(name, 0);
    if (!m.set) throw std::invalid_argument(std::string(name) + " is read-only");
    m.set(s, v);
}

std::int32_t MemberUpper(const clsExGlobalVars& s, std::string_view name) {
    return Require(name, 1).upper(s);
}

Value GetElement(const clsExGlobalVars& s, std::string_view name, std::int32_t i) {
    return Require(name, 1).getAt(s, i);
}

void SetElement(clsExGlobalVars& s, std::string_view name, std::int32_t i, const Value& v) {
    Require(name, 1).setAt(s, i, v);
}

Value ConvertToKind(const Value& v, MemberKind kind) {
    switch (kind) {
        case MemberKind::String:
            return Value(TextOf(v));
        case MemberKind::Bool16:
            return Value(BoolOf(v));
        case MemberKind::Int16:
            return Value(IntegerOf<std::int16_t>(v));
        case MemberKind::Int32:
            return Value(IntegerOf<std::int32_t>(v));
        case MemberKind::Double:
            return Value(NumberOf(v));
        case MemberKind::Cell:
            return v;
        case MemberKind::Link:
            break;
    }
    TypeMismatch("an object link holds no value");
}

nlohmann::ordered_json MemberToJson(const clsExGlobalVars& s, const MemberInfo& m) {
    if (m.dims == 0 && m.get) return JsonOfValue(m.get(s));
    if (m.dims == 1) {
        auto arr = nlohmann::ordered_json::array();
        const std::int32_t up = m.upper(s);
        for (std::int32_t i = 0; i <= up; ++i) arr.push_back(JsonOfValue(m.getAt(s, i)));
        return arr;
    }
    if (m.dims == 2 && m.name == "XLsqr") {
        auto rows = nlohmann::ordered_json::array();
        for (std::int32_t i = 0; i <= s.XLsqr.upper(1); ++i) {
            auto row = nlohmann::ordered_json::array();
            for (std::int32_t j = 0; j <= s.XLsqr.upper(2); ++j) row.push_back(s.XLsqr(i, j));
            rows.push_back(std::move(row));
        }
        return rows;
    }
    return nullptr;
}

void MemberFromJson(clsExGlobalVars& s, const MemberInfo& m, const nlohmann::ordered_json& j) {
    if (m.dims == 0) {
        if (!m.set) throw std::invalid_argument(std::string(m.name) + " is read-only");
        m.set(s, ValueOfJson(j));
        return;
    }
    if (m.dims == 1) {
        if (!j.is_array()) TypeMismatch(std::string(m.name) + " takes an array");
        for (std::size_t i = 0; i < j.size(); ++i)
            m.setAt(s, static_cast<std::int32_t>(i), ValueOfJson(j[i]));
        return;
    }
    throw std::invalid_argument(std::string(m.name) + " cannot be set from JSON");
}

nlohmann::ordered_json PersistedMembersToJson(const clsExGlobalVars& s) {
    auto out = nlohmann::ordered_json::object();
    for (const MemberInfo& m : StoreMembers())
        if (m.persisted) out[std::string(m.name)] = MemberToJson(s, m);
    return out;
}

}  // namespace qdf
