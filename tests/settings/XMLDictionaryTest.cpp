#include "settings/XMLDictionary.h"

#include "platform/Files.h"
#include "settings/Values.h"
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

/// The written content of the outermost dictionary, which must be that of the tree as well.
std::string body(const std::shared_ptr<Dictionary>& storage, bool plist = false) {
    const std::string text = ExportXMLString(storage, plist);
    EXPECT_TRUE(text.ends_with(ExportXML(storage, plist).ToString().substr(39)));
    const std::size_t begin = text.find(plist ? "<dict>\n" : "\"1.1\">\n") + 7;
    return text.substr(begin, text.rfind(plist ? "</dict>" : "</xmldict>") - begin);
}

TEST(XMLDictionaryWriter, EveryKindHasItsElementInBothFlavours) {
    for (const auto& [cell, xmldict, plist] : table<3>("written_values")) {
        const auto storage = dictionary({{"key", value(cell)}});
        EXPECT_EQ(body(storage), "\t<key>key</key>\n\t" + xmldict + "\n");
        const std::string& expected = plist.empty() ? xmldict : plist;
        EXPECT_EQ(body(storage, true), "\t<key>key</key>\n\t" + expected + "\n");
    }
    EXPECT_EQ(body(dictionary({{{}, "a"}, {std::int32_t{12}, true}, {"<\x01>", false}})),
              "\t<string>a</string>\n\t<key>12</key>\n\t<true/>\n"
              "\t<key>&lt;\uFFFD&gt;</key>\n\t<false/>\n");
    const auto nested = dictionary({{"e", dictionary({})},
                                    {"l", collection({"a", collection({})})},
                                    {"d", dictionary({{"k", value("Data:abc")}})}});
    for (const bool plist : {false, true})
        EXPECT_EQ(body(nested, plist), "\t<key>e</key>\n\t<dict>\n\t</dict>\n"
                                       "\t<key>l</key>\n\t<array>\n\t\t<string>a</"
                                       "string>\n\t\t<array>\n\t\t</array>\n\t</array>\n"
                                       "\t<key>d</key>\n\t<dict>\n\t\t<key>k</"
                                       "key>\n\t\t<data>\n\t\tYWJj\n\t\t</data>\n\t</dict>\n");
}

TEST(XMLDictionaryWriter, ANodeAndItsClosingTagAreIndented) {
    XmlDocument document;
    IndentNode(document.node().append_child("a"), 2, true);
    IndentNode(document.DocumentElement().append_child("b"), 0, false);
    EXPECT_EQ(document.ToString().substr(39), "\n\t\t<a>\n\t\t\n<b/></a>");
}

TEST(XMLDictionaryWriter, AStorageIsWrittenOnlyOnceEvenInACycle) {
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

/// A value in one line: strings start with an apostrophe, doubles with R, 64-bit integers with I;
/// dictionaries and lists stand in brackets.
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

/// The content of a document, or "refused"; then the dictionary must be unchanged.
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

TEST(XMLDictionaryReader, ADocumentIsReadInItsEncodingOrChangesNothing) {
    const std::u16string good = u"<d><key>\U0001F52D</key><true/></d>";
    const std::u16string declared = u"<?xml version='1.0' encoding='utf-16'?>" + good;
    auto documents = table<2>("xml_documents");
    for (const std::string& text :
         {utf16(good), utf16(good, true), utf16(good).substr(2), utf16(declared, true)})
        documents.push_back({text, "{\U0001F52D=true}"});
    documents.push_back({utf16(u"<d/>") + "\n", "refused"});
    for (const char16_t* text : {u"<d>\x01</d>", u"<d/>x", u"<d a='\xD83Dx'/>", u"<d a='\xDD2Dx'/>",
                                 u"<?xml version='1.0' encoding='ISO-8859-1'?><d/>"})
        for (const bool bigEndian : {false, true})
            documents.push_back({utf16(text, bigEndian), "refused"});
    for (const auto& [document, value] : documents) {
        EXPECT_EQ(read(document), value) << document;
        const auto storage = dictionary({{"a", "kept"}});
        EXPECT_TRUE(LoadXML(storage, document) || shown(storage) == "{a='kept}") << document;
    }
}

TEST(XMLDictionaryReader, EntriesAreAddedToADictionaryThatIsNotEmpty) {
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

TEST(XMLDictionary, NestingBeyondTheLimitIsNeitherReadNorWritten) {
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

TEST(XMLDictionary, DocumentsAreExactToTheByteAndReadBack) {
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
