#include "platform/TextOutputStream.h"

#include "platform/Files.h"

#include <cerrno>
#include <cstddef>
#include <utility>

namespace skyvert {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kWriteSize = std::size_t{64} * 1024;

[[noreturn]] void refuse(const fs::path& file, int reason) {
    std::error_code ignored;
    if (reason == ENXIO && fs::is_fifo(file, ignored))
        throw FileError(file, "written", "it is a pipe, and no program reads it");
    throw FileError(file, "written", reason);
}

} // namespace

TextOutputStream::TextOutputStream(fs::path file, std::optional<ReplacementFile> replacement,
                                   File device)
    : file_(std::move(file)), replacement_(std::move(replacement)), device_(std::move(device)) {}

TextOutputStream TextOutputStream::Create(const fs::path& file) {
    const fs::path target = linkTarget(file);
    // A file that may not be written is not to be replaced either.
    File old(target, File::Use::Write);
    const bool isRegular = old.regularSize().has_value();
    if (old.isOpen() && !isRegular && errno == 0) {
        old.waitForOthers();
        return {file, std::nullopt, std::move(old)};
    }
    if (!isRegular && (old.isOpen() || errno != ENOENT))
        refuse(file, errno);
    ReplacementFile replacement(target, old);
    if (!replacement.isOpen() && old.isOpen() && keepsNewFilesOut(errno))
        throw FileError(file, "replaced", "its folder takes no new file");
    if (!replacement.isOpen())
        throw FileError(file, "created", errno);
    return {file, std::move(replacement), File()};
}

void TextOutputStream::WriteLine(std::string_view line) {
    buffer_ += line;
    buffer_ += '\n';
    if (buffer_.size() >= kWriteSize)
        flush();
}

void TextOutputStream::flush() {
    if (!(replacement_ ? replacement_->write(buffer_) : device_.write(buffer_)))
        throw FileError(file_, "written", errno);
    buffer_.clear();
}

void TextOutputStream::Close() {
    flush();
    device_.close();
    if (!replacement_)
        return;
    if (const std::error_code error = replacement_->commit())
        throw FileError(file_, "written", error.message());
}

} // namespace skyvert
