#include "controls/Timer.h"

#include <utility>

namespace skyvert {

void Timer::setMode(Mode mode) {
    if (mode == this->mode())
        return;
    alarm_.reset();
    if (mode == Mode::Single)
        alarm_ = scheduler_.after(period_, [this] { fire(); });
}

void Timer::fire() {
    const std::unique_ptr<Alarm> spent = std::move(alarm_);
    if (Action)
        Action(*this);
}

} // namespace skyvert
