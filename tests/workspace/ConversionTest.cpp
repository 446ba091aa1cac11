#include "support/TestWindow.h"

#include <gtest/gtest.h>

namespace skyvert {
namespace {

constexpr auto kColons = "HH:MM:SS\t+DD:MM:SS\tN\t2\t1";

class ConversionTest : public testing::Test {
protected:
    ConversionTest() {
        main.fromEpoch.epochPopup.setValue("B1950.0");
        main.toEpoch.epochPopup.setValue("J2000.0");
        program.settle();
    }

    TemporaryFolder settings;
    TestWindow program{settings};
    MainWindow& main = *program.window;
};

TEST_F(ConversionTest, ARowHoldsThePositionInBothNotationsAndIsSelected) {
    program.setFormats(kColons, "HH MM SS\t+DD MM SS\tN\t2\t1");
    EXPECT_FALSE(main.ClearListButton.enabled());
    main.ConvertCoordinates("0", "0");
    EXPECT_EQ(program.row(0), (Row{"00:00:00.00", "+00:00:00.0", "00 02 33.72", "+00 16 42.2"}));
    main.ConvertCoordinates("6", "89:30");
    EXPECT_EQ(program.row(1), (Row{"06:00:00.00", "+89:30:00.0", "07 58 41.43", "+89 25 34.9"}));
    EXPECT_EQ(main.list.selection(), (std::vector<RowRange>{{1, 1}}));
    EXPECT_TRUE(main.ClearListButton.enabled());
}

TEST_F(ConversionTest, TextThatDoesNotParseStillMakesARow) {
    const struct {
        const char* format;
        const char* ra;
        const char* dec;
        const char* inputRA;
        const char* inputDec;
    } cases[] = {
        {kColons, "", "", "00:00:00.00", "+00:00:00.0"},
        {kColons, "abc", "-", "00:00:00.00", "+00:00:00.0"},
        {kColons, "25:61:61", "-91", "26:02:01.00", "-91:00:00.0"},
        {"none\tnone", "1", "1", "Unknown format!", "Unknown format!"},
        {"HH\tDD\tN\t0\t0", "1e9", "-0.4", "1", "0"},
    };

    for (const auto& [format, ra, dec, inputRA, inputDec] : cases) {
        SCOPED_TRACE(ra);
        program.setFormats(format, kColons);
        main.ConvertCoordinates(ra, dec);
        const Row row = program.row(main.list.LastIndex());
        EXPECT_EQ(row[0], inputRA);
        EXPECT_EQ(row[1], inputDec);
    }
    EXPECT_EQ(main.list.RowCount(), 5);
    EXPECT_TRUE(program.machine.dialogs.messages.empty());
}

TEST_F(ConversionTest, NumbersOutOfAllRangesAreRendered) {
    program.setFormats("HH MM\tDD\tN\t1\t1", "HH MM\t+DD MM\tN\t1\t1");
    main.ConvertCoordinates(std::string(400, '9'), "-" + std::string(400, '9'));
    EXPECT_EQ(program.row(0), (Row{"inf nan", "-inf", "nan nan", "+nan nan"}));
}

TEST_F(ConversionTest, RowsNeverChangeWhenASelectorDoes) {
    program.setFormats(kColons, kColons);
    main.ConvertCoordinates("12:30", "-0:30");
    const Row before = program.row(0);
    EXPECT_EQ(before[1], "-00:30:00.0");
    main.fromEpoch.epochPopup.setValue("B1900.0");
    main.toEpoch.epochPopup.setValue("Other");
    main.toEpoch.epochDate.setDateValue(Date(1987, 3, 15));
    main.inFormat.RAFormat.setValue("DDD");
    main.outFormat.DecFormat.setValue("DD");
    program.settle();
    EXPECT_EQ(program.row(0), before);
    EXPECT_EQ(program.headings(), (Row{"Input RA (1900.0)", "Input Dec (1900.0)",
                                       "Output RA (1987.2)", "Output Dec (1987.2)"}));
    main.ConvertCoordinates("187.5", "-0:30");
    EXPECT_EQ(program.row(1)[0], "187.50");
    EXPECT_NE(program.row(1)[3], before[3]);
}

TEST_F(ConversionTest, HeadingsHaveTheSystemsDecimalSeparator) {
    TestWindow german(settings, {.decimalPoint = ",", .groupSeparator = "."});
    EXPECT_EQ(german.headings(), (Row{"Input RA (2000,0)", "Input Dec (2000,0)",
                                      "Output RA (2000,0)", "Output Dec (2000,0)"}));
}

TEST_F(ConversionTest, MasksAndCuesFollowTheNotationTenMillisecondsLater) {
    using namespace std::chrono_literals;
    main.raManual.setText("12");
    program.setFormats("HH:MM\t+DD:MM\tN", "HH\tDD");
    EXPECT_EQ(main.raManual.cueText(), "HH MM");
    main.inFormat.RAFormat.setValue("DDD");
    program.machine.scheduler.advance(9ms);
    EXPECT_EQ(main.raManual.cueText(), "HH MM");
    program.machine.scheduler.advance(1ms);
    EXPECT_EQ(main.raManual.cueText(), "DDD");
    EXPECT_EQ(main.raManual.mask(), "");
    EXPECT_EQ(main.decManual.mask(), R"(&##\:##\.99999)");
    main.DataEntryMask.setValue(false);
    program.machine.scheduler.advance(10ms);
    EXPECT_EQ(main.decManual.mask(), "");
    EXPECT_EQ(main.decManual.cueText(), "+DD:MM");
    EXPECT_EQ(main.raManual.text(), "12");
}

TEST_F(ConversionTest, EvenRowsHaveAStripeUnlessTheyAreSelected) {
    struct Paint : Graphics {
        int Width() const override { return 200; }

        int Height() const override { return 20; }

        void setForeColor(Color newColor) override { color = newColor; }

        void FillRect(int x, int y, int width, int height) override {
            filled = x == 0 && y == 0 && width == 200 && height == 20;
        }

        Color color;
        bool filled = false;
    };

    std::string stripes;
    for (int i = 0; i < 5; ++i)
        main.ConvertCoordinates("1", "1");
    main.list.setSelection({{2, 3}});
    for (std::int64_t row = 0; row < 5; ++row) {
        Paint paint;
        EXPECT_FALSE(main.list.paintCellBackground(paint, row, 0));
        stripes += paint.filled && paint.color == Color{0xEFEFEF} ? '#' : '.';
    }
    EXPECT_EQ(stripes, "#...#");
}

} // namespace
} // namespace skyvert
