#include "qt/ControlViews.h"

#include "notation/LookAlikes.h"
#include "notation/PastedPosition.h"
#include "notation/RADecFormat.h"

#include <QAccessible>
#include <QApplication>
#include <QSignalBlocker>
#include <QStyleOptionComboBox>
#include <QTimer>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>
#include <chrono>
#include <memory>

namespace skyvert {

namespace {

constexpr int kControlHeight = 24;
constexpr std::chrono::milliseconds kRetryDelay{20};
constexpr int kButtonMargin = 7; ///< between a button's caption and its edge

/// Qt would move the focus to the next control of any kind, such as the popup of the export.
void focusNextTextField(const QWidget& from) {
    for (QWidget* next = from.nextInFocusChain(); next != &from; next = next->nextInFocusChain()) {
        if (dynamic_cast<TextFieldView*>(next) != nullptr)
            return next->setFocus(Qt::OtherFocusReason);
    }
}

} // namespace

int heightFor(const QWidget& widget) {
    const int letters = widget.fontMetrics().height();
    return std::max(std::min(kControlHeight, letters * 7 / 4), letters + 4);
}

void callSoon(QObject& context, std::function<void()> handler) {
    auto* const timer = new QTimer(&context);
    timer->setSingleShot(true);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, handler = std::move(handler)] {
        timer->deleteLater();
        handler();
    });
    timer->start(kRetryDelay);
}

void mirrorControl(const Control& control, QWidget& widget) {
    if (!control.enabled() && widget.window()->focusWidget() == &widget)
        focusNextTextField(widget);
    widget.setEnabled(control.enabled());
    widget.setVisible(control.visible());
    widget.setToolTip(toQString(control.helpTag()));
}

void announce(QLineEdit& field) {
    QAccessibleEvent alert(&field, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void showVerdict(QLineEdit& field, Color color) {
    QPalette colors = field.palette();
    colors.setColor(QPalette::Text, QColor::fromRgb(color.value));
    field.setPalette(colors);
    const QString cue = field.placeholderText();
    const QString description = field.toolTip().isEmpty() ? cue : cue + ": " + field.toolTip();
    if (description == field.accessibleDescription())
        return;
    field.setAccessibleDescription(description);
    if (color == kRed && !field.text().isEmpty())
        announce(field);
}

LabelView::LabelView(Label& control, const Desktop& desktop, QWidget* parent)
    : WidgetView(control, desktop, parent) {
    setTextFormat(Qt::PlainText);
    control.setView(this);
}

void LabelView::mirror() {
    setText(toQString(control().text()));
}

GroupBoxView::GroupBoxView(GroupBox& control, const Desktop& desktop, QWidget* parent)
    : WidgetView(control, desktop, parent) {
    control.setView(this);
}

void GroupBoxView::mirror() {
    setTitle(toQString(control().caption()));
}

PushButtonView::PushButtonView(PushButton& control, const Desktop& desktop, QWidget* parent)
    : WidgetView(control, desktop, parent) {
    setAutoDefault(true); // Return presses the button that has the focus
    connect(this, &QPushButton::clicked, this,
            [this] { act([this] { this->control().press(); }); });
    control.setView(this);
}

void PushButtonView::mirror() {
    setText(toQString(control().caption()));
    setDefault(control().isDefault());
}

QSize PushButtonView::sizeHint() const {
    return {fontMetrics().horizontalAdvance(text()) + 2 * kButtonMargin, heightFor(*this)};
}

QSize PushButtonView::minimumSizeHint() const {
    return sizeHint();
}

CheckBoxView::CheckBoxView(CheckBox& control, const Desktop& desktop, QWidget* parent)
    : WidgetView(control, desktop, parent) {
    connect(this, &QCheckBox::clicked, this,
            [this](bool checked) { act([this, checked] { this->control().setValue(checked); }); });
    control.setView(this);
}

void CheckBoxView::mirror() {
    setText(toQString(control().caption()));
    // Only code sets the mixed state: a click must not reach it.
    setTristate(control().state() == CheckBox::State::Mixed);
    setCheckState(control().state() == CheckBox::State::Mixed ? Qt::PartiallyChecked
                  : control().value()                         ? Qt::Checked
                                                              : Qt::Unchecked);
}

PopupMenuView::PopupMenuView(PopupMenu& control, const Desktop& desktop, QWidget* parent)
    : WidgetView(control, desktop, parent), rows_(new QStringListModel(this)) {
    setModel(rows_);
    setSizeAdjustPolicy(AdjustToContents);
    connect(this, &QComboBox::activated, this,
            [this](int row) { act([this, row] { this->control().setListIndex(row); }); });
    control.setView(this);
}

void PopupMenuView::mirror() {
    const QSignalBlocker blocker(this);
    QStringList rows;
    for (std::int64_t row = 0; row < control().ListCount(); ++row)
        rows.append(toQString(control().List(row)));
    // All rows in one assignment: a combo box selects the first of rows added one by one.
    if (rows != rows_->stringList()) {
        rows_->setStringList(rows);
        updateGeometry();
    }
    setCurrentIndex(static_cast<int>(control().listIndex()));
}

QSize PopupMenuView::sizeHint() const {
    int widest = 0;
    for (const QString& row : rows_->stringList())
        widest = std::max(widest, fontMetrics().horizontalAdvance(row));
    QStyleOptionComboBox option;
    initStyleOption(&option);
    option.rect = QRect(0, 0, 1000, heightFor(*this));
    const QRect textArea =
        style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
    return {widest + option.rect.width() - textArea.width() + 2, option.rect.height()};
}

QSize PopupMenuView::minimumSizeHint() const {
    return sizeHint();
}

void PopupMenuView::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

TextFieldView::TextFieldView(TextField& control, const Desktop& desktop, QWidget* parent)
    : WidgetView(control, desktop, parent) {
    setFold([](std::string_view text) { return foldedLookAlikes(text); });
    setFit([this](std::string_view text) { return fitToMask(text, this->control().mask()); });
    setPasteHandler([this](std::string_view text) {
        const auto isTaken = std::make_shared<bool>(false);
        act([this, isTaken, pasted = std::string(text)] {
            *isTaken = this->control().paste(pasted);
        });
        return *isTaken;
    });
    connect(this, &MaskedLineEdit::edited, this,
            [this] { act([this] { this->control().setText(toUtf8(text())); }); });
    connect(this, &MaskedLineEdit::refused, this, [this] { showRefusal(); });
    control.setView(this);
}

void TextFieldView::showRefusal() {
    QApplication::beep();
    setToolTip("The pasted text does not fit " + placeholderText() + ".");
    showVerdict(*this, control().textColor());
    announce(*this);
    QToolTip::showText(mapToGlobal(rect().bottomLeft()), toolTip(), this);
}

void TextFieldView::hideRefusal() {
    if (toolTip() == toQString(control().helpTag()))
        return;
    QToolTip::hideText();
    refresh();
}

void TextFieldView::keyPressEvent(QKeyEvent* event) {
    hideRefusal();
    MaskedLineEdit::keyPressEvent(event);
}

void TextFieldView::focusOutEvent(QFocusEvent* event) {
    hideRefusal();
    MaskedLineEdit::focusOutEvent(event);
}

QSize TextFieldView::sizeHint() const {
    return {MaskedLineEdit::sizeHint().width(), heightFor(*this)};
}

QSize TextFieldView::minimumSizeHint() const {
    return {MaskedLineEdit::minimumSizeHint().width(), heightFor(*this)};
}

void TextFieldView::mirror() {
    const std::string& mask = control().mask();
    setEntryMask({mask, desktop().locale.decimalPoint, RADecFormat::closingMark(mask)});
    setPlaceholderText(toQString(control().cueText()));
    const QString shown = toQString(control().text());
    // Setting an equal text again would move the caret and clear the undo history.
    if (text() != shown)
        setText(shown);
    showVerdict(*this, control().textColor());
}

ContainerView::ContainerView(ContainerControl& control, const Desktop& desktop, QWidget* parent)
    : WidgetView(control, desktop, parent) {
    control.setView(this);
}

} // namespace skyvert
