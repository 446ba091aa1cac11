#include "platform/Dictionary.h"

#include <utility>

namespace skyvert {

namespace {

/// Spreads a hash over 32 bits; those of pointers, for one, differ in a few bits only.
std::uint32_t spread(std::size_t hash) {
    return static_cast<std::uint32_t>((std::uint64_t{hash} * 0x9E3779B97F4A7C15U) >> 32U);
}

} // namespace

/// The slot of an entry with that hash that `equals` accepts, or the free one that it would take.
template <typename Equals>
std::size_t Dictionary::locate(std::uint32_t hash, Equals equals) const {
    const std::size_t mask = slots_.size() - 1;
    std::size_t at = hash & mask;
    while (slots_[at].number != 0 &&
           (slots_[at].hash != hash || !equals(entries_[slots_[at].number - 1].key)))
        at = (at + 1) & mask;
    return at;
}

const Variant* Dictionary::find(const Variant& key) const {
    const std::size_t at = locate(spread(key.hash()),
                                  [&](const Variant& other) { return VariantCompare(key, other); });
    return slots_[at].number == 0 ? nullptr : &entries_[slots_[at].number - 1].value;
}

const Variant* Dictionary::findText(std::string_view key) const {
    const std::size_t at = locate(spread(variantHash(key)), [&](const Variant& other) {
        return other.string() != nullptr && *other.string() == key;
    });
    return slots_[at].number == 0 ? nullptr : &entries_[slots_[at].number - 1].value;
}

void Dictionary::setValue(Variant key, Variant value) {
    const std::uint32_t hash = spread(key.hash());
    Slot& slot =
        slots_[locate(hash, [&](const Variant& other) { return VariantCompare(key, other); })];
    if (slot.number != 0) {
        entries_[slot.number - 1].value = std::move(value);
        return;
    }
    entries_.push_back({std::move(key), std::move(value)});
    slot = {hash, static_cast<std::uint32_t>(entries_.size())};
    if (4 * entries_.size() > 3 * slots_.size())
        grow();
}

void Dictionary::grow() {
    std::vector<Slot> old(2 * slots_.size());
    old.swap(slots_);
    for (const Slot& slot : old)
        if (slot.number != 0)
            slots_[locate(slot.hash, [](const Variant&) { return false; })] = slot;
}

} // namespace skyvert
