#pragma once

#include "platform/Dialogs.h"
#include "platform/Timer.h"

#include <QObject>

namespace skyvert {

/// Alarms from Qt's event loop. What an alarm's call throws ends in the dispatcher.
class QtScheduler final : public Scheduler {
public:
    /// The dialogs outlive the scheduler.
    explicit QtScheduler(Dialogs& dialogs) : dialogs_(dialogs) {}

    std::unique_ptr<Alarm> after(std::chrono::milliseconds delay,
                                 std::function<void()> due) override;

private:
    Dialogs& dialogs_;
    QObject timers_; ///< owns what is left of the timers
};

} // namespace skyvert
