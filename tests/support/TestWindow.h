#pragma once

#include "support/TestDesktop.h"
#include "workspace/MainWindow.h"

#include <gtest/gtest.h>

namespace skyvert {

/// The whole program without a screen, with its own settings folder.
class TestWindow {
public:
    /// Starts the program, up to its event loop.
    explicit TestWindow(const TemporaryFolder& settings, Locale locale = {})
        : machine(std::move(locale)), app(machine.desktop, settings.path()) {
        app.onQuit = [this](int code) { quitCode = code; };
        app.Event_Open();
        window.emplace(app);
        window->open();
    }

    /// Runs the timers of the start.
    void settle() { machine.scheduler.advance(std::chrono::milliseconds(500)); }

    /// Ends the program in order.
    void end() {
        window->close();
        app.Event_Close();
    }

    void setFormats(std::string_view input, std::string_view output) {
        window->inFormat.setFormat(RADecFormat(input, machine.locale));
        window->outFormat.setFormat(RADecFormat(output, machine.locale));
    }

    /// The first cells of all rows, with "|" after each cell and ";" after each row.
    std::string rows(std::int64_t columns = 4) const {
        std::string text;
        for (std::int64_t row = 0; row < window->list.RowCount(); ++row, text += ";")
            for (std::int64_t column = 0; column < columns; ++column)
                text.append(window->list.Cell(row, column)).append("|");
        return text;
    }

    std::string headings() const {
        std::string text;
        for (const int column : {0, 1, 2, 3})
            text += window->list.Heading(column) + "|";
        return text;
    }

    TestDesktop machine;
    App app;
    std::optional<MainWindow> window;
    std::optional<int> quitCode;
};

/// A test of the program after its start, in a new folder.
struct WindowTest : testing::Test {
    WindowTest() { program.settle(); }

    TemporaryFolder folder;
    TestWindow program{folder};
    MainWindow& main = *program.window;
};

} // namespace skyvert
