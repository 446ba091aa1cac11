#pragma once

#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace skyvert {

/// A file that the system would not open, read, create or write.
/// `what()` is a sentence for the user: it names the file and the reason.
class FileError : public std::runtime_error {
public:
    /// `attempt` ends the phrase "could not be", for instance "opened". `reason` goes on after a
    /// colon, or is the system's own for the `errno` of the failed call.
    FileError(const std::filesystem::path& file, std::string_view attempt, std::string_view reason);
    FileError(const std::filesystem::path& file, std::string_view attempt, int errorNumber);
};

/// A path as UTF-8 text, whatever the system's own encoding of paths is.
std::string pathText(const std::filesystem::path& path);

/// The file that a name stands for, links followed; a link may name a file yet to be made.
std::filesystem::path linkTarget(const std::filesystem::path& file);

/// Whether a new file was refused for want of a permission, and not of room or for a fault.
bool keepsNewFilesOut(int errorNumber);

/// The whole content of a regular file, links followed, or nothing when it cannot be opened or
/// read, or is of another kind.
std::optional<std::string> readWholeFile(const std::filesystem::path& file);

/// Creates or replaces a regular file with the given bytes, in place, links followed. Returns false
/// when the file could not be created; what goes wrong after that, while writing, goes unnoticed.
bool writeWholeFile(const std::filesystem::path& file, std::string_view bytes);

/// Brings a file that has been written to the disk, and its name with it. False when that failed,
/// or when the file does not hold exactly these bytes.
bool isStored(const std::filesystem::path& file, std::string_view bytes);

} // namespace skyvert
