#include "platform/Xml.h"

#include "platform/Unicode.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <set>
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

void serialise(XmlNode node, Gatherer& gatherer) {
    node.print(gatherer, "", pugi::format_raw, pugi::encoding_utf8);
}

// A document that is being built has a first child, never written, that holds one element with
// text of each name in use. A copy of such an element shares the memory of its name and is the
// only way to an element with a value of its own: a third of time and memory less.
constexpr const char* kModelsName = "-"; // no parsed element can have it

bool isModels(XmlNode node) {
    return std::strcmp(node.name(), kModelsName) == 0;
}

XmlNode modelOf(XmlNode node, const char* name) {
    XmlNode models = node.root().first_child();
    if (!isModels(models)) {
        models = node.root().prepend_child(pugi::node_element);
        models.set_name(kModelsName);
    }
    if (const XmlNode model = models.child(name))
        return model;
    const std::string text = std::string("<").append(name).append(">-</").append(name).append(">");
    models.append_buffer(text.data(), text.size(), pugi::parse_embed_pcdata, pugi::encoding_utf8);
    return models.last_child();
}

// --- Reading

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

/// The number of bytes at the start of a text that a document can hold.
std::size_t xmlPrefix(std::string_view text) {
    std::size_t at = 0;
    while (at < text.size()) {
        if (text[at] >= ' ' && text[at] <= '~') {
            ++at;
            continue;
        }
        const std::size_t length = xmlCharacterLength(text.substr(at));
        if (length == 0)
            break;
        at += length;
    }
    return at;
}

std::string fromUtf16(std::string_view bytes, bool bigEndian) {
    std::string text;
    text.reserve(bytes.size() / 2);
    while (!bytes.empty()) {
        const auto [point, length] = decodeUtf16(bytes, bigEndian);
        if (length == 0 || isSurrogate(point))
            malformed("half a UTF-16 character");
        appendUtf8(point, text);
        bytes.remove_prefix(length);
    }
    return text;
}

/// Makes a text UTF-8 without a mark, in characters that a document can hold.
void decode(std::string& text) {
    const std::string_view bytes = text;
    if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF"))
        text = fromUtf16(bytes.substr(2), bytes.front() == '\xFE');
    else if (bytes.starts_with("\xEF\xBB\xBF"))
        text.erase(0, 3);
    if (xmlPrefix(text) != text.size())
        malformed("bytes that are no character");
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

void finishAttributes(XmlNode element) {
    std::set<std::string_view> names;
    for (pugi::xml_attribute attribute : element.attributes()) {
        if (std::strchr(attribute.value(), '<') != nullptr ||
            !names.insert(attribute.name()).second)
            malformed("a bad attribute");
        if (std::strchr(attribute.value(), '&') != nullptr)
            attribute.set_value(resolveReferences(attribute.value()).c_str());
    }
}

/// Completes a parsed node: resolves its references and refuses what the library let pass.
void finishNode(XmlNode node) {
    if (node.type() == pugi::node_element)
        finishAttributes(node);
    if (node.type() == pugi::node_element || node.type() == pugi::node_pcdata)
        finishText(node);
    if (node.type() == pugi::node_comment && std::strstr(node.value(), "--") != nullptr)
        malformed("two hyphens in a comment");
}

/// Walks the whole tree without recursion, for nobody knows yet how deep it is.
void finishTree(XmlNode top) {
    XmlNode node = top.first_child();
    int depth = 1;
    while (node) {
        if (node.type() == pugi::node_element && depth > kMaxXmlDepth)
            malformed("nested too deep");
        finishNode(node);
        if (const XmlNode child = node.first_child()) {
            node = child;
            ++depth;
            continue;
        }
        while (node != top && !node.next_sibling()) {
            node = node.parent();
            --depth;
        }
        node = node == top ? XmlNode() : node.next_sibling();
    }
}

bool isBlank(std::string_view text) {
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
                           (node.type() == pugi::node_pcdata && !isBlank(node.value()));
        if (lateDeclaration || stray || types > 1)
            malformed("something outside of the root element");
    }
    if (elements != 1)
        malformed("not exactly one root element");
}

} // namespace

void XmlDocument::LoadXml(std::string text) {
    text_ = std::make_unique<std::string>(std::move(text));
    decode(*text_);
    // With its closing null, for the library takes the last byte out of a buffer that has none.
    const pugi::xml_parse_result result = document_.load_buffer_inplace(
        text_->data(), text_->size() + 1, kParseFlags, pugi::encoding_utf8);
    if (!result)
        malformed(result.description());
    checkTopLevel(document_);
    finishTree(document_);
}

XmlNode XmlDocument::DocumentElement() const {
    return document_.find_child(
        [](XmlNode child) { return child.type() == pugi::node_element && !isModels(child); });
}

std::string XmlDocument::ToString(std::string_view prolog) const {
    std::string text(kDeclaration);
    text += prolog;
    Gatherer gatherer(text);
    for (const XmlNode child : document_.children())
        if (!isModels(child) && child.type() != pugi::node_declaration)
            serialise(child, gatherer);
    return text;
}

XmlNode appendElement(XmlNode parent, const char* name) {
    return parent.append_child(name);
}

XmlNode appendElement(XmlNode parent, const char* name, const std::string& text) {
    XmlNode element = parent.append_copy(modelOf(parent, name));
    element.text().set(text.c_str(), text.size());
    return element;
}

XmlNode appendText(XmlNode parent, const std::string& text) {
    XmlNode node = parent.append_child(pugi::node_pcdata);
    node.set_value(text.c_str(), text.size());
    return node;
}

void insertTextBefore(XmlNode node, const std::string& text) {
    node.parent().insert_child_before(pugi::node_pcdata, node).set_value(text.c_str(), text.size());
}

void appendSerialised(XmlNode node, std::string& out) {
    Gatherer gatherer(out);
    serialise(node, gatherer);
}

std::string xmlCharacters(std::string text) {
    const std::size_t good = xmlPrefix(text);
    if (good == text.size())
        return text;
    std::string out = text.substr(0, good);
    std::string_view rest = std::string_view(text).substr(good);
    while (!rest.empty()) {
        const std::size_t length = xmlCharacterLength(rest);
        const auto byte = static_cast<unsigned char>(rest.front());
        const std::size_t taken = std::max(std::size_t{1}, utf8Length(rest));
        if (length > 0)
            out += rest.substr(0, length);
        else
            appendUtf8(taken == 1 && byte >= 0x80 ? fromWindows1252(byte) : kReplacementCharacter,
                       out);
        rest.remove_prefix(taken);
    }
    return out;
}

} // namespace skyvert
