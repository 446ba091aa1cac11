#include "platform/File.h"

#include <algorithm>
#include <cerrno>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#include <share.h>
#include <sys/stat.h>
#else
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#endif
#ifdef __linux__
#include <array>
#include <cstring>
#include <sys/xattr.h>
#endif

namespace skyvert {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kLargestTransfer = std::size_t{1} << 30; ///< bytes in one system call

/// Repeats a system call until no signal interrupts it.
template <typename Call>
auto uninterrupted(const Call& call) {
    auto result = call();
    while (result == -1 && errno == EINTR)
        result = call();
    return result;
}

std::optional<std::uintmax_t> sizeIf(bool isRegular, std::int64_t size) {
    if (isRegular)
        return static_cast<std::uintmax_t>(size);
    errno = 0;
    return std::nullopt;
}

} // namespace

#ifdef _WIN32

namespace {

int openFlags(File::Use use) {
    switch (use) {
    case File::Use::Read:
        return _O_RDONLY;
    case File::Use::Write:
    case File::Use::WriteNoLink:
        return _O_RDWR;
    case File::Use::Replace:
        return _O_WRONLY | _O_CREAT | _O_TRUNC;
    default:
        return _O_RDWR | _O_CREAT | _O_EXCL;
    }
}

/// A file that is to be locked is opened without sharing; here that is the lock.
int sharing(File::Use use) {
    const bool isShared =
        use == File::Use::Read || use == File::Use::Write || use == File::Use::Replace;
    return isShared ? _SH_DENYNO : _SH_DENYRW;
}

} // namespace

File::File(const fs::path& path, Use use) {
    const int flags = openFlags(use) | _O_BINARY | _O_NOINHERIT;
    _wsopen_s(&descriptor_, path.c_str(), flags, sharing(use), _S_IREAD | _S_IWRITE);
}

std::optional<std::uintmax_t> File::regularSize() const {
    struct _stat64 status {};

    if (!isOpen() || _fstat64(descriptor_, &status) != 0)
        return std::nullopt;
    return sizeIf((status.st_mode & _S_IFMT) == _S_IFREG, status.st_size);
}

bool File::isAt(const fs::path& path) const {
    std::error_code ignored;
    return fs::exists(path, ignored);
}

bool File::lock() {
    return isOpen();
}

void File::takeAfter(const File& /*other*/) {}

std::ptrdiff_t File::read(char* target, std::size_t count) {
    return _read(descriptor_, target, static_cast<unsigned>(std::min(count, kLargestTransfer)));
}

bool File::write(std::string_view bytes) {
    while (!bytes.empty()) {
        const auto size = static_cast<unsigned>(std::min(bytes.size(), kLargestTransfer));
        const int written = _write(descriptor_, bytes.data(), size);
        if (written < 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

bool File::sync() {
    return _commit(descriptor_) == 0;
}

void File::close() {
    if (isOpen())
        _close(std::exchange(descriptor_, kNone));
}

bool syncFolder(const fs::path& /*folder*/) {
    return true;
}

#else

namespace {

constexpr mode_t kForAll = 0666;
constexpr mode_t kForOwner = 0600;

/// The flags of `open` and the permissions of a file that it creates.
struct Opening {
    int flags;
    mode_t permissions;
};

Opening openingFor(File::Use use) {
    switch (use) {
    case File::Use::Read:
        return {O_RDONLY, 0};
    case File::Use::Write:
        return {O_WRONLY, 0};
    case File::Use::WriteNoLink:
        return {O_WRONLY | O_NOFOLLOW, 0};
    case File::Use::Replace:
        return {O_WRONLY | O_CREAT | O_TRUNC, kForAll};
    case File::Use::Create:
        return {O_WRONLY | O_CREAT | O_EXCL, kForAll};
    case File::Use::CreatePrivate:
        break;
    }
    return {O_WRONLY | O_CREAT | O_EXCL, kForOwner};
}

/// Removes the access list that a new file inherits from its folder.
void dropAccessList([[maybe_unused]] int file) {
#ifdef __linux__
    fremovexattr(file, "system.posix_acl_access");
#endif
}

/// Copies the extended attributes, including access lists.
void copyAttributes([[maybe_unused]] int from, [[maybe_unused]] int to) {
#ifdef __linux__
    std::array<char, 4096> names{};
    std::array<char, 4096> value{};
    const ssize_t length = flistxattr(from, names.data(), names.size());
    for (ssize_t at = 0; at < length;) {
        const char* const name = names.data() + at;
        const ssize_t size = fgetxattr(from, name, value.data(), value.size());
        if (size >= 0)
            fsetxattr(to, name, value.data(), static_cast<std::size_t>(size), 0);
        at += static_cast<ssize_t>(std::strlen(name)) + 1;
    }
#endif
}

} // namespace

File::File(const fs::path& path, Use use) {
    const auto [flags, permissions] = openingFor(use);
    const int always = O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    descriptor_ = uninterrupted([&, flags = flags | always, permissions = permissions] {
        return ::open(path.c_str(), flags, permissions);
    });
}

std::optional<std::uintmax_t> File::regularSize() const {
    struct stat status {};

    if (!isOpen() || ::fstat(descriptor_, &status) != 0)
        return std::nullopt;
    return sizeIf(S_ISREG(status.st_mode), status.st_size);
}

bool File::isAt(const fs::path& path) const {
    struct stat own {};

    struct stat named {};

    return ::fstat(descriptor_, &own) == 0 && ::lstat(path.c_str(), &named) == 0 &&
           own.st_dev == named.st_dev && own.st_ino == named.st_ino;
}

// These functions change the file but not the object.
// NOLINTBEGIN(readability-make-member-function-const)

bool File::lock() {
    return uninterrupted([this] { return ::flock(descriptor_, LOCK_EX | LOCK_NB); }) == 0;
}

void File::takeAfter(const File& other) {
    struct stat old {};

    if (::fstat(other.descriptor_, &old) != 0)
        return;
    mode_t permissions = old.st_mode & (S_IRWXU | S_IRWXG | S_IRWXO);
    dropAccessList(descriptor_);
    if (::fchown(descriptor_, old.st_uid, old.st_gid) == 0 ||
        ::fchown(descriptor_, static_cast<uid_t>(-1), old.st_gid) == 0)
        copyAttributes(other.descriptor_, descriptor_);
    else // the group differs, so it gets no more than others have
        permissions &= S_IRWXU | S_IRWXO | (permissions & S_IRWXO) << 3U;
    ::fchmod(descriptor_, permissions);
}

std::ptrdiff_t File::read(char* target, std::size_t count) {
    const std::size_t size = std::min(count, kLargestTransfer);
    return uninterrupted([&] { return ::read(descriptor_, target, size); });
}

bool File::write(std::string_view bytes) {
    while (!bytes.empty()) {
        const std::size_t size = std::min(bytes.size(), kLargestTransfer);
        const ssize_t written =
            uninterrupted([&] { return ::write(descriptor_, bytes.data(), size); });
        if (written <= 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

bool File::sync() {
#ifdef F_FULLFSYNC
    // On these systems `fsync` leaves the bytes in the drive's cache.
    if (::fcntl(descriptor_, F_FULLFSYNC) == 0)
        return true;
#endif
    return uninterrupted([this] { return ::fsync(descriptor_); }) == 0;
}

// NOLINTEND(readability-make-member-function-const)

void File::close() {
    if (isOpen())
        ::close(std::exchange(descriptor_, kNone));
}

bool syncFolder(const fs::path& folder) {
    File opened(folder.empty() ? "." : folder, File::Use::Read);
    // A folder may be unreadable, and some file systems cannot sync one.
    return opened.isOpen() ? opened.sync() || errno == EINVAL : errno == EACCES;
}

#endif

std::optional<std::size_t> File::fill(char* target, std::size_t count) {
    std::size_t filled = 0;
    while (filled < count) {
        const std::ptrdiff_t taken = read(target + filled, count - filled);
        if (taken < 0)
            return std::nullopt;
        if (taken == 0)
            break;
        filled += static_cast<std::size_t>(taken);
    }
    return filled;
}

} // namespace skyvert
