#include "shell/EpochSelector.h"
#include "shell/FormatSelector.h"
#include "support/TestDesktop.h"

#include <gtest/gtest.h>

namespace skyvert {
namespace {

TEST(Popup, SelectsByTheTextOfARow) {
    Popup popup({.name = "popup"});
    popup.setValue("x");
    EXPECT_EQ(popup.value(), "");
    for (const char* row : {"J2000.0", "j2000.0", "Other"})
        popup.AddRow(row);
    for (const auto& [text, row] : {std::pair{"j2000.0", 0}, {"OTHER", 2}, {"none", -1}}) {
        popup.setValue(text);
        EXPECT_EQ(popup.listIndex(), row);
    }
}

class FormatSelectorTest : public testing::Test {
protected:
    void open(const char* decimalPoint, const char* stored) {
        locale.decimalPoint = decimalPoint;
        selector.Open = [this, stored] { selector.setFormat(RADecFormat(stored, locale)); };
        selector.FormatChanged = [this](FormatSelector&, const RADecFormat& format) {
            told += format.AsString() + " / " + selector.exampleRA.text() + "\n";
        };
        selector.open();
        told.clear();
    }

    std::string shown() const {
        return selector.format().AsString() + " / " + selector.exampleRA.text() + " / " +
               selector.exampleDec.text();
    }

    Locale locale;
    FormatSelector selector{{.name = "inFormat", .text = "Input Format"}, locale};
    std::string told;
};

TEST_F(FormatSelectorTest, OpensWithItsStoredFormatAndOffersNoDecimalPointToChoose) {
    open(".", "HH:MM:SS\t+DD:MM:SS\tY\t2\t1");
    EXPECT_EQ(shown(), "HH:MM:SS\t+DD:MM:SS\tN\t2\t1 / 15:47:06.36 / +22:40:30.4");
    EXPECT_EQ(selector.title(), "Input Format");
    EXPECT_EQ(selector.RAFormat.ListCount(), 18);
    EXPECT_EQ(selector.DecFormat.ListCount(), 10);
    EXPECT_EQ(selector.raDecimals.List(8), "8");
    EXPECT_FALSE(selector.localised.enabled());
    EXPECT_EQ(selector.localised.state(), CheckBox::State::Mixed);
    EXPECT_EQ(selector.localised.caption(), "Localised decimal point");
    EXPECT_EQ(selector.localised.helpTag(),
              "Not applicable for this locality (your decimal point is a period).");
}

TEST_F(FormatSelectorTest, FollowsADecimalCommaWhenTold) {
    open(",", "HH\tDD\tY\t1\t1");
    EXPECT_EQ(shown(), "HH\tDD\tY\t1\t1 / 15,8 / 22,7");
    EXPECT_EQ(selector.localised.caption(), "Localised decimal point (,)");
    selector.localised.setValue(false);
    EXPECT_EQ(shown(), "HH\tDD\tN\t1\t1 / 15.8 / 22.7");
    EXPECT_EQ(told, "HH\tDD\tN\t1\t1 / 15,8\n");
}

TEST_F(FormatSelectorTest, TellsOfEachChangeOnceAndBeforeTheExamplesFollow) {
    open(".", "HH MM\t+DD MM\tN\t0\t0");
    selector.RAFormat.setValue("HH");
    selector.raDecimals.setListIndex(2);
    selector.DecFormat.setListIndex(-1);
    selector.decDecimals.setListIndex(-1);
    EXPECT_EQ(told, "HH\t+DD MM\tN\t0\t0 / 15 47\nHH\t+DD MM\tN\t2\t0 / 16\n"
                    "HH\t\tN\t2\t0 / 15.79\nHH\t\tN\t2\t0 / 15.79\n");
    EXPECT_EQ(selector.exampleDec.text(), "Unknown format!");
    told.clear();
    selector.setFormat(RADecFormat("DDD\tDD\tN\t9\t3", locale));
    EXPECT_EQ(shown(), "DDD\tDD\tN\t0\t3 / 237 / 22.675");
    EXPECT_EQ(told, "");
}

TEST(EpochSelector, ShowsItsDateUnderOtherOnly) {
    TestDesktop machine;
    EpochSelector selector({.name = "fromEpoch", .text = "Input Epoch"}, machine.clock,
                           machine.locale);
    std::string told;
    selector.ValueChanged = [&](EpochSelector&, const Date& date) { told += date.SQLDate() + " "; };
    selector.Open = [&] { selector.setSerialised(""); };
    EXPECT_EQ(selector.epochYear(), 0.0);
    selector.open();
    EXPECT_EQ(selector.title(), "Input Epoch");
    EXPECT_EQ(selector.epochPopup.value(), "J2000.0");
    EXPECT_EQ(selector.epochJulian(), 2451544.5);
    EXPECT_FALSE(selector.epochDate.visible());
    EXPECT_EQ(selector.epochPopup.helpTag(), "");

    told.clear();
    selector.epochPopup.setValue("Other");
    EXPECT_TRUE(selector.epochDate.visible() && selector.dateLabel.visible());
    EXPECT_EQ(selector.epochPopup.helpTag(), "2026.9");
    selector.epochDate.setDateValue(Date(1987, 3, 15));
    EXPECT_EQ(selector.epochJulian(), 2446869.5);
    selector.epochPopup.setValue("B1950.0");
    EXPECT_FALSE(selector.epochDate.visible() || selector.dateLabel.visible());
    EXPECT_EQ(selector.epochPopup.helpTag(), "");
    EXPECT_EQ(told, "2026-11-16 1987-03-15 1950-01-01 ");
    EXPECT_EQ(selector.serialised(), R"({"epochPopup":1,"epochDate":"1987-03-15"})");
    selector.setSerialised(R"({"epochPopup":5,"epochDate":"1999-07-01"})");
    EXPECT_EQ(selector.epochPopup.helpTag(), "1999.5");
}

} // namespace
} // namespace skyvert
