#include "qt/MainWindowView.h"

#include "platform/SettingGuard.h"
#include "qt/MenuBarView.h"
#include "qt/QtText.h"

#include <QApplication>
#include <QCloseEvent>
#include <QScreen>

#include <algorithm>

namespace skyvert {

MainWindowView::MainWindowView(MainWindow& window, const App& app)
    : window_(window), desktop_(app.desktop()),
      pane_(new LockedPane({window.layout().width, window.layout().height}, this)) {
    setObjectName(toQString(window.name()));
    new MenuBarView(app.menuBar(), *menuBar());
    setCentralWidget(pane_);
    addControls();
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

/// Outside a dialog Qt does not do this.
void MainWindowView::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && (event->modifiers() & ~Qt::KeypadModifier) == 0)
        pressDefaultButton();
    else
        QMainWindow::keyPressEvent(event);
}

void MainWindowView::limitSize() {
    setFixedWidth(window_.width());
    setMinimumHeight(window_.minimumHeight() + menuBarHeight());
    setMaximumHeight(window_.maximumHeight() + menuBarHeight());
}

void MainWindowView::open() {
    const QPoint position = defaultPosition();
    window_.setLeft(position.x());
    window_.setTop(position.y());
    dispatch(desktop_.dialogs, [this] { window_.open(); });
    pane_->fitFont();
    limitSize();
    refresh();
    show();
    window_.raManual.SetFocus();
    reportPlace();
}

/// The centre of the screen, without what panels and docks cover of it.
QPoint MainWindowView::defaultPosition() const {
    QRect place(0, 0, window_.width(), window_.height() + menuBarHeight());
    place.moveCenter(screen()->availableGeometry().center());
    return place.topLeft();
}

int MainWindowView::menuBarHeight() const {
    return menuBar()->isNativeMenuBar() ? 0 : menuBar()->heightForWidth(window_.width());
}

void MainWindowView::refresh() {
    if (reporting_)
        return;
    setWindowTitle(toQString(window_.title()));
    move(window_.left(), window_.top());
    const int height =
        std::clamp(window_.height(), window_.minimumHeight(), window_.maximumHeight());
    resize(window_.width(), height + menuBarHeight());
}

void MainWindowView::reportPlace() {
    if (!isVisible())
        return;
    const SettingGuard guard(reporting_);
    window_.setLeft(pos().x());
    window_.setTop(pos().y());
    window_.setHeight(height() - menuBarHeight());
}

void MainWindowView::moveEvent(QMoveEvent* event) {
    QMainWindow::moveEvent(event);
    reportPlace();
}

void MainWindowView::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    reportPlace();
}

void MainWindowView::closeEvent(QCloseEvent* event) {
    // A field takes over what has been typed when it loses the focus.
    if (QWidget* const field = focusWidget())
        field->clearFocus();
    dispatch(desktop_.dialogs, [this] { window_.close(); });
    event->accept();
}

void MainWindowView::comeToFront() {
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

void MainWindowView::closeAll() {
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
        if (widget != this && widget->isVisible())
            widget->close();
    }
    close();
}

} // namespace skyvert
