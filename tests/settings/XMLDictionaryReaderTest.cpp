#include "platform/Objects.h"
#include "settings/XMLDictionary.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <string_view>

namespace skyvert {
namespace {

using namespace std::string_literals;

/// A value in one line: strings behind an apostrophe, doubles with an R, dictionaries and lists in
/// brackets.
std::string shown(const Variant& value) {
    std::string text;
    for (std::size_t i = 0; i < StorageCount(value); ++i) {
        const Variant& key = StorageKey(value, i);
        text += (i == 0 ? "" : " ") + (key.isNil() ? "" : key.stringValue() + "=");
        text += shown(StorageValue(value, i));
    }
    if (value.type() == VarType::Object)
        return value.object<Dictionary>() != nullptr ? "{" + text + "}" : "[" + text + "]";
    const std::map<VarType, std::string> marks{{VarType::Nil, "nil"},
                                               {VarType::String, "'"},
                                               {VarType::Double, "R"},
                                               {VarType::Long, "I"}};
    const auto mark = marks.find(value.type());
    return (mark == marks.end() ? "" : mark->second) + value.stringValue();
}

/// What a document holds, or "refused"; a refused one must leave the dictionary alone.
std::string read(const std::string& document) {
    const auto storage = std::make_shared<Dictionary>();
    const bool loaded = LoadXML(storage, document);
    EXPECT_TRUE(loaded || storage->Count() == 0);
    return loaded ? shown(storage) : "refused";
}

TEST(XMLDictionaryReader, EntriesAreReadByTheTableOfElements) {
    const std::initializer_list<std::pair<std::string, const char*>> cases = {
        {" \n<KEY>a</KEY>\n\t<String> x\ty </String> <key>a</key><string/><key> </key><string>  "
         "</string>"
         "<key>b</key><string>x</string><key>b</key><true/><key/><true/><key>B</key><false/>",
         "{a='  ='   b=true =true B=false}"},
        {"<key>a</key><integer>12.9</integer><key>b</key><integer>-12.9</integer><key>c</"
         "key><integer>"
         "9007199254740993</integer><key>d</key><integer>-99999999999999999999</integer><key>e</"
         "key>"
         "<integer>12 apples</integer><key>f</key><integer>apples</integer>",
         "{a=I12 b=I-12 c=I9007199254740992 d=I-9223372036854775808 e=I12 f=I0}"},
        {"<key>a</key><real>-1.25</real><key>b</key><real>.5</real><key>c</key><real/><key>d</"
         "key><null/>",
         "{a=R-1.25 b=R0.5 c=R0 d=nil}"},
        {"<key>a</key><date>2000-02-29 12:05:09</date><key>b</key><date>2000-02-29</date>"
         "<key>c</key><date>1900-02-29</date><key>d</key><date>soon</date>",
         "{a=2000-02-29 12:05:09 b=2000-02-29 00:00:00 c=nil d=nil}"},
        {"<key>a</key><color>#FF8040</color><key>b</key><color>?1</color><key>c</key><color/>"
         "<key>d</key><color>#123456789</color>",
         "{a=&h00ff8040 b=&h00000001 c=&h00000000 d=&h00000000}"},
        {"<key>a</key><data>AAAA</data><key>b</key><file>AAAA</file><key>c</key><strange><true/></"
         "strange>"
         "<true/><key>d</key><key>e</key><true/><key>f</key>text<!-- c --><?pi "
         "x?><![CDATA[y]]><true/>"
         "<key>g</key>",
         "{f=true}"},
        {"<key>l</key><array><true/><key>k</key><string>s</string><data/><array/></array>",
         "{l=[true 's []]}"},
        {"<key>d</key><true/><key>d</key><dict><key>a</key><true/><key>b</key><true/></dict>"
         "<key>d</key><dict><key>b</key><false/><key>c</key><dict/></dict>",
         "{d={a=true b=false c={}}}"},
        {"<key>a</key><string>x<!--c-->y<![CDATA[<z>]]><b k=\"&lt;\">&amp;</b> <?p i?></string>",
         "{a='x<!--c-->y<![CDATA[<z>]]><b k=\"&lt;\">&amp;</b> <?p i?>}"},
        {"<key>a</"
         "key><string>&lt;&gt;&amp;&apos;&quot;&#65;&#xe9;&#x1F52D;&amp;lt;1\r\n2\r3&#13;4</"
         "string>",
         "{a='<>&'\"A\u00E9\U0001F52D&lt;1\n2\n3\r4}"},
    };
    for (const auto& [entries, expected] : cases) {
        SCOPED_TRACE(entries);
        EXPECT_EQ(read("<xmldict version=\"1.1\">" + entries + "</xmldict>"), expected);
        EXPECT_EQ(read("<plist version='1.0'>\n<!--c--><dict>" + entries + "</dict><x/></plist>"),
                  expected);
    }
}

std::string utf16(std::string_view ascii, bool bigEndian) {
    std::string bytes = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (const char byte : ascii)
        bytes.append(bigEndian ? std::string{'\0', byte} : std::string{byte, '\0'});
    return bytes;
}

TEST(XMLDictionaryReader, DocumentsAreJudgedAsAWhole) {
    const std::string good = "<d><key>a</key><true/></d>";

    const std::string type =
        "<!DOCTYPE d SYSTEM \"http://nowhere.invalid/d.dtd\" [<!ENTITY e \"x\">]>";
    for (const std::string& document :
         {good, type + good,
          "\xEF\xBB\xBF<?xml version=\"1.0\"?>\n<!--c-->" + type + "<?p?>" + good + "\n<!--c-->",
          "<PLIST>x<!--c--><DICT>" + good.substr(3, good.size() - 7) + "</DICT></PLIST>"s,
          utf16(good, false), utf16(good, true)})
        EXPECT_EQ(read(document), "{a=true}") << document;
    for (const char* document : {"<plist version=\"1.0.1\"><dict/></plist>",
                                 "<any version=\"1.1.9\"/>", "<any version=\"x\"/>"})
        EXPECT_EQ(read(document), "{}") << document;
    for (const std::string& document : {"<plist version=\"1.1\"><dict/></plist>"s,
                                        "<plist/>"s,
                                        "<plist><array/><dict/></plist>"s,
                                        "<xmldict version=\"1.2\"><key>a</key><true/></xmldict>"s,
                                        "<d version=\"&#x32;\"/>"s,
                                        utf16(good, true) + "\xD8",
                                        utf16(good, false) + "\x00\xD8\n\0"s,
                                        ""s,
                                        " \n"s,
                                        "text"s,
                                        good + good,
                                        good + "x",
                                        "x" + good,
                                        "<![CDATA[x]]>" + good,
                                        "\n<?xml version=\"1.0\"?>" + good,
                                        type + type + good,
                                        good + type,
                                        good + "\0"s,
                                        type + "<d>&e;</d>",
                                        "<d>\x01</d>"s,
                                        "<d>\xE9</d>"s,
                                        "<d>\xEF\xBF\xBE</d>"s,
                                        "<d>&</d>"s,
                                        "<d>&none;</d>"s,
                                        "<d>&amp</d>"s,
                                        "<d>&#0;</d>"s,
                                        "<d>&#x110000;</d>"s,
                                        "<d>&#xD800;</d>"s,
                                        "<d>&#-65;</d>"s,
                                        "<d>&#;</d>"s,
                                        "<d>]]></d>"s,
                                        "<d><!-- -- --></d>"s,
                                        "<d x=\"<\"/>"s,
                                        "<d x=\"1\" x=\"1\"/>"s,
                                        "<d><e></d></e>"s,
                                        "<d"s})
        EXPECT_EQ(read(document), "refused") << document;
}

TEST(XMLDictionaryReader, DeepNestingIsReadToTheLimitAndRefusedBehindIt) {
    const auto nested = [](std::size_t levels) {
        std::string text = "<d>";
        for (std::size_t i = 1; i < levels; ++i)
            text += i == 1 ? "<key>k</key><array>" : "<array>";
        for (std::size_t i = 1; i < levels; ++i)
            text += "</array>";
        return text + "</d>";
    };
    for (const auto& [levels, fits] : std::initializer_list<std::pair<std::size_t, bool>>{
             {200, true}, {1000, true}, {1001, false}, {100000, false}})
        EXPECT_EQ(read(nested(levels)) != "refused", fits) << levels;
    EXPECT_EQ(read(std::string(100000, '<')), "refused");
}

constexpr std::string_view kSettings = R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE xmldict PUBLIC "-//Marlowick//DTD XMLDICT 1.1//EN" "http://localhost/DTDs/XMLDictionary-1.1.dtd">

<xmldict version="1.1">
	<key>inFormat</key>
	<string>HH MM	+DD MM	Y	1	1</string>
	<key>nested &amp; more</key>
	<dict>
		<key>list</key>
		<array>
			<null/>
			<real>-1.25</real>
			<color>#FF8040</color>
			<date>2000-01-01 12:00:00</date>
		</array>
	</dict>
</xmldict>
)";

std::string rewritten(const std::string& document) {
    const auto storage = std::make_shared<Dictionary>();
    return LoadXML(storage, document) ? ExportXMLString(storage, false) : "refused";
}

TEST(XMLDictionaryReader, WhatTheWriterWroteIsReadAndWrittenTheSame) {
    const std::string document(kSettings);
    EXPECT_EQ(rewritten(document), document);
    const auto storage = std::make_shared<Dictionary>();
    ASSERT_TRUE(LoadXML(storage, document));
    for (const bool plist : {false, true}) {
        const auto again = std::make_shared<Dictionary>();
        EXPECT_TRUE(LoadXML(again, ExportXML(storage, plist)));
        const auto read = std::make_shared<Dictionary>();
        EXPECT_TRUE(LoadXML(read, ExportXMLString(storage, plist)));
        EXPECT_EQ(shown(again), shown(read));
        EXPECT_EQ(shown(read) == shown(storage), !plist);
    }
}

TEST(XMLDictionaryReader, DamageIsRefusedOrReadButNeverBreaksWhatIsWrittenNext) {
    const std::string document(kSettings);
    const std::size_t end = document.rfind('\n');
    for (std::size_t at = 0; at < document.size(); ++at) {
        SCOPED_TRACE(at);
        EXPECT_EQ(read(document.substr(0, at)) == "refused", at < end);
        for (const char byte : {'\0', '<', '&', '/', ' ', '\x7F', '\xFF'}) {
            std::string damaged = document;
            damaged[at] = byte;
            const std::string once = rewritten(damaged);
            EXPECT_EQ(rewritten(once), once);
        }
    }
}

TEST(XMLDictionaryReader, LoadingAddsToWhatIsThere) {
    const auto storage = std::make_shared<Dictionary>();
    storage->setValue("old", true);
    EXPECT_TRUE(LoadXML(storage, "<d><key>d</key><dict><key>a</key><true/></dict></d>"s));
    EXPECT_TRUE(LoadXML(storage, "<d><key>old</key><false/><key>d</key><dict><key>b</key><true/>"
                                 "</dict></d>"s));
    EXPECT_FALSE(LoadXML(storage, "<d><key>old</key><true/>"s));
    EXPECT_EQ(shown(storage), "{old=false d={a=true b=true}}");
    EXPECT_FALSE(LoadXML(storage, XmlDocument()));
    EXPECT_THROW(LoadXML(nullptr, "<d/>"s), std::invalid_argument);
}

} // namespace
} // namespace skyvert
