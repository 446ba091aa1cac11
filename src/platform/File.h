#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string_view>
#include <utility>

namespace skyvert {

/// An open file, which its destructor closes. Nothing here throws; a call that fails leaves the
/// reason in `errno`.
class File {
public:
    /// What a file is opened for.
    enum class Use {
        Read,
        Write,         ///< an existing file, content kept
        WriteNoLink,   ///< as `Write`, but a symbolic link is not followed
        Replace,       ///< truncates the file or creates it; follows links
        Create,        ///< a new file with the default permissions; fails if it exists
        CreatePrivate, ///< as `Create`, but only its owner has access
    };

    File() = default;

    /// Opens a file without blocking: writing to a pipe that nobody reads fails with ENXIO. After a
    /// failure `isOpen` is false.
    File(const std::filesystem::path& path, Use use);

    File(File&& other) noexcept : descriptor_(std::exchange(other.descriptor_, kNone)) {}

    File& operator=(File&& other) noexcept {
        std::swap(descriptor_, other.descriptor_);
        return *this;
    }

    ~File() { close(); }

    bool isOpen() const { return descriptor_ != kNone; }

    /// The size of a regular file in bytes. Nothing, with `errno` 0, for other kinds of file
    /// (folders, pipes, devices); nothing, with `errno` unchanged, if the file is not open.
    std::optional<std::uintmax_t> regularSize() const;

    /// Whether a path names this same file. A link at the end of the path is not followed.
    bool isAt(const std::filesystem::path& path) const;

    /// Takes an exclusive lock, without waiting, until the file is closed or the program ends.
    /// Returns false if that fails; `errno` is EWOULDBLOCK if the file is locked already.
    bool lock();

    /// Copies the owner, permissions and extended attributes of another file, as far as the system
    /// allows. Never grants access that the other file denies.
    void takeAfter(const File& other);

    /// Reads at most `count` bytes. Returns the number read, 0 at the end, negative on failure.
    std::ptrdiff_t read(char* target, std::size_t count);

    /// Reads until it has `count` bytes or the file ends. Returns the number read, or nothing on
    /// failure.
    std::optional<std::size_t> fill(char* target, std::size_t count);

    /// Writes all the bytes. Returns false if some could not be written.
    bool write(std::string_view bytes);

    /// Flushes the content to the disk. Returns false on failure.
    bool sync();

    void close();

private:
    static constexpr int kNone = -1;

    int descriptor_ = kNone;
};

/// Flushes the names in a folder to the disk. Returns false on failure, but true where the system
/// cannot do this.
bool syncFolder(const std::filesystem::path& folder);

} // namespace skyvert
