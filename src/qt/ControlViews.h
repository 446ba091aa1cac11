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

/// The least height of a control. Those of one row are equally high, and higher only where the font
/// asks for it.
int heightFor(const QWidget& widget);

/// Calls a handler from the event loop a little later, unless `context` is gone by then.
void callSoon(QObject& context, std::function<void()> handler);

/// Mirrors what every kind of control has: whether it is enabled and visible, and its help tag. The
/// keyboard focus goes from a control that is disabled to the next text field.
void mirrorControl(const Control& control, QWidget& widget);

/// Calls the attention of assistive technology to a field.
void announce(QLineEdit& field);

/// Shows a field's text in a color, and describes the field to assistive technology by its cue and
/// the reason in its help tag. A new reason for a text to be red is announced.
void showVerdict(QLineEdit& field, Color color);

/// What the views have in common. A view is the widget itself: it pulls the control's state when
/// it is told to, hands on what a person does, and knows no rule of the program.
///
/// The control and the desktop outlive the view.
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
    /// Pulls the state that this kind of control has of its own.
    virtual void mirror() {}

    /// Runs what a person has set off. While long work processes events, it waits until the work
    /// has ended.
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

    /// As wide as the caption asks; a style's least width of a button is for rows of buttons.
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
    /// The wheel scrolls what is around a popup, it never changes a choice by accident.
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
    /// A refusal is told until the next key.
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void showRefusal();
    void hideRefusal();
};

/// The place of a control that is made of others.
class ContainerView final : public WidgetView<QWidget, ContainerControl> {
public:
    ContainerView(ContainerControl& control, const Desktop& desktop, QWidget* parent);
};

} // namespace skyvert
