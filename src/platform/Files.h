#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace skyvert {

/// A file that the system would not open, read, create or write.
/// `what()` is a sentence for the user: it names the file and the system's reason.
class FileError : public std::runtime_error {
public:
    /// `attempt` ends the phrase "could not be", for instance "opened".
    /// `errorNumber` is the `errno` of the failed call.
    FileError(const std::filesystem::path& file, std::string_view attempt, int errorNumber);
};

/// A path as UTF-8 text, whatever the system's own encoding of paths is.
std::string pathText(const std::filesystem::path& path);

/// The whole content of a file, or nothing when it cannot be opened or read.
std::optional<std::string> readWholeFile(const std::filesystem::path& file);

/// Creates or replaces a file with the given bytes, in place. Returns false when the file could
/// not be created; what goes wrong behind that, while writing, goes unnoticed.
bool writeWholeFile(const std::filesystem::path& file, std::string_view bytes);

/// The C library's stream, closed by its owner's destructor.
struct CloseFile {
    void operator()(std::FILE* stream) const { std::fclose(stream); }
};

using FileStream = std::unique_ptr<std::FILE, CloseFile>;

/// Reads a text file line by line as UTF-8. Line ends are LF, CRLF and CR.
///
/// A file that opens with the byte order mark of UTF-16 is converted; every other file is UTF-8,
/// with or without its mark, and bytes in it that are no UTF-8 are read as Windows-1252.
/// A line may have any length; memory is used for the longest line, not for the file.
class TextInputStream {
public:
    /// Opens a file for reading. Throws `FileError`.
    static TextInputStream Open(const std::filesystem::path& file);

    /// True when nothing is left to read. Throws `FileError` when the file cannot be read.
    bool endOfFile();

    /// The next line without its line end; empty at the end of the file. The text stays valid
    /// until the next call. Throws `FileError` when the file cannot be read.
    std::string_view ReadLine();

    /// The part of the file that has been taken so far, from 0 to 1.
    double fractionRead() const;

    void Close() { stream_.reset(); }

private:
    enum class Encoding { EightBit, Utf16Little, Utf16Big };

    TextInputStream(std::filesystem::path file, FileStream stream);

    void detectEncoding();
    bool fill();
    void compact();
    std::size_t readBytes(char* target, std::size_t count);
    void appendUtf16(std::string_view bytes);
    std::size_t findLineEnd();
    std::string_view decoded(std::string_view line);

    std::filesystem::path file_;
    FileStream stream_;
    Encoding encoding_ = Encoding::EightBit;
    std::uintmax_t bytesRead_ = 0;
    std::uintmax_t size_ = 0; ///< of the file when it was opened; 0 for what has none
    bool sourceEnded_ = false;
    std::string buffer_;           ///< UTF-8 or bytes to be judged line by line
    std::size_t begin_ = 0;        ///< first byte of `buffer_` that no line has taken
    std::size_t nextLineFeed_ = 0; ///< first LF at or behind `begin_`, or where to look on
    std::size_t nextReturn_ = 0;   ///< likewise for CR
    std::string pendingUtf16_;     ///< bytes of a UTF-16 unit or pair that the last read cut
    std::string decodedLine_;
};

/// Writes a text file line by line: UTF-8 without a mark, each line ended by LF.
///
/// The text goes to a new file beside the target, which takes the target's place in `Close`. So
/// a write that fails, or a stream dropped before `Close`, leaves the old file as it was. A target
/// that is no regular file (a device, a pipe) is written directly.
class TextOutputStream {
public:
    /// Starts a file, to replace whatever stands under the name. Throws `FileError`.
    static TextOutputStream Create(const std::filesystem::path& file);

    TextOutputStream(TextOutputStream&& other) noexcept;
    TextOutputStream& operator=(TextOutputStream&&) = delete;
    ~TextOutputStream();

    /// Writes a line and its line end. Throws `FileError`.
    void WriteLine(std::string_view line);

    /// Writes what is left and puts the new file in place. Throws `FileError`.
    void Close();

private:
    TextOutputStream(std::filesystem::path file, std::filesystem::path written, FileStream stream);

    [[noreturn]] void fail() const;
    void flush();

    /// Whether a new file has been begun that does not stand in its place yet.
    bool isReplacement() const { return written_ != file_; }

    std::filesystem::path file_;    ///< what the user named, links followed
    std::filesystem::path written_; ///< what is being written
    FileStream stream_;
    std::string buffer_; ///< lines not handed to the system yet
};

} // namespace skyvert
