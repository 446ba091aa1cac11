#pragma once

#include "controls/Dialogs.h"
#include "controls/Progress.h"
#include "controls/Timer.h"

#include <QObject>

namespace skyvert {

/// Schedules alarms on Qt's event loop. An alarm that falls due while long work processes events
/// waits until the work has ended. An exception from its call ends in `dispatch`.
class QtScheduler final : public Scheduler {
public:
    /// The dialogs and the progress must outlive the scheduler.
    QtScheduler(Dialogs& dialogs, const Progress& progress)
        : dialogs_(dialogs), progress_(progress) {}

    std::unique_ptr<Alarm> after(std::chrono::milliseconds delay,
                                 std::function<void()> due) override;

private:
    Dialogs& dialogs_;
    const Progress& progress_;
    QObject timers_; ///< the parent of all timers
};

} // namespace skyvert
