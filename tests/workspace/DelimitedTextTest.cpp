#include "workspace/DelimitedText.h"

#include "support/Table.h"

namespace skyvert::delimited_text_test {

TEST(DelimitedText, ReadsEveryDialect) {
    LineSplitter splitter;
    for (const auto& [dialect, line, expected] : table<3>("delimited_lines")) {
        std::string fields;
        for (const std::string_view field : splitter.split(line, *dialectNamed(dialect)))
            fields.append("[").append(field).append("]");
        EXPECT_EQ(fields, expected) << line;
    }
}

} // namespace skyvert::delimited_text_test
