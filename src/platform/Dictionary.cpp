#include "platform/Dictionary.h"

#include <utility>

namespace skyvert {

namespace {

/// Spreads a hash over 32 bits; those of pointers, for one, differ in a few bits only.
std::uint32_t spread(std::size_t hash) {
    return static_cast<std::uint32_t>((std::uint64_t{hash} * 0x9E3779B97F4A7C15U) >> 32U);
}

std::size_t hashOf(const Variant& key) {
    return key.hash();
}

std::size_t hashOf(std::string_view key) {
    return variantHash(key);
}

bool isKey(const Variant& held, const Variant& key) {
    return VariantCompare(held, key);
}

bool isKey(const Variant& held, std::string_view key) {
    return held.string() != nullptr && *held.string() == key;
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

template <typename KeyKind>
const Variant* Dictionary::findKey(const KeyKind& key) const {
    if (next_ == entries_.size() || !isKey(entries_[next_].key, key)) {
        const std::size_t at =
            locate(spread(hashOf(key)), [&](const Variant& held) { return isKey(held, key); });
        if (slots_[at].number == 0)
            return nullptr;
        next_ = slots_[at].number - 1;
    }
    return &entries_[next_++].value;
}

template <typename KeyKind>
Dictionary::Place Dictionary::placeOf(KeyKind key) {
    if (next_ < entries_.size() && isKey(entries_[next_].key, key))
        return {entries_[next_++].value, false};
    const std::uint32_t hash = spread(hashOf(key));
    Slot& slot = slots_[locate(hash, [&](const Variant& held) { return isKey(held, key); })];
    if (slot.number != 0) {
        next_ = slot.number;
        return {entries_[next_ - 1].value, false};
    }
    entries_.push_back({std::move(key), {}});
    slot = {hash, static_cast<std::uint32_t>(entries_.size())};
    if (4 * entries_.size() > 3 * slots_.size())
        grow();
    next_ = entries_.size();
    return {entries_.back().value, true};
}

const Variant* Dictionary::find(const Variant& key) const {
    return findKey(key);
}

const Variant* Dictionary::findText(std::string_view key) const {
    return findKey(key);
}

Dictionary::Place Dictionary::place(std::string_view key) {
    return placeOf(key);
}

void Dictionary::setValue(Variant key, Variant value) {
    placeOf(std::move(key)).value = std::move(value);
}

void Dictionary::grow() {
    std::vector<Slot> old(2 * slots_.size());
    old.swap(slots_);
    for (const Slot& slot : old)
        if (slot.number != 0)
            slots_[locate(slot.hash, [](const Variant&) { return false; })] = slot;
}

} // namespace skyvert
