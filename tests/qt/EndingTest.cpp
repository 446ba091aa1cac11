#include "qt/QtDialogs.h"
#include "qt/QtTimers.h"
#include "qt/ShownWindow.h"
#include "qt/UnixSignals.h"

#include <QComboBox>
#include <QTimer>
#include <gtest/gtest.h>

#include <csignal>

namespace skyvert::ending_test {

using namespace std::chrono_literals;

TEST(Ending, QuittingAndClosingRunTheCloseHandlersOnce) {
    ShownWindow shown;
    std::vector<int> codes;
    shown.app.onQuit = [&](int code) { codes.push_back(code); };
    shown.open();
    shown.addRows(1);
    QTest::keyClick(shown.find("toEpoch/epochPopup"), Qt::Key_End);
    shown.find("toEpoch/epochDate")->setFocus();
    QTest::keyClicks(shown.find("toEpoch/epochDate"), "1991-11-16");
    shown.view.findChild<QAction*>("FileQuit")->trigger();
    shown.view.close();
    EXPECT_EQ(codes, std::vector<int>{0});
    EXPECT_FALSE(shown.view.isVisible());
    EXPECT_EQ(shown.app.prefs().Value("Contents.RA.0", std::string()).stringValue(), "12 30");
    EXPECT_EQ(shown.app.prefs().Value("toEpochA", std::string()).stringValue(),
              R"({"epochPopup":5,"epochDate":"1991-11-16"})");
}

#ifdef Q_OS_UNIX
using Open =
    void (*)(ShownWindow& shown); ///< opens something with its own event loop or input grab

TEST(Ending, ASignalEndsTheProgramInOrderWhateverIsOpen) {
    const std::pair<const char*, Open> things[] = {
        {"nothing", [](ShownWindow&) {}},
        {"a message", [](ShownWindow&) { QtDialogs().MsgBox("<b>"); }},
        {"a file dialog", [](ShownWindow&) { QtDialogs().GetOpenFolderItem({}); }},
        {"a popup", [](ShownWindow& shown) { shown.find<QComboBox>("ListFormat")->showPopup(); }}};
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        for (const auto& [what, openThing] : things) {
            SCOPED_TRACE(std::string(what) + " " + std::to_string(signal));
            ShownWindow shown;
            int closings = 0;
            shown.app.onQuit = [&](int code) {
                ++closings;
                QCoreApplication::exit(code);
            };
            UnixSignals unixSignals;
            unixSignals.onSignal([&] { shown.view.closeAll(); });
            shown.open();
            QTimer::singleShot(0, [&, open = openThing] { open(shown); });
            QTimer::singleShot(20ms, [&] { std::raise(signal); });
            EXPECT_EQ(QCoreApplication::exec(), 0);
            EXPECT_EQ(closings, 1);
            EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
        }
    }
}
#endif

TEST(QtTimers, AnAlarmFiresOnceUnlessDestroyedAndMayBeDestroyedInItsCall) {
    ScriptedDialogs dialogs;
    const LoggedProgress idle;
    QtScheduler scheduler(dialogs, idle);
    int rings = 0;
    std::unique_ptr<Alarm> spent = scheduler.after(1ms, [&] {
        spent.reset();
        ++rings;
        throw std::runtime_error("too late");
    });
    scheduler.after(1ms, [&] { rings += 100; });
    const auto kept = scheduler.after(1ms, [&] { rings += 10; });
    EXPECT_EQ(rings, 0);
    QTest::qWait(30);
    EXPECT_EQ(rings, 11);
    EXPECT_EQ(dialogs.messages, "too late|");
}

} // namespace skyvert::ending_test
