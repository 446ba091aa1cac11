#include "support/TestWindow.h"

#include <gtest/gtest.h>

namespace skyvert {
namespace {

class ManualEntryTest : public testing::Test {
protected:
    ManualEntryTest() { program.settle(); }

    /// What a field shows of the parsers' verdict.
    static std::string verdict(const TextField& field) {
        const char* color = field.textColor() == kBlack ? "black " : "red ";
        return field.text() + "|" + color + field.helpTag();
    }

    TemporaryFolder settings;
    TestWindow program{settings};
    MainWindow& main = *program.window;
};

TEST_F(ManualEntryTest, EmptyFieldsAreBadFromTheStart) {
    EXPECT_EQ(verdict(main.raManual), "|red No data!");
    EXPECT_EQ(verdict(main.decManual), "|red No data!");
    EXPECT_FALSE(main.ManualEnterBtn.enabled());
}

TEST_F(ManualEntryTest, EveryKeystrokeHasItsVerdict) {
    program.setFormats("HH MM SS\t+DD MM SS\tN\t1\t0", "HH\tDD\tN\t0\t0");
    program.settle();

    const struct {
        const char* ra;
        const char* dec;
        const char* raVerdict;
        const char* decVerdict;
        bool enabled;
    } steps[] = {
        {"1", "", "1|black ", "|red No data!", false},
        {"12 3", "1", "12 3|black ", "+|black ", true},
        {"12 60", "+12", "12 60|red Minutes must be non-negative and less than 60", "+12|black ",
         false},
        {"12 30 15", "+91", "12 30 15|black ", "+91|red Degrees must be between -90 and +90",
         false},
        {"12 30 15", "-12 30", "12 30 15|black ", "-12 30|black ", true},
    };

    for (const auto& [ra, dec, raVerdict, decVerdict, enabled] : steps) {
        main.raManual.setText(ra);
        main.decManual.setText(dec);
        EXPECT_EQ(verdict(main.raManual), raVerdict);
        EXPECT_EQ(verdict(main.decManual), decVerdict);
        EXPECT_EQ(main.ManualEnterBtn.enabled(), enabled) << ra << dec;
    }
}

TEST_F(ManualEntryTest, AFirstCharacterThatIsNoSignBecomesOneUnderASignedMask) {
    const struct {
        const char* decFormat;
        bool masked;
        const char* typed;
        const char* text;
    } cases[] = {
        {"+DD MM", true, "5", "+"},        {"+DD MM", true, "-", "-"},  {"+DD MM", true, "+", "+"},
        {"+DD MM", true, "\xC2\xB0", "+"}, {"+DD MM", false, "5", "5"}, {"DD", true, "5", "5"},
        {"+DD MM", true, "55", "55"},
    };

    for (const auto& [decFormat, masked, typed, text] : cases) {
        SCOPED_TRACE(std::string(decFormat) + typed);
        main.decManual.setText("");
        main.DataEntryMask.setValue(masked);
        main.inFormat.DecFormat.setValue(decFormat);
        program.settle();
        main.decManual.setText(typed);
        EXPECT_EQ(main.decManual.text(), text);
    }
}

TEST_F(ManualEntryTest, TheSignRuleRunsTheHandlerOnceMoreAndNoMore) {
    std::vector<std::string> calls;
    const auto handler = main.decManual.TextChange;
    main.decManual.TextChange = [&](TextField& field) {
        calls.push_back("begin " + field.text());
        handler(field);
        calls.push_back("end " + field.text());
    };
    main.decManual.setText("5");
    EXPECT_EQ(calls, (Row{"begin 5", "begin +", "end +", "end +"}));
}

TEST_F(ManualEntryTest, EnterMakesARowAndEmptiesTheFields) {
    struct FocusView : ControlView {
        void refresh() override {}

        void takeFocus() override { focused = true; }

        bool focused = false;
    } view;

    main.raManual.setView(&view);
    main.raManual.setText("1");
    main.decManual.setText("-2");
    main.ManualEnterBtn.press();
    EXPECT_EQ(program.row(0)[0], "01 00.0");
    EXPECT_EQ(program.row(0)[1], "-02 00.0");
    EXPECT_EQ(verdict(main.raManual), "|red No data!");
    EXPECT_EQ(verdict(main.decManual), "|red No data!");
    EXPECT_FALSE(main.ManualEnterBtn.enabled());
    EXPECT_TRUE(view.focused);
    main.raManual.setView(nullptr);
    main.ManualEnterBtn.press();
    EXPECT_EQ(main.list.RowCount(), 1);
}

TEST_F(ManualEntryTest, AVerdictStandsUntilTheNextKeystroke) {
    main.raManual.setText("23 30");
    main.decManual.setText("+1");
    main.inFormat.RAFormat.setValue("HHMM");
    program.settle();
    EXPECT_TRUE(main.ManualEnterBtn.enabled());
    main.raManual.setText("23 60");
    EXPECT_TRUE(main.ManualEnterBtn.enabled());
    main.raManual.setText("2360");
    EXPECT_FALSE(main.ManualEnterBtn.enabled());
}

TEST_F(ManualEntryTest, ClearEmptiesTheListAlone) {
    main.ConvertCoordinates("1", "1");
    main.raManual.setText("1");
    const Row headings = program.headings();
    main.ClearListButton.press();
    EXPECT_EQ(main.list.RowCount(), 0);
    EXPECT_FALSE(main.ClearListButton.enabled());
    EXPECT_EQ(main.raManual.text(), "1");
    EXPECT_EQ(program.headings(), headings);
}

} // namespace
} // namespace skyvert
