#include "epochs/EpochValue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <utility>

// Tables stand several cases to a line.
// clang-format off

namespace skyvert {
namespace {

struct StoppedClock : Clock {
    Date now() const override { return moment; }

    Date moment{2026, 11, 16, 21, 5, 9};
};

/// A selector of plain fields, which does what its user does and counts what its owner hears.
struct Selector : EpochView {
    explicit Selector(bool reportsAssignedDates = true) : reportsDates(reportsAssignedDates) {
        value.ValueChanged = [this](const Date& date) { heard.push_back(date.SQLDate()); };
    }

    int epochPopupListIndex() const override { return row; }

    void setEpochPopupListIndex(int index) override {
        if (std::exchange(row, index) != index)
            value.epochPopup_Change();
    }

    std::string epochPopupValue() const override {
        return row < 0 ? "" : rows.at(static_cast<std::size_t>(row));
    }

    void setEpochPopupValue(std::string_view text) override {
        setEpochPopupListIndex(
            static_cast<int>(std::find(rows.begin(), rows.end(), text) - rows.begin()));
    }

    Date epochDateDateValue() const override { return shown; }

    void setEpochDateDateValue(const Date& date) override {
        shown = date;
        if (reportsDates)
            value.epochDate_ValueChanged();
    }

    void setEpochDateVisible(bool visible) override { dateVisible = visible; }

    void setDateLabelVisible(bool visible) override { labelVisible = visible; }

    void setEpochPopupHelpTag(const std::string& text) override { helpTag = text; }

    void pickDate(const Date& date) {
        shown = date;
        value.epochDate_ValueChanged();
    }

    const std::vector<std::string> rows = epochRows();
    bool reportsDates;
    int row = 0;
    Date shown{2000, 1, 1};
    bool dateVisible = false;
    bool labelVisible = false;
    std::string helpTag = "unset";
    std::vector<std::string> heard;
    StoppedClock clock;
    EpochValue value{*this, clock, Locale{",", "."}};
};

TEST(EpochValue, RestoresASelectionWhetherOrNotTheDateControlReportsAssignments) {
    const std::string date = R"("epochDate":"1987-03-15"})";

    struct Case {
        std::string stored, row, day; double julianDate; std::string serialised = "";
    };
    const Case cases[] = {
        {"", "J2000.0", "2000-01-01", 2451544.5, R"({"epochPopup":2,"epochDate":"2026-11-16"})"},
        {R"( { "epochDate" : "1987-03-15", "epochPopup":0})", "B1900.0", "1900-01-01", 2415020.5,
         R"({"epochPopup":0,)" + date},
        {R"({"epochPopup":1,)" + date, "B1950.0", "1950-01-01", 2433282.5},
        {R"({"epochPopup":3})", "J2050.0", "2050-01-01", 2469807.5,
         R"({"epochPopup":3,"epochDate":"2026-11-16"})"},
        {R"({"epochPopup":4,)" + date, "JNow", "2026-11-16", 2461360.5},
        {R"({"epochPopup":5,)" + date, "Other", "1987-03-15", 2446869.5},
        {R"({"epochPopup":-1,)" + date, "", "1987-03-15", 2446869.5},
    };

    for (const auto& c : cases) {
        for (const bool reports : {false, true}) {
            SCOPED_TRACE(c.stored);
            Selector selector(reports);
            selector.value.setSerialised(c.stored);
            EXPECT_EQ(selector.epochPopupValue(), c.row);
            EXPECT_EQ(selector.value.epoch()->SQLDate(), c.day);
            EXPECT_EQ(selector.value.epochJulian(), c.julianDate);
            EXPECT_EQ(selector.value.serialised(), c.serialised.empty() ? c.stored : c.serialised);
        }
    }
}

TEST(EpochValue, RefusesADamagedTextAndChangesNothing) {
    Selector selector;
    for (const char* stored :
         {"x", "[]", R"({"epochPopup":"2"})", R"({"epochPopup":2.0})", R"({"epochPopup":null})",
          R"({"epochPopup":6})", R"({"epochPopup":-2})", R"({"epochPopup":4294967298})",
          R"({"epochPopup":1,"epochDate":"1987-02-29"})", R"({"epochPopup":1,"epochDate":""})"})
        EXPECT_THROW(selector.value.setSerialised(stored), std::invalid_argument) << stored;
    EXPECT_EQ(selector.row, 0);
    EXPECT_FALSE(selector.value.epoch());
}

TEST(EpochValue, SelectsTheRowOfAnAssignedDayWithoutAnEvent) {
    const struct { Date date; std::string row; const char* helpTag; const char* shown; } cases[] = {
        {{1900, 1, 1, 23, 59, 59}, "B1900.0", "", "2000-01-01"},
        {{1950, 1, 1}, "B1950.0", "", "2000-01-01"}, {{2000, 1, 1}, "J2000.0", "", "2000-01-01"},
        {{2050, 1, 1}, "J2050.0", "", "2000-01-01"},
        {{2026, 11, 16}, "JNow", "2026,9", "2000-01-01"},
        {{1987, 3, 15}, "Other", "1987,2", "1987-03-15"},
    };

    Selector selector;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.row);
        selector.value.setEpoch(c.date);
        EXPECT_EQ(selector.epochPopupValue(), c.row);
        EXPECT_EQ(selector.value.epoch(), c.date);
        EXPECT_EQ(selector.shown.SQLDate(), c.shown);
        EXPECT_EQ(selector.dateVisible, c.row == "Other");
        EXPECT_EQ(selector.labelVisible, c.row == "Other");
        EXPECT_EQ(selector.helpTag, c.helpTag);
    }
    EXPECT_TRUE(selector.heard.empty());
    selector.value.setSerialised(R"({"epochPopup":5,"epochDate":"2026-11-16"})");
    selector.value.setEpoch(Date(2026, 11, 16, 1, 2, 3));
    EXPECT_EQ(selector.epochPopupValue(), "Other") << "the row stays on the same day";
    EXPECT_EQ(selector.value.epoch(), selector.clock.moment);
}

TEST(EpochValue, FollowsTheUser) {
    Selector selector(false);
    selector.setEpochPopupValue("Other");
    EXPECT_TRUE(selector.dateVisible && selector.labelVisible);
    selector.pickDate(Date(1987, 3, 15));
    EXPECT_EQ(selector.helpTag, "1987,2");
    selector.setEpochPopupValue("JNow");
    selector.clock.moment = Date(2027, 1, 1);
    EXPECT_EQ(selector.value.epoch()->SQLDate(), "2026-11-16") << "it is no running clock";
    EXPECT_FALSE(selector.dateVisible || selector.labelVisible);
    selector.setEpochPopupValue("Other");
    selector.pickDate(Date(2000, 1, 1));
    EXPECT_EQ(selector.helpTag, "") << "the date decides, not the row";
    selector.setEpochPopupListIndex(-1);
    selector.pickDate(Date(2000, 1, 1, 5));
    const std::vector<std::string> heard{"2000-01-01", "1987-03-15", "2026-11-16", "1987-03-15",
                                         "2000-01-01"};
    EXPECT_EQ(selector.heard, heard);
}

TEST(EpochValue, IsAYearWithAFractionAndTakesOneCountingFebruaryAs28Days) {
    Selector selector;
    EXPECT_EQ(selector.value.epochYear(), 0.0);
    const std::pair<Date, double> read[] = {
        {{2000, 1, 1}, 2000.0}, {{2000, 3, 1}, 2000.16427105}, {{2025, 12, 31}, 2025.99657769},
        {{2024, 12, 31}, 2024.99931554},
    };
    for (const auto& [date, year] : read) {
        selector.value.setEpoch(date);
        EXPECT_NEAR(selector.value.epochYear(), year, 5e-9);
    }
    const std::pair<double, Date> written[] = {
        {2000.5, {2000, 7, 3, 21, 5, 9}}, {2023.999, {2023, 12, 31}},
        {1999.0, {1999, 1, 1, 21, 5, 9}}, {2000.1615, {2000, 3, 1, 21, 5, 9}},
        {-0.5, {-1, 7, 3, 21, 5, 9}},
    };
    for (const auto& [year, date] : written) {
        selector.value.setEpochYear(year);
        EXPECT_EQ(selector.value.epoch(), date) << year;
    }
}

TEST(EpochValue, TakesAJulianDateAndSurvivesEveryNumber) {
    Selector selector;
    EXPECT_THROW(selector.value.epochJulian(), std::logic_error);
    EXPECT_THROW(selector.value.SetHelpTag(), std::logic_error);
    selector.value.setEpochJulian(2446869.75);
    EXPECT_EQ(selector.value.epoch(), Date(1987, 3, 15, 6, 0, 0));
    for (const double number : {std::nan(""), HUGE_VAL, -HUGE_VAL, 1e300, -1e300}) {
        selector.value.setEpochJulian(number);
        selector.value.setEpochYear(number);
        selector.value.epochJulian();
    }
}

} // namespace
} // namespace skyvert
