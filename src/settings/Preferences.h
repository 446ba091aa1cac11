#pragma once

#include "settings/Dictionary.h"
#include "settings/Variant.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string_view>

namespace skyvert {

/// The settings: named values that are read from a file when the object is made, changed in memory
/// and written back once, by `Close`, if any of them differs. Nothing that goes wrong with the file
/// is reported: settings that cannot be read are defaults, and a save that fails costs what this
/// run has changed.
///
/// The file is written in place, so until that is done a whole copy of the new settings stands
/// beside it, under the same name with ".new" behind it. A copy that is still there at the next
/// start holds the newest settings: it is read, and the file brought in line with it.
class Preferences {
public:
    /// Makes the folder `folder` in the application data folder, if need be, and loads the file
    /// `file` in it, if there is one. A file that is damaged or too new counts as absent.
    Preferences(const std::filesystem::path& applicationData, const std::filesystem::path& folder,
                const std::filesystem::path& file);
    Preferences(const Preferences&) = delete;
    Preferences& operator=(const Preferences&) = delete;
    virtual ~Preferences() = default;

    /// The value stored under a key, of whatever kind it is; `byDefault` when there is none.
    virtual Variant Value(std::string_view key, const Variant& byDefault) const;

    /// Stores a value. One that equals the stored value changes nothing.
    virtual void setValue(std::string_view key, Variant value);

    /// Writes the file if there is something to write. To be called once, at the end. Never throws.
    virtual void Close();

    /// Makes `Close` leave the file as it is, for values that belong together and are incomplete.
    void Discard() { discarded_ = true; }

    /// The number of stored values.
    std::int64_t Count() const { return static_cast<std::int64_t>(prefs_->Count()); }

    /// True once a value differs from what was loaded.
    bool changed() const { return changed_; }

private:
    bool readCopy();
    void save(std::string_view text) const;
    bool isSafeToReplace(std::string_view text) const;
    void replaceFile(std::string_view text) const;

    std::shared_ptr<Dictionary> prefs_;
    std::filesystem::path fprefs_;
    std::filesystem::path copy_; ///< of what `fprefs_` is to hold, while that is being written
    bool changed_ = false;
    bool discarded_ = false;
};

} // namespace skyvert
