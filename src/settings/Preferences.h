#pragma once

#include "settings/Dictionary.h"
#include "settings/Variant.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string_view>

namespace skyvert {

/// The settings: named values, read from a file by the constructor, changed in memory and written
/// back once, by `Close`, if any of them has changed. File errors are not reported: if the file
/// cannot be read, all values are defaults; if a save fails, the changes of this run are lost.
///
/// The file is written in place. During that, a complete copy of the new settings exists beside it,
/// with ".new" appended to the name. A copy that is found at the next start holds the newest
/// settings: they are loaded from it and written to the file.
class Preferences {
public:
    /// Loads `file` in the folder `folder` of the application data folder. Creates the folder if it
    /// is missing. A file that is damaged or of a newer version counts as absent.
    Preferences(const std::filesystem::path& applicationData, const std::filesystem::path& folder,
                const std::filesystem::path& file);
    Preferences(const Preferences&) = delete;
    Preferences& operator=(const Preferences&) = delete;
    virtual ~Preferences() = default;

    /// The value stored for a key, of any kind; `byDefault` if there is none.
    virtual Variant Value(std::string_view key, const Variant& byDefault) const;

    /// Stores a value. A value equal to the stored one changes nothing.
    virtual void setValue(std::string_view key, Variant value);

    /// Writes the file if a value has changed. Call once, at the end. Never throws.
    virtual void Close();

    /// Makes `Close` leave the file unchanged, for the case that the values are incomplete.
    void Discard() { discarded_ = true; }

    /// The number of stored values.
    std::int64_t Count() const { return static_cast<std::int64_t>(prefs_->Count()); }

    /// True after a value has changed.
    bool changed() const { return changed_; }

private:
    bool readCopy();
    void save(std::string_view text) const;
    bool isSafeToReplace(std::string_view text) const;
    void replaceFile(std::string_view text) const;

    std::shared_ptr<Dictionary> prefs_;
    std::filesystem::path fprefs_;
    std::filesystem::path copy_; ///< holds the new settings while `fprefs_` is written
    bool changed_ = false;
    bool discarded_ = false;
};

} // namespace skyvert
