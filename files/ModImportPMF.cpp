#include "ModImportPMF.h"

#include <cfloat>
#include <cmath>
#include <filesystem>
#include <string_view>
#include <unordered_map>

#include "FileMessages.h"
#include "IniSection.h"
#include "ModDeviceParams.h"
#include "NumberText.h"
#include "SDKFrame.h"
#include "clsExGlobalVars.h"

namespace qdf {

namespace {

struct PmfRow {
    std::string_view key;  // the parameter name without its first letter
    std::string_view group;
    std::string_view parameter;
};

constexpr std::string_view kDummy = "qdf_menu_dummy";
constexpr std::string_view kUpload = "upload_variables";
constexpr std::string_view kSpSetup = "qdf_menu_sp_setup";

constexpr PmfRow kPmfRows[] = {
    {"ressure_units", kDummy, "pressure_units"},
    {"ressure_lower_range_value", kDummy, "pressure_lower_range_value"},
    {"ressure_upper_range_value", kDummy, "pressure_upper_range_value"},
    {"ressure_damping_value", kDummy, "pressure_damping_value"},
    {"ow_cut_point", kUpload, "low_cut_point"},
    {"ow_cut_mode", kUpload, "low_cut_mode"},
    {"l_swap", kUpload, "hl_swap"},
    {"o_lower_limit", kUpload, "ao_lower_limit"},
    {"o_upper_limit", kUpload, "ao_upper_limit"},
    {"tatic_pressure_units", kUpload, "static_pressure_units"},
    {"g_select_mode", kSpSetup, "ag_select_mode"},
    {"tm_pres_value", kSpSetup, "atm_pres_value"},
    {"p_lrv", kDummy, "sp_lrv"},
    {"p_urv", kDummy, "sp_urv"},
    {"p_damp", kDummy, "sp_damp"},
    {"p_hl_select", kUpload, "sp_hl_select"},
    {"t_units", kUpload, "et_units"},
    {"t_lrv", kDummy, "et_lrv"},
    {"t_urv", kDummy, "et_urv"},
    {"t_damp", kDummy, "et_damp"},
    {"low_units", kUpload, "flow_units"},
    {"low_lrv", kDummy, "flow_lrv"},
    {"low_urv", kDummy, "flow_urv"},
    {"low_damp", kDummy, "flow_damp"},
    {"otal_flow_units", kUpload, "total_flow_units"},
    {"ngr_exp", kUpload, "engr_exp"},
    {"ngr_disp_lrv", kUpload, "engr_disp_lrv"},
    {"ngr_disp_urv", kUpload, "engr_disp_urv"},
    {"ngr_disp_point", kUpload, "engr_disp_point"},
    {"ngr_disp_unit", kUpload, "engr_disp_unit"},
    {"isp_out_1", kUpload, "disp_out_1"},
    {"isp_out_2", kUpload, "disp_out_2"},
    {"isp_out_3", kUpload, "disp_out_3"},
    {"isp_out_4", kUpload, "disp_out_4"},
    {"isp_percent_reso", kUpload, "disp_percent_reso"},
    {"res_disp_point", kUpload, "pres_disp_point"},
    {"p_disp_point", kUpload, "sp_disp_point"},
    {"t_disp_point", kUpload, "et_disp_point"},
    {"low_disp_point", kUpload, "flow_disp_point"},
    {"otal_flow_disp_point", kUpload, "total_flow_disp_point"},
    {"ar_indicator", kUpload, "bar_indicator"},
    {"ag", kUpload, "tag"},
    {"ate", kUpload, "date"},
    {"escriptor", kUpload, "descriptor"},
    {"essage", kUpload, "message"},
    {"inal_assembly_number", kUpload, "final_assembly_number"},
};
static_assert(std::size(kPmfRows) == 46);

// One key/value table, as the import has always kept it: the short key gives the group, the
// short key with "_name" the parameter. Keys compare without letter case, as ini keys do.
const std::unordered_map<std::string, std::string>& NameTable() {
    static const std::unordered_map<std::string, std::string> table = [] {
        std::unordered_map<std::string, std::string> t;
        for (const PmfRow& r : kPmfRows) {
            t.emplace(detail::FoldCase(r.key), std::string(r.group));
            t.emplace(detail::FoldCase(std::string(r.key) + "_name"), std::string(r.parameter));
        }
        return t;
    }();
    return table;
}

const std::string* Find(const std::string& key) {
    const auto& table = NameTable();
    auto it = table.find(detail::FoldCase(key));
    return it == table.end() ? nullptr : &it->second;
}

// The key without its first n characters; nothing is left of a shorter key.
std::string Cut(std::string_view key, size_t n) {
    return key.size() > n ? std::string(key.substr(n)) : std::string();
}

// Looked up without the first 4 characters, then without the first 5.
const std::string* FindCut(std::string_view key, std::string_view suffix) {
    for (size_t n : {size_t{4}, size_t{5}}) {
        const std::string cut = Cut(key, n);
        if (cut.empty()) continue;
        if (const std::string* hit = Find(cut + std::string(suffix))) return hit;
    }
    return nullptr;
}

std::string_view Trim(std::string_view s) {
    const auto blank = [](char c) { return c == ' ' || c == '\t'; };
    while (!s.empty() && blank(s.front())) s.remove_prefix(1);
    while (!s.empty() && blank(s.back())) s.remove_suffix(1);
    return s;
}

enum class PmfType {
    Integer,
    Long,
    Single,
    Double,
    Currency,
    Date,
    String,
    Boolean,
    Decimal,
    Byte
};

std::optional<PmfType> TypeOf(std::string_view name) {
    struct Named {
        std::string_view name;
        PmfType type;
    };
    static constexpr Named kTypes[] = {
        {"vbInteger", PmfType::Integer},   {"vbLong", PmfType::Long},
        {"vbSingle", PmfType::Single},     {"vbDouble", PmfType::Double},
        {"vbCurrency", PmfType::Currency}, {"vbDate", PmfType::Date},
        {"vbString", PmfType::String},     {"vbBoolean", PmfType::Boolean},
        {"vbDecimal", PmfType::Decimal},   {"vbByte", PmfType::Byte},
    };
    const std::string folded = detail::FoldCase(name);
    for (const Named& t : kTypes) {
        if (detail::FoldCase(t.name) == folded) return t.type;
    }
    return std::nullopt;
}

// Whole-number types round half to even, as the integer conversions of the files' origin do.
std::optional<double> Whole(std::string_view text, double low, double high) {
    const std::optional<double> v = ParseNumber(text);
    if (!v) return std::nullopt;
    const double r = std::nearbyint(*v);
    if (r < low || r > high) return std::nullopt;
    return r;
}

std::optional<Value> Convert(std::string_view text, PmfType type) {
    switch (type) {
        case PmfType::String:
        case PmfType::Date:
            // The frame takes the date in its text form.
            return Value(std::string(text));
        case PmfType::Integer:
            if (auto v = Whole(text, -32768.0, 32767.0)) return Value(static_cast<int16_t>(*v));
            return std::nullopt;
        case PmfType::Byte:
            if (auto v = Whole(text, 0.0, 255.0)) return Value(static_cast<int16_t>(*v));
            return std::nullopt;
        case PmfType::Long:
            if (auto v = Whole(text, -2147483648.0, 2147483647.0))
                return Value(static_cast<int32_t>(*v));
            return std::nullopt;
        case PmfType::Single: {
            const std::optional<double> v = ParseNumber(text);
            if (!v || std::fabs(*v) > FLT_MAX) return std::nullopt;
            return Value(static_cast<float>(*v));
        }
        case PmfType::Double:
        case PmfType::Decimal: {
            const std::optional<double> v = ParseNumber(text);
            if (!v) return std::nullopt;
            return Value(*v);
        }
        case PmfType::Currency: {
            // Four decimal places within the currency range.
            const std::optional<double> v = ParseNumber(text);
            if (!v || std::fabs(*v) > 922337203685477.0) return std::nullopt;
            return Value(std::nearbyint(*v * 10000.0) / 10000.0);
        }
        case PmfType::Boolean: {
            const std::string folded = detail::FoldCase(text);
            if (folded == "true") return Value(true);
            if (folded == "false") return Value(false);
            const std::optional<double> v = ParseNumber(text);
            if (!v) return std::nullopt;
            return Value(*v != 0.0);
        }
    }
    return std::nullopt;
}

void ShowOpenError(ISDKMessageService& messages) {
    ShowNotice(messages, kTitleError, kFileOpenError);
}

}  // namespace

std::optional<PmfTarget> LookUpPmfKey(std::string_view fileKey) {
    const std::string* group = FindCut(fileKey, "");
    const std::string* parameter = FindCut(fileKey, "_name");
    if (group == nullptr || parameter == nullptr) return std::nullopt;
    return PmfTarget{*group, *parameter};
}

std::optional<Value> ParsePmfValue(std::string_view text) {
    // The type name follows the last comma, so a text value may hold commas of its own.
    const size_t comma = text.rfind(',');
    if (comma == std::string_view::npos) return Value(std::string(Trim(text)));
    const std::optional<PmfType> type = TypeOf(Trim(text.substr(comma + 1)));
    if (!type) return Value(std::string(Trim(text)));
    return Convert(Trim(text.substr(0, comma)), *type);
}

std::int32_t ImportPMFFile(clsExGlobalVars& store, const std::string& path) {
    if (store.SDKManager == nullptr) return 1;
    IniSections sections;
    if (!ReadIniFile(path, sections)) return 1;
    return ImportPMFSections(store, sections);
}

std::int32_t ImportPMFSections(clsExGlobalVars& store, const IniSections& sections) {
    if (store.SDKManager == nullptr) return 1;
    if (sections.Count() == 0) return 0;
    const clsIniSection* parameters = sections.Find("Parameters");
    if (parameters == nullptr) return 1;
    for (const clsIniEntry& entry : *parameters) {
        const std::optional<Value> value = ParsePmfValue(entry.Value());
        const std::optional<PmfTarget> target = LookUpPmfKey(entry.Key());
        if (!value || !target) continue;
        try {
            host::WriteParameter(*store.SDKManager, target->group, target->parameter, *value);
        } catch (...) {
            // One parameter the frame refuses does not stop the others.
        }
    }
    return 0;
}

bool ImportPMFCommand(clsExGlobalVars& store, ISDKMessageService& messages,
                      const ChooseFile& open) {
    // PMF files exist for HART devices only; Fieldbus devices never offer the command.
    if (store.BusID == "FFH1") return false;
    const std::string path = open(kPmfFilter, "");
    store.Gbl_SaveBinaryFilePath = path;
    if (path.empty()) return false;
    std::error_code ec;
    if (!std::filesystem::exists(path, ec)) {
        ShowOpenError(messages);
        store.Gbl_SaveBinaryFilePath.clear();
        return false;
    }
    if (!AskYesNo(messages, kTitleWarning, kPmfOverwriteQuestion)) return false;
    if (ImportPMFFile(store, path) != 0) {
        ShowOpenError(messages);
        return false;
    }
    return true;
}

}  // namespace qdf
