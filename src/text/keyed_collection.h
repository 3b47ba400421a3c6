// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "base/error.h"
#include "text/letter_case.h"

namespace kelvor {

/// Things in the order of their adding, each found by a key. Keys are matched without regard to case;
/// an empty key is none.
template <typename T>
class KeyedCollection {
public:
    /// A key that is there already is an error 457.
    void Add(T item, const std::string& key = {}) {
        const std::string folded = foldCase(key);
        if (!key.empty() && !keys_.insert(folded).second)
            throw Error(error_number::duplicateKey, "This key is already associated with an element");
        entries_.push_back({folded, std::move(item)});
    }

    /// An index from 0, or a key; one that is not there is an error 9 or 5.
    const T& Item(std::size_t index) const { return entries_.at(checked(index)).item; }
    const T& Item(const std::string& key) const { return entries_[indexOf(key)].item; }

    bool contains(const std::string& key) const { return keys_.contains(foldCase(key)); }
    std::size_t Count() const { return entries_.size(); }

    void Remove(std::size_t index) {
        keys_.erase(entries_.at(checked(index)).key);
        entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(index));
    }
    void Remove(const std::string& key) { Remove(indexOf(key)); }
    void clear() {
        entries_.clear();
        keys_.clear();
    }

    /// The things in their order.
    std::vector<T> items() const {
        std::vector<T> result;
        result.reserve(entries_.size());
        for (const Entry& entry : entries_) result.push_back(entry.item);
        return result;
    }

private:
    struct Entry {
        std::string key;
        T item;
    };

    std::size_t checked(std::size_t index) const {
        if (index < entries_.size()) return index;
        throw Error(error_number::subscriptOutOfRange, "Subscript out of range");
    }
    std::size_t indexOf(const std::string& key) const {
        const std::string folded = foldCase(key);
        const auto found = std::find_if(entries_.begin(), entries_.end(),
                                        [&](const Entry& entry) { return !key.empty() && entry.key == folded; });
        if (found == entries_.end())
            throw Error(error_number::invalidProcedureCall, "Invalid procedure call or argument");
        return static_cast<std::size_t>(found - entries_.begin());
    }

    std::vector<Entry> entries_;
    std::unordered_set<std::string> keys_;
};

}  // namespace kelvor
