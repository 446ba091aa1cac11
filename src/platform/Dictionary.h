#pragma once

#include "platform/Variant.h"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace skyvert {

/// Values by key. Entries are numbered from 0 in the order in which their keys came; a new value
/// under an old key keeps the old number. Keys are equal as `VariantCompare` says, so strings
/// respect case. Looking up takes the same short time at any size and makes no copy of a string.
class Dictionary final : public Object {
public:
    std::size_t Count() const { return entries_.size(); }

    /// Key and value of an entry, 0 to `Count()` - 1. Throw `std::out_of_range` for another.
    const Variant& Key(std::size_t index) const { return entries_.at(index).key; }

    const Variant& ValueAt(std::size_t index) const { return entries_.at(index).value; }

    /// The value under a key, or null when there is none. Valid until a key is added.
    const Variant* find(const Variant& key) const;

    template <std::convertible_to<std::string_view> Text>
    const Variant* find(const Text& key) const {
        return findText(key);
    }

    /// Puts a value under a key, in place of an older one.
    void setValue(Variant key, Variant value);

    /// Where the value under a key is held, valid until another key is added.
    struct Place {
        Variant& value;
        bool isNew; ///< the key was not there; the value is Nil
    };

    /// The place of a key's value, which is made when there is none.
    Place place(std::string_view key);

private:
    struct Entry {
        Variant key;
        Variant value;
    };

    /// A place of the hash table. The hash beside the number spares most looks at the entry.
    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t number = 0; ///< that of the entry plus 1; 0 when the place is free
    };

    const Variant* findText(std::string_view key) const;
    template <typename KeyKind>
    const Variant* findKey(const KeyKind& key) const;
    template <typename KeyKind>
    Place placeOf(KeyKind key);
    template <typename Equals>
    std::size_t locate(std::uint32_t hash, Equals equals) const;
    void grow();

    std::vector<Entry> entries_;
    /// The index behind the entry found last. Keys are mostly asked for in their order, so the
    /// entry there is looked at first, which spares the hash and a far jump in memory.
    mutable std::size_t next_ = 0;
    std::vector<Slot> slots_ = std::vector<Slot>(8); ///< a power of two, never quite full
};

} // namespace skyvert
