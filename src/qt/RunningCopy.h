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

/// Makes sure that one copy of the program at a time uses a settings folder.
///
/// A lock file in the folder says which copy that is; the lock of a copy that was killed is taken
/// over. A copy that finds the folder in use leaves a request beside the lock. The copy in use
/// removes the request and shows itself.
class RunningCopy {
public:
    /// `folder` holds the settings; it is made if need be.
    explicit RunningCopy(const std::filesystem::path& folder);

    /// Why this copy may not go on.
    enum class Refusal {
        OtherCopyShown, ///< another copy uses the folder, and has come to the front
        OtherComputer,  ///< a copy on another computer does
        NoAnswer,       ///< another copy does, and does not answer
    };

    /// Takes the folder for this copy, or says why not. Waits for a copy that is about to end. A
    /// folder that takes no new file, for want of a permission or of room, has no lock, and every
    /// copy may use it.
    std::optional<Refusal> acquire();

    /// A sentence for the user; empty where none is needed.
    std::string explanation(Refusal refusal) const;

    /// Has `asked` called whenever another copy asks this one to show itself; it returns whether
    /// that was done. With an empty function requests are left unanswered. A copy that is about to
    /// end answers none: the other one then waits for its end.
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
    QTimer poll_; ///< where the folder cannot be watched
    std::function<bool()> asked_;
};

} // namespace skyvert
