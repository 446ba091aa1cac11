#include "shell/EpochSelector.h"
#include "support/TestDesktop.h"

#include <gtest/gtest.h>

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
    EpochSelector selector{{.name = "fromEpoch"}, clock, {",", "."}};
    std::string heard; ///< every day that the owner was told, ended by a blank
};

TEST_F(EpochSelectorTest, RestoresASelection) {
    const std::string date = R"("epochDate":"1987-03-15"})";
    const std::string today = R"("epochDate":"2026-11-16"})";
    const std::tuple<std::string, const char*, const char*, double, std::string> cases[] = {
        {"", "J2000.0", "2000-01-01", 2451544.5, R"({"epochPopup":2,)" + today},
        {R"( { "epochDate" : "1987-03-15", "epochPopup":0})", "B1900.0", "1900-01-01", 2415020.5,
         R"({"epochPopup":0,)" + date},
        {R"({"epochPopup":1,)" + date, "B1950.0", "1950-01-01", 2433282.5, ""},
        {R"({"epochPopup":3})", "J2050.0", "2050-01-01", 2469807.5, R"({"epochPopup":3,)" + today},
        {R"({"epochPopup":4,)" + date, "JNow", "2026-11-16", 2461360.5, ""},
        {R"({"epochPopup":-1,)" + date, "", "1987-03-15", 2446869.5, ""},
        {R"({"epochPopup":5,)" + date, "Other", "1987-03-15", 2446869.5, ""}};
    for (const auto& [stored, name, day, julianDate, serialised] : cases) {
        selector.setSerialised(stored);
        EXPECT_EQ(row(), name);
        EXPECT_EQ(selector.epoch()->SQLDate(), day);
        EXPECT_EQ(selector.epochJulian(), julianDate);
        EXPECT_EQ(selector.serialised(), serialised.empty() ? stored : serialised);
    }
}

TEST_F(EpochSelectorTest, RefusesADamagedTextAndChangesNothing) {
    const std::string deep(300'000, '[');
    for (const char* stored :
         {"x", "[]", "{}{}", "{\"a\":\"\xFF\"}", deep.c_str(), R"({"epochPopup":"2"})",
          R"({"epochPopup":2.0})", R"({"epochPopup":null})", R"({"epochPopup":6})",
          R"({"epochPopup":-2})", R"({"epochPopup":4294967298})",
          R"({"epochPopup":18446744073709551615})",
          R"({"epochPopup":1,"epochDate":"1987-02-29"})", R"({"epochPopup":1,"epochDate":""})"})
        EXPECT_THROW(selector.setSerialised(stored), std::invalid_argument)
            << std::string_view(stored).substr(0, 40);
    EXPECT_EQ(selector.serialised(), R"({"epochPopup":0,"epochDate":"2000-01-01"})");
    EXPECT_FALSE(selector.epoch() || selector.epochDate.visible());
    EXPECT_EQ(selector.epochYear(), 0.0);
    EXPECT_THROW(selector.epochJulian(), std::logic_error);
    EXPECT_THROW(selector.SetHelpTag(), std::logic_error);
}

TEST_F(EpochSelectorTest, SelectsTheRowOfAnAssignedDayWithoutAnEvent) {
    const std::tuple<Date, std::string, const char*, const char*> cases[] = {
        {{1900, 1, 1, 23, 59, 59}, "B1900.0", "", "2000-01-01"},
        {{1950, 1, 1}, "B1950.0", "", "2000-01-01"}, {{2000, 1, 1}, "J2000.0", "", "2000-01-01"},
        {{2050, 1, 1}, "J2050.0", "", "2000-01-01"},
        {{2026, 11, 16}, "JNow", "2026,9", "2000-01-01"},
        {{1987, 3, 15}, "Other", "1987,2", "1987-03-15"},
        {{1991, 4, 2}, "Other", "1991,2", "1991-04-02"}};
    for (const auto& [date, name, helpTag, shown] : cases) {
        selector.setEpoch(date);
        EXPECT_EQ(row(), name);
        EXPECT_EQ(selector.epoch(), date);
        EXPECT_EQ(selector.epochDate.dateValue().SQLDate(), shown);
        EXPECT_EQ(selector.epochDate.visible(), name == "Other");
        EXPECT_EQ(selector.dateLabel.visible(), name == "Other");
        EXPECT_EQ(selector.epochPopup.helpTag(), helpTag);
    }
    EXPECT_EQ(heard, "");
    selector.setSerialised(R"({"epochPopup":5,"epochDate":"2026-11-16"})");
    selector.setEpoch(Date(2026, 11, 16, 1, 2, 3));
    EXPECT_EQ(row(), "Other") << "the row stays on the same day";
    EXPECT_EQ(selector.epoch(), clock.moment);
}

TEST_F(EpochSelectorTest, FollowsTheUser) {
    selector.epochPopup.setValue("Other");
    EXPECT_TRUE(selector.epochDate.visible() && selector.dateLabel.visible());
    selector.epochDate.setDateValue(Date(1987, 3, 15));
    EXPECT_EQ(selector.epochPopup.helpTag(), "1987,2");
    selector.epochPopup.setValue("JNow");
    clock.moment = Date(2027, 1, 1);
    EXPECT_EQ(selector.epoch()->SQLDate(), "2026-11-16") << "it is no running clock";
    EXPECT_FALSE(selector.epochDate.visible() || selector.dateLabel.visible());
    selector.epochPopup.setValue("Other");
    selector.epochDate.setDateValue(Date(2000, 1, 1));
    EXPECT_EQ(selector.epochPopup.helpTag(), "") << "the date decides, not the row";
    selector.epochPopup.setListIndex(-1);
    selector.epochDate.setDateValue(Date(2000, 1, 1, 5));
    EXPECT_EQ(heard, "2000-01-01 1987-03-15 2026-11-16 1987-03-15 2000-01-01 ");
}

TEST_F(EpochSelectorTest, IsAYearWithAFractionAndTakesOneCountingFebruaryAs28Days) {
    const std::pair<Date, double> read[] = {
        {{2000, 1, 1}, 2000.0}, {{2000, 3, 1}, 2000.16427105}, {{2025, 12, 31}, 2025.99657769},
        {{2024, 12, 31}, 2024.99931554}};
    for (const auto& [date, year] : read) {
        selector.setEpoch(date);
        EXPECT_NEAR(selector.epochYear(), year, 5e-9);
    }
    const std::pair<double, Date> written[] = {
        {2000.083, {2000, 1, 31, 12, 30, 0}}, {2000.5, {2000, 7, 3, 12, 30, 0}}, {2023.999, {2023, 12, 31}}, {-0.5, {-1, 7, 3, 12, 30, 0}},
        {1999.0, {1999, 1, 1, 12, 30, 0}}, {2000.1615, {2000, 3, 1, 12, 30, 0}}};
    for (const auto& [year, date] : written) {
        selector.setEpochYear(year);
        EXPECT_EQ(selector.epoch(), date) << year;
    }
    selector.setEpochJulian(2446869.75);
    EXPECT_EQ(selector.epoch(), Date(1987, 3, 15, 6, 0, 0));
}

} // namespace skyvert::epoch_selector_test
