#include "support/TestWindow.h"

namespace skyvert::manual_entry_test {

struct ManualEntryTest : WindowTest {
    /// What the fields and the button show of the parsers' verdict.
    std::string verdict() const {
        std::string text;
        for (const TextField* field : {&main.raManual, &main.decManual}) {
            const bool isRed = field->textColor() == Color{0xFF0000};
            EXPECT_TRUE(isRed || field->textColor() == Color{0});
            text += field->text() + (isRed ? "-red-" : "-black-") + field->helpTag() + "|";
        }
        return text + (main.ManualEnterBtn.enabled() ? "on" : "off");
    }
};

TEST_F(ManualEntryTest, EveryKeystrokeHasItsVerdict) {
    EXPECT_EQ(verdict(), "-red-No data!|-red-No data!|off");
    program.setFormats("HH MM SS\t+DD MM SS\tN\t1\t0", "HH\tDD\tN\t0\t0");
    program.settle();

    const std::array<const char*, 3> steps[] = {
        {"1", "", "1-black-|-red-No data!|off"}, {"12 3", "1", "12 3-black-|+-black-|on"},
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

} // namespace skyvert::manual_entry_test
