#pragma once
// Every choice of the wizard exists as a number (store, files, device) and as a text (pages,
// report). The texts are data: older files store names, and the property library compares
// fluid names exactly, so a text that differs by one blank no longer translates. Keep them
// byte for byte.

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace qdf {

class IComponentList;
class clsExGlobalVars;

struct CodeText {
    int32_t code;
    std::string_view text;
};

// ---- Primary device ----

// UI_PEType.
inline constexpr CodeText kPrimaryDeviceTypes[] = {
    {0, "Orifice"}, {1, "Nozzle"}, {2, "Venturi"}, {3, "Fix"}};

struct PrimaryDeviceRow {
    int32_t code;                  // UI_PEPrimaryDeviceCode
    int32_t subcode;               // UI_PESubcode; 0 except at code 14
    std::string_view subcodeName;  // UI_PESubCodeName; empty except at code 14
    std::string_view name;         // UI_PEName
    int32_t type;                  // the UI_PEType under which the page lists the name
    // Recommended limits, d and D in mm; all 0 for the fixed mode, which has none. The page
    // warns outside them, the user may overrule.
    double boreMin;
    double pipeMin;
    double pipeMax;
    double betaMin;
    double betaMax;
};

// In code order; code 14 has three rows. The four blanks inside the name of code 18 belong to
// the name.
inline constexpr PrimaryDeviceRow kPrimaryDevices[] = {
    {1, 0, "", "Fixed mode", 3, 0.0, 0.0, 0.0, 0.0, 0.0},
    {2, 0, "", "Orifice Corner Taps [ISO5167-1 1991]", 0, 12.5, 50.0, 1000.0, 0.2, 0.75},
    {3, 0, "", "Orifice Corner Taps [ISO5167-2 2003]", 0, 12.5, 50.0, 1000.0, 0.1, 0.75},
    {4, 0, "", "Orifice Corner Taps [ASME MFC-3M 1989]", 0, 12.5, 50.0, 900.0, 0.2, 0.75},
    {5, 0, "", "Orifice Flange Taps [ISO5167-1 1991]", 0, 12.5, 50.0, 1000.0, 0.2, 0.75},
    {6, 0, "", "Orifice Flange Taps [ISO5167-2 2003]", 0, 12.5, 50.0, 1000.0, 0.1, 0.75},
    {7, 0, "", "Orifice Flange Taps [ASME MFC-3M 1989]", 0, 12.5, 50.0, 900.0, 0.2, 0.75},
    {8, 0, "", "Orifice Flange Taps [AGA No.3 1992]", 0, 11.4, 50.0, 1000.0, 0.1, 0.75},
    {9, 0, "", "Orifice D and D/2 Taps [ISO5167-1 1991]", 0, 12.5, 50.0, 1000.0, 0.2, 0.75},
    {10, 0, "", "Orifice D and D/2 Taps [ISO5167-2 2003]", 0, 12.5, 50.0, 1000.0, 0.1, 0.75},
    {11, 0, "", "Orifice D and D/2 Taps [ASME MFC-3M 1989]", 0, 12.5, 50.0, 900.0, 0.2, 0.75},
    {12, 0, "", "ISA1932 nozzle [ISO5167-1 1991/ ISO5167-3 2003]", 1, 12.5, 50.0, 500.0, 0.3, 0.8},
    {13, 0, "", "Long radius nozzle [ISO5167-1 1991/ ISO5167-3 2003]", 1, 12.5, 50.0, 630.0, 0.2,
     0.8},
    {14, 0, "14a", "ASME FLOW NOZZLES [ASME MFC-3M 1989] with high beta ratio", 1, 12.5, 100.0,
     750.0, 0.5, 0.8},
    {14, 1, "14b", "ASME FLOW NOZZLES [ASME MFC-3M 1989] with low beta ratio", 1, 12.5, 100.0,
     750.0, 0.2, 0.5},
    {14, 2, "14c", "ASME FLOW NOZZLES [ASME MFC-3M 1989] with throat tap flow nozzle", 1, 12.5,
     100.0, 750.0, 0.25, 0.5},
    {15, 0, "", "Venturi nozzle [ISO5167-1 1991/ ISO5167-3 2003]", 2, 50.0, 65.0, 500.0, 0.316,
     0.775},
    {16, 0, "",
     "Classical Venturi tube 'as cast' convergent section [ISO5167-1 1991/ ISO5167-4 2003]", 2,
     12.5, 100.0, 800.0, 0.3, 0.75},
    {17, 0, "", "ASME Venturi Tubes With a rough Cast or Fabricated Convergent [ASME MFC-3M 1989]",
     2, 12.5, 100.0, 1200.0, 0.3, 0.75},
    {18, 0, "",
     "Classical Venturi tube with a machined convergent section    [ISO5167-1 1991/ ISO5167-4 "
     "2003]",
     2, 12.5, 50.0, 250.0, 0.4, 0.75},
    {19, 0, "", "ASME Venturi Tubes With a machined convergent section [ASME MFC-3M 1989]", 2, 12.5,
     50.0, 250.0, 0.3, 0.75},
    {20, 0, "",
     "Classical Venturi tube with a rough-welded sheet-iron convergent section [ISO5167-1 1991/ "
     "ISO5167-4 2003]",
     2, 12.5, 200.0, 1200.0, 0.4, 0.7},
};

// Exact match, blanks included; nullptr for a text that is no row.
const PrimaryDeviceRow* FindPrimaryDeviceByName(std::string_view name);

// The tolerant form used for names out of files of older formats: brackets dropped if there
// is a "[", blanks dropped if there is a blank, then upper case.
std::string NormalizeDeviceName(std::string_view name);

// First row, in table order, whose normalised name equals the normalised input; nullptr if none.
const PrimaryDeviceRow* MatchPrimaryDeviceName(std::string_view name);

// Device code of a device name, matched exactly (blanks included), as the primary element page
// and the parameter assembly both need it. Sets UI_PESubCodeName ("" except at code 14) and,
// at code 14, UI_PESubcode. Returns 0, or 1 for an unknown name with code and store untouched.
int32_t LookupPrimaryDeviceCode(clsExGlobalVars& store, const std::string& name, int32_t& code);

// The row whose limits apply to a code: at code 14 the row of the sub-kind name ("14a" to
// "14c"), elsewhere the code's only row. nullptr when there is none.
const PrimaryDeviceRow* PrimaryDeviceLimitsRow(int32_t code, std::string_view subCodeName);

// ---- Materials ----

struct MaterialRow {
    std::string_view name;
    double perKelvin;  // linear thermal expansion coefficient, 1/K
};

inline constexpr MaterialRow kMaterials[] = {
    {"304 Stainless Steel", 16.81 / 1000000},
    {"316 Stainless Steel", 16.81 / 1000000},
    {"Carbon Steel", 11.48 / 1000000},
    {"Hastelloy C", 11.3 / 1000000},
    {"Monel", 14.11 / 1000000},
};

inline constexpr std::string_view kDefaultPEMaterial = "304 Stainless Steel";
inline constexpr std::string_view kDefaultPipeMaterial = "Carbon Steel";

// Expansion coefficient of a material text; any other text gives 0.0.
double MaterialExpansionRate(std::string_view name);

// ---- Option tables ----

// Mgt_FldCommType.
inline constexpr CodeText kFieldCommunication[] = {{0, "HART"}, {1, "Foundation Fieldbus"}};
// Xmtr_SimpleFlowCalcMode.
inline constexpr CodeText kFlowConfigModes[] = {{0, "Auto compensation mode"}, {1, "Basic mode"}};
// UI_FluidType, Xmtr_SimpleFluidTypeCode.
inline constexpr CodeText kFluidTypes[] = {{1, "Liquid"}, {2, "Gas"}};
// UI_FluidCat as the report writes it. The fluid page shows "Pressurised Water" and
// "Natural Gas" instead; each text stays in its own place.
inline constexpr CodeText kFluidCategoryReportTexts[] = {{1, "Liquid (DIPPR)"},
                                                         {2, "Pressurised water"},
                                                         {3, "Liquid (custom data table)"},
                                                         {4, "Natural gas"},
                                                         {5, "Steam"},
                                                         {6, "Gas (DIPPR)"},
                                                         {7, "Gas (custom data table)"}};

// UI_FluidNameMethodCode of the fixed methods. Codes above 0 are component numbers of the
// property library.
inline constexpr int32_t kMethodAga8Detail = -1;
inline constexpr int32_t kMethodAga8Gross1 = -2;
inline constexpr int32_t kMethodAga8Gross2 = -3;
inline constexpr int32_t kMethodIsoMolar = -4;
inline constexpr int32_t kMethodIsoPhysical = -5;
inline constexpr int32_t kMethodSteam = -101;
inline constexpr int32_t kMethodSaturatedSteam = -102;

inline constexpr CodeText kFluidNameMethods[] = {
    {kMethodAga8Detail, "AGA8 Detail Characterization Method"},
    {kMethodAga8Gross1, "AGA8 Gross Characterization Method 1"},
    {kMethodAga8Gross2, "AGA8 Gross Characterization Method 2"},
    {kMethodIsoMolar, "ISO12213 molar-composition analysis"},
    {kMethodIsoPhysical, "ISO12213 physical properties"},
    {kMethodSteam, "Superheated and Saturated Steam"},
    {kMethodSaturatedSteam, "Saturated steam"},
};

// ---- Unit codes of the wizard's own input fields (report texts) ----

inline constexpr CodeText kTemperatureUnits[] = {{32, "degC"}, {33, "degF"}, {35, "Kelvin"}};
inline constexpr CodeText kLengthUnits[] = {{47, "in"}, {49, "mm"}};
inline constexpr CodeText kHeatingValueUnits[] = {{0, "MJ/m3"}, {1, "BTU/ft3"}};
inline constexpr CodeText kProcessPressureUnits[] = {{0, "kPa abs"},   {1, "bar abs"},
                                                     {2, "psi abs"},   {3, "kPa gauge"},
                                                     {4, "bar gauge"}, {5, "psi gauge"}};
inline constexpr CodeText kAtmPressureUnits[] = {{0, "kPa abs"}, {1, "bar abs"}, {2, "psi abs"}};
inline constexpr CodeText kDensityUnits[] = {{92, "kg/m3"}, {94, "lb/ft3"}};
inline constexpr CodeText kViscosityUnits[] = {{0, "Pa sec"}, {1, "lb/ft Sec"}};

// Text of a code in a table; an unknown code gives "".
std::string CodeToText(std::span<const CodeText> table, int32_t code);

// ---- Code-to-text translators of the report. None raises; unknown codes give "". ----

std::string CommunicationText(int32_t code);
std::string DeviceTypeText(int32_t code);
std::string RangeTempUnitText(int32_t code);
std::string LengthUnitText(int32_t code);
std::string HeatingValueUnitText(int32_t code);
std::string RangePressUnitText(int32_t code);
std::string DensityUnitText(int32_t code);
std::string ViscosityUnitText(int32_t code);
std::string RefDensityUnitText(int32_t code);
std::string CategoryText(int32_t code);
std::string FluidTypeText(int32_t code);
std::string ModeText(int32_t code);
std::string RefTempUnitText(int32_t code);
std::string RefFluidTypeText(int32_t code);
std::string AtmPressUnitText(int32_t code);

// Device pressure unit: walks the codes from first to last and gives the text of the last
// entry equal to the code, or "". The lists are parallel; a missing text counts as "".
std::string DevicePressUnitText(std::span<const int16_t> codes, std::span<const std::string> texts,
                                int32_t code);
// The same over the store's press_units_index and press_units.
std::string DevicePressUnitText(const clsExGlobalVars& store, int32_t code);

// ---- Text-to-code translators ----

// Fluid name method code of a name, compared exactly: the seven method texts first, then the
// component names of the list (may be null: no catalogue). Returns 0 when nothing matches and
// then sets *found to false.
int32_t GetMethodCode(std::string_view name, const IComponentList* components,
                      bool* found = nullptr);

// For names read from files of older formats. Sets UI_PEPrimaryDeviceCode and, at code 14,
// UI_PESubcode from the first row that matches after normalisation; returns 0, or 1 with
// both members left as they were.
int32_t TranslatePrimaryDeviceName(clsExGlobalVars& store, std::string_view name);

// Sets UI_FluidNameMethodCode: the method texts compared in upper case, then the component
// names compared exactly. Returns 0, or 1 with the code set to 0.
int32_t TranslateFluidName(clsExGlobalVars& store, std::string_view name,
                           const IComponentList* components);

}  // namespace qdf
