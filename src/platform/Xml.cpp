#include "platform/Xml.h"

#include "platform/Unicode.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <utility>

namespace skyvert {

namespace {

constexpr std::string_view kDeclaration = R"(<?xml version="1.0" encoding="UTF-8"?>)"
                                          "\n";

// References are left to `resolveReferences`: the library lets unknown ones pass. A fragment is
// parsed so that text outside the root element is seen instead of skipped.
constexpr unsigned kParseFlags = pugi::parse_pi | pugi::parse_comments | pugi::parse_cdata |
                                 pugi::parse_ws_pcdata | pugi::parse_eol | pugi::parse_declaration |
                                 pugi::parse_doctype | pugi::parse_fragment |
                                 pugi::parse_embed_pcdata;

// --- Writing

/// Gathers what the library writes. A carriage return becomes a reference, which the library does
/// not do in text and without which it would be read back as a line feed.
class Gatherer : public pugi::xml_writer {
public:
    explicit Gatherer(std::string& out) : out_(out) {}

    void write(const void* data, std::size_t size) override {
        std::string_view rest(static_cast<const char*>(data), size);
        for (auto at = rest.find('\r'); at != std::string_view::npos; at = rest.find('\r')) {
            out_.append(rest.substr(0, at)).append("&#13;");
            rest.remove_prefix(at + 1);
        }
        out_.append(rest);
    }

private:
    std::string& out_;
};

// --- Reading

constexpr std::size_t kBlock = 16; ///< as many bytes as a processor looks at in one step

[[noreturn]] void malformed(const char* reason) {
    throw XmlException(reason);
}

/// The production Char of XML 1.0.
bool isXmlCharacter(char32_t point) {
    return point == '\t' || point == '\n' || point == '\r' ||
           (point >= 0x20 && point <= 0x10FFFF && !isSurrogate(point) && point != 0xFFFE &&
            point != 0xFFFF);
}

/// The length of the character that `text` opens with, or 0 when no document can hold it.
std::size_t xmlCharacterLength(std::string_view text) {
    const auto lead = static_cast<unsigned char>(text.front());
    if (lead < 0x80)
        return isXmlCharacter(lead) ? 1 : 0;
    const bool isNoncharacter =
        text.starts_with("\xEF\xBF\xBE") || text.starts_with("\xEF\xBF\xBF");
    return isNoncharacter ? 0 : utf8Length(text);
}

/// Whether a block holds nothing but the ASCII characters of an ordinary text: one look at many
/// bytes.
bool isPlain(const char* block) {
    bool plain = true;
    for (std::size_t i = 0; i < kBlock; ++i) {
        const auto byte = static_cast<signed char>(block[i]);
        plain &= byte >= ' ' || byte == '\t' || byte == '\n' || byte == '\r';
    }
    return plain;
}

/// The number of bytes at the start of a text that a document can hold.
std::size_t xmlPrefix(std::string_view text) {
    std::size_t at = 0;
    while (at < text.size()) {
        if (text.size() - at >= kBlock && isPlain(text.data() + at)) {
            at += kBlock;
            continue;
        }
        const std::size_t length = xmlCharacterLength(text.substr(at));
        if (length == 0)
            break;
        at += length;
    }
    return at;
}

/// The character of a reference such as "#65" or "#x41".
char32_t characterByNumber(std::string_view reference) {
    const bool hexadecimal = reference.starts_with("#x");
    reference.remove_prefix(hexadecimal ? 2 : 1);
    std::uint32_t point = 0;
    const char* const end = reference.data() + reference.size();
    const auto [stop, error] = std::from_chars(reference.data(), end, point, hexadecimal ? 16 : 10);
    if (error != std::errc() || stop != end || !isXmlCharacter(point))
        malformed("a reference to no character");
    return point;
}

char32_t referredCharacter(std::string_view reference) {
    struct Entity {
        std::string_view name;
        char32_t point;
    };

    static constexpr std::array<Entity, 5> kEntities{
        {{"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}}};
    if (reference.starts_with('#'))
        return characterByNumber(reference);
    const auto* const entity =
        std::find_if(kEntities.begin(), kEntities.end(),
                     [&](const Entity& known) { return known.name == reference; });
    if (entity == kEntities.end())
        malformed("an unknown entity");
    return entity->point;
}

std::string resolveReferences(std::string_view text) {
    std::string out;
    for (auto at = text.find('&'); at != std::string_view::npos; at = text.find('&')) {
        const std::size_t end = text.find(';', at);
        if (end == std::string_view::npos)
            malformed("a lone ampersand");
        out += text.substr(0, at);
        appendUtf8(referredCharacter(text.substr(at + 1, end - at - 1)), out);
        text.remove_prefix(end + 1);
    }
    return out.append(text);
}

void finishText(XmlNode node) {
    const char* const text = node.value();
    if (std::strstr(text, "]]>") != nullptr)
        malformed("the end of a CDATA section in a text");
    if (std::strchr(text, '&') != nullptr)
        node.text().set(resolveReferences(text).c_str());
}

/// Resolves the references in a node's texts, which the library was told to leave alone.
void finishNode(XmlNode node) {
    for (pugi::xml_attribute attribute : node.attributes())
        attribute.set_value(resolveReferences(attribute.value()).c_str());
    if (node.type() == pugi::node_element || node.type() == pugi::node_pcdata)
        finishText(node);
}

/// Completes a tree, without recursion, for nobody knows yet how deep it is. `plain` says that no
/// text in it needs a look.
void finishTree(XmlNode top, bool plain) {
    int depth = 1;
    for (XmlNode node = top.first_child(); node;) {
        if (depth > kMaxXmlDepth && node.type() == pugi::node_element)
            malformed("nested too deep");
        if (!plain)
            finishNode(node);
        XmlNode next = node.first_child();
        if (next) {
            ++depth;
        } else {
            for (next = node.next_sibling(); !next && depth > 1; next = node.next_sibling()) {
                node = node.parent();
                --depth;
            }
        }
        node = next;
    }
}

/// Whether a text is white space as XML has it, which is less than that of other texts.
bool isXmlSpace(std::string_view text) {
    return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

/// Refuses a document whose outermost nodes are not: a declaration in front of everything, one
/// document type at most, one root element behind it; comments, instructions and blanks between.
void checkTopLevel(XmlNode top) {
    int elements = 0;
    int types = 0;
    for (const XmlNode node : top.children()) {
        elements += node.type() == pugi::node_element ? 1 : 0;
        types += node.type() == pugi::node_doctype ? 1 + elements : 0;
        const bool lateDeclaration =
            node.type() == pugi::node_declaration && node != top.first_child();
        const bool stray = node.type() == pugi::node_cdata ||
                           (node.type() == pugi::node_pcdata && !isXmlSpace(node.value()));
        if (lateDeclaration || stray || types > 1)
            malformed("something outside of the root element");
    }
    if (elements != 1)
        malformed("not exactly one root element");
}

} // namespace

void XmlDocument::LoadXml(std::string text) {
    auto source = std::make_unique<std::string>(std::move(text));
    const bool isUtf8 = xmlPrefix(*source) == source->size();
    const bool plain = isUtf8 && source->find('&') == std::string::npos &&
                       source->find("]]>") == std::string::npos;
    pugi::xml_document document;
    // With its closing null, for the library takes the last byte out of a buffer that has none.
    const pugi::xml_parse_result result =
        document.load_buffer_inplace(source->data(), source->size() + 1, kParseFlags);
    if (!result)
        malformed(result.description());
    if (result.encoding == pugi::encoding_utf8 && !isUtf8)
        malformed("bytes that are no character");
    checkTopLevel(document);
    finishTree(document, plain);
    document_ = std::move(document);
    text_ = std::move(source);
}

std::string XmlDocument::ToString(std::string_view prolog) const {
    std::string text(kDeclaration);
    text += prolog;
    for (const XmlNode child : document_.children())
        if (child.type() != pugi::node_declaration)
            appendSerialised(child, text);
    return text;
}

XmlNode appendElement(XmlNode parent, const char* name) {
    return parent.append_child(name);
}

XmlNode appendElement(XmlNode parent, const char* name, std::string_view text) {
    const XmlNode element = appendElement(parent, name);
    if (!text.empty())
        appendText(element, text);
    return element;
}

XmlNode appendText(XmlNode parent, std::string_view text) {
    XmlNode node = parent.append_child(pugi::node_pcdata);
    node.set_value(text.data(), text.size());
    return node;
}

void insertTextBefore(XmlNode node, std::string_view text) {
    node.parent().insert_child_before(pugi::node_pcdata, node).set_value(text.data(), text.size());
}

void appendSerialised(XmlNode node, std::string& out) {
    Gatherer gatherer(out);
    node.print(gatherer, "", pugi::format_raw, pugi::encoding_utf8);
}

std::string_view xmlCharacters(std::string_view text, std::string& storage) {
    const std::size_t good = xmlPrefix(text);
    if (good == text.size())
        return text;
    storage = text.substr(0, good);
    for (std::string_view rest = text.substr(good); !rest.empty();) {
        const std::size_t length = xmlCharacterLength(rest);
        const auto byte = static_cast<unsigned char>(rest.front());
        const std::size_t taken = std::max(std::size_t{1}, utf8Length(rest));
        if (length > 0)
            storage += rest.substr(0, length);
        else
            appendUtf8(taken == 1 && byte >= 0x80 ? fromWindows1252(byte) : kReplacementCharacter,
                       storage);
        rest.remove_prefix(taken);
    }
    return storage;
}

} // namespace skyvert
