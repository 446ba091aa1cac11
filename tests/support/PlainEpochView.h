#pragma once

#include "epochs/EpochValue.h"

#include <algorithm>
#include <utility>

namespace skyvert {

/// A selector of plain fields, which does what its user does and counts what its owner hears.
struct PlainEpochView : EpochView {
    struct StoppedClock : Clock {
        Date now() const override { return moment; }

        Date moment{2026, 11, 16, 21, 5, 9};
    };

    explicit PlainEpochView(bool reportsAssignedDates = true, const Locale& locale = {",", "."})
        : reportsDates(reportsAssignedDates), value(*this, clock, locale) {
        value.ValueChanged = [this](const Date& date) { heard += date.SQLDate() + " "; };
    }

    int epochPopupListIndex() const override { return row; }

    void setEpochPopupListIndex(int index) override {
        if (std::exchange(row, index) != index)
            value.epochPopup_Change();
    }

    std::string epochPopupValue() const override {
        return row < 0 ? "" : rows.at(static_cast<std::size_t>(row));
    }

    void setEpochPopupValue(std::string_view text) override {
        setEpochPopupListIndex(static_cast<int>(std::ranges::find(rows, text) - rows.begin()));
    }

    Date epochDateDateValue() const override { return shown; }

    void setEpochDateDateValue(const Date& date) override {
        shown = date;
        if (reportsDates)
            value.epochDate_ValueChanged();
    }

    void setEpochDateVisible(bool visible) override { dateVisible = visible; }

    void setDateLabelVisible(bool visible) override { labelVisible = visible; }

    void setEpochPopupHelpTag(const std::string& text) override { helpTag = text; }

    void pickDate(const Date& date) {
        shown = date;
        value.epochDate_ValueChanged();
    }

    const std::vector<std::string> rows = epochRows();
    bool reportsDates;
    int row = 0;
    Date shown{2000, 1, 1};
    bool dateVisible = false;
    bool labelVisible = false;
    std::string helpTag = "unset";
    std::string heard; ///< every day that was told, ended by a blank
    StoppedClock clock;
    EpochValue value;
};

} // namespace skyvert
