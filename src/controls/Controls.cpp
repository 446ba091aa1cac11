#include "controls/Controls.h"

#include <stdexcept>

namespace skyvert {

Control::Control(const Place& place)
    : layout_(place.layout), group_(place.group), name_(place.layout.name) {
    if (place.owner != nullptr)
        place.owner->children_.push_back(this);
}

void Control::setView(ControlView* view) {
    view_ = view;
    refreshView();
}

void Control::refreshView() {
    if (view_ != nullptr)
        view_->refresh();
}

void Control::SetFocus() {
    if (view_ != nullptr)
        view_->takeFocus();
}

void Control::open() {
    if (Open)
        Open();
}

void Control::close() {
    raiseClose();
}

void PushButton::press() {
    if (enabled() && Action)
        Action(*this);
}

void CheckBox::setState(State state) {
    if (assign(state_, state) && Action)
        Action(*this);
}

void TextField::setText(std::string_view text) {
    if (assign(text_, text) && TextChange)
        TextChange(*this);
}

const std::string& PopupMenu::List(std::int64_t row) const {
    if (row < 0 || row >= ListCount())
        throw std::out_of_range(name() + " has no row " + std::to_string(row));
    return rows_[static_cast<std::size_t>(row)];
}

void PopupMenu::setListIndex(std::int64_t row) {
    if (row < -1 || row >= ListCount())
        throw std::out_of_range(name() + " has no row " + std::to_string(row));
    if (assign(listIndex_, row) && Change)
        Change(*this);
}

void PopupMenu::AddRow(std::string_view text) {
    rows_.emplace_back(text);
    refreshView();
}

void PopupMenu::DeleteAllRows() {
    rows_.clear();
    const bool hadSelection = listIndex_ != -1;
    listIndex_ = -1;
    refreshView();
    if (hadSelection && Change)
        Change(*this);
}

void DateControl::setDateValue(const Date& date) {
    if (date.SQLDate() == date_.SQLDate())
        return;
    date_ = date;
    refreshView();
    if (visible() && ValueChanged)
        ValueChanged(*this);
}

void ContainerControl::open() {
    for (Control* const each : children_)
        each->open();
    Control::open();
}

void ContainerControl::close() {
    for (Control* const each : children_)
        each->close();
    Control::close();
}

} // namespace skyvert
