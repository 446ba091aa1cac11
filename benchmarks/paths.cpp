// paths PATH IN OUT DIALECT FORMAT [DECIMAL-SEPARATOR]
//
// Runs one path of the program without a screen. PATH is import (file to list), export (list to
// file), save (list to settings file) or load (settings file to list). FORMAT, of input and output,
// is the text form of a format with ";" in place of tabs. DECIMAL-SEPARATOR is the system's, a
// point if it is not given. The settings folder is looked for in the folder of OUT. The epochs are
// 1 January 1950 and 2000.
//
// Prints the nanoseconds a row of the path itself, how many of them are its syncs and how many are
// not, and the most memory that the process has held.
#include "PathProgram.h"

#include <dlfcn.h>
#include <iomanip>

using namespace skyvert;

namespace {

double syncNanoseconds = 0;

/// Runs scheduled calls only when `runAll` is called.
class ManualScheduler : public Scheduler {
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
    Program(const std::filesystem::path& settings, const Locale& locale)
        : locale(locale), app(desktop, settings) {
        app.Event_Open();
        window.emplace(app);
        window->open();
    }

    Locale locale;
    SystemClock clock;
    ManualScheduler scheduler;
    FixedDialogs dialogs;
    NoProgress progress;
    Desktop desktop{locale, clock, scheduler, dialogs, progress};
    App app;
    std::optional<MainWindow> window;
};

Locale localeOf(const std::string& decimalSeparator) {
    return {.decimalPoint = decimalSeparator,
            .groupSeparator = decimalSeparator == "," ? "." : ","};
}

double run(const std::string& path, Program& program) {
    MainWindow& window = *program.window;
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

// The program's syncs end up here, since the functions of a program come before those of the C
// library.
extern "C" int fsync(int file) {
    static auto* const sync = reinterpret_cast<int (*)(int)>(dlsym(RTLD_NEXT, "fsync"));
    int result = 0;
    syncNanoseconds += nanoseconds([&] { result = sync(file); });
    return result;
}

int main(int argc, char* argv[]) {
    if (argc < 6) {
        std::cerr << "usage: paths PATH IN OUT DIALECT FORMAT [DECIMAL-SEPARATOR]\n";
        return 2;
    }
    const std::string path = argv[1];
    const std::filesystem::path out = argv[3];
    const Locale locale = localeOf(argc > 6 ? argv[6] : ".");
    std::optional<Program> program;
    const double start = nanoseconds([&] { program.emplace(out.parent_path(), locale); });
    program->dialogs.in = argv[2];
    program->dialogs.out = out;
    const double ready = nanoseconds([&] { program->scheduler.runAll(); });
    if (path != "load")
        choose(*program->window, locale, argv[4], argv[5]);
    const double time = path == "load" ? start + ready : run(path, *program);
    const std::int64_t rows = program->window->list.RowCount();
    const auto print = [&](double nanoseconds, const char* unit) {
        const auto divisor = static_cast<double>(std::max<std::int64_t>(rows, 1));
        std::cout << "  " << nanoseconds / divisor << ' ' << unit;
    };
    std::cout << std::fixed << std::setprecision(1) << path << " rows " << rows;
    print(time, "ns/row");
    print(syncNanoseconds, "sync-ns/row");
    print(time - syncNanoseconds, "unsynced-ns/row");
    std::cout << "  " << megabytes("VmHWM:") << " peak-MB\n";
}
