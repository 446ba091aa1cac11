#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace skyvert {

/// The text of an entry field and the position of its caret. Positions count characters from 0.
struct EntryText {
    std::string text;
    std::size_t caret = 0;

    bool operator==(const EntryText&) const = default;
};

/// The form that the text of an entry field must have, and the rules of editing it.
///
/// A mask has these elements: "#" is a digit, "9" an optional digit, "&" any one character at the
/// start of the text, "\" makes the next character literal, and "." is the system's decimal
/// separator. Literals and the decimal separator divide the mask into fields. The empty mask
/// accepts any text.
///
/// The text is exactly what the field shows, without fill characters, and may end anywhere in the
/// mask.
///
/// - A literal is inserted when the character after it is typed. It may also be typed itself,
///   ignoring case; if it is there already, the caret moves past it. The decimal separator, literal
///   or not, is typed as "." or ","; digits typed at the end of the text continue after it.
/// - A literal typed before its field is full fills the field with leading zeros, as the parsers
///   read it: "1:2" becomes "01:2". A field of more than three digits is several numbers written
///   together, where the place of the zeros is unknown: there the literal is refused.
/// - A digit typed into a full field moves the last digit of the field to the next field. No digit
///   moves across the decimal separator.
/// - Where "&" expects a sign, a digit counts as the first digit after an omitted sign. "+" and "-"
///   replace a sign on either side of the caret.
/// - A blank before a number and the notation's closing mark after the last number are accepted and
///   dropped, so that a text copied from a list fits: `12h 30m 45.5s`. "&" takes a blank only as
///   the first character of the text.
/// - A deletion removes digits and closes the gap within their field; a literal stays as long as
///   text follows it. Deleting only a literal joins the fields beside it if the remaining text fits
///   unchanged, as it does if one of them is empty.
///
/// A text may not fit because code has assigned it or the mask was set later. Then a change that
/// makes it fit is completed by these rules; any other change edits it like free text.
class EntryMask {
public:
    /// The empty mask.
    EntryMask() = default;

    /// Any text is a valid mask: a character that is none of the elements above is a literal.
    /// `decimalSeparator` is the text for the element ".", `closingMark` the character that may
    /// follow the last number; empty for none.
    EntryMask(std::string_view mask, std::string_view decimalSeparator,
              std::string_view closingMark = {});

    /// The text after `insertion` (a typed character or a pasted text) has replaced the characters
    /// from `first` up to but not including `last`. Nothing if the result would not fit; then the
    /// field must stay unchanged.
    std::optional<EntryText> replace(std::string_view text, std::size_t first, std::size_t last,
                                     std::string_view insertion) const;

    /// The text after the characters from `first` up to but not including `last` are deleted.
    /// Never refused, but literals that are still needed stay.
    EntryText erase(std::string_view text, std::size_t first, std::size_t last) const;

    /// The text after Backspace: the character before the caret is deleted; if that is a literal
    /// that must stay, the character before it.
    EntryText eraseBefore(std::string_view text, std::size_t caret) const;

    /// The text after Delete: the same for the character after the caret.
    EntryText eraseAfter(std::string_view text, std::size_t caret) const;

private:
    /// A run of elements of one kind, and the literal before it.
    struct Field {
        std::string lead; ///< empty for none
        bool leadIsDecimal = false;
        bool takesAny = false;
        std::size_t required = 0; ///< digits to which it is filled with zeros
        std::size_t capacity = 0;

        bool isLedBy(std::string_view character) const;
    };

    /// A character of the present text, and its field.
    struct Cell {
        std::size_t field = 0;
        bool isLead = false;
        std::string_view character;
    };

    class Reader;
    class Edit;
    using Characters = std::vector<std::string_view>;

    void addLead(std::string_view lead, bool isDecimal);
    Field& fieldFor(bool takesAny);
    std::optional<Edit> editOf(const Characters& characters, std::size_t first,
                               std::size_t last) const;
    std::optional<std::vector<Cell>> readWithout(Characters characters, std::size_t first,
                                                 std::size_t last) const;

    std::vector<Field> fields_;
    std::string closingMark_;
};

} // namespace skyvert
