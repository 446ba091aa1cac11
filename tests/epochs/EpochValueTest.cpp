#include "support/PlainEpochView.h"

#include <gtest/gtest.h>

#include <cmath>

namespace skyvert::epoch_value_test {

TEST(EpochValue, RestoresASelectionWhetherOrNotTheDateControlReportsAssignments) {
    const std::string date = R"("epochDate":"1987-03-15"})";
    const std::string today = R"("epochDate":"2026-11-16"})";
    const std::tuple<std::string, const char*, const char*, double, std::string> cases[] = {
        {"", "J2000.0", "2000-01-01", 2451544.5, R"({"epochPopup":2,)" + today},
        {R"( { "epochDate" : "1987-03-15", "epochPopup":0})", "B1900.0", "1900-01-01", 2415020.5,
         R"({"epochPopup":0,)" + date},
        {R"({"epochPopup":1,)" + date, "B1950.0", "1950-01-01", 2433282.5, ""},
        {R"({"epochPopup":3})", "J2050.0", "2050-01-01", 2469807.5, R"({"epochPopup":3,)" + today},
        {R"({"epochPopup":4,)" + date, "JNow", "2026-11-16", 2461360.5, ""},
        {R"({"epochPopup":5,)" + date, "Other", "1987-03-15", 2446869.5, ""},
        {R"({"epochPopup":-1,)" + date, "", "1987-03-15", 2446869.5, ""}};
    for (const auto& [stored, row, day, julianDate, serialised] : cases)
        for (const bool reports : {false, true}) {
            PlainEpochView view(reports);
            view.value.setSerialised(stored);
            EXPECT_EQ(view.epochPopupValue(), row);
            EXPECT_EQ(view.value.epoch()->SQLDate(), day);
            EXPECT_EQ(view.value.epochJulian(), julianDate);
            EXPECT_EQ(view.value.serialised(), serialised.empty() ? stored : serialised);
        }
}

TEST(EpochValue, RefusesADamagedTextAndChangesNothing) {
    PlainEpochView view;
    const std::string deep(300'000, '[');
    for (const char* stored :
         {"x", "[]", "{}{}", "{\"a\":\"\xFF\"}", deep.c_str(), R"({"epochPopup":"2"})",
          R"({"epochPopup":2.0})", R"({"epochPopup":null})", R"({"epochPopup":6})",
          R"({"epochPopup":-2})", R"({"epochPopup":4294967298})",
          R"({"epochPopup":1,"epochDate":"1987-02-29"})", R"({"epochPopup":1,"epochDate":""})"})
        EXPECT_THROW(view.value.setSerialised(stored), std::invalid_argument)
            << std::string_view(stored).substr(0, 40);
    EXPECT_EQ(view.row, 0);
    EXPECT_FALSE(view.value.epoch());
}

TEST(EpochValue, SelectsTheRowOfAnAssignedDayWithoutAnEvent) {
    const std::tuple<Date, std::string, const char*, const char*> cases[] = {
        {{1900, 1, 1, 23, 59, 59}, "B1900.0", "", "2000-01-01"},
        {{1950, 1, 1}, "B1950.0", "", "2000-01-01"}, {{2000, 1, 1}, "J2000.0", "", "2000-01-01"},
        {{2050, 1, 1}, "J2050.0", "", "2000-01-01"},
        {{2026, 11, 16}, "JNow", "2026,9", "2000-01-01"},
        {{1987, 3, 15}, "Other", "1987,2", "1987-03-15"}};
    PlainEpochView view;
    for (const auto& [date, row, helpTag, shown] : cases) {
        view.value.setEpoch(date);
        EXPECT_EQ(view.epochPopupValue(), row);
        EXPECT_EQ(view.value.epoch(), date);
        EXPECT_EQ(view.shown.SQLDate(), shown);
        EXPECT_TRUE(view.dateVisible == (row == "Other") && view.labelVisible == view.dateVisible);
        EXPECT_EQ(view.helpTag, helpTag);
    }
    EXPECT_EQ(view.heard, "");
    view.value.setSerialised(R"({"epochPopup":5,"epochDate":"2026-11-16"})");
    view.value.setEpoch(Date(2026, 11, 16, 1, 2, 3));
    EXPECT_EQ(view.epochPopupValue(), "Other") << "the row stays on the same day";
    EXPECT_EQ(view.value.epoch(), view.clock.moment);
}

TEST(EpochValue, FollowsTheUser) {
    PlainEpochView view(false);
    view.setEpochPopupValue("Other");
    EXPECT_TRUE(view.dateVisible && view.labelVisible);
    view.pickDate(Date(1987, 3, 15));
    EXPECT_EQ(view.helpTag, "1987,2");
    view.setEpochPopupValue("JNow");
    view.clock.moment = Date(2027, 1, 1);
    EXPECT_EQ(view.value.epoch()->SQLDate(), "2026-11-16") << "it is no running clock";
    EXPECT_FALSE(view.dateVisible || view.labelVisible);
    view.setEpochPopupValue("Other");
    view.pickDate(Date(2000, 1, 1));
    EXPECT_EQ(view.helpTag, "") << "the date decides, not the row";
    view.setEpochPopupListIndex(-1);
    view.pickDate(Date(2000, 1, 1, 5));
    EXPECT_EQ(view.heard, "2000-01-01 1987-03-15 2026-11-16 1987-03-15 2000-01-01 ");
}

TEST(EpochValue, IsAYearWithAFractionAndTakesOneCountingFebruaryAs28Days) {
    PlainEpochView view;
    EXPECT_EQ(view.value.epochYear(), 0.0);
    const std::pair<Date, double> read[] = {
        {{2000, 1, 1}, 2000.0}, {{2000, 3, 1}, 2000.16427105}, {{2025, 12, 31}, 2025.99657769},
        {{2024, 12, 31}, 2024.99931554}};
    for (const auto& [date, year] : read) {
        view.value.setEpoch(date);
        EXPECT_NEAR(view.value.epochYear(), year, 5e-9);
    }
    const std::pair<double, Date> written[] = {
        {2000.5, {2000, 7, 3, 21, 5, 9}}, {2023.999, {2023, 12, 31}}, {-0.5, {-1, 7, 3, 21, 5, 9}},
        {1999.0, {1999, 1, 1, 21, 5, 9}}, {2000.1615, {2000, 3, 1, 21, 5, 9}}};
    for (const auto& [year, date] : written) {
        view.value.setEpochYear(year);
        EXPECT_EQ(view.value.epoch(), date) << year;
    }
}

TEST(EpochValue, TakesAJulianDateAndSurvivesEveryNumber) {
    PlainEpochView view;
    EXPECT_THROW(view.value.epochJulian(), std::logic_error);
    EXPECT_THROW(view.value.SetHelpTag(), std::logic_error);
    view.value.setEpochJulian(2446869.75);
    EXPECT_EQ(view.value.epoch(), Date(1987, 3, 15, 6, 0, 0));
    for (const double number : {std::nan(""), HUGE_VAL, -HUGE_VAL, 1e300, -1e300}) {
        view.value.setEpochJulian(number);
        view.value.setEpochYear(number);
        view.value.epochJulian();
    }
}

} // namespace skyvert::epoch_value_test
