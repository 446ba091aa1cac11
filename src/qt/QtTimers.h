#pragma once

#include "controls/Dialogs.h"
#include "controls/Progress.h"
#include "controls/Timer.h"

#include <QObject>

namespace skyvert {

/// Alarms from Qt's event loop. One that falls due while long work processes events waits until the
/// work has ended. What an alarm's call throws ends in the dispatcher.
class QtScheduler final : public Scheduler {
public:
    /// The dialogs and the progress outlive the scheduler.
    QtScheduler(Dialogs& dialogs, const Progress& progress)
        : dialogs_(dialogs), progress_(progress) {}

    std::unique_ptr<Alarm> after(std::chrono::milliseconds delay,
                                 std::function<void()> due) override;

private:
    Dialogs& dialogs_;
    const Progress& progress_;
    QObject timers_; ///< owns what is left of the timers
};

} // namespace skyvert
