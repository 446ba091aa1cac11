#pragma once

#include "platform/File.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace skyvert {

/// Reads a text file line by line as UTF-8. Line ends are LF, CRLF and CR.
///
/// A file that starts with a UTF-16 byte order mark is converted. Every other file is UTF-8, with
/// or without a mark; bytes that are not valid UTF-8 are read as Windows-1252.
/// The rest of a line after its first 1 MiB, counted after the conversion from UTF-16, is skipped,
/// so that memory use is bounded.
class TextInputStream {
public:
    /// Opens a regular file, links followed, without blocking. Throws `FileError` if that fails or
    /// the file is of another kind.
    static TextInputStream Open(const std::filesystem::path& file);

    /// True if nothing is left to read. Throws `FileError` if the file cannot be read.
    bool endOfFile();

    /// The next line without its line end; empty at the end of the file. The view is valid until
    /// the next call. Throws `FileError` if the file cannot be read.
    std::string_view ReadLine();

    static constexpr std::size_t kPieceSize = std::size_t{256} * 1024; ///< bytes read at once

    /// Skips a piece of the rest of a line that was too long; `ReadLine` and `endOfFile` skip all
    /// of it. Returns false if there was nothing to skip.
    bool skipPiece();

    /// The fraction of the file read so far, from 0 to 1.
    double fractionRead() const;

    void Close() { stream_.close(); }

private:
    enum class Encoding { EightBit, Utf16Little, Utf16Big };

    TextInputStream(std::filesystem::path file, File stream, std::uintmax_t size);

    void detectEncoding();
    bool fill();
    void compact();
    std::size_t readBytes(char* target, std::size_t count);
    void appendUtf16(std::string_view bytes);
    std::size_t findLineEnd();

    bool isLineEndKnown() { return findLineEnd() + 1 < buffer_.size(); }

    std::size_t afterLineEnd(std::size_t end) const;
    std::string_view decoded(std::string_view line);

    std::filesystem::path file_;
    File stream_;
    Encoding encoding_ = Encoding::EightBit;
    std::uintmax_t bytesRead_ = 0;
    std::uintmax_t size_; ///< of the file in bytes when it was opened
    bool sourceEnded_ = false;
    bool restUnread_ = false;      ///< the last line was too long and continues at `begin_`
    std::string buffer_;           ///< UTF-8, or bytes that are decoded line by line
    std::size_t begin_ = 0;        ///< first unread byte of `buffer_`
    std::size_t nextLineFeed_ = 0; ///< first LF at or after `begin_`, or where to go on searching
    std::size_t nextReturn_ = 0;   ///< likewise for CR
    std::string pendingUtf16_;     ///< bytes of a UTF-16 character that the last read cut
    std::string decodedLine_;
};

} // namespace skyvert
