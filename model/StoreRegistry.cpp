#include "StoreRegistry.h"

#include <cctype>
#include <cmath>
#include <iterator>
#include <limits>
#include <optional>
#include <stdexcept>

#include "NumberText.h"
#include "StoreMemberIndex.h"
#include "clsExGlobalVars.h"

namespace qdf {

namespace {

[[noreturn]] void TypeMismatch(std::string_view what) {
    throw std::invalid_argument("type mismatch: " + std::string(what));
}

// Number of a general value: booleans are -1/0, empty is 0, a string must pass the numeric test.
double NumberOf(const Value& v) {
    switch (v.kind()) {
        case Value::Kind::Empty:
            return 0.0;
        case Value::Kind::String: {
            const std::optional<double> d = ParseNumber(v.str());
            if (!d) TypeMismatch("'" + v.str() + "' is not a number");
            return *d;
        }
        case Value::Kind::StringArray:
            TypeMismatch("an array is not a number");
        default:
            return v.toDouble();
    }
}

// Integers round half to even, as the store's integer conversion always has.
template <class I>
I IntegerOf(const Value& v) {
    if (const I* exact = v.get_if<I>()) return *exact;
    const double d = NumberOf(v);
    const double r = std::nearbyint(d);
    if (!(r >= static_cast<double>(std::numeric_limits<I>::min()) &&
          r <= static_cast<double>(std::numeric_limits<I>::max())))
        throw std::overflow_error("overflow converting " + std::to_string(d) + " to an integer");
    return static_cast<I>(r);
}

bool BoolOf(const Value& v) {
    if (const bool* b = v.get_if<bool>()) return *b;
    if (v.isString()) {
        std::string t;
        for (char ch : v.str())
            t += static_cast<char>(std::tolower(static_cast<unsigned char>(ch)));
        if (t == "true") return true;
        if (t == "false") return false;
    }
    return NumberOf(v) != 0.0;
}

// A number as text takes the plain number-to-text form.
std::string TextOf(const Value& v) {
    switch (v.kind()) {
        case Value::Kind::Empty:
            return {};
        case Value::Kind::String:
            return v.str();
        case Value::Kind::Bool:
            return *v.get_if<bool>() ? "True" : "False";
        case Value::Kind::Int16:
        case Value::Kind::Int32:
            return std::to_string(static_cast<long long>(v.toDouble()));
        case Value::Kind::StringArray:
            TypeMismatch("an array is not a text");
        case Value::Kind::Float:
            return NumToTextSingle(*v.get_if<float>());
        default:
            return NumToText(v.toDouble());
    }
}

template <MemberKind K, class T>
Value Encode(const T& x) {
    if constexpr (K == MemberKind::Bool16)
        return Value(x != 0);
    else
        return Value(x);
}

template <MemberKind K, class T>
void Decode(const Value& v, T& out) {
    if constexpr (K == MemberKind::Cell)
        out = v;
    else if constexpr (K == MemberKind::Bool16)
        out = BoolOf(v) ? kTrue : kFalse;
    else if constexpr (K == MemberKind::String) {
        if (const std::string* text = v.get_if<std::string>())
            out = *text;
        else
            out = TextOf(v);
    } else if constexpr (K == MemberKind::Double) {
        // The common case of every file reader first: a double into a double.
        if (const double* d = v.get_if<double>())
            out = *d;
        else
            out = NumberOf(v);
    } else
        out = IntegerOf<T>(v);
}

using S = clsExGlobalVars;

template <auto P, MemberKind K>
constexpr MemberInfo Scalar(std::string_view name, bool persisted) {
    MemberInfo m{name, K, 0, persisted};
    m.get = [](const S& s) { return Encode<K>(s.*P); };
    m.set = [](S& s, const Value& v) { Decode<K>(v, s.*P); };
    return m;
}

template <auto P, MemberKind K>
constexpr MemberInfo Array(std::string_view name, bool persisted) {
    MemberInfo m{name, K, 1, persisted};
    m.upper = [](const S& s) { return static_cast<std::int32_t>((s.*P).upper()); };
    m.getAt = [](const S& s, std::int32_t i) { return Encode<K>((s.*P).at(i)); };
    m.setAt = [](S& s, std::int32_t i, const Value& v) { Decode<K>(v, (s.*P).at(i)); };
    if constexpr (K == MemberKind::Double)
        m.setDoubleAt = [](S& s, std::int32_t i, double d) { (s.*P).at(i) = d; };
    m.getAll = [](const S& s, std::vector<Value>& out) {
        out.reserve(out.size() + (s.*P).size());
        for (const auto& x : s.*P) {
            if constexpr (K == MemberKind::Bool16)
                out.emplace_back(x != 0);
            else
                out.emplace_back(x);
        }
    };
    return m;
}

constexpr MemberInfo ReadOnlyFlag() {
    MemberInfo m{"readonly", MemberKind::Bool16, 0, false};
    m.get = [](const S& s) { return Value(s.readonly() != 0); };
    return m;
}

// Made when compiled: no start-up cost, and the same order as the name index.
constexpr MemberInfo kMembers[] = {
#define SCALAR(n, k, p) Scalar<&S::n, MemberKind::k>(#n, p),
#define ARRAY(n, k, p) Array<&S::n, MemberKind::k>(#n, p),
#define ARRAY2D(n) MemberInfo{#n, MemberKind::Double, 2, false},
#define LINK(n) MemberInfo{#n, MemberKind::Link, 0, false},
#define READONLY() ReadOnlyFlag(),
#include "StoreMembers.def"
#undef SCALAR
#undef ARRAY
#undef ARRAY2D
#undef LINK
#undef READONLY
};
static_assert(std::size(kMembers) == kStoreMemberCount);

const MemberInfo& Require(std::string_view name, int dims) {
    const MemberInfo* m = FindMember(name);
    if (!m) throw std::invalid_argument("the store has no member " + std::string(name));
    if (m->dims != dims || m->kind == MemberKind::Link)
        throw std::invalid_argument(std::string(name) + " cannot be reached that way");
    return *m;
}

Value ValueOfJson(const nlohmann::ordered_json& j) {
    if (j.is_null()) return Value();
    if (j.is_boolean()) return Value(j.get<bool>());
    if (j.is_number_integer()) {
        const auto n = j.get<long long>();
        if (n >= std::numeric_limits<std::int32_t>::min() &&
            n <= std::numeric_limits<std::int32_t>::max())
            return Value(static_cast<std::int32_t>(n));
        return Value(static_cast<double>(n));
    }
    if (j.is_number()) return Value(j.get<double>());
    if (j.is_string()) return Value(j.get<std::string>());
    TypeMismatch("JSON " + std::string(j.type_name()) + " is no member value");
}

nlohmann::ordered_json JsonOfValue(const Value& v) {
    switch (v.kind()) {
        case Value::Kind::Empty:
            return nullptr;
        case Value::Kind::Bool:
            return *v.get_if<bool>();
        case Value::Kind::Int16:
        case Value::Kind::Int32:
            return static_cast<std::int32_t>(v.toDouble());
        case Value::Kind::String:
            return v.str();
        case Value::Kind::StringArray:
            return v.strings();
        default:
            return v.toDouble();
    }
}

}  // namespace

std::span<const MemberInfo> StoreMembers() {
    return kMembers;
}

const MemberInfo& MemberAt(std::size_t position) {
    return kMembers[position];
}

const MemberInfo* FindMember(std::string_view name) {
    const int at = MemberPosition(name);
    return at < 0 ? nullptr : &kMembers[at];
}

Value GetMember(const clsExGlobalVars& s, std::string_view name) {
    return Require(name, 0).get(s);
}

void SetMember(clsExGlobalVars& s, std::string_view name, const Value& v) {
    const MemberInfo& m = Require(name, 0);
    if (!m.set) throw std::invalid_argument(std::string(name) + " is read-only");
    m.set(s, v);
}

std::int32_t MemberUpper(const clsExGlobalVars& s, std::string_view name) {
    return Require(name, 1).upper(s);
}

Value GetElement(const clsExGlobalVars& s, std::string_view name, std::int32_t i) {
    return Require(name, 1).getAt(s, i);
}

void SetElement(clsExGlobalVars& s, std::string_view name, std::int32_t i, const Value& v) {
    Require(name, 1).setAt(s, i, v);
}

Value ConvertToKind(const Value& v, MemberKind kind) {
    switch (kind) {
        case MemberKind::String:
            return Value(TextOf(v));
        case MemberKind::Bool16:
            return Value(BoolOf(v));
        case MemberKind::Int16:
            return Value(IntegerOf<std::int16_t>(v));
        case MemberKind::Int32:
            return Value(IntegerOf<std::int32_t>(v));
        case MemberKind::Double:
            return Value(NumberOf(v));
        case MemberKind::Cell:
            return v;
        case MemberKind::Link:
            break;
    }
    TypeMismatch("an object link holds no value");
}

nlohmann::ordered_json MemberToJson(const clsExGlobalVars& s, const MemberInfo& m) {
    if (m.dims == 0 && m.get) return JsonOfValue(m.get(s));
    if (m.dims == 1) {
        auto arr = nlohmann::ordered_json::array();
        const std::int32_t up = m.upper(s);
        for (std::int32_t i = 0; i <= up; ++i) arr.push_back(JsonOfValue(m.getAt(s, i)));
        return arr;
    }
    if (m.dims == 2 && m.name == "XLsqr") {
        auto rows = nlohmann::ordered_json::array();
        for (std::int32_t i = 0; i <= s.XLsqr.upper(1); ++i) {
            auto row = nlohmann::ordered_json::array();
            for (std::int32_t j = 0; j <= s.XLsqr.upper(2); ++j) row.push_back(s.XLsqr(i, j));
            rows.push_back(std::move(row));
        }
        return rows;
    }
    return nullptr;
}

void MemberFromJson(clsExGlobalVars& s, const MemberInfo& m, const nlohmann::ordered_json& j) {
    if (m.dims == 0) {
        if (!m.set) throw std::invalid_argument(std::string(m.name) + " is read-only");
        m.set(s, ValueOfJson(j));
        return;
    }
    if (m.dims == 1) {
        if (!j.is_array()) TypeMismatch(std::string(m.name) + " takes an array");
        for (std::size_t i = 0; i < j.size(); ++i)
            m.setAt(s, static_cast<std::int32_t>(i), ValueOfJson(j[i]));
        return;
    }
    throw std::invalid_argument(std::string(m.name) + " cannot be set from JSON");
}

nlohmann::ordered_json PersistedMembersToJson(const clsExGlobalVars& s) {
    auto out = nlohmann::ordered_json::object();
    for (const MemberInfo& m : StoreMembers())
        if (m.persisted) out[std::string(m.name)] = MemberToJson(s, m);
    return out;
}

}  // namespace qdf
