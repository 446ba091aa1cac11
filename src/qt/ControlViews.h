#pragma once

#include "controls/Controls.h"
#include "controls/Desktop.h"
#include "qt/MaskedLineEdit.h"
#include "qt/QtText.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QStringListModel>

#include <functional>
#include <utility>

namespace skyvert {

/// The minimum height of a control: the same for all controls of a row, larger only if the font
/// needs it.
int heightFor(const QWidget& widget);

/// Calls a handler from the event loop a little later, unless `context` is destroyed before that.
void callSoon(QObject& context, std::function<void()> handler);

/// Shows the state that all controls have: enabled, visible and the help tag. If a control is
/// disabled while it has the focus, the focus moves to the next text field.
void mirrorControl(const Control& control, QWidget& widget);

/// Sends an alert about a field to assistive technology.
void announce(QLineEdit& field);

/// Sets the colour of a field's text, and the field's accessible description from its cue text and
/// tool tip. Announces a new description if the text is red.
void showVerdict(QLineEdit& field, Color color);

/// The base of all views. A view is the widget itself: `refresh` pulls the control's state, and the
/// widget's signals pass the user's actions to the control. It has no rule of the program.
///
/// The control and the desktop must outlive the view.
template <typename Widget, typename ControlType>
class WidgetView : public Widget, public ControlView {
public:
    WidgetView(ControlType& control, const Desktop& desktop, QWidget* parent)
        : Widget(parent), control_(control), desktop_(desktop) {
        this->setObjectName(toQString(control.name()));
        QSizePolicy policy = this->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        this->setSizePolicy(policy);
    }

    ~WidgetView() override { control_.setView(nullptr); }

    void refresh() override {
        mirrorControl(control_, *this);
        mirror();
    }

    void takeFocus() override { this->setFocus(Qt::OtherFocusReason); }

protected:
    /// Pulls the state that only this kind of control has.
    virtual void mirror() {}

    /// Runs the handler of a user's action. While long work processes events, the handler waits
    /// until the work has ended.
    void act(const std::function<void()>& handler) {
        if (desktop_.progress.isWorking())
            callSoon(*this, [this, handler] { act(handler); });
        else
            dispatch(desktop_.dialogs, handler);
    }

    ControlType& control() { return control_; }

    const ControlType& control() const { return control_; }

    const Desktop& desktop() const { return desktop_; }

private:
    ControlType& control_;
    const Desktop& desktop_;
};

class LabelView final : public WidgetView<QLabel, Label> {
public:
    LabelView(Label& control, const Desktop& desktop, QWidget* parent);

protected:
    void mirror() override;
};

class GroupBoxView final : public WidgetView<QGroupBox, GroupBox> {
public:
    GroupBoxView(GroupBox& control, const Desktop& desktop, QWidget* parent);

protected:
    void mirror() override;
};

class PushButtonView final : public WidgetView<QPushButton, PushButton> {
public:
    PushButtonView(PushButton& control, const Desktop& desktop, QWidget* parent);

    /// As wide as the caption needs; a style's minimum width is meant for rows of buttons.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void mirror() override;
};

class CheckBoxView final : public WidgetView<QCheckBox, CheckBox> {
public:
    CheckBoxView(CheckBox& control, const Desktop& desktop, QWidget* parent);

protected:
    void mirror() override;
};

class PopupMenuView final : public WidgetView<QComboBox, PopupMenu> {
public:
    PopupMenuView(PopupMenu& control, const Desktop& desktop, QWidget* parent);

    /// Wide enough for the longest row.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void mirror() override;
    /// Ignores the wheel, so that scrolling never changes a selection by accident.
    void wheelEvent(QWheelEvent* event) override;

private:
    QStringListModel* rows_;
};

class TextFieldView final : public WidgetView<MaskedLineEdit, TextField> {
public:
    TextFieldView(TextField& control, const Desktop& desktop, QWidget* parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void mirror() override;
    /// The message about a refused paste disappears at the next key or when the focus leaves.
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void showRefusal();
    void hideRefusal();
};

/// Holds the widgets of a composite control.
class ContainerView final : public WidgetView<QWidget, ContainerControl> {
public:
    ContainerView(ContainerControl& control, const Desktop& desktop, QWidget* parent);
};

} // namespace skyvert
