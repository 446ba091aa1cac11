#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace skyvert {

/// How the fields of a record are written in one line of a delimited text file.
struct Dialect {
    std::string_view name; ///< as shown in the popups
    char separator;
    bool quoted = false; ///< whether fields may be quoted; only with commas

    bool separatesByBlanks() const { return separator == ' '; }
};

/// All dialects, in the order of the popups' rows.
std::span<const Dialect> dialects();

/// The dialect with this name, ignoring letter case; null for any other text.
const Dialect* dialectNamed(std::string_view name);

/// Splits lines of comma-separated text. Keeps the fields of the last line, so that a line equal to
/// it, ignoring case, is not scanned again, and so that the memory of the fields is reused.
class CommaSeparatedText {
public:
    /// The fields of a line, valid until the next call.
    ///
    /// A field in double quotes may contain commas, blanks and doubled quotes. Any other field
    /// extends to the next comma and is trimmed. Incorrect quoting is not an error: a missing
    /// closing quote ends the field with the line, and text after a closing quote starts the next
    /// field.
    std::span<const std::string> SplitCommaSeparated(std::string_view line);

private:
    std::string& addField();
    std::string_view scanQuoted(std::string_view rest);
    std::string_view scanPlain(std::string_view rest);

    std::vector<std::string> nComma_; ///< the first `count_` are the fields of the last line
    std::size_t count_ = 0;
    std::string nCommaLast_; ///< the last line, not trimmed
};

/// Splits the lines of one file or of many. Allocates nothing for a line once its buffers have
/// grown to the longest one.
class LineSplitter {
public:
    /// The fields of a line, valid until the next call. They may be views of `line`.
    std::span<const std::string_view> split(std::string_view line, const Dialect& dialect);

private:
    std::string_view withBlankPairsReplaced(std::string_view line);

    std::vector<std::string_view> fields_;
    std::string replaced_;
    CommaSeparatedText comma_;
};

/// Appends a record as comma-separated text to `line`: a field is quoted if `quoteAll`, or if it
/// holds a comma or a double quote; double quotes inside are doubled.
void JoinCommaSeparated(std::span<const std::string_view> fields, bool quoteAll, std::string& line);

/// Appends a record in a dialect to `line`.
void appendRecord(std::span<const std::string_view> fields, const Dialect& dialect,
                  std::string& line);

} // namespace skyvert
