#include "platform/Files.h"

#include "platform/Text.h"
#include "platform/TextInputStream.h"
#include "platform/TextOutputStream.h"
#include "support/Table.h"
#include "support/TestDesktop.h"

#include <sys/stat.h>

namespace skyvert::files_test {

using namespace std::string_literals;
namespace fs = std::filesystem;

struct TextFiles : testing::Test {
    /// Writes a file of these bytes and reads it. Returns its lines, each followed by "|".
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

TEST_F(TextFiles, AreReadWithAnyLineEndAndEncoding) {
    for (const auto& [bytes, lines] : table<2>("text_files"))
        EXPECT_EQ(linesOf(bytes), lines) << testing::PrintToString(bytes);
}

TEST_F(TextFiles, AreReadAcrossBufferBoundaries) {
    // Lines of every length, then one that exceeds the limit for a line.
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
    // A line end split between two buffers, for any usual buffer size.
    for (std::size_t size = 4096; size <= 1'048'576; size *= 2)
        EXPECT_TRUE(linesOf(std::string(size - 1, 'x') + "\r\ny").ends_with("x|y|")) << size;
}

TEST_F(TextFiles, AreReplacedOnlyWhenClosed) {
    constexpr auto kPermissions = fs::perms::owner_read | fs::perms::owner_write;
    ASSERT_TRUE(writeWholeFile(list, "old"));
    fs::permissions(list, kPermissions);
    ASSERT_TRUE(writeWholeFile(folder / ".skyvert-0.tmp", "left by a killed program"));
    fs::create_symlink("list.txt", folder / "link.txt");
    { TextOutputStream::Create(list).WriteLine("lost"); }
    EXPECT_EQ(readWholeFile(list), "old");
    TextOutputStream stream = TextOutputStream::Create(folder / "link.txt");
    { TextOutputStream::Create(list).WriteLine("lost, without harm to the other"); }
    stream.WriteLine("a\tb");
    stream.WriteLine("");
    EXPECT_EQ(readWholeFile(list), "old");
    stream.Close();
    EXPECT_EQ(readWholeFile(list), "a\tb\n\n");
    EXPECT_TRUE(fs::is_symlink(folder / "link.txt"));
    EXPECT_EQ(fs::status(list).permissions(), kPermissions);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 2);
}

TEST_F(TextFiles, ErrorsNameTheFileAndTheReason) {
    const auto read = [](const fs::path& file) { TextInputStream::Open(file).endOfFile(); };
    const auto write = [](const fs::path& file) { TextOutputStream::Create(file).Close(); };
    const auto refusal = [](auto attempt, const fs::path& file) -> std::string {
        try {
            attempt(file);
        } catch (const FileError& error) {
            return ReplaceAll(error.what(), "The file \"" + pathText(file) + "\" could not be ",
                              "");
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
