#include "qt/ProgressOverlay.h"

#include "qt/QtText.h"

#include <QAction>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QProgressBar>
#include <QPushButton>

#include <algorithm>
#include <array>
#include <utility>

namespace skyvert {

namespace {

constexpr qint64 kPatienceMilliseconds = 500;
constexpr qint64 kUpdateMilliseconds = 100;
constexpr int kWidthInCharacters = 60;
constexpr int kSteps = 1000;

/// The events of mouse, keyboard, tablet, touch, and drag and drop.
constexpr std::array kInputs{QEvent::MouseButtonPress,
                             QEvent::MouseButtonRelease,
                             QEvent::MouseButtonDblClick,
                             QEvent::MouseMove,
                             QEvent::Wheel,
                             QEvent::KeyPress,
                             QEvent::KeyRelease,
                             QEvent::Shortcut,
                             QEvent::ShortcutOverride,
                             QEvent::InputMethod,
                             QEvent::ContextMenu,
                             QEvent::TabletPress,
                             QEvent::TabletMove,
                             QEvent::TabletRelease,
                             QEvent::TouchBegin,
                             QEvent::TouchUpdate,
                             QEvent::TouchEnd,
                             QEvent::NativeGesture,
                             QEvent::DragEnter,
                             QEvent::DragMove,
                             QEvent::Drop};

bool isInput(QEvent::Type type) {
    return std::find(kInputs.begin(), kInputs.end(), type) != kInputs.end();
}

bool isEscape(const QEvent& event) {
    const auto* const key = dynamic_cast<const QKeyEvent*>(&event);
    return key != nullptr && key->type() == QEvent::KeyPress && key->key() == Qt::Key_Escape;
}

bool isQuit(const QObject* object) {
    const auto* const action = qobject_cast<const QAction*>(object);
    return action != nullptr && action->menuRole() == QAction::QuitRole;
}

} // namespace

ProgressOverlay::~ProgressOverlay() {
    disappear();
}

void ProgressOverlay::begin(std::string_view what, StoppedBy stoppedBy) {
    what_ = toQString(what);
    stoppedBy_ = stoppedBy;
    working_ = true;
    stopped_ = false;
    sinceBegin_.start();
}

bool ProgressOverlay::report(std::int64_t rows, double fraction) {
    if (!window_ || sinceBegin_.elapsed() < kPatienceMilliseconds)
        return true;
    if (!frame_)
        appear();
    if (sinceShown_.isValid() && sinceShown_.elapsed() < kUpdateMilliseconds)
        return !stopped_;
    bar_->setFormat(QString("%1: %2 rows, %p %").arg(what_).arg(rows));
    bar_->setValue(static_cast<int>(fraction * kSteps));
    QCoreApplication::processEvents();
    sinceShown_.start();
    return !stopped_;
}

void ProgressOverlay::end() {
    disappear();
    working_ = false;
    if (std::exchange(closing_, false))
        closeWindowLater();
}

/// Queued, so that the handler that runs the work returns first.
void ProgressOverlay::closeWindowLater() {
    QMetaObject::invokeMethod(window_, "close", Qt::QueuedConnection);
}

void ProgressOverlay::appear() {
    QGuiApplication::setOverrideCursor(Qt::BusyCursor);
    frame_ = new QFrame(window_);
    frame_->setFrameShape(QFrame::StyledPanel);
    frame_->setAutoFillBackground(true);
    auto* const row = new QHBoxLayout(frame_);
    bar_ = new QProgressBar;
    bar_->setObjectName("progress");
    bar_->setRange(0, kSteps);
    bar_->setAlignment(Qt::AlignCenter);
    row->addWidget(bar_);
    if (stoppedBy_ == StoppedBy::User) {
        auto* const button = new QPushButton("Stop");
        button->setObjectName("stop");
        button->setFocusPolicy(Qt::NoFocus); // so that the focus stays where it was
        button->setToolTip("Esc");
        connect(button, &QPushButton::clicked, this, [this] { stop(StoppedBy::User); });
        row->addWidget(button);
    }
    frame_->resize(window_->fontMetrics().averageCharWidth() * kWidthInCharacters,
                   frame_->sizeHint().height());
    frame_->move(window_->rect().center() - frame_->rect().center());
    frame_->show();
    sinceShown_.invalidate();
    qApp->installEventFilter(this);
}

void ProgressOverlay::disappear() {
    if (!frame_)
        return;
    qApp->removeEventFilter(this);
    delete frame_.data();
    QGuiApplication::restoreOverrideCursor();
}

void ProgressOverlay::stop(StoppedBy by) {
    stopped_ = stopped_ || by <= stoppedBy_;
}

bool ProgressOverlay::belongsToFrame(const QObject* object) const {
    for (; object != nullptr; object = object->parent()) {
        if (object == frame_)
            return true;
    }
    return false;
}

bool ProgressOverlay::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Close && watched == window_) {
        event->ignore();
        closing_ = stoppedBy_ != StoppedBy::Nobody;
        stop(StoppedBy::ProgramEnd);
        return true;
    }
    if (!isInput(event->type()) || isQuit(watched))
        return false;
    if (isEscape(*event))
        stop(StoppedBy::User);
    // An event for a whole window passes: Qt sends it on to a widget, where it is filtered again.
    const bool isKey = dynamic_cast<const QKeyEvent*>(event) != nullptr;
    return isKey || !(watched->isWindowType() || belongsToFrame(watched));
}

} // namespace skyvert
