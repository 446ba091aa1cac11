#include "support/Table.h"
#include "support/TestWindow.h"

namespace skyvert::manual_entry_test {

struct ManualEntryTest : WindowTest {
    /// The parsers' verdict as the fields and the button show it.
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

TEST_F(ManualEntryTest, EachChangeOfTheTextIsChecked) {
    EXPECT_EQ(verdict(), "-red-No data!|-red-No data!|off");
    program.setFormats("HH MM SS\t+DD MM SS\tN\t1\t0", "HH\tDD\tN\t0\t0");
    program.settle();

    for (const auto& [ra, dec, expected] : table<3>("keystrokes")) {
        main.raManual.setText(ra);
        main.decManual.setText(dec);
        EXPECT_EQ(verdict(), expected);
    }
    main.inFormat.RAFormat.setValue("HHMM");
    program.settle();
    EXPECT_EQ(verdict(), "12 30-black-|-12 30-black-|on") << "stays until the next keystroke";
    main.raManual.setText("12 60");
    EXPECT_TRUE(verdict().ends_with("on"));
}

TEST_F(ManualEntryTest, AFirstCharacterThatIsNotASignBecomesOneUnderASignedMask) {
    std::string events;
    main.decManual.TextChange = [&, handler = main.decManual.TextChange](TextField& field) {
        events += "<" + field.text();
        handler(field);
        events += field.text() + ">";
    };
    for (const auto& [decFormat, masked, typed, expected] : table<4>("first_characters")) {
        main.decManual.setText("");
        main.DataEntryMask.setValue(masked == "true");
        main.inFormat.DecFormat.setValue(decFormat);
        program.settle();
        events.clear();
        main.decManual.setText(typed);
        EXPECT_EQ(events, expected) << decFormat << masked;
    }
}

} // namespace skyvert::manual_entry_test
