#include "BatchList.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

namespace qdf::cli {

namespace {

using nlohmann::json;

const std::vector<std::string> kColumns = {
    "tag",
    "primary_type",
    "primary_device",
    "discharge_coefficient",
    "expansion_factor",
    "bore",
    "bore_unit",
    "bore_temp",
    "bore_temp_unit",
    "bore_material",
    "pipe",
    "pipe_unit",
    "pipe_temp",
    "pipe_temp_unit",
    "pipe_material",
    "fluid_type",
    "category",
    "fluid",
    "composition",
    "relative_density",
    "co2",
    "heating_value",
    "heating_value_unit",
    "n2",
    "h2",
    "co",
    "p_min",
    "p_max",
    "p_unit",
    "atm",
    "atm_unit",
    "t_min",
    "t_max",
    "t_unit",
    "ref_p",
    "ref_p_unit",
    "ref_t",
    "ref_t_unit",
    "ref_density",
    "isentropic_exponent",
    "molecular_weight",
    "custom_tables",
};

// The natural gas detail grid: rows of the first column group, then of the second.
constexpr int kFirstGroupRows = 11;
constexpr int kDetailComponents = 21;

std::string Trim(const std::string& s) {
    const auto b = s.find_first_not_of(" \t");
    if (b == std::string::npos) return {};
    const auto e = s.find_last_not_of(" \t");
    return s.substr(b, e - b + 1);
}

class RowReader {
  public:
    RowReader(const std::map<std::string, std::size_t>& index, const std::vector<std::string>& f)
        : index_(index), fields_(f) {}
    std::string operator[](const std::string& column) const {
        const auto it = index_.find(column);
        if (it == index_.end() || it->second >= fields_.size()) return {};
        return Trim(fields_[it->second]);
    }
    bool Has(const std::string& column) const { return !(*this)[column].empty(); }

  private:
    const std::map<std::string, std::size_t>& index_;
    const std::vector<std::string>& fields_;
};

// Builds the steps of one page; every step remembers the column it comes from, so a step that
// cannot be played names its column.
class Steps {
  public:
    Steps(json& steps, std::vector<std::string>& columns) : steps_(steps), columns_(columns) {}
    void Page(const char* page) { page_ = page; }
    void Click(const char* control, const std::string& column = {}) {
        Add({{"click", control}}, column);
    }
    void Set(const char* control, const std::string& text, const std::string& column) {
        Add({{"set", control}, {"text", text}}, column);
    }
    // An empty cell leaves the list without a selection, which the page then refuses.
    void Choose(const char* control, const std::string& entry, const std::string& column) {
        if (entry.empty())
            Add({{"choose", control}, {"index", -1}}, column);
        else
            Add({{"choose", control}, {"entry", entry}}, column);
    }
    void Cell(const char* grid, int row, int col, const std::string& text,
              const std::string& column) {
        Add({{"cell", grid}, {"row", row}, {"column", col}, {"text", text}}, column);
    }

  private:
    void Add(json step, const std::string& column) {
        step["page"] = page_;
        steps_.push_back(std::move(step));
        columns_.push_back(column);
    }
    json& steps_;
    std::vector<std::string>& columns_;
    std::string page_;
};

bool IsNaturalGasDetail(const std::string& method) {
    return method == "AGA8 Detail Characterization Method" ||
           method == "ISO12213 molar-composition analysis";
}

}  // namespace

const std::vector<std::string>& BatchColumns() {
    return kColumns;
}

bool SplitCsvLine(const std::string& line, std::vector<std::string>& fields) {
    fields.clear();
    std::string field;
    bool quoted = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const char c = line[i];
        if (quoted) {
            if (c == '"') {
                if (i + 1 < line.size() && line[i + 1] == '"') {
                    field += '"';
                    ++i;
                } else {
                    quoted = false;
                }
            } else {
                field += c;
            }
        } else if (c == '"') {
            quoted = true;
        } else if (c == ',') {
            fields.push_back(std::move(field));
            field.clear();
        } else {
            field += c;
        }
    }
    if (quoted) return false;
    fields.push_back(std::move(field));
    return true;
}

std::string TagFileName(const std::string& tag) {
    std::string name;
    for (unsigned char c : tag)
        name += (std::isalnum(c) || c == '-' || c == '_' || c == '.') ? static_cast<char>(c) : '_';
    if (name.empty() || name == "." || name == "..") name = "_" + name;
    return name;
}

InstrumentList ParseInstrumentList(const std::string& text, const std::string& listFolder) {
    InstrumentList list;
    std::map<std::string, std::size_t> index;
    std::istringstream in(text);
    std::string line;
    std::size_t lineNo = 0;
    bool header = false;
    std::map<std::string, std::size_t> tags;
    std::vector<std::string> fields;
    while (std::getline(in, line)) {
        ++lineNo;
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (Trim(line).empty() || Trim(line)[0] == '#') continue;
        if (!SplitCsvLine(line, fields)) {
            list.errors.push_back({lineNo, {}, "a quoted field is not closed"});
            if (!header) list.unusable = true;
            if (!header) return list;
            continue;
        }
        if (!header) {
            for (std::size_t i = 0; i < fields.size(); ++i) {
                const std::string name = Trim(fields[i]);
                if (std::find(kColumns.begin(), kColumns.end(), name) == kColumns.end()) {
                    list.errors.push_back({lineNo, name, "unknown column"});
                    list.unusable = true;
                    return list;
                }
                if (!index.emplace(name, i).second) {
                    list.errors.push_back({lineNo, name, "column named twice"});
                    list.unusable = true;
                    return list;
                }
            }
            if (!index.count("tag")) {
                list.errors.push_back({lineNo, "tag", "the header has no tag column"});
                list.unusable = true;
                return list;
            }
            header = true;
            continue;
        }
        if (fields.size() > index.size()) {
            list.errors.push_back({lineNo, {}, "more fields than the header names"});
            continue;
        }
        const RowReader row(index, fields);
        const std::string tag = row["tag"];
        if (tag.empty()) {
            list.errors.push_back({lineNo, "tag", "no tag"});
            continue;
        }
        if (const auto seen = tags.find(tag); seen != tags.end()) {
            list.errors.push_back(
                {lineNo, "tag", "tag already used on line " + std::to_string(seen->second)});
            continue;
        }

        InstrumentRow r;
        r.line = lineNo;
        r.tag = tag;
        r.script = json::object();
        r.script["steps"] = json::array();
        std::vector<std::string> columns;
        Steps s(r.script["steps"], columns);

        s.Page("ctlModeSelection1");
        s.Click("optAutoCompMode");
        s.Click("cmdNext");

        s.Page("ctlPrimaryElementSetup1");
        s.Choose("cboType", row["primary_type"], "primary_type");
        s.Choose("cboDesc", row["primary_device"], "primary_device");
        if (row.Has("discharge_coefficient"))
            s.Set("txtPEDisCoeff", row["discharge_coefficient"], "discharge_coefficient");
        if (row.Has("expansion_factor"))
            s.Set("txtPEGasExpFactor", row["expansion_factor"], "expansion_factor");
        s.Set("txtPEDiameter", row["bore"], "bore");
        s.Choose("cboPEDiameterUnit", row["bore_unit"], "bore_unit");
        s.Set("txtPETemp", row["bore_temp"], "bore_temp");
        s.Choose("cboPETempUnit", row["bore_temp_unit"], "bore_temp_unit");
        s.Choose("cboPEMaterial", row["bore_material"], "bore_material");
        s.Set("txtPipeDiameter", row["pipe"], "pipe");
        s.Choose("cboPipeDiameterUnit", row["pipe_unit"], "pipe_unit");
        s.Set("txtPipeTemp", row["pipe_temp"], "pipe_temp");
        s.Choose("cboPipeTempUnit", row["pipe_temp_unit"], "pipe_temp_unit");
        s.Choose("cboPipeMaterial", row["pipe_material"], "pipe_material");
        s.Click("cmdNext");

        s.Page("ctlFluidSetup1");
        std::string type = row["fluid_type"];
        std::transform(type.begin(), type.end(), type.begin(),
                       [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
        if (type == "gas" || type == "steam" || type == "gas or steam")
            s.Click("optGasSteam", "fluid_type");
        else if (type == "liquid")
            s.Click("optLiquid", "fluid_type");
        else if (!type.empty()) {
            list.errors.push_back({lineNo, "fluid_type", "not Gas or Liquid: " + type});
            continue;
        }
        const std::string category = row["category"];
        const std::string fluid = row["fluid"];
        s.Choose("cboCategory", category, "category");
        const bool custom =
            category == "Gas (custom data table)" || category == "Liquid (custom data table)";
        if (custom)
            s.Set("txtMethod", fluid, "fluid");
        else if (category != "Pressurised Water")
            s.Choose("cboName", fluid, "fluid");
        s.Click("cmdNext");

        bool bad = false;
        if (IsNaturalGasDetail(fluid)) {
            s.Page("ctlNaturalGasSetupAga1");
            std::vector<std::string> parts;
            std::string part;
            std::istringstream comp(row["composition"]);
            while (std::getline(comp, part, ';')) parts.push_back(Trim(part));
            if (parts.size() != kDetailComponents) {
                list.errors.push_back({lineNo, "composition",
                                       "21 mole percentages separated by \";\" expected, " +
                                           std::to_string(parts.size()) + " found"});
                continue;
            }
            for (int i = 0; i < kDetailComponents; ++i) {
                const bool first = i < kFirstGroupRows;
                s.Cell("FlexDensity", first ? i + 1 : i - kFirstGroupRows + 1, first ? 2 : 5,
                       parts[static_cast<std::size_t>(i)], "composition");
            }
            s.Click("cmdNext");
        } else if (fluid == "AGA8 Gross Characterization Method 1" ||
                   fluid == "AGA8 Gross Characterization Method 2" ||
                   fluid == "ISO12213 physical properties") {
            const bool gross2 = fluid == "AGA8 Gross Characterization Method 2";
            const bool iso = fluid == "ISO12213 physical properties";
            s.Page(iso      ? "ctlNaturalGasSetupISO1"
                   : gross2 ? "ctlNaturalGasSetupGross21"
                            : "ctlNaturalGasSetupGross11");
            s.Set("txtRealGasDens", row["relative_density"], "relative_density");
            s.Set("txtCO2Mole", row["co2"], "co2");
            if (!gross2) {
                s.Set("txtVolGrHv", row["heating_value"], "heating_value");
                s.Choose("cboVolGrHvUnit", row["heating_value_unit"], "heating_value_unit");
            } else {
                s.Set("txtN2Mole", row["n2"], "n2");
            }
            s.Set("txtH2Mole", row["h2"], "h2");
            if (!iso) s.Set("txtCOMole", row["co"], "co");
            s.Click("cmdNext");
        }

        const bool liquidRange = type == "liquid" && category != "Pressurised Water";
        const bool saturated = fluid == "Saturated steam";
        s.Page(saturated     ? "ctlOperatingRangeSatSteam1"
               : liquidRange ? "ctlOperatingRangeLiquid1"
                             : "ctlOperatingRangeSetup1");
        if (!liquidRange) {
            s.Set("txtAtmPress", row["atm"], "atm");
            s.Choose("cboAtmPressUnit", row["atm_unit"], "atm_unit");
            s.Set("txtPress1", row["p_min"], "p_min");
            s.Set("txtPress2", row["p_max"], "p_max");
            s.Choose("cboPressUnit", row["p_unit"], "p_unit");
            s.Set("txtPressRef", row["ref_p"], "ref_p");
            s.Choose("cboPressRefUnit", row["ref_p_unit"], "ref_p_unit");
        }
        if (!saturated) {
            s.Set("txtTemp1", row["t_min"], "t_min");
            s.Set("txtTemp2", row["t_max"], "t_max");
            s.Choose("cboTempUnit", row["t_unit"], "t_unit");
        }
        if (row.Has("ref_t") || !saturated) {
            s.Set("txtTempRef", row["ref_t"], "ref_t");
            s.Choose("cboTempRefUnit", row["ref_t_unit"], "ref_t_unit");
        }
        s.Click("cmdNext");

        s.Page("ctlPhysicalPropertySetup1");
        if (row.Has("custom_tables")) {
            if (!custom) {
                list.errors.push_back({lineNo, "custom_tables",
                                       "tables are taken for custom data table fluids only"});
                continue;
            }
            std::filesystem::path path = row["custom_tables"];
            if (path.is_relative()) path = std::filesystem::path(listFolder) / path;
            std::ifstream tables(path);
            if (!tables) {
                list.errors.push_back({lineNo, "custom_tables", "cannot read " + path.string()});
                continue;
            }
            // Each line: grid name, row, column, value, as the grid shows them.
            std::string tl;
            std::size_t tn = 0;
            std::vector<std::string> cells;
            while (std::getline(tables, tl)) {
                ++tn;
                if (!tl.empty() && tl.back() == '\r') tl.pop_back();
                if (Trim(tl).empty() || Trim(tl)[0] == '#') continue;
                if (!SplitCsvLine(tl, cells) || cells.size() != 4) {
                    list.errors.push_back({lineNo, "custom_tables",
                                           path.filename().string() + " line " +
                                               std::to_string(tn) +
                                               ": grid,row,column,value expected"});
                    bad = true;
                    break;
                }
                const std::string grid = Trim(cells[0]);
                if (grid != "FlexDensity" && grid != "FlexViscosity") {
                    list.errors.push_back({lineNo, "custom_tables",
                                           path.filename().string() + " line " +
                                               std::to_string(tn) + ": no grid " + grid});
                    bad = true;
                    break;
                }
                try {
                    s.Cell(grid == "FlexDensity" ? "FlexDensity" : "FlexViscosity",
                           std::stoi(cells[1]), std::stoi(cells[2]), Trim(cells[3]),
                           "custom_tables");
                } catch (const std::exception&) {
                    list.errors.push_back({lineNo, "custom_tables",
                                           path.filename().string() + " line " +
                                               std::to_string(tn) +
                                               ": row and column are numbers"});
                    bad = true;
                    break;
                }
            }
            if (bad) continue;
        }
        if (row.Has("ref_density")) s.Set("txtRefDensity", row["ref_density"], "ref_density");
        if (row.Has("isentropic_exponent"))
            s.Set("txtIsenExp", row["isentropic_exponent"], "isentropic_exponent");
        if (row.Has("molecular_weight"))
            s.Set("txtMolWeight", row["molecular_weight"], "molecular_weight");
        s.Click("cmdNext");

        s.Page("ctlSaveAndDownload1");
        s.Click("cmdSave");

        r.script["columns"] = columns;
        tags.emplace(tag, lineNo);
        list.rows.push_back(std::move(r));
    }
    if (!header) {
        list.errors.push_back({lineNo, {}, "the list has no header row"});
        list.unusable = true;
    }
    return list;
}

}  // namespace qdf::cli
