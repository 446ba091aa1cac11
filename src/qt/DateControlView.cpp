#include "qt/DateControlView.h"

#include "notation/LookAlikes.h"

#include <QAction>
#include <QCalendarWidget>
#include <QPainter>
#include <QScreen>
#include <QStyleOption>
#include <QWheelEvent>

#include <algorithm>

namespace skyvert {

namespace {

constexpr int kWheelStep = 120; ///< one notch, in Qt's units
constexpr int kManySteps = 10;
const char* const kCue = "YYYY-MM-DD";
const char* const kReason = "This is not a date as YYYY-MM-DD, from 0100-01-01 to 9999-12-31.";

QDate firstDay() {
    return {Date::kFirstTypedYear, 1, 1};
}

QDate lastDay() {
    return {Date::kLastTypedYear, 12, 31};
}

/// The day itself, or the nearest one that can be typed.
QDate nearestDay(const Date& date) {
    if (date.year < firstDay().year())
        return firstDay();
    if (date.year > lastDay().year())
        return lastDay();
    return {static_cast<int>(date.year), static_cast<int>(date.month), static_cast<int>(date.day)};
}

Date dateOf(QDate day) {
    return {day.year(), day.month(), day.day()};
}

QDate moved(QDate day, qsizetype section, int steps) {
    const QDate there = section == 0   ? day.addYears(steps)
                        : section == 1 ? day.addMonths(steps)
                                       : day.addDays(steps);
    return std::clamp(there, firstDay(), lastDay());
}

/// The steps for a key that steps through days, months or years; 0 for any other key.
int stepsOf(int key) {
    switch (key) {
    case Qt::Key_Up:
        return 1;
    case Qt::Key_Down:
        return -1;
    case Qt::Key_PageUp:
        return kManySteps;
    case Qt::Key_PageDown:
        return -kManySteps;
    default:
        return 0;
    }
}

/// The down arrow of the widget's style.
QIcon arrowIcon(const QWidget& widget) {
    constexpr int kSize = 16;
    QPixmap picture(QSize(kSize, kSize) * widget.devicePixelRatio());
    picture.setDevicePixelRatio(widget.devicePixelRatio());
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    QStyleOption option;
    option.initFrom(&widget);
    option.rect = QRect(kSize / 4, kSize / 4, kSize / 2, kSize / 2);
    widget.style()->drawPrimitive(QStyle::PE_IndicatorArrowDown, &option, &painter, &widget);
    return picture;
}

/// The position of a popup below the field, or above it if the screen has no room below.
QPoint placeBeside(const QWidget& field, const QWidget& popup) {
    const QPoint below = field.mapToGlobal(field.rect().bottomLeft());
    const int height = popup.sizeHint().height();
    const bool fits = below.y() + height <= field.screen()->availableGeometry().bottom();
    return fits ? below : field.mapToGlobal(QPoint(0, -height));
}

/// Whether the focus moves to a menu or another window, or back from it, so that typing continues
/// after that.
bool isBreak(Qt::FocusReason reason) {
    return reason == Qt::MenuBarFocusReason || reason == Qt::PopupFocusReason ||
           reason == Qt::ActiveWindowFocusReason;
}

} // namespace

DateControlView::DateControlView(DateControl& control, const Desktop& desktop, QWidget* parent)
    : WidgetView(control, desktop, parent) {
    setFold([](std::string_view text) { return foldedLookAlikes(text); });
    setPlaceholderText(kCue);
    QAction* const calendar = addAction(arrowIcon(*this), TrailingPosition);
    calendar->setText("Calendar");
    connect(calendar, &QAction::triggered, this, [this] { openCalendar(); });
    connect(this, &MaskedLineEdit::edited, this, [this] {
        showValidity(true);
        // Without the focus, the text comes from assistive technology, and no focus will be lost.
        if (!hasFocus())
            commitText();
    });
    control.setView(this);
}

QSize DateControlView::sizeHint() const {
    return {MaskedLineEdit::sizeHint().width(), heightFor(*this)};
}

QSize DateControlView::minimumSizeHint() const {
    return {MaskedLineEdit::minimumSizeHint().width(), heightFor(*this)};
}

/// Keeps the text being typed unless the date has changed.
void DateControlView::mirror() {
    const std::string date = control().dateValue().SQLDate();
    if (date == mirrored_)
        return showValidity(isDate_);
    mirrored_ = date;
    showControlsDate();
}

void DateControlView::showControlsDate() {
    setText(toQString(mirrored_));
    showValidity(true);
}

void DateControlView::showValidity(bool isDate) {
    isDate_ = isDate;
    setToolTip(isDate ? toQString(control().helpTag()) : QString(kReason));
    showVerdict(*this, isDate ? kBlack : kRed);
}

void DateControlView::commitText() {
    const std::string typed = toUtf8(text());
    if (typed == mirrored_)
        return;
    if (const auto date = Date::fromTyped(typed))
        take(*date);
    else
        showValidity(false);
}

void DateControlView::take(const Date& date) {
    act([this, date] { control().setDateValue(date); });
    showControlsDate();
}

/// Steps the part of the date that contains the caret.
void DateControlView::step(int steps) {
    const int caret = cursorPosition();
    const Date date = Date::fromTyped(toUtf8(text())).value_or(control().dateValue());
    take(dateOf(moved(nearestDay(date), text().left(caret).count(u'-'), steps)));
    setCursorPosition(caret);
}

void DateControlView::keyPressEvent(QKeyEvent* event) {
    if (handleKey(*event))
        event->accept();
    else
        MaskedLineEdit::keyPressEvent(event);
}

/// Handles a key with a special meaning for dates. Returns false for any other key.
bool DateControlView::handleKey(const QKeyEvent& event) {
    const QKeyCombination key = event.keyCombination();
    const int steps = stepsOf(event.key());
    if (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter)
        commitText();
    else if (event.key() == Qt::Key_Escape)
        showControlsDate();
    else if (key == QKeyCombination(Qt::Key_F4) || key == (Qt::ALT | Qt::Key_Down))
        openCalendar();
    else if (steps != 0)
        step(steps);
    else
        return false;
    if (steps == 0)
        selectAll(); // the next typing replaces the date
    return true;
}

/// Scrolling past a date must not change it.
void DateControlView::wheelEvent(QWheelEvent* event) {
    if (!hasFocus()) {
        event->ignore();
        return;
    }
    wheel_ += event->angleDelta().y();
    if (const int steps = wheel_ / kWheelStep; steps != 0)
        step(steps);
    wheel_ %= kWheelStep;
    event->accept();
}

void DateControlView::focusInEvent(QFocusEvent* event) {
    MaskedLineEdit::focusInEvent(event);
    if (isBreak(event->reason()))
        return;
    selectsOnRelease_ = event->reason() == Qt::MouseFocusReason;
    selectAll();
}

void DateControlView::mouseReleaseEvent(QMouseEvent* event) {
    MaskedLineEdit::mouseReleaseEvent(event);
    if (std::exchange(selectsOnRelease_, false) && !hasSelectedText())
        selectAll();
}

void DateControlView::focusOutEvent(QFocusEvent* event) {
    MaskedLineEdit::focusOutEvent(event);
    if (!isBreak(event->reason()))
        commitText();
}

void DateControlView::hideEvent(QHideEvent* event) {
    MaskedLineEdit::hideEvent(event);
    if (!event->spontaneous()) // otherwise the window was minimised
        showControlsDate();
}

void DateControlView::openCalendar() {
    auto* const calendar = new QCalendarWidget(this);
    calendar->setAttribute(Qt::WA_DeleteOnClose);
    calendar->setWindowFlag(Qt::Popup);
    calendar->setLocale(QLocale::c());
    calendar->setDateRange(firstDay(), lastDay());
    calendar->setSelectedDate(
        nearestDay(Date::fromTyped(toUtf8(text())).value_or(control().dateValue())));
    const auto pick = [this, calendar](QDate day) {
        calendar->close();
        take(dateOf(day));
    };
    connect(calendar, &QCalendarWidget::clicked, this, pick);
    connect(calendar, &QCalendarWidget::activated, this, pick);
    calendar->move(placeBeside(*this, *calendar));
    calendar->setFocus();
    calendar->show();
}

} // namespace skyvert
