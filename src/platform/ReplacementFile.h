#pragma once

#include "platform/File.h"

#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

namespace skyvert {

/// A new file that replaces an old one only after it is complete and on the disk. Whatever fails
/// and whenever the program dies, the target is the whole old file or the whole new one; before
/// `commit` it is the old one.
///
/// It is written as `.skyvert-N.tmp` in the target's folder, with the first free N from 0, and is
/// locked meanwhile. The lock ends with the program; the next replacement in that folder removes
/// files that are no longer locked.
class ReplacementFile {
public:
    /// Creates the file that is to replace `place`. If `old` is open, its owner, permissions and
    /// attributes are copied (see `File::takeAfter`). On failure `isOpen` is false and `errno` has
    /// the reason.
    ReplacementFile(const std::filesystem::path& place, const File& old);

    ReplacementFile(ReplacementFile&& other) noexcept
        : place_(std::move(other.place_)), path_(std::exchange(other.path_, {})),
          file_(std::move(other.file_)) {}

    ReplacementFile& operator=(ReplacementFile&&) = delete;

    /// Removes the file unless `commit` has put it in place.
    ~ReplacementFile();

    bool isOpen() const { return file_.isOpen(); }

    /// Appends bytes. Returns false, with the reason in `errno`, if some could not be written.
    bool write(std::string_view bytes) { return file_.write(bytes); }

    /// Flushes the file to the disk and renames it over the target. Returns the error, if any.
    std::error_code commit();

    /// Removes the temporary files that programs left in a folder when they died.
    static void removeAbandoned(const std::filesystem::path& folder);

private:
    std::filesystem::path place_;
    std::filesystem::path path_; ///< of the temporary file; empty after `commit`
    File file_;
};

} // namespace skyvert
