#include "PropertyBag.h"

#include <stdexcept>

namespace qdf {

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

}  // namespace qdf
