#pragma once

#include "controls/Controls.h"

namespace skyvert {

/// A document window: its place, its size, its controls, and how it opens and closes.
/// Lengths are in points; the height is measured below the menu bar.
class Window : public ContainerControl {
public:
    using ContainerControl::ContainerControl;

    const std::string& title() const { return title_; }

    int left() const { return left_; }

    void setLeft(int left) { assign(left_, left); }

    int top() const { return top_; }

    void setTop(int top) { assign(top_, top); }

    int width() const { return layout().width; }

    int height() const { return height_; }

    void setHeight(int height) { assign(height_, height); }

    int minimumHeight() const { return minimumHeight_; }

    int maximumHeight() const { return maximumHeight_; }

    bool isClosed() const { return closed_; }

    /// Runs the close handlers of the controls and then the window's own, once. An exception does
    /// not stop the others; the first one is rethrown at the end.
    void close() override;

protected:
    void setHeightRange(int minimum, int maximum);

private:
    std::string title_{layout().text};
    int left_ = layout().left;
    int top_ = layout().top;
    int height_ = layout().height;
    int minimumHeight_ = 0;
    int maximumHeight_ = 0;
    bool closed_ = false;
};

} // namespace skyvert
