#pragma once

#include <QObject>

#include <functional>

class QSocketNotifier;

namespace skyvert {

/// Catches the signals that ask a program to end (SIGINT, SIGTERM, SIGHUP) for as long as it lives,
/// and turns them into a call from the event loop. Writing to a pipe without a reader, or beyond
/// the size that a file may have, becomes an error of that write instead of the program's end.
/// Does nothing on systems that have no such signals.
/// At most one object of this class may live at a time.
class UnixSignals final : public QObject {
public:
    UnixSignals();
    ~UnixSignals() override;

    /// Has `asked` called for every signal, one that came before included. With an empty function
    /// signals are caught and have no effect.
    void onSignal(std::function<void()> asked);

private:
    std::function<void()> asked_;
    QSocketNotifier* notifier_ = nullptr;
};

} // namespace skyvert
