#include "platform/Window.h"

#include <utility>

namespace skyvert {

void Window::setHeightRange(int minimum, int maximum) {
    minimumHeight_ = minimum;
    maximumHeight_ = maximum;
}

void Window::close() {
    if (!std::exchange(closed_, true))
        ContainerControl::close();
}

} // namespace skyvert
