#include "support/TestWindow.h"

namespace skyvert {
namespace {

constexpr auto kEmpty = "-red-No data!|-red-No data!|off";

class ManualEntryTest : public WindowTest {
protected:
    /// What the fields and the button show of the parsers' verdict.
    std::string verdict() const {
        std::string text;
        for (const TextField* field : {&main.raManual, &main.decManual}) {
            const Color color = field->textColor();
            const char* name = color == Color{0}          ? "-black-"
                               : color == Color{0xFF0000} ? "-red-"
                                                          : "-?-";
            text += field->text() + name + field->helpTag() + "|";
        }
        return text + (main.ManualEnterBtn.enabled() ? "on" : "off");
    }
};

TEST_F(ManualEntryTest, EveryKeystrokeHasItsVerdict) {
    EXPECT_EQ(verdict(), kEmpty);
    program.setFormats("HH MM SS\t+DD MM SS\tN\t1\t0", "HH\tDD\tN\t0\t0");
    program.settle();

    const std::array<const char*, 3> steps[] = {
        {"1", "", "1-black-|-red-No data!|off"},
        {"12 3", "1", "12 3-black-|+-black-|on"},
        {"12 60", "+12", "12 60-red-Minutes must be non-negative and less than 60|+12-black-|off"},
        {"12 30", "+91", "12 30-black-|+91-red-Degrees must be between -90 and +90|off"},
        {"12 30", "-12 30", "12 30-black-|-12 30-black-|on"}};

    for (const auto& [ra, dec, expected] : steps) {
        main.raManual.setText(ra);
        main.decManual.setText(dec);
        EXPECT_EQ(verdict(), expected);
    }
    main.inFormat.RAFormat.setValue("HHMM");
    program.settle();
    EXPECT_EQ(verdict(), steps[4][2]) << "stands until the next keystroke";
    main.raManual.setText("12 60");
    EXPECT_TRUE(verdict().ends_with("on"));
}

TEST_F(ManualEntryTest, AFirstCharacterThatIsNoSignBecomesOneUnderASignedMask) {
    const std::tuple<const char*, bool, const char*, const char*> cases[] = {
        {"+DD MM", true, "5", "<5<++>+>"}, {"+DD MM", true, "\u00B0", "<\u00B0<++>+>"},
        {"+DD MM", true, "-", "<-->"},     {"+DD MM", true, "+", "<++>"},
        {"+DD MM", true, "55", "<5555>"},  {"+DD MM", false, "5", "<55>"},
        {"DD", true, "5", "<55>"}};

    std::string events;
    main.decManual.TextChange = [&, handler = main.decManual.TextChange](TextField& field) {
        events += "<" + field.text();
        handler(field);
        events += field.text() + ">";
    };
    for (const auto& [decFormat, masked, typed, expected] : cases) {
        main.decManual.setText("");
        main.DataEntryMask.setValue(masked);
        main.inFormat.DecFormat.setValue(decFormat);
        program.settle();
        events.clear();
        main.decManual.setText(typed);
        EXPECT_EQ(events, expected) << decFormat << masked;
    }
}

TEST_F(ManualEntryTest, EnterMakesARowAndEmptiesTheFields) {
    main.raManual.setText("1");
    main.decManual.setText("-2");
    LoggingView view(main.raManual);
    main.ManualEnterBtn.press();
    EXPECT_TRUE(view.log.ends_with("focus|"));
    EXPECT_EQ(verdict(), kEmpty);
    main.ManualEnterBtn.press();
    EXPECT_EQ(program.rows(2), "01 00.0|-02 00.0|;");
}

TEST_F(ManualEntryTest, ClearEmptiesTheListAlone) {
    main.ConvertCoordinates("1", "1");
    main.raManual.setText("1");
    const std::string others = verdict() + program.headings();
    main.ClearListButton.press();
    EXPECT_EQ(program.rows(), "");
    EXPECT_FALSE(main.ClearListButton.enabled());
    EXPECT_EQ(verdict() + program.headings(), others);
}

} // namespace
} // namespace skyvert
