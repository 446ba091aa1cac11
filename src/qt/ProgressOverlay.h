#pragma once

#include "controls/Progress.h"

#include <QElapsedTimer>
#include <QFrame>
#include <QPointer>
#include <QString>

class QProgressBar;

namespace skyvert {

/// Shows long work as a bar in the middle of a window, with a "Stop" button where the user may stop
/// the work.
///
/// Nothing appears for work that is over within half a second. After that the bar is brought up to
/// date about ten times a second, and events are processed: the window is painted, and the work is
/// stopped by the button, by Escape, and by closing the window, which then closes when the work has
/// ended. Whatever else a person does meanwhile has no effect.
class ProgressOverlay final : public QObject, public Progress {
public:
    ~ProgressOverlay() override;

    /// The window to show the bar in. Until there is one, nothing is shown and nothing stopped.
    void setWindow(QWidget* window) { window_ = window; }

    void begin(std::string_view what, StoppedBy stoppedBy) override;
    bool report(std::int64_t rows, double fraction) override;
    void end() override;

    bool isWorking() const override { return working_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void appear();
    void disappear();
    void stop(StoppedBy by);
    void closeWindowLater();
    bool belongsToFrame(const QObject* object) const;

    QPointer<QWidget> window_;
    QPointer<QFrame> frame_; ///< the bar and its button, while they are shown; goes with the window
    QProgressBar* bar_ = nullptr;
    QString what_;
    StoppedBy stoppedBy_ = StoppedBy::Nobody;
    bool working_ = false;
    bool stopped_ = false;
    bool closing_ = false; ///< whether the window closes when the work has ended
    QElapsedTimer sinceBegin_;
    QElapsedTimer sinceShown_;
};

} // namespace skyvert
