#pragma once

#include "platform/File.h"
#include "platform/ReplacementFile.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace skyvert {

/// Writes a text file line by line: UTF-8 without a mark, each line ended by LF.
///
/// The text goes to a new file beside the target, which takes the target's place in `Close`. So
/// a write that fails, or a stream dropped before `Close`, leaves the old file as it was. A target
/// that is no regular file (a device, a pipe) is written directly.
class TextOutputStream {
public:
    /// Starts a file, to replace whatever stands under the name, links followed. Throws
    /// `FileError`, also where the folder takes no new file, and for a pipe that nobody reads.
    static TextOutputStream Create(const std::filesystem::path& file);

    /// Writes a line and its line end. Throws `FileError`.
    void WriteLine(std::string_view line);

    /// Writes what is left and puts the new file in place. Throws `FileError`.
    void Close();

private:
    TextOutputStream(std::filesystem::path file, std::optional<ReplacementFile> replacement,
                     File device);

    void flush();

    std::filesystem::path file_;
    std::optional<ReplacementFile> replacement_; ///< what is written, unless it is the device
    File device_;
    std::string buffer_; ///< lines not handed to the system yet
};

} // namespace skyvert
