#include "platform/Files.h"

#include "platform/File.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <system_error>

namespace skyvert {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kReadSize = std::size_t{256} * 1024;
constexpr int kMostLinks = 40; ///< in one chain, the limit of Linux

} // namespace

FileError::FileError(const fs::path& file, std::string_view attempt, std::string_view reason)
    : std::runtime_error("The file \"" + pathText(file) + "\" could not be " +
                         std::string(attempt) + ": " + std::string(reason) + ".") {}

FileError::FileError(const fs::path& file, std::string_view attempt, int errorNumber)
    : FileError(file, attempt, std::generic_category().message(errorNumber)) {}

std::string pathText(const fs::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

fs::path linkTarget(const fs::path& file) {
    std::error_code error;
    fs::path target = fs::canonical(file, error);
    if (!error)
        return target;
    target = file;
    for (int links = 0; links < kMostLinks; ++links) {
        const fs::path next = fs::read_symlink(target, error);
        if (error)
            break;
        target = target.parent_path() / next;
    }
    return target;
}

bool isNewFileForbidden(int errorNumber) {
    return errorNumber == EACCES || errorNumber == EPERM || errorNumber == EROFS;
}

std::optional<std::string> readWholeFile(const fs::path& file) {
    File opened(file, File::Use::Read);
    const auto size = opened.regularSize();
    if (!size)
        return std::nullopt;
    // The size is only a hint: some system files report 0.
    std::string bytes(std::max<std::uintmax_t>(kReadSize, *size + 1), '\0');
    for (std::size_t count = 0;; bytes.resize(2 * count)) {
        const auto filled = opened.fill(bytes.data() + count, bytes.size() - count);
        if (!filled)
            return std::nullopt;
        count += *filled;
        if (count < bytes.size()) {
            bytes.resize(count);
            return bytes;
        }
    }
}

bool writeWholeFile(const fs::path& file, std::string_view bytes) {
    File opened(file, File::Use::Replace);
    if (!opened.regularSize())
        return false;
    opened.write(bytes);
    return true;
}

bool isStored(const fs::path& file, std::string_view bytes) {
    File opened(file, File::Use::Read);
    if (!opened.sync() || !syncFolder(linkTarget(file).parent_path()))
        return false;
    std::string part(kReadSize, '\0');
    for (;;) {
        const std::ptrdiff_t read = opened.read(part.data(), part.size());
        const auto count = static_cast<std::size_t>(read);
        if (read <= 0)
            return read == 0 && bytes.empty();
        if (!bytes.starts_with(std::string_view(part).substr(0, count)))
            return false;
        bytes.remove_prefix(count);
    }
}

} // namespace skyvert
