#pragma once

#include "controls/Controls.h"
#include "controls/Desktop.h"

#include <QWidget>

#include <vector>

namespace skyvert {

/// A control, the widget that shows it, and what stands inside it.
struct ShownControl {
    Control* control;
    QWidget* widget;
    std::vector<ShownControl> members;
};

/// Makes the views of controls, given in the order of their creation, inside `parent`. The members
/// of a group box stand inside that box, in rows and columns that are read off their layout, so
/// that a font of another size moves things apart instead of cutting them off.
std::vector<ShownControl> showControls(const std::vector<Control*>& controls,
                                       const Desktop& desktop, QWidget* parent);

/// Leads the keyboard focus through the controls in the order of their creation, each group box
/// and composite in its turn.
void orderTabStops(const std::vector<ShownControl>& controls);

/// An area whose widgets stand where their layout puts them, and keep their distance to the sides
/// that they are locked to. A point is a pixel until another size is settled.
class LockedPane final : public QWidget {
public:
    /// `designSize` is that of the window in the table, in points.
    LockedPane(QSize designSize, QWidget* parent);

    /// Takes in the widgets of controls that stand in no other.
    void place(std::vector<ShownControl> controls);

    /// Settles how many pixels a point is: one where the letters fit, or almost, and more for
    /// larger letters, `largest` at most.
    void settlePoint(double largest);

    /// Does the same, and makes letters smaller that do not fit even so; if they would become too
    /// small, a point is more than `largest`. Done when all texts are known.
    void fit(double largest);

    /// A length in pixels.
    int toPixels(int points) const;

    /// A length in points; `toPixels` gives it back unless a point is less than a pixel.
    int toPoints(int pixels) const;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    double neededPixels() const;
    QRect toPixels(const ControlLayout& layout) const;

    QSize designSize_;
    std::vector<ShownControl> controls_;
    double pixelsPerPoint_ = 1.0;
};

} // namespace skyvert
