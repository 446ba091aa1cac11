#pragma once

#include "controls/Progress.h"

#include <QElapsedTimer>
#include <QFrame>
#include <QPointer>
#include <QString>

class QProgressBar;

namespace skyvert {

/// Shows the progress of long work as a bar in the middle of a window, with a "Stop" button if the
/// user may stop the work.
///
/// Nothing appears for work that ends within half a second. After that the bar is updated about ten
/// times a second, and events are processed: the window is painted, and the button, Escape or
/// closing the window stops the work. In the last case the window closes after the work has ended.
/// All other input is ignored.
class ProgressOverlay final : public QObject, public Progress {
public:
    ~ProgressOverlay() override;

    /// Sets the window that shows the bar. Without one, nothing is shown and no work is stopped.
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
    QPointer<QFrame> frame_; ///< the bar and its button while they are shown; owned by the window
    QProgressBar* bar_ = nullptr;
    QString what_;
    StoppedBy stoppedBy_ = StoppedBy::Nobody;
    bool working_ = false;
    bool stopped_ = false;
    bool closing_ = false; ///< the window closes after the work has ended
    QElapsedTimer sinceBegin_;
    QElapsedTimer sinceShown_;
};

} // namespace skyvert
