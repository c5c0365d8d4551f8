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

class Writer {
  public:
    void u8(std::uint8_t v) { out.push_back(v); }
    void le(std::uint64_t v, int bytes) {
        for (int i = 0; i < bytes; ++i) out.push_back(static_cast<std::uint8_t>(v >> (8 * i)));
    }
    void text(const std::string& s) {
        le(s.size(), 4);
        out.insert(out.end(), s.begin(), s.end());
    }
    std::vector<std::uint8_t> out;
};

class Reader {
  public:
    explicit Reader(const std::vector<std::uint8_t>& b) : b_(b) {}
    bool le(std::uint64_t& v, int bytes) {
        if (b_.size() - pos_ < static_cast<std::size_t>(bytes)) return false;
        v = 0;
        for (int i = 0; i < bytes; ++i) v |= static_cast<std::uint64_t>(b_[pos_++]) << (8 * i);
        return true;
    }
    bool text(std::string& s) {
        std::uint64_t n = 0;
        if (!le(n, 4) || b_.size() - pos_ < n) return false;
        s.assign(reinterpret_cast<const char*>(b_.data() + pos_), n);
        pos_ += n;
        return true;
    }
    bool atEnd() const { return pos_ == b_.size(); }

  private:
    const std::vector<std::uint8_t>& b_;
    std::size_t pos_ = 0;
};

}  // namespace

void PropertyBag::WriteProperty(const std::string& key, Value value) {
    auto it = index_.find(key);
    if (it != index_.end()) {
        entries_[it->second].second = std::move(value);
        return;
    }
    index_.emplace(key, entries_.size());
    entries_.emplace_back(key, std::move(value));
}

const Value* PropertyBag::Find(const std::string& key) const {
    auto it = index_.find(key);
    return it == index_.end() ? nullptr : &entries_[it->second].second;
}

const Value& PropertyBag::ReadProperty(const std::string& key) const {
    const Value* v = Find(key);
    if (!v) throw std::out_of_range("property bag holds no key " + key);
    return *v;
}

std::vector<std::uint8_t> PropertyBag::Contents() const {
    Writer w;
    for (char ch : kMagic) w.u8(static_cast<std::uint8_t>(ch));
    w.le(entries_.size(), 4);
    for (const auto& [key, v] : entries_) {
        w.text(key);
        w.u8(static_cast<std::uint8_t>(v.kind()));
        switch (v.kind()) {
            case Value::Kind::Empty:
                break;
            case Value::Kind::Bool:
                w.u8(*v.get_if<bool>() ? 1 : 0);
                break;
            case Value::Kind::Int16:
                w.le(static_cast<std::uint16_t>(*v.get_if<std::int16_t>()), 2);
                break;
            case Value::Kind::Int32:
                w.le(static_cast<std::uint32_t>(*v.get_if<std::int32_t>()), 4);
                break;
            case Value::Kind::Float:
                w.le(std::bit_cast<std::uint32_t>(*v.get_if<float>()), 4);
                break;
            case Value::Kind::Double:
                w.le(std::bit_cast<std::uint64_t>(*v.get_if<double>()), 8);
                break;
            case Value::Kind::String:
                w.text(v.str());
                break;
            case Value::Kind::StringArray:
                w.le(v.strings().size(), 4);
                for (const std::string& s : v.strings()) w.text(s);
                break;
        }
    }
    return std::move(w.out);
}

std::optional<PropertyBag> PropertyBag::FromBytes(const std::vector<std::uint8_t>& bytes) {
    if (bytes.size() < 8 || std::memcmp(bytes.data(), kMagic, 4) != 0) return std::nullopt;
    Reader r(bytes);
    std::uint64_t skip = 0, count = 0;
    r.le(skip, 4);
    if (!r.le(count, 4)) return std::nullopt;
    PropertyBag bag;
    // The count is the file's word: an entry takes at least five bytes, so no more fit.
    bag.Reserve(static_cast<std::size_t>(std::min<std::uint64_t>(count, bytes.size() / 5)));
    for (std::uint64_t e = 0; e < count; ++e) {
        std::string key;
        std::uint64_t kind = 0, raw = 0;
        if (!r.text(key) || !r.le(kind, 1) || bag.Contains(key)) return std::nullopt;
        Value v;
        switch (static_cast<Value::Kind>(kind)) {
            case Value::Kind::Empty:
                break;
            case Value::Kind::Bool:
                if (!r.le(raw, 1) || raw > 1) return std::nullopt;
                v = Value(raw == 1);
                break;
            case Value::Kind::Int16:
                if (!r.le(raw, 2)) return std::nullopt;
                v = Value(static_cast<std::int16_t>(static_cast<std::uint16_t>(raw)));
                break;
            case Value::Kind::Int32:
                if (!r.le(raw, 4)) return std::nullopt;
                v = Value(static_cast<std::int32_t>(static_cast<std::uint32_t>(raw)));
                break;
            case Value::Kind::Float:
                if (!r.le(raw, 4)) return std::nullopt;
                v = Value(std::bit_cast<float>(static_cast<std::uint32_t>(raw)));
                break;
            case Value::Kind::Double:
                if (!r.le(raw, 8)) return std::nullopt;
                v = Value(std::bit_cast<double>(raw));
                break;
            case Value::Kind::String: {
                std::string s;
                if (!r.text(s)) return std::nullopt;
                v = Value(std::move(s));
                break;
            }
            case Value::Kind::StringArray: {
                std::uint64_t n = 0;
                if (!r.le(n, 4)) return std::nullopt;
                std::vector<std::string> list;
                for (std::uint64_t i = 0; i < n; ++i) {
                    std::string s;
                    if (!r.text(s)) return std::nullopt;
                    list.push_back(std::move(s));
                }
                v = Value(std::move(list));
                break;
            }
            default:
                return std::nullopt;
        }
        bag.WriteProperty(key, std::move(v));
    }
    if (!r.atEnd()) return std::nullopt;
    return bag;
}

}  // namespace qdf
