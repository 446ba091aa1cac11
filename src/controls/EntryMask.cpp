#include "controls/EntryMask.h"

#include "platform/Text.h"

#include <algorithm>
#include <span>
#include <utility>

namespace skyvert {

namespace {

/// In digits. A longer field is several numbers written together.
constexpr std::size_t kLongestNumber = 3;

std::vector<std::string_view> splitCharacters(std::string_view text) {
    std::vector<std::string_view> characters;
    for (; !text.empty(); text.remove_prefix(characters.back().size()))
        characters.push_back(Left(text, 1));
    return characters;
}

bool isDigit(std::string_view character) {
    return character.size() == 1 && skyvert::isDigit(character[0]);
}

bool isSign(std::string_view character) {
    return character == "+" || character == "-";
}

EntryText replaceFreely(std::string_view text, std::size_t first, std::size_t last,
                        std::string_view insertion) {
    std::string replaced(Left(text, first));
    replaced += insertion;
    replaced += Mid(text, last + 1);
    return {replaced, first + Len(insertion)};
}

} // namespace

bool EntryMask::Field::isLedBy(std::string_view character) const {
    return !lead.empty() && (equalsIgnoringCase(lead, character) ||
                             (leadIsDecimal && (character == "." || character == ",")));
}

/// Assigns each character of the present text to its field. Unlike typed text, it may have fields
/// that a deletion has left short or empty.
class EntryMask::Reader {
public:
    Reader(const std::vector<Field>& fields, const Characters& characters)
        : fields_(fields), characters_(characters) {}

    /// The cells of the text, or nothing if it does not fit the mask.
    std::optional<std::vector<Cell>> read() {
        for (std::size_t i = 0; i < characters_.size(); ++i)
            if (!place(i))
                return std::nullopt;
        return std::move(cells_);
    }

private:
    bool place(std::size_t index) {
        const std::string_view character = characters_[index];
        for (;; ++field_, used_ = 0) {
            if (belongsHere(index)) {
                cells_.push_back({field_, false, character});
                ++used_;
                return true;
            }
            if (field_ + 1 == fields_.size())
                return false;
            const Field& next = fields_[field_ + 1];
            if (next.isLedBy(character)) {
                cells_.push_back({++field_, true, character});
                used_ = 0;
                return true;
            }
            // A digit moves on to the next field; another character may only skip a missing sign.
            if (isDigit(character) ? next.leadIsDecimal : !fields_[field_].takesAny)
                return false;
        }
    }

    bool belongsHere(std::size_t index) const {
        const Field& field = fields_[field_];
        const bool hasRoom = used_ < field.capacity;
        return hasRoom && (field.takesAny ? isSignHere(index) : isDigit(characters_[index]));
    }

    /// A digit, or a separator followed by more text, shows that the sign is missing.
    bool isSignHere(std::size_t index) const {
        const std::string_view character = characters_[index];
        const bool isLast = index + 1 == characters_.size();
        return !isDigit(character) &&
               (isLast || field_ + 2 >= fields_.size() || !fields_[field_ + 2].isLedBy(character));
    }

    const std::vector<Field>& fields_;
    const Characters& characters_;
    std::vector<Cell> cells_;
    std::size_t field_ = 0;
    std::size_t used_ = 0; ///< characters read in the field
};

/// The contents of the fields during one change.
class EntryMask::Edit {
public:
    explicit Edit(const EntryMask& mask)
        : fields_(mask.fields_), closingMark_(mask.closingMark_), contents_(fields_.size()) {}

    /// Starts with the present text without the characters from `first` up to but not including
    /// `last`, and with the caret in their place.
    Edit(const EntryMask& mask, std::span<const Cell> cells, std::size_t first, std::size_t last)
        : Edit(mask) {
        restore(cells.first(first));
        const std::size_t caretField = reached_;
        const std::size_t caretOffset = cells.empty() || first == 0 ? 0 : length(reached_);
        restore(cells.subspan(last));
        field_ = caretField;
        offset_ = caretOffset;
    }

    bool typeAll(const Characters& characters) {
        return std::all_of(characters.begin(), characters.end(),
                           [this](std::string_view character) { return type(character); });
    }

    /// Types the text before and the text after the caret. Returns false if they do not fit.
    bool typeAround(const Characters& characters, const Characters& afterCaret) {
        if (!typeAll(characters))
            return false;
        const std::size_t caretField = field_;
        const std::size_t caretOffset = offset_;
        const bool fits = typeAll(afterCaret);
        field_ = caretField;
        offset_ = caretOffset;
        return fits;
    }

    EntryText result() const {
        std::string text;
        std::string beforeCaret;
        for (std::size_t i = 0; i <= reached_; ++i) {
            text += fields_[i].lead;
            if (i == field_)
                beforeCaret = text + contents_[i].substr(0, byteOffset());
            text += contents_[i];
        }
        return {text, splitCharacters(beforeCaret).size()};
    }

private:
    void restore(std::span<const Cell> cells) {
        for (const Cell& cell : cells) {
            reached_ = std::max(reached_, cell.field);
            if (!cell.isLead)
                contents_[cell.field] += cell.character;
        }
    }

    const Field& field() const { return fields_[field_]; }

    /// The number of characters in a field. Digits are single bytes; any other field holds at most
    /// one character.
    std::size_t length(std::size_t field) const {
        return fields_[field].takesAny ? std::min<std::size_t>(contents_[field].size(), 1)
                                       : contents_[field].size();
    }

    std::size_t byteOffset() const {
        return field().takesAny && offset_ > 0 ? std::string::npos : offset_;
    }

    bool type(std::string_view character) {
        if (closed_)
            return isClosing(character);
        if (isDigit(character))
            return typeDigit(character[0]);
        return typeAny(character) || typeLead(character) || isIdleBlank(character) ||
               close(character);
    }

    bool typeDigit(char digit) {
        while (field().takesAny || offset_ == field().capacity)
            if (!stepOver())
                return false;
        contents_[field_].insert(offset_++, 1, digit);
        return makeRoom(field_);
    }

    /// Moves to the start of the next field for a digit, but not into existing decimals. Returns
    /// false if it cannot.
    bool stepOver() {
        const std::size_t next = field_ + 1;
        if (next == fields_.size() || (fields_[next].leadIsDecimal && length(next) > 0))
            return false;
        moveTo(next);
        return true;
    }

    void moveTo(std::size_t field) {
        field_ = field;
        offset_ = 0;
        reached_ = std::max(reached_, field);
    }

    /// Moves digits that exceed a field's capacity to the next field. Returns false if it cannot.
    bool makeRoom(std::size_t from) {
        for (std::size_t i = from; length(i) > fields_[i].capacity; ++i) {
            const std::size_t next = i + 1;
            if (next == fields_.size() || fields_[next].leadIsDecimal || fields_[next].takesAny)
                return false;
            contents_[next].insert(0, 1, contents_[i].back());
            contents_[i].pop_back();
            reached_ = std::max(reached_, next);
        }
        return true;
    }

    bool typeAny(std::string_view character) {
        if (!field().takesAny || (length(field_) > 0 && !isSign(character)) ||
            (character == " " && !isEmpty()))
            return false;
        contents_[field_] = character;
        offset_ = 1;
        return true;
    }

    bool isEmpty() const { return reached_ == 0 && contents_[0].empty(); }

    bool typeLead(std::string_view character) {
        const std::size_t next = field_ + 1;
        const bool isHere = next < fields_.size() && fields_[next].isLedBy(character);
        if (!isHere || offset_ < length(field_) || !fillUp())
            return false;
        moveTo(next);
        return true;
    }

    bool fillUp() {
        std::string& digits = contents_[field_];
        if (digits.size() >= field().required)
            return true;
        if (digits.empty() || field().required > kLongestNumber)
            return false;
        digits = zeroPadded(digits, field().required);
        return true;
    }

    bool isIdleBlank(std::string_view character) const {
        return character == " " && (offset_ == 0 || field().takesAny);
    }

    bool close(std::string_view character) {
        const bool isAtEnd = field_ == reached_ && offset_ == length(field_) && offset_ > 0;
        const bool isLastNumber = field_ + 1 == fields_.size() || fields_[field_ + 1].leadIsDecimal;
        closed_ = isAtEnd && isLastNumber && isClosing(character);
        return closed_;
    }

    bool isClosing(std::string_view character) const {
        return equalsIgnoringCase(closingMark_, character);
    }

    const std::vector<Field>& fields_;
    std::string_view closingMark_;
    std::vector<std::string> contents_;
    std::size_t reached_ = 0; ///< the last field that is shown, with its lead
    std::size_t field_ = 0;   ///< the caret's field
    std::size_t offset_ = 0;  ///< the caret's offset in it, in characters
    bool closed_ = false;     ///< only closing marks may follow
};

EntryMask::EntryMask(std::string_view mask, std::string_view decimalSeparator,
                     std::string_view closingMark)
    : closingMark_(closingMark) {
    const Characters elements = splitCharacters(mask);
    for (std::size_t i = 0; i < elements.size(); ++i) {
        const std::string_view element = elements[i];
        if (element == "#" || element == "9") {
            Field& field = fieldFor(false);
            field.required += element == "#" ? 1 : 0;
            ++field.capacity;
        } else if (element == "&") {
            fieldFor(true).capacity = 1;
        } else if (element == ".") {
            addLead(decimalSeparator, true);
        } else {
            // A literal point is a decimal separator, whatever the locale's is.
            const bool isEscaped = element == "\\" && i + 1 < elements.size();
            const std::string_view literal = isEscaped ? elements[++i] : element;
            addLead(literal, literal == ".");
        }
    }
}

/// Starts the field after a literal. A literal at the start of the mask has an empty field before
/// it.
void EntryMask::addLead(std::string_view lead, bool isDecimal) {
    if (fields_.empty())
        fields_.emplace_back();
    fields_.push_back({std::string(lead), isDecimal});
}

/// The field that the next element of a mask belongs to; creates one if necessary.
EntryMask::Field& EntryMask::fieldFor(bool takesAny) {
    const bool fits = !fields_.empty() &&
                      (fields_.back().capacity == 0 || (!takesAny && !fields_.back().takesAny));
    if (!fits)
        fields_.emplace_back();
    fields_.back().takesAny = takesAny;
    return fields_.back();
}

std::optional<EntryText> EntryMask::replace(std::string_view text, std::size_t first,
                                            std::size_t last, std::string_view insertion) const {
    const Characters characters = splitCharacters(text);
    last = std::min(last, characters.size());
    first = std::min(first, last);
    EntryText free = replaceFreely(text, first, last, insertion);
    if (fields_.empty())
        return free;
    const Characters typed = splitCharacters(insertion.size() > 1 ? Trim(insertion) : insertion);
    if (std::optional<Edit> edit = editOf(characters, first, last)) {
        if (!edit->typeAll(typed))
            return std::nullopt;
        return edit->result();
    }
    Edit whole(*this);
    const bool fits = whole.typeAround(splitCharacters(Left(free.text, free.caret)),
                                       splitCharacters(Mid(text, last + 1)));
    return fits ? whole.result() : std::move(free);
}

/// Starts a change to a text that fits, or that fits without the characters to be replaced. Returns
/// nothing for any other text.
std::optional<EntryMask::Edit> EntryMask::editOf(const Characters& characters, std::size_t first,
                                                 std::size_t last) const {
    if (const auto cells = Reader(fields_, characters).read())
        return Edit(*this, *cells, first, last);
    if (const auto cells = readWithout(characters, first, last))
        return Edit(*this, *cells, first, first);
    return std::nullopt;
}

std::optional<std::vector<EntryMask::Cell>>
EntryMask::readWithout(Characters characters, std::size_t first, std::size_t last) const {
    const auto begin = characters.begin();
    characters.erase(begin + static_cast<std::ptrdiff_t>(first),
                     begin + static_cast<std::ptrdiff_t>(last));
    return Reader(fields_, characters).read();
}

EntryText EntryMask::erase(std::string_view text, std::size_t first, std::size_t last) const {
    const Characters characters = splitCharacters(text);
    last = std::min(last, characters.size());
    first = std::min(first, last);
    const auto cells = fields_.empty() ? std::nullopt : Reader(fields_, characters).read();
    if (!cells)
        return replaceFreely(text, first, last, {});
    const EntryText kept = Edit(*this, *cells, first, last).result();
    EntryText joined = replaceFreely(text, first, last, {});
    const bool takesLiterals = kept.text == text;
    const auto joinedCells = Reader(fields_, splitCharacters(joined.text)).read();
    const bool joins = takesLiterals && joinedCells &&
                       Edit(*this, *joinedCells, 0, 0).result().text == joined.text;
    return joins ? joined : kept;
}

EntryText EntryMask::eraseBefore(std::string_view text, std::size_t caret) const {
    for (std::size_t first = caret; first > 0; --first)
        if (EntryText erased = erase(text, first - 1, caret); erased.text != text)
            return erased;
    return {std::string(text), 0};
}

EntryText EntryMask::eraseAfter(std::string_view text, std::size_t caret) const {
    const std::size_t end = splitCharacters(text).size();
    for (std::size_t last = caret; last < end; ++last)
        if (EntryText erased = erase(text, caret, last + 1); erased.text != text)
            return erased;
    return {std::string(text), std::min(caret, end)};
}

} // namespace skyvert
