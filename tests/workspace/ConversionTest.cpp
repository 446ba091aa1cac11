#include "support/TestWindow.h"

namespace skyvert::conversion_test {

using ConversionTest = WindowTest;
constexpr auto kColons = "HH:MM:SS\t+DD:MM:SS\tN\t2\t1";

TEST_F(ConversionTest, ARowHoldsThePositionInBothNotationsAndIsSelected) {
    program.setFormats(kColons, "HH MM SS\t+DD MM SS\tN\t2\t1");
    EXPECT_FALSE(main.ClearListButton.enabled());
    main.ConvertCoordinates("0", "0");
    EXPECT_TRUE(main.ClearListButton.enabled());
    main.fromEpoch.epochPopup.setValue("B1950.0");
    main.ConvertCoordinates("0", "0");
    main.ConvertCoordinates("6", "89:30");
    main.toEpoch.epochPopup.setValue("B1950.0");
    main.ConvertCoordinates("0", "0");
    EXPECT_EQ(program.rows(), "00:00:00.00|+00:00:00.0|00 00 00.00|+00 00 00.0|;"
                              "00:00:00.00|+00:00:00.0|00 02 33.72|+00 16 42.2|;"
                              "06:00:00.00|+89:30:00.0|07 58 41.43|+89 25 34.9|;"
                              "00:00:00.00|+00:00:00.0|00 00 00.00|+00 00 00.0|;");
    EXPECT_EQ(main.list.selection(), (std::vector<RowRange>{{3, 3}}));
}

TEST_F(ConversionTest, ASelectorAffectsHeadingsAndLaterRowsOnly) {
    program.setFormats(kColons, "HH:MM:SS\t+DD:MM:SS\tN\t0\t0");
    main.ConvertCoordinates("12:30", "-0:30");
    const std::string before = program.rows();
    main.fromEpoch.epochPopup.setValue("B1900.0");
    main.toEpoch.epochPopup.setValue("Other");
    main.toEpoch.epochDate.setDateValue(Date(1987, 3, 15));
    main.inFormat.RAFormat.setValue("DDD");
    main.outFormat.DecFormat.setValue("DD");
    program.settle();
    main.ConvertCoordinates("187.5", "-0:30");
    // 87.2 years of precession: 87.2 * 3.0748 s = 268 s, and 87.2 * -19.87" = -0.48 degrees.
    EXPECT_EQ(program.rows(), before + "187.50|-00:30:00.0|12:34:28|-1|;");
    EXPECT_EQ(program.headings(),
              "Input RA (1900.0)|Input Dec (1900.0)|Output RA (1987.2)|Output Dec (1987.2)|");
    main.ClearListButton.press();
    EXPECT_FALSE(main.ClearListButton.enabled());
}

TEST_F(ConversionTest, MasksAndCuesFollowTheNotationTenMillisecondsLater) {
    using namespace std::chrono_literals;
    const auto shown = [this](std::chrono::milliseconds time) {
        program.machine.scheduler.advance(time);
        std::string text;
        for (const TextField* field : {&main.raManual, &main.decManual})
            text += field->cueText() + " " + field->mask() + "|";
        return text;
    };
    main.raManual.setText("12");
    program.setFormats("HH:MM\t+DD:MM\tN", "HH\tDD");
    main.inFormat.RAFormat.setValue("DDD");
    EXPECT_EQ(shown(9ms), R"(HH MM ##\ ##\.99999|+DD MM &##\ ##\.99999|)");
    EXPECT_EQ(shown(1ms), R"(DDD |+DD:MM &##\:##\.99999|)");
    main.DataEntryMask.setValue(false);
    EXPECT_EQ(shown(10ms), "DDD |+DD:MM |");
    EXPECT_EQ(main.raManual.text(), "12");
}

} // namespace skyvert::conversion_test
