#include "controls/Controls.h"

#include "controls/Listbox.h"
#include "support/TestDesktop.h"

#include <gtest/gtest.h>

namespace skyvert::controls_test {

/// A view that logs each request, with the text that it would show.
struct LoggingView : ControlView {
    explicit LoggingView(TextField& field) : field(field) { field.setView(this); }

    void refresh() override { log += "view " + field.text() + "|"; }

    void takeFocus() override { log += "focus|"; }

    TextField& field;
    std::string log;
};

TEST(Controls, AnAssignmentStoresThenRefreshesThenRunsTheEvent) {
    TextField field(Place{{.name = "field", .text = "old"}});
    LoggingView view(field);
    field.TextChange = [&](TextField& sender) {
        view.log += "event " + sender.text() + "|";
        if (sender.text() == "1")
            sender.setText("+");
    };
    field.setText("old");
    field.setText("1");
    field.SetFocus();
    field.setView(nullptr);
    field.setText("2");
    EXPECT_EQ(view.log, "view old|view 1|event 1|view +|event +|focus|event 2|");
}

TEST(Controls, OnlyAChangeRunsAnEvent) {
    std::string events;
    CheckBox box(Place{{.name = "box"}});
    box.Action = [&](CheckBox& sender) { events += sender.value() ? "on " : "off "; };
    box.setValue(false);
    box.setValue(true);
    box.setState(CheckBox::State::Mixed);
    PushButton button(Place{{.name = "button"}});
    button.press();
    button.Action = [&](PushButton&) { events += "pressed "; };
    button.setEnabled(false);
    button.press();
    DateControl date(Place{{.name = "date"}});
    date.ValueChanged = [&](DateControl& sender) { events += sender.dateValue().SQLDate(); };
    date.setDateValue(Date(2000, 1, 1, 18, 0, 0));
    date.setDateValue(Date(2000, 1, 2));
    date.setVisible(false);
    date.setDateValue(Date(2000, 1, 3));
    PopupMenu popup(Place{{.name = "popup"}});
    popup.Change = [&](PopupMenu& sender) { events += " " + std::to_string(sender.listIndex()); };
    popup.AddRow("row");
    for (int i = 0; i < 2; ++i)
        popup.setListIndex(0);
    for (const std::int64_t row : {-2, 1})
        EXPECT_THROW(popup.setListIndex(row), std::out_of_range);
    popup.DeleteAllRows();
    EXPECT_EQ(events, "on off 2000-01-02 0 -1");
}

TEST(Timer, FiresOnceAndCanBeRearmedInItsAction) {
    using namespace std::chrono_literals;
    VirtualScheduler scheduler;
    int fired = 0;
    Timer timer(scheduler, 10ms);
    timer.Action = [&](Timer& sender) {
        EXPECT_EQ(sender.mode(), Timer::Mode::Off);
        if (++fired == 2)
            sender.setMode(Timer::Mode::Single);
    };
    for (const auto& [time, expected] : {std::pair{9ms, 0}, {1ms, 1}, {100ms, 3}, {1ms, 3}}) {
        timer.setMode(Timer::Mode::Single);
        scheduler.advance(time);
        EXPECT_EQ(fired, expected);
    }
}

/// Fills a list up to `count` rows of two cells, the row's number and its square.
void fill(Listbox& list, std::int64_t count) {
    for (std::int64_t row = list.RowCount(); row < count; ++row) {
        const std::string cells[] = {std::to_string(row), std::to_string(row * row)};
        list.AddRow(std::array<std::string_view, 2>{cells[0], cells[1]});
    }
}

TEST(Listbox, KeepsCellsAsAdded) {
    Listbox list(Place{{.name = "list"}});
    list.setColumns({"n", "n2"});
    fill(list, 5000);
    list.AddRow(std::array<std::string_view, 1>{"short"});
    fill(list, 5002);
    for (std::int64_t row = 0; row < 5000; ++row)
        EXPECT_EQ(list.Cell(row, 1), std::to_string(row * row));
    EXPECT_EQ(list.Cell(5000, 0), "short");
    EXPECT_EQ(list.Cell(5000, 1), "");
    EXPECT_EQ(list.Cell(5001, 0), "5001");
    for (const auto& [row, column] : {std::pair{5002, 0}, {-1, 0}, {0, 2}, {0, -1}})
        EXPECT_THROW(list.Cell(row, column), std::out_of_range);
    list.DeleteAllRows();
    EXPECT_EQ(list.LastIndex(), -1);
}

TEST(Listbox, SelectsSingleRowsAndRanges) {
    Listbox list(Place{{.name = "list"}});
    list.setColumns({"n", "n2"});
    fill(list, 10);
    list.setSelection({{7, 20}, {2, 4}, {3, 3}, {5, 5}, {-3, 0}});
    EXPECT_EQ(list.selection(), (std::vector<RowRange>{{0, 0}, {2, 5}, {7, 9}}));
    std::string selected;
    for (int row = -1; row < 12; ++row)
        selected += list.Selected(row) ? 'x' : '.';
    EXPECT_EQ(selected, ".x.xxxx.xxx..");
    list.setListIndex(3);
    EXPECT_EQ(list.selectedText(), "3\t9\n");
    list.setListIndex(10);
    EXPECT_EQ(list.selectedText(), "");
    list.setListIndex(9);
    list.DeleteAllRows();
    fill(list, 10);
    EXPECT_EQ(list.listIndex(), -1);
}

} // namespace skyvert::controls_test
