#include "controls/EntryMask.h"

#include "platform/Text.h"

#include <gtest/gtest.h>


namespace skyvert::entry_mask_test {

constexpr const char* kBlanks = R"(##\ ##\ ##\.99999)";
constexpr const char* kColons = R"(##\:##\:##.99999)";
constexpr const char* kLetters = R"(##\h##\m##\.999999)";
constexpr const char* kColumns = "######.999999";
constexpr const char* kMarks = R"(&##\°##\'##\.999999)";
constexpr const char* kSigned = R"(&##\ ##\ ##\.99999)";

/// One change to a text in which "|" is the caret, or "[" and "]" enclose the selection; "<" is
/// Backspace and ">" is Delete. Returned: the text with its caret, or "refused".
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
    std::optional<EntryText> entry =
        insertion != "<" && insertion != ">" ? mask.replace(shown, first, last, insertion)
        : first != last                      ? mask.erase(shown, first, last)
        : insertion == "<"                   ? mask.eraseBefore(shown, first)
                                             : mask.eraseAfter(shown, first);
    if (!entry)
        return "refused";
    return entry->text.insert(Left(entry->text, entry->caret).size(), "|");
}

TEST(EntryMask, OneChangeIsCompletedOrRefusedWhole) {
    const std::pair<const char*, std::vector<std::array<const char*, 3>>> rows[] = {
        {kLetters, {
            {"|", "123045.5", "12h30m45.5|"}, {"|", "12H 30M 45.5S ", "12h30m45.5|"}, {"|", "12h30s", "refused"},
            {"[12h30]", "1h2m3,5", "01h02m03.5|"}, {"|", "12h30m45s6", "refused"},
            {"|", "12:30", "refused"}, {"1|h30m45s", "2", "12|h30m45"}, {"1|h3s", "x", "1x|h3s"}}},
        {R"(##\h##\.999999)", {{"|", "12h30m", "12h30|"}, {"|", "12h30m45s", "refused"}}},
        {kBlanks, {
            {"|", "12  30  15", "12 30 15|"}, {"|", "1230155", "12 30 15.5|"}, {"12 |", " 30 15", "12 30 15|"},
            {"|", "123456789012", "refused"}, {"|", "12 30 15 7", "refused"},
            {"12 |0 15", "4", "12 4|0 15"}, {"12 [30] 15.5", "45", "12 45| 15.5"},
            {"1[2 3]0 15", "4", "14| 0 15"}, {"14| 0 15", "5", "14 5|0 15"},
            {"14| 0", " ", "14 |0"}, {"1| 30", " ", "01 |30"}, {"1|2 30", " ", "refused"},
            {"|12 30", "0", "0|1 23 0"}, {"|12 3 15.5", "0", "0|1 23 15.5"},
            {"12 |30 15", "4", "refused"}, {"12 |30 15.5", "4", "refused"},
            {"12 30 15|.5", "4", "refused"}, {"12 30 15|.5", ",", "12 30 15.|5"},
            {"12 3|0 15", "<", "12 |0 15"}, {"12 |30 15", "<", "1| 30 15"},
            {"12| 30 15", ">", "12| 0 15"}, {"1[2 30 1]5.5", ">", "1|  5.5"},
            {"12[ 30 15.5]", "<", "12|"}, {"12[ ]30", "<", "12| 30"}, {" |30", "<", "|30"},
            {"12 30 15.|5", "<", "12 30 1|.5"}, {"|12", "<", "|12"}, {"12|", ">", "12|"},
            {"1230|", "1", "12 30 1|"}, {"12h30|", "4", "12h304|"}, {"12h30|m", "<", "12h3|m"},
            {"12[h]30 15", " ", "12 |30 15"}, {"[12h30m]", "5", "5|"}, {"[2h]", "x", "refused"},
            {"\xFF|", "\xFE", "\xFF\xFE|"}}},
        {kColons, {
            {"12:|:15", ">", "12:|15"}, {"1|:30", ">", "1|:0"}, {"|", "1:2:3.5", "01:02:03.5|"}}},
        {kColumns, {
            {"12|3015.5", ">", "12|015.5"}, {"|", "123015,5", "123015.5|"}, {"12|", ":", "refused"},
            {"12301|", ".", "refused"}}},
        {"####.999999", {{"123|", ".", "refused"}}},
        {kMarks, {
            {"[+12°30]", "-1°2'", "-01°02'|"}, {"|", "5°5'5.5\"", "05°05'05.5|"}, {"+12°|30", "<", "+1|°30"},
            {"-12|°30", "°", "-12°|30"}, {"|°30", "-", "-|°30"}, {"|°30", "2", "2|°30"}}},
        {kSigned, {
            {"+|", "-22 40", "-22 40|"}, {"+|", " ", "+|"}, {"|22 40", " ", "|22 40"}, {"|", " ", " |"}, {"-|", "0040155", "-00 40 15.5|"}, {"|", " 22 40 30", "22 40 30|"},
            {"|22 40", "-", "-|22 40"}, {"|+22", "-", "-|22"}, {"|+22", "x", "refused"},
            {"+|22 40", "<", "|22 40"}, {"[+22] 40", "<", "| 40"}, {"| 40", "22", "22| 40"}}}};
    for (const auto& [mask, changes] : rows)
        for (const auto& [before, insertion, after] : changes)
            EXPECT_EQ(changed({mask, "."}, before, insertion), after)
                << mask << ": " << before << " <- " << insertion;
    EXPECT_EQ(changed({kColons, "٫"}, "|", "1:2:3.5"), "01:02:03٫5|");
    EXPECT_EQ(changed({R"(\(##\))", "."}, "(7|", "7)"), "(77)|");
    EXPECT_EQ(changed({"", "."}, "any| text", "x y"), "anyx y| text");
    EXPECT_EQ(EntryMask(kBlanks, ".").replace("12", 9, 7, "3"), (EntryText{"12 3", 4}));
}


} // namespace skyvert::entry_mask_test
