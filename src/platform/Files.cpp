#include "platform/Files.h"

#include "platform/Unicode.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <system_error>
#include <utility>

namespace skyvert {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kReadSize = std::size_t{256} * 1024;
constexpr std::size_t kWriteSize = std::size_t{64} * 1024;
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16LittleMark = "\xFF\xFE";
constexpr std::string_view kUtf16BigMark = "\xFE\xFF";

FileStream openStream(const fs::path& file, const char* mode) {
#ifdef _WIN32
    const std::wstring wideMode(mode, mode + std::strlen(mode));
    return FileStream(_wfopen(file.c_str(), wideMode.c_str()));
#else
    return FileStream(std::fopen(file.c_str(), mode));
#endif
}

/// The file that a name stands for, links followed; a link may name a file yet to be made.
fs::path linkTarget(const fs::path& file) {
    std::error_code error;
    fs::path target = fs::canonical(file, error);
    if (!error)
        return target;
    target = fs::read_symlink(file, error);
    return error ? file : file.parent_path() / target;
}

/// The permissions of a file that is about to be replaced belong to its successor.
void copyPermissions(const fs::path& from, const fs::path& to) {
    std::error_code ignored;
    const fs::file_status status = fs::status(from, ignored);
    if (fs::exists(status))
        fs::permissions(to, status.permissions(), ignored);
}

/// Opens a file that did not exist before, in the folder of `target`.
std::pair<fs::path, FileStream> createBeside(const fs::path& target) {
    for (int attempt = 0;; ++attempt) {
        fs::path path = target.parent_path() / (".skyvert-" + std::to_string(attempt) + ".tmp");
        errno = 0;
        FileStream stream = openStream(path, "wbx");
        if (stream || errno != EEXIST)
            return {std::move(path), std::move(stream)};
    }
}

} // namespace

FileError::FileError(const fs::path& file, std::string_view attempt, int errorNumber)
    : std::runtime_error("The file \"" + pathText(file) + "\" could not be " +
                         std::string(attempt) + ": " +
                         std::generic_category().message(errorNumber) + ".") {}

std::string pathText(const fs::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

std::optional<std::string> readWholeFile(const fs::path& file) {
    const FileStream stream = openStream(file, "rb");
    if (!stream)
        return std::nullopt;
    // The size that the system tells is a hint only: of a device it tells none.
    std::error_code error;
    const std::uintmax_t size = fs::file_size(file, error);
    std::string bytes(error ? kReadSize : std::max<std::uintmax_t>(kReadSize, size + 1), '\0');
    std::size_t count = 0;
    for (std::size_t read = 1; read > 0; count += read) {
        if (count == bytes.size())
            bytes.resize(2 * count);
        read = std::fread(bytes.data() + count, 1, bytes.size() - count, stream.get());
    }
    bytes.resize(count);
    if (std::ferror(stream.get()) != 0)
        return std::nullopt;
    return bytes;
}

bool writeWholeFile(const fs::path& file, std::string_view bytes) {
    const FileStream stream = openStream(file, "wb");
    if (!stream)
        return false;
    std::fwrite(bytes.data(), 1, bytes.size(), stream.get());
    return true;
}

TextInputStream::TextInputStream(fs::path file, FileStream stream)
    : file_(std::move(file)), stream_(std::move(stream)) {}

TextInputStream TextInputStream::Open(const fs::path& file) {
    FileStream stream = openStream(file, "rb");
    if (!stream)
        throw FileError(file, "opened", errno);
    TextInputStream input(file, std::move(stream));
    std::error_code sizeless;
    const std::uintmax_t size = fs::file_size(file, sizeless);
    input.size_ = sizeless ? 0 : size;
    input.detectEncoding();
    return input;
}

void TextInputStream::detectEncoding() {
    while (buffer_.size() < kUtf8Mark.size() && fill()) {
    }
    if (buffer_.starts_with(kUtf8Mark)) {
        begin_ = kUtf8Mark.size();
        return;
    }
    const bool little = buffer_.starts_with(kUtf16LittleMark);
    if (!little && !buffer_.starts_with(kUtf16BigMark))
        return;
    encoding_ = little ? Encoding::Utf16Little : Encoding::Utf16Big;
    const std::string bytes = std::exchange(buffer_, {}).substr(kUtf16LittleMark.size());
    appendUtf16(bytes);
}

double TextInputStream::fractionRead() const {
    return bytesRead_ < size_ ? static_cast<double>(bytesRead_) / static_cast<double>(size_) : 1.0;
}

std::size_t TextInputStream::readBytes(char* target, std::size_t count) {
    errno = 0;
    const std::size_t read = std::fread(target, 1, count, stream_.get());
    if (read < count && std::ferror(stream_.get()) != 0)
        throw FileError(file_, "read", errno);
    sourceEnded_ = read == 0;
    bytesRead_ += read;
    return read;
}

bool TextInputStream::fill() {
    if (sourceEnded_ || !stream_)
        return false;
    compact();
    if (encoding_ != Encoding::EightBit) {
        std::string bytes(kReadSize, '\0');
        bytes.resize(readBytes(bytes.data(), bytes.size()));
        appendUtf16(bytes);
        return !sourceEnded_ || !pendingUtf16_.empty(); // half a character has become one, too
    }
    const std::size_t size = buffer_.size();
    buffer_.resize(size + std::max(kReadSize, size));
    buffer_.resize(size + readBytes(buffer_.data() + size, buffer_.size() - size));
    return !sourceEnded_;
}

void TextInputStream::compact() {
    buffer_.erase(0, begin_);
    nextLineFeed_ -= std::min(nextLineFeed_, begin_);
    nextReturn_ -= std::min(nextReturn_, begin_);
    begin_ = 0;
}

void TextInputStream::appendUtf16(std::string_view bytes) {
    pendingUtf16_ += bytes;
    std::string_view rest = pendingUtf16_;
    const auto next = [&] { return decodeUtf16(rest, encoding_ == Encoding::Utf16Big); };
    for (Utf16Character found = next(); found.length > 0; found = next()) {
        appendUtf8(isSurrogate(found.point) ? kReplacementCharacter : found.point, buffer_);
        rest.remove_prefix(found.length);
    }
    pendingUtf16_.erase(0, pendingUtf16_.size() - rest.size());
    if (sourceEnded_ && !pendingUtf16_.empty())
        appendUtf8(kReplacementCharacter, buffer_);
}

bool TextInputStream::endOfFile() {
    while (begin_ == buffer_.size() && fill()) {
    }
    return begin_ == buffer_.size();
}

/// The place of the next LF or CR, or the end of the buffer. Both places are kept from call to
/// call, so that a file with one kind of line end is not searched to its end for the other kind.
std::size_t TextInputStream::findLineEnd() {
    const auto advance = [this](std::size_t& place, char byte) {
        if (place >= begin_ && place < buffer_.size() && buffer_[place] == byte)
            return;
        place = std::min(buffer_.find(byte, std::max(place, begin_)), buffer_.size());
    };
    advance(nextLineFeed_, '\n');
    advance(nextReturn_, '\r');
    return std::min(nextLineFeed_, nextReturn_);
}

std::string_view TextInputStream::ReadLine() {
    // A CR that ends the buffer may be half of a CRLF.
    while (findLineEnd() + 1 >= buffer_.size() && fill()) {
    }
    const std::size_t end = findLineEnd();
    const std::string_view line = std::string_view(buffer_).substr(begin_, end - begin_);
    const bool pair = end + 1 < buffer_.size() && buffer_[end] == '\r' && buffer_[end + 1] == '\n';
    begin_ = std::min(end + (pair ? 2 : 1), buffer_.size());
    return decoded(line);
}

std::string_view TextInputStream::decoded(std::string_view line) {
    if (isAscii(line))
        return line;
    decodedLine_.clear();
    while (!line.empty()) {
        const std::size_t length = utf8Length(line);
        if (length == 0)
            appendUtf8(fromWindows1252(static_cast<unsigned char>(line.front())), decodedLine_);
        else
            decodedLine_ += line.substr(0, length);
        line.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return decodedLine_;
}

TextOutputStream::TextOutputStream(fs::path file, fs::path written, FileStream stream)
    : file_(std::move(file)), written_(std::move(written)), stream_(std::move(stream)) {}

TextOutputStream TextOutputStream::Create(const fs::path& file) {
    const fs::path target = linkTarget(file);
    std::error_code ignored;
    const fs::file_status status = fs::status(target, ignored);
    const bool exists = fs::exists(status);
    // A file that may not be written is not to be replaced either.
    FileStream old = exists ? openStream(target, "r+b") : nullptr;
    if (exists && !old)
        throw FileError(file, "written", errno);
    if (exists && !fs::is_regular_file(status))
        return {target, target, std::move(old)};
    auto [written, stream] = createBeside(target);
    if (!stream && exists) { // in a folder that takes no new file
        written = target;
        stream = openStream(target, "wb");
    }
    if (!stream)
        throw FileError(file, "created", errno);
    copyPermissions(target, written);
    return {target, std::move(written), std::move(stream)};
}

TextOutputStream::TextOutputStream(TextOutputStream&& other) noexcept
    : file_(std::exchange(other.file_, {})), written_(std::exchange(other.written_, {})),
      stream_(std::move(other.stream_)), buffer_(std::move(other.buffer_)) {}

TextOutputStream::~TextOutputStream() {
    stream_.reset();
    std::error_code ignored;
    if (isReplacement())
        fs::remove(written_, ignored);
}

void TextOutputStream::fail() const {
    throw FileError(file_, "written", errno);
}

void TextOutputStream::WriteLine(std::string_view line) {
    buffer_ += line;
    buffer_ += '\n';
    if (buffer_.size() >= kWriteSize)
        flush();
}

void TextOutputStream::flush() {
    if (std::fwrite(buffer_.data(), 1, buffer_.size(), stream_.get()) != buffer_.size() ||
        std::fflush(stream_.get()) != 0)
        fail();
    buffer_.clear();
}

void TextOutputStream::Close() {
    flush();
    if (std::fclose(stream_.release()) != 0)
        fail();
    std::error_code error;
    if (isReplacement())
        fs::rename(written_, file_, error);
    if (error)
        throw FileError(file_, "written", error.value());
    written_ = file_;
}

} // namespace skyvert
