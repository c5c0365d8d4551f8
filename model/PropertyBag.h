#pragma once
// The key/value persistence object of the store. The frame keeps it as an opaque byte block
// between sessions; the byte form is our own and restores every value bit for bit, including
// the kind of the value (a 16-bit boolean stays a boolean, a 32-bit integer stays one).

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "Value.h"

namespace qdf {

class PropertyBag {
  public:
    // Adds the key, or replaces its value in place (the key keeps its position).
    void WriteProperty(const std::string& key, Value value);
    // The value under key; throws std::out_of_range when the bag does not hold the key.
    const Value& ReadProperty(const std::string& key) const;
    const Value* Find(const std::string& key) const;
    bool Contains(const std::string& key) const { return index_.count(key) != 0; }

    std::size_t size() const { return entries_.size(); }
    // Room for n keys, so that filling a bag of known size does not grow it step by step.
    void Reserve(std::size_t n) {
        entries_.reserve(n);
        index_.reserve(n);
    }
    // Entries in the order they were first written.
    const std::vector<std::pair<std::string, Value>>& entries() const { return entries_; }

    // The byte form. FromBytes rejects anything it did not write (bad header, a length running
    // past the end, an unknown kind, trailing bytes) with std::nullopt.
    std::vector<std::uint8_t> Contents() const;
    static std::optional<PropertyBag> FromBytes(const std::vector<std::uint8_t>& bytes);

    friend bool operator==(const PropertyBag& a, const PropertyBag& b) {
        return a.entries_ == b.entries_;
    }

  private:
    std::vector<std::pair<std::string, Value>> entries_;
    std::unordered_map<std::string, std::size_t> index_;
};

}  // namespace qdf
