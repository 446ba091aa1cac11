#include "settings/XMLDictionary.h"

#include "platform/Files.h"
#include "settings/Objects.h"
#include "support/Table.h"
#include "support/TestDesktop.h"

namespace skyvert::xml_dictionary_test {

using namespace std::string_literals;

std::shared_ptr<Dictionary> dictionary(std::initializer_list<std::pair<Variant, Variant>> entries) {
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

const auto block = std::make_shared<MemoryBlock, const char*>;

/// What stands between the tags of the outermost dictionary, with its layout. The tree has the
/// same.
std::string body(const std::shared_ptr<Dictionary>& storage, bool plist = false) {
    const std::string text = ExportXMLString(storage, plist);
    EXPECT_TRUE(text.ends_with(ExportXML(storage, plist).ToString().substr(39)));
    const std::size_t begin = text.find(plist ? "<dict>\n" : "\"1.1\">\n") + 7;
    return text.substr(begin, text.rfind(plist ? "</dict>" : "</xmldict>") - begin);
}

TEST(XMLDictionaryWriter, EveryKindHasItsElementInEitherFlavour) {
    const struct {
        Variant value;
        std::string xmldict;
        std::string plist = xmldict;
    } cases[] = {
        {{}, "<null/>", "<false/>"},
        {std::int32_t{-7}, "<integer>-7</integer>"},
        {std::numeric_limits<std::int64_t>::min(), "<integer>-9223372036854775808</integer>"},
        {0.1F, "<real>.100000001490116</real>"},
        {0.0, "<real>.0</real>"},
        {2.0, "<real>2.0</real>"},
        {-1.25, "<real>-1.25</real>"},
        {2.0 / 3.0, "<real>.666666666666667</real>"},
        {1e22, "<real>10000000000000000000000.0</real>"},
        {"", "<string/>"},
        {true, "<true/>"},
        {DateValue{2000, 2, 29, 12, 5, 9}, "<date>2000-02-29 12:05:09</date>"},
        {"a\tb <&> \"'\r\n", "<string>a\tb &lt;&amp;&gt; \"'&#13;\n</string>"},
        {"sixteen is plain\0\x1F|\u00E9|\xE9|\x80|\xEF\xBF\xBF|\xED\xA0\x80"s,
         "<string>sixteen is "
         "plain\uFFFD\uFFFD|\u00E9|\u00E9|\u20AC|\uFFFD|\u00ED\u00A0\u20AC</string>"},
        {"plain for sixteen, but \xE9 in the rest",
         "<string>plain for sixteen, but \u00E9 in the rest</string>"},
        {Color{0x00FF8040}, "<color>#FF8040</color>", "<false/>"},
        {Color{0xFFAB0012}, "<color>#FFAB0012</color>", "<false/>"},
        {Color{}, "<color>#0</color>", "<false/>"},
        {std::make_shared<Object>(), "<null/>", "<false/>"},
        {std::make_shared<FolderItem>("/a"), "<file>\n\tL2E=\n\t</file>", "<false/>"},
        {block(""), "<data>\n\t</data>"},
        {block("\xFF\xFE"), "<data>\n\t//4=\n\t</data>"},
        {block("The quick brown fox jumps over the la"),
         "<data>\n\tVGhlIHF1aWNrIGJyb3duIGZveCBqdW1wcyBvdmVyIHRoZ\n\tSBsYQ==\n\t</data>"},
        {dictionary({}), "<dict>\n\t</dict>"},
        {collection({"a", collection({})}),
         "<array>\n\t\t<string>a</string>\n\t\t<array>\n\t\t</array>\n\t</array>"},
        {dictionary({{"k", block("abc")}}),
         "<dict>\n\t\t<key>k</key>\n\t\t<data>\n\t\tYWJj\n\t\t</data>\n\t</dict>"}};

    for (const auto& [value, xmldict, plist] : cases) {
        const auto storage = dictionary({{"key", value}});
        EXPECT_EQ(body(storage), "\t<key>key</key>\n\t" + xmldict + "\n");
        EXPECT_EQ(body(storage, true), "\t<key>key</key>\n\t" + plist + "\n");
    }
    EXPECT_EQ(body(dictionary({{{}, "a"}, {std::int32_t{12}, true}, {"<\x01>", false}})),
              "\t<string>a</string>\n\t<key>12</key>\n\t<true/>\n"
              "\t<key>&lt;\uFFFD&gt;</key>\n\t<false/>\n");
}

TEST(XMLDictionaryWriter, ANodeIsIndentedAndItsClosingTag) {
    XmlDocument document;
    IndentNode(document.node().append_child("a"), 2, true);
    IndentNode(document.DocumentElement().append_child("b"), 0, false);
    EXPECT_EQ(document.ToString().substr(39), "\n\t\t<a>\n\t\t\n<b/></a>");
}

TEST(XMLDictionaryWriter, AStorageIsWrittenOnceHoweverFarApartAndCyclesEnd) {
    const auto shared = collection({"x"});
    const auto cyclic = dictionary({{"a", shared}});
    std::string expected = "\t<key>a</key>\n\t<array>\n\t\t<string>x</string>\n\t</array>\n";
    for (int i = 0; i < 1000; ++i) {
        cyclic->setValue(i, true);
        expected += "\t<key>" + std::to_string(i) + "</key>\n\t<true/>\n";
    }
    cyclic->setValue("b", shared);
    cyclic->setValue("self", cyclic);
    EXPECT_EQ(body(cyclic), expected + "\t<key>b</key>\n\t<array>\n\t</array>\n"
                                       "\t<key>self</key>\n\t<dict>\n\t</dict>\n");
    cyclic->setValue("self", {});
}

/// A value in one line: strings behind an apostrophe, doubles with an R, 64-bit integers with an I,
/// dictionaries and lists in brackets.
std::string shown(const Variant& value) {
    std::string text;
    for (std::size_t i = 0; i < StorageCount(value); ++i) {
        const Variant& key = StorageKey(value, i);
        text += (i == 0 ? "" : " ") + (key.isNil() ? "" : key.stringValue() + "=");
        text += shown(StorageValue(value, i));
    }
    if (value.type() == VarType::Object)
        return value.object<Dictionary>() != nullptr ? "{" + text + "}" : "[" + text + "]";
    using enum VarType;
    std::map<VarType, std::string> marks{{Nil, "nil"}, {String, "'"}, {Double, "R"}, {Long, "I"}};
    return marks[value.type()] + value.stringValue();
}

/// What a document holds, or "refused"; a refused one must leave the dictionary alone.
std::string read(const std::string& document) {
    const auto storage = std::make_shared<Dictionary>();
    const bool loaded = LoadXML(storage, document);
    EXPECT_TRUE(loaded || storage->Count() == 0);
    return loaded ? shown(storage) : "refused";
}

/// UTF-16 with a byte order mark.
std::string utf16(std::u16string_view text, bool bigEndian = false) {
    std::string bytes = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (const char16_t unit : text)
        for (const int shift : {bigEndian ? 8 : 0, bigEndian ? 0 : 8})
            bytes += static_cast<char>(unit >> shift);
    return bytes;
}

TEST(XMLDictionaryReader, ADocumentIsReadInItsEncodingByTheTableOfElementsOrChangesNothing) {
    const std::u16string good = u"<d><key>\U0001F52D</key><true/></d>";
    const std::u16string declared = u"<?xml version='1.0' encoding='utf-16'?>" + good;
    auto documents = table<2>("xml_documents");
    for (const std::string& text :
         {utf16(good), utf16(good, true), utf16(good).substr(2), utf16(declared, true)})
        documents.push_back({text, "{\U0001F52D=true}"});
    for (const std::string& text : {utf16(u"<d>\x01</d>"), utf16(u"<d/>x"), utf16(u"<d/>") + "\n",
                                    utf16(u"<?xml version='1.0' encoding='ISO-8859-1'?><d/>"),
                                    utf16(u"<d a='\xD83Dx'/>"), utf16(u"<d a='\xD83Dx'/>", true),
                                    utf16(u"<d a='\xDD2Dx'/>"), utf16(u"<d a='\xDD2Dx'/>", true)})
        documents.push_back({text, "refused"});
    for (const auto& [document, value] : documents) {
        EXPECT_EQ(read(document), value) << document;
        const auto storage = dictionary({{"a", "kept"}});
        EXPECT_TRUE(LoadXML(storage, document) || shown(storage) == "{a='kept}") << document;
    }
}

TEST(XMLDictionaryReader, WhatIsReadIsAddedToADictionaryThatHoldsSomething) {
    const std::string document =
        "<d><key>old</key><dict><key>b</key><true/></dict><key>a</key><null/></d>";
    XmlDocument tree;
    tree.LoadXml(document);
    for (const bool fromTree : {false, true}) {
        const auto nested = dictionary({{"a", true}});
        const auto storage = dictionary({{"a", "kept"}, {"old", nested}});
        EXPECT_TRUE(fromTree ? LoadXML(storage, tree) : LoadXML(storage, document));
        EXPECT_EQ(shown(storage), "{a=nil old={a=true b=true}}");
        EXPECT_EQ(StorageByKey(storage, "old").object<Dictionary>(), nested.get());
    }
}

TEST(XMLDictionary, AFileOfManyBlocksReadsBack) {
    const TemporaryFolder folder;
    std::string text;
    for (int i = 0; i < 100'000; ++i)
        text += "\u20AC\U0001F52D";
    const auto read = std::make_shared<Dictionary>();
    EXPECT_FALSE(LoadXML(read, folder / "file") || LoadXML(read, folder / "."));
    EXPECT_TRUE(SaveXML(dictionary({{"k", text}}), folder / "file", true) &&
                LoadXML(read, folder / "file"));
    EXPECT_EQ(StorageByKey(read, "k").string(), text);
}

TEST(XMLDictionary, DeepNestingIsReadToTheLimitAndWhatIsDeeperIsNeitherReadNorWritten) {
    for (const auto& [arrays, fits] : {std::pair{249, true}, {250, false}, {100'000, false}}) {
        std::string document = "<d><key>k</key>";
        for (const char* tag : {"<array>", "</array>"})
            for (int i = 0; i < arrays; ++i)
                document += tag;
        EXPECT_EQ(read(document + "</d>") != "refused", fits) << arrays;
    }
    auto storage = dictionary({{"bottom", true}});
    for (int level = 0; level < 3000; ++level)
        storage = dictionary({{"k", storage}});
    for (const bool plist : {false, true}) {
        const std::string text = ExportXMLString(storage, plist);
        EXPECT_EQ(text.find("bottom"), std::string::npos);
        EXPECT_NE(read(text), "refused");
    }
}

TEST(XMLDictionary, WhatIsWrittenIsExactToTheByteAndReadsBack) {
    const std::string settings = readWholeFile(SKYVERT_TEST_DATA "/settings.xml").value();
    EXPECT_EQ(ExportXMLString(dictionary({}), true),
              readWholeFile(SKYVERT_TEST_DATA "/empty.plist"));
    const auto storage = dictionary({{"nested & more", dictionary({{"color", Color{0xFF0000}}})}});
    const auto again = std::make_shared<Dictionary>();
    EXPECT_TRUE(LoadXML(storage, settings) && LoadXML(again, ExportXML(storage, false)));
    EXPECT_EQ(ExportXMLString(again, false), settings);
    EXPECT_FALSE(LoadXML(storage, settings.substr(0, settings.size() - 2)));
    EXPECT_THROW(LoadXML(nullptr, settings), std::invalid_argument);
}

} // namespace skyvert::xml_dictionary_test
