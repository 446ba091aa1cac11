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

/// Shows a control on the screen. A control works the same without a view.
class ControlView {
public:
    virtual ~ControlView() = default;

    /// Called after a change of the control. The view must read the current state each time.
    virtual void refresh() = 0;

    /// Moves the keyboard focus to the control.
    virtual void takeFocus() {}
};

/// The state and the events of one control, independent of any widget.
///
/// A setter does nothing if the value is equal; otherwise it stores it, refreshes the view and runs
/// the event before it returns. An event is a `std::function`; an empty one has no handler.
class Control {
public:
    /// Adds itself to the children of `place.owner`, if there is one.
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

    /// Run `Open` or `Close`, those of children first.
    virtual void open();
    virtual void close();

    std::function<void()> Open;
    std::function<void()> Close;

protected:
    /// Runs `Close` if it has a handler.
    void raiseClose() const {
        if (Close)
            Close();
    }

    /// Stores a value and refreshes the view. Returns false if the value has not changed.
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

/// A read-only text.
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

    /// Whether Return presses the button if the focused control does not handle it.
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

    /// The entry mask that guides typing, see `EntryMask`; empty for free text. Setting it does not
    /// change the text.
    const std::string& mask() const { return mask_; }

    void setMask(std::string_view mask) { assign(mask_, mask); }

    /// The hint shown while the field is empty.
    const std::string& cueText() const { return cueText_; }

    void setCueText(std::string_view text) { assign(cueText_, text); }

    Color textColor() const { return textColor_; }

    void setTextColor(Color color) { assign(textColor_, color); }

    /// Passes a text to the `Paste` handler before it is pasted. Returns whether that has handled
    /// it.
    bool paste(std::string_view text) { return Paste && Paste(*this, text); }

    std::function<void(TextField&)> TextChange;
    std::function<bool(TextField&, std::string_view)> Paste;

private:
    std::string text_;
    std::string mask_;
    std::string cueText_;
    Color textColor_ = kBlack;
};

/// A popup menu with at most one selected row.
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

    /// Removes all rows and clears the selection.
    void DeleteAllRows();

    std::function<void(PopupMenu&)> Change;

private:
    std::vector<std::string> rows_;
    std::int64_t listIndex_ = -1;
};

/// A field that always has a date.
class DateControl : public Control {
public:
    using Control::Control;

    const Date& dateValue() const { return date_; }

    /// Sets the date. A date on the same day changes nothing. While the control is hidden, it
    /// stores the date without running `ValueChanged`: a hidden date has no effect.
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

    /// Makes a member function of the derived class the handler of an event. A handler may omit all
    /// parameters.
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
