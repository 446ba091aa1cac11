#pragma once

#include "qt/Arrangement.h"
#include "workspace/MainWindow.h"

#include <QMainWindow>

namespace skyvert {

/// Shows the main window: its menu bar, its controls, its place and its size.
class MainWindowView final : public QMainWindow, public ControlView {
public:
    /// Makes the widgets of all controls. The window and the application outlive the view.
    MainWindowView(MainWindow& window, const App& app);
    ~MainWindowView() override;

    /// Tells the window where it will stand by default, runs its open handlers, which may restore
    /// another place, and shows it. `screenArea` is what panels and docks leave of the screen, in
    /// pixels: the window fits into it as far as its letters can be read.
    void open(const QRect& screenArea);

    /// Closes whatever is open, dialogs and popups first, so that the program ends the orderly way
    /// at whatever moment it is told to end.
    void closeAll();

    /// Shows the window above all others, and gives it the keyboard. False once it has closed.
    bool comeToFront();

    void refresh() override;

protected:
    /// Return presses the default button, where no control had a use for it.
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    /// Imports files, once the program that they come from has been answered.
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
    std::unique_ptr<Alarm> dropped_; ///< the import of what has been dropped
    bool reporting_ = false;
    QRect place_;                    ///< where the window was last, in pixels
    std::unique_ptr<Alarm> placing_; ///< while the platform finds a place for the window
};

} // namespace skyvert
