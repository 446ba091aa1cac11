#include "qt/ProgressOverlay.h"

#include "qt/QtText.h"

#include <QGuiApplication>

namespace skyvert {

namespace {

constexpr qint64 kPatienceMilliseconds = 500;
constexpr qint64 kRepaintMilliseconds = 100;
constexpr int kWidth = 420;
constexpr int kHeight = 28;
constexpr int kSteps = 1000;

} // namespace

ProgressOverlay::~ProgressOverlay() {
    disappear();
}

void ProgressOverlay::begin(std::string_view what) {
    what_ = toQString(what);
    sinceBegin_.start();
}

void ProgressOverlay::appear() {
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    bar_ = new QProgressBar(window_);
    bar_->setObjectName("progress");
    bar_->setRange(0, kSteps);
    bar_->setAlignment(Qt::AlignCenter);
    bar_->setAutoFillBackground(true);
    bar_->setGeometry((window_->width() - kWidth) / 2, (window_->height() - kHeight) / 2, kWidth,
                      kHeight);
    bar_->show();
    // Where the dialog stood that the work began with, its picture would stay for as long.
    for (QWidget* const widget : window_->findChildren<QWidget*>())
        widget->repaint();
    sincePainted_.invalidate();
}

void ProgressOverlay::report(std::int64_t rows, double fraction) {
    if (!window_ || sinceBegin_.elapsed() < kPatienceMilliseconds)
        return;
    if (!bar_)
        appear();
    if (sincePainted_.isValid() && sincePainted_.elapsed() < kRepaintMilliseconds)
        return;
    bar_->setFormat(QString("%1: %2 rows, %p %").arg(what_).arg(rows));
    bar_->setValue(static_cast<int>(fraction * kSteps));
    bar_->repaint();
    sincePainted_.start();
}

void ProgressOverlay::end() {
    disappear();
}

void ProgressOverlay::disappear() {
    if (!bar_)
        return;
    delete bar_.data();
    QGuiApplication::restoreOverrideCursor();
}

} // namespace skyvert
