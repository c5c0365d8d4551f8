#pragma once
// The variable store: the one object that carries the whole state of a wizard session. Pages,
// calculation, file formats and the download all read and write it; nothing else keeps
// configuration data. Members are public and keep their exact names, since the file formats and
// the device tables refer to them by name (see StoreRegistry.h).
//
// Conventions: numbers not yet entered hold kNotEntered; booleans are 16-bit, -1 true and 0 false;
// members whose name ends in "Flag" are 0 and 1; arrays start at 0 and every element access is
// checked (std::out_of_range beyond the bounds).

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "BoundedArray.h"
#include "PropertyBag.h"
#include "Value.h"

// Frame and module objects the store links to; the store never calls them.
class ISDKManager;
class ISDKBusinessObject;
class TVRQDFFlowConfigWizard;
class TVRQDFFCWMain;

namespace qdf {

// Marks a number that nothing has been entered for (and a cleared error code).
inline constexpr std::int32_t kNotEntered = -999999;
inline constexpr std::int16_t kTrue = -1;
inline constexpr std::int16_t kFalse = 0;

class clsExGlobalVars {
  public:
    clsExGlobalVars();
    ~clsExGlobalVars();
    clsExGlobalVars(const clsExGlobalVars&) = delete;
    // Every member's value as in `other`; object links (frame, parent, bags, business object)
    // are shared, not duplicated. For callers that need many stores in one prepared state
    // without preparing each (the readers' fuzz targets start every input from the defaults).
    void AssignValuesFrom(const clsExGlobalVars& other);

    // Declared ahead of everything else on purpose: its accessors come first.
    double calc_DensitySigma = kNotEntered;

    // ---- links, wizard state ------------------------------------------------------------
    std::string Mgt_HelpFilePath;
    TVRQDFFlowConfigWizard* FCWParent = nullptr;
    TVRQDFFCWMain* FCWMain = nullptr;
    ISDKManager* SDKManager = nullptr;
    std::string moduleID;
    // Read access only; InitializeUnits sets it from the user level.
    std::int16_t readonly() const { return readonly_; }
    std::int16_t varsChanged = kFalse;
    std::shared_ptr<PropertyBag> propertyBag;
    std::int16_t varsInitialized = kFalse;
    std::string BusID;
    ISDKBusinessObject* FCWBO = nullptr;
    std::string Gbl_OpenMgtFilePath;
    std::string Gbl_OpenXmtrFilePath;
    std::string Gbl_OpenUIFilePath;
    std::int16_t Gbl_ReadyToDownload = kFalse;
    std::string Gbl_SaveXmtrFilePath;
    std::string Gbl_SaveUIFilePath;
    std::string Gbl_SaveCalcFilePath;
    std::string Gbl_SaveBinaryFilePath;
    std::int16_t Gbl_ReadFromFile = kFalse;
    std::string Gbl_BinaryFileName;
    std::int16_t Gbl_ReadyToSave = kFalse;
    std::int16_t Gbl_DoInitialize = kFalse;
    std::int32_t CurrentPage = 0;
    std::int32_t Gbl_ErrorCode = kNotEntered;
    std::int32_t Gbl_ErrorSubCode = kNotEntered;
    std::string Gbl_ErrorMessage;
    std::int32_t Gbl_HartMenuWindow = 0;
    std::int32_t Gbl_HartOfflineWindow = 0;
    std::int16_t NewAgaSetup = kFalse;
    std::int32_t Gbl_InitialDisplayCurrentValueFlag = 0;
    std::string Gbl_Aga8DetailMethodName;
    std::string Gbl_OperatingRangeSetupCategory;
    std::string Gbl_OperatingRangeSetupLiquidCategory;
    std::string Gbl_OperatingRangeSetupMethod;
    std::string Gbl_OperatingRangeSetupLiquid;
    std::string Gbl_PhysicalPropertyCategory;
    std::string Gbl_PhysicalPropertyName;
    std::string CurrPMFDrive;
    std::string LoadFileName;
    std::int16_t ClickViaFile = kFalse;
    std::string Gbl_ReportFilePath;

    // ---- arrays -------------------------------------------------------------------------
    BoundedArray<double, 21> Y21;
    std::vector<double> GetY21() const { return Y21.copy(); }
    void SetY21(std::span<const double> v) { Y21.assign(v); }
    BoundedArray<double, 6> XAga;
    std::vector<double> GetXAga() const { return XAga.copy(); }
    void SetXAga(std::span<const double> v) { XAga.assign(v); }
    // Least-squares basis table, (term, row).
    DynArray2D<double> XLsqr;
    DynArray2D<double> GetXLsqr() const { return XLsqr; }
    void SetXLsqr(const DynArray2D<double>& v) { XLsqr.assign(v); }
    BoundedArray<std::string, 81> Mgt;
    BoundedArray<Value, 1001> UI;
    BoundedArray<std::string, 151> Xmtr;
    BoundedArray<double, 12> c;
    std::vector<double> Getc() const { return c.copy(); }
    void Setc(std::span<const double> v) { c.assign(v); }
    BoundedArray<double, 32> calc_GasExpFactor;
    std::vector<double> Getcalc_GasExpFactor() const { return calc_GasExpFactor.copy(); }
    void Setcalc_GasExpFactor(std::span<const double> v) { calc_GasExpFactor.assign(v); }
    BoundedArray<double, 32> calc_DPP1Ratio;
    BoundedArray<double, 32> calc_GasExpFactorYcal;
    std::vector<double> Getcalc_GasExpFactorYcal() const { return calc_GasExpFactorYcal.copy(); }
    void Setcalc_GasExpFactorYcal(std::span<const double> v) { calc_GasExpFactorYcal.assign(v); }
    BoundedArray<double, 256> calc_DensityYcal;
    std::vector<double> Getcalc_DensityYcal() const { return calc_DensityYcal.copy(); }
    void Setcalc_DensityYcal(std::span<const double> v) { calc_DensityYcal.assign(v); }
    BoundedArray<double, 256> calc_ViscosityYcal;
    std::vector<double> Getcalc_ViscosityYcal() const { return calc_ViscosityYcal.copy(); }
    void Setcalc_ViscosityYcal(std::span<const double> v) { calc_ViscosityYcal.assign(v); }
    // The density tables hold 257 entries of which the files use 256: a deliberate margin.
    BoundedArray<double, 257> UI_DensAbsPress;
    BoundedArray<double, 257> UI_DensTemp;
    BoundedArray<double, 257> UI_Dens;
    BoundedArray<double, 257> UI_DensStandard;
    std::vector<double> GetUI_DensStandard() const { return UI_DensStandard.copy(); }
    void SetUI_DensStandard(std::span<const double> v) { UI_DensStandard.assign(v); }
    BoundedArray<double, 32> UI_ViscTemp;
    BoundedArray<double, 32> UI_Visc;
    BoundedArray<double, 32> UI_ViscStandard;
    std::vector<double> GetUI_ViscStandard() const { return UI_ViscStandard.copy(); }
    void SetUI_ViscStandard(std::span<const double> v) { UI_ViscStandard.assign(v); }
    BoundedArray<double, 32> UI_VisPress;
    BoundedArray<double, 257> UI_DensAbsPressStandard;
    BoundedArray<double, 257> UI_DensTempStandard;
    BoundedArray<double, 32> UI_ViscTempStandard;
    // One element more than files and device carry (0 to 5, 0 to 17): a deliberate margin.
    BoundedArray<double, 7> Xmtr_DisCoeff;
    std::vector<double> GetXmtr_DisCoeff() const { return Xmtr_DisCoeff.copy(); }
    void SetXmtr_DisCoeff(std::span<const double> v) { Xmtr_DisCoeff.assign(v); }
    BoundedArray<double, 7> Xmtr_ExpFac;
    BoundedArray<double, 7> Xmtr_VisCoeff;
    BoundedArray<double, 19> Xmtr_DensCoeff;
    // Names of the pages passed through, for Back.
    BoundedArray<std::string, 1001> PageList;
    // Blanks every entry and starts the path again at entry 0.
    void ClearPageList();

    // ---- calculation results ------------------------------------------------------------
    double calc_LowValDpP1Ratio = kNotEntered;
    double calc_UpValDpP1Ratio = kNotEntered;
    double calc_Beta = kNotEntered;
    double calc_GasExpFactorSigma = kNotEntered;
    double calc_ViscositySigma = kNotEntered;

    // ---- management ---------------------------------------------------------------------
    std::string Mgt_ProgramName;
    std::string Mgt_SoftRevNO;
    std::string Mgt_FileFormatRevNo;
    std::string Mgt_ConfDate;
    std::string Mgt_UserRole;
    std::string Mgt_UserName;
    std::int32_t Mgt_DebugModeFlag = 0;
    std::int32_t Mgt_ConfigCompleteFlag = 0;
    std::int32_t Mgt_OnlineModeFlag = 0;
    std::int32_t Mgt_DisplayCurrentValueFlag = 0;
    std::int32_t Mgt_MtdGasVisCalc = kNotEntered;
    std::int32_t Mgt_MtdIsenExpCalc = kNotEntered;
    std::int32_t Mgt_GasDensDiv = kNotEntered;
    std::int32_t Mgt_GasDensTempDiv = kNotEntered;
    std::int32_t Mgt_GasDensPressDiv = kNotEntered;
    std::int32_t Mgt_LqdDensTempDiv = kNotEntered;
    std::int32_t Mgt_GasVisTempDiv = kNotEntered;
    std::int32_t Mgt_LqdVisTempDiv = kNotEntered;
    std::int32_t Mgt_GasExpFacDiv = kNotEntered;
    std::int32_t Mgt_SaturatedSteamPressDiv = kNotEntered;
    std::int32_t Mgt_FldCommType = 0;
    std::int32_t Mgt_HrtCommtype = 0;
    std::string Mgt_DbName;
    std::int32_t Mgt_PollAddr = 0;
    std::string Mgt_LongAddr;
    std::int32_t Mgt_DigLen = kNotEntered;
    std::int32_t Mgt_MtdAirGasDensityCalculation = kNotEntered;
    // Reserved slots keep their names and places: every file format carries them.
    std::int32_t Mgt_Reserve1 = 0;
    std::int32_t Mgt_Reserve2 = 0;
    std::int32_t Mgt_Reserve3 = 0;
    std::int32_t Mgt_Reserve4 = 0;
    std::int32_t Mgt_Reserve5 = 0;
    std::int32_t Mgt_Reserve6 = 0;
    std::int32_t Mgt_Reserve7 = 0;
    std::int32_t Mgt_Reserve8 = 0;
    std::int32_t Mgt_Reserve9 = 0;
    std::int32_t Mgt_Reserve10 = 0;
    std::string Mgt_CfgSoftRev;
    std::string Mgt_Reserve12;
    std::string Mgt_Reserve13;
    std::string Mgt_Reserve14;
    std::string Mgt_Reserve15;
    std::string Mgt_Reserve16;
    std::string Mgt_Reserve17;
    std::string Mgt_Reserve18;
    std::string Mgt_Reserve19;
    std::string Mgt_Reserve20;

    // ---- user input ---------------------------------------------------------------------
    std::int32_t UI_NeverUsedRecord = kNotEntered;
    std::int32_t UI_PEType = kNotEntered;
    std::string UI_PESubCodeName;
    std::string UI_PEName;
    double UI_PEDiameter = kNotEntered;
    std::int32_t UI_PEDiameterUnit = kNotEntered;
    double UI_PETemp = kNotEntered;
    std::int32_t UI_PETempUnit = kNotEntered;
    std::string UI_PEMaterial;
    double UI_PEPipeDiameter = kNotEntered;
    std::int32_t UI_PEPipeDiameterUnit = kNotEntered;
    double UI_PipeTemperature = kNotEntered;
    std::int32_t UI_PipeTemperatureUnit = kNotEntered;
    std::string UI_PipeMaterial;
    std::int32_t UI_FluidType = kNotEntered;
    std::int32_t UI_FluidCat = kNotEntered;
    std::string UI_FluidName;
    std::string UI_ChemID;
    double UI_DtlTotalMole = kNotEntered;
    double UI_DtlMethaneMole = kNotEntered;
    double UI_DtlN2Mole = kNotEntered;
    double UI_DtlCO2Mole = kNotEntered;
    double UI_DtlEthaneMole = kNotEntered;
    double UI_DtlPropaneMole = kNotEntered;
    double UI_DtlWaterMole = kNotEntered;
    double UI_DtlH2SMole = kNotEntered;
    double UI_DtlH2Mole = kNotEntered;
    double UI_DtlCOMole = kNotEntered;
    double UI_DtlO2Mole = kNotEntered;
    double UI_DtlIsobutaneMole = kNotEntered;
    double UI_DtlButaneMole = kNotEntered;
    double UI_DtlIsoPentaneMole = kNotEntered;
    double UI_DtlPentaneMole = kNotEntered;
    double UI_DtlHexaneMole = kNotEntered;
    double UI_DtlHeptaneMole = kNotEntered;
    double UI_DtlOctaneMole = kNotEntered;
    double UI_DtlNonaneMole = kNotEntered;
    double UI_DtlDecaneMole = kNotEntered;
    double UI_DtlHe4Mole = kNotEntered;
    double UI_DtlArMole = kNotEntered;
    // The 21 detail mole percentages in the order of the composition vector Y21.
    std::array<double*, 21> DetailMoles() {
        return {&UI_DtlMethaneMole,    &UI_DtlN2Mole,      &UI_DtlCO2Mole,       &UI_DtlEthaneMole,
                &UI_DtlPropaneMole,    &UI_DtlWaterMole,   &UI_DtlH2SMole,       &UI_DtlH2Mole,
                &UI_DtlCOMole,         &UI_DtlO2Mole,      &UI_DtlIsobutaneMole, &UI_DtlButaneMole,
                &UI_DtlIsoPentaneMole, &UI_DtlPentaneMole, &UI_DtlHexaneMole,    &UI_DtlHeptaneMole,
                &UI_DtlOctaneMole,     &UI_DtlNonaneMole,  &UI_DtlDecaneMole,    &UI_DtlHe4Mole,
                &UI_DtlArMole};
    }
    double UI_RgRelDens = kNotEntered;
    double UI_CO2Mole = kNotEntered;
    double UI_VgHv = kNotEntered;
    std::int32_t UI_VgHvUnit = kNotEntered;
    double UI_N2Mole = kNotEntered;
    double UI_H2Mole = kNotEntered;
    double UI_COMole = kNotEntered;
    double UI_RangeP1 = kNotEntered;
    double UI_RangeP2 = kNotEntered;
    std::int32_t UI_RangePUnit = kNotEntered;
    double UI_RangeT1 = kNotEntered;
    double UI_RangeT2 = kNotEntered;
    // The one 16-bit integer of this section.
    std::int16_t UI_RangeTUnit = 0;
    double UI_PressRef = kNotEntered;
    std::int32_t UI_PressRefUnit = kNotEntered;
    double UI_TempRef = kNotEntered;
    std::int32_t UI_TempRefUnit = kNotEntered;
    std::int32_t UI_DensUnit = kNotEntered;
    std::int32_t UI_ViscUnit = kNotEntered;
    double UI_RefDensValue = kNotEntered;
    std::int32_t UI_RefDensUnit = kNotEntered;
    double UI_IsenExpValue = kNotEntered;
    double UI_RefDensValueStandard = kNotEntered;
    double UI_PEDiameterStandard = kNotEntered;
    double UI_PETempStandard = kNotEntered;
    double UI_PEPipeDiameterStandard = kNotEntered;
    double UI_PEPipeTempStandard = kNotEntered;
    double UI_VgHvStandard = kNotEntered;
    double UI_RangeP1Standard = kNotEntered;
    double UI_RangeP2Standard = kNotEntered;
    double UI_RangeT1Standard = kNotEntered;
    double UI_RangeT2Standard = kNotEntered;
    double UI_PressRefStandard = kNotEntered;
    double UI_TempRefStandard = kNotEntered;
    std::int32_t UI_PEPrimaryDeviceCode = kNotEntered;
    std::int32_t UI_PESubcode = kNotEntered;
    std::int32_t UI_FluidNameMethodCode = kNotEntered;
    std::int32_t UI_AtmPressUnit = kNotEntered;
    std::int32_t UI_Reserve5 = 0;
    std::int32_t UI_Reserve6 = 0;
    std::int32_t UI_Reserve7 = 0;
    std::int32_t UI_Reserve8 = 0;
    std::int32_t UI_Reserve9 = 0;
    std::int32_t UI_Reserve10 = 0;
    std::string UI_Reserve11;
    std::string UI_Reserve12;
    std::string UI_Reserve13;
    std::string UI_Reserve14;
    std::string UI_Reserve15;
    std::string UI_Reserve16;
    std::string UI_Reserve17;
    std::string UI_Reserve18;
    std::string UI_Reserve19;
    std::string UI_Reserve20;
    double UI_PEDisCoeff = kNotEntered;
    double UI_PEGasExpFac = kNotEntered;
    double UI_AtmPress = kNotEntered;
    double UI_AtmPressStandard = kNotEntered;
    double UI_MolWeight = kNotEntered;
    double UI_Reserve26 = 0.0;
    double UI_Reserve27 = 0.0;
    double UI_Reserve28 = 0.0;
    double UI_Reserve29 = 0.0;
    double UI_Reserve30 = 0.0;

    // ---- transmitter and device link ----------------------------------------------------
    std::int32_t Xmtr_PDCode = kNotEntered;
    std::int32_t Xmtr_FluidTypeCode = kNotEntered;
    std::int32_t Xmtr_DensUnitCode = kNotEntered;
    std::int32_t Xmtr_PDLenUnitCode = kNotEntered;
    double Xmtr_PriDevTherExpFac = kNotEntered;
    double Xmtr_PipeTherExpFac = kNotEntered;
    std::int32_t Xmtr_LenUnitCode = kNotEntered;
    double Xmtr_Smalld = kNotEntered;
    double Xmtr_BigD = kNotEntered;
    std::int32_t Xmtr_TempUnitCode = kNotEntered;
    double Xmtr_TSmallD = kNotEntered;
    double Xmtr_TBigD = kNotEntered;
    std::int32_t Xmtr_RefDensUnitCode = kNotEntered;
    double Xmtr_VolFlowBaseDens = kNotEntered;
    std::int32_t Xmtr_SimpleFlowCalcMode = kNotEntered;
    std::int32_t Xmtr_SimpleFluidTypeCode = kNotEntered;
    double Xmtr_SimpleFlowCalcFixedVar = kNotEntered;
    std::int32_t Xmtr_SimpleStaticPressUnit = kNotEntered;
    double Xmtr_NeverUse = kNotEntered;
    std::int32_t Xmtr_SimpleTempUnit = kNotEntered;
    std::int32_t HART_SimpleTempUnitSave = kNotEntered;
    double Xmtr_SimpleRefTemp = kNotEntered;
    double Xmtr_SimpleTempK1ForLqdVar = kNotEntered;
    double Xmtr_SimpleDensityBase = kNotEntered;
    std::int32_t Xmtr_Reserve1 = 0;
    std::int32_t Xmtr_Reserve2 = 0;
    std::int32_t Xmtr_Reserve3 = 0;
    std::int32_t Xmtr_Reserve4 = 0;
    std::int32_t Xmtr_Reserve5 = 0;
    std::int32_t Xmtr_Reserve6 = 0;
    std::int32_t Xmtr_Reserve7 = 0;
    std::int32_t Xmtr_Reserve8 = 0;
    std::int32_t Xmtr_Reserve9 = 0;
    std::int32_t Xmtr_Reserve10 = 0;
    double Xmtr_SimpleRefStaticPress = kNotEntered;
    double Xmtr_Reserve12 = 0.0;
    double Xmtr_Reserve13 = 0.0;
    double Xmtr_Reserve14 = 0.0;
    double Xmtr_Reserve15 = 0.0;
    double Xmtr_Reserve16 = 0.0;
    double Xmtr_Reserve17 = 0.0;
    double Xmtr_Reserve18 = 0.0;
    double Xmtr_Reserve19 = 0.0;
    double Xmtr_Reserve20 = 0.0;
    std::string Xmtr_Reserve21;
    std::string Xmtr_Reserve22;
    std::string Xmtr_Reserve23;
    std::string Xmtr_Reserve24;
    std::string Xmtr_Reserve25;
    std::string Xmtr_Reserve26;
    std::string Xmtr_Reserve27;
    std::string Xmtr_Reserve28;
    std::string Xmtr_Reserve29;
    std::string Xmtr_Reserve30;
    std::string Xmtr_Tag;
    std::int32_t Xmtr_ModeSwitch = kNotEntered;
    std::string Xmtr_DPUnit;
    double Xmtr_DPValue = kNotEntered;
    std::string Xmtr_SPUnit;
    double Xmtr_SPValue = kNotEntered;
    std::string Xmtr_PTUnit;
    double Xmtr_PTValue = kNotEntered;
    double Xmtr_FlowData = kNotEntered;
    std::string Xmtr_FlowDataUnit;
    double Xmtr_Out_SP = kNotEntered;
    std::string Xmtr_Out_SP_Unit;
    double Xmtr_Out_DP = kNotEntered;
    std::string Xmtr_Out_DP_Unit;
    double Xmtr_Out_PT = kNotEntered;
    std::string Xmtr_Out_PT_Unit;
    double Xmtr_Out_DiscCoeff = kNotEntered;
    double Xmtr_Out_ExpFac = kNotEntered;
    double Xmtr_Out_ReyNo = kNotEntered;
    double Xmtr_Out_Dens = kNotEntered;
    std::string Xmtr_Out_DensUnit;
    double Xmtr_Out_Visc = kNotEntered;
    std::int32_t Xmtr_Out_ViscUnit = kNotEntered;
    // Device tag as the frame delivered it, right-trimmed.
    std::string tag;
    std::string Xmtr_CONFIG_SOFT_REV;
    std::string Xmtr_CONFIG_DATE;
    std::string Xmtr_CONFIG_WHO;
    std::string Xmtr_CONFIG_VSTRING32;
    std::string Xmtr_CONFIG_VSTRING16_1;
    std::string Xmtr_CONFIG_VSTRING16_2;
    std::string Xmtr_CONFIG_OSTRING32;
    std::int32_t XmtrFF_FtbLenUnitCode = kNotEntered;
    std::int32_t XmtrFF_FtbTempUnitCode = kNotEntered;
    std::int32_t FF_FtbTempUnitCodeSave = kNotEntered;
    std::int32_t XmtrFF_FtbDensUnitCode = kNotEntered;
    std::int32_t XmtrFF_FtbStaticPressUnit = kNotEntered;
    // "Japan" where the computer's nation is 122, else "Other"; limits the unit choices.
    std::string strCorvanePCLocation;

    // ---- unit tables: texts and device codes at the same positions ----------------------
    DynArray<std::string> press_units;
    DynArray<std::int16_t> press_units_index;
    DynArray<std::string> temp_units;
    DynArray<std::int16_t> temp_units_index;
    std::vector<std::string> Getpress_units() const { return press_units.copy(); }
    std::vector<std::int16_t> Getpress_units_index() const { return press_units_index.copy(); }
    std::vector<std::string> Gettemp_units() const { return temp_units.copy(); }
    std::vector<std::int16_t> Gettemp_units_index() const { return temp_units_index.copy(); }

    // ---- operations ---------------------------------------------------------------------
    // Unit lists, tag, role, user, date, revision copy. On "HART" the two lists are the
    // device's enumerations ("code:text" strings, as a string array Value); on any other bus
    // they are ignored and the fixed lists are used. A HART list that is not an array of
    // strings, or has an entry without ":" or with a code that is no 16-bit integer, stays
    // empty and the rest goes on; the names of such lists ("static_pressure_units",
    // "et_units") are returned, for the caller to tell the user.
    std::vector<std::string> InitializeUnits(const Value& pressUnits, const Value& tempUnits,
                                             const Value& tagArg, const Value& userLevel,
                                             const Value& userName);
    // Builds the table of device parameter names ("HART_" / "FFH1_" + logical name).
    void Initialize();
    // The parameter name under busId + "_" + name, or "" when the table has no such key.
    std::string GetDDName(const std::string& busId, const std::string& name) const;
    void Terminate();
    // Replaces propertyBag by a new one holding every persisted member.
    void InitializePropertyBagFromVars();
    // Reads the persisted members back; absent or unreadable keys leave their member as is.
    void InitializeVarsFromPropertyBag();

    // The parameter name table built by Initialize (none before).
    const PropertyBag* ddNameTable() const { return ddNames_.get(); }

  private:
    // Private, so that no page copies the store by mistake; AssignValuesFrom says it out loud.
    clsExGlobalVars& operator=(const clsExGlobalVars&) = default;
    void SetUnitTables();

    std::int16_t readonly_ = kTrue;
    std::shared_ptr<PropertyBag> ddNames_;
};

// True when a device unit code is in the short table that "Japan" is offered (pressure or
// temperature).
bool DeviceUnitOfferedInJapan(std::int32_t code, bool pressure);

}  // namespace qdf
