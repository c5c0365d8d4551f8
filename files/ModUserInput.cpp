#include "ModUserInput.h"

#include <cmath>
#include <exception>
#include <limits>
#include <stdexcept>
#include <vector>

#include "LineForm.h"
#include "StoreRegistry.h"
#include "clsExGlobalVars.h"

namespace qdf {

namespace {

// D double, I 32-bit integer, H 16-bit integer, S string.
struct CellRow {
    std::int32_t cell;
    const char* label;
    char type;
    const char* member;
    const MemberInfo* info = nullptr;  // the member, found when the table is built
};

std::vector<CellRow> Bound(std::vector<CellRow> rows) {
    for (CellRow& r : rows) r.info = &RowMember(r.member, 0);
    return rows;
}

// Cells 0 to 57: one row each, the row number being the cell index.
const std::vector<CellRow>& HeadRows() {
    static const std::vector<CellRow> rows = Bound({
        {0, "Never used record:", 'I', "UI_NeverUsedRecord"},
        {1, "Primary Device Type", 'I', "UI_PEType"},
        {2, "Primary Device subcode", 'S', "UI_PESubCodeName"},
        {3, "Primary Device Name", 'S', "UI_PEName"},
        {4, "Primary Device Diameter", 'D', "UI_PEDiameter"},
        {5, "Primary Device Diameter Unit", 'I', "UI_PEDiameterUnit"},
        {6, "Primary Device Temperature", 'D', "UI_PETemp"},
        {7, "Primary Device Temperature Unit", 'I', "UI_PETempUnit"},
        {8, "Primary Device Material", 'S', "UI_PEMaterial"},
        {9, "Primary Device Pipe Diameter", 'D', "UI_PEPipeDiameter"},
        {10, "Primary Device Pipe Diameter Unit", 'I', "UI_PEPipeDiameterUnit"},
        {11, "Primary Device Pipe Temperature", 'D', "UI_PipeTemperature"},
        {12, "Primary Device Pipe Temperature Unit", 'I', "UI_PipeTemperatureUnit"},
        {13, "Pipe Material", 'S', "UI_PipeMaterial"},
        {14, "Fluid Type", 'I', "UI_FluidType"},
        {15, "Fluid Category", 'I', "UI_FluidCat"},
        {16, "Fluid Name", 'S', "UI_FluidName"},
        {17, "Chemical ID", 'S', "UI_ChemID"},
        {18, "Detail Total Mol", 'D', "UI_DtlTotalMole"},
        {19, "Methane Mole", 'D', "UI_DtlMethaneMole"},
        {20, "Nitrogen Mole", 'D', "UI_DtlN2Mole"},
        {21, "Carbon Dioxide Mole", 'D', "UI_DtlCO2Mole"},
        {22, "Ethane Mole", 'D', "UI_DtlEthaneMole"},
        {23, "Propane Mole", 'D', "UI_DtlPropaneMole"},
        {24, "Water Mole", 'D', "UI_DtlWaterMole"},
        {25, "Hydrogen Sulfide Mole", 'D', "UI_DtlH2SMole"},
        {26, "Hydrogen Mole", 'D', "UI_DtlH2Mole"},
        {27, "Carbon Monoxide Mole", 'D', "UI_DtlCOMole"},
        {28, "Oxygen Mole", 'D', "UI_DtlO2Mole"},
        {29, "Iso Butane Mole", 'D', "UI_DtlIsobutaneMole"},
        {30, "n-Butane Mole", 'D', "UI_DtlButaneMole"},
        {31, "Iso Pentane Mole", 'D', "UI_DtlIsoPentaneMole"},
        {32, "n-Pentane Mole", 'D', "UI_DtlPentaneMole"},
        {33, "n-Hexane Mole", 'D', "UI_DtlHexaneMole"},
        {34, "n-Heptane Mole", 'D', "UI_DtlHeptaneMole"},
        {35, "n-Octane Mole", 'D', "UI_DtlOctaneMole"},
        {36, "n-Nonane Mole", 'D', "UI_DtlNonaneMole"},
        {37, "n-Decane Mole", 'D', "UI_DtlDecaneMole"},
        {38, "Helium-4 Mole", 'D', "UI_DtlHe4Mole"},
        {39, "Argon Mole", 'D', "UI_DtlArMole"},
        {40, "Real Gas Relative Density", 'D', "UI_RgRelDens"},
        {41, "Co2 Mole", 'D', "UI_CO2Mole"},
        {42, "Volumetric Gross Heating Value", 'D', "UI_VgHv"},
        {43, "Volumetric Gross Heating Value Unit", 'I', "UI_VgHvUnit"},
        {44, "Nitrogen Mole", 'D', "UI_N2Mole"},
        {45, "H2 Mole", 'D', "UI_H2Mole"},
        {46, "CO Mole", 'D', "UI_COMole"},
        {47, "Range P1", 'D', "UI_RangeP1"},
        {48, "Range P2", 'D', "UI_RangeP2"},
        {49, "Range P Unit", 'I', "UI_RangePUnit"},
        {50, "Range T1", 'D', "UI_RangeT1"},
        {51, "Range T2", 'D', "UI_RangeT2"},
        {52, "Range T Unit", 'H', "UI_RangeTUnit"},
        {53, "Pressure Reference", 'D', "UI_PressRef"},
        {54, "Pressure Reference Unit", 'I', "UI_PressRefUnit"},
        {55, "Temperature Reference", 'D', "UI_TempRef"},
        {56, "Temperature Reference Unit", 'I', "UI_TempRefUnit"},
        {57, "Density Unit", 'I', "UI_DensUnit"},
    });
    return rows;
}

const CellRow& ViscUnitRow() {
    static const CellRow row = Bound({{834, "Viscosity Unit", 'I', "UI_ViscUnit"}}).front();
    return row;
}

// Cells 902 to 946 (905 is the empty-string line between the two groups).
const std::vector<CellRow>& TailRows() {
    static const std::vector<CellRow> rows = Bound({
        {902, "Reference Density Value", 'D', "UI_RefDensValue"},
        {903, "Reference Density Unit", 'I', "UI_RefDensUnit"},
        {904, "Isentropic Exponent Value", 'D', "UI_IsenExpValue"},
        {906, "Primary Device Diameter Standard", 'D', "UI_PEDiameterStandard"},
        {907, "Primary Device Temperature Standard", 'D', "UI_PETempStandard"},
        {908, "Primary Device Pipe Diameter Standard", 'D', "UI_PEPipeDiameterStandard"},
        {909, "Primary Device Pipe Temperature Standard", 'D', "UI_PEPipeTempStandard"},
        {910, "Volumetic Gross Heating Value Standard", 'D', "UI_VgHvStandard"},
        {911, "Range P1 Standard", 'D', "UI_RangeP1Standard"},
        {912, "Range P2 Standard", 'D', "UI_RangeP2Standard"},
        {913, "Range T1 Standard", 'D', "UI_RangeT1Standard"},
        {914, "Range T2 Standard", 'D', "UI_RangeT2Standard"},
        {915, "Pressure reference standard", 'D', "UI_PressRefStandard"},
        {916, "Temperature reference standard", 'D', "UI_TempRefStandard"},
        {917, "Primary Device Code", 'I', "UI_PEPrimaryDeviceCode"},
        {918, "Primary Element Sub Code", 'I', "UI_PESubcode"},
        {919, "Fluid Name Method Code", 'I', "UI_FluidNameMethodCode"},
        {920, "Atmospheric Pressure Unit", 'I', "UI_AtmPressUnit"},
        {921, "Reserve 5", 'I', "UI_Reserve5"},
        {922, "Reserve 6", 'I', "UI_Reserve6"},
        {923, "Reserve 7", 'I', "UI_Reserve7"},
        {924, "Reserve 8", 'I', "UI_Reserve8"},
        {925, "Reserve 9", 'I', "UI_Reserve9"},
        {926, "Reserve 10", 'I', "UI_Reserve10"},
        {927, "Reserve11", 'S', "UI_Reserve11"},
        {928, "Reserve12", 'S', "UI_Reserve12"},
        {929, "Reserve13", 'S', "UI_Reserve13"},
        {930, "Reserve14", 'S', "UI_Reserve14"},
        {931, "Reserve15", 'S', "UI_Reserve15"},
        {932, "Reserve16", 'S', "UI_Reserve16"},
        {933, "Reserve17", 'S', "UI_Reserve17"},
        {934, "Reserve18", 'S', "UI_Reserve18"},
        {935, "Reserve19", 'S', "UI_Reserve19"},
        {936, "Reserve20", 'S', "UI_Reserve20"},
        {937, "Primary Device Discharge Coefficient", 'D', "UI_PEDisCoeff"},
        {938, "Primary Device Gas Exanpansion Factor", 'D', "UI_PEGasExpFac"},
        {939, "Atmospheric Pressure", 'D', "UI_AtmPress"},
        {940, "Atmospheric Pressure Standard", 'D', "UI_AtmPressStandard"},
        {941, "Molecular Weight", 'D', "UI_MolWeight"},
        {942, "Reserve 26", 'D', "UI_Reserve26"},
        {943, "Reserve 27", 'D', "UI_Reserve27"},
        {944, "Reserve 28", 'D', "UI_Reserve28"},
        {945, "Reserve 29", 'D', "UI_Reserve29"},
        {946, "Reserve 30", 'D', "UI_Reserve30"},
    });
    return rows;
}

enum class Kind { Gas, Steam, Liquid };

constexpr std::string_view kSaturatedSteam = "Saturated steam";

Kind KindOf(bool gas, std::string_view fluidName) {
    if (fluidName == kSaturatedSteam) return Kind::Steam;
    return gas ? Kind::Gas : Kind::Liquid;
}

// A grid size outside its range writes no table rows.
std::int32_t InRange(std::int32_t v, std::int32_t high) {
    return v >= 1 && v <= high ? v : 0;
}

void WriteRow(LineBuilder& out, const clsExGlobalVars& s, const CellRow& r) {
    out.Str(r.label);
    const Value v = r.info->get(s);
    if (r.type == 'S')
        out.Str(v.str());
    else if (r.type == 'D')
        out.Dbl(v.toDouble());
    else
        out.Int(static_cast<std::int64_t>(v.toDouble()));
    out.End();
}

// ---- import ---------------------------------------------------------------------------------

// A cell as a number: a number as it stands, text by the general numeric test, an empty cell 0.
double NumberOfCell(const Value& v) {
    if (v.isString()) return CellToDouble(v.str());
    return v.toDouble();
}

std::string TextOfCell(const Value& v) {
    if (v.isString()) return std::string(WithoutQuotes(v.str()));
    if (v.isEmpty()) return {};
    return ShortestDouble(v.toDouble());
}

template <class I>
I IntOfCell(const Value& v) {
    const double r = std::nearbyint(NumberOfCell(v));
    if (!(r >= static_cast<double>(std::numeric_limits<I>::min()) &&
          r <= static_cast<double>(std::numeric_limits<I>::max())))
        throw std::overflow_error("integer overflow");
    return static_cast<I>(r);
}

void Distribute(clsExGlobalVars& s, const CellRow& r) {
    const Value& cell = s.UI.at(r.cell);
    switch (r.type) {
        case 'S':
            r.info->set(s, Value(TextOfCell(cell)));
            break;
        case 'D':
            r.info->set(s, Value(NumberOfCell(cell)));
            break;
        case 'H':
            r.info->set(s, Value(IntOfCell<std::int16_t>(cell)));
            break;
        default:
            r.info->set(s, Value(IntOfCell<std::int32_t>(cell)));
    }
}

// The reader's walk over the file. The index is a 16-bit counter: past the last section it
// keeps counting without reading, so a file with rows beyond "Reserve 30" ends in its overflow.
class UIReader {
  public:
    UIReader(clsExGlobalVars& s, std::string_view ansiText)
        : s_(s), lines_(ansiText), P_(s.Mgt_GasDensPressDiv) {}

    void Run() {
        while (!lines_.AtEnd()) Step();
    }
    bool gas() const { return gas_; }
    const std::string& fluidName() const { return fluidName_; }

  private:
    std::string_view Read() { return lines_.Next(); }
    void Advance(std::int32_t by = 1) {
        if (index_ + by > std::numeric_limits<std::int16_t>::max())
            throw std::overflow_error("cell index overflow");
        index_ += by;
    }
    void Store(std::int32_t at, Value v) { s_.UI.at(at) = std::move(v); }
    // All fields but the first, from the cell `at` on.
    void StoreFields(std::string_view row, std::int32_t at) {
        FieldReader fields(row);
        fields.Next();
        while (!fields.AtEnd()) Store(at++, Value(std::string(fields.Next())));
    }
    void StoreFieldsAppending(std::string_view row) {
        FieldReader fields(row);
        fields.Next();
        while (!fields.AtEnd()) Store(append_++, Value(std::string(fields.Next())));
    }
    // One of the P-row blocks of a gas: P rows appended from `start`, then on to `then`.
    void GasBlock(std::int32_t start, std::int32_t then) {
        if (rowsRead_ == 0) append_ = start;
        if (rowsRead_ >= P_) {
            rowsRead_ = 0;
            index_ = then;
            return;
        }
        StoreFieldsAppending(Read());
        ++rowsRead_;
    }

    void Step() {
        const Kind kind = KindOf(gas_, fluidName_);
        const std::int32_t i = index_;
        if (i <= 57) {
            const std::string_view cell = CellOf(Read());
            if (i == 14) gas_ = cell == "2";
            if (i == 16) fluidName_.assign(WithoutQuotes(cell));
            Store(i, Value(std::string(cell)));
            Advance();
        } else if (i <= 59) {
            Read();
            Advance();
        } else if (i <= 315) {
            if (kind == Kind::Gas) return GasBlock(60, 316);
            StoreFields(Read(), i);
            index_ = 316;
        } else if (i <= 317) {
            Read();
            Advance();
        } else if (i <= 573) {
            // No liquid test here: a liquid file's rows pass through this state.
            if (kind != Kind::Steam) return GasBlock(318, 574);
            StoreFields(Read(), i);
            index_ = 576;
        } else if (i <= 576) {
            Read();
            Advance();
        } else if (i <= 832) {
            if (kind == Kind::Gas) return GasBlock(577, 833);
            StoreFields(Read(), i);
            index_ = 833;
        } else if (i == 833 || i == 835 || i == 836 || i == 901 || i == 905) {
            Read();
            Advance();
        } else if (i == 834 || (i >= 902 && i <= 946)) {
            Store(i, Value(std::string(CellOf(Read()))));
            Advance();
        } else if (i <= 900) {
            FieldReader fields(Read());
            fields.Next();
            std::string_view pair[2];
            for (std::string_view& field : pair) {
                if (fields.AtEnd()) throw std::out_of_range("viscosity row lacks a field");
                field = fields.Next();
            }
            Store(i, Value(CellToDouble(pair[0])));
            Store(i + 1, Value(CellToDouble(pair[1])));
            Advance(2);
        } else {
            // Past the last section nothing is read again: the counter would only run on, one
            // step at a time, to its overflow.
            throw std::overflow_error("cell index overflow");
        }
    }

    clsExGlobalVars& s_;
    LineReader lines_;
    std::int32_t index_ = 0;
    std::int32_t P_;
    std::int32_t rowsRead_ = 0;
    std::int32_t append_ = 0;
    bool gas_ = false;
    std::string fluidName_;
};

// The table members, found once.
struct TableMembers {
    const MemberInfo& densTemp = RowMember("UI_DensTemp", 1);
    const MemberInfo& densAbsPress = RowMember("UI_DensAbsPress", 1);
    const MemberInfo& dens = RowMember("UI_Dens", 1);
    const MemberInfo& viscTemp = RowMember("UI_ViscTemp", 1);
    const MemberInfo& visc = RowMember("UI_Visc", 1);
};

void DistributeTables(clsExGlobalVars& s, Kind kind) {
    static const TableMembers m;
    // Grid sizes come from a file too: 64-bit cell arithmetic, the bounds check decides.
    const auto cell = [&s](std::int64_t at) { return Value(NumberOfCell(s.UI.at(at))); };
    if (kind == Kind::Gas) {
        const std::int64_t P = s.Mgt_GasDensPressDiv;
        // Without rows the columns hold nothing: don't walk them.
        const std::int64_t N = P > 0 ? s.Mgt_GasDensTempDiv : 0;
        std::int32_t k = 0;
        for (std::int64_t c = 0; c < N; ++c)
            for (std::int64_t r = 0; r < P; ++r, ++k) {
                m.densTemp.setAt(s, k, cell(60 + c + r * N));
                m.densAbsPress.setAt(s, k, cell(318 + c + r * N));
            }
        k = 0;
        for (std::int64_t c = 0; c < N; ++c)
            for (std::int64_t r = 0; r < P; ++r, ++k) m.dens.setAt(s, k, cell(577 + c + r * N));
    } else {
        const std::int32_t count = kind == Kind::Steam ? s.Mgt_GasDensDiv : s.Mgt_LqdDensTempDiv;
        for (std::int32_t i = 0; i < count; ++i) {
            m.densTemp.setAt(s, i, cell(60 + i));
            if (kind == Kind::Steam) m.densAbsPress.setAt(s, i, cell(318 + i));
        }
        for (std::int32_t i = 0; i < count; ++i) m.dens.setAt(s, i, cell(577 + i));
    }
    for (std::int32_t i = 0; i < 32; ++i) {
        m.viscTemp.setAt(s, i, cell(837 + 2 * i));
        m.visc.setAt(s, i, cell(838 + 2 * i));
    }
}

}  // namespace

std::string UIFileText(const clsExGlobalVars& s) {
    const Kind kind = KindOf(s.UI_FluidType == 2, s.UI_FluidName);
    const std::int32_t N = InRange(s.Mgt_GasDensTempDiv, 16);
    // A gas grid without columns has no rows either.
    const std::int32_t P = N == 0 ? 0 : InRange(s.Mgt_GasDensPressDiv, 16);
    const std::int32_t L = InRange(s.Mgt_LqdDensTempDiv, 16);
    const std::int32_t G = InRange(s.Mgt_GasDensDiv, 20);

    // The fixed rows take about 4 kB, a table number at most 25 bytes.
    LineBuilder out(4096 + 25 * static_cast<std::size_t>(4 * N * P + 3 * (G + L)));
    for (const CellRow& r : HeadRows()) WriteRow(out, s, r);
    const auto row = [&out](const char* first, const auto& array, std::int32_t from,
                            std::int32_t count, std::int32_t step) {
        out.Str(first);
        for (std::int32_t c = 0; c < count; ++c) out.Dbl(array.at(from + c * step));
        out.End();
    };

    out.Str("").End();
    out.Str("Temperature").End();
    if (kind == Kind::Gas) {
        for (std::int32_t r = 0; r < P; ++r) row("", s.UI_DensTemp, r, N, P);
    } else if (kind == Kind::Steam) {
        row("", s.UI_DensTemp, 0, G, 1);
    } else {
        row("", s.UI_DensTemp, 0, L, 1);
    }
    if (kind != Kind::Liquid) {
        out.Str("").End();
        out.Str("Pressure").End();
        if (kind == Kind::Gas) {
            for (std::int32_t r = 0; r < P; ++r) row("", s.UI_DensAbsPress, r, N, 0);
        } else {
            row("", s.UI_DensAbsPress, 0, G, 1);
        }
    }
    out.Str("").End();
    if (kind != Kind::Steam) {
        out.Str("").Str("").Str("").Str("TEMPERATURE").End();
        if (kind == Kind::Gas)
            row("", s.UI_DensTemp, 0, N, P);
        else
            row("", s.UI_DensTemp, 0, L, 1);
    }
    if (kind == Kind::Gas) {
        for (std::int32_t r = 0; r < P; ++r) {
            out.Dbl(s.UI_DensAbsPress.at(r));
            for (std::int32_t c = 0; c < N; ++c) out.Dbl(s.UI_Dens.at(r + c * P));
            out.End();
        }
    } else if (kind == Kind::Steam) {
        row("Density", s.UI_Dens, 0, G, 1);
    } else {
        row(" ", s.UI_Dens, 0, L, 1);
    }
    out.End();

    WriteRow(out, s, ViscUnitRow());
    out.Str("").End();
    out.Str("Pressure").Str("Temperature").Str("Viscosity").End();
    for (std::int32_t i = 0; i < 32; ++i)
        out.Dbl(s.UI_VisPress.at(i)).Dbl(s.UI_ViscTemp.at(i)).Dbl(s.UI_Visc.at(i)).End();

    out.Str("").End();
    for (const CellRow& r : TailRows()) {
        if (r.cell == 906) out.Str("").End();
        WriteRow(out, s, r);
    }
    return out.TakeText();
}

void ExportUIFile(clsExGlobalVars& store, const std::string& path) {
    SaveText(UIFileText(store), path);
}

std::int32_t ImportUIText(clsExGlobalVars& store, std::string_view ansiText) {
    try {
        UIReader reader(store, ansiText);
        reader.Run();
        for (const CellRow& r : HeadRows()) Distribute(store, r);
        Distribute(store, ViscUnitRow());
        for (const CellRow& r : TailRows()) Distribute(store, r);
        DistributeTables(store, KindOf(reader.gas(), reader.fluidName()));
        return 0;
    } catch (const std::exception&) {
        return 1;
    }
}

std::int32_t ImportUIFile(clsExGlobalVars& store, const std::string& path) {
    return ImportFromFile(store, path, ImportUIText);
}

}  // namespace qdf
