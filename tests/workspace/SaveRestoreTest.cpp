#include "platform/Files.h"
#include "support/TestWindow.h"

#include <gtest/gtest.h>

namespace skyvert {
namespace {

using namespace std::chrono_literals;

class SaveRestoreTest : public testing::Test {
protected:
    std::string stored() const {
        return readWholeFile(folder / "Skyvert/Preferences.xml").value_or("no file");
    }

    /// Changes one text of the settings file by hand.
    void edit(const std::string& from, const std::string& to) {
        std::string text = stored();
        const std::size_t at = text.find(from);
        ASSERT_NE(at, std::string::npos) << from;
        writeWholeFile(folder / "Skyvert/Preferences.xml", text.replace(at, from.size(), to));
    }

    TemporaryFolder folder;
};

TEST_F(SaveRestoreTest, AFirstStartHasTheDefaultsAndStoresThemAll) {
    TestWindow program(folder);
    MainWindow& main = *program.window;
    EXPECT_EQ(main.inFormat.format().AsString(), "HH MM\t+DD MM\tN\t1\t1");
    EXPECT_EQ(main.outFormat.format().AsString(), "HH MM SS\t+DD MM SS\tN\t1\t0");
    EXPECT_EQ(main.fromEpoch.epochPopup.value(), "J2000.0");
    EXPECT_EQ(main.fileFormat.value(), "Tab-separated");
    EXPECT_EQ(main.ListFormat.value(), "Tab-separated");
    EXPECT_TRUE(main.DataEntryMask.value());
    EXPECT_EQ(program.headings()[0], "Input RA (2000.0)");
    program.settle();
    EXPECT_EQ(main.list.RowCount(), 0);
    EXPECT_FALSE(main.ClearListButton.enabled());
    EXPECT_EQ(stored(), "no file");
    program.end();
    EXPECT_EQ(program.quitCode, 0);

    const std::string text = stored();
    std::string keys;
    for (std::size_t at = 0; (at = text.find("<key>", at)) != std::string::npos; ++at)
        keys += text.substr(at + 5, text.find('<', at + 5) - at - 5) + " ";
    EXPECT_EQ(keys, "fromEpochA toEpochA inFormat outFormat fileFormat DataEntryMask ListFormat "
                    "MWin.Left MWin.Top MWin.Height nContents ");
}

TEST_F(SaveRestoreTest, EverythingComesBackAndOutputsAreWorkedOutAfresh) {
    {
        TestWindow program(folder);
        MainWindow& main = *program.window;
        program.settle();
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
        program.end();
    }
    TestWindow program(folder);
    MainWindow& main = *program.window;
    EXPECT_EQ(main.left(), -50);
    EXPECT_EQ(main.top(), 7);
    EXPECT_EQ(main.height(), 640);
    EXPECT_EQ(main.inFormat.format().AsString(), "HH:MM:SS\t+DD:MM:SS\tN\t2\t1");
    EXPECT_EQ(main.outFormat.format().AsString(), "DDD\tDD\tN\t4\t4");
    EXPECT_EQ(main.fromEpoch.epochPopup.value(), "B1950.0");
    EXPECT_EQ(main.toEpoch.serialised(), R"({"epochPopup":5,"epochDate":"1987-03-15"})");
    EXPECT_TRUE(main.toEpoch.epochDate.visible());
    EXPECT_EQ(main.fileFormat.value(), "Space-separated");
    EXPECT_EQ(main.ListFormat.value(), "Comma-separated");
    EXPECT_FALSE(main.DataEntryMask.value());
    program.settle();
    EXPECT_EQ(main.list.RowCount(), 2);
    EXPECT_EQ(main.list.listIndex(), 1);
    EXPECT_TRUE(main.ClearListButton.enabled());
    EXPECT_EQ(program.row(0)[0], "12:34:56.78");
    EXPECT_EQ(program.row(0)[1], "-12:34:56.7");
    // 37.2 years of precession at right ascension 0: 37.2 * 3.0733 s = 114.4 s = 0.4765 degrees.
    EXPECT_EQ(program.row(1)[2].substr(0, 5), "0.476");
}

TEST_F(SaveRestoreTest, TheListComesHalfASecondAfterTheStart) {
    {
        TestWindow program(folder);
        program.settle();
        program.window->ConvertCoordinates("1", "1");
        program.end();
    }
    TestWindow program(folder);
    MainWindow& main = *program.window;
    std::vector<std::string> events;
    const auto masks = main.FormatChangeTimer.Action;
    main.FormatChangeTimer.Action = [&](Timer& timer) {
        masks(timer);
        events.push_back("masks, rows " + std::to_string(main.list.RowCount()));
    };
    const auto load = main.OpenTimer.Action;
    main.OpenTimer.Action = [&](Timer& timer) {
        events.push_back("typed rows " + std::to_string(main.list.RowCount()));
        load(timer);
        events.push_back("loaded rows " + std::to_string(main.list.RowCount()));
    };
    program.machine.scheduler.advance(10ms);
    main.ConvertCoordinates("2", "2");
    main.ConvertCoordinates("3", "3");
    program.machine.scheduler.advance(489ms);
    EXPECT_EQ(events, (Row{"masks, rows 0"}));
    program.machine.scheduler.advance(1ms);
    EXPECT_EQ(events, (Row{"masks, rows 0", "typed rows 2", "loaded rows 1"}));
    EXPECT_EQ(program.row(0)[0], "01 00.0");
}

TEST_F(SaveRestoreTest, AFileInWhichNothingChangesIsNotTouched) {
    TestWindow(folder).end();
    const auto file = folder / "Skyvert/Preferences.xml";
    const auto longAgo = std::filesystem::last_write_time(file) - 24h;
    std::filesystem::last_write_time(file, longAgo);
    TestWindow program(folder);
    program.settle();
    program.end();
    EXPECT_EQ(std::filesystem::last_write_time(file), longAgo);
}

TEST_F(SaveRestoreTest, RowsOfAnEarlierLongerListStayInTheStoreUnread) {
    {
        TestWindow program(folder);
        program.settle();
        program.window->ConvertCoordinates("1", "1");
        program.window->ConvertCoordinates("2", "2");
        program.end();
    }
    {
        TestWindow program(folder);
        program.settle();
        program.window->ClearListButton.press();
        program.window->ConvertCoordinates("3", "3");
        program.end();
    }
    EXPECT_NE(stored().find("<key>Contents.RA.1</key>\n\t<string>02 00.0</string>"),
              std::string::npos);
    TestWindow program(folder);
    program.settle();
    EXPECT_EQ(program.window->list.RowCount(), 1);
    EXPECT_EQ(program.row(0)[0], "03 00.0");
}

TEST_F(SaveRestoreTest, WhatIsDamagedGivesDefaultsWithoutAWord) {
    {
        TestWindow program(folder);
        program.settle();
        program.window->ConvertCoordinates("1", "1");
        program.end();
    }
    edit("<integer>1</integer>", "<integer>2</integer>");
    edit("Contents.RA.0", "Contents.RA.x");
    edit("HH MM\t", "hh:mm\t");
    edit("+DD MM SS\t", "none\t");
    edit("<key>fileFormat</key>\n\t<string>Tab", "<key>fileFormat</key>\n\t<string>Pipe");
    edit("<key>MWin.Left</key>\n\t<string>", "<key>MWin.Left</key>\n\t<string>x");
    edit(R"({"epochPopup":2,)", R"({"epochPopup":9,)");
    TestWindow program(folder);
    MainWindow& main = *program.window;
    program.settle();
    EXPECT_EQ(main.list.RowCount(), 2);
    EXPECT_EQ(program.row(0)[0], "00:00.0");
    EXPECT_EQ(program.row(1), (Row{"00:00.0", "+00 00.0", "00 00 00.0", "Unknown format!"}));
    EXPECT_EQ(main.fileFormat.value(), "");
    EXPECT_EQ(main.left(), 0);
    EXPECT_EQ(main.fromEpoch.serialised(), R"({"epochPopup":2,"epochDate":"2026-11-16"})");
    EXPECT_TRUE(program.machine.dialogs.messages.empty());
}

} // namespace
} // namespace skyvert
