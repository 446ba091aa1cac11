// window_paths PATH IN OUT DIALECT FORMAT
//
// Runs one path of the program in its real window. PATH is
//   import  button to last row painted; prints the nanoseconds a row and the memory of the rows
//   scroll  the same, then prints the milliseconds of a frame while the list is scrolled
// The arguments are those of `paths`.
#include "PathProgram.h"
#include "platform/Clock.h"
#include "qt/MainWindowView.h"
#include "qt/QtTimers.h"

#include <QApplication>
#include <QEvent>
#include <QScrollBar>
#include <QTableView>

#include <iomanip>

using namespace skyvert;

namespace {

/// Counts the times that a widget is painted.
class PaintCounter : public QObject {
public:
    explicit PaintCounter(QWidget& widget) { widget.installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }

    int count = 0;
};

template <typename Condition>
void processEventsUntil(const Condition& reached) {
    while (!reached())
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

double millisecondsOfAFrame(QTableView& table) {
    constexpr int kFrames = 300;
    QScrollBar& bar = *table.verticalScrollBar();
    const double time = nanoseconds([&] {
        for (int frame = 0; frame < kFrames; ++frame) {
            bar.setValue(static_cast<int>(std::int64_t{bar.maximum()} * frame / kFrames));
            table.viewport()->repaint();
        }
    });
    return time / kFrames / 1e6;
}

int runProgram(const std::string& path, char* argv[]) {
    const Locale locale;
    const SystemClock clock;
    FixedDialogs dialogs;
    NoProgress progress;
    QtScheduler scheduler(dialogs, progress);
    const Desktop desktop{locale, clock, scheduler, dialogs, progress};
    dialogs.in = argv[2];
    App app(desktop, std::filesystem::path(argv[3]).parent_path());
    app.Event_Open();
    MainWindow window(app);
    MainWindowView view(window, app);
    QTableView& table = *view.findChild<QTableView*>();
    PaintCounter painted(*table.viewport());
    view.open({0, 0, 1280, 1024});
    processEventsUntil([&] { return window.OpenTimer.mode() == Timer::Mode::Off; });
    choose(window, locale, argv[4], argv[5]);
    const double empty = megabytes("VmRSS:");
    const double time = nanoseconds([&] {
        window.FileImportBtn.press();
        painted.count = 0;
        processEventsUntil([&] {
            return painted.count > 0 && table.model()->rowCount() == window.list.RowCount();
        });
    });
    std::cout << std::fixed << std::setprecision(3);
    if (path == "scroll")
        std::cout << millisecondsOfAFrame(table) << " ms/frame\n";
    else
        std::cout << time / static_cast<double>(window.list.RowCount()) << " ns/row  "
                  << megabytes("VmRSS:") - empty << " MB\n";
    return 0;
}

} // namespace

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    if (argc < 6) {
        std::cerr << "usage: window_paths PATH IN OUT DIALECT FORMAT\n";
        return 2;
    }
    return runProgram(argv[1], argv);
}
