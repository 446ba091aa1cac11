#include "notation/PastedPosition.h"

#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <functional>
#include <numeric>
#include <utility>
#include <vector>

namespace skyvert {

namespace {

/// No position is longer. Keeps a large text on the clipboard from being searched.
constexpr std::size_t kLongestText = 100;

constexpr std::size_t kLongestNumber = 3; ///< in digits; a longer run is several numbers

/// The marks that may follow the first, second and third number; "d" is the degree sign, too.
constexpr std::array<std::string_view, 3> kUnits{"hd:", "m':", "s\""};

constexpr std::string_view kBetweenCoordinates = " \t,;";

/// The numbers that a mask asks for; none for the empty mask.
struct Shape {
    explicit Shape(std::string_view mask);

    bool takesAny() const { return widths.empty(); }

    std::size_t digits() const { return std::reduce(widths.begin(), widths.end()); }

    /// Only declination has a sign; a first number of three digits is in degrees.
    bool isInDegrees() const { return isSigned || (!takesAny() && widths.front() == 3); }

    bool isSigned = false;
    std::vector<std::size_t> widths;     ///< of each number, in digits
    std::vector<std::string> separators; ///< before each number
    std::size_t decimals = 0;

private:
    void addNumbers(std::size_t digits, std::string separator);
};

Shape::Shape(std::string_view mask) {
    std::size_t run = 0;
    std::string separator;
    for (; !mask.empty(); mask.remove_prefix(1)) {
        const char element = mask.front();
        isSigned |= element == '&';
        run += element == '#' ? 1 : 0;
        decimals += element == '9' ? 1 : 0;
        if (element != '\\' && element != '.')
            continue;
        addNumbers(std::exchange(run, 0), separator);
        if (element == '\\') {
            separator = Mid(mask, 2, 1);
            mask.remove_prefix(separator.size());
        }
    }
    addNumbers(run, separator);
}

/// Adds a run of digits. If it is several numbers, all but the first have two digits.
void Shape::addNumbers(std::size_t digits, std::string separator) {
    std::size_t width = digits <= kLongestNumber ? digits : 2 + digits % 2;
    while (digits > 0) {
        widths.push_back(width);
        separators.push_back(std::exchange(separator, {}));
        digits -= width;
        width = 2;
    }
}

/// A coordinate as it was written.
struct Coordinate {
    std::string sign;
    std::vector<std::string_view> numbers; ///< the digits of each, before the decimals
    std::string decimals;                  ///< of the last number, with their separator
    char unit = '\0';                      ///< the mark of `kUnits` after the first number
};

/// Reads a whole text as one coordinate.
class CoordinateReader {
public:
    explicit CoordinateReader(std::string_view text) : rest_(text) {}

    std::optional<Coordinate> read() {
        skipBlanks();
        if (const char sign = takeOneOf("+-"))
            read_.sign = sign;
        skipBlanks();
        for (const std::string_view units : kUnits) {
            const std::string_view digits = takeDigits();
            if (digits.empty())
                return std::nullopt;
            read_.numbers.push_back(digits);
            const bool isSeparated = readEndOfNumber(units);
            if (rest_.empty())
                return read_;
            if (!isSeparated || !read_.decimals.empty())
                return std::nullopt;
        }
        return std::nullopt;
    }

private:
    /// Reads what may follow the digits of a number, including decimals after the mark, as in
    /// 31s.97. Returns whether a mark or blank has ended the number.
    bool readEndOfNumber(std::string_view units) {
        takeDecimals();
        const bool isBlankBefore = skipBlanks();
        const char unit = takeOneOf(units);
        if (read_.numbers.size() == 1)
            read_.unit = unit;
        if (unit != '\0' && unit != ':')
            takeDecimals();
        const bool isBlankAfter = skipBlanks();
        return unit != '\0' || isBlankBefore || isBlankAfter;
    }

    void takeDecimals() {
        if (!read_.decimals.empty())
            return;
        if (const char point = takeOneOf(".,"))
            (read_.decimals = point) += takeDigits();
    }

    bool skipBlanks() {
        const std::size_t blanks = std::min(rest_.find_first_not_of(' '), rest_.size());
        rest_.remove_prefix(blanks);
        return blanks > 0;
    }

    /// The next byte in lower case if it is one of `wanted`, else NUL.
    char takeOneOf(std::string_view wanted) {
        if (rest_.empty() || wanted.find(lowered(rest_.front())) == std::string_view::npos)
            return '\0';
        const char taken = lowered(rest_.front());
        rest_.remove_prefix(1);
        return taken;
    }

    std::string_view takeDigits() {
        const auto end = std::find_if_not(rest_.begin(), rest_.end(), isDigit);
        const auto length = static_cast<std::size_t>(end - rest_.begin());
        const std::string_view digits = rest_.substr(0, length);
        rest_.remove_prefix(length);
        return digits;
    }

    std::string_view rest_;
    Coordinate read_;
};

/// Splits a single run of digits into the numbers of a shape if it has as many digits as all of
/// them.
void separateNumbers(Coordinate& coordinate, const Shape& shape) {
    if (coordinate.numbers.size() != 1 || coordinate.numbers[0].size() != shape.digits())
        return;
    std::string_view digits = coordinate.numbers[0];
    coordinate.numbers.clear();
    for (const std::size_t width : shape.widths) {
        coordinate.numbers.push_back(digits.substr(0, width));
        digits.remove_prefix(width);
    }
}

bool fits(const Coordinate& coordinate, const Shape& shape) {
    const std::size_t count = coordinate.numbers.size();
    const char otherUnit = shape.isInDegrees() ? 'h' : 'd';
    const auto isTooLong = [](std::string_view number, std::size_t width) {
        return number.size() > width;
    };
    return count <= shape.widths.size() && coordinate.unit != otherUnit &&
           (shape.isSigned || coordinate.sign.empty()) &&
           (count == shape.widths.size() || coordinate.decimals.empty()) &&
           std::equal(coordinate.numbers.begin(), coordinate.numbers.end(), shape.widths.begin(),
                      std::not_fn(isTooLong));
}

std::string write(const Coordinate& coordinate, const Shape& shape) {
    std::string text = coordinate.sign;
    if (shape.takesAny())
        return text.append(coordinate.numbers[0]).append(coordinate.decimals);
    for (std::size_t i = 0; i < coordinate.numbers.size(); ++i) {
        text += shape.separators[i];
        text += zeroPadded(coordinate.numbers[i], shape.widths[i]);
    }
    return text += coordinate.decimals.substr(0, 1 + shape.decimals);
}

/// The text with each mark as the single character of `kUnits`.
std::string withPlainMarks(std::string_view text) {
    return ReplaceAll(ReplaceAll(text, "°", "d"), "''", "\"");
}

std::string_view trimmed(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(kBetweenCoordinates), text.size()));
    return text.substr(0, text.find_last_not_of(kBetweenCoordinates) + 1);
}

std::optional<Coordinate> readFor(const Shape& shape, std::string_view text) {
    std::optional<Coordinate> coordinate = CoordinateReader(text).read();
    if (coordinate)
        separateNumbers(*coordinate, shape);
    return coordinate;
}

/// Whether a coordinate has every number of its mask.
bool isWhole(const std::optional<Coordinate>& coordinate, const Shape& shape) {
    if (coordinate && shape.takesAny())
        return coordinate->numbers.size() == 1 && coordinate->unit == '\0';
    return coordinate && coordinate->numbers.size() == shape.widths.size() &&
           fits(*coordinate, shape);
}

/// The coordinates before and from `at`, if both are complete.
std::optional<PositionTexts> splitAt(std::string_view text, std::size_t at, const Shape& raShape,
                                     const Shape& decShape) {
    const auto ra = readFor(raShape, trimmed(text.substr(0, at)));
    const auto dec = readFor(decShape, trimmed(text.substr(at)));
    if (!isWhole(ra, raShape) || !isWhole(dec, decShape))
        return std::nullopt;
    const bool isPlain = !dec->sign.empty() || !ra->decimals.empty();
    if (!isPlain && (raShape.takesAny() || decShape.takesAny()))
        return std::nullopt;
    return PositionTexts{write(*ra, raShape),
                         (dec->sign.empty() ? "+" : "") + write(*dec, decShape)};
}

} // namespace

std::optional<std::string> fitToMask(std::string_view pasted, std::string_view mask) {
    if (pasted.size() > kLongestText)
        return std::nullopt;
    const Shape shape(mask);
    const std::string text = withPlainMarks(pasted);
    const std::optional<Coordinate> coordinate = readFor(shape, text);
    return coordinate && fits(*coordinate, shape) ? std::optional(write(*coordinate, shape))
                                                  : std::nullopt;
}

std::optional<PositionTexts> splitPosition(std::string_view pasted, std::string_view raMask,
                                           std::string_view decMask) {
    if (pasted.size() > kLongestText)
        return std::nullopt;
    const Shape raShape(raMask);
    const Shape decShape(decMask);
    const std::string text = withPlainMarks(pasted);
    const std::string cuts = std::string(kBetweenCoordinates) + "+-";
    for (std::size_t at = text.find_first_of(cuts, 1); at < text.size();
         at = text.find_first_of(cuts, at + 1)) {
        if (auto position = splitAt(text, at, raShape, decShape))
            return position;
    }
    return std::nullopt;
}

} // namespace skyvert
