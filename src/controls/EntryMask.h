#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace skyvert {

/// A text in an entry field and where the caret stands in it. Positions in such a text count
/// characters and start at 0.
struct EntryText {
    std::string text;
    std::size_t caret = 0;

    bool operator==(const EntryText&) const = default;
};

/// The shape to which an entry field holds what a person types, and the rules of editing in it.
///
/// A mask is written with these elements: "#" is a digit, "9" an optional digit, "&" one character
/// of any kind that opens the text, "\" makes the next character literal, and "." is the system's
/// decimal separator. A literal, or the decimal separator, cuts the mask into fields. The empty
/// mask takes any text.
///
/// The text is exactly what is seen, without fill characters, and may end anywhere in the mask.
///
/// - A literal is put in when the character behind it is typed, or is typed itself, in any letter
///   case. Typed where it stands already it moves the caret over it. The decimal separator, literal
///   or not, is typed as "." or ",", and digits typed at the end of the text run on behind it.
/// - A literal typed before its field is full fills the field up with leading zeros, which is how
///   the parsers read it: "1:2" becomes "01:2". A field of more than three digits is several
///   numbers written together, where a zero could not be placed: there the literal is refused.
/// - A digit typed into a full field makes room: the last digit of the field moves on into the
///   next one. Nothing moves across the decimal separator.
/// - Where "&" asks for a sign, a digit counts as the first digit behind a sign left out. "+" and
///   "-" replace a sign on either side of the caret.
/// - A blank where a number has not begun and the closing mark of a notation behind the last
///   number are taken and dropped, so a text copied from a list fits: `12h 30m 45.5s`. Only the
///   first character of all for "&" may be a blank.
/// - A deletion takes digits out of their fields, and the field closes up; the literals stay
///   between the fields as long as something stands behind them. A literal deleted by itself joins
///   its fields if what is left fits as it stands, as it does beside an empty field.
///
/// A text that stands in the field but doesn't fit, because code put it there or because the mask
/// came later, is completed with the next character if that makes it fit, and is otherwise edited
/// like free text.
class EntryMask {
public:
    /// The empty mask.
    EntryMask() = default;

    /// Any text is a mask: an element that is none of those above counts as literal.
    /// `decimalSeparator` is what the element "." stands for.
    EntryMask(std::string_view mask, std::string_view decimalSeparator);

    /// The text after a person has put `insertion` (a typed character, or a pasted text) in place
    /// of the characters from `first` up to but not including `last`; or nothing when the result
    /// would not fit, which leaves the field as it is.
    std::optional<EntryText> replace(std::string_view text, std::size_t first, std::size_t last,
                                     std::string_view insertion) const;

    /// The text after the characters from `first` up to but not including `last` are deleted.
    /// Never refused, but literals that are still needed come back.
    EntryText erase(std::string_view text, std::size_t first, std::size_t last) const;

    /// The text after Backspace: the character before the caret is deleted, and with a literal
    /// that would come back the one before that.
    EntryText eraseBefore(std::string_view text, std::size_t caret) const;

    /// The text after Delete, which does the same with the character behind the caret.
    EntryText eraseAfter(std::string_view text, std::size_t caret) const;

private:
    /// One run of characters of a kind, and the literal before it.
    struct Field {
        std::string lead; ///< empty for none
        bool leadIsDecimal = false;
        bool takesAny = false;
        std::size_t required = 0; ///< to how many digits it is filled up
        std::size_t capacity = 0;

        bool isLedBy(std::string_view character) const;
    };

    /// One character of a text that stands, and the field it belongs to.
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
};

} // namespace skyvert
