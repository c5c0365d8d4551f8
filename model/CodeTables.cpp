#include "CodeTables.h"

#include <vector>

#include "ComponentList.h"
#include "clsExGlobalVars.h"

namespace qdf {

namespace {

// ASCII only: the table names are ASCII, and a non-ASCII character must not turn into one.
std::string ToUpperAscii(std::string_view s) {
    std::string out(s);
    for (char& ch : out) {
        if (ch >= 'a' && ch <= 'z') ch = static_cast<char>(ch - 'a' + 'A');
    }
    return out;
}

std::string RemoveChars(std::string_view s, std::string_view drop) {
    std::string out;
    out.reserve(s.size());
    for (char ch : s) {
        if (drop.find(ch) == std::string_view::npos) out.push_back(ch);
    }
    return out;
}

}  // namespace

const PrimaryDeviceRow* FindPrimaryDeviceByName(std::string_view name) {
    for (const auto& row : kPrimaryDevices) {
        if (row.name == name) return &row;
    }
    return nullptr;
}

std::string NormalizeDeviceName(std::string_view name) {
    std::string s(name);
    // Closing brackets go only together with an opening one, as the older formats differ in
    // whether the reference is bracketed, not in stray "]".
    if (s.find('[') != std::string::npos) s = RemoveChars(s, "[]");
    if (s.find(' ') != std::string::npos) s = RemoveChars(s, " ");
    return ToUpperAscii(s);
}

const PrimaryDeviceRow* MatchPrimaryDeviceName(std::string_view name) {
    const std::string wanted = NormalizeDeviceName(name);
    for (const auto& row : kPrimaryDevices) {
        if (NormalizeDeviceName(row.name) == wanted) return &row;
    }
    return nullptr;
}

int32_t LookupPrimaryDeviceCode(clsExGlobalVars& store, const std::string& name, int32_t& code) {
    const PrimaryDeviceRow* row = FindPrimaryDeviceByName(name);
    if (row == nullptr) return 1;
    code = row->code;
    store.UI_PESubCodeName = std::string(row->subcodeName);
    if (row->code == 14) store.UI_PESubcode = row->subcode;
    return 0;
}

const PrimaryDeviceRow* PrimaryDeviceLimitsRow(int32_t code, std::string_view subCodeName) {
    for (const auto& row : kPrimaryDevices) {
        if (row.code != code) continue;
        if (code != 14 || row.subcodeName == subCodeName) return &row;
    }
    return nullptr;
}

double MaterialExpansionRate(std::string_view name) {
    for (const auto& row : kMaterials) {
        if (row.name == name) return row.perKelvin;
    }
    return 0.0;
}

std::string CodeToText(std::span<const CodeText> table, int32_t code) {
    for (const auto& row : table) {
        if (row.code == code) return std::string(row.text);
    }
    return {};
}

std::string CommunicationText(int32_t code) {
    return CodeToText(kFieldCommunication, code);
}
std::string DeviceTypeText(int32_t code) {
    return CodeToText(kPrimaryDeviceTypes, code);
}
std::string RangeTempUnitText(int32_t code) {
    return CodeToText(kTemperatureUnits, code);
}
std::string LengthUnitText(int32_t code) {
    return CodeToText(kLengthUnits, code);
}
std::string HeatingValueUnitText(int32_t code) {
    return CodeToText(kHeatingValueUnits, code);
}
std::string RangePressUnitText(int32_t code) {
    return CodeToText(kProcessPressureUnits, code);
}
std::string DensityUnitText(int32_t code) {
    return CodeToText(kDensityUnits, code);
}
std::string ViscosityUnitText(int32_t code) {
    return CodeToText(kViscosityUnits, code);
}
std::string RefDensityUnitText(int32_t code) {
    return CodeToText(kDensityUnits, code);
}
std::string CategoryText(int32_t code) {
    return CodeToText(kFluidCategoryReportTexts, code);
}
std::string FluidTypeText(int32_t code) {
    return CodeToText(kFluidTypes, code);
}
std::string ModeText(int32_t code) {
    return CodeToText(kFlowConfigModes, code);
}
std::string RefTempUnitText(int32_t code) {
    return CodeToText(kTemperatureUnits, code);
}
std::string RefFluidTypeText(int32_t code) {
    return CodeToText(kFluidTypes, code);
}
std::string AtmPressUnitText(int32_t code) {
    return CodeToText(kAtmPressureUnits, code);
}

std::string DevicePressUnitText(std::span<const int16_t> codes, std::span<const std::string> texts,
                                int32_t code) {
    std::string found;
    for (std::size_t i = 0; i < codes.size(); ++i) {
        if (codes[i] == code) found = i < texts.size() ? texts[i] : std::string();
    }
    return found;
}

namespace {

// Component number of the first catalogue entry whose name equals the input exactly.
bool FindComponentId(const IComponentList* components, std::string_view name, int32_t& id) {
    if (components == nullptr) return false;
    const int n = components->Count();
    for (int i = 0; i < n; ++i) {
        if (components->Name(i) == name) {
            id = components->Id(i);
            return true;
        }
    }
    return false;
}

}  // namespace

int32_t GetMethodCode(std::string_view name, const IComponentList* components, bool* found) {
    int32_t code = 0;
    bool ok = false;
    for (const auto& row : kFluidNameMethods) {
        if (row.text == name) {
            code = row.code;
            ok = true;
            break;
        }
    }
    if (!ok) ok = FindComponentId(components, name, code);
    if (!ok) code = 0;
    if (found != nullptr) *found = ok;
    return code;
}

std::string DevicePressUnitText(const clsExGlobalVars& store, int32_t code) {
    const std::vector<int16_t> codes = store.press_units_index.copy();
    const std::vector<std::string> texts = store.press_units.copy();
    return DevicePressUnitText(codes, texts, code);
}

int32_t TranslatePrimaryDeviceName(clsExGlobalVars& store, std::string_view name) {
    const PrimaryDeviceRow* row = MatchPrimaryDeviceName(name);
    if (row == nullptr) return 1;
    store.UI_PEPrimaryDeviceCode = row->code;
    if (row->code == 14) store.UI_PESubcode = row->subcode;
    return 0;
}

int32_t TranslateFluidName(clsExGlobalVars& store, std::string_view name,
                           const IComponentList* components) {
    const std::string upper = ToUpperAscii(name);
    for (const auto& row : kFluidNameMethods) {
        if (ToUpperAscii(row.text) == upper) {
            store.UI_FluidNameMethodCode = row.code;
            return 0;
        }
    }
    int32_t id = 0;
    if (FindComponentId(components, name, id)) {
        store.UI_FluidNameMethodCode = id;
        return 0;
    }
    // A failed translation does not keep the old code: the file's numbers are not trusted.
    store.UI_FluidNameMethodCode = 0;
    return 1;
}

}  // namespace qdf
