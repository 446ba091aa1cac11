#include "settings/Preferences.h"

#include "platform/File.h"
#include "platform/Files.h"
#include "platform/ReplacementFile.h"
#include "settings/XMLDictionary.h"

#include <cerrno>
#include <exception>
#include <optional>
#include <string>
#include <system_error>
#include <utility>

namespace skyvert {

namespace fs = std::filesystem;

namespace {

/// Whether a document is whole: the end tag of the root comes last, so one that was cut is
/// malformed.
bool isWellFormed(std::string_view text) {
    try {
        XmlHandler nobody;
        parseXml(text, nobody);
        return true;
    } catch (const XmlException&) {
        return false;
    }
}

} // namespace

Preferences::Preferences(const fs::path& applicationData, const fs::path& folder,
                         const fs::path& file)
    : prefs_(std::make_shared<Dictionary>()), fprefs_(applicationData / folder / file),
      copy_(fprefs_) {
    copy_ += ".new";
    std::error_code ignored;
    fs::create_directories(fprefs_.parent_path(), ignored);
    ReplacementFile::removeAbandoned(fprefs_.parent_path());
    if (!readCopy())
        LoadXML(prefs_, fprefs_);
}

/// Loads the copy that is left of a save that was cut short, and ends that save. False when there
/// is none, or one of a newer version: that counts as absent, and stays.
bool Preferences::readCopy() {
    const std::optional<std::string> text = readWholeFile(copy_);
    if (!text)
        return false;
    if (LoadXML(prefs_, *text)) {
        replaceFile(*text);
        return true;
    }
    if (!isWellFormed(*text)) {
        std::error_code ignored;
        fs::remove(copy_, ignored);
    }
    return false;
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
    if (!changed_ || discarded_)
        return;
    try {
        save(ExportXMLString(prefs_, false));
    } catch (const std::exception&) {
        // There is no memory for the text. What the file holds is what stays.
    }
}

void Preferences::save(std::string_view text) const {
    std::error_code ignored;
    fs::create_directories(fprefs_.parent_path(), ignored);
    if (isSafeToReplace(text))
        replaceFile(text);
}

/// Makes the copy. True when it stands, or when the folder takes none by its permissions; then the
/// file is written without one. False when the file is not to be touched.
bool Preferences::isSafeToReplace(std::string_view text) const {
    const File old(fprefs_, File::Use::Write);
    if (old.isOpen() ? !old.regularSize() : errno != ENOENT)
        return false; // it may not be written, or is no settings file
    ReplacementFile copy(copy_, old);
    std::error_code ignored;
    if (!copy.isOpen())
        return keepsNewFilesOut(errno) && !fs::exists(copy_, ignored);
    return copy.write(text) && !copy.commit();
}

/// Writes the file in place. A copy stays until the file is known to hold the same.
void Preferences::replaceFile(std::string_view text) const {
    if (!SaveXML(text, fprefs_) || !isStored(fprefs_, text))
        return;
    std::error_code ignored;
    fs::remove(copy_, ignored);
    syncFolder(copy_.parent_path());
}

} // namespace skyvert
