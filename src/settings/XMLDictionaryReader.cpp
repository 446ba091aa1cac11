#include "platform/Files.h"
#include "platform/Number.h"
#include "platform/Objects.h"
#include "platform/Text.h"
#include "platform/Unicode.h"
#include "settings/XMLDictionary.h"

#include <algorithm>
#include <array>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace skyvert {

namespace {

constexpr double kNewestPlist = 1.0;
constexpr double kNewestXmlDict = 1.1;

bool isElement(XmlNode node) {
    return node.type() == pugi::node_element;
}

bool isNamed(XmlNode node, std::string_view name) {
    return equalsIgnoringCase(node.name(), name);
}

Variant readDictionary(XmlNode element, const Variant& storage, const Variant& key) {
    // A second dictionary under the same key adds to the first.
    const Variant& present = StorageByKey(storage, key);
    Variant dictionary =
        present.object<Dictionary>() != nullptr ? present : Variant(std::make_shared<Dictionary>());
    ParseXML(element, dictionary);
    return dictionary;
}

Variant readArray(XmlNode element) {
    Variant collection = std::make_shared<Collection>();
    ParseXML(element, collection);
    return collection;
}

Variant readColor(XmlNode element) {
    std::string text = NodeContents(element);
    return colorFromText(text.replace(0, text.empty() ? 0 : utf8Length(text), "&h"));
}

Variant readDate(XmlNode element) {
    std::string text = NodeContents(element);
    // The published property list format has "2004-07-21T10:00:00Z".
    if (text.size() == 20 && text[10] == 'T' && text.back() == 'Z') {
        text[10] = ' ';
        text.pop_back();
    }
    return dateFromText(text);
}

/// A value element and how it is read.
struct ValueElement {
    std::string_view name;
    Variant (*read)(XmlNode element, const Variant& storage, const Variant& key);
};

constexpr std::array<ValueElement, 10> kValueElements{{
    {"string", [](XmlNode e, const Variant&, const Variant&) { return Variant(NodeContents(e)); }},
    {"integer", [](XmlNode e, const Variant&,
                   const Variant&) { return Variant(truncated(Val(NodeContents(e)))); }},
    {"true", [](XmlNode, const Variant&, const Variant&) { return Variant(true); }},
    {"false", [](XmlNode, const Variant&, const Variant&) { return Variant(false); }},
    {"real",
     [](XmlNode e, const Variant&, const Variant&) { return Variant(Val(NodeContents(e))); }},
    {"dict", readDictionary},
    {"array", [](XmlNode e, const Variant&, const Variant&) { return readArray(e); }},
    {"null", [](XmlNode, const Variant&, const Variant&) { return Variant(); }},
    {"date", [](XmlNode e, const Variant&, const Variant&) { return readDate(e); }},
    {"color", [](XmlNode e, const Variant&, const Variant&) { return readColor(e); }},
}};

/// The element that holds the entries of a document, or a null node when it is not supported.
XmlNode entriesOf(XmlNode root) {
    const double version = Val(root.attribute("version").value());
    if (!isNamed(root, "plist"))
        return version > kNewestXmlDict ? XmlNode() : root;
    const XmlNode dictionary = root.find_child(isElement);
    return isNamed(dictionary, "dict") && version <= kNewestPlist ? dictionary : XmlNode();
}

} // namespace

bool LoadXML(const std::shared_ptr<Dictionary>& storage, std::string text) {
    try {
        XmlDocument document;
        document.LoadXml(std::move(text));
        return LoadXML(storage, document);
    } catch (const XmlException&) {
        return false;
    }
}

bool LoadXML(const std::shared_ptr<Dictionary>& storage, const std::filesystem::path& file) {
    std::optional<std::string> text = readWholeFile(file);
    return text && LoadXML(storage, std::move(*text));
}

bool LoadXML(const std::shared_ptr<Dictionary>& storage, const XmlDocument& document) {
    if (!storage)
        throw std::invalid_argument("There is no dictionary to fill.");
    const XmlNode entries = entriesOf(document.DocumentElement());
    if (entries)
        ParseXML(entries, storage);
    return static_cast<bool>(entries);
}

void ParseXML(XmlNode node, const Variant& storage) {
    Variant key;
    for (XmlNode child = node.first_child(); child; child = child.next_sibling()) {
        if (!isElement(child))
            continue;
        if (key.isNil() && isNamed(child, "key")) {
            key = NodeContents(child);
            continue;
        }
        const auto* const element =
            std::find_if(kValueElements.begin(), kValueElements.end(),
                         [&](const ValueElement& known) { return isNamed(child, known.name); });
        if (element != kValueElements.end()) {
            Variant value = element->read(child, storage, key);
            StoreValue(std::move(key), std::move(value), storage);
        }
        key = Variant();
    }
}

std::string NodeContents(XmlNode node) {
    std::string text = node.value();
    for (XmlNode child = node.first_child(); child; child = child.next_sibling()) {
        if (child.type() == pugi::node_pcdata)
            text += child.value();
        else
            appendSerialised(child, text);
    }
    return text;
}

void StoreValue(Variant key, Variant value, const Variant& storage) {
    auto* const dictionary = storage.object<Dictionary>();
    if (dictionary != nullptr && !key.isNil())
        dictionary->setValue(std::move(key), std::move(value));
    else if (auto* const collection = storage.object<Collection>())
        collection->Add(std::move(value));
}

const Variant& StorageByKey(const Variant& storage, const Variant& key) {
    static const Variant nil;
    const auto* const dictionary = storage.object<Dictionary>();
    const Variant* const value = dictionary == nullptr ? nullptr : dictionary->find(key);
    return value == nullptr ? nil : *value;
}

} // namespace skyvert
