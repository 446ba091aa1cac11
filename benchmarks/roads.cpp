// roads ROAD IN OUT DIALECT INPUT-FORMAT OUTPUT-FORMAT
//
// Runs one road of the program without a screen, and prints its rows, its nanoseconds a row and
// the memory of the process. ROAD is import (file to list), export (list to file), save (list to
// settings file), load (settings file to list) or start (a program whose list is empty). Formats
// are the text form of a format with ";" in place of tabs. Only the road itself is timed. The
// settings file is looked for in the folder of OUT. The epochs are 1 January 1950 and 2000.
#include "platform/Clock.h"
#include "workspace/MainWindow.h"

#include <algorithm>
#include <chrono>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <string>

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

class FixedDialogs : public Dialogs {
public:
    std::optional<std::filesystem::path> GetOpenFolderItem(const FileType& /*filter*/) override {
        return in;
    }

    std::optional<std::filesystem::path>
    GetSaveFolderItem(const FileType& /*filter*/, std::string_view /*defaultName*/) override {
        return out;
    }

    void MsgBox(std::string_view text) override { std::cerr << text << '\n'; }

    std::filesystem::path in;
    std::filesystem::path out;
};

class NoProgress : public Progress {
public:
    void begin(std::string_view /*what*/) override {}

    void report(std::int64_t /*rows*/, double /*fraction*/) override {}

    void end() override {}
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

RADecFormat formatOf(std::string text, const Locale& locale) {
    std::replace(text.begin(), text.end(), ';', '\t');
    return {text, locale};
}

void choose(Program& program, const std::string& dialect, const std::string& input,
            const std::string& output) {
    MainWindow& window = *program.window;
    window.fromEpoch.epochPopup.setValue("B1950.0");
    window.toEpoch.epochPopup.setValue("J2000.0");
    window.inFormat.setFormat(formatOf(input, program.locale));
    window.outFormat.setFormat(formatOf(output, program.locale));
    window.fileFormat.setValue(dialect);
    window.ListFormat.setValue(dialect);
}

double nanoseconds(const std::function<void()>& road) {
    const auto begin = std::chrono::steady_clock::now();
    road();
    return std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - begin)
        .count();
}

double run(const std::string& road, Program& program) {
    MainWindow& window = *program.window;
    if (road == "load")
        return nanoseconds([&] { program.scheduler.runAll(); });
    if (road == "start")
        return 0;
    const double import = nanoseconds([&] { window.FileImportBtn.press(); });
    if (road == "export")
        return nanoseconds([&] { window.ExportListBtn.press(); });
    if (road == "save") {
        return nanoseconds([&] {
            window.close();
            program.app.Event_Close();
        });
    }
    return import;
}

/// The memory that the process holds now, in bytes; 0 where the system does not tell.
double residentBytes() {
    constexpr double kPage = 4096;
    double pages = 0;
    std::ifstream statm("/proc/self/statm");
    statm >> pages >> pages;
    return pages * kPage;
}

} // namespace

int main(int argc, char* argv[]) {
    if (argc < 7) {
        std::cerr << "usage: roads ROAD IN OUT DIALECT INPUT-FORMAT OUTPUT-FORMAT\n";
        return 2;
    }
    const std::string road = argv[1];
    const std::filesystem::path out = argv[3];
    Program program(out.parent_path());
    program.dialogs.in = argv[2];
    program.dialogs.out = out;
    if (road != "load")
        choose(program, argv[4], argv[5], argv[6]);
    const double time = run(road, program);
    const std::int64_t rows = program.window->list.RowCount();
    std::cout << std::fixed << std::setprecision(1) << road << " rows " << rows << "  "
              << time / static_cast<double>(std::max<std::int64_t>(rows, 1)) << " ns/row  "
              << residentBytes() / 1e6 << " MB\n";
}
