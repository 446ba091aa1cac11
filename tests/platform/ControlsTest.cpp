#include "platform/Controls.h"

#include "platform/Listbox.h"
#include "support/TestDesktop.h"

#include <gtest/gtest.h>

namespace skyvert {
namespace {

using Log = std::vector<std::string>;

/// A view that notes each refresh, and the text that it would have shown.
struct LoggingView : ControlView {
    LoggingView(Log& log, const TextField& field) : log(log), field(field) {}

    void refresh() override { log.push_back("view " + field.text()); }

    void takeFocus() override { log.emplace_back("focus"); }

    Log& log;
    const TextField& field;
};

TEST(Controls, AnAssignmentStoresThenShowsThenRunsTheEvent) {
    Log log;
    TextField field({.name = "field", .text = "xxx"});
    LoggingView view(log, field);
    field.setView(&view);
    field.TextChange = [&](TextField& sender) {
        log.push_back("event " + sender.text());
        if (sender.text() == "1")
            sender.setText("+");
    };
    field.setText("xxx");
    field.setText("1");
    field.SetFocus();
    field.setView(nullptr);
    field.setText("2");
    EXPECT_EQ(log, (Log{"view xxx", "view 1", "event 1", "view +", "event +", "focus", "event 2"}));
}

TEST(Controls, EventsRunOnlyForAChange) {
    int count = 0;
    CheckBox box({.name = "box"});
    box.Action = [&](CheckBox&) { ++count; };
    box.setValue(false);
    EXPECT_EQ(count, 0);
    box.setValue(true);
    box.setState(CheckBox::State::Mixed);
    EXPECT_EQ(count, 2);
    EXPECT_FALSE(box.value());

    PushButton button({.name = "button"});
    button.press();
    button.Action = [&](PushButton&) { ++count; };
    button.setEnabled(false);
    button.press();
    EXPECT_EQ(count, 2);

    DateControl date({.name = "date"});
    date.ValueChanged = [&](DateControl&) { ++count; };
    date.setDateValue(Date(2000, 1, 1, 18, 0, 0));
    EXPECT_EQ(count, 2);
    date.setDateValue(Date(2000, 1, 2));
    EXPECT_EQ(count, 3);
}

TEST(Controls, APopupHoldsOneRowOrNone) {
    int changes = 0;
    PopupMenu popup({.name = "popup"});
    popup.Change = [&](PopupMenu&) { ++changes; };
    popup.AddRow("a");
    popup.AddRow("b");
    EXPECT_EQ(popup.listIndex(), -1);
    popup.setListIndex(1);
    popup.setListIndex(1);
    EXPECT_EQ(popup.Text(), "b");
    EXPECT_THROW(popup.setListIndex(2), std::out_of_range);
    EXPECT_THROW(popup.setListIndex(-2), std::out_of_range);
    EXPECT_EQ(popup.listIndex(), 1);
    popup.DeleteAllRows();
    EXPECT_EQ(popup.listIndex(), -1);
    EXPECT_EQ(changes, 2);
}

TEST(Timer, FiresOnceAndMayBeArmedInItsAction) {
    VirtualScheduler scheduler;
    int fired = 0;
    Timer timer(scheduler, std::chrono::milliseconds(10));
    timer.Action = [&](Timer& sender) {
        EXPECT_EQ(sender.mode(), Timer::Mode::Off);
        if (++fired == 2)
            sender.setMode(Timer::Mode::Single);
    };
    timer.setMode(Timer::Mode::Single);
    scheduler.advance(std::chrono::milliseconds(9));
    EXPECT_EQ(fired, 0);
    scheduler.advance(std::chrono::milliseconds(1));
    EXPECT_EQ(fired, 1);
    timer.setMode(Timer::Mode::Single);
    scheduler.advance(std::chrono::milliseconds(100));
    EXPECT_EQ(fired, 3);
    timer.setMode(Timer::Mode::Single);
    timer.setMode(Timer::Mode::Off);
    scheduler.advance(std::chrono::milliseconds(100));
    EXPECT_EQ(fired, 3);
}

TEST(Dialogs, AnExceptionEndsInAMessage) {
    ScriptedDialogs dialogs;
    dispatch(dialogs, [] { throw std::runtime_error("the reason"); });
    EXPECT_EQ(dialogs.messages, Log{"the reason"});
}

class ListboxTest : public testing::Test {
protected:
    /// Fills the list to `count` rows of two cells: the row's number and its square.
    void fill(int count) {
        for (int row = static_cast<int>(list.RowCount()); row < count; ++row) {
            const std::string number = std::to_string(row);
            const std::string square = std::to_string(row * row);
            list.AddRow(std::array<std::string_view, 2>{number, square});
        }
    }

    Listbox list{{.name = "list"}, {"n", "n2"}};
};

TEST_F(ListboxTest, KeepsItsCellsAsTheyWereAdded) {
    fill(5000);
    EXPECT_EQ(list.Cell(0, 0), "0");
    EXPECT_EQ(list.Cell(1023, 1), "1046529");
    EXPECT_EQ(list.Cell(1024, 0), "1024");
    EXPECT_EQ(list.Cell(4999, 1), "24990001");
    list.AddRow(std::array<std::string_view, 1>{"short"});
    EXPECT_EQ(list.Cell(5000, 0), "short");
    EXPECT_EQ(list.Cell(5000, 1), "");
    for (const auto& [row, column] : {std::pair{5001, 0}, {-1, 0}, {0, 2}, {0, -1}})
        EXPECT_THROW(list.Cell(row, column), std::out_of_range);
    list.DeleteAllRows();
    EXPECT_EQ(list.LastIndex(), -1);
    fill(1);
    EXPECT_EQ(list.Cell(0, 0), "0");
}

TEST_F(ListboxTest, SelectsRowsOneByOneOrInRanges) {
    fill(10);
    EXPECT_EQ(list.listIndex(), -1);
    list.setSelection({{7, 20}, {2, 3}, {3, 4}, {5, 5}, {-3, 0}});
    EXPECT_EQ(list.selection(), (std::vector<RowRange>{{0, 0}, {2, 5}, {7, 9}}));
    EXPECT_EQ(list.listIndex(), 0);
    std::string selected;
    for (int row = -1; row < 12; ++row)
        selected += list.Selected(row) ? 'x' : '.';
    EXPECT_EQ(selected, ".x.xxxx.xxx..");
    list.setListIndex(3);
    EXPECT_EQ(list.selection(), (std::vector<RowRange>{{3, 3}}));
    EXPECT_EQ(list.selectedText(), "3\t9\n");
    list.setListIndex(10);
    EXPECT_EQ(list.listIndex(), -1);
    EXPECT_EQ(list.selectedText(), "");
}

} // namespace
} // namespace skyvert
