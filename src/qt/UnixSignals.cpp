#include "qt/UnixSignals.h"

#include <utility>

#ifdef Q_OS_UNIX

#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>
#include <sys/socket.h>
#include <system_error>
#include <unistd.h>

namespace skyvert {

namespace {

constexpr std::array kSignals{SIGINT, SIGTERM, SIGHUP};

// A signal handler is given nothing but the signal's number, so the two ends of the socket that it
// writes to have to stand where it can find them.
// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables)
std::array<int, 2> ends{-1, -1};

/// Only what is safe inside a signal handler: one byte wakes the event loop.
void onSignal(int /*signal*/) {
    const int error = errno;
    [[maybe_unused]] const ssize_t written = write(ends[0], "", 1);
    errno = error;
}

void handleSignals(void (*handler)(int)) {
    struct sigaction action {};

    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const int signal : kSignals)
        sigaction(signal, &action, nullptr);
}

void drain() {
    char byte = 0;
    [[maybe_unused]] const ssize_t taken = read(ends[1], &byte, 1);
}

} // namespace

UnixSignals::UnixSignals(std::function<void()> asked) : asked_(std::move(asked)) {
    if (socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()) != 0)
        throw std::system_error(errno, std::generic_category(), "socketpair");
    auto* const notifier = new QSocketNotifier(ends[1], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] {
        drain();
        asked_();
    });
    handleSignals(&onSignal);
}

UnixSignals::~UnixSignals() {
    handleSignals(SIG_DFL);
    for (const int end : ends)
        close(end);
}

} // namespace skyvert

#else

namespace skyvert {

UnixSignals::UnixSignals(std::function<void()> asked) : asked_(std::move(asked)) {}

UnixSignals::~UnixSignals() = default;

} // namespace skyvert

#endif
