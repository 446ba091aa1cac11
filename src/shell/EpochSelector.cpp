#include "shell/EpochSelector.h"

namespace skyvert {

EpochSelector::EpochSelector(const Place& place, const Clock& clock, const Locale& locale)
    : ContainerControl(place), value_(*this, clock, locale) {
    setTitle(place.layout.text);
    for (const std::string& row : epochRows())
        epochPopup.AddRow(row);
    epochPopup.setListIndex(0);
    dateLabel.setVisible(false);
    epochDate.setVisible(false);
    epochPopup.Change = [this](PopupMenu&) { value_.epochPopup_Change(); };
    wire(epochDate.Open, &EpochSelector::epochDate_Open);
    epochDate.ValueChanged = [this](DateControl&) { value_.epochDate_ValueChanged(); };
    value_.ValueChanged = [this](const Date& date) {
        if (ValueChanged)
            ValueChanged(*this, date);
    };
}

void EpochSelector::epochDate_Open() {
    epochDate.setDateValue(Date(2000, 1, 1));
}

} // namespace skyvert
