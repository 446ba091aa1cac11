#include "shell/FormatSelector.h"

#include "support/TestDesktop.h"

#include <gtest/gtest.h>

namespace skyvert::format_selector_test {

struct FormatSelectorTest : testing::Test {
    void open(const char* decimalPoint, const char* stored) {
        locale.decimalPoint = decimalPoint;
        selector.Open = [this, stored] { selector.setFormat(RADecFormat(stored, locale)); };
        selector.FormatChanged = [this](FormatSelector&, const RADecFormat& format) {
            reported += format.AsString() + " / " + selector.exampleRA.text() + "\n";
        };
        selector.open();
        reported.clear();
    }

    std::string shown() const {
        return selector.format().AsString() + " / " + selector.exampleRA.text() + " / " +
               selector.exampleDec.text();
    }

    Locale locale;
    FormatSelector selector{{{.name = "inFormat", .text = "Input Format"}}, locale};
    std::string reported;
};

TEST_F(FormatSelectorTest, OpensWithItsStoredFormatAndDisablesTheDecimalPointBox) {
    open(".", "HH:MM:SS\t+DD:MM:SS\tY\t2\t1");
    EXPECT_EQ(shown(), "HH:MM:SS\t+DD:MM:SS\tN\t2\t1 / 15:47:06.36 / +22:40:30.4");
    EXPECT_EQ(selector.title(), "Input Format");
    EXPECT_EQ(selector.RAFormat.ListCount(), RADecFormat::SupportedRAFormats().size());
    EXPECT_EQ(selector.DecFormat.ListCount(), RADecFormat::SupportedDecFormats().size());
    EXPECT_EQ(selector.raDecimals.List(8), "8");
    EXPECT_FALSE(selector.localised.enabled());
    EXPECT_EQ(selector.localised.state(), CheckBox::State::Mixed);
    EXPECT_EQ(selector.localised.caption(), "Localised decimal point");
    EXPECT_EQ(selector.localised.helpTag(),
              "Not applicable for this locality (your decimal point is a period).");
}

TEST_F(FormatSelectorTest, ReportsEachChangeOnceBeforeTheExamplesFollow) {
    open(".", "HH MM\t+DD MM\tN\t0\t0");
    selector.RAFormat.setValue("HH");
    selector.raDecimals.setListIndex(2);
    selector.DecFormat.setListIndex(-1);
    selector.decDecimals.setListIndex(-1);
    EXPECT_EQ(reported, "HH\t+DD MM\tN\t0\t0 / 15 47\nHH\t+DD MM\tN\t2\t0 / 16\n"
                        "HH\t\tN\t2\t0 / 15.79\nHH\t\tN\t2\t0 / 15.79\n");
    EXPECT_EQ(selector.exampleDec.text(), "Unknown format!");
    reported.clear();
    selector.setFormat(RADecFormat("DDD\tDD\tN\t9\t3", locale));
    EXPECT_EQ(shown(), "DDD\tDD\tN\t0\t3 / 237 / 22.675");
    EXPECT_EQ(reported, "");
}

} // namespace skyvert::format_selector_test
