#include "platform/Objects.h"
#include "settings/XMLDictionary.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <utility>

namespace skyvert {
namespace {

using Entries = std::initializer_list<std::pair<Variant, Variant>>;

std::shared_ptr<Dictionary> dictionary(Entries entries) {
    auto made = std::make_shared<Dictionary>();
    for (const auto& [key, value] : entries)
        made->setValue(key, value);
    return made;
}

std::shared_ptr<Collection> collection(std::initializer_list<Variant> items) {
    auto made = std::make_shared<Collection>();
    for (const Variant& item : items)
        made->Add(item);
    return made;
}

TEST(XMLDictionaryWriter, DocumentsAreExactToTheByte) {
    EXPECT_EQ(ExportXMLString(dictionary({{"MWin.Left", "20"},
                                          {"nContents", std::int32_t{3}},
                                          {"DataEntryMask", true}}),
                              false),
              R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE xmldict PUBLIC "-//Marlowick//DTD XMLDICT 1.1//EN" "http://localhost/DTDs/XMLDictionary-1.1.dtd">

<xmldict version="1.1">
	<key>MWin.Left</key>
	<string>20</string>
	<key>nContents</key>
	<integer>3</integer>
	<key>DataEntryMask</key>
	<true/>
</xmldict>
)");
    EXPECT_EQ(ExportXMLString(dictionary({}), true), R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple Computer//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">

<plist version="1.0">
<dict>
</dict>
</plist>
)");
}

/// What stands between the tags of the outermost dictionary, without the last line end.
std::string body(const std::shared_ptr<Dictionary>& storage, bool plist) {
    const std::string text = ExportXMLString(storage, plist);
    const std::string opening = plist ? "<dict>" : "<xmldict version=\"1.1\">";
    const std::string closing = plist ? "\n</dict>\n</plist>\n" : "\n</xmldict>\n";
    const std::size_t begin = text.find(opening) + opening.size();
    EXPECT_TRUE(text.ends_with(closing));
    return text.substr(begin, text.size() - closing.size() - begin);
}

TEST(XMLDictionaryWriter, EveryKindHasItsElementInEitherFlavour) {
    const struct {
        Variant value;
        std::string xmldict;
        std::string plist; ///< empty when it is the same
    } cases[] = {
        {{}, "<null/>", "<false/>"},
        {std::int32_t{-7}, "<integer>-7</integer>", ""},
        {std::numeric_limits<std::int64_t>::min(), "<integer>-9223372036854775808</integer>", ""},
        {0.1F, "<real>.100000001490116</real>", ""},
        {0.5, "<real>.5</real>", ""},
        {0.0, "<real>.0</real>", ""},
        {2.0, "<real>2.0</real>", ""},
        {-1.25, "<real>-1.25</real>", ""},
        {2.0 / 3.0, "<real>.666666666666667</real>", ""},
        {1e22, "<real>10000000000000000000000.0</real>", ""},
        {DateValue{2000, 2, 29, 12, 5, 9}, "<date>2000-02-29 12:05:09</date>", ""},
        {"", "<string/>", ""},
        {"a\tb <&> \"'\r\n", "<string>a\tb &lt;&amp;&gt; \"'&#13;\n</string>", ""},
        {std::string("\0\x1F|\xC3\xA9|\xE9|\x80|\xEF\xBF\xBF|\xED\xA0\x80", 17),
         "<string>\uFFFD\uFFFD|\u00E9|\u00E9|\u20AC|\uFFFD|\u00ED\u00A0\u20AC</string>", ""},
        {true, "<true/>", ""},
        {Color{0x00FF8040}, "<color>#FF8040</color>", "<false/>"},
        {Color{0xFFAB0012}, "<color>#FFAB0012</color>", "<false/>"},
        {Color{}, "<color>#0</color>", "<false/>"},
        {std::make_shared<Object>(), "<null/>", "<false/>"},
        {std::make_shared<FolderItem>("/a"), "<file>\n\tL2E=\n\t</file>", "<false/>"},
        {std::make_shared<MemoryBlock>(""), "<data>\n\t</data>", ""},
        {std::make_shared<MemoryBlock>("\xFF\xFE"), "<data>\n\t//4=\n\t</data>", ""},
        {std::make_shared<MemoryBlock>("The quick brown fox jumps over the la"),
         "<data>\n\tVGhlIHF1aWNrIGJyb3duIGZveCBqdW1wcyBvdmVyIHRoZ\n\tSBsYQ==\n\t</data>", ""},
        {dictionary({}), "<dict>\n\t</dict>", ""},
        {collection({}), "<array>\n\t</array>", ""},
        {collection({"a", collection({true})}),
         "<array>\n\t\t<string>a</string>\n\t\t<array>\n\t\t\t<true/>\n\t\t</array>\n\t</array>",
         ""},
        {dictionary({{"k", dictionary({{"l", std::make_shared<MemoryBlock>("abc")}})}}),
         "<dict>\n\t\t<key>k</key>\n\t\t<dict>\n\t\t\t<key>l</key>\n\t\t\t<data>\n\t\t\tYWJj\n"
         "\t\t\t</data>\n\t\t</dict>\n\t</dict>",
         ""},
    };

    for (const auto& [value, xmldict, plist] : cases) {
        SCOPED_TRACE(xmldict);
        const auto storage = dictionary({{"key", value}});
        EXPECT_EQ(body(storage, false), "\n\t<key>key</key>\n\t" + xmldict);
        EXPECT_EQ(body(storage, true),
                  "\n\t<key>key</key>\n\t" + (plist.empty() ? xmldict : plist));
    }
}

TEST(XMLDictionaryWriter, KeysAreTextAndNilIsNone) {
    EXPECT_EQ(body(dictionary({{{}, "a"}, {std::int32_t{12}, "b"}, {"<\x01>", "c"}}), false),
              "\n\t<string>a</string>\n\t<key>12</key>\n\t<string>b</string>"
              "\n\t<key>&lt;\uFFFD&gt;</key>\n\t<string>c</string>");
    EXPECT_EQ(body(dictionary({}), false), "");
    EXPECT_THROW(ExportXML(nullptr, false), std::invalid_argument);
}

TEST(XMLDictionaryWriter, AStorageIsWrittenOnceAndCyclesEnd) {
    const auto shared = collection({"x"});
    EXPECT_EQ(body(dictionary({{"a", shared}, {"b", shared}}), false),
              "\n\t<key>a</key>\n\t<array>\n\t\t<string>x</string>\n\t</array>"
              "\n\t<key>b</key>\n\t<array>\n\t</array>");
    const auto cyclic = dictionary({});
    cyclic->setValue("self", cyclic);
    EXPECT_EQ(body(cyclic, false), "\n\t<key>self</key>\n\t<dict>\n\t</dict>");
    cyclic->setValue("self", {});
}

TEST(XMLDictionaryWriter, WhatIsNestedTooDeepForTheReaderIsLeftOut) {
    auto storage = dictionary({{"bottom", true}});
    for (int level = 0; level < 3000; ++level)
        storage = dictionary({{"k", storage}});
    for (const bool plist : {false, true}) {
        const std::string text = ExportXMLString(storage, plist);
        EXPECT_EQ(text.find("bottom"), std::string::npos);
        EXPECT_TRUE(LoadXML(std::make_shared<Dictionary>(), text));
    }
}

} // namespace
} // namespace skyvert
