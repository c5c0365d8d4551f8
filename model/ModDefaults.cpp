#include "ModDefaults.h"

#include <optional>

#include "StoreRegistry.h"
#include "clsExGlobalVars.h"

namespace qdf {

namespace {

std::optional<std::string>& HostCommandLine() {
    static std::optional<std::string> line;
    return line;
}

struct UIRecord {
    std::vector<Value> values;
    std::vector<RecordField> fields;
};

UIRecord& TheUIRecord() {
    static UIRecord record;
    return record;
}

void TakeUIRecord(const clsExGlobalVars& s) {
    UIRecord& record = TheUIRecord();
    record.values.clear();
    record.fields.clear();
    // Every value in one block, sized first, so that the fields' views of it stay valid.
    std::size_t values = 0, fields = 0;
    for (const MemberInfo& m : StoreMembers()) {
        if (!m.name.starts_with("UI_")) continue;
        values += m.dims == 1 ? static_cast<std::size_t>(m.upper(s)) + 1 : 1;
        ++fields;
    }
    record.values.reserve(values);
    record.fields.reserve(fields);
    for (const MemberInfo& m : StoreMembers()) {
        if (!m.name.starts_with("UI_")) continue;
        const std::size_t first = record.values.size();
        if (m.dims == 1)
            m.getAll(s, record.values);
        else
            record.values.push_back(m.get(s));
        record.fields.push_back(
            {m.name, m.dims == 1, std::span<const Value>(record.values).subspan(first)});
    }
}

}  // namespace

void SetHostCommandLine(std::string commandLine) {
    HostCommandLine() = std::move(commandLine);
}
void ClearHostCommandLine() {
    HostCommandLine().reset();
}

std::string LoadFileNameFromCommandLine(std::string_view commandLine) {
    if (!commandLine.empty() && commandLine.front() == '"' && commandLine.back() == '"')
        return commandLine.size() >= 2 ? std::string(commandLine.substr(1, commandLine.size() - 2))
                                       : std::string();
    return std::string(commandLine);
}

const std::vector<RecordField>& ModuleUIRecord() {
    return TheUIRecord().fields;
}

void InitializeDefaults(clsExGlobalVars& s) {
    SetManagementDefaults(s);
    SetUserInputDefaults(s);
    SetCalculationOptionDefaults(s);
    s.ClickViaFile = kTrue;
    s.LoadFileName =
        HostCommandLine() ? LoadFileNameFromCommandLine(*HostCommandLine()) : std::string();
}

void SetManagementDefaults(clsExGlobalVars& s) {
    s.Mgt_ProgramName = "QDFSondra";
    s.Mgt_SoftRevNO = "1.05.00";
    s.Mgt_FileFormatRevNo = "1.00.00";
    s.Mgt_DebugModeFlag = 0;
    s.Mgt_ConfigCompleteFlag = 0;
    s.Mgt_OnlineModeFlag = 0;
    s.Mgt_DisplayCurrentValueFlag = 1;
    s.Mgt_HrtCommtype = 0;
    s.Mgt_DbName = "hrtQdfDbMvDll.mdb";
    s.Mgt_PollAddr = 0;
    s.Mgt_LongAddr.clear();
    s.Mgt_DigLen = 10;
    s.Gbl_HartMenuWindow = 0;
    s.Gbl_HartOfflineWindow = 0;
}

void SetUserInputDefaults(clsExGlobalVars& s) {
    s.Xmtr_SimpleFlowCalcMode = 0;
    s.Xmtr_SimpleFluidTypeCode = 0;
    s.Xmtr_SimpleTempUnit = 0;
    s.Xmtr_SimpleStaticPressUnit = 0;
    s.Xmtr_SimpleDensityBase = 0.0;
    s.Xmtr_NeverUse = 0.0;
    s.Xmtr_SimpleRefTemp = kNotEntered;
    s.Xmtr_SimpleFlowCalcFixedVar = kNotEntered;
    s.Xmtr_SimpleTempK1ForLqdVar = kNotEntered;
    s.Xmtr_SimpleRefStaticPress = kNotEntered;

    s.UI_NeverUsedRecord = kNotEntered;
    s.UI_PEType = kNotEntered;
    s.UI_FluidCat = kNotEntered;
    s.UI_VgHvUnit = kNotEntered;
    s.UI_PEPrimaryDeviceCode = kNotEntered;
    s.UI_PESubcode = kNotEntered;
    s.UI_FluidNameMethodCode = kNotEntered;
    s.UI_PESubCodeName.clear();
    s.UI_PEName.clear();
    s.UI_FluidName.clear();
    s.UI_ChemID.clear();
    s.UI_PEDiameter = kNotEntered;
    s.UI_PEPipeDiameter = kNotEntered;
    s.UI_PEDiameterUnit = 49;
    s.UI_PEPipeDiameterUnit = 49;
    s.UI_PETemp = 20.0;
    s.UI_PipeTemperature = 20.0;
    s.UI_PETempUnit = 32;
    s.UI_PipeTemperatureUnit = 32;
    s.UI_RangeTUnit = 32;
    s.UI_TempRefUnit = 32;
    s.UI_PEMaterial = "304 Stainless Steel";
    s.UI_PipeMaterial = "Carbon Steel";
    s.UI_FluidType = 2;

    s.UI_DtlTotalMole = 0.0;
    for (double* mole : s.DetailMoles()) *mole = 0.0;

    s.UI_RgRelDens = kNotEntered;
    s.UI_CO2Mole = kNotEntered;
    s.UI_VgHv = kNotEntered;
    s.UI_N2Mole = kNotEntered;
    s.UI_H2Mole = 0.0;
    s.UI_COMole = 0.0;
    s.UI_RangeP1 = kNotEntered;
    s.UI_RangeP2 = kNotEntered;
    s.UI_RangeT1 = kNotEntered;
    s.UI_RangeT2 = kNotEntered;
    s.UI_PressRef = kNotEntered;
    s.UI_TempRef = kNotEntered;
    s.UI_RangePUnit = 0;
    s.UI_PressRefUnit = 0;
    s.UI_ViscUnit = 0;
    s.UI_AtmPressUnit = 0;
    s.UI_DensUnit = 92;
    s.UI_RefDensUnit = 92;

    // The files carry 256 density points; the spare top element is left alone here.
    for (int i = 0; i <= 255; ++i) {
        s.UI_DensTemp[i] = 0.0;
        s.UI_DensAbsPress[i] = 0.0;
        s.UI_Dens[i] = 0.0;
        s.UI_DensStandard[i] = 0.0;
        s.UI_DensAbsPressStandard[i] = 0.0;
        s.UI_DensTempStandard[i] = 0.0;
    }
    for (int i = 0; i <= 31; ++i) {
        s.UI_ViscTemp[i] = 0.0;
        s.UI_Visc[i] = 0.0;
        s.UI_ViscStandard[i] = 0.0;
        s.UI_VisPress[i] = 0.0;
        s.UI_ViscTempStandard[i] = 0.0;
    }

    s.UI_RefDensValue = kNotEntered;
    s.UI_IsenExpValue = kNotEntered;
    s.UI_RefDensValueStandard = kNotEntered;
    for (double* standard :
         {&s.UI_PEDiameterStandard, &s.UI_PETempStandard, &s.UI_PEPipeDiameterStandard,
          &s.UI_VgHvStandard, &s.UI_RangeP1Standard, &s.UI_RangeP2Standard, &s.UI_RangeT1Standard,
          &s.UI_RangeT2Standard, &s.UI_PressRefStandard, &s.UI_TempRefStandard,
          &s.UI_AtmPressStandard})
        *standard = kNotEntered;
    // Unlike its neighbours, and kept so: the pipe temperature's standard copy starts at 0.
    s.UI_PEPipeTempStandard = 0.0;
    s.UI_MolWeight = kNotEntered;
    s.UI_PEDisCoeff = 0.0;
    s.UI_PEGasExpFac = 0.0;
    s.UI_AtmPress = 101.325;

    for (std::int32_t* r : {&s.UI_Reserve5, &s.UI_Reserve6, &s.UI_Reserve7, &s.UI_Reserve8,
                            &s.UI_Reserve9, &s.UI_Reserve10})
        *r = 0;
    for (std::string* r :
         {&s.UI_Reserve11, &s.UI_Reserve12, &s.UI_Reserve13, &s.UI_Reserve14, &s.UI_Reserve15,
          &s.UI_Reserve16, &s.UI_Reserve17, &s.UI_Reserve18, &s.UI_Reserve19, &s.UI_Reserve20})
        r->clear();
    for (double* r :
         {&s.UI_Reserve26, &s.UI_Reserve27, &s.UI_Reserve28, &s.UI_Reserve29, &s.UI_Reserve30})
        *r = 0.0;
}

void SetCalculationOptionDefaults(clsExGlobalVars& s) {
    s.Mgt_MtdGasVisCalc = 1;
    s.Mgt_MtdIsenExpCalc = 1;
    s.Mgt_GasDensDiv = 12;
    s.Mgt_GasDensTempDiv = 3;
    s.Mgt_GasDensPressDiv = 4;
    s.Mgt_LqdDensTempDiv = 4;
    s.Mgt_GasVisTempDiv = 4;
    s.Mgt_LqdVisTempDiv = 4;
    s.Mgt_GasExpFacDiv = 3;
    s.Mgt_MtdAirGasDensityCalculation = 0;
    for (std::int32_t* r :
         {&s.Mgt_Reserve1, &s.Mgt_Reserve2, &s.Mgt_Reserve3, &s.Mgt_Reserve4, &s.Mgt_Reserve5,
          &s.Mgt_Reserve6, &s.Mgt_Reserve7, &s.Mgt_Reserve8, &s.Mgt_Reserve9, &s.Mgt_Reserve10})
        *r = 0;
    for (std::string* r :
         {&s.Mgt_Reserve12, &s.Mgt_Reserve13, &s.Mgt_Reserve14, &s.Mgt_Reserve15, &s.Mgt_Reserve16,
          &s.Mgt_Reserve17, &s.Mgt_Reserve18, &s.Mgt_Reserve19, &s.Mgt_Reserve20})
        r->clear();
    TakeUIRecord(s);
}

void ResetOperatingRange(clsExGlobalVars& s) {
    s.UI_RangeP1 = kNotEntered;
    s.UI_RangeP2 = kNotEntered;
    s.UI_PressRef = kNotEntered;
    s.UI_RangePUnit = 0;
    s.UI_PressRefUnit = 0;
    ResetOperatingTemperature(s);
}

void ResetOperatingTemperature(clsExGlobalVars& s) {
    s.UI_RangeT1 = kNotEntered;
    s.UI_RangeT2 = kNotEntered;
    s.UI_TempRef = kNotEntered;
    s.UI_RangeTUnit = 32;
    s.UI_TempRefUnit = 32;
}

void ResetReferenceProperties(clsExGlobalVars& s) {
    s.UI_IsenExpValue = kNotEntered;
    s.UI_RefDensValue = kNotEntered;
    s.UI_RefDensValueStandard = kNotEntered;
}

void ResetPropertyTables(clsExGlobalVars& s) {
    for (int i = 0; i <= 256; ++i) {
        s.UI_Dens[i] = 0.0;
        s.UI_DensStandard[i] = 0.0;
    }
    for (int i = 0; i <= 31; ++i) {
        s.UI_Visc[i] = 0.0;
        s.UI_ViscStandard[i] = 0.0;
    }
}

CompoundTable& LiquidCompoundTable() {
    static CompoundTable table;
    return table;
}

CompoundTable& GasCompoundTable() {
    static CompoundTable table;
    return table;
}

void ResetCompoundTables() {
    for (std::size_t i = 0; i < kCompoundRows; ++i) {
        const auto row = static_cast<std::int64_t>(i);
        LiquidCompoundTable()[row] = CompoundRecord{"", 0, 0.0, 100.0, 0.0, 1000.0};
        GasCompoundTable()[row] = CompoundRecord{"", 0, 0.0, 100.0, 0.0, 10000.0};
    }
}

}  // namespace qdf
