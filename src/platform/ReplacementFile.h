#pragma once

#include "platform/File.h"

#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

namespace skyvert {

/// A new file that takes the place of an old one when it is complete and on the disk, and not
/// before: until `commit` returns, the old file stands as it was, whatever fails and whenever the
/// program dies.
///
/// It is written under the name `.skyvert-N.tmp` in the folder of its place, with the first N from
/// 0 that is free, and locked meanwhile. One whose program died is locked no more: the next
/// replacement in that folder removes it.
class ReplacementFile {
public:
    /// Begins a file that is to stand at `place`. It takes after `old` (see `File::takeAfter`),
    /// unless that is not open. When no file can be made, this one is not open and `errno` has the
    /// reason.
    ReplacementFile(const std::filesystem::path& place, const File& old);

    ReplacementFile(ReplacementFile&& other) noexcept
        : place_(std::move(other.place_)), path_(std::exchange(other.path_, {})),
          file_(std::move(other.file_)) {}

    ReplacementFile& operator=(ReplacementFile&&) = delete;

    /// Without `commit` nothing stays of it.
    ~ReplacementFile();

    bool isOpen() const { return file_.isOpen(); }

    /// Adds bytes. False, with the reason in `errno`, when a part of them could not be written.
    bool write(std::string_view bytes) { return file_.write(bytes); }

    /// Puts the file in its place. Returns what failed, if anything did; either of the two files
    /// stands there, whole.
    std::error_code commit();

    /// Removes what programs that died have left in a folder.
    static void removeAbandoned(const std::filesystem::path& folder);

private:
    std::filesystem::path place_;
    std::filesystem::path path_; ///< of the file as long as it does not stand in its place
    File file_;
};

} // namespace skyvert
