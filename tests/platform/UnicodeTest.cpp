#include "platform/Files.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace skyvert {
namespace {

TEST(Unicode, FilesOfAnyEncodingAreReadAsUtf8) {
    using namespace std::string_literals;
    const std::filesystem::path file = std::filesystem::path(testing::TempDir()) / "encoded.txt";
    const std::initializer_list<std::pair<std::string, const char*>> cases = {
        {"\xFF\xFE\xE9\0=\xD8\x2D\xDD"s, "\u00E9\U0001F52D"},
        {"\xFE\xFF\0a\xD8\x3D\xDD\x2D\0b"s, "a\U0001F52Db"},
        {"\xFF\xFE\0\xDCz\0"s, "\uFFFDz"},
        {"\xFF\xFEz\0=\xD8"s, "z\uFFFD"},
        {"\xFF\xFEz\0b"s, "z\uFFFD"},
        {"\xEF\xBB\xBF\xC3\xA9\xE9|\x80\x81\xED\xA0\x80",
         "\u00E9\u00E9|\u20AC\u0081\u00ED\u00A0\u20AC"},
    };
    for (const auto& [bytes, text] : cases) {
        SCOPED_TRACE(text);
        ASSERT_TRUE(writeWholeFile(file, bytes));
        TextInputStream input = TextInputStream::Open(file);
        EXPECT_EQ(input.ReadLine(), text);
        EXPECT_TRUE(input.endOfFile());
    }
}

} // namespace
} // namespace skyvert
