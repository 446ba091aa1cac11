#include "qt/RunningCopy.h"

#include "platform/Files.h"
#include "qt/QtText.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QSysInfo>
#include <QThread>

#include <utility>

namespace skyvert {

namespace {

constexpr qint64 kPatienceMilliseconds = 30'000;
constexpr qint64 kFarPatienceMilliseconds = 3'000;
constexpr qint64 kNamelessMilliseconds = 1'000;
constexpr int kPollMilliseconds = 1'000;
constexpr unsigned long kPauseMilliseconds = 50;

QString pathOf(const std::filesystem::path& path) {
    return toQString(pathText(path));
}

} // namespace

RunningCopy::RunningCopy(const std::filesystem::path& folder)
    : folder_(pathOf(folder)), request_(pathOf(folder / "Preferences.show")),
      lock_(pathOf(folder / "Preferences.lock")) {
    QDir().mkpath(folder_);
    lock_.setStaleLockTime(0); // a lock becomes stale when its owner ends, never by its age
    QObject::connect(&watcher_, &QFileSystemWatcher::directoryChanged, &watcher_,
                     [this] { answerRequest(); });
    QObject::connect(&poll_, &QTimer::timeout, &poll_, [this] { answerRequest(); });
}

std::optional<RunningCopy::Refusal> RunningCopy::acquire() {
    if (tryLock())
        return std::nullopt;
    const std::optional<Owner> other = owner();
    // The computer may have been renamed, so the other copy is asked even if the names differ.
    const bool isNear = !other || other->computer == QSysInfo::machineHostName();
    return askOtherCopy(isNear ? kPatienceMilliseconds : kFarPatienceMilliseconds,
                        isNear ? Refusal::NoAnswer : Refusal::OtherComputer);
}

/// Returns true also if no lock can be created at all.
bool RunningCopy::tryLock() {
    return lock_.tryLock() || lock_.error() != QLockFile::LockFailedError;
}

std::optional<RunningCopy::Owner> RunningCopy::owner() const {
    Owner owner;
    if (!lock_.getLockInfo(&owner.process, &owner.computer, &owner.program))
        return std::nullopt;
    return owner;
}

/// Asks the other copy to show itself, and waits until it has done so or has ended. Returns nothing
/// if this copy has got the lock.
std::optional<RunningCopy::Refusal> RunningCopy::askOtherCopy(qint64 patience,
                                                              Refusal withoutAnswer) {
    if (!QFile(request_).open(QIODevice::WriteOnly))
        return withoutAnswer;
    QElapsedTimer waiting;
    waiting.start();
    while (waiting.elapsed() < patience) {
        if (tryLock())
            return std::nullopt;
        if (!QFile::exists(request_))
            return Refusal::OtherCopyShown;
        // A copy that was killed while it created the lock has left it without an owner.
        if (waiting.elapsed() > kNamelessMilliseconds && !owner() && lock_.removeStaleLockFile())
            continue;
        QThread::msleep(kPauseMilliseconds);
    }
    QFile::remove(request_);
    return withoutAnswer;
}

std::string RunningCopy::explanation(Refusal refusal) const {
    switch (refusal) {
    case Refusal::OtherComputer:
        return "Skyvert is running on the computer \"" +
               toUtf8(owner().value_or(Owner()).computer) +
               "\" with the same settings. End it there first. If it is not running there, remove "
               "the file \"" +
               toUtf8(lock_.fileName()) + "\".";
    case Refusal::NoAnswer:
        return "Skyvert is already running but does not respond.";
    case Refusal::OtherCopyShown:
        break;
    }
    return {};
}

void RunningCopy::answerRequest() {
    if (asked_ && QFile::exists(request_) && asked_())
        QFile::remove(request_);
}

void RunningCopy::onRequest(std::function<bool()> asked) {
    asked_ = std::move(asked);
    if (!asked_ || !lock_.isLocked())
        return;
    QFile::remove(request_);        // made before this copy could be shown
    if (!watcher_.addPath(folder_)) // the system limits how many it watches
        poll_.start(kPollMilliseconds);
}

} // namespace skyvert
