#pragma once

#include "qt/ControlViews.h"

namespace skyvert {

/// A date as text, which is typed whole or in part, stepped by the arrow keys and the wheel, or
/// picked from a calendar.
///
/// What is typed is taken over at Return and when the field loses the focus. A text that is no day
/// from 0100-01-01 to 9999-12-31 stays then, in red, and the control keeps its date; Escape brings
/// that back.
///
/// `QDateEdit` does not serve: it takes a typed date apart into sections and mends each.
class DateControlView final : public WidgetView<MaskedLineEdit, DateControl> {
public:
    DateControlView(DateControl& control, const Desktop& desktop, QWidget* parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void mirror() override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    /// The whole date is selected when the field is entered, so that typing replaces it.
    void focusInEvent(QFocusEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    bool handleKey(const QKeyEvent& event);
    void takeOver();
    void take(const Date& date);
    void step(int steps);
    void openCalendar();
    void showControlsDate();
    void showWhether(bool isDate);

    std::string mirrored_;          ///< the date that the view and the control agreed on
    bool isDate_ = true;            ///< the text is not shown as wrong
    bool selectsOnRelease_ = false; ///< the mouse button that entered the field is still down
    int wheel_ = 0;                 ///< how far the wheel has turned since the last step
};

} // namespace skyvert
