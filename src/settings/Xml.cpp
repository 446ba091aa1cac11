#include "settings/Xml.h"

#include "platform/Unicode.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace skyvert {

namespace {

/// The reference that escapes a character of a text, or nothing if it needs none. A carriage return
/// would be read back as a line feed.
constexpr std::string_view textReference(char character) {
    switch (character) {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '\r':
        return "&#13;";
    default:
        return {};
    }
}

/// The same for the value of an attribute, where tab and line feed would be read back as a blank.
constexpr std::string_view attributeReference(char character) {
    switch (character) {
    case '"':
        return "&quot;";
    case '\t':
        return "&#09;";
    case '\n':
        return "&#10;";
    case '>':
        return {};
    default:
        return textReference(character);
    }
}

/// Which bytes meet a condition.
template <typename Condition>
constexpr std::array<bool, 256> bytesThat(const Condition& condition) {
    std::array<bool, 256> table{};
    for (std::size_t byte = 0; byte < table.size(); ++byte)
        table[byte] = condition(static_cast<char>(byte));
    return table;
}

template <auto reference>
void appendEscaped(std::string_view text, std::string& out) {
    static constexpr auto kSpecial =
        bytesThat([](char character) { return !reference(character).empty(); });
    const auto isSpecial = [](char character) {
        return kSpecial[static_cast<unsigned char>(character)];
    };
    while (true) {
        const auto special = std::find_if(text.begin(), text.end(), isSpecial);
        out.append(text.begin(), special);
        if (special == text.end())
            return;
        out += reference(*special);
        text = {special + 1, text.end()};
    }
}

/// Whether a text consists of ASCII characters that XML allows.
bool isPlain(std::string_view text) {
    static constexpr auto kPlain = bytesThat([](char character) {
        const auto byte = static_cast<signed char>(character);
        return byte >= ' ' || byte == '\t' || byte == '\n' || byte == '\r';
    });
    return std::all_of(text.begin(), text.end(), [](char character) {
        return kPlain[static_cast<unsigned char>(character)];
    });
}

/// Removes the character at the start of a text. Returns it, or a replacement that XML allows.
std::string xmlCharacter(std::string_view& text) {
    const std::size_t length = utf8Length(text);
    std::string character(text.substr(0, std::max(std::size_t{1}, length)));
    text.remove_prefix(character.size());
    const bool isNoncharacter = character == "\xEF\xBF\xBE" || character == "\xEF\xBF\xBF";
    if (length > 1 ? !isNoncharacter : isPlain(character))
        return character;
    std::string replacement;
    appendUtf8(length == 0 ? fromWindows1252(static_cast<unsigned char>(character.front()))
                           : kReplacementCharacter,
               replacement);
    return replacement;
}

/// Passes a node and everything below it to a handler.
void passOn(XmlNode node, XmlHandler& handler) {
    switch (node.type()) {
    case pugi::node_element: {
        std::vector<const char*> attributes;
        for (const pugi::xml_attribute attribute : node.attributes())
            attributes.insert(attributes.end(), {attribute.name(), attribute.value()});
        handler.openElement(node.name(), attributes);
        walkXml(node, handler);
        return handler.closeElement(node.name());
    }
    case pugi::node_pcdata:
        return handler.text(node.value());
    case pugi::node_cdata:
        return handler.cdata(node.value());
    case pugi::node_comment:
        return handler.comment(node.value());
    case pugi::node_pi:
        return handler.instruction(node.name(), node.value());
    default:
        return; // declarations and document types are not passed on
    }
}

} // namespace

void walkXml(XmlNode node, XmlHandler& handler) {
    for (const XmlNode child : node.children())
        passOn(child, handler);
}

// --- Text

void XmlText::finishTag() {
    if (std::exchange(tagIsOpen_, false))
        out_ += '>';
}

void XmlText::openElement(const char* name, XmlAttributes attributes) {
    finishTag();
    out_.append(1, '<').append(name);
    for (std::size_t i = 0; i < attributes.size(); i += 2) {
        out_.append(1, ' ').append(attributes[i]).append("=\"");
        appendEscaped<attributeReference>(attributes[i + 1], out_);
        out_ += '"';
    }
    tagIsOpen_ = true;
}

void XmlText::closeElement(const char* name) {
    if (std::exchange(tagIsOpen_, false))
        out_ += "/>";
    else
        out_.append("</").append(name).append(1, '>');
}

void XmlText::text(std::string_view text) {
    if (text.empty())
        return;
    finishTag();
    appendEscaped<textReference>(text, out_);
}

void XmlText::cdata(std::string_view text) {
    finishTag();
    out_.append("<![CDATA[").append(text).append("]]>");
}

void XmlText::comment(const char* text) {
    finishTag();
    out_.append("<!--").append(text).append("-->");
}

void XmlText::instruction(const char* target, const char* data) {
    finishTag();
    out_.append("<?").append(target);
    if (*data != '\0')
        out_.append(1, ' ').append(data);
    out_ += "?>";
}

// --- Tree

void XmlTree::openElement(const char* name, XmlAttributes attributes) {
    parent_ = parent_.append_child(name);
    for (std::size_t i = 0; i < attributes.size(); i += 2)
        parent_.append_attribute(attributes[i]).set_value(attributes[i + 1]);
}

void XmlTree::closeElement(const char* /*name*/) {
    parent_ = parent_.parent();
}

void XmlTree::text(std::string_view text) {
    if (!text.empty())
        parent_.append_child(pugi::node_pcdata).set_value(text.data(), text.size());
}

void XmlTree::cdata(std::string_view text) {
    parent_.append_child(pugi::node_cdata).set_value(text.data(), text.size());
}

void XmlTree::comment(const char* text) {
    parent_.append_child(pugi::node_comment).set_value(text);
}

void XmlTree::instruction(const char* target, const char* data) {
    XmlNode node = parent_.append_child(pugi::node_pi);
    node.set_name(target);
    node.set_value(data);
}

void XmlDocument::LoadXml(std::string_view text) {
    pugi::xml_document document;
    XmlTree tree(document);
    parseXml(text, tree);
    document_ = std::move(document);
}

std::string XmlDocument::ToString() const {
    std::string text(kXmlDeclaration);
    XmlText writer(text);
    walkXml(document_, writer);
    return text;
}

std::string_view xmlCharacters(std::string_view text, std::string& storage) {
    if (isPlain(text))
        return text;
    for (storage.clear(); !text.empty();)
        storage += xmlCharacter(text);
    return storage;
}

} // namespace skyvert
