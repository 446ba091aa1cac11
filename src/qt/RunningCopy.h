#pragma once

#include <QFileSystemWatcher>
#include <QLockFile>
#include <QString>
#include <QTimer>

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace skyvert {

/// Ensures that only one copy of the program at a time uses a settings folder.
///
/// A lock file in the folder names that copy; the lock of a copy that was killed is taken over. A
/// copy that finds the folder in use creates a request file beside the lock. The running copy shows
/// itself and removes the request.
class RunningCopy {
public:
    /// `folder` holds the settings; it is created if it is missing.
    explicit RunningCopy(const std::filesystem::path& folder);

    /// Why this copy may not run.
    enum class Refusal {
        OtherCopyShown, ///< another copy uses the folder and has come to the front
        OtherComputer,  ///< a copy on another computer uses the folder
        NoAnswer,       ///< another copy uses the folder and does not answer
    };

    /// Acquires the folder for this copy, or returns why it cannot. Waits for a copy that is about
    /// to end. A folder in which no file can be created (no permission, disk full) has no lock, and
    /// every copy may use it.
    std::optional<Refusal> acquire();

    /// A sentence for the user; empty if none is needed.
    std::string explanation(Refusal refusal) const;

    /// Sets the function to call when another copy asks this one to show itself. It returns whether
    /// it has done so. With an empty function requests stay unanswered. A copy that is about to end
    /// must not answer: the other copy then waits for its end.
    void onRequest(std::function<bool()> asked);

private:
    struct Owner {
        qint64 process = 0;
        QString computer;
        QString program;
    };

    bool tryLock();
    std::optional<Owner> owner() const;
    std::optional<Refusal> askOtherCopy(qint64 patience, Refusal withoutAnswer);
    void answerRequest();

    QString folder_;
    QString request_; ///< path of the file that asks the other copy to show itself
    QLockFile lock_;
    QFileSystemWatcher watcher_;
    QTimer poll_; ///< active if the folder cannot be watched
    std::function<bool()> asked_;
};

} // namespace skyvert
