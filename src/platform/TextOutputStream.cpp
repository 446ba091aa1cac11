#include "platform/TextOutputStream.h"

#include "platform/File.h"
#include "platform/Files.h"

#include <cerrno>
#include <cstddef>
#include <utility>

namespace skyvert {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kWriteSize = std::size_t{64} * 1024;

} // namespace

TextOutputStream::TextOutputStream(fs::path file, ReplacementFile replacement)
    : file_(std::move(file)), replacement_(std::move(replacement)) {}

TextOutputStream TextOutputStream::Create(const fs::path& file) {
    const fs::path target = linkTarget(file);
    std::error_code ignored;
    if (fs::is_other(fs::status(target, ignored)))
        throw FileError(file, "written", "it is not a regular file");
    // A file without write permission must not be replaced either.
    const File old(target, File::Use::Write);
    if (!old.regularSize() && (old.isOpen() || errno != ENOENT))
        throw FileError(file, "written", errno);
    ReplacementFile replacement(target, old);
    if (!replacement.isOpen() && old.isOpen() && isNewFileForbidden(errno))
        throw FileError(file, "replaced", "its folder takes no new file");
    if (!replacement.isOpen())
        throw FileError(file, "created", errno);
    return {file, std::move(replacement)};
}

void TextOutputStream::WriteLine(std::string_view line) {
    buffer_ += line;
    buffer_ += '\n';
    if (buffer_.size() >= kWriteSize)
        flush();
}

void TextOutputStream::flush() {
    if (!replacement_.write(buffer_))
        throw FileError(file_, "written", errno);
    buffer_.clear();
}

void TextOutputStream::Close() {
    flush();
    if (const std::error_code error = replacement_.commit())
        throw FileError(file_, "written", error.message());
}

} // namespace skyvert
