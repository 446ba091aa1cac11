#pragma once

#include "platform/Clock.h"
#include "platform/Date.h"
#include "platform/Locale.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace skyvert {

/// The rows of the popup: the presets, "JNow" and "Other".
std::vector<std::string> epochRows();

/// The part of the epoch selector that an `EpochValue` reads and changes: a popup with the rows of
/// `epochRows`, and a date with its label.
class EpochView {
public:
    virtual ~EpochView() = default;

    /// The selected row of the popup, -1 for none. Selecting another row calls
    /// `EpochValue::epochPopup_Change`.
    virtual std::int64_t selectedRow() const = 0;
    virtual void selectRow(std::int64_t row) = 0;

    /// The date shown. Showing another one calls `EpochValue::epochDate_ValueChanged` if the date
    /// is visible.
    virtual const Date& shownDate() const = 0;
    virtual void showDate(const Date& date) = 0;

    virtual void setDateVisible(bool visible) = 0;
    virtual void setDateLabelVisible(bool visible) = 0;

    /// Sets the help tag of the popup.
    virtual void setPopupHelpTag(std::string_view text) = 0;

protected:
    EpochView() = default;
    EpochView(const EpochView&) = default;
    EpochView& operator=(const EpochView&) = default;
};

/// The epoch of a selector: turns a preset, the current day or a chosen date into an epoch, and
/// stores the selection as text between runs.
///
/// "B" and "J" are only part of a preset's name: each preset is 1 January of its year.
class EpochValue {
public:
    /// The view, the clock and the locale must outlive the object. There is no epoch until one is
    /// assigned, selected or restored, whatever the view shows.
    EpochValue(EpochView& view, const Clock& clock, const Locale& locale);
    EpochValue(EpochView&, const Clock&, const Locale&&) = delete;

    /// Runs after the user or a restored selection has set the epoch.
    std::function<void(const Date&)> ValueChanged;

    /// The current epoch. It does not follow the clock: "JNow" is the moment of its selection.
    const std::optional<Date>& epoch() const { return mepoch_; }

    /// Sets the epoch and selects the row of its day, or "Other". If the epoch is on that day
    /// already, nothing changes, not even the row. Does not raise `ValueChanged`.
    void setEpoch(const Date& date);

    /// The epoch as a year with a fraction, in years of 365.25 days; 0.0 without an epoch.
    double epochYear() const;

    /// Sets the epoch to the day nearest to a year with a fraction, at the current time of day.
    /// February has 28 days in every year; a day after the last one becomes 31 December.
    void setEpochYear(double year);

    /// The Julian date of 0h of the epoch's day. Throws `std::logic_error` without an epoch.
    double epochJulian() const;
    void setEpochJulian(double julianDate);

    /// The selection as JSON: the row of the popup, and the day in the date control, whichever row
    /// is selected. For instance `{"epochPopup":2,"epochDate":"2000-01-01"}`.
    std::string serialised() const;

    /// Restores a selection. For the empty text and for missing members the defaults are "J2000.0"
    /// and the current day in the date control. Throws `std::invalid_argument` and changes nothing
    /// if the text is not a JSON object or names a row or date that does not exist.
    void setSerialised(std::string_view text);

    /// The view calls this after the selected row of the popup has changed.
    void epochPopup_Change();

    /// The view calls this after the date in the date control has changed.
    void epochDate_ValueChanged();

    /// Sets the help tag of the popup to the epoch's year with one decimal, or clears it on the day
    /// of a preset, whose name shows the year. Throws `std::logic_error` without an epoch.
    void SetHelpTag();

private:
    const Date& currentEpoch() const;
    void become(const Date& date);
    Date dateOfRow(std::int64_t row, const Date& other) const;
    std::int64_t rowOfDay(const Date& date) const;
    bool isCurrentDay(const Date& date) const;
    void raiseValueChanged() const;

    EpochView& view_;
    const Clock& clock_;
    const Locale& locale_;
    std::optional<Date> mepoch_;
    double julianDate_ = 0.0; ///< of 0h of `mepoch_`
    bool setting_ = false;    ///< true while `setEpoch` changes the view
};

} // namespace skyvert
