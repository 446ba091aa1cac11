#include "platform/TextInputStream.h"

#include "platform/Files.h"
#include "platform/Unicode.h"

#include <algorithm>
#include <cerrno>
#include <utility>

namespace skyvert {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kLongestLine = std::size_t{1024} * 1024;
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16LittleMark = "\xFF\xFE";
constexpr std::string_view kUtf16BigMark = "\xFE\xFF";

/// A line shortened to the bound, without cutting a character.
std::string_view bounded(std::string_view line) {
    if (line.size() <= kLongestLine)
        return line;
    std::size_t end = kLongestLine;
    while (continuesCharacter(line[end]) && kLongestLine - end < kMaxUtf8Length)
        --end;
    return line.substr(0, end);
}

} // namespace

TextInputStream::TextInputStream(fs::path file, File stream, std::uintmax_t size)
    : file_(std::move(file)), stream_(std::move(stream)), size_(size) {}

TextInputStream TextInputStream::Open(const fs::path& file) {
    File stream(file, File::Use::Read);
    const auto size = stream.regularSize();
    const int error = errno;
    if (size) {
        TextInputStream input(file, std::move(stream), *size);
        input.detectEncoding();
        return input;
    }
    std::error_code ignored;
    const fs::file_status status = fs::status(file, ignored);
    if (fs::is_directory(status))
        throw FileError(file, "opened", "it is a folder");
    if (fs::is_other(status))
        throw FileError(file, "opened", "it is not a regular file");
    throw FileError(file, "opened", error);
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
    const std::ptrdiff_t read = stream_.read(target, count);
    if (read < 0)
        throw FileError(file_, "read", errno);
    sourceEnded_ = read == 0;
    bytesRead_ += static_cast<std::size_t>(read);
    return static_cast<std::size_t>(read);
}

bool TextInputStream::fill() {
    if (sourceEnded_ || !stream_.isOpen())
        return false;
    compact();
    if (encoding_ != Encoding::EightBit) {
        std::string bytes(kPieceSize, '\0');
        bytes.resize(readBytes(bytes.data(), bytes.size()));
        appendUtf16(bytes);
        return !sourceEnded_ || !pendingUtf16_.empty(); // an incomplete last character counts, too
    }
    const std::size_t size = buffer_.size();
    buffer_.resize(size + std::max(kPieceSize, size));
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
    while (skipPiece()) {
    }
    while (begin_ == buffer_.size() && fill()) {
    }
    return begin_ == buffer_.size();
}

/// The offset of the next LF or CR, or the end of the buffer. Both offsets are kept between calls,
/// so that a file with one kind of line end is not searched over and over for the other kind.
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

/// The offset after a line end, which may be CRLF.
std::size_t TextInputStream::afterLineEnd(std::size_t end) const {
    const bool pair = end + 1 < buffer_.size() && buffer_[end] == '\r' && buffer_[end + 1] == '\n';
    return std::min(end + (pair ? 2 : 1), buffer_.size());
}

bool TextInputStream::skipPiece() {
    if (!restUnread_)
        return false;
    begin_ = findLineEnd();
    restUnread_ = !isLineEndKnown() && fill();
    if (!restUnread_)
        begin_ = afterLineEnd(findLineEnd());
    return true;
}

std::string_view TextInputStream::ReadLine() {
    while (skipPiece()) {
    }
    // A CR at the end of the buffer may be half of a CRLF.
    while (!isLineEndKnown() && buffer_.size() - begin_ <= kLongestLine && fill()) {
    }
    const std::size_t end = findLineEnd();
    const std::string_view line = std::string_view(buffer_).substr(begin_, end - begin_);
    restUnread_ = !isLineEndKnown() && !sourceEnded_ && stream_.isOpen();
    begin_ = restUnread_ ? end : afterLineEnd(end);
    return decoded(bounded(line));
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

} // namespace skyvert
