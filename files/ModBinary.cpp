#include "ModBinary.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <limits>
#include <memory>
#include <span>
#include <stdexcept>
#include <type_traits>

#include <sys/stat.h>

#include "AnsiText.h"
#include "CodeTables.h"
#include "ComponentTables.h"
#include "FileErrors.h"
#include "FileMessages.h"
#include "ModLog.h"
#include "SDKFrame.h"
#include "StoreMemberIndex.h"
#include "StoreRegistry.h"
#include "clsExGlobalVars.h"

namespace qdf {

namespace {

enum class FieldType {
    String,
    Int32,
    Int16,
    Double,
    NeverUse,  // a double member held as a rounded 32-bit integer
    Slot,      // a 32-bit integer with no member
};

struct Field {
    FieldType type;
    std::string_view member;
    std::int32_t index = -1;     // element of an array member, -1 for a scalar
    std::uint16_t position = 0;  // the member's place in the store; none for a slot
};

using F = FieldType;

// A field list with each member's place in the store found when compiled.
template <std::size_t N>
constexpr std::array<Field, N> Resolved(std::array<Field, N> fields) {
    for (Field& f : fields)
        if (f.type != F::Slot) f.position = RequiredMemberPosition(f.member);
    return fields;
}

// Block 1, the management record.
constexpr auto kMgtBlock = Resolved(std::to_array<Field>({
    {F::String, "Mgt_ProgramName"},
    {F::String, "Mgt_SoftRevNO"},
    {F::String, "Mgt_FileFormatRevNo"},
    {F::String, "Mgt_ConfDate"},
    {F::String, "Mgt_UserName"},
    {F::Slot, ""},
    {F::Int32, "Mgt_ConfigCompleteFlag"},
    {F::Int32, "Mgt_OnlineModeFlag"},
    {F::Int32, "Mgt_DisplayCurrentValueFlag"},
    {F::Int32, "Mgt_MtdGasVisCalc"},
    {F::Int32, "Mgt_MtdIsenExpCalc"},
    {F::Int32, "Mgt_GasDensDiv"},
    {F::Int32, "Mgt_GasDensTempDiv"},
    {F::Int32, "Mgt_GasDensPressDiv"},
    {F::Int32, "Mgt_LqdDensTempDiv"},
    {F::Int32, "Mgt_GasVisTempDiv"},
    {F::Int32, "Mgt_LqdVisTempDiv"},
    {F::Int32, "Mgt_GasExpFacDiv"},
    {F::Int32, "Mgt_FldCommType"},
    {F::Int32, "Mgt_HrtCommtype"},
    {F::String, "Mgt_DbName"},
    {F::Int32, "Mgt_PollAddr"},
    {F::String, "Mgt_LongAddr"},
    {F::Int32, "Mgt_DigLen"},
    {F::Int32, "Mgt_MtdAirGasDensityCalculation"},
    {F::Int32, "Mgt_Reserve1"},
    {F::Int32, "Mgt_Reserve2"},
    {F::Int32, "Mgt_Reserve3"},
    {F::Int32, "Mgt_Reserve4"},
    {F::Int32, "Mgt_Reserve5"},
    {F::Int32, "Mgt_Reserve6"},
    {F::Int32, "Mgt_Reserve7"},
    {F::Int32, "Mgt_Reserve8"},
    {F::Int32, "Mgt_Reserve9"},
    {F::Int32, "Mgt_Reserve10"},
    {F::String, "Mgt_CfgSoftRev"},
    {F::String, "Mgt_Reserve12"},
    {F::String, "Mgt_Reserve13"},
    {F::String, "Mgt_Reserve14"},
    {F::String, "Mgt_Reserve15"},
    {F::String, "Mgt_Reserve16"},
    {F::String, "Mgt_Reserve17"},
    {F::String, "Mgt_Reserve18"},
    {F::String, "Mgt_Reserve19"},
    {F::String, "Mgt_Reserve20"},
}));

constexpr std::span<const Field> MgtBlock() {
    return kMgtBlock;
}

constexpr std::size_t kRevisionField = 2;  // field 3

// The management members a read copies to the store, in this order; the others describe who
// wrote the file, and the session keeps its own.
constexpr std::string_view kMgtReadBack[] = {
    "Mgt_MtdGasVisCalc",   "Mgt_MtdIsenExpCalc",
    "Mgt_GasDensDiv",      "Mgt_GasDensTempDiv",
    "Mgt_GasDensPressDiv", "Mgt_LqdDensTempDiv",
    "Mgt_GasVisTempDiv",   "Mgt_LqdVisTempDiv",
    "Mgt_GasExpFacDiv",    "Mgt_MtdAirGasDensityCalculation",
    "Mgt_Reserve1",        "Mgt_Reserve2",
    "Mgt_Reserve3",        "Mgt_Reserve4",
    "Mgt_Reserve5",        "Mgt_Reserve6",
    "Mgt_Reserve7",        "Mgt_Reserve8",
    "Mgt_Reserve9",        "Mgt_Reserve10",
    "Mgt_Reserve12",       "Mgt_Reserve13",
    "Mgt_Reserve14",       "Mgt_Reserve15",
    "Mgt_Reserve16",       "Mgt_Reserve17",
    "Mgt_Reserve18",       "Mgt_Reserve19",
    "Mgt_Reserve20",
};

// Collects a list made at compile time: first counted (N = 0), then into an array of that size.
template <class T, std::size_t N = 0>
struct ListSink {
    std::array<T, N> items{};
    std::size_t filled = 0;

    constexpr std::size_t size() const { return filled; }
    constexpr std::size_t end() const { return filled; }
    constexpr void push_back(const T& item) {
        if constexpr (N > 0) items[filled] = item;
        ++filled;
    }
    template <class It>
    constexpr void insert(std::size_t, It first, It last) {
        for (; first != last; ++first) push_back(*first);
    }
};

// Blocks 2 to 9, flattened into one list of fields in file order.
template <class Out>
constexpr void StoreFieldList(Out& b) {
    const Field head[] = {
        {F::Int32, "UI_NeverUsedRecord"},  {F::Int32, "UI_PEType"},
        {F::String, "UI_PEName"},          {F::Double, "UI_PEDiameter"},
        {F::Int32, "UI_PEDiameterUnit"},   {F::Double, "UI_PETemp"},
        {F::Int32, "UI_PETempUnit"},       {F::String, "UI_PEMaterial"},
        {F::Double, "UI_PEPipeDiameter"},  {F::Int32, "UI_PEPipeDiameterUnit"},
        {F::Double, "UI_PipeTemperature"}, {F::Int32, "UI_PipeTemperatureUnit"},
        {F::String, "UI_PipeMaterial"},    {F::Int32, "UI_FluidType"},
        {F::Int32, "UI_FluidCat"},         {F::String, "UI_FluidName"},
        {F::String, "UI_ChemID"},
    };
    b.insert(b.end(), std::begin(head), std::end(head));
    for (std::string_view m :
         {"UI_DtlTotalMole",   "UI_DtlMethaneMole",    "UI_DtlN2Mole",      "UI_DtlCO2Mole",
          "UI_DtlEthaneMole",  "UI_DtlPropaneMole",    "UI_DtlWaterMole",   "UI_DtlH2SMole",
          "UI_DtlH2Mole",      "UI_DtlCOMole",         "UI_DtlO2Mole",      "UI_DtlIsobutaneMole",
          "UI_DtlButaneMole",  "UI_DtlIsoPentaneMole", "UI_DtlPentaneMole", "UI_DtlHexaneMole",
          "UI_DtlHeptaneMole", "UI_DtlOctaneMole",     "UI_DtlNonaneMole",  "UI_DtlDecaneMole",
          "UI_DtlHe4Mole",     "UI_DtlArMole"})
        b.push_back({F::Double, m});
    const Field rest[] = {
        {F::Double, "UI_RgRelDens"},
        {F::Double, "UI_CO2Mole"},
        {F::Double, "UI_VgHv"},
        {F::Int32, "UI_VgHvUnit"},
        {F::Double, "UI_N2Mole"},
        {F::Double, "UI_H2Mole"},
        {F::Double, "UI_COMole"},
        {F::Double, "UI_RangeP1"},
        {F::Double, "UI_RangeP2"},
        {F::Int32, "UI_RangePUnit"},
        {F::Double, "UI_RangeT1"},
        {F::Double, "UI_RangeT2"},
        {F::Int16, "UI_RangeTUnit"},
        {F::Double, "UI_PressRef"},
        {F::Int32, "UI_PressRefUnit"},
        {F::Double, "UI_TempRef"},
        {F::Int32, "UI_TempRefUnit"},
        {F::Int32, "UI_DensUnit"},
        {F::Int32, "UI_ViscUnit"},
        {F::Double, "UI_RefDensValue"},
        {F::Int32, "UI_RefDensUnit"},
        {F::Double, "UI_IsenExpValue"},
        {F::Double, "UI_PEDiameterStandard"},
        {F::Double, "UI_PETempStandard"},
        {F::Double, "UI_PEPipeDiameterStandard"},
        {F::Double, "UI_PEPipeTempStandard"},
        {F::Double, "UI_VgHvStandard"},
        {F::Double, "UI_RangeP1Standard"},
        {F::Double, "UI_RangeP2Standard"},
        {F::Double, "UI_RangeT1Standard"},
        {F::Double, "UI_RangeT2Standard"},
        {F::Double, "UI_PressRefStandard"},
        {F::Double, "UI_TempRefStandard"},
        {F::Int32, "UI_PEPrimaryDeviceCode"},
        {F::Int32, "UI_PESubcode"},
        {F::Int32, "UI_FluidNameMethodCode"},
        {F::Int32, "UI_AtmPressUnit"},
        {F::Int32, "UI_Reserve5"},
        {F::Int32, "UI_Reserve6"},
        {F::Int32, "UI_Reserve7"},
        {F::Int32, "UI_Reserve8"},
        {F::Int32, "UI_Reserve9"},
        {F::Int32, "UI_Reserve10"},
        {F::String, "UI_Reserve11"},
        {F::String, "UI_Reserve12"},
        {F::String, "UI_Reserve13"},
        {F::String, "UI_Reserve14"},
        {F::String, "UI_Reserve15"},
        {F::String, "UI_Reserve16"},
        {F::String, "UI_Reserve17"},
        {F::String, "UI_Reserve18"},
        {F::String, "UI_Reserve19"},
        {F::String, "UI_Reserve20"},
        {F::Double, "UI_PEDisCoeff"},
        {F::Double, "UI_PEGasExpFac"},
        {F::Double, "UI_AtmPress"},
        {F::Double, "UI_AtmPressStandard"},
        {F::Double, "UI_MolWeight"},
        {F::Double, "UI_Reserve26"},
        {F::Double, "UI_Reserve27"},
        {F::Double, "UI_Reserve28"},
        {F::Double, "UI_Reserve29"},
        {F::Double, "UI_Reserve30"},
    };
    b.insert(b.end(), std::begin(rest), std::end(rest));

    // Block 3, viscosity rows; block 4, density rows (index 256 stays out of the file).
    for (std::int32_t i = 0; i < 32; ++i) {
        b.push_back({F::Double, "UI_ViscTemp", i});
        b.push_back({F::Double, "UI_VisPress", i});
        b.push_back({F::Double, "UI_Visc", i});
    }
    for (std::int32_t i = 0; i < 256; ++i) {
        b.push_back({F::Double, "UI_DensAbsPress", i});
        b.push_back({F::Double, "UI_DensTemp", i});
        b.push_back({F::Double, "UI_Dens", i});
    }
    // Blocks 5 to 8: the coefficient arrays as far as the device carries them.
    const std::pair<std::string_view, std::int32_t> coeffs[] = {
        {"Xmtr_DisCoeff", 6}, {"Xmtr_ExpFac", 6}, {"Xmtr_VisCoeff", 6}, {"Xmtr_DensCoeff", 18}};
    for (const auto& [name, count] : coeffs)
        for (std::int32_t i = 0; i < count; ++i) b.push_back({F::Double, name, i});

    // Block 9, the transmitter record.
    const Field xmtr[] = {
        {F::Int32, "Xmtr_PDCode"},
        {F::Int32, "Xmtr_FluidTypeCode"},
        {F::Int32, "Xmtr_DensUnitCode"},
        {F::Int32, "Xmtr_PDLenUnitCode"},
        {F::Double, "Xmtr_PriDevTherExpFac"},
        {F::Double, "Xmtr_PipeTherExpFac"},
        {F::Int32, "Xmtr_LenUnitCode"},
        {F::Double, "Xmtr_Smalld"},
        {F::Double, "Xmtr_BigD"},
        {F::Int32, "Xmtr_TempUnitCode"},
        {F::Double, "Xmtr_TSmallD"},
        {F::Double, "Xmtr_TBigD"},
        {F::Int32, "Xmtr_RefDensUnitCode"},
        {F::Double, "Xmtr_VolFlowBaseDens"},
        {F::Int32, "Xmtr_SimpleFlowCalcMode"},
        {F::Int32, "Xmtr_SimpleFluidTypeCode"},
        {F::Double, "Xmtr_SimpleFlowCalcFixedVar"},
        {F::Int32, "Xmtr_SimpleStaticPressUnit"},
        {F::NeverUse, "Xmtr_NeverUse"},
        {F::Int32, "Xmtr_SimpleTempUnit"},
        {F::Double, "Xmtr_SimpleRefTemp"},
        {F::Double, "Xmtr_SimpleTempK1ForLqdVar"},
        {F::Double, "Xmtr_SimpleDensityBase"},
        {F::Int32, "Xmtr_Reserve1"},
        {F::Int32, "Xmtr_Reserve2"},
        {F::Int32, "Xmtr_Reserve3"},
        {F::Int32, "Xmtr_Reserve4"},
        {F::Int32, "Xmtr_Reserve5"},
        {F::Int32, "Xmtr_Reserve6"},
        {F::Int32, "Xmtr_Reserve7"},
        {F::Int32, "Xmtr_Reserve8"},
        {F::Int32, "Xmtr_Reserve9"},
        {F::Int32, "Xmtr_Reserve10"},
        {F::Double, "Xmtr_SimpleRefStaticPress"},
        {F::Double, "Xmtr_Reserve12"},
        {F::Double, "Xmtr_Reserve13"},
        {F::Double, "Xmtr_Reserve14"},
        {F::Double, "Xmtr_Reserve15"},
        {F::Double, "Xmtr_Reserve16"},
        {F::Double, "Xmtr_Reserve17"},
        {F::Double, "Xmtr_Reserve18"},
        {F::Double, "Xmtr_Reserve19"},
        {F::Double, "Xmtr_Reserve20"},
        {F::String, "Xmtr_Reserve21"},
        {F::String, "Xmtr_Reserve22"},
        {F::String, "Xmtr_Reserve23"},
        {F::String, "Xmtr_Reserve24"},
        {F::String, "Xmtr_Reserve25"},
        {F::String, "Xmtr_Reserve26"},
        {F::String, "Xmtr_Reserve27"},
        {F::String, "Xmtr_Reserve28"},
        {F::String, "Xmtr_Reserve29"},
        {F::String, "Xmtr_Reserve30"},
    };
    b.insert(b.end(), std::begin(xmtr), std::end(xmtr));
}

constexpr std::size_t kStoreFieldCount = [] {
    ListSink<Field> count;
    StoreFieldList(count);
    return count.size();
}();

constexpr auto kStoreFields = [] {
    ListSink<Field, kStoreFieldCount> fields;
    StoreFieldList(fields);
    return Resolved(fields.items);
}();

constexpr std::span<const Field> StoreBlocks() {
    return kStoreFields;
}

// The store fields as stretches of fixed width between the strings, so that a file's length is
// checked in a few steps rather than one a field.
struct Stretch {
    bool text = false;
    std::size_t bytes = 0;  // of a fixed-width stretch
};

constexpr std::size_t FixedWidth(FieldType type) {
    switch (type) {
        case F::String:
            return 0;
        case F::Int16:
            return 2;
        case F::Double:
            return 8;
        default:
            return 4;
    }
}

template <class Out>
constexpr void StoreLayoutList(Out& layout) {
    Stretch run;
    for (const Field& f : kStoreFields) {
        if (f.type == F::String) {
            if (run.bytes > 0) layout.push_back(run);
            run = {};
            layout.push_back({true, 0});
        } else {
            run.bytes += FixedWidth(f.type);
        }
    }
    if (run.bytes > 0) layout.push_back(run);
}

constexpr auto kStoreLayout = [] {
    constexpr std::size_t stretches = [] {
        ListSink<Stretch> count;
        StoreLayoutList(count);
        return count.size();
    }();
    ListSink<Stretch, stretches> layout;
    StoreLayoutList(layout);
    return layout.items;
}();

// The module's management record: one value per field of block 1, kept for the program's life.
std::vector<Value>& Record() {
    static std::vector<Value> record = [] {
        std::vector<Value> r;
        for (const Field& f : MgtBlock())
            r.push_back(f.type == F::String ? Value(std::string()) : Value(std::int32_t{0}));
        return r;
    }();
    return record;
}

constexpr std::size_t MgtIndex(std::string_view member) {
    for (std::size_t i = 0; i < kMgtBlock.size(); ++i)
        if (kMgtBlock[i].member == member) return i;
    throw std::logic_error("no management field");
}

constexpr auto kMgtReadBackFields = [] {
    std::array<std::size_t, std::size(kMgtReadBack)> at{};
    for (std::size_t i = 0; i < at.size(); ++i) at[i] = MgtIndex(kMgtReadBack[i]);
    return at;
}();

// ---- bytes ----------------------------------------------------------------------------------

void PutInt(std::vector<std::uint8_t>& out, std::uint64_t v, int bytes) {
    for (int i = 0; i < bytes; ++i) out.push_back(static_cast<std::uint8_t>(v >> (8 * i)));
}

std::int32_t RoundedInt32(double v) {
    const double r = std::nearbyint(v);
    if (!(r >= std::numeric_limits<std::int32_t>::min() &&
          r <= std::numeric_limits<std::int32_t>::max()))
        throw std::overflow_error("value does not fit a 32-bit integer");
    return static_cast<std::int32_t>(r);
}

void PutValue(std::vector<std::uint8_t>& out, FieldType type, const Value& v) {
    switch (type) {
        case F::String: {
            const std::string ansi = Utf8ToAnsi(ConvertToKind(v, MemberKind::String).str());
            if (ansi.size() > 0xFFFF) throw std::length_error("string too long for the file");
            PutInt(out, ansi.size(), 2);
            out.insert(out.end(), ansi.begin(), ansi.end());
            return;
        }
        case F::Int16:
            PutInt(out,
                   static_cast<std::uint16_t>(
                       *ConvertToKind(v, MemberKind::Int16).get_if<std::int16_t>()),
                   2);
            return;
        case F::Int32:
        case F::Slot:
            PutInt(out,
                   static_cast<std::uint32_t>(
                       *ConvertToKind(v, MemberKind::Int32).get_if<std::int32_t>()),
                   4);
            return;
        case F::NeverUse:
            PutInt(out, static_cast<std::uint32_t>(RoundedInt32(v.toDouble())), 4);
            return;
        case F::Double: {
            const double d = v.toDouble();
            std::uint64_t bits = 0;
            static_assert(sizeof bits == sizeof d);
            std::memcpy(&bits, &d, sizeof d);
            PutInt(out, bits, 8);
            return;
        }
    }
}

class ByteReader {
  public:
    explicit ByteReader(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

    // Hands the field's value to put as the member's own type (so a caller can build its Value
    // in place); false when the bytes end before the field does.
    template <class Put>
    bool Read(FieldType type, Put&& put) {
        switch (type) {
            case F::String: {
                std::uint16_t n = 0;
                if (!Take(n) || bytes_.size() - pos_ < n) return false;
                const auto* p = reinterpret_cast<const char*>(bytes_.data() + pos_);
                pos_ += n;
                put(AnsiToUtf8(std::string_view(p, n)));
                return true;
            }
            case F::Int16: {
                std::uint16_t n = 0;
                if (!Take(n)) return false;
                put(static_cast<std::int16_t>(n));
                return true;
            }
            case F::Int32:
            case F::Slot:
            case F::NeverUse: {
                std::uint32_t n = 0;
                if (!Take(n)) return false;
                put(static_cast<std::int32_t>(n));
                return true;
            }
            case F::Double: {
                std::uint64_t n = 0;
                if (!Take(n)) return false;
                put(std::bit_cast<double>(n));
                return true;
            }
        }
        return false;
    }

    // Past the field without reading it; false when the bytes end before the field does.
    bool Skip(FieldType type) {
        std::size_t width = FixedWidth(type);
        if (type == F::String) {
            std::uint16_t n = 0;
            if (!Take(n)) return false;
            width = n;
        }
        return SkipBytes(width);
    }

    bool SkipBytes(std::size_t width) {
        if (bytes_.size() - pos_ < width) return false;
        pos_ += width;
        return true;
    }

  private:
    // A little-endian unsigned integer of the width of out.
    template <class U>
    bool Take(U& out) {
        if (bytes_.size() - pos_ < sizeof(U)) return false;
        if constexpr (std::endian::native == std::endian::little) {
            std::memcpy(&out, bytes_.data() + pos_, sizeof(U));
        } else {
            out = 0;
            for (std::size_t i = 0; i < sizeof(U); ++i)
                out = static_cast<U>(out | static_cast<U>(bytes_[pos_ + i]) << (8 * i));
        }
        pos_ += sizeof(U);
        return true;
    }

    std::span<const std::uint8_t> bytes_;
    std::size_t pos_ = 0;
};

void Assign(clsExGlobalVars& store, const Field& f, const Value& v) {
    const MemberInfo& m = MemberAt(f.position);
    if (f.index < 0)
        m.set(store, f.type == F::NeverUse ? Value(v.toDouble()) : v);
    else
        m.setAt(store, f.index, v);
}

Value Fetch(const clsExGlobalVars& store, const Field& f) {
    const MemberInfo& m = MemberAt(f.position);
    return f.index < 0 ? m.get(store) : m.getAt(store, f.index);
}

ISDKMessageService* MessagesOf(const clsExGlobalVars& store) {
    return store.SDKManager ? store.SDKManager->SDKMessageService() : nullptr;
}

void Notice(ISDKMessageService* messages, const std::string& title, const std::string& text) {
    if (messages) ShowNotice(*messages, title, text);
}

// The largest file the reader can need: every string at its longest.
constexpr std::size_t kMaxFileBytes = 16 * 1024 * 1024;

}  // namespace

void ResetBinaryRecord() {
    auto& r = Record();
    for (std::size_t i = 0; i < r.size(); ++i)
        r[i] = MgtBlock()[i].type == F::String ? Value(std::string()) : Value(std::int32_t{0});
}

void LoadRecordsToStore(clsExGlobalVars& store) {
    auto& r = Record();
    const std::pair<std::string_view, std::int32_t> options[] = {
        {"Mgt_MtdGasVisCalc", 1},   {"Mgt_MtdIsenExpCalc", 1},
        {"Mgt_GasDensDiv", 12},     {"Mgt_GasDensTempDiv", 3},
        {"Mgt_GasDensPressDiv", 4}, {"Mgt_LqdDensTempDiv", 4},
        {"Mgt_GasVisTempDiv", 4},   {"Mgt_LqdVisTempDiv", 4},
        {"Mgt_GasExpFacDiv", 3},    {"Mgt_MtdAirGasDensityCalculation", 0},
    };
    std::vector<std::string_view> reset;
    for (std::string_view m : {"Mgt_ConfDate", "Mgt_UserName"}) {
        r[MgtIndex(m)] = Value(std::string());
        reset.push_back(m);
    }
    for (const auto& [m, v] : options) {
        r[MgtIndex(m)] = Value(v);
        reset.push_back(m);
    }
    for (int i = 1; i <= 20; ++i) {
        if (i == 11) continue;  // field 36 is the configuration software revision
        const std::string m = "Mgt_Reserve" + std::to_string(i);
        const std::size_t at = MgtIndex(m);
        r[at] = i <= 10 ? Value(std::int32_t{0}) : Value(std::string());
        reset.push_back(MgtBlock()[at].member);
    }
    for (std::string_view m : reset) SetMember(store, m, r[MgtIndex(m)]);
}

std::vector<std::uint8_t> BinaryFileBytes(clsExGlobalVars& store) {
    auto& r = Record();
    const auto& mgt = MgtBlock();
    for (std::size_t i = 0; i < mgt.size(); ++i)
        if (mgt[i].type != F::Slot) r[i] = Fetch(store, mgt[i]);

    std::vector<std::uint8_t> out;
    out.reserve(12 * 1024);
    for (std::size_t i = 0; i < mgt.size(); ++i) PutValue(out, mgt[i].type, r[i]);
    for (const Field& f : StoreBlocks()) PutValue(out, f.type, Fetch(store, f));
    return out;
}

void SaveBinaryFile(clsExGlobalVars& store, const std::string& path) {
    const std::vector<std::uint8_t> bytes = BinaryFileBytes(store);
    // Over an existing file from its first byte, without shortening it: the reader stops after
    // the last block, so an older, longer file's tail is harmless.
    std::FILE* file = std::fopen(path.c_str(), "r+b");
    if (!file) file = std::fopen(path.c_str(), "wb");
    if (!file) throw FileAccessError(path);
    const std::size_t written = std::fwrite(bytes.data(), 1, bytes.size(), file);
    const bool closed = std::fclose(file) == 0;
    if (written != bytes.size() || !closed) throw std::runtime_error("write failed: " + path);
}

bool ParseBinaryBytes(std::span<const std::uint8_t> bytes, std::vector<QmvMemberValue>& values) {
    values.clear();
    values.reserve(MgtBlock().size() + StoreBlocks().size());
    ByteReader in(bytes);
    Value v;
    const auto take = [&v](auto&& x) { v = Value(std::move(x)); };
    for (const Field& f : MgtBlock()) {
        if (!in.Read(f.type, take)) return false;
        if (f.type != F::Slot) values.push_back({f.member, f.index, v});
    }
    for (const Field& f : StoreBlocks()) {
        if (!in.Read(f.type, take)) return false;
        values.push_back({f.member, f.index, f.type == F::NeverUse ? Value(v.toDouble()) : v});
    }
    return true;
}

std::int32_t OpenBinaryFile(clsExGlobalVars& store, const std::string& path,
                            const IComponentList* components) {
    std::FILE* file = std::fopen(path.c_str(), "rb");
    if (!file) return 1;
    // Read into storage nobody fills first, in one step for a regular file: the bytes are read
    // once and never cleared or copied.
    struct stat info {};
    const std::size_t expected =
        fstat(fileno(file), &info) == 0 && S_ISREG(info.st_mode)
            ? std::min(kMaxFileBytes, static_cast<std::size_t>(info.st_size))
            : 0;
    std::size_t capacity = std::max<std::size_t>(expected + 1, 4096);
    auto buffer = std::make_unique_for_overwrite<std::uint8_t[]>(capacity);
    std::size_t got = 0;
    for (;;) {
        got += std::fread(buffer.get() + got, 1, capacity - got, file);
        if (got < capacity || capacity >= kMaxFileBytes) break;
        // The file grew or is no regular file: a larger buffer, up to the largest readable.
        const std::size_t larger = std::min(kMaxFileBytes, capacity * 2);
        auto next = std::make_unique_for_overwrite<std::uint8_t[]>(larger);
        std::memcpy(next.get(), buffer.get(), got);
        buffer = std::move(next);
        capacity = larger;
    }
    const bool failed = std::ferror(file) != 0;
    std::fclose(file);
    if (failed) return 1;
    const std::span<const std::uint8_t> bytes(buffer.get(), std::min(got, kMaxFileBytes));
    return OpenBinaryBytes(store, bytes, components);
}

std::int32_t OpenBinaryBytes(clsExGlobalVars& store, std::span<const std::uint8_t> bytes,
                             const IComponentList* components) {
    ISDKMessageService* messages = MessagesOf(store);

    // Block 1 goes into the module's record field by field. The rest is only walked here, so
    // that a file that ends early leaves the store as it was, and read into the store below.
    ByteReader in(bytes);
    auto& r = Record();
    const auto& mgt = MgtBlock();
    for (std::size_t i = 0; i < mgt.size(); ++i)
        if (!in.Read(mgt[i].type, [&](auto&& x) { r[i] = Value(std::move(x)); })) return 1;
    const auto fields = StoreBlocks();
    const ByteReader rest = in;
    for (const Stretch& run : kStoreLayout)
        if (!(run.text ? in.Skip(F::String) : in.SkipBytes(run.bytes))) return 1;

    const std::string fileRevision = r[kRevisionField].str();
    const bool oldRevision = fileRevision == "0.10.0" || fileRevision == "1.0.0";
    if (fileRevision != store.Mgt_FileFormatRevNo && !oldRevision) {
        try {
            LogFileError(store, 2, 0, "Current file format error");
        } catch (const std::exception&) {
            // Without a log folder the entry is lost; the user still learns why.
        }
        Notice(messages, kTitleWarning,
               "Current file format is version" + fileRevision +
                   " This program only supports version " + store.Mgt_FileFormatRevNo + ".");
        return 1;
    }

    try {
        for (std::size_t at : kMgtReadBackFields) Assign(store, kMgtBlock[at], r[at]);
        ByteReader values = rest;
        for (const Field& f : fields)
            values.Read(f.type, [&](auto&& x) {
                if constexpr (std::is_same_v<std::remove_cvref_t<decltype(x)>, double>) {
                    const MemberInfo& m = MemberAt(f.position);
                    if (f.index >= 0 && m.setDoubleAt) return m.setDoubleAt(store, f.index, x);
                }
                Assign(store, f, Value(std::move(x)));
            });
    } catch (const std::exception&) {
        return 1;
    }
    if (!oldRevision) return 0;

    // Older revisions numbered devices and fluids differently: rebuild the codes from the names.
    if (TranslatePrimaryDeviceName(store, store.UI_PEName) != 0) {
        Notice(messages, kTitleError, "Error occurs in translating primary element code");
        return 1;
    }
    // The catalogue is built only for such files: a command line run of a current one never
    // needs it.
    if (!components && CompoundTables().Count() == 0) CompoundTables().Build();
    const IComponentList* list = components ? components : &CompoundTables();
    if (TranslateFluidName(store, store.UI_FluidName, list) != 0) {
        Notice(messages, kTitleError, "Error occurs in translating fluid name code");
        return 1;
    }
    return 0;
}

}  // namespace qdf
