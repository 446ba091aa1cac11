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

/// The rows of the popup in their order: the presets, "JNow" and "Other".
std::vector<std::string> epochRows();

/// What an `EpochValue` reads and moves of the selector that shows it: a popup with the rows of
/// `epochRows`, and a date with its label.
class EpochView {
public:
    virtual ~EpochView() = default;

    /// The selected row of the popup, -1 for none. Selecting another row calls
    /// `EpochValue::epochPopup_Change`.
    virtual std::int64_t selectedRow() const = 0;
    virtual void selectRow(std::int64_t row) = 0;

    /// The date shown. Another date calls `EpochValue::epochDate_ValueChanged` while it is visible.
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

/// The epoch that a selector stands for: how the choice of a preset, of the present day or of a
/// free date becomes an epoch, and the text in which the choice is stored between runs.
///
/// The letters B and J belong to the presets' names only: each preset is 1 January of its year.
class EpochValue {
public:
    /// The view and the clock outlive the object. Until an epoch is assigned or restored there is
    /// none, whatever the view shows.
    EpochValue(EpochView& view, const Clock& clock, Locale locale);

    /// Runs when the user's choice, or a restore, has made this the epoch.
    std::function<void(const Date&)> ValueChanged;

    /// The current epoch. It does not follow the clock: "JNow" is the moment of its selection.
    const std::optional<Date>& epoch() const { return mepoch_; }

    /// Makes `date` the epoch and selects the row that stands for its day, else "Other". On the
    /// day that is the epoch already, nothing changes, not even the row. Raises no `ValueChanged`.
    void setEpoch(const Date& date);

    /// The epoch as a year with a fraction, every year counted as 365.25 days; 0.0 without epoch.
    double epochYear() const;

    /// Makes the day nearest to the year and its fraction the epoch, at the present clock time.
    /// February counts 28 days in every year; past them all it is 31 December.
    void setEpochYear(double year);

    /// The Julian date of 0h of the epoch's day. Throws `std::logic_error` without an epoch.
    double epochJulian() const;
    void setEpochJulian(double julianDate);

    /// The selection as JSON: the popup's row and the day in the date control, whichever row is
    /// selected, for instance `{"epochPopup":2,"epochDate":"2000-01-01"}`.
    std::string serialised() const;

    /// Restores a selection. The empty text, as a member that is missing, stands for "J2000.0" and
    /// the present day in the date control. Throws `std::invalid_argument`, with nothing changed,
    /// for a text that is no JSON object, a row that is none and a date that is none.
    void setSerialised(std::string_view text);

    /// To be called when another row of the popup has been selected.
    void epochPopup_Change();

    /// To be called when the date in the date control has changed.
    void epochDate_ValueChanged();

    /// Sets the help tag of the popup: the epoch's year with one decimal, or nothing on the day of
    /// a preset, whose name says as much. Throws `std::logic_error` without an epoch.
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
    Locale locale_;
    std::optional<Date> mepoch_;
    double julianDate_ = 0.0; ///< of 0h of `mepoch_`, if it has a value
    bool setting_ = false;    ///< true while `setEpoch` moves the view
};

} // namespace skyvert
