#include "platform/Files.h"

#include "support/TestDesktop.h"

#include <gtest/gtest.h>

namespace skyvert {
namespace {

using namespace std::string_literals;
using Lines = std::vector<std::string>;

Lines linesOf(const std::filesystem::path& file) {
    TextInputStream stream = TextInputStream::Open(file);
    Lines lines;
    while (!stream.endOfFile())
        lines.emplace_back(stream.ReadLine());
    return lines;
}

std::string messageOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const FileError& error) {
        return error.what();
    }
    return "";
}

TEST(TextInputStream, ReadsEveryLineEndAndEncoding) {
    const struct {
        std::string bytes;
        Lines lines;
    } cases[] = {
        {"", {}},
        {"\n", {""}},
        {"a\nb", {"a", "b"}},
        {"a\r\nb\rc\n", {"a", "b", "c"}},
        {"a\r\r\n\n\rb", {"a", "", "", "", "b"}},
        {"a\r", {"a"}},
        {"\xEF\xBB\xBF"s, {}},
        {"\xEF\xBB\xBF+1\xC2\xB0", {"+1\xC2\xB0"}},
        {"\xEF\xBB", {"\xC3\xAF\xC2\xBB"}},
        {"1\xB0 2\x92 3\x94\n\x81", {"1\xC2\xB0 2\xE2\x80\x99 3\xE2\x80\x9D", "\xC2\x81"}},
        {"\xC2\xB0\xB0\xE2\x80", {"\xC2\xB0\xC2\xB0\xC3\xA2\xE2\x82\xAC"}},
        {"\xED\xA0\x80", {"\xC3\xAD\xC2\xA0\xE2\x82\xAC"}},
        {"\xF0\x9F\x98\x80", {"\xF0\x9F\x98\x80"}},
        {"\xFF\xFE"
         "1\0\xB0\0\r\0\n\0"
         "2\0"s,
         {"1\xC2\xB0", "2"}},
        {"\xFE\xFF\0001\0\n\x22\x12"s, {"1", "\xE2\x88\x92"}},
        {"\xFF\xFE\x3D\xD8\x00\xDE\x3D\xD8"
         "a\0"
         "b"s,
         {"\xF0\x9F\x98\x80\xEF\xBF\xBD"
          "a\xEF\xBF\xBD"}},
        {"\0\0\0\n\0"s, {"\0\0\0"s, "\0"s}},
    };

    const TemporaryFolder folder;
    for (const auto& [bytes, lines] : cases) {
        SCOPED_TRACE(testing::PrintToString(bytes));
        ASSERT_TRUE(writeWholeFile(folder / "list.txt", bytes));
        EXPECT_EQ(readWholeFile(folder / "list.txt"), bytes);
        EXPECT_EQ(linesOf(folder / "list.txt"), lines);
    }
}

TEST(TextInputStream, ReadsLinesAcrossTheEdgesOfItsBuffer) {
    const TemporaryFolder folder;
    // Line ends of two bytes that drift over every position, and one line of ten megabytes.
    std::string bytes;
    Lines lines;
    for (int length = 0; length < 1500; ++length) {
        lines.emplace_back(static_cast<std::size_t>(length), 'x');
        bytes += lines.back() + "\r\n";
    }
    lines.emplace_back(10'000'000, 'y');
    ASSERT_TRUE(writeWholeFile(folder / "list.txt", bytes + lines.back()));
    EXPECT_EQ(linesOf(folder / "list.txt"), lines);
}

TEST(TextFiles, RefusalsNameTheFileAndTheReason) {
    const TemporaryFolder folder;
    const std::string name = "The file \"" + pathText(folder.path());
    const auto open = [](const auto& file) { TextInputStream::Open(file).endOfFile(); };
    EXPECT_EQ(messageOf([&] { open(folder / "none"); }),
              name + "/none\" could not be opened: No such file or directory.");
    EXPECT_EQ(messageOf([&] { open(folder.path()); }),
              name + "\" could not be read: Is a directory.");
    EXPECT_EQ(messageOf([&] { TextOutputStream::Create(folder / "none/list.txt"); }),
              name + "/none/list.txt\" could not be created: No such file or directory.");
    EXPECT_EQ(messageOf([&] { TextOutputStream::Create(folder.path()); }),
              name + "\" could not be written: Is a directory.");
}

TEST(TextOutputStream, ReplacesTheOldFileOnlyWhenClosed) {
    const TemporaryFolder folder;
    ASSERT_TRUE(writeWholeFile(folder / "list.txt", "old"));
    std::filesystem::permissions(folder / "list.txt", std::filesystem::perms::owner_read |
                                                          std::filesystem::perms::owner_write);
    std::filesystem::create_symlink(folder / "list.txt", folder / "link.txt");
    { TextOutputStream::Create(folder / "list.txt").WriteLine("lost"); }
    EXPECT_EQ(readWholeFile(folder / "list.txt"), "old");

    TextOutputStream stream = TextOutputStream::Create(folder / "link.txt");
    stream.WriteLine("a\tb");
    stream.WriteLine("");
    EXPECT_EQ(readWholeFile(folder / "list.txt"), "old");
    stream.Close();
    EXPECT_EQ(readWholeFile(folder / "list.txt"), "a\tb\n\n");
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "link.txt"));
    EXPECT_EQ(std::filesystem::status(folder / "list.txt").permissions(),
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 2);
}

TEST(TextOutputStream, TellsOfAFullDisk) {
    if (!std::filesystem::exists("/dev/full"))
        GTEST_SKIP() << "there is no full device on this system";
    EXPECT_EQ(messageOf([] {
                  TextOutputStream stream = TextOutputStream::Create("/dev/full");
                  stream.WriteLine("1");
                  stream.Close();
              }),
              "The file \"/dev/full\" could not be written: No space left on device.");
}

} // namespace
} // namespace skyvert
