#pragma once

#include "epochs/EpochValue.h"
#include "shell/Popup.h"

#include <functional>
#include <string>
#include <string_view>

namespace skyvert {

/// The composite control that selects one epoch: a popup of presets and, for the row "Other", a
/// date. `EpochValue` decides what a choice means; this class shows it.
class EpochSelector : public ContainerControl, private EpochView {
public:
    EpochSelector(const Place& place, const Clock& clock, const Locale& locale);
    EpochSelector(const Place&, const Clock&, const Locale&&) = delete;

    /// The caption of the frame.
    const std::string& title() const { return gbox.caption(); }

    void setTitle(std::string_view title) { gbox.setCaption(title); }

    /// The current epoch; none until one is assigned or restored.
    const std::optional<Date>& epoch() const { return value_.epoch(); }

    void setEpoch(const Date& date) { value_.setEpoch(date); }

    double epochYear() const { return value_.epochYear(); }

    void setEpochYear(double year) { value_.setEpochYear(year); }

    double epochJulian() const { return value_.epochJulian(); }

    void setEpochJulian(double julianDate) { value_.setEpochJulian(julianDate); }

    std::string serialised() const { return value_.serialised(); }

    /// Throws `std::invalid_argument` if the text is not a stored epoch.
    void setSerialised(std::string_view text) { value_.setSerialised(text); }

    /// Refreshes the tooltip of the popup.
    void SetHelpTag() { value_.SetHelpTag(); }

    /// Runs when a choice of the user, or a restore, has changed the epoch.
    std::function<void(EpochSelector&, const Date&)> ValueChanged;

    // clang-format off
    GroupBox    gbox      {child({"gbox",               0,   0, 226, 102, "Untitled", kLockAll})};
    Label       epochLabel{child(gbox, {"epochLabel",  20,  36,  42,  20, "Epoch:"})};
    Popup       epochPopup{child(gbox, {"epochPopup",  74,  38, 134,  20})};
    Label       dateLabel {child(gbox, {"dateLabel",   20,  68,  42,  20, "Date:"})};
    DateControl epochDate {child(gbox, {"epochDate",   74,  67, 134,  23})};
    // clang-format on

private:
    void epochDate_Open();

    std::int64_t selectedRow() const override { return epochPopup.listIndex(); }

    void selectRow(std::int64_t row) override { epochPopup.setListIndex(row); }

    const Date& shownDate() const override { return epochDate.dateValue(); }

    void showDate(const Date& date) override { epochDate.setDateValue(date); }

    void setDateVisible(bool visible) override { epochDate.setVisible(visible); }

    void setDateLabelVisible(bool visible) override { dateLabel.setVisible(visible); }

    void setPopupHelpTag(std::string_view text) override { epochPopup.setHelpTag(text); }

    EpochValue value_;
};

} // namespace skyvert
