#pragma once

#include "platform/Controls.h"
#include "platform/Desktop.h"

#include <QWidget>

#include <vector>

namespace skyvert {

/// A control, the widget that shows it, and what stands inside it.
struct ShownControl {
    Control* control;
    QWidget* widget;
    std::vector<ShownControl> members;
};

/// Makes the views of controls, given in the order of their creation, inside `parent`. What a
/// layout table puts into a group box stands inside that box, in rows and columns that are read
/// off the table, so that a font of another size moves things apart instead of cutting them off.
std::vector<ShownControl> showControls(const std::vector<Control*>& controls,
                                       const Desktop& desktop, QWidget* parent);

/// Leads the keyboard focus through the controls by their tab index, each parent in its turn.
void orderTabStops(const std::vector<ShownControl>& controls);

/// An area whose widgets stand where the layout table puts them, and keep their distance to the
/// sides that they are locked to.
class LockedPane final : public QWidget {
public:
    LockedPane(QSize designSize, QWidget* parent);

    /// Takes in the widgets of controls that stand in no other.
    void place(std::vector<ShownControl> controls);

    /// Makes the font smaller until everything fits its place in the table. Done once the texts
    /// are known; no font that the design allows for needs it.
    void fitFont();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    bool fits() const;

    QSize designSize_;
    std::vector<ShownControl> controls_;
};

} // namespace skyvert
