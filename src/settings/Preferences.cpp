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

/// Whether a document is well-formed. A truncated one is not: it lacks the closing tag of the root.
bool isWellFormed(std::string_view text) {
    try {
        XmlHandler ignoring;
        parseXml(text, ignoring);
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

/// Loads the copy that an interrupted save has left, and finishes that save. Returns false if there
/// is none or it cannot be read. A damaged copy is removed; one of a newer version stays.
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
        // There is no memory for the text. The file stays as it is.
    }
}

void Preferences::save(std::string_view text) const {
    std::error_code ignored;
    fs::create_directories(fprefs_.parent_path(), ignored);
    if (isSafeToReplace(text))
        replaceFile(text);
}

/// Writes the copy. Returns true if it is complete, or if the folder permits no new file; then the
/// settings file is written without a copy. Returns false if that file must not be touched.
bool Preferences::isSafeToReplace(std::string_view text) const {
    const File old(fprefs_, File::Use::Write);
    if (old.isOpen() ? !old.regularSize() : errno != ENOENT)
        return false; // it may not be written, or is not a regular file
    ReplacementFile copy(copy_, old);
    std::error_code ignored;
    if (!copy.isOpen())
        return isNewFileForbidden(errno) && !fs::exists(copy_, ignored);
    return copy.write(text) && !copy.commit();
}

/// Writes the file in place. The copy is removed only after the file is known to hold `text`.
void Preferences::replaceFile(std::string_view text) const {
    if (!SaveXML(text, fprefs_) || !isStored(fprefs_, text))
        return;
    std::error_code ignored;
    fs::remove(copy_, ignored);
    syncFolder(copy_.parent_path());
}

} // namespace skyvert
