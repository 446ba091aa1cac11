#include "qt/MainWindowView.h"
#include "qt/ProgressOverlay.h"
#include "qt/QtDialogs.h"
#include "qt/QtText.h"
#include "qt/QtTimers.h"
#include "qt/RunningCopy.h"
#include "qt/UnixSignals.h"

#include <QApplication>
#include <QIcon>
#include <QLocale>
#include <QPalette>
#include <QScreen>
#include <QStandardPaths>
#include <QStyleFactory>

#include <cstdlib>

using namespace skyvert;

namespace {

/// Texts are black or red and every other row of the list is light grey, so the program needs a
/// light palette. If the system's palette is dark, this selects Fusion, a style that accepts
/// another one.
void askForLightPalette() {
    constexpr int kHalfway = 128;
    if (QApplication::palette().color(QPalette::Base).lightness() >= kHalfway)
        return;
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QPalette light(QColor(0xEF, 0xEF, 0xEF));
    light.setColor(QPalette::Base, Qt::white);
    light.setColor(QPalette::ToolTipBase, QColor(0xFF, 0xFF, 0xDC));
    light.setColor(QPalette::ToolTipText, Qt::black);
    QApplication::setPalette(light);
}

Locale systemLocale() {
    const QLocale system = QLocale::system();
    return {.decimalPoint = toUtf8(system.decimalPoint()),
            .groupSeparator = toUtf8(system.groupSeparator())};
}

/// The folder for the user's settings of all programs.
std::filesystem::path applicationData() {
#if defined(Q_OS_WIN)
    return qEnvironmentVariable("APPDATA").toStdU16String();
#elif defined(Q_OS_MACOS)
    return toUtf8(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation));
#else
    return toUtf8(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation));
#endif
}

/// The program's icon, in the sizes that title bars, task bars and switchers ask for.
QIcon windowIcon() {
    QIcon icon;
    for (const int size : {16, 32, 48, 128, 256})
        icon.addFile(QString(":/skyvert-%1.png").arg(size));
    return icon;
}

/// The sources of requests from the system and from other copies of the program.
struct Outside {
    UnixSignals& unixSignals;
    RunningCopy& runningCopy;
};

/// Shows the window until it closes. Returns the exit code of the event loop.
int runWindow(App& app, ProgressOverlay& progress, const Outside& outside) {
    MainWindow window(app);
    MainWindowView view(window, app);
    outside.unixSignals.onSignal([&view] { view.closeAll(); });
    outside.runningCopy.onRequest([&view] { return view.comeToFront(); });
    progress.setWindow(&view);
    view.open(view.screen()->availableGeometry());
    const int code = QApplication::exec();
    // Whatever ended the event loop, the close handlers run now at the latest.
    view.close();
    outside.unixSignals.onSignal({});
    outside.runningCopy.onRequest({});
    return code;
}

/// Runs a copy that may use the settings. Returns the exit code.
int run(App& app, ProgressOverlay& progress, const Outside& outside) {
    Dialogs& dialogs = app.desktop().dialogs;
    bool opened = false;
    dispatch(dialogs, [&] {
        app.Event_Open();
        opened = true;
    });
    if (!opened)
        return EXIT_FAILURE; // the settings file stays unchanged
    const int code = runWindow(app, progress, outside);
    dispatch(dialogs, [&app] { app.Event_Close(); });
    return code;
}

/// Ends a copy that may not use the settings. Returns the exit code.
int refuse(const RunningCopy& copy, RunningCopy::Refusal refusal, Dialogs& dialogs) {
    if (refusal == RunningCopy::Refusal::OtherCopyShown)
        return EXIT_SUCCESS;
    dialogs.MsgBox(copy.explanation(refusal));
    return EXIT_FAILURE;
}

} // namespace

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    askForLightPalette();
    QApplication::setWindowIcon(windowIcon());
    QGuiApplication::setDesktopFileName("skyvert");

    const Locale locale = systemLocale();
    const SystemClock clock;
    QtDialogs dialogs;
    ProgressOverlay progress;
    QtScheduler scheduler(dialogs, progress);
    const Desktop desktop{locale, clock, scheduler, dialogs, progress};
    App app(desktop, applicationData());
    app.onQuit = [](int code) { QApplication::exit(code); };
    QApplication::setApplicationName("Skyvert");
    QApplication::setApplicationVersion(toQString(App::version().Version));

    RunningCopy copy(app.settingsFolder());
    if (const auto refusal = copy.acquire())
        return refuse(copy, *refusal, dialogs);
    UnixSignals unixSignals; // until the settings are written
    return run(app, progress, {unixSignals, copy});
}
