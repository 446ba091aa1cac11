#pragma once

#include <QObject>

#include <functional>

class QSocketNotifier;

namespace skyvert {

/// During its lifetime, turns the signals that ask the program to end (SIGINT, SIGTERM, SIGHUP)
/// into a call from the event loop. A write to a pipe without a reader, or beyond the limit of file
/// sizes, then fails instead of ending the program. Does nothing on systems without these signals.
/// At most one object of this class may exist at a time.
class UnixSignals final : public QObject {
public:
    UnixSignals();
    ~UnixSignals() override;

    /// Sets the function to call after a signal, including one received earlier. With an empty
    /// function signals have no effect.
    void onSignal(std::function<void()> asked);

private:
    std::function<void()> asked_;
    QSocketNotifier* notifier_ = nullptr;
};

} // namespace skyvert
