#pragma once
// The key/value persistence object of the store. The frame keeps it as an opaque byte block
// between sessions; the byte form is our own and restores every value bit for bit, including
// the kind of the value (a 16-bit boolean stays a boolean, a 32-bit integer stays one).

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Value.h"

namespace qdf {

class PropertyBag {
    struct Entry {
        Entry(std::size_t at, std::size_t length, Value&& v)
            : keyAt(at), keyLength(length), value(std::move(v)) {}
        std::size_t keyAt;  // into keys_
        std::size_t keyLength;
        Value value;
    };

  public:
    // Adds the key, or replaces its value in place (the key keeps its position).
    void WriteProperty(std::string_view key, Value value);
    // The value under key; throws std::out_of_range when the bag does not hold the key.
    const Value& ReadProperty(std::string_view key) const;
    const Value* Find(std::string_view key) const;
    bool Contains(std::string_view key) const { return Find(key) != nullptr; }

    std::size_t size() const { return entries_.size(); }
    // Room for n keys of keyBytes characters in all, so that filling a bag of known size does
    // not grow it step by step.
    void Reserve(std::size_t n, std::size_t keyBytes = 0);

    // Entries in the order they were first written, as (key, value) pairs that point into the
    // bag: valid until the bag is next written to.
    class EntryIterator {
      public:
        std::pair<std::string_view, const Value&> operator*() const {
            return {bag_->KeyOf(*at_), at_->value};
        }
        EntryIterator& operator++() {
            ++at_;
            return *this;
        }
        friend bool operator==(const EntryIterator& a, const EntryIterator& b) {
            return a.at_ == b.at_;
        }

      private:
        friend class PropertyBag;
        EntryIterator(const PropertyBag* bag, const Entry* at) : bag_(bag), at_(at) {}
        const PropertyBag* bag_;
        const Entry* at_;
    };
    struct EntryRange {
        EntryIterator b, e;
        EntryIterator begin() const { return b; }
        EntryIterator end() const { return e; }
    };
    EntryRange entries() const {
        const Entry* first = entries_.data();
        return {EntryIterator(this, first), EntryIterator(this, first + entries_.size())};
    }

    // The byte form. FromBytes rejects anything it did not write (bad header, a length running
    // past the end, an unknown kind, a key twice, trailing bytes) with std::nullopt.
    std::vector<std::uint8_t> Contents() const;
    static std::optional<PropertyBag> FromBytes(std::span<const std::uint8_t> bytes);

    friend bool operator==(const PropertyBag& a, const PropertyBag& b);

  private:
    // A slot of the index: the entry's number, and its key's hash so that most mismatches
    // are told apart without touching the keys.
    struct Slot {
        std::uint32_t entry;  // kNoEntry when free
        std::uint32_t hash;
    };
    static constexpr std::uint32_t kNoEntry = 0xFFFFFFFFu;

    std::string_view KeyOf(const Entry& e) const {
        return std::string_view(keys_.data() + e.keyAt, e.keyLength);
    }
    // The slot holding key, or the free slot where it would go; the index must not be empty.
    std::size_t SlotFor(std::string_view key, std::size_t hash) const;
    // Adds key unless present; false (and the bag unchanged) when it is.
    bool Add(std::string_view key, Value& value, bool replace);
    void Rehash(std::size_t slots);

    // Every key's characters one after the other, so that a key costs no allocation of its own.
    std::string keys_;
    std::vector<Entry> entries_;
    // Open addressing with linear probing, a power of two in size and at most half full.
    std::vector<Slot> index_;
};

}  // namespace qdf
