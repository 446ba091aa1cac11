#pragma once

#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace skyvert {

/// A file could not be opened, read, created or written.
/// `what()` is a sentence for the user that names the file and the reason.
class FileError : public std::runtime_error {
public:
    /// `attempt` completes "could not be", for instance "opened". The reason follows a colon; it is
    /// `reason`, or the system's text for `errorNumber`, the `errno` of the failed call.
    FileError(const std::filesystem::path& file, std::string_view attempt, std::string_view reason);
    FileError(const std::filesystem::path& file, std::string_view attempt, int errorNumber);
};

/// A path as UTF-8 text, whatever encoding the system uses for paths.
std::string pathText(const std::filesystem::path& path);

/// The path with its links resolved. The last link may name a file that does not exist yet.
std::filesystem::path linkTarget(const std::filesystem::path& file);

/// Whether `errorNumber` says that new files are not permitted, as opposed to a full disk or a
/// fault.
bool isNewFileForbidden(int errorNumber);

/// The whole content of a regular file, links followed; nothing if it cannot be opened or read or
/// is of another kind.
std::optional<std::string> readWholeFile(const std::filesystem::path& file);

/// Creates or overwrites a regular file in place, links followed. Returns false if it could not be
/// opened; later write errors are ignored.
bool writeWholeFile(const std::filesystem::path& file, std::string_view bytes);

/// Flushes a written file and its name to the disk, then reads it. Returns false if that fails or
/// the file does not hold exactly these bytes.
bool isStored(const std::filesystem::path& file, std::string_view bytes);

} // namespace skyvert
