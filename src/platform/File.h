#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string_view>
#include <utility>

namespace skyvert {

/// A file of the system, open until it is destroyed. Nothing here throws; what fails leaves its
/// reason in `errno`.
class File {
public:
    /// What a file is opened for.
    enum class Use {
        Read,
        Write,         ///< one that exists, with its content
        WriteNoLink,   ///< the same, but no link is followed
        Replace,       ///< one that is emptied, or else made; links are followed
        Create,        ///< one that did not exist, with the permissions of any new file
        CreatePrivate, ///< one that did not exist, for nobody but its owner
    };

    File() = default;

    /// Opens a file and never waits for it: a pipe that nobody reads is refused, with ENXIO.
    File(const std::filesystem::path& path, Use use);

    File(File&& other) noexcept : descriptor_(std::exchange(other.descriptor_, kNone)) {}

    File& operator=(File&& other) noexcept {
        std::swap(descriptor_, other.descriptor_);
        return *this;
    }

    ~File() { close(); }

    bool isOpen() const { return descriptor_ != kNone; }

    /// The size in bytes of a regular file. Nothing, with `errno` 0, for everything else: folders,
    /// pipes, devices. Nothing, with `errno` as it was, when the file is not open.
    std::optional<std::uintmax_t> regularSize() const;

    /// Whether a path, its last link not followed, names this very file.
    bool isAt(const std::filesystem::path& path) const;

    /// Locks the file against `lock` of everybody else until it is closed or the program dies.
    /// False when it is locked already.
    bool lock();

    /// Gives the file the owner, permissions and extended attributes of another, as far as the
    /// system lets; nobody else may read or write it who could not read or write the other.
    void takeAfter(const File& other);

    /// Reads at most `count` bytes. Returns how many there were, 0 at the end, below 0 on failure.
    std::ptrdiff_t read(char* target, std::size_t count);

    /// Reads until there are `count` bytes or the file ends. Returns how many there were, or
    /// nothing on failure.
    std::optional<std::size_t> fill(char* target, std::size_t count);

    /// Writes all the bytes. False when a part of them could not be written.
    bool write(std::string_view bytes);

    /// Returns when the content has reached the disk.
    bool sync();

    void close();

private:
    static constexpr int kNone = -1;

    int descriptor_ = kNone;
};

/// Returns when the names in a folder have reached the disk. True also where the system has no
/// means for this.
bool syncFolder(const std::filesystem::path& folder);

} // namespace skyvert
