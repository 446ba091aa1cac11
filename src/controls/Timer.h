#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace skyvert {

/// A call that is due once; destroying it calls it off.
class Alarm {
public:
    virtual ~Alarm() = default;
};

/// The event loop's clock.
class Scheduler {
public:
    virtual ~Scheduler() = default;

    /// Calls `due` once, `delay` from now, from the event loop, which an open dialog runs as well.
    /// The alarm may be destroyed inside the call.
    virtual std::unique_ptr<Alarm> after(std::chrono::milliseconds delay,
                                         std::function<void()> due) = 0;
};

/// A control that runs `Action` once, a period after it was armed.
class Timer {
public:
    enum class Mode { Off = 0, Single = 1 };

    Timer(Scheduler& scheduler, std::chrono::milliseconds period)
        : scheduler_(scheduler), period_(period) {}

    Mode mode() const { return alarm_ ? Mode::Single : Mode::Off; }

    /// `Single` arms the timer, and leaves a timer alone that is armed already; `Off` disarms it.
    void setMode(Mode mode);

    /// Runs with the timer disarmed, so it may be armed again inside.
    std::function<void(Timer&)> Action;

private:
    void fire();

    Scheduler& scheduler_;
    std::chrono::milliseconds period_;
    std::unique_ptr<Alarm> alarm_;
};

} // namespace skyvert
