#include "settings/Preferences.h"

#include "settings/XMLDictionary.h"

#include <string>
#include <system_error>
#include <utility>

namespace skyvert {

Preferences::Preferences(const std::filesystem::path& applicationData,
                         const std::filesystem::path& folder, const std::filesystem::path& file)
    : prefs_(std::make_shared<Dictionary>()), fprefs_(applicationData / folder / file) {
    std::error_code ignored;
    std::filesystem::create_directories(fprefs_.parent_path(), ignored);
    LoadXML(prefs_, fprefs_);
}

Variant Preferences::Value(std::string_view key, const Variant& byDefault) const {
    const Variant* const stored = prefs_->find(key);
    return stored == nullptr ? byDefault : *stored;
}

void Preferences::setValue(std::string_view key, Variant value) {
    const auto [stored, isNew] = prefs_->place(key);
    if (!isNew && VariantCompare(stored, value))
        return;
    stored = std::move(value);
    changed_ = true;
}

void Preferences::Close() {
    if (changed_)
        SaveXML(prefs_, fprefs_, false);
}

} // namespace skyvert
