#include "platform/Files.h"
#include "support/CountingAllocator.h"
#include "support/Table.h"
#include "support/TestWindow.h"

namespace skyvert::save_restore_test {

struct SaveRestoreTest : testing::Test {
    std::string stored() const { return readWholeFile(file).value_or("no file"); }

    /// Replaces one text in the settings file.
    void edit(const std::string& from, const std::string& to) const {
        std::string text = stored();
        const std::size_t at = text.find(from);
        ASSERT_NE(at, std::string::npos) << from;
        writeWholeFile(file, text.replace(at, from.size(), to));
    }

    /// Runs the program from start to end.
    void run(const std::function<void(TestWindow&, MainWindow&)>& use) const {
        TestWindow program(folder);
        program.settle();
        use(program, *program.window);
        program.end();
    }

    void runWithRows(std::initializer_list<const char*> rows) const {
        run([&](TestWindow&, MainWindow& main) {
            main.ClearListButton.press();
            for (const char* row : rows)
                main.ConvertCoordinates(row, row);
        });
    }

    TemporaryFolder folder;
    const std::filesystem::path file = folder / "Skyvert/Preferences.xml";
};

const std::string kTwice =
    R"({"epochPopup":2,"epochDate":"2026-11-16"}{"epochPopup":2,"epochDate":"2026-11-16"})";

/// All that a run stores.
std::string state(const TestWindow& program, const MainWindow& main) {
    std::string text;
    for (const int length : {main.left(), main.top(), main.height()})
        text += std::to_string(length) + " ";
    text += main.inFormat.format().AsString() + "\n" + main.outFormat.format().AsString() + "\n";
    text += main.fromEpoch.serialised() + main.toEpoch.serialised() + "\n";
    text.append(main.fileFormat.value()).append(" ").append(main.ListFormat.value());
    return text + (main.DataEntryMask.value() ? " masked " : " free ") + program.rows(2);
}

TEST_F(SaveRestoreTest, AFirstStartHasTheDefaultsAndStoresThemAll) {
    run([this](TestWindow& program, MainWindow& main) {
        EXPECT_EQ(state(program, main),
                  "0 0 550 HH MM\t+DD MM\tN\t1\t1\nHH MM SS\t+DD MM SS\tN\t1\t0\n" + kTwice +
                      "\nTab-separated Tab-separated masked ");
        EXPECT_FALSE(main.ClearListButton.enabled());
        EXPECT_EQ(stored(), "no file");
        program.window->close();
        EXPECT_EQ(program.quitCode, 0);
    });
    const std::string text = stored();
    std::string keys;
    for (std::size_t at = 0; (at = text.find("<key>", at)) != std::string::npos; ++at)
        keys += text.substr(at + 5, text.find('<', at + 5) - at - 5) + " ";
    EXPECT_EQ(keys, "fromEpochA toEpochA inFormat outFormat fileFormat DataEntryMask ListFormat "
                    "MWin.Left MWin.Top MWin.Height nContents ");
}

TEST_F(SaveRestoreTest, EverythingIsRestoredAndOutputsAreComputedAgain) {
    run([](TestWindow& program, MainWindow& main) {
        main.setLeft(-50);
        main.setTop(7);
        main.setHeight(640);
        program.setFormats("HH:MM:SS\t+DD:MM:SS\tN\t2\t1", "DDD\tDD\tN\t4\t4");
        main.ConvertCoordinates("12:34:56.78", "-12:34:56.7");
        main.fromEpoch.epochPopup.setValue("B1950.0");
        main.ConvertCoordinates("0", "0");
        main.toEpoch.epochPopup.setValue("Other");
        main.toEpoch.epochDate.setDateValue(Date(1987, 3, 15));
        main.fileFormat.setValue("Space-separated");
        main.ListFormat.setValue("Comma-separated");
        main.DataEntryMask.setValue(false);
    });
    run([](TestWindow& program, MainWindow& main) {
        EXPECT_EQ(state(program, main), "-50 7 640 HH:MM:SS\t+DD:MM:SS\tN\t2\t1\nDDD\tDD\tN\t4\t4\n"
                                        R"({"epochPopup":1,"epochDate":"2026-11-16"})"
                                        R"({"epochPopup":5,"epochDate":"1987-03-15"})"
                                        "\nSpace-separated Comma-separated free "
                                        "12:34:56.78|-12:34:56.7|;00:00:00.00|+00:00:00.0|;");
        EXPECT_EQ(main.list.listIndex(), 1);
        // 37.2 years of precession at right ascension 0: 37.2 * 3.0733 s = 0.4764 degrees.
        EXPECT_TRUE(main.list.Cell(1, 2).starts_with("0.476"));
    });
}

TEST_F(SaveRestoreTest, TheListIsRestoredHalfASecondAfterTheStart) {
    using namespace std::chrono_literals;
    runWithRows({"1"});
    TestWindow program(folder);
    program.machine.scheduler.advance(10ms);
    EXPECT_EQ(program.window->raManual.cueText(), "HH MM");
    program.window->ConvertCoordinates("2", "2");
    program.machine.scheduler.advance(489ms);
    EXPECT_EQ(program.rows(1), "02 00.0|;");
    program.machine.scheduler.advance(1ms);
    EXPECT_EQ(program.rows(1), "01 00.0|;");
}

TEST_F(SaveRestoreTest, AWindowClosedBeforeItsRowsAreRestoredKeepsThemAndTheFile) {
    runWithRows({"1", "2"});
    const std::string text = stored();
    const auto longAgo = std::filesystem::last_write_time(file) - std::chrono::hours(24);
    std::filesystem::last_write_time(file, longAgo);
    TestWindow(folder).end();
    EXPECT_EQ(stored(), text);
    EXPECT_EQ(std::filesystem::last_write_time(file), longAgo);
}

TEST_F(SaveRestoreTest, AFailingCloseHandlerDoesNotKeepOthersFromSaving) {
    runWithRows({"1"});
    TestWindow program(folder);
    program.settle();
    program.window->ConvertCoordinates("2", "2");
    program.window->fromEpoch.Close = [] { throw std::runtime_error("no"); };
    program.window->toEpoch.Close = [] { throw std::logic_error("only the first is reported"); };
    EXPECT_THROW(program.window->close(), std::runtime_error);
    program.app.Event_Close();
    EXPECT_EQ(program.quitCode, 0);
    EXPECT_NE(stored().find("<integer>2</integer>"), std::string::npos);
}

TEST_F(SaveRestoreTest, RowsOfAnEarlierLongerListStayStoredButUnread) {
    runWithRows({"1", "2"});
    runWithRows({"3"});
    EXPECT_NE(stored().find("<key>Contents.RA.1</key>\n\t<string>02 00.0</string>"),
              std::string::npos);
    run([](TestWindow& program, MainWindow&) { EXPECT_EQ(program.rows(1), "03 00.0|;"); });
    runWithRows({});
    run([](TestWindow& program, MainWindow&) { EXPECT_EQ(program.rows(1), ""); });
}

TEST_F(SaveRestoreTest, DamagedSettingsGiveDefaultsWithoutAMessage) {
    runWithRows({"1"});
    for (const auto& [from, to] : table<2>("damaged_settings"))
        edit(from, to);
    run([](TestWindow& program, MainWindow& main) {
        EXPECT_EQ(state(program, main),
                  "0 0 550 HH:MM\t+DD MM\tN\t1\t1\nHH MM SS\t\tN\t1\t0\n" + kTwice +
                      "\n Tab-separated masked 00:00.0|+01 00.0|;00:00.0|+00 00.0|;");
        EXPECT_EQ(main.list.Cell(1, 3), "Unknown format!");
        EXPECT_EQ(program.machine.dialogs.messages, "");
    });
}

TEST_F(SaveRestoreTest, TheStoredNumberOfRowsIsBoundedByTheFile) {
    runWithRows({"1", "2"});
    for (const auto& [stored, restored] : {std::pair("900", 900), {"99999999", 2}, {"-1", 0}}) {
        edit("<integer>2<", std::string("<integer>") + stored + "<");
        TestWindow program(folder);
        program.settle();
        EXPECT_EQ(program.window->list.RowCount(), restored);
        edit(std::string("<integer>") + stored + "<", "<integer>2<");
    }
}

TEST_F(SaveRestoreTest, RowsStayStoredUnlessAllAreRestored) {
    run([](TestWindow&, MainWindow& main) {
        for (int row = 0; row < 5000; ++row)
            main.ConvertCoordinates("1", "1");
    });
    {
        TestWindow program(folder);
        program.machine.progress.stopAt = 4096;
        program.settle();
        EXPECT_EQ(program.window->list.RowCount(), 4096);
        EXPECT_EQ(program.machine.progress.stoppedBy, StoppedBy::ProgramEnd);
        program.end();
    }
    {
        TestWindow program(folder);
        program.settle();
        program.window->ConvertCoordinates("2", "2");
        program.machine.progress.lacksMemory = true;
        EXPECT_THROW(program.window->close(), std::bad_alloc);
        program.app.Event_Close();
        EXPECT_EQ(program.quitCode, 0);
    }
    run([](TestWindow&, MainWindow& main) { EXPECT_EQ(main.list.RowCount(), 5000); });
}

TEST_F(SaveRestoreTest, ARestoreAllocatesPerBlockOfRowsAndNotPerRow) {
    run([](TestWindow&, MainWindow& main) {
        for (int row = 0; row < 20'000; ++row)
            main.ConvertCoordinates("1", "2");
    });
    TestWindow program(folder);
    const std::size_t before = allocationCount();
    program.settle();
    EXPECT_EQ(program.window->list.RowCount(), 20'000);
    EXPECT_LT(allocationCount() - before, 200U);
}

} // namespace skyvert::save_restore_test
