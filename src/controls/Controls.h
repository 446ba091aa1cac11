#pragma once

#include "controls/ControlLayout.h"
#include "platform/Color.h"
#include "platform/Date.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace skyvert {

/// What shows a control on a screen. A control works the same without one.
class ControlView {
public:
    virtual ~ControlView() = default;

    /// The control's state has changed. The view pulls the present state, never a captured one.
    virtual void refresh() = 0;

    /// Moves the keyboard focus to the control.
    virtual void takeFocus() {}
};

/// The state and the events of one control, without a window.
///
/// A setter compares, returns if equal, stores, refreshes the view and then runs the event, all
/// inside the assignment. An event is a `std::function`; an empty one is an event that nobody
/// handles.
class Control {
public:
    /// Joins the children of the owner that `place` names.
    explicit Control(const Place& place);

    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    const std::string& name() const { return name_; }

    const ControlLayout& layout() const { return layout_; }

    /// The group box around the control; null for none.
    const GroupBox* group() const { return group_; }

    bool enabled() const { return enabled_; }

    void setEnabled(bool enabled) { assign(enabled_, enabled); }

    bool visible() const { return visible_; }

    void setVisible(bool visible) { assign(visible_, visible); }

    /// The tooltip; empty for none.
    const std::string& helpTag() const { return helpTag_; }

    void setHelpTag(std::string_view text) { assign(helpTag_, text); }

    /// Moves the keyboard focus here.
    void SetFocus();

    /// Attaches the view, or detaches it with a null pointer. The caller owns the view.
    void setView(ControlView* view);

    /// Runs the events of opening and closing, those of children first.
    virtual void open();
    virtual void close();

    std::function<void()> Open;
    std::function<void()> Close;

protected:
    /// Runs the event of closing, if somebody handles it.
    void raiseClose() const {
        if (Close)
            Close();
    }

    /// Stores a value and refreshes the view. Returns false when the value stood there before.
    template <typename Field, typename Value>
    bool assign(Field& field, const Value& value) {
        if (field == value)
            return false;
        field = value;
        refreshView();
        return true;
    }

    void refreshView();

private:
    ControlLayout layout_;
    const GroupBox* group_;
    std::string name_;
    std::string helpTag_;
    bool enabled_ = true;
    bool visible_ = true;
    ControlView* view_ = nullptr;
};

/// A text that the user reads.
class Label : public Control {
public:
    explicit Label(const Place& place) : Control(place), text_(place.layout.text) {}

    const std::string& text() const { return text_; }

    void setText(std::string_view text) { assign(text_, text); }

private:
    std::string text_;
};

/// A frame with a caption around other controls.
class GroupBox : public Control {
public:
    explicit GroupBox(const Place& place) : Control(place), caption_(place.layout.text) {}

    const std::string& caption() const { return caption_; }

    void setCaption(std::string_view caption) { assign(caption_, caption); }

private:
    std::string caption_;
};

/// A button that runs `Action` when it is pressed.
class PushButton : public Control {
public:
    explicit PushButton(const Place& place) : Control(place), caption_(place.layout.text) {}

    const std::string& caption() const { return caption_; }

    /// Whether Return presses the button from anywhere where it has no other use.
    bool isDefault() const { return default_; }

    void setDefault(bool isDefault) { assign(default_, isDefault); }

    /// Presses the button; a disabled one does nothing.
    void press();

    std::function<void(PushButton&)> Action;

private:
    std::string caption_;
    bool default_ = false;
};

/// A check box. `Action` runs for a change by the user and for a change by code.
class CheckBox : public Control {
public:
    enum class State { Unchecked = 0, Checked = 1, Mixed = 2 };

    explicit CheckBox(const Place& place) : Control(place), caption_(place.layout.text) {}

    const std::string& caption() const { return caption_; }

    void setCaption(std::string_view caption) { assign(caption_, caption); }

    State state() const { return state_; }

    void setState(State state);

    bool value() const { return state_ == State::Checked; }

    void setValue(bool value) { setState(value ? State::Checked : State::Unchecked); }

    std::function<void(CheckBox&)> Action;

private:
    std::string caption_;
    State state_ = State::Unchecked;
};

/// A field for one line of text.
class TextField : public Control {
public:
    explicit TextField(const Place& place) : Control(place), text_(place.layout.text) {}

    const std::string& text() const { return text_; }

    void setText(std::string_view text);

    /// The entry mask that guides typing, see `EntryMask`; empty for free text. Setting it leaves
    /// the text that stands.
    const std::string& mask() const { return mask_; }

    void setMask(std::string_view mask) { assign(mask_, mask); }

    /// The hint shown while the field is empty.
    const std::string& cueText() const { return cueText_; }

    void setCueText(std::string_view text) { assign(cueText_, text); }

    Color textColor() const { return textColor_; }

    void setTextColor(Color color) { assign(textColor_, color); }

    /// Offers the owner a text that is about to be pasted. Returned: whether the owner has put it
    /// where it belongs.
    bool paste(std::string_view text) { return Paste && Paste(*this, text); }

    std::function<void(TextField&)> TextChange;
    std::function<bool(TextField&, std::string_view)> Paste;

private:
    std::string text_;
    std::string mask_;
    std::string cueText_;
    Color textColor_ = kBlack;
};

/// A list of rows of which one or none is selected.
class PopupMenu : public Control {
public:
    using Control::Control;

    std::int64_t ListCount() const { return static_cast<std::int64_t>(rows_.size()); }

    /// The text of a row, from 0. Throws `std::out_of_range`.
    const std::string& List(std::int64_t row) const;

    /// The selected row, -1 for none.
    std::int64_t listIndex() const { return listIndex_; }

    /// Selects a row, -1 for none. Throws `std::out_of_range` for a row that does not exist.
    void setListIndex(std::int64_t row);

    /// The text of the selected row. Throws `std::out_of_range` while no row is selected.
    const std::string& Text() const { return List(listIndex_); }

    void AddRow(std::string_view text);

    /// Removes all rows and with them the selection.
    void DeleteAllRows();

    std::function<void(PopupMenu&)> Change;

private:
    std::vector<std::string> rows_;
    std::int64_t listIndex_ = -1;
};

/// A field that holds a calendar day at all times.
class DateControl : public Control {
public:
    using Control::Control;

    const Date& dateValue() const { return date_; }

    /// Sets the date; days are compared, not the time of day. A hidden control keeps the date for
    /// later and tells nobody: what it holds is in force only while it is seen.
    void setDateValue(const Date& date);

    std::function<void(DateControl&)> ValueChanged;

private:
    Date date_{2000, 1, 1};
};

/// A control that holds others. A member declared as `Label Label1{child({"Label1", ...})}` is a
/// child; `children` lists them in the order of their declaration.
class ContainerControl : public Control {
public:
    using Control::Control;

    const std::vector<Control*>& children() const { return children_; }

    void open() override;
    void close() override;

protected:
    /// The place of a child, directly inside this control or inside one of its group boxes.
    Place child(const ControlLayout& layout) { return {layout, this, nullptr}; }

    Place child(const GroupBox& group, const ControlLayout& layout) {
        return {layout, this, &group};
    }

    /// Makes a member function of the derived class the handler of an event. A handler that takes
    /// no arguments suits every event.
    template <typename Result, typename... Arguments, typename Owner, typename Handler>
    void wire(std::function<Result(Arguments...)>& event, Handler Owner::*handler) {
        event = [owner = static_cast<Owner*>(this), handler](Arguments... arguments) -> Result {
            if constexpr (std::is_invocable_v<decltype(handler), Owner*>)
                return std::invoke(handler, owner);
            else
                return std::invoke(handler, owner, std::forward<Arguments>(arguments)...);
        };
    }

private:
    friend Control::Control(const Place& place);

    std::vector<Control*> children_;
};

} // namespace skyvert
