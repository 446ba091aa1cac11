#pragma once

#include "qt/ControlViews.h"

namespace skyvert {

/// Shows a date as text. The user types it, steps it by the arrow keys or the wheel, or picks it
/// from a calendar.
///
/// Return and the loss of the focus assign the typed text to the control. A text that is not a day
/// from 0100-01-01 to 9999-12-31 stays, in red, and the control keeps its date; Escape shows that
/// date again.
///
/// `QDateEdit` is not suitable: it splits a typed date into sections and corrects each.
class DateControlView final : public WidgetView<MaskedLineEdit, DateControl> {
public:
    DateControlView(DateControl& control, const Desktop& desktop, QWidget* parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void mirror() override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    /// Selects the whole date, so that typing replaces it.
    void focusInEvent(QFocusEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    bool handleKey(const QKeyEvent& event);
    void commitText();
    void take(const Date& date);
    void step(int steps);
    void openCalendar();
    void showControlsDate();
    void showValidity(bool isDate);

    std::string mirrored_;          ///< the control's date when it was last mirrored
    bool isDate_ = true;            ///< the text is not shown as an error
    bool selectsOnRelease_ = false; ///< the mouse button that entered the field is still down
    int wheel_ = 0;                 ///< how far the wheel has turned since the last step
};

} // namespace skyvert
