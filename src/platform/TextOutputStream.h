#pragma once

#include "platform/ReplacementFile.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace skyvert {

/// Writes a text file line by line: UTF-8 without a mark, each line ended by LF.
///
/// The text goes to a new file beside the target, which takes the target's place in `Close`. So
/// a write that fails, or a stream dropped before `Close`, leaves the old file as it was.
class TextOutputStream {
public:
    /// Starts a file, to replace a regular one that stands under the name, links followed. Throws
    /// `FileError`, for every other kind of file too, and where the folder takes no new file.
    static TextOutputStream Create(const std::filesystem::path& file);

    /// Writes a line and its line end. Throws `FileError`.
    void WriteLine(std::string_view line);

    /// Writes what is left and puts the new file in place. Throws `FileError`.
    void Close();

private:
    TextOutputStream(std::filesystem::path file, ReplacementFile replacement);

    void flush();

    std::filesystem::path file_;
    ReplacementFile replacement_;
    std::string buffer_; ///< lines not handed to the system yet
};

} // namespace skyvert
