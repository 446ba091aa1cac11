#include "controls/EntryMask.h"

#include "platform/Text.h"
#include "support/Table.h"

#include <map>

namespace skyvert::entry_mask_test {

/// Applies one change to a text in which "|" marks the caret or "[" and "]" enclose the selection;
/// "<" is Backspace and ">" is Delete. Returns the text with its caret, or "refused".
std::string changed(const EntryMask& mask, std::string shown, std::string_view insertion) {
    const auto take = [&](char mark, std::size_t otherwise) {
        const std::size_t byte = shown.find(mark);
        if (byte == std::string::npos)
            return otherwise;
        shown.erase(byte, 1);
        return Len(shown.substr(0, byte));
    };
    const std::size_t first = take('[', take('|', 0));
    const std::size_t last = take(']', first);
    std::optional<EntryText> entry = insertion != "<" && insertion != ">"
                                         ? mask.replace(shown, first, last, insertion)
                                     : first != last    ? mask.erase(shown, first, last)
                                     : insertion == "<" ? mask.eraseBefore(shown, first)
                                                        : mask.eraseAfter(shown, first);
    if (!entry)
        return "refused";
    return entry->text.insert(Left(entry->text, entry->caret).size(), "|");
}

TEST(EntryMask, EachChangeIsCompletedOrRefusedAsAWhole) {
    std::map<std::string, std::string> closingMarks{{R"(##\h##\m##\.999999)", "s"},
                                                    {R"(##\h##\.999999)", "m"},
                                                    {R"(&##\°##\'##\.999999)", "\""}};
    for (const auto& [mask, before, insertion, after] : table<4>("entry_mask"))
        EXPECT_EQ(changed({mask, ".", closingMarks[mask]}, before, insertion), after)
            << mask << ": " << before << " <- " << insertion;
    EXPECT_EQ(changed({R"(##\:##\:##.99999)", "٫"}, "|", "1:2:3.5"), "01:02:03٫5|");
    EXPECT_EQ(EntryMask(R"(##\ ##)", ".").replace("12", 9, 7, "3"), (EntryText{"12 3", 4}));
}

} // namespace skyvert::entry_mask_test
