#pragma once

#include "qt/MainWindowView.h"
#include "qt/QtText.h"
#include "support/TestDesktop.h"

#include <QApplication>
#include <QTest>

#include <array>

namespace skyvert {

/// The whole program on real widgets, with scripted dialogs and virtual time. Tests do the rest by
/// keys and clicks.
struct ShownWindow {
    explicit ShownWindow(Locale locale = {}) : machine(std::move(locale)) { app.Event_Open(); }

    /// Shows the window and runs the timers of the start.
    void open(const QRect& screenArea = {0, 0, 1280, 1024}) {
        view.open(screenArea);
        QApplication::setActiveWindow(&view);
        advance();
    }

    void advance() { machine.scheduler.advance(std::chrono::milliseconds(500)); }

    /// The widget of a control; a child of a composite by its path: "toEpoch/epochDate".
    template <typename Widget = QWidget>
    Widget* find(const QString& path) {
        QWidget* found = &view;
        for (const QString& name : path.split('/'))
            found = found->findChild<QWidget*>(name);
        return dynamic_cast<Widget*>(found);
    }

    void addRows(int count) {
        constexpr std::array<std::string_view, 4> kCells{"12 30", "+10 15", "12 31", "+10 06"};
        for (int row = 0; row < count; ++row) {
            window.list.AddRow(kCells);
            window.list.setListIndex(window.list.LastIndex());
        }
    }

    TemporaryFolder settings;
    TestDesktop machine;
    App app{machine.desktop, settings.path()};
    MainWindow window{app};
    MainWindowView view{window, app};
};

/// A window that is open from the start.
struct OpenWindow : ShownWindow {
    OpenWindow() { open(); }
};

} // namespace skyvert
