#pragma once

#include "qt/Arrangement.h"
#include "workspace/MainWindow.h"

#include <QMainWindow>

namespace skyvert {

/// Shows the main window: its menu bar, its controls, its position and its size.
class MainWindowView final : public QMainWindow, public ControlView {
public:
    /// Creates the widgets of all controls. The window and the application must outlive the view.
    MainWindowView(MainWindow& window, const App& app);
    ~MainWindowView() override;

    /// Sets the window's default position, runs its open handlers, which may restore another one,
    /// and shows it. `screenArea` is the screen without panels and docks, in pixels: the window
    /// fits into it as far as its texts stay readable.
    void open(const QRect& screenArea);

    /// Closes all dialogs and popups, then the window, so that the program ends in the normal way
    /// at any moment.
    void closeAll();

    /// Raises the window and gives it the keyboard focus. Returns false if it has closed.
    bool comeToFront();

    void refresh() override;

protected:
    /// Return presses the default button unless a control has handled it.
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    /// Imports files, after the program that they come from has received its answer.
    void dropEvent(QDropEvent* event) override;

private:
    void addControls();
    void pressDefaultButton();
    double largestPoint(const QSize& room) const;
    void limitSize();
    void setDefaultPlace(const QRect& screenArea);
    void reportPlace();
    int widthInPixels() const;
    int menuBarHeight() const;

    MainWindow& window_;
    const Desktop& desktop_;
    LockedPane* pane_;
    std::unique_ptr<Alarm> dropped_; ///< the pending import of dropped files
    bool reporting_ = false;
    QRect place_;                    ///< the last position and size, in pixels
    std::unique_ptr<Alarm> placing_; ///< set while the platform may still move the window
};

} // namespace skyvert
