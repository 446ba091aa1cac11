#include "controls/Window.h"

#include <exception>
#include <utility>

namespace skyvert {

void Window::setHeightRange(int minimum, int maximum) {
    minimumHeight_ = minimum;
    maximumHeight_ = maximum;
}

void Window::close() {
    if (std::exchange(closed_, true))
        return;
    std::exception_ptr firstError;
    const auto attempt = [&firstError](const auto& handler) {
        try {
            handler();
        } catch (...) {
            firstError = firstError ? firstError : std::current_exception();
        }
    };
    for (Control* const each : children())
        attempt([each] { each->close(); });
    attempt([this] { raiseClose(); });
    if (firstError)
        std::rethrow_exception(firstError);
}

} // namespace skyvert
