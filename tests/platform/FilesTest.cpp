#include "platform/Files.h"
#include "platform/TextInputStream.h"
#include "platform/TextOutputStream.h"

#include "platform/Text.h"
#include "support/TestDesktop.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace skyvert::files_test {

using namespace std::string_literals;
namespace fs = std::filesystem;

struct TextFiles : testing::Test {
    /// The lines that a file of these bytes is read as, each ended by "|".
    std::string linesOf(const std::string& bytes) const {
        EXPECT_TRUE(writeWholeFile(list, bytes));
        EXPECT_EQ(readWholeFile(list), bytes);
        TextInputStream stream = TextInputStream::Open(list);
        std::string lines;
        while (!stream.endOfFile())
            lines.append(stream.ReadLine()).append("|");
        return lines;
    }

    const TemporaryFolder folder;
    const fs::path list = folder / "list.txt";
};

TEST_F(TextFiles, AreReadWithEveryLineEndAndEncoding) {
    const std::pair<std::string, std::string> cases[] = {
        {"", ""}, {"\n", "|"}, {"a\nb", "a|b|"}, {"a\r\nb\rc\n", "a|b|c|"},
        {"a\r\r\n\n\rb", "a||||b|"}, {"a\r", "a|"}, {"\0\0\0\n\0"s, "\0\0\0|\0|"s},
        {"\xEF\xBB\xBF", ""}, {"\xEF\xBB\xBF+1\u00B0\xE9", "+1\u00B0\u00E9|"},
        {"\xEF\xBB", "\u00EF\u00BB|"},
        {"1\xB0 2\x92 3\x94\n\x80\x81", "1\u00B0 2\u2019 3\u201D|\u20AC\u0081|"},
        {"\u00B0\xB0\xE2\x80", "\u00B0\u00B0\u00E2\u20AC|"},
        {"\xED\xA0\x80", "\u00ED\u00A0\u20AC|"}, {"\U0001F600\u0800", "\U0001F600\u0800|"},
        {"\xE0\x80\x80", "\u00E0\u20AC\u20AC|"}, {"\xF4\x90\x80\x80", "\u00F4\u0090\u20AC\u20AC|"},
        {"\xFF\xFE\x31\0\xB0\0\r\0\n\0\x32\0"s, "1\u00B0|2|"},
        {"\xFE\xFF\0\x31\0\n\x22\x12\xD8\x3D\xDD\x2D"s, "1|\u2212\U0001F52D|"},
        {"\xFF\xFE=\xD8\0\xDE=\xD8z\0\0\xDCz\0b"s, "\U0001F600\uFFFDz\uFFFDz\uFFFD|"},
        {"\xFF\xFEz\0=\xD8"s, "z\uFFFD|"},
        {"\xFE\xFF\x08\0\xD8\0\xD8\0"s, "\u0800\uFFFD\uFFFD|"}};
    for (const auto& [bytes, lines] : cases)
        EXPECT_EQ(linesOf(bytes), lines) << testing::PrintToString(bytes);
}

TEST_F(TextFiles, AreReadAcrossTheEdgesOfTheBuffer) {
    // Lines of every length, and one that goes on beyond what is read of a line.
    std::string bytes;
    std::string lines;
    for (std::size_t length = 0; length < 1500; ++length) {
        bytes += std::string(length, 'x') + "\r\n";
        lines += std::string(length, 'x') + "|";
    }
    const std::string most(1'048'576, 'y'), more(2'999'999, 'y'), allButOne = most.substr(1);
    EXPECT_TRUE(linesOf(bytes + most + "\nz") == lines + most + "|z|");
    for (const char* end : {"", "\r\n", "\r"}) {
        EXPECT_TRUE(linesOf(bytes + most + more + end) == lines + most + "|") << end;
        EXPECT_TRUE(linesOf(allButOne + "\u00B0" + more + end) == allButOne + "|") << end;
    }
    std::string wide = "\xFF\xFE";
    for (const char unit : most + more + "\nz")
        wide.append({unit, '\0'});
    EXPECT_TRUE(linesOf(wide) == most + "|z|");
    // A line end that a buffer of any usual size cuts in two.
    for (std::size_t size = 4096; size <= 1'048'576; size *= 2)
        EXPECT_TRUE(linesOf(std::string(size - 1, 'x') + "\r\ny").ends_with("x|y|")) << size;
}

TEST_F(TextFiles, AreReplacedOnlyWhenClosed) {
    constexpr auto kPermissions = fs::perms::owner_read | fs::perms::owner_write;
    ASSERT_TRUE(writeWholeFile(list, "old"));
    fs::permissions(list, kPermissions);
    ASSERT_TRUE(writeWholeFile(folder / ".skyvert-0.tmp", "of a program that died"));
    fs::create_symlink("list.txt", folder / "link.txt");
    { TextOutputStream::Create(list).WriteLine("lost"); }
    EXPECT_EQ(readWholeFile(list), "old");
    TextOutputStream stream = TextOutputStream::Create(folder / "link.txt");
    { TextOutputStream::Create(list).WriteLine("lost, and the other one is left alone"); }
    stream.WriteLine("a\tb");
    stream.WriteLine("");
    EXPECT_EQ(readWholeFile(list), "old");
    stream.Close();
    EXPECT_EQ(readWholeFile(list), "a\tb\n\n");
    EXPECT_TRUE(fs::is_symlink(folder / "link.txt"));
    EXPECT_EQ(fs::status(list).permissions(), kPermissions);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 2);
}

TEST_F(TextFiles, RefusalsNameTheFileAndTheReason) {
    const auto read = [](const fs::path& file) { TextInputStream::Open(file).endOfFile(); };
    const auto write = [](const fs::path& file) {
        TextOutputStream stream = TextOutputStream::Create(file);
        stream.WriteLine("1");
        stream.Close();
    };
    const auto refusal = [](auto attempt, const fs::path& file) -> std::string {
        try {
            attempt(file);
        } catch (const FileError& error) {
            return ReplaceAll(error.what(), "The file \"" + pathText(file) + "\" could not be ", "");
        }
        return "none";
    };
    EXPECT_EQ(refusal(read, folder / "none"), "opened: No such file or directory.");
    EXPECT_EQ(refusal(read, folder.path()), "opened: it is a folder.");
    EXPECT_EQ(refusal(write, folder / "none/a"), "created: No such file or directory.");
    EXPECT_EQ(refusal(write, folder.path()), "written: Is a directory.");
    ASSERT_EQ(mkfifo(list.c_str(), 0600), 0);
    EXPECT_EQ(refusal(read, list), "opened: it is not a regular file.");
    EXPECT_EQ(refusal(write, list), "written: it is not a regular file.");
}

} // namespace skyvert::files_test
