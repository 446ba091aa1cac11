#pragma once

#include <QObject>

#include <functional>

namespace skyvert {

/// Turns the signals that ask a program to end (SIGINT, SIGTERM, SIGHUP) into a call from the event
/// loop, for as long as it lives. Does nothing on systems that have no such signals.
/// At most one object of this class may live at a time.
class UnixSignals final : public QObject {
public:
    explicit UnixSignals(std::function<void()> asked);
    ~UnixSignals() override;

private:
    std::function<void()> asked_;
};

} // namespace skyvert
