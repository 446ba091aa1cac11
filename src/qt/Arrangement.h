#pragma once

#include "controls/Controls.h"
#include "controls/Desktop.h"

#include <QWidget>

#include <vector>

namespace skyvert {

/// A control, the widget that shows it, and the controls inside it.
struct ShownControl {
    Control* control;
    QWidget* widget;
    std::vector<ShownControl> members;
};

/// Creates the views of controls, given in the order of their creation, inside `parent`. The
/// members of a group box are arranged in rows and columns derived from their layout, so that a
/// larger font moves them apart instead of clipping them.
std::vector<ShownControl> showControls(const std::vector<Control*>& controls,
                                       const Desktop& desktop, QWidget* parent);

/// Sets the tab order to the order of creation. A parent's members directly follow it.
void orderTabStops(const std::vector<ShownControl>& controls);

/// An area that places widgets by their layout and keeps their distance to the edges that they are
/// locked to. A point is one pixel until `settlePoint` or `fit` changes it.
class LockedPane final : public QWidget {
public:
    /// `designSize` is the size of the window in its layout, in points.
    LockedPane(QSize designSize, QWidget* parent);

    /// Sets the controls whose widgets the pane places: those that are not inside another.
    void place(std::vector<ShownControl> controls);

    /// Sets the pixels per point: 1 if the texts fit or almost fit, more for a larger font, at most
    /// `largest`.
    void settlePoint(double largest);

    /// Does the same, then shrinks the font if the texts still do not fit. If it would become too
    /// small, the pixels per point exceed `largest`. Call this when all texts are known.
    void fit(double largest);

    /// Converts a length from points to pixels.
    int toPixels(int points) const;

    /// Converts a length from pixels to points: the exact inverse of `toPixels` unless a point is
    /// less than a pixel.
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
