#pragma once

#include "settings/Variant.h"

#include <concepts>
#include <cstddef>
#include <string_view>
#include <tsl/ordered_map.h>
#include <utility>

namespace skyvert {

/// Values by key. Entries are numbered from 0 in the order in which their keys were added; a new
/// value for an existing key keeps its number. Keys are compared by `VariantCompare`, so case
/// counts. A lookup takes constant time and copies no string.
class Dictionary final : public Object {
public:
    /// Neighbouring hashes need free slots: the usual load factor, 0.75, makes a load 5% slower.
    Dictionary() { entries_.max_load_factor(0.5F); }

    std::size_t Count() const { return entries_.size(); }

    /// The key and the value of an entry, 0 to `Count()` - 1. They throw `std::out_of_range` for
    /// any other index.
    const Variant& Key(std::size_t index) const {
        return entries_.values_container().at(index).first;
    }

    const Variant& ValueAt(std::size_t index) const {
        return entries_.values_container().at(index).second;
    }

    /// The value for a key, or null if there is none. Valid until a key is added.
    const Variant* find(const Variant& key) const { return findKey(key); }

    template <std::convertible_to<std::string_view> Text>
    const Variant* find(const Text& key) const {
        return isNext(key) ? &ValueAt(next_++) : findKey(std::string_view(key));
    }

    /// Stores a value for a key, replacing any earlier one.
    void setValue(Variant key, Variant value) {
        entries_.insert_or_assign(std::move(key), std::move(value));
    }

    /// The value stored for a key, valid until another key is added.
    struct Place {
        Variant& value;
        bool isNew; ///< the key was not there; the value is Nil
    };

    /// The place of a key's value; adds the key with the value Nil if it is new.
    Place place(std::string_view key) {
        if (isNext(key))
            return {entries_.nth(next_++).value(), false};
        auto [entry, isNew] = entries_.try_emplace(key);
        next_ = static_cast<std::size_t>(entry - entries_.begin()) + 1;
        return {entry.value(), isNew};
    }

    /// Exchanges all entries with those of another dictionary.
    void swap(Dictionary& other) { entries_.swap(other.entries_); }

private:
    struct Hash {
        using is_transparent = void;

        std::size_t operator()(const Variant& key) const { return key.hash(); }

        std::size_t operator()(std::string_view key) const { return variantHash(key); }
    };

    struct Equal {
        using is_transparent = void;

        bool operator()(const Variant& a, const Variant& b) const { return VariantCompare(a, b); }

        bool operator()(std::string_view a, const Variant& b) const { return a == b.string(); }
    };

    template <typename Key>
    const Variant* findKey(const Key& key) const {
        const auto entry = entries_.find(key);
        if (entry == entries_.end())
            return nullptr;
        next_ = static_cast<std::size_t>(entry - entries_.begin()) + 1;
        return &entry.value();
    }

    /// Whether a key belongs to the entry after the one found last. Keys are mostly asked for in
    /// the order in which they came: this saves a tenth of a load.
    bool isNext(std::string_view key) const {
        return next_ < Count() && Key(next_).string() == key;
    }

    tsl::ordered_map<Variant, Variant, Hash, Equal> entries_;
    mutable std::size_t next_ = 0; ///< the entry after the one found last
};

} // namespace skyvert
