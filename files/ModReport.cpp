#include "ModReport.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <optional>
#include <stdexcept>
#include <string_view>

#include "AnsiText.h"
#include "CodeTables.h"
#include "FileErrors.h"
#include "FileMessages.h"
#include "LineForm.h"
#include "ModUnit.h"
#include "NumberText.h"
#include "SDKFrame.h"
#include "clsExGlobalVars.h"

namespace qdf {

namespace {

constexpr std::string_view kSaturatedSteam = "Saturated steam";
constexpr std::string_view kRoundTemperature = "###0.########";
constexpr std::string_view kRoundViscosity = "#.########E+00";

// The report file, written line by line so that a failure part way leaves the lines before it.
class ReportOut {
  public:
    explicit ReportOut(const std::string& path) : out_(path, std::ios::binary | std::ios::trunc) {
        if (!out_) throw FileAccessError(path);
    }

    // A line of fields; End() writes it.
    LineBuilder& Line() { return line_; }
    void End() {
        line_.End();
        out_ << Utf8ToAnsi(line_.Text());
        if (!out_) throw std::runtime_error("report write failed");
        line_ = LineBuilder();
    }

    void Mark(std::string_view text) {
        line_.Str(text);
        End();
    }
    // One empty string field, as the sections use for spacing.
    void BlankRow() { Mark(""); }
    // A line without any field.
    void EmptyLine() { End(); }
    void Row(std::string_view label, std::string_view text) {
        line_.Str(label).Str(text);
        End();
    }
    void Row(std::string_view label, double v) {
        line_.Str(label).Dbl(v);
        End();
    }
    void Row(std::string_view label, std::int32_t v) {
        line_.Str(label).Int(v);
        End();
    }
    // The three-field rows of the gross methods: label, reference conditions, value.
    void Row(std::string_view label, std::string_view conditions, double v) {
        line_.Str(label).Str(conditions).Dbl(v);
        End();
    }

    void Close() {
        out_.close();
        if (!out_) throw std::runtime_error("report close failed");
    }

  private:
    std::ofstream out_;
    LineBuilder line_;
};

// Rounds through the text of a display pattern, so the report shows what the pages show.
double RoundByPattern(double v, std::string_view pattern) {
    const std::optional<double> back = ParseNumber(FormatNumber(v, pattern));
    return back ? *back : v;
}

// Saturated steam tables carry their temperatures in kelvin only; the report shows them in the
// range unit, rounded through the page pattern so the conversion's binary tail (211.99999999999994
// for 373.15 K in deg F) stays out of the file. A value whose 15-digit text has no point comes
// back unchanged to 15 digits, so rounding it too changes nothing a reader sees.
double SteamTableTemperature(double kelvin, std::int32_t rangeTUnit) {
    return RoundByPattern(ConvertTemperature(kelvin, rangeTUnit), kRoundTemperature);
}

std::optional<std::string> PressureHead(std::int32_t code) {
    if (code < 0 || code >= static_cast<std::int32_t>(kPageOperatingPressureUnits.size()))
        return std::nullopt;
    return "Pressure (" + std::string(kPageOperatingPressureUnits[static_cast<size_t>(code)]) + ")";
}

std::optional<std::string> TemperatureHead(std::int32_t code) {
    switch (code) {
        case kHartDegC:
            return "Temperature (deg C)";
        case kHartDegF:
            return "Temperature (deg F)";
        case kHartKelvin:
            return "Temperature (Kelvin)";
        default:
            return std::nullopt;
    }
}

std::string DensityHead(std::int32_t code) {
    return code == 92 ? "Density (kg/m3)" : "Density (lb/ft3)";
}

std::optional<std::string> ViscosityHead(std::int32_t code) {
    switch (code) {
        case 0:
            return "Viscosity (Pa sec)";
        case 1:
            return "Viscosity (lb/ft sec)";
        default:
            return std::nullopt;
    }
}

bool IsTableLiquid(const clsExGlobalVars& s) {
    return s.UI_FluidCat == 1 || s.UI_FluidCat == 3;
}

void WriteGeneral(ReportOut& out, const clsExGlobalVars& s) {
    out.Line().Str("========").Str("========").Str("REPORT FILE").Str("========").Str("========");
    out.End();
    out.BlankRow();
    out.BlankRow();

    out.Mark("<General Information>");
    out.Row("Program Name: ", s.Mgt_ProgramName);
    out.Row("Software Revision Name", s.Mgt_SoftRevNO);
    out.Row("File Format Revision Number", s.Mgt_FileFormatRevNo);
    out.Row("Configuration Date and Time", s.Mgt_ConfDate);
    out.Row("Configuration User Name", s.Mgt_UserName);
    out.Row("Configuration Software Revision", s.Mgt_CfgSoftRev);
    out.Row("Field Communication Type", CommunicationText(s.Mgt_FldCommType));
    out.Row("Flow Configuration Mode", ModeText(s.Xmtr_SimpleFlowCalcMode));
    out.Row("Tag", s.Xmtr_Tag);
    out.BlankRow();
}

void WritePrimaryDevice(ReportOut& out, const clsExGlobalVars& s) {
    out.Mark("<Primary Device and Pipe Setup>");
    out.Row("Primary Device Type", DeviceTypeText(s.UI_PEType));
    out.Row("Primary Device Name", s.UI_PEName);
    out.Row("Primary Device Code", s.UI_PEPrimaryDeviceCode);
    out.Row("Primary Device Discharge Coefficient", s.UI_PEDisCoeff);
    out.Row("Primary Device Expansion Factor", s.UI_PEGasExpFac);
    out.Row("Primary Device Diameter", s.UI_PEDiameter);
    out.Row("Primary Device Diameter Unit", LengthUnitText(s.UI_PEDiameterUnit));
    out.Row("Primary Device Temperature", s.UI_PETemp);
    out.Row("Primary Device Temperature Unit", RangeTempUnitText(s.UI_PETempUnit));
    out.Row("Primary Device Material", s.UI_PEMaterial);
    out.BlankRow();
    out.Row("Pipe Diameter", s.UI_PEPipeDiameter);
    out.Row("Pipe Diameter Unit", LengthUnitText(s.UI_PEPipeDiameterUnit));
    out.Row("Pipe Temperature", s.UI_PipeTemperature);
    out.Row("Pipe Temperature Unit", RangeTempUnitText(s.UI_PipeTemperatureUnit));
    out.Row("Pipe Material", s.UI_PipeMaterial);
    out.BlankRow();
}

void WriteDetailComposition(ReportOut& out, const clsExGlobalVars& s) {
    struct MoleRow {
        std::string_view label;
        double value;
    };
    const std::array<MoleRow, 22> rows{{
        {"Detail Total Mole", s.UI_DtlTotalMole}, {"Methane Mole", s.UI_DtlMethaneMole},
        {"Nitrogen Mole", s.UI_DtlN2Mole},        {"Carbon Dioxide Mole", s.UI_DtlCO2Mole},
        {"Ethane Mole", s.UI_DtlEthaneMole},      {"Propane Mole", s.UI_DtlPropaneMole},
        {"Water Mole", s.UI_DtlWaterMole},        {"Hydrogen Sulfide Mole", s.UI_DtlH2SMole},
        {"Hydrogen Mole", s.UI_DtlH2Mole},        {"Carbon Monoxide Mole", s.UI_DtlCOMole},
        {"Oxygen Mole", s.UI_DtlO2Mole},          {"Iso Butane Mole", s.UI_DtlIsobutaneMole},
        {"n-Butane Mole", s.UI_DtlButaneMole},    {"Iso Pentane Mole", s.UI_DtlIsoPentaneMole},
        {"n-Pentane Mole", s.UI_DtlPentaneMole},  {"n-Hexane Mole", s.UI_DtlHexaneMole},
        {"n-Heptane Mole", s.UI_DtlHeptaneMole},  {"n-Octane Mole", s.UI_DtlOctaneMole},
        {"n-Nonane Mole", s.UI_DtlNonaneMole},    {"n-Decane Mole", s.UI_DtlDecaneMole},
        {"Helium-4 Mole", s.UI_DtlHe4Mole},       {"Argon Mole", s.UI_DtlArMole},
    }};
    out.BlankRow();
    out.Mark("<Natural Gas Setup>");
    out.Mark("<Mole Component Information>");
    for (const MoleRow& r : rows) out.Row(r.label, r.value);
}

void WriteGrossProperties(ReportOut& out, const clsExGlobalVars& s) {
    constexpr std::string_view kUsConditions = "at 60 degF, 14.73 psi abs";
    const bool gross1 = s.UI_FluidName == "AGA8 Gross Characterization Method 1";
    const bool gross2 = s.UI_FluidName == "AGA8 Gross Characterization Method 2";
    const bool iso = !gross1 && !gross2;

    out.BlankRow();
    out.Mark("<Natural Gas Setup>");
    out.Row("Real Gas Relative Density", iso ? "at 0 degC, 1.01325 bar abs" : kUsConditions,
            s.UI_RgRelDens);
    out.Row("Carbon Dioxide Mole", s.UI_CO2Mole);
    if (gross1) {
        out.Row("Volumetric Gross Heating Value", kUsConditions, s.UI_VgHv);
        out.Row("Volumetric Gross Heating Value Unit", HeatingValueUnitText(s.UI_VgHvUnit));
    }
    if (gross2) out.Row("Nitrogen Mole", s.UI_N2Mole);
    if (iso) {
        out.Row("Volumetric Gross Heating Value", "at 25 degC, 1.01325 bar abs", s.UI_VgHv);
        out.Row("Volumetric Gross Heating Value Unit", HeatingValueUnitText(s.UI_VgHvUnit));
        out.Row("Hydrogen Mole", s.UI_H2Mole);
    }
    if (!iso) out.Row("Carbon Monoxide Mole", s.UI_COMole);
}

void WriteFluid(ReportOut& out, const clsExGlobalVars& s) {
    out.Mark("<Fluid Type Setup>");
    out.Row("Fluid Type", FluidTypeText(s.UI_FluidType));
    out.Row("Fluid Category", CategoryText(s.UI_FluidCat));
    if (!s.UI_ChemID.empty()) out.Row("Chemical ID", s.UI_ChemID);
    out.Row("Fluid Name", s.UI_FluidName);

    const std::string& name = s.UI_FluidName;
    if (name == "AGA8 Detail Characterization Method" ||
        name == "ISO12213 molar-composition analysis") {
        WriteDetailComposition(out, s);
    } else if (name == "AGA8 Gross Characterization Method 1" ||
               name == "AGA8 Gross Characterization Method 2" ||
               name == "ISO12213 physical properties") {
        WriteGrossProperties(out, s);
    }
    out.BlankRow();
}

void WriteRange(ReportOut& out, const clsExGlobalVars& s) {
    const bool pressures = !IsTableLiquid(s);
    const bool temperatures = s.UI_FluidName != kSaturatedSteam;
    out.Mark("<Fluid Operating Range Setup>");
    if (pressures) {
        out.Row("Range P1", s.UI_RangeP1);
        out.Row("Range P2", s.UI_RangeP2);
        out.Row("Range P Unit", RangePressUnitText(s.UI_RangePUnit));
        out.Row("Atmospheric Pressure", s.UI_AtmPress);
        out.Row("Atmospheric Pressure Unit", AtmPressUnitText(s.UI_AtmPressUnit));
    }
    if (temperatures) {
        out.Row("Range T1", s.UI_RangeT1);
        out.Row("Range T2", s.UI_RangeT2);
        out.Row("Range T Unit", RangeTempUnitText(s.UI_RangeTUnit));
    }
    if (pressures) {
        out.Row("Pressure Reference Conditions (Standard or Normal)", s.UI_PressRef);
        out.Row("Pressure Reference Conditions (Standard or Normal) Unit",
                RangePressUnitText(s.UI_PressRefUnit));
    }
    if (temperatures) {
        out.Row("Temperature Reference Conditions (Standard or Normal)", s.UI_TempRef);
        out.Row("Temperature Reference Conditions (Standard or Normal) Unit",
                RangeTempUnitText(s.UI_TempRefUnit));
    }
    out.BlankRow();
}

// The tables print their fixed row counts whatever the grid divisions say: rows the last
// calculation did not fill show what the arrays hold.
void WriteDensityTable(ReportOut& out, const clsExGlobalVars& s) {
    const bool steam = s.UI_FluidName == kSaturatedSteam;
    const std::optional<std::string> tHead = TemperatureHead(s.UI_RangeTUnit);
    if (s.UI_FluidType == 2) {
        const std::optional<std::string> pHead = PressureHead(s.UI_RangePUnit);
        if (pHead && tHead) {
            out.Line().Str(*pHead).Str(*tHead).Str(DensityHead(s.UI_DensUnit));
            out.End();
        }
        for (size_t i = 0; i < 12; ++i) {
            const double t = steam
                                 ? SteamTableTemperature(s.UI_DensTempStandard[i], s.UI_RangeTUnit)
                                 : s.UI_DensTemp[i];
            out.Line().Dbl(s.UI_DensAbsPress[i]).Dbl(t).Dbl(s.UI_Dens[i]);
            out.End();
        }
    } else {
        out.Line().Str("Temperature").Str("Density");
        out.End();
        if (tHead) {
            out.Line().Str(*tHead).Str(DensityHead(s.UI_DensUnit));
            out.End();
        }
        for (size_t i = 0; i < 4; ++i) {
            out.Line().Dbl(s.UI_DensTemp[i]).Dbl(s.UI_Dens[i]);
            out.End();
        }
    }
    out.EmptyLine();
}

void WriteViscosityTable(ReportOut& out, const clsExGlobalVars& s) {
    const bool steam = s.UI_FluidName == kSaturatedSteam;
    out.Mark("<Viscosity Information>");
    out.Row("Viscosity Unit", ViscosityUnitText(s.UI_ViscUnit));
    out.BlankRow();
    const std::optional<std::string> tHead = TemperatureHead(s.UI_RangeTUnit);
    const std::optional<std::string> vHead = ViscosityHead(s.UI_ViscUnit);
    if (tHead && vHead) {
        out.Line().Str(*tHead).Str(*vHead);
        out.End();
    }
    for (size_t i = 0; i < 4; ++i) {
        const double t = steam ? SteamTableTemperature(s.UI_ViscTempStandard[i], s.UI_RangeTUnit)
                               : s.UI_ViscTemp[i];
        out.Line().Dbl(t).Dbl(RoundByPattern(s.UI_Visc[i], kRoundViscosity));
        out.End();
    }
}

void WritePhysicalProperties(ReportOut& out, const clsExGlobalVars& s) {
    out.Mark("<Physical Property Setup>");
    out.Mark("<Density Information>");
    out.Row("Density Unit", DensityUnitText(s.UI_DensUnit));
    out.BlankRow();
    WriteDensityTable(out, s);
    WriteViscosityTable(out, s);
    out.BlankRow();
    out.Row("Reference Density (Standard or Normal) Value", s.UI_RefDensValue);
    out.Row("Reference Density (Standard or Normal) Unit", RefDensityUnitText(s.UI_RefDensUnit));
    if (!IsTableLiquid(s)) {
        out.Row("Isentropic Exponent Value", s.UI_IsenExpValue);
        out.Row("Molecular Weight Value", s.UI_MolWeight);
    }
    out.BlankRow();
}

void WriteBasic(ReportOut& out, const clsExGlobalVars& s) {
    out.BlankRow();
    out.Mark("<Basic Mode Setup>");
    out.Row("Fluid Type", RefFluidTypeText(s.Xmtr_SimpleFluidTypeCode));
    out.Row("Simple Density Base", s.Xmtr_SimpleDensityBase);
    out.Row("Reference Temperature", s.Xmtr_SimpleRefTemp);
    out.Row("Reference Temperature Unit", RefTempUnitText(s.Xmtr_SimpleTempUnit));
    out.Row("Reference Static Pressure", s.Xmtr_SimpleRefStaticPress);
    out.Row("Reference Static Pressure Unit", DevicePressUnitText(s, s.Xmtr_SimpleStaticPressUnit));
    out.Row("K Factor", s.Xmtr_SimpleFlowCalcFixedVar);
    out.Row("Temperature K1", s.Xmtr_SimpleTempK1ForLqdVar);
}

// Throws on any failure.
void WriteReportFile(const clsExGlobalVars& s, const std::string& path) {
    ReportOut out(path);
    WriteGeneral(out, s);
    if (s.Xmtr_SimpleFlowCalcMode == 0) {
        WritePrimaryDevice(out, s);
        WriteFluid(out, s);
        WriteRange(out, s);
        WritePhysicalProperties(out, s);
    } else {
        WriteBasic(out, s);
    }
    out.Close();
}

void ShowOpenFailed(ISDKMessageService& messages) {
    ShowNotice(messages, kTitleWarning, kReportOpenFailed);
}

}  // namespace

std::int32_t WriteReport(clsExGlobalVars& store, const std::string& path) {
    try {
        WriteReportFile(store, path);
        return 0;
    } catch (...) {
        ISDKMessageService* messages =
            store.SDKManager != nullptr ? store.SDKManager->SDKMessageService() : nullptr;
        if (messages != nullptr) ShowOpenFailed(*messages);
        return 1;
    }
}

bool ReportCommand(clsExGlobalVars& store, ISDKMessageService& messages, const ChooseFile& save) {
    const std::string path = save(kCsvFilter, store.Gbl_ReportFilePath);
    if (path.empty()) return false;
    store.Gbl_ReportFilePath = path;
    std::error_code ec;
    if (std::filesystem::exists(path, ec) && !AskYesNo(messages, kTitleWarning, kReportExists))
        return false;
    try {
        WriteReportFile(store, path);
        return true;
    } catch (...) {
        ShowOpenFailed(messages);
        return false;
    }
}

}  // namespace qdf
