#pragma once
// Sections and entries of ini-form text files, and the reader that fills them. Keys and section
// names are matched without regard to ASCII letter case; each exists once per collection, and the
// collection keeps the order of first appearance. Indexes count from 0.

#include <cstddef>
#include <istream>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <unordered_map>
#include <utility>
#include <vector>

namespace qdf {

class clsIniEntry {
  public:
    clsIniEntry() = default;
    explicit clsIniEntry(std::string key, std::string value = {})
        : key_(std::move(key)), value_(std::move(value)) {}

    const std::string& Key() const { return key_; }
    // A section finds its entries by the key they were added under, as a keyed collection does;
    // renaming an entry afterwards does not move it.
    void SetKey(std::string key) { key_ = std::move(key); }
    const std::string& Value() const { return value_; }
    void SetValue(std::string value) { value_ = std::move(value); }

  private:
    std::string key_;
    std::string value_;
};

namespace detail {

std::string FoldCase(std::string_view text);

// Ordered, case-insensitively keyed owner of T. Elements live on the heap, so references handed
// out stay valid while others are added.
template <class T>
class NoCaseList {
  public:
    NoCaseList() = default;
    NoCaseList(const NoCaseList& other) : keys_(other.keys_), index_(other.index_) {
        items_.reserve(other.items_.size());
        for (const auto& p : other.items_) items_.push_back(std::make_unique<T>(*p));
    }
    NoCaseList& operator=(const NoCaseList& other) {
        NoCaseList copy(other);
        swap(copy);
        return *this;
    }
    NoCaseList(NoCaseList&&) noexcept = default;
    NoCaseList& operator=(NoCaseList&&) noexcept = default;
    void swap(NoCaseList& other) noexcept {
        items_.swap(other.items_);
        keys_.swap(other.keys_);
        index_.swap(other.index_);
    }

    int Count() const { return static_cast<int>(items_.size()); }
    T* Find(std::string_view key) const {
        auto it = index_.find(FoldCase(key));
        return it == index_.end() ? nullptr : items_[it->second].get();
    }
    T* At(int index) const {
        if (index < 0 || index >= Count()) return nullptr;
        return items_[static_cast<size_t>(index)].get();
    }
    // The caller has made sure the key is new.
    T& Add(std::string_view key, T item) {
        std::string folded = FoldCase(key);
        index_.emplace(folded, items_.size());
        keys_.push_back(std::move(folded));
        items_.push_back(std::make_unique<T>(std::move(item)));
        return *items_.back();
    }
    bool RemoveAt(int index) {
        if (index < 0 || index >= Count()) return false;
        auto i = static_cast<size_t>(index);
        index_.erase(keys_[i]);
        items_.erase(items_.begin() + index);
        keys_.erase(keys_.begin() + index);
        for (size_t k = i; k < keys_.size(); ++k) index_[keys_[k]] = k;
        return true;
    }
    bool Remove(std::string_view key) {
        auto it = index_.find(FoldCase(key));
        return it != index_.end() && RemoveAt(static_cast<int>(it->second));
    }
    void Clear() {
        items_.clear();
        keys_.clear();
        index_.clear();
    }

    // Iterates the elements themselves, in order.
    template <class V, class It>
    class Iter {
      public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = std::remove_const_t<V>;
        using difference_type = std::ptrdiff_t;
        using pointer = V*;
        using reference = V&;
        Iter() = default;
        explicit Iter(It it) : it_(it) {}
        V& operator*() const { return **it_; }
        V* operator->() const { return it_->get(); }
        Iter& operator++() {
            ++it_;
            return *this;
        }
        Iter operator++(int) {
            Iter old = *this;
            ++it_;
            return old;
        }
        friend bool operator==(const Iter& a, const Iter& b) { return a.it_ == b.it_; }

      private:
        It it_{};
    };
    using iterator = Iter<T, typename std::vector<std::unique_ptr<T>>::iterator>;
    using const_iterator = Iter<const T, typename std::vector<std::unique_ptr<T>>::const_iterator>;
    iterator begin() { return iterator(items_.begin()); }
    iterator end() { return iterator(items_.end()); }
    const_iterator begin() const { return const_iterator(items_.begin()); }
    const_iterator end() const { return const_iterator(items_.end()); }

  private:
    std::vector<std::unique_ptr<T>> items_;
    std::vector<std::string> keys_;  // folded, parallel to items_
    std::unordered_map<std::string, size_t> index_;
};

}  // namespace detail

class clsIniSection {
  public:
    using Entries = detail::NoCaseList<clsIniEntry>;

    clsIniSection() = default;
    explicit clsIniSection(std::string name) : name_(std::move(name)) {}

    const std::string& Name() const { return name_; }
    void SetName(std::string name) { name_ = std::move(name); }

    // The entry under `key`, created with an empty value when there is none.
    clsIniEntry& AddEntry(std::string_view key);
    // A new entry; throws std::invalid_argument when the key exists.
    clsIniEntry& AddNewEntry(std::string_view key);
    // Throw std::out_of_range for an unknown key or an index outside 0..Count()-1.
    void Remove(std::string_view key);
    void Remove(int index);
    void RemoveAll() { entries_.Clear(); }
    int Count() const { return entries_.Count(); }
    // The entries in order; also reachable by range-for over the section itself.
    const Entries& NewEnum() const { return entries_; }
    Entries::iterator begin() { return entries_.begin(); }
    Entries::iterator end() { return entries_.end(); }
    Entries::const_iterator begin() const { return entries_.begin(); }
    Entries::const_iterator end() const { return entries_.end(); }
    // Throw std::out_of_range as Remove does. Find gives nullptr instead.
    clsIniEntry& Item(std::string_view key) const;
    clsIniEntry& Item(int index) const;
    clsIniEntry* Find(std::string_view key) const { return entries_.Find(key); }
    // An independent section with the same name and copies of all entries.
    clsIniSection Copy() const { return *this; }

  private:
    std::string name_;
    Entries entries_;
};

// The sections of one file, keyed by section name.
class IniSections {
  public:
    using List = detail::NoCaseList<clsIniSection>;

    // The section of this name, created empty when it is new.
    clsIniSection& GetOrAdd(std::string_view name);
    clsIniSection* Find(std::string_view name) const { return sections_.Find(name); }
    // Throws std::out_of_range for a section the file does not have.
    clsIniSection& Item(std::string_view name) const;
    int Count() const { return sections_.Count(); }
    void Clear() { sections_.Clear(); }
    List::iterator begin() { return sections_.begin(); }
    List::iterator end() { return sections_.end(); }
    List::const_iterator begin() const { return sections_.begin(); }
    List::const_iterator end() const { return sections_.end(); }

  private:
    List sections_;
};

// Reads ini-form text in the ANSI code page into `out` (adding to what it holds):
// - a line is trimmed of blanks (spaces, tabs) and skipped when empty or starting with ";";
//   lines end with CR LF, LF or CR;
// - "[name]" starts (or continues) the section `name`; lines ahead of the first section head
//   are dropped;
// - in a section, "key=value" splits at the first "="; a line without "=" or starting with it
//   is dropped; blanks around the "=" belong to key and value; a later line with the same key
//   replaces the value.
// Returns false, adding nothing, when the text cannot be read to its end.
bool ReadIniText(std::istream& in, IniSections& out);

// The same for a file; false when it cannot be opened or read.
bool ReadIniFile(const std::string& path, IniSections& out);

// The module-level reader: replaces ParsedIniSections() by the sections of the file.
bool ReadIniFile(const std::string& path);
IniSections& ParsedIniSections();

}  // namespace qdf
