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
/// A file that opens with the byte order mark of UTF-16 is converted; every other file is UTF-8,
/// with or without its mark, and bytes in it that are no UTF-8 are read as Windows-1252.
/// What a line holds beyond its first 1 MiB, counted in UTF-8 where the file is UTF-16, is skipped,
/// so memory follows neither the file nor its lines.
class TextInputStream {
public:
    /// Opens a regular file for reading, links followed. Throws `FileError`, for every other kind
    /// of file too, and waits for none of them.
    static TextInputStream Open(const std::filesystem::path& file);

    /// True when nothing is left to read. Throws `FileError` when the file cannot be read.
    bool endOfFile();

    /// The next line without its line end; empty at the end of the file. The text stays valid
    /// until the next call. Throws `FileError` when the file cannot be read.
    std::string_view ReadLine();

    static constexpr std::size_t kPieceSize = std::size_t{256} * 1024; ///< bytes read at once

    /// Skips a piece of what the last line was too long for; `ReadLine` and `endOfFile` skip all
    /// that is left of it. Returns false when nothing is.
    bool skipPiece();

    /// The part of the file that has been taken so far, from 0 to 1.
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

    std::size_t behindLineEnd(std::size_t end) const;
    std::string_view decoded(std::string_view line);

    std::filesystem::path file_;
    File stream_;
    Encoding encoding_ = Encoding::EightBit;
    std::uintmax_t bytesRead_ = 0;
    std::uintmax_t size_; ///< of the file when it was opened
    bool sourceEnded_ = false;
    bool restUnread_ = false;      ///< whether the last line goes on at `begin_`
    std::string buffer_;           ///< UTF-8 or bytes to be judged line by line
    std::size_t begin_ = 0;        ///< first byte of `buffer_` that no line has taken
    std::size_t nextLineFeed_ = 0; ///< first LF at or behind `begin_`, or where to look on
    std::size_t nextReturn_ = 0;   ///< likewise for CR
    std::string pendingUtf16_;     ///< bytes of a UTF-16 unit or pair that the last read cut
    std::string decodedLine_;
};

} // namespace skyvert
