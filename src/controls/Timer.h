#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace skyvert {

/// A pending call. Destroying the alarm cancels it.
class Alarm {
public:
    virtual ~Alarm() = default;
};

/// Schedules calls from the event loop.
class Scheduler {
public:
    virtual ~Scheduler() = default;

    /// Calls `due` once after `delay`, from the event loop, also from that of an open dialog. The
    /// alarm may be destroyed inside the call.
    virtual std::unique_ptr<Alarm> after(std::chrono::milliseconds delay,
                                         std::function<void()> due) = 0;
};

/// A control that runs `Action` once, after a fixed period from when it is armed.
class Timer {
public:
    enum class Mode { Off = 0, Single = 1 };

    Timer(Scheduler& scheduler, std::chrono::milliseconds period)
        : scheduler_(scheduler), period_(period) {}

    Mode mode() const { return alarm_ ? Mode::Single : Mode::Off; }

    /// `Single` arms the timer unless it is armed already; `Off` disarms it.
    void setMode(Mode mode);

    /// Runs with the timer disarmed, and may arm it again.
    std::function<void(Timer&)> Action;

private:
    void fire();

    Scheduler& scheduler_;
    std::chrono::milliseconds period_;
    std::unique_ptr<Alarm> alarm_;
};

} // namespace skyvert
