#include "shell/EpochSelector.h"

#include "support/Table.h"
#include "support/TestDesktop.h"

namespace skyvert::epoch_selector_test {

struct EpochSelectorTest : testing::Test {
    EpochSelectorTest() {
        selector.ValueChanged = [this](EpochSelector&, const Date& date) {
            heard += date.SQLDate() + " ";
        };
        selector.open();
    }

    std::string_view row() const { return selector.epochPopup.value(); }

    FixedClock clock;
    Locale locale{",", "."};
    EpochSelector selector{{{.name = "fromEpoch"}}, clock, locale};
    std::string heard; ///< every day reported to the owner, with a blank after it
};

TEST_F(EpochSelectorTest, RestoresASelection) {
    for (const auto& [stored, name, day, julianDate, serialised] : table<5>("stored_epochs")) {
        selector.setSerialised(stored);
        EXPECT_EQ(row(), name);
        EXPECT_EQ(selector.epoch()->SQLDate(), day);
        EXPECT_EQ(selector.epochJulian(), number(julianDate));
        EXPECT_EQ(selector.serialised(), serialised);
    }
}

TEST_F(EpochSelectorTest, RefusesADamagedTextAndChangesNothing) {
    auto damaged = table<1>("damaged_epochs");
    damaged.push_back({std::string(300'000, '[')});
    for (const auto& [stored] : damaged)
        EXPECT_THROW(selector.setSerialised(stored), std::invalid_argument) << stored.substr(0, 40);
    EXPECT_EQ(selector.serialised(), R"({"epochPopup":0,"epochDate":"2000-01-01"})");
    EXPECT_FALSE(selector.epoch() || selector.epochDate.visible());
    EXPECT_EQ(selector.epochYear(), 0.0);
    EXPECT_THROW(selector.epochJulian(), std::logic_error);
    EXPECT_THROW(selector.SetHelpTag(), std::logic_error);
}

TEST_F(EpochSelectorTest, SelectsTheRowOfAnAssignedDayWithoutAnEvent) {
    for (const auto& [assigned, name, helpTag, shown] : table<4>("assigned_epochs")) {
        selector.setEpoch(date(assigned));
        EXPECT_EQ(row(), name);
        EXPECT_EQ(selector.epoch(), date(assigned));
        EXPECT_EQ(selector.epochDate.dateValue().SQLDate(), shown);
        EXPECT_EQ(selector.epochDate.visible(), name == "Other");
        EXPECT_EQ(selector.dateLabel.visible(), name == "Other");
        EXPECT_EQ(selector.epochPopup.helpTag(), helpTag);
    }
    EXPECT_EQ(heard, "");
    selector.setSerialised(R"({"epochPopup":5,"epochDate":"2026-11-16"})");
    selector.setEpoch(Date(2026, 11, 16, 1, 2, 3));
    EXPECT_EQ(row(), "Other") << "an equal day does not move the row";
    EXPECT_EQ(selector.epoch(), clock.moment);
}

TEST_F(EpochSelectorTest, FollowsTheUser) {
    selector.epochPopup.setValue("Other");
    EXPECT_TRUE(selector.epochDate.visible() && selector.dateLabel.visible());
    selector.epochDate.setDateValue(Date(1987, 3, 15));
    EXPECT_EQ(selector.epochPopup.helpTag(), "1987,2");
    selector.epochPopup.setValue("JNow");
    clock.moment = Date(2027, 1, 1);
    EXPECT_EQ(selector.epoch()->SQLDate(), "2026-11-16")
        << "the day of the choice, not a running clock";
    EXPECT_FALSE(selector.epochDate.visible() || selector.dateLabel.visible());
    selector.epochPopup.setValue("Other");
    selector.epochDate.setDateValue(Date(2000, 1, 1));
    EXPECT_EQ(selector.epochPopup.helpTag(), "") << "by the date, not the row";
    selector.epochPopup.setListIndex(-1);
    selector.epochDate.setDateValue(Date(2000, 1, 1, 5));
    EXPECT_EQ(heard, "2000-01-01 1987-03-15 2026-11-16 1987-03-15 2000-01-01 ");
}

TEST_F(EpochSelectorTest, ConvertsToAndFromAFractionalYearCountingFebruaryAs28Days) {
    for (const auto& [epoch, year] : table<2>("years_of_epochs")) {
        selector.setEpoch(date(epoch));
        EXPECT_NEAR(selector.epochYear(), number(year), 5e-9);
    }
    for (const auto& [year, epoch] : table<2>("epochs_of_years")) {
        selector.setEpochYear(number(year));
        EXPECT_EQ(selector.epoch(), date(epoch)) << year;
    }
    selector.setEpochJulian(2446869.75);
    EXPECT_EQ(selector.epoch(), Date(1987, 3, 15, 6, 0, 0));
}

} // namespace skyvert::epoch_selector_test
