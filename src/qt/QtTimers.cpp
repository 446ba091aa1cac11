#include "qt/QtTimers.h"

#include <QTimer>

#include <utility>

namespace skyvert {

namespace {

constexpr std::chrono::milliseconds kRetryDelay{20};

class QtAlarm final : public Alarm {
public:
    explicit QtAlarm(QTimer* timer) : timer_(timer) {}

    /// The timer may be emitting its signal, so the event loop deletes it.
    ~QtAlarm() override {
        timer_->stop();
        timer_->deleteLater();
    }

private:
    QTimer* timer_;
};

} // namespace

std::unique_ptr<Alarm> QtScheduler::after(std::chrono::milliseconds delay,
                                          std::function<void()> due) {
    auto* const timer = new QTimer(&timers_);
    timer->setSingleShot(true);
    timer->setTimerType(Qt::PreciseTimer);
    QObject::connect(timer, &QTimer::timeout, timer, [this, timer, due = std::move(due)] {
        if (progress_.isWorking())
            timer->start(kRetryDelay);
        else
            dispatch(dialogs_, due);
    });
    timer->start(delay);
    return std::make_unique<QtAlarm>(timer);
}

} // namespace skyvert
