#include "epochs/EpochValue.h"

#include "epochs/JulianDate.h"
#include "platform/Json.h"
#include "platform/Number.h"
#include "platform/SettingGuard.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace skyvert {

namespace {

struct Preset {
    std::string_view name;
    std::int64_t year;

    Date date() const { return {year, 1, 1}; }
};

constexpr Preset kPresets[] = {
    {"B1900.0", 1900}, {"B1950.0", 1950}, {"J2000.0", 2000}, {"J2050.0", 2050}};
constexpr std::int64_t kNowRow = std::size(kPresets); ///< the row after the presets
constexpr std::int64_t kOtherRow = kNowRow + 1;
constexpr std::string_view kDefaultPreset = "J2000.0";

constexpr double kDaysPerYear = 365.25;

constexpr const char* kPopupMember = "epochPopup";
constexpr const char* kDateMember = "epochDate";

/// The row of the first preset that `matches`, or `otherwise`.
template <typename Matches>
std::int64_t presetRow(Matches matches, std::int64_t otherwise) {
    const Preset* found = std::find_if(std::begin(kPresets), std::end(kPresets), matches);
    return found == std::end(kPresets) ? otherwise : found - std::begin(kPresets);
}

/// The row of the preset with the same day as `date`, or `otherwise`.
std::int64_t presetRowOfDay(const Date& date, std::int64_t otherwise) {
    const std::string day = date.SQLDate();
    return presetRow([&](const Preset& preset) { return preset.date().SQLDate() == day; },
                     otherwise);
}

/// The stored row, -1 for no selection. Throws `std::invalid_argument` if there is no such row.
std::int64_t storedRow(const JsonObject& stored) {
    const auto isDefault = [](const Preset& preset) { return preset.name == kDefaultPreset; };
    const std::int64_t row = stored.integer(kPopupMember).value_or(presetRow(isDefault, -1));
    if (row < -1 || row > kOtherRow)
        throw std::invalid_argument("the row of the stored epoch does not exist");
    return row;
}

} // namespace

std::vector<std::string> epochRows() {
    std::vector<std::string> rows;
    rows.reserve(kOtherRow + 1);
    for (const Preset& preset : kPresets)
        rows.emplace_back(preset.name);
    rows.emplace_back("JNow");
    rows.emplace_back("Other");
    return rows;
}

EpochValue::EpochValue(EpochView& view, const Clock& clock, const Locale& locale)
    : view_(view), clock_(clock), locale_(locale) {}

const Date& EpochValue::currentEpoch() const {
    if (!mepoch_)
        throw std::logic_error("no epoch has been assigned yet");
    return *mepoch_;
}

/// Computes the Julian date once, since each row of an import reads it.
void EpochValue::become(const Date& date) {
    mepoch_ = date;
    julianDate_ = DateToJulian(date);
}

bool EpochValue::isCurrentDay(const Date& date) const {
    return mepoch_ && mepoch_->SQLDate() == date.SQLDate();
}

std::int64_t EpochValue::rowOfDay(const Date& date) const {
    const bool isToday = date.SQLDate() == clock_.now().SQLDate();
    return presetRowOfDay(date, isToday ? kNowRow : kOtherRow);
}

/// The date of a preset row or of "JNow", otherwise `other`.
Date EpochValue::dateOfRow(std::int64_t row, const Date& other) const {
    if (row >= 0 && row < kNowRow)
        return kPresets[row].date();
    return row == kNowRow ? clock_.now() : other;
}

/// Passes a copy, which stays valid if the handler assigns an epoch.
void EpochValue::raiseValueChanged() const {
    if (ValueChanged)
        ValueChanged(Date(currentEpoch()));
}

void EpochValue::setEpoch(const Date& date) {
    if (isCurrentDay(date))
        return;
    const SettingGuard guard(setting_);
    const std::int64_t row = rowOfDay(date);
    view_.selectRow(row);
    if (row == kOtherRow)
        view_.showDate(date);
    const bool isOther = view_.selectedRow() == kOtherRow;
    view_.setDateVisible(isOther);
    view_.setDateLabelVisible(isOther);
    become(date);
    SetHelpTag();
}

double EpochValue::epochYear() const {
    if (!mepoch_)
        return 0.0;
    return (static_cast<double>(mepoch_->DayOfYear()) - 1.0) / kDaysPerYear +
           static_cast<double>(mepoch_->year);
}

void EpochValue::setEpochYear(double year) {
    static constexpr std::array<std::int64_t, 12> monthLengths{31, 28, 31, 30, 31, 30,
                                                               31, 31, 30, 31, 30, 31};
    Date date = clock_.now();
    date.year = Int(year);
    const double fraction = year - static_cast<double>(date.year);
    std::int64_t day = truncated(Round(fraction * kDaysPerYear) + 1.0);
    date.month = 1;
    for (const std::int64_t length : monthLengths) {
        if (day <= length) {
            date.day = day;
            setEpoch(date);
            return;
        }
        day -= length;
        ++date.month;
    }
    setEpoch(Date(date.year, 12, 31));
}

double EpochValue::epochJulian() const {
    currentEpoch();
    return julianDate_;
}

void EpochValue::setEpochJulian(double julianDate) {
    setEpoch(JulianToDate(julianDate));
}

std::string EpochValue::serialised() const {
    JsonObject stored;
    stored.add(kPopupMember, view_.selectedRow());
    stored.add(kDateMember, view_.shownDate().SQLDate());
    return stored.toString();
}

void EpochValue::setSerialised(std::string_view text) {
    const JsonObject stored = text.empty() ? JsonObject() : JsonObject::parse(text);
    const std::int64_t row = storedRow(stored);
    Date date = clock_.now();
    date.setSQLDate(stored.text(kDateMember).value_or(date.SQLDate()));
    view_.selectRow(row);
    view_.showDate(date);
    // The handlers of these assignments may have run before the date control had its date.
    become(dateOfRow(view_.selectedRow(), date));
}

void EpochValue::epochPopup_Change() {
    const std::int64_t row = view_.selectedRow();
    if (setting_ || row < 0)
        return;
    become(dateOfRow(row, view_.shownDate()));
    view_.setDateLabelVisible(row == kOtherRow);
    view_.setDateVisible(row == kOtherRow);
    SetHelpTag();
    raiseValueChanged();
}

void EpochValue::epochDate_ValueChanged() {
    const Date date = view_.shownDate();
    if (isCurrentDay(date))
        return;
    become(date);
    SetHelpTag();
    if (!setting_)
        raiseValueChanged();
}

void EpochValue::SetHelpTag() {
    const bool isPreset = presetRowOfDay(currentEpoch(), -1) >= 0;
    view_.setPopupHelpTag(isPreset ? "" : Format(epochYear(), "0.0", locale_));
}

} // namespace skyvert
