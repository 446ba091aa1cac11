#include "platform/Files.h"

#include <gtest/gtest.h>

namespace skyvert {
namespace {

TEST(Files, MissingFileIsRefusedWithItsNameAndTheReason) {
    try {
        TextInputStream::Open("no-such-folder/list.txt");
        FAIL();
    } catch (const FileError& error) {
        EXPECT_STREQ(error.what(), "The file \"no-such-folder/list.txt\" could not be opened: "
                                   "No such file or directory.");
    }
}

} // namespace
} // namespace skyvert
