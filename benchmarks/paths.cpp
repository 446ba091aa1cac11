// paths PATH IN OUT DIALECT INPUT-FORMAT OUTPUT-FORMAT
//
// Runs one path of the program without a screen, and prints its rows, its nanoseconds a row and
// the memory of the process. PATH is import (file to list), export (list to file), save (list to
// settings file), load (settings file to list) or start (a program whose list is empty). Formats
// are the text form of a format with ";" in place of tabs. Only the path itself is timed. The
// settings file is looked for in the folder of OUT. The epochs are 1 January 1950 and 2000.
#include "PathProgram.h"

#include <iomanip>

using namespace skyvert;

namespace {

/// Holds back what is due until it is asked for it.
class PatientScheduler : public Scheduler {
public:
    std::unique_ptr<Alarm> after(std::chrono::milliseconds /*delay*/,
                                 std::function<void()> due) override {
        due_.push_back(std::move(due));
        return std::make_unique<Alarm>();
    }

    void runAll() {
        for (const auto& due : std::exchange(due_, {}))
            due();
    }

private:
    std::vector<std::function<void()>> due_;
};

/// The program as far as its event loop, with its settings in the folder `settings`.
struct Program {
    explicit Program(const std::filesystem::path& settings) : app(desktop, settings) {
        app.Event_Open();
        window.emplace(app);
        window->open();
    }

    Locale locale;
    SystemClock clock;
    PatientScheduler scheduler;
    FixedDialogs dialogs;
    NoProgress progress;
    Desktop desktop{locale, clock, scheduler, dialogs, progress};
    App app;
    std::optional<MainWindow> window;
};

double run(const std::string& path, Program& program) {
    MainWindow& window = *program.window;
    if (path == "start")
        return 0;
    const double import = nanoseconds([&] { window.FileImportBtn.press(); });
    if (path == "export")
        return nanoseconds([&] { window.ExportListBtn.press(); });
    if (path == "save") {
        return nanoseconds([&] {
            window.close();
            program.app.Event_Close();
        });
    }
    return import;
}

} // namespace

int main(int argc, char* argv[]) {
    if (argc < 7) {
        std::cerr << "usage: paths PATH IN OUT DIALECT INPUT-FORMAT OUTPUT-FORMAT\n";
        return 2;
    }
    const std::string path = argv[1];
    const std::filesystem::path out = argv[3];
    std::optional<Program> program;
    const double start = nanoseconds([&] { program.emplace(out.parent_path()); });
    program->dialogs.in = argv[2];
    program->dialogs.out = out;
    const double ready = nanoseconds([&] { program->scheduler.runAll(); });
    if (path != "load")
        choose(*program->window, program->locale, argv[4], argv[5], argv[6]);
    const double time = path == "load" ? start + ready : run(path, *program);
    const std::int64_t rows = program->window->list.RowCount();
    std::cout << std::fixed << std::setprecision(1) << path << " rows " << rows << "  "
              << time / static_cast<double>(std::max<std::int64_t>(rows, 1)) << " ns/row  "
              << residentBytes() / 1e6 << " MB\n";
}
