#include "qt/MainWindowView.h"

#include "platform/SettingGuard.h"
#include "qt/MenuBarView.h"
#include "qt/QtText.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>

#include <algorithm>
#include <chrono>
#include <utility>

namespace skyvert {

namespace {

/// The time after the start in which the platform may still move the window.
constexpr std::chrono::milliseconds kPlacingTime{500};

/// In pixels. No platform shows a window farther out, and X11 cannot express its position.
constexpr int kFarthest = 16'000;

/// Room for the window manager's frame, whose size is not known before the window is shown.
constexpr QSize kFrame(8, 48);

/// The local files among the dragged objects.
std::vector<std::filesystem::path> filesIn(const QMimeData& dragged) {
    std::vector<std::filesystem::path> files;
    for (const QUrl& url : dragged.urls()) {
        if (url.isLocalFile())
            files.push_back(QFileInfo(url.toLocalFile()).filesystemFilePath());
    }
    return files;
}

/// Wayland does not tell a program where its windows are.
bool isPositionKnown() {
    return !QGuiApplication::platformName().startsWith("wayland");
}

} // namespace

MainWindowView::MainWindowView(MainWindow& window, const App& app)
    : window_(window), desktop_(app.desktop()),
      pane_(new LockedPane({window.layout().width, window.layout().height}, this)) {
    setObjectName(toQString(window.name()));
    setAcceptDrops(true);
    setCentralWidget(pane_);
    addControls();
    new MenuBarView(app.menuBar(), *menuBar());
    limitSize();
    window_.setView(this);
}

MainWindowView::~MainWindowView() {
    window_.setView(nullptr);
}

void MainWindowView::addControls() {
    std::vector<ShownControl> controls = showControls(window_.children(), desktop_, pane_);
    orderTabStops(controls);
    pane_->place(std::move(controls));
}

void MainWindowView::pressDefaultButton() {
    for (Control* const control : window_.children()) {
        auto* const button = dynamic_cast<PushButton*>(control);
        if (button != nullptr && button->isDefault())
            dispatch(desktop_.dialogs, [button] { button->press(); });
    }
}

/// Qt does this only in dialogs.
void MainWindowView::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && (event->modifiers() & ~Qt::KeypadModifier) == 0)
        pressDefaultButton();
    else
        QMainWindow::keyPressEvent(event);
}

void MainWindowView::limitSize() {
    setFixedWidth(widthInPixels());
    setMinimumHeight(pane_->toPixels(window_.minimumHeight()) + menuBarHeight());
    setMaximumHeight(pane_->toPixels(window_.maximumHeight()) + menuBarHeight());
}

void MainWindowView::open(const QRect& screenArea) {
    const double largest = largestPoint(screenArea.size() - kFrame);
    pane_->settlePoint(largest);
    setDefaultPlace(screenArea);
    dispatch(desktop_.dialogs, [this] { window_.open(); });
    pane_->fit(largest);
    limitSize();
    refresh();
    placing_ = desktop_.scheduler.after(kPlacingTime, [this] { placing_.reset(); });
    show();
    window_.raManual.SetFocus();
}

/// The most pixels per point with which a window of the minimum height fits into `room`.
double MainWindowView::largestPoint(const QSize& room) const {
    return std::min(double(room.width()) / window_.width(),
                    double(room.height() - menuBarHeight()) / window_.minimumHeight());
}

/// Centres the window on the screen, with the height of its layout if there is room for it.
void MainWindowView::setDefaultPlace(const QRect& screenArea) {
    const int room = screenArea.height() - kFrame.height() - menuBarHeight();
    window_.setHeight(
        std::max(std::min(window_.height(), pane_->toPoints(room)), window_.minimumHeight()));
    const QSize size(widthInPixels(),
                     pane_->toPixels(window_.height()) + menuBarHeight() + kFrame.height());
    QRect place({}, size);
    place.moveCenter(screenArea.center());
    window_.setLeft(place.left());
    window_.setTop(place.top());
}

int MainWindowView::widthInPixels() const {
    return pane_->toPixels(window_.width());
}

int MainWindowView::menuBarHeight() const {
    return menuBar()->isNativeMenuBar() ? 0 : menuBar()->heightForWidth(widthInPixels());
}

void MainWindowView::refresh() {
    if (reporting_)
        return;
    setWindowTitle(toQString(window_.title()));
    move(std::clamp(window_.left(), -kFarthest, kFarthest),
         std::clamp(window_.top(), -kFarthest, kFarthest));
    const int height =
        std::clamp(window_.height(), window_.minimumHeight(), window_.maximumHeight());
    resize(widthInPixels(), pane_->toPixels(height) + menuBarHeight());
}

/// Reports changes by the user. Changes by the platform at the start are not reported: it may
/// ignore the requested position, and several heights in points may be the same height in pixels.
void MainWindowView::reportPlace() {
    if (!isVisible())
        return;
    const QRect before = std::exchange(place_, QRect(pos(), size()));
    if (placing_)
        return;
    const SettingGuard guard(reporting_);
    if (isPositionKnown() && place_.left() != before.left())
        window_.setLeft(place_.left());
    if (isPositionKnown() && place_.top() != before.top())
        window_.setTop(place_.top());
    if (place_.height() != before.height())
        window_.setHeight(pane_->toPoints(height() - menuBarHeight()));
}

void MainWindowView::moveEvent(QMoveEvent* event) {
    QMainWindow::moveEvent(event);
    reportPlace();
}

void MainWindowView::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    reportPlace();
}

void MainWindowView::dragEnterEvent(QDragEnterEvent* event) {
    event->setDropAction(Qt::CopyAction); // files stay where they are
    event->setAccepted(!filesIn(*event->mimeData()).empty());
}

void MainWindowView::dropEvent(QDropEvent* event) {
    event->setDropAction(Qt::CopyAction);
    event->accept();
    dropped_ = desktop_.scheduler.after(
        std::chrono::milliseconds(0), [this, files = filesIn(*event->mimeData())] {
            const std::unique_ptr<Alarm> spent = std::move(dropped_);
            window_.FilesDropped(files);
        });
}

void MainWindowView::closeEvent(QCloseEvent* event) {
    // A field assigns its typed text when it loses the focus.
    if (QWidget* const field = focusWidget())
        field->clearFocus();
    dispatch(desktop_.dialogs, [this] { window_.close(); });
    event->accept();
}

bool MainWindowView::comeToFront() {
    if (window_.isClosed())
        return false;
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
    return true;
}

void MainWindowView::closeAll() {
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
        if (widget != this && widget->isVisible())
            widget->close();
    }
    close();
}

} // namespace skyvert
