#pragma once

#include "support/TestDesktop.h"
#include "workspace/MainWindow.h"

namespace skyvert {

using Row = std::vector<std::string>;

/// The whole program without a screen, with a settings folder of its own.
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

    /// Lets the timers of the start run.
    void settle() { machine.scheduler.advance(std::chrono::milliseconds(500)); }

    /// Ends the program the orderly way.
    void end() {
        window->close();
        app.Event_Close();
    }

    void setFormats(std::string_view input, std::string_view output) {
        window->inFormat.setFormat(RADecFormat(input, machine.locale));
        window->outFormat.setFormat(RADecFormat(output, machine.locale));
    }

    Row row(std::int64_t index) const {
        Row cells;
        for (std::int64_t column = 0; column < 4; ++column)
            cells.emplace_back(window->list.Cell(index, column));
        return cells;
    }

    Row headings() const {
        Row texts;
        for (std::int64_t column = 0; column < 4; ++column)
            texts.push_back(window->list.Heading(column));
        return texts;
    }

    TestDesktop machine;
    App app;
    std::optional<MainWindow> window;
    std::optional<int> quitCode;
};

} // namespace skyvert
