#include "qt/UnixSignals.h"

#include <utility>

#ifdef Q_OS_UNIX

#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <span>
#include <sys/socket.h>
#include <system_error>
#include <unistd.h>

namespace skyvert {

namespace {

constexpr std::array kEndings{SIGINT, SIGTERM, SIGHUP};
constexpr std::array kFailedWrites{SIGPIPE, SIGXFSZ};

// A signal handler receives only the signal's number, so the socket pair that it writes to must be
// global.
// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables)
std::array<int, 2> ends{-1, -1};

/// Wakes the event loop by one byte, with calls that are safe in a signal handler. If the socket is
/// full, another byte is not needed.
void wakeEventLoop(int /*signal*/) {
    const int error = errno;
    [[maybe_unused]] const ssize_t written = write(ends[0], "", 1);
    errno = error;
}

void handleSignals(std::span<const int> numbers, void (*handler)(int)) {
    struct sigaction action {};

    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const int number : numbers) {
        struct sigaction present {};

        // A signal that was ignored at the program's start, as by nohup, stays ignored.
        const bool isIgnored = sigaction(number, nullptr, &present) == 0 &&
                               present.sa_handler == SIG_IGN && handler == &wakeEventLoop;
        if (!isIgnored)
            sigaction(number, &action, nullptr);
    }
}

void drain() {
    std::array<char, 64> bytes{};
    while (read(ends[1], bytes.data(), bytes.size()) > 0) {
    }
}

} // namespace

UnixSignals::UnixSignals() {
    if (socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()) != 0)
        throw std::system_error(errno, std::generic_category(), "socketpair");
    for (const int end : ends)
        fcntl(end, F_SETFL, O_NONBLOCK);
    notifier_ = new QSocketNotifier(ends[1], QSocketNotifier::Read, this);
    notifier_->setEnabled(false);
    connect(notifier_, &QSocketNotifier::activated, this, [this] {
        drain();
        asked_();
    });
    handleSignals(kEndings, &wakeEventLoop);
    handleSignals(kFailedWrites, SIG_IGN);
}

UnixSignals::~UnixSignals() {
    handleSignals(kEndings, SIG_DFL);
    handleSignals(kFailedWrites, SIG_DFL);
    for (const int end : ends)
        close(end);
}

void UnixSignals::onSignal(std::function<void()> asked) {
    asked_ = std::move(asked);
    notifier_->setEnabled(static_cast<bool>(asked_));
}

} // namespace skyvert

#else

namespace skyvert {

UnixSignals::UnixSignals() = default;

UnixSignals::~UnixSignals() = default;

void UnixSignals::onSignal(std::function<void()> asked) {
    asked_ = std::move(asked);
}

} // namespace skyvert

#endif
