#pragma once

#include "platform/ReplacementFile.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace skyvert {

/// Writes a text file line by line: UTF-8 without a byte order mark, LF after each line.
///
/// The text goes to a new file in the target's folder, which replaces the target in `Close`. If a
/// write fails or the stream is destroyed before `Close`, the old file is unchanged.
class TextOutputStream {
public:
    /// Starts a file that will replace an existing regular file, links followed. Throws `FileError`
    /// if that fails, the existing file is of another kind, or its folder permits no new file.
    static TextOutputStream Create(const std::filesystem::path& file);

    /// Writes a line and its line end. Throws `FileError` on failure.
    void WriteLine(std::string_view line);

    /// Writes the rest and puts the new file in place. Throws `FileError` on failure.
    void Close();

private:
    TextOutputStream(std::filesystem::path file, ReplacementFile replacement);

    void flush();

    std::filesystem::path file_;
    ReplacementFile replacement_;
    std::string buffer_; ///< lines not written yet
};

} // namespace skyvert
