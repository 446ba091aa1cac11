#include "qt/ControlViews.h"

#include "notation/LookAlikes.h"

#include <QCalendarWidget>
#include <QSignalBlocker>
#include <QStyleOptionComboBox>
#include <QWheelEvent>

#include <algorithm>

namespace skyvert {

namespace {

constexpr int kControlHeight = 24;
constexpr int kButtonMargin = 7; ///< between a button's caption and its edge

/// Controls of one row are equally high, and higher only where the font asks for it.
int heightFor(const QWidget& widget) {
    return std::max(kControlHeight, widget.fontMetrics().height() + 4);
}

QDate nearestShown(const Date& date, const QDateEdit& field) {
    if (date.year < field.minimumDate().year())
        return field.minimumDate();
    if (date.year > field.maximumDate().year())
        return field.maximumDate();
    return {static_cast<int>(date.year), static_cast<int>(date.month), static_cast<int>(date.day)};
}

} // namespace

void mirrorControl(const Control& control, QWidget& widget) {
    widget.setEnabled(control.enabled());
    widget.setVisible(control.visible());
    widget.setToolTip(toQString(control.helpTag()));
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
    // A third state that a click could reach would be one too many.
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
    // One assignment of all rows: a combo box that gets its rows one by one selects the first.
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

DateControlView::DateControlView(DateControl& control, const Desktop& desktop, QWidget* parent)
    : WidgetView(control, desktop, parent) {
    setLocale(QLocale::c());
    setDisplayFormat("yyyy-MM-dd");
    setDateRange(QDate(100, 1, 1), QDate(9999, 12, 31));
    setCalendarPopup(true);
    setKeyboardTracking(false);
    connect(this, &QDateEdit::dateChanged, this, [this](QDate day) { take(day); });
    control.setView(this);
}

QSize DateControlView::sizeHint() const {
    return {QDateEdit::sizeHint().width(), heightFor(*this)};
}

QSize DateControlView::minimumSizeHint() const {
    return {QDateEdit::minimumSizeHint().width(), heightFor(*this)};
}

void DateControlView::keyPressEvent(QKeyEvent* event) {
    QDateEdit::keyPressEvent(event);
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        event->accept();
}

/// Return signals a change also where there is none, which would hand over a stand-in.
void DateControlView::take(QDate day) {
    if (day != nearestShown(control().dateValue(), *this))
        act([this, day] { control().setDateValue(Date(day.year(), day.month(), day.day())); });
}

void DateControlView::mirror() {
    const QSignalBlocker blocker(this);
    setDate(nearestShown(control().dateValue(), *this));
}

TextFieldView::TextFieldView(TextField& control, const Desktop& desktop, QWidget* parent)
    : WidgetView(control, desktop, parent) {
    setFold([](std::string_view text) {
        std::string storage;
        return std::string(foldLookAlikes(text, storage));
    });
    connect(this, &MaskedLineEdit::edited, this,
            [this] { act([this] { this->control().setText(toUtf8(text())); }); });
    control.setView(this);
}

QSize TextFieldView::sizeHint() const {
    return {MaskedLineEdit::sizeHint().width(), heightFor(*this)};
}

QSize TextFieldView::minimumSizeHint() const {
    return {MaskedLineEdit::minimumSizeHint().width(), heightFor(*this)};
}

void TextFieldView::mirror() {
    setEntryMask(EntryMask(control().mask(), desktop().locale.decimalPoint));
    setPlaceholderText(toQString(control().cueText()));
    QPalette colors = palette();
    colors.setColor(QPalette::Text, QColor::fromRgb(control().textColor().value));
    setPalette(colors);
    const QString shown = toQString(control().text());
    // An equal text stays: setting it again would move the caret and forget what can be undone.
    if (text() != shown)
        setText(shown);
}

ContainerView::ContainerView(ContainerControl& control, const Desktop& desktop, QWidget* parent)
    : WidgetView(control, desktop, parent) {
    control.setView(this);
}

} // namespace skyvert
