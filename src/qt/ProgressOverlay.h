#pragma once

#include "platform/Progress.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QProgressBar>
#include <QString>

namespace skyvert {

/// Shows long work as a bar in the middle of a window, under a busy pointer.
///
/// Nothing appears for work that is over within half a second. The bar is painted on the spot,
/// about ten times a second; no event is processed while the work runs.
class ProgressOverlay : public Progress {
public:
    ~ProgressOverlay() override;

    /// The window to show the bar in. Until there is one, nothing is shown.
    void setWindow(QWidget* window) { window_ = window; }

    void begin(std::string_view what) override;
    void report(std::int64_t rows, double fraction) override;
    void end() override;

private:
    void appear();
    void disappear();

    QPointer<QWidget> window_;
    QPointer<QProgressBar> bar_; ///< while it is shown; goes with the window
    QString what_;
    QElapsedTimer sinceBegin_;
    QElapsedTimer sincePainted_;
};

} // namespace skyvert
