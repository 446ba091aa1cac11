#include "shell/EpochSelector.h"

#include <array>

namespace skyvert {

namespace {

// clang-format off
constexpr std::array<ControlLayout, 5> kLayout{{
    {"gbox",       "",      0,  0, 226, 102, kLockAll,     0, "Untitled"},
    {"epochLabel", "gbox", 20, 36,  42,  20, kLockTopLeft, 0, "Epoch:"},
    {"epochPopup", "gbox", 74, 38, 134,  20, kLockTopLeft, 1, ""},
    {"dateLabel",  "gbox", 20, 68,  42,  20, kLockTopLeft, 2, "Date:"},
    {"epochDate",  "gbox", 74, 67, 134,  23, kLockTopLeft, 3, ""},
}};
// clang-format on

} // namespace

EpochSelector::EpochSelector(const ControlLayout& layout, const Clock& clock, const Locale& locale)
    : ContainerControl(layout), gbox(layoutOf(kLayout, "gbox")),
      epochLabel(layoutOf(kLayout, "epochLabel")), epochPopup(layoutOf(kLayout, "epochPopup")),
      dateLabel(layoutOf(kLayout, "dateLabel")), epochDate(layoutOf(kLayout, "epochDate")),
      value_(*this, clock, locale) {
    setChildren({&gbox, &epochLabel, &epochPopup, &dateLabel, &epochDate});
    setTitle(layout.text);
    for (const std::string& row : epochRows())
        epochPopup.AddRow(row);
    epochPopup.setListIndex(0);
    dateLabel.setVisible(false);
    epochDate.setVisible(false);
    epochPopup.Change = [this](PopupMenu&) { value_.epochPopup_Change(); };
    epochDate.Open = [this] { epochDate_Open(); };
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
