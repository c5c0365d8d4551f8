#include "ModXmtrParam.h"

#include <exception>
#include <vector>

#include "LineForm.h"
#include "StoreRegistry.h"
#include "clsExGlobalVars.h"

namespace qdf {

namespace {

enum class Cell { Double, Int, String };

struct Row {
    std::string label;
    Cell type;
    std::string member;     // written from, and read into unless `into` says otherwise
    std::int32_t index;     // array element, -1 for a scalar
    std::string into = {};  // import target when it differs from the export source
    // Found when the table is built.
    const MemberInfo* from = nullptr;
    const MemberInfo* to = nullptr;
};

const std::vector<Row>& XmtrRows() {
    static const std::vector<Row> rows = [] {
        std::vector<Row> r;
        const struct {
            const char* label;
            const char* member;
            int count;
        } arrays[] = {{"Xmtr Discharge Coeff", "Xmtr_DisCoeff", 6},
                      {"Xmtr Expansion Factor ", "Xmtr_ExpFac", 6},
                      {"Xmtr Viscosity Coefficient ", "Xmtr_VisCoeff", 6},
                      {"Xmtr Density Coefficient ", "Xmtr_DensCoeff", 18}};
        for (const auto& a : arrays)
            for (int i = 0; i < a.count; ++i)
                r.push_back({a.label + std::to_string(i) + " ", Cell::Double, a.member, i});
        const Row scalars[] = {
            {"Xmtr Primary Device Code", Cell::Int, "Xmtr_PDCode", -1},
            {"Fluid Type Code", Cell::Int, "Xmtr_FluidTypeCode", -1},
            {"Density Unit Code", Cell::Int, "Xmtr_DensUnitCode", -1},
            {"Primary Device Length Unit Code", Cell::Int, "Xmtr_PDLenUnitCode", -1},
            {"Primary Device Thermal Expansion Factor", Cell::Double, "Xmtr_PriDevTherExpFac", -1},
            {"Pipe Thermal Expansion Factor", Cell::Double, "Xmtr_PipeTherExpFac", -1},
            {"Length Unit Code", Cell::Int, "Xmtr_LenUnitCode", -1},
            {"dr", Cell::Double, "Xmtr_Smalld", -1},
            {"Dr", Cell::Double, "Xmtr_BigD", -1},
            {"Temperature Unit Code", Cell::Int, "Xmtr_TempUnitCode", -1},
            {"Tdr", Cell::Double, "Xmtr_TSmallD", -1},
            {"TDr", Cell::Double, "Xmtr_TBigD", -1},
            {"Volume density base unit", Cell::Int, "Xmtr_RefDensUnitCode", -1},
            {"Volume density base", Cell::Double, "Xmtr_VolFlowBaseDens", -1},
            {"Simple flow calc mode", Cell::Int, "Xmtr_SimpleFlowCalcMode", -1},
            {"Simple fluid type code", Cell::Int, "Xmtr_SimpleFluidTypeCode", -1},
            {"Simple density base", Cell::Double, "Xmtr_SimpleDensityBase", -1},
            {"Reference temperature", Cell::Double, "Xmtr_SimpleRefTemp", -1},
            {"Reference temperature unit", Cell::Int, "Xmtr_SimpleTempUnit", -1},
            // Row 55 has always been read back into the unused member, as an integer.
            {"Reference static pressure", Cell::Double, "Xmtr_SimpleRefStaticPress", -1,
             "Xmtr_NeverUse"},
            {"Reference static pressure unit", Cell::Int, "Xmtr_SimpleStaticPressUnit", -1},
            {"K factor", Cell::Double, "Xmtr_SimpleFlowCalcFixedVar", -1},
            {"Temp K1", Cell::Double, "Xmtr_SimpleTempK1ForLqdVar", -1},
        };
        r.insert(r.end(), std::begin(scalars), std::end(scalars));
        for (int i = 1; i <= 10; ++i)
            r.push_back({"Reserve " + std::to_string(i), Cell::Int,
                         "Xmtr_Reserve" + std::to_string(i), -1});
        r.push_back({"Reference static pressure", Cell::Double, "Xmtr_SimpleRefStaticPress", -1});
        for (int i = 12; i <= 20; ++i)
            r.push_back({"Reserve " + std::to_string(i), Cell::Double,
                         "Xmtr_Reserve" + std::to_string(i), -1});
        for (int i = 21; i <= 30; ++i)
            r.push_back({"Reserve " + std::to_string(i), Cell::String,
                         "Xmtr_Reserve" + std::to_string(i), -1});
        for (Row& row : r) {
            row.from = &RowMember(row.member, row.index < 0 ? 0 : 1);
            row.to = row.into.empty() ? row.from : &RowMember(row.into, 0);
        }
        return r;
    }();
    return rows;
}

struct MgtRow {
    std::int32_t row;
    Cell type;
    const char* member;
    const MemberInfo* info = nullptr;  // found when the table is built
};

// Rows 3, 4, 7 and 18 have no member.
const std::vector<MgtRow>& MgtRows() {
    static const std::vector<MgtRow> rows = [] {
        std::vector<MgtRow> r = {
            {0, Cell::String, "Mgt_ProgramName"},
            {1, Cell::String, "Mgt_SoftRevNO"},
            {2, Cell::String, "Mgt_FileFormatRevNo"},
            {5, Cell::Int, "Mgt_DebugModeFlag"},
            {6, Cell::Int, "Mgt_ConfigCompleteFlag"},
            {8, Cell::Int, "Mgt_DisplayCurrentValueFlag"},
            {9, Cell::Int, "Mgt_MtdGasVisCalc"},
            {10, Cell::Int, "Mgt_MtdIsenExpCalc"},
            {11, Cell::Int, "Mgt_GasDensDiv"},
            {12, Cell::Int, "Mgt_GasDensTempDiv"},
            {13, Cell::Int, "Mgt_GasDensPressDiv"},
            {14, Cell::Int, "Mgt_LqdDensTempDiv"},
            {15, Cell::Int, "Mgt_GasVisTempDiv"},
            {16, Cell::Int, "Mgt_LqdVisTempDiv"},
            {17, Cell::Int, "Mgt_GasExpFacDiv"},
            {19, Cell::Int, "Mgt_HrtCommtype"},
            {20, Cell::String, "Mgt_DbName"},
            {21, Cell::Int, "Mgt_PollAddr"},
            {22, Cell::String, "Mgt_LongAddr"},
            {23, Cell::Int, "Mgt_DigLen"},
            {24, Cell::Int, "Mgt_MtdAirGasDensityCalculation"},
        };
        static const char* const reserves[] = {
            "Mgt_Reserve1",   "Mgt_Reserve2",  "Mgt_Reserve3",  "Mgt_Reserve4",  "Mgt_Reserve5",
            "Mgt_Reserve6",   "Mgt_Reserve7",  "Mgt_Reserve8",  "Mgt_Reserve9",  "Mgt_Reserve10",
            "Mgt_CfgSoftRev", "Mgt_Reserve12", "Mgt_Reserve13", "Mgt_Reserve14", "Mgt_Reserve15",
            "Mgt_Reserve16",  "Mgt_Reserve17", "Mgt_Reserve18", "Mgt_Reserve19", "Mgt_Reserve20"};
        for (int i = 0; i < 20; ++i)
            r.push_back({25 + i, i < 10 ? Cell::Int : Cell::String, reserves[i]});
        for (MgtRow& row : r) row.info = &RowMember(row.member, 0);
        return r;
    }();
    return rows;
}

// Number cells convert by the general numeric test; strings are taken as they stand.
Value Convert(Cell type, std::string_view cell) {
    switch (type) {
        case Cell::Double:
            return Value(CellToDouble(cell));
        case Cell::Int:
            return Value(CellToInt32(cell));
        case Cell::String:
            break;
    }
    return Value(std::string(cell));
}

// Every row's cell into the array, from row 0; an array too short for the file ends the read.
template <class Array>
bool ReadCells(std::string_view text, Array& cells) {
    LineReader lines(text);
    for (std::int64_t i = 0; !lines.AtEnd(); ++i) {
        if (i > Array::upper()) return false;
        cells.at(i).assign(CellOf(lines.Next()));
    }
    return true;
}

}  // namespace

std::string XmtrFileText(const clsExGlobalVars& store) {
    LineBuilder out(4096);
    for (const Row& r : XmtrRows()) {
        out.Str(r.label);
        const Value v = r.index < 0 ? r.from->get(store) : r.from->getAt(store, r.index);
        switch (r.type) {
            case Cell::Double:
                out.Dbl(v.toDouble());
                break;
            case Cell::Int:
                out.Int(static_cast<std::int64_t>(v.toDouble()));
                break;
            case Cell::String:
                out.Str(v.str());
                break;
        }
        out.End();
    }
    return out.TakeText();
}

void ExportXmtrFile(clsExGlobalVars& store, const std::string& path) {
    SaveText(XmtrFileText(store), path);
}

std::int32_t ImportXmtrText(clsExGlobalVars& store, std::string_view ansiText) {
    try {
        if (!ReadCells(ansiText, store.Xmtr)) return 1;
        const auto& rows = XmtrRows();
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const Row& r = rows[i];
            const std::string& cell = store.Xmtr.at(static_cast<std::int64_t>(i));
            if (!r.into.empty()) {
                r.to->set(store, Value(static_cast<double>(CellToInt32(cell))));
            } else if (r.index < 0) {
                r.to->set(store, Convert(r.type, cell));
            } else {
                r.to->setAt(store, r.index, Convert(r.type, cell));
            }
        }
        return 0;
    } catch (const std::exception&) {
        return 1;
    }
}

std::int32_t ImportXmtrFile(clsExGlobalVars& store, const std::string& path) {
    return ImportFromFile(store, path, ImportXmtrText);
}

std::int32_t ImportMgtText(clsExGlobalVars& store, std::string_view ansiText) {
    try {
        if (!ReadCells(ansiText, store.Mgt)) return 1;
        for (const MgtRow& r : MgtRows()) r.info->set(store, Convert(r.type, store.Mgt.at(r.row)));
        return 0;
    } catch (const std::exception&) {
        return 1;
    }
}

std::int32_t ImportMgtFile(clsExGlobalVars& store, const std::string& path) {
    return ImportFromFile(store, path, ImportMgtText);
}

}  // namespace qdf
