#include "epochs/EpochValue.h"

#include "epochs/JulianDate.h"
#include "platform/Json.h"
#include "platform/Number.h"
#include "platform/SettingGuard.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>
#include <utility>

namespace skyvert {

namespace {

struct Preset {
    std::string_view name;
    std::int64_t year;

    Date date() const { return {year, 1, 1}; }
};

constexpr Preset kPresets[] = {
    {"B1900.0", 1900}, {"B1950.0", 1950}, {"J2000.0", 2000}, {"J2050.0", 2050}};
constexpr std::string_view kNow = "JNow";
constexpr std::string_view kOther = "Other";
constexpr std::string_view kDefaultRow = "J2000.0";

constexpr double kDaysPerYear = 365.25;

constexpr const char* kPopupMember = "epochPopup";
constexpr const char* kDateMember = "epochDate";

template <typename Matches>
const Preset* findPreset(Matches matches) {
    const Preset* found = std::find_if(std::begin(kPresets), std::end(kPresets), matches);
    return found == std::end(kPresets) ? nullptr : found;
}

const Preset* presetOfDay(const Date& date) {
    const std::string day = date.SQLDate();
    return findPreset([&](const Preset& preset) { return preset.date().SQLDate() == day; });
}

/// The text of a row, or none for a number that is no row.
std::string rowText(int row) {
    const std::vector<std::string> rows = epochRows();
    return row >= 0 && row < std::ssize(rows) ? rows[static_cast<std::size_t>(row)] : "";
}

int defaultRow() {
    const std::vector<std::string> rows = epochRows();
    return static_cast<int>(std::find(rows.begin(), rows.end(), kDefaultRow) - rows.begin());
}

/// The row that a stored text names; -1 stands for no selection.
int storedRow(const JsonObject& stored) {
    const std::int64_t row = stored.integer(kPopupMember).value_or(defaultRow());
    if (row < -1 || row >= std::ssize(epochRows()))
        throw std::invalid_argument("the stored epoch names no row");
    return static_cast<int>(row);
}

} // namespace

std::vector<std::string> epochRows() {
    std::vector<std::string> rows;
    rows.reserve(std::size(kPresets) + 2);
    for (const Preset& preset : kPresets)
        rows.emplace_back(preset.name);
    rows.emplace_back(kNow);
    rows.emplace_back(kOther);
    return rows;
}

EpochValue::EpochValue(EpochView& view, const Clock& clock, Locale locale)
    : view_(view), clock_(clock), locale_(std::move(locale)) {}

const Date& EpochValue::currentEpoch() const {
    if (!mepoch_)
        throw std::logic_error("no epoch has been assigned yet");
    return *mepoch_;
}

/// The Julian date is worked out with the epoch and not at each reading: every row asks for it.
void EpochValue::become(const Date& date) {
    mepoch_ = date;
    julianDate_ = DateToJulian(date);
}

bool EpochValue::isCurrentDay(const Date& date) const {
    return mepoch_ && mepoch_->SQLDate() == date.SQLDate();
}

std::string_view EpochValue::rowOfDay(const Date& date) const {
    if (const Preset* preset = presetOfDay(date))
        return preset->name;
    return date.SQLDate() == clock_.now().SQLDate() ? kNow : kOther;
}

/// The date that the row of a text stands for, `other` being the one of every row that has none.
Date EpochValue::dateOfRow(std::string_view row, const Date& other) const {
    if (const Preset* preset = findPreset([&](const Preset& p) { return p.name == row; }))
        return preset->date();
    return row == kNow ? clock_.now() : other;
}

/// The owner is handed a copy, which stands even if it assigns an epoch of its own.
void EpochValue::raiseValueChanged() const {
    if (ValueChanged)
        ValueChanged(Date(currentEpoch()));
}

void EpochValue::setEpoch(const Date& date) {
    if (isCurrentDay(date))
        return;
    const SettingGuard guard(setting_);
    const std::string_view row = rowOfDay(date);
    view_.setEpochPopupValue(row);
    if (row == kOther)
        view_.setEpochDateDateValue(date);
    const bool isOther = view_.epochPopupValue() == kOther;
    view_.setEpochDateVisible(isOther);
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
    stored.add(kPopupMember, std::int64_t{view_.epochPopupListIndex()});
    stored.add(kDateMember, view_.epochDateDateValue().SQLDate());
    return stored.toString();
}

void EpochValue::setSerialised(std::string_view text) {
    const JsonObject stored = text.empty() ? JsonObject() : JsonObject::parse(text);
    const int row = storedRow(stored);
    Date date = clock_.now();
    date.setSQLDate(stored.text(kDateMember).value_or(date.SQLDate()));
    view_.setEpochPopupListIndex(row);
    view_.setEpochDateDateValue(date);
    // The handlers have run in between, on a date control that was not filled yet.
    become(dateOfRow(rowText(view_.epochPopupListIndex()), date));
}

void EpochValue::epochPopup_Change() {
    if (setting_ || view_.epochPopupListIndex() < 0)
        return;
    const std::string row = view_.epochPopupValue();
    become(dateOfRow(row, view_.epochDateDateValue()));
    view_.setDateLabelVisible(row == kOther);
    view_.setEpochDateVisible(row == kOther);
    SetHelpTag();
    raiseValueChanged();
}

void EpochValue::epochDate_ValueChanged() {
    const Date date = view_.epochDateDateValue();
    if (isCurrentDay(date))
        return;
    become(date);
    SetHelpTag();
    if (!setting_)
        raiseValueChanged();
}

void EpochValue::SetHelpTag() {
    const bool isPreset = presetOfDay(currentEpoch()) != nullptr;
    view_.setEpochPopupHelpTag(isPreset ? "" : Format(epochYear(), "0.0", locale_));
}

} // namespace skyvert
