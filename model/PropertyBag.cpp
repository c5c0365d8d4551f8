#include "PropertyBag.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <stdexcept>

namespace qdf {

namespace {

// Byte form: "QPB1", entry count, then per entry the key, a kind byte and the payload.
// Integers little-endian; floating values as their IEEE bit patterns, so nothing is rounded.
constexpr char kMagic[4] = {'Q', 'P', 'B', '1'};

// Writes the byte form into a buffer of the right size, or (kFill false) only counts its bytes:
// one walk gives the size for a single allocation and a second one fills it.
template <bool kFill>
class Writer {
  public:
    explicit Writer(std::uint8_t* to = nullptr) : to_(to) {}
    void u8(std::uint8_t v) { put<1>(v); }
    void u16(std::uint16_t v) { put<2>(v); }
    void u32(std::uint32_t v) { put<4>(v); }
    void u64(std::uint64_t v) { put<8>(v); }
    void text(std::string_view s) {
        u32(static_cast<std::uint32_t>(s.size()));
        if constexpr (kFill)
            if (!s.empty()) std::memcpy(to_ + n_, s.data(), s.size());
        n_ += s.size();
    }
    std::size_t size() const { return n_; }

  private:
    template <int kBytes>
    void put(std::uint64_t v) {
        if constexpr (kFill)
            for (int i = 0; i < kBytes; ++i) to_[n_ + i] = static_cast<std::uint8_t>(v >> (8 * i));
        n_ += kBytes;
    }

    std::uint8_t* to_;
    std::size_t n_ = 0;
};

class Reader {
  public:
    explicit Reader(std::span<const std::uint8_t> b) : b_(b) {}
    bool u8(std::uint64_t& v) { return get<1>(v); }
    bool u16(std::uint64_t& v) { return get<2>(v); }
    bool u32(std::uint64_t& v) { return get<4>(v); }
    bool u64(std::uint64_t& v) { return get<8>(v); }
    // The text points into the block read.
    bool text(std::string_view& s) {
        std::uint64_t n = 0;
        if (!u32(n) || b_.size() - pos_ < n) return false;
        s = std::string_view(reinterpret_cast<const char*>(b_.data() + pos_), n);
        pos_ += n;
        return true;
    }
    bool atEnd() const { return pos_ == b_.size(); }

  private:
    template <int kBytes>
    bool get(std::uint64_t& v) {
        if (b_.size() - pos_ < kBytes) return false;
        v = 0;
        for (int i = 0; i < kBytes; ++i) v |= static_cast<std::uint64_t>(b_[pos_ + i]) << (8 * i);
        pos_ += kBytes;
        return true;
    }

    std::span<const std::uint8_t> b_;
    std::size_t pos_ = 0;
};

// Eight characters at a time, each word mixed in by a multiplication. The store's keys share
// long prefixes and differ in their last digits; the final mix spreads those over the low bits
// that pick the slot.
std::uint32_t HashOf(std::string_view key) {
    constexpr std::uint64_t kMul = 0x9E3779B97F4A7C15ull;
    auto load = [](const char* at, std::size_t bytes) {
        std::uint64_t w = 0;
        std::memcpy(&w, at, bytes);
        return w;
    };
    const char* p = key.data();
    const std::size_t n = key.size();
    std::uint64_t h = n * kMul;
    auto mix = [&h](std::uint64_t w) {
        h = (h ^ w) * kMul;
        h ^= h >> 32;
    };
    if (n >= 8) {
        for (std::size_t i = 0; i + 8 < n; i += 8) mix(load(p + i, 8));
        mix(load(p + n - 8, 8));  // the last eight, overlapping the words before if need be
    } else if (n >= 4) {
        mix(load(p, 4) | load(p + n - 4, 4) << 32);
    } else {
        for (std::size_t i = 0; i < n; ++i) mix(static_cast<unsigned char>(p[i]));
    }
    h ^= h >> 29;
    h *= kMul;
    h ^= h >> 32;
    return static_cast<std::uint32_t>(h);
}

}  // namespace

void PropertyBag::WriteProperty(std::string_view key, Value value) {
    Add(key, value, true);
}

std::size_t PropertyBag::SlotFor(std::string_view key, std::size_t hash) const {
    const std::size_t mask = index_.size() - 1;
    for (std::size_t i = hash & mask;; i = (i + 1) & mask) {
        const Slot& s = index_[i];
        if (s.entry == kNoEntry) return i;
        if (s.hash == static_cast<std::uint32_t>(hash) && KeyOf(entries_[s.entry]) == key) return i;
    }
}

bool PropertyBag::Add(std::string_view key, Value& value, bool replace) {
    if (index_.empty()) Rehash(16);
    const std::uint32_t hash = HashOf(key);
    std::size_t slot = SlotFor(key, hash);
    if (index_[slot].entry != kNoEntry) {
        if (!replace) return false;
        entries_[index_[slot].entry].value = std::move(value);
        return true;
    }
    if (entries_.size() >= kNoEntry) throw std::length_error("property bag is full");
    if (2 * (entries_.size() + 1) > index_.size()) {
        Rehash(2 * index_.size());
        slot = SlotFor(key, hash);
    }
    index_[slot] = Slot{static_cast<std::uint32_t>(entries_.size()), hash};
    entries_.emplace_back(keys_.size(), key.size(), std::move(value));
    // Last, as key may point into keys_ itself.
    keys_.append(key);
    return true;
}

void PropertyBag::Rehash(std::size_t slots) {
    std::vector<Slot> old = std::exchange(index_, std::vector<Slot>(slots, Slot{kNoEntry, 0}));
    const std::size_t mask = slots - 1;
    for (const Slot& s : old) {
        if (s.entry == kNoEntry) continue;
        std::size_t i = s.hash & mask;
        while (index_[i].entry != kNoEntry) i = (i + 1) & mask;
        index_[i] = s;
    }
}

void PropertyBag::Reserve(std::size_t n, std::size_t keyBytes) {
    entries_.reserve(n);
    keys_.reserve(keyBytes);
    std::size_t slots = 16;
    while (slots < 2 * n) slots *= 2;
    if (slots > index_.size()) Rehash(slots);
}

const Value* PropertyBag::Find(std::string_view key) const {
    if (index_.empty()) return nullptr;
    const Slot& s = index_[SlotFor(key, HashOf(key))];
    return s.entry == kNoEntry ? nullptr : &entries_[s.entry].value;
}

const Value& PropertyBag::ReadProperty(std::string_view key) const {
    const Value* v = Find(key);
    if (!v) throw std::out_of_range("property bag holds no key " + std::string(key));
    return *v;
}

bool operator==(const PropertyBag& a, const PropertyBag& b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.entries_.size(); ++i) {
        const auto& x = a.entries_[i];
        const auto& y = b.entries_[i];
        if (a.KeyOf(x) != b.KeyOf(y) || x.value != y.value) return false;
    }
    return true;
}

std::vector<std::uint8_t> PropertyBag::Contents() const {
    auto walk = [this](auto& w) {
        for (char ch : kMagic) w.u8(static_cast<std::uint8_t>(ch));
        w.u32(static_cast<std::uint32_t>(entries_.size()));
        for (const Entry& e : entries_) {
            const Value& v = e.value;
            w.text(KeyOf(e));
            w.u8(static_cast<std::uint8_t>(v.kind()));
            switch (v.kind()) {
                case Value::Kind::Empty:
                    break;
                case Value::Kind::Bool:
                    w.u8(*v.get_if<bool>() ? 1 : 0);
                    break;
                case Value::Kind::Int16:
                    w.u16(static_cast<std::uint16_t>(*v.get_if<std::int16_t>()));
                    break;
                case Value::Kind::Int32:
                    w.u32(static_cast<std::uint32_t>(*v.get_if<std::int32_t>()));
                    break;
                case Value::Kind::Float:
                    w.u32(std::bit_cast<std::uint32_t>(*v.get_if<float>()));
                    break;
                case Value::Kind::Double:
                    w.u64(std::bit_cast<std::uint64_t>(*v.get_if<double>()));
                    break;
                case Value::Kind::String:
                    w.text(v.str());
                    break;
                case Value::Kind::StringArray:
                    w.u32(static_cast<std::uint32_t>(v.strings().size()));
                    for (const std::string& s : v.strings()) w.text(s);
                    break;
            }
        }
    };
    Writer<false> count;
    walk(count);
    std::vector<std::uint8_t> out(count.size());
    Writer<true> fill(out.data());
    walk(fill);
    return out;
}

std::optional<PropertyBag> PropertyBag::FromBytes(std::span<const std::uint8_t> bytes) {
    if (bytes.size() < 8 || std::memcmp(bytes.data(), kMagic, 4) != 0) return std::nullopt;
    Reader r(bytes);
    std::uint64_t skip = 0, count = 0;
    r.u32(skip);
    if (!r.u32(count)) return std::nullopt;
    PropertyBag bag;
    // The count is the block's word: an entry takes at least five bytes besides its key's
    // characters, so no more entries fit, and what is left over bounds the keys.
    const std::size_t fit =
        static_cast<std::size_t>(std::min<std::uint64_t>(count, bytes.size() / 5));
    const std::size_t fixed = 8 + 5 * fit;
    bag.Reserve(fit, bytes.size() > fixed ? bytes.size() - fixed : 0);
    for (std::uint64_t e = 0; e < count; ++e) {
        std::string_view key;
        std::uint64_t kind = 0, raw = 0;
        if (!r.text(key) || !r.u8(kind)) return std::nullopt;
        Value v;
        switch (static_cast<Value::Kind>(kind)) {
            case Value::Kind::Empty:
                break;
            case Value::Kind::Bool:
                if (!r.u8(raw) || raw > 1) return std::nullopt;
                v = Value(raw == 1);
                break;
            case Value::Kind::Int16:
                if (!r.u16(raw)) return std::nullopt;
                v = Value(static_cast<std::int16_t>(static_cast<std::uint16_t>(raw)));
                break;
            case Value::Kind::Int32:
                if (!r.u32(raw)) return std::nullopt;
                v = Value(static_cast<std::int32_t>(static_cast<std::uint32_t>(raw)));
                break;
            case Value::Kind::Float:
                if (!r.u32(raw)) return std::nullopt;
                v = Value(std::bit_cast<float>(static_cast<std::uint32_t>(raw)));
                break;
            case Value::Kind::Double:
                if (!r.u64(raw)) return std::nullopt;
                v = Value(std::bit_cast<double>(raw));
                break;
            case Value::Kind::String: {
                std::string_view s;
                if (!r.text(s)) return std::nullopt;
                v = Value(std::string(s));
                break;
            }
            case Value::Kind::StringArray: {
                std::uint64_t n = 0;
                if (!r.u32(n)) return std::nullopt;
                std::vector<std::string> list;
                for (std::uint64_t i = 0; i < n; ++i) {
                    std::string_view s;
                    if (!r.text(s)) return std::nullopt;
                    list.emplace_back(s);
                }
                v = Value(std::move(list));
                break;
            }
            default:
                return std::nullopt;
        }
        if (!bag.Add(key, v, false)) return std::nullopt;
    }
    if (!r.atEnd()) return std::nullopt;
    return bag;
}

}  // namespace qdf
