#include "platform/Files.h"
#include "platform/Number.h"
#include "platform/Objects.h"
#include "settings/XMLDictionary.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <stdexcept>
#include <string_view>

namespace skyvert {

namespace {

/// What differs between the flavours.
struct Flavour {
    const char* root;
    const char* version;
    const char* inexpressible; ///< the element for a value that the flavour cannot hold
    std::string_view doctype;
};

constexpr Flavour kPlist{"plist", "1.0", "false",
                         "<!DOCTYPE plist PUBLIC \"-//Apple Computer//DTD PLIST 1.0//EN\" "
                         "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"};
constexpr Flavour kXmlDict{"xmldict", "1.1", "null",
                           "<!DOCTYPE xmldict PUBLIC \"-//Marlowick//DTD XMLDICT 1.1//EN\" "
                           "\"http://localhost/DTDs/XMLDictionary-1.1.dtd\">\n"};

const Flavour& flavour(bool plist) {
    return plist ? kPlist : kXmlDict;
}

constexpr std::size_t kBase64Line = 45; ///< characters, not bytes
constexpr std::size_t kBatch = 256;     ///< entries whose nodes a processor's cache holds
constexpr std::size_t kUsualEntry = 80; ///< bytes of the text of most entries, or more
constexpr std::string_view kRealMask = "-#.0##############";

// An entry of level n stands n + 1 elements deep, and one more below the `plist` element.
constexpr int kMaxLevel = kMaxXmlDepth - 2;

std::string layout(int level) {
    return std::string(1, '\n').append(static_cast<std::size_t>(level), '\t');
}

std::string EncodeBase64(std::string_view bytes) {
    static constexpr std::string_view kDigits =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    for (; !bytes.empty(); bytes.remove_prefix(std::min<std::size_t>(3, bytes.size()))) {
        const std::string_view group = bytes.substr(0, 3);
        std::uint32_t bits = 0;
        for (std::size_t i = 0; i < 3; ++i)
            bits = bits << 8U | (i < group.size() ? static_cast<unsigned char>(group[i]) : 0U);
        for (std::size_t i = 0; i < 4; ++i)
            text += i > group.size() ? '=' : kDigits[bits >> (18 - 6 * i) & 63U];
    }
    return text;
}

/// "#" and upper-case hexadecimal digits without leading zeros.
std::string colorText(Color color) {
    std::array<char, 8> digits{};
    const auto* const end =
        std::to_chars(digits.data(), digits.data() + digits.size(), color.value, 16).ptr;
    std::string text = "#";
    for (const char* at = digits.data(); at != end; ++at)
        text += *at >= 'a' ? static_cast<char>(*at - ('a' - 'A')) : *at;
    return text;
}

/// A `data` or `file` element: Base64 in lines of their own, as deep as the element.
XmlNode appendBytes(XmlNode parent, const char* name, std::string_view bytes, int level) {
    const XmlNode element = appendElement(parent, name);
    const std::string text = EncodeBase64(bytes);
    for (std::size_t at = 0; at < text.size(); at += kBase64Line)
        IndentNode(appendText(element, text.substr(at, kBase64Line)), level, false);
    return element;
}

XmlNode appendContainer(XmlNode parent, const char* name, const Variant& storage,
                        SeenStorages& seen, int level, bool plist) {
    const XmlNode element = appendElement(parent, name);
    ParseStorage(storage, element, seen, level + 1, plist);
    return element;
}

/// Appends the element of an object with its layout.
void appendObject(XmlNode parent, const Variant& value, SeenStorages& seen, int level, bool plist) {
    XmlNode element;
    if (value.object<Dictionary>())
        element = appendContainer(parent, "dict", value, seen, level, plist);
    else if (const auto* block = value.object<MemoryBlock>())
        element = appendBytes(parent, "data", block->bytes(), level);
    else if (value.object<Collection>())
        element = appendContainer(parent, "array", value, seen, level, plist);
    else if (const auto* file = value.object<FolderItem>(); file && !plist)
        element = appendBytes(parent, "file", pathText(file->path()), level);
    else
        return IndentNode(appendElement(parent, flavour(plist).inexpressible), level, false);
    IndentNode(element, level, true);
}

/// An element with the text of a value, in characters that a document can hold.
XmlNode appendString(XmlNode parent, const char* name, const Variant& value) {
    if (const std::string* text = value.string()) {
        std::string storage;
        return appendElement(parent, name, xmlCharacters(*text, storage));
    }
    return appendElement(parent, name, value.stringValue());
}

XmlNode appendPlain(XmlNode parent, const Variant& value, bool plist) {
    switch (value.type()) {
    case VarType::Integer:
    case VarType::Long:
        return appendElement(parent, "integer", value.stringValue());
    case VarType::Single:
    case VarType::Double:
        return appendElement(parent, "real", Format(value.doubleValue(), kRealMask, Locale{}));
    case VarType::Date:
        return appendElement(parent, "date", value.stringValue());
    case VarType::String:
        return appendString(parent, "string", value);
    case VarType::Boolean:
        return appendElement(parent, value.booleanValue() ? "true" : "false");
    case VarType::Color:
        if (!plist)
            return appendElement(parent, "color", colorText(value.color()));
        [[fallthrough]];
    default:
        return appendElement(parent, flavour(plist).inexpressible);
    }
}

/// Appends the elements of one entry, with their layout.
void appendEntry(XmlNode parent, const Variant& storage, std::size_t index, SeenStorages& seen,
                 int level, bool plist) {
    const Variant& key = StorageKey(storage, index);
    if (!key.isNil())
        IndentNode(appendString(parent, "key", key), level, false);
    const Variant& value = StorageValue(storage, index);
    if (value.type() == VarType::Object)
        appendObject(parent, value, seen, level, plist);
    else
        IndentNode(appendPlain(parent, value, plist), level, false);
}

/// Adds the text of the outermost dictionary's entries. Only a few at a time stand in a tree.
void appendEntriesText(const Variant& storage, std::string& text, bool plist) {
    const std::size_t count = StorageCount(storage);
    text.reserve(text.size() + count * kUsualEntry);
    XmlDocument document;
    XmlNode batch = document.node();
    SeenStorages seen{storage.object<Object>()};
    for (std::size_t index = 0; index < count; ++index) {
        appendEntry(batch, storage, index, seen, 1, plist);
        if ((index + 1) % kBatch == 0 || index + 1 == count) {
            appendSerialised(batch, text);
            batch.remove_children();
        }
    }
}

void requireStorage(const std::shared_ptr<Dictionary>& storage) {
    if (!storage)
        throw std::invalid_argument("There is no dictionary to write.");
}

} // namespace

XmlDocument ExportXML(const std::shared_ptr<Dictionary>& storage, bool plist) {
    requireStorage(storage);
    XmlDocument document;
    XmlNode root = appendElement(document.node(), flavour(plist).root);
    root.append_attribute("version").set_value(flavour(plist).version);
    const XmlNode entries = plist ? appendElement(root, "dict") : root;
    ParseStorage(storage, entries, plist);
    IndentNode(root, 0, true);
    if (plist)
        IndentNode(entries, 0, true);
    appendText(document.node(), layout(0));
    return document;
}

std::string ExportXMLString(const std::shared_ptr<Dictionary>& storage, bool plist) {
    requireStorage(storage);
    std::string text =
        ExportXML(std::make_shared<Dictionary>(), plist).ToString(flavour(plist).doctype);
    const std::size_t end = text.rfind(plist ? "\n</dict>" : "\n</xmldict>");
    const std::string frameEnd = text.substr(end);
    text.resize(end);
    appendEntriesText(storage, text, plist);
    return text += frameEnd;
}

bool SaveXML(const std::shared_ptr<Dictionary>& storage, const std::filesystem::path& file,
             bool plist) {
    return SaveXML(ExportXMLString(storage, plist), file);
}

bool SaveXML(std::string_view text, const std::filesystem::path& file) {
    return writeWholeFile(file, text);
}

void IndentNode(XmlNode node, int level, bool closing) {
    const std::string text = layout(level);
    insertTextBefore(node, text);
    if (closing)
        appendText(node, text);
}

void ParseStorage(const Variant& storage, XmlNode node, bool plist) {
    SeenStorages seen;
    ParseStorage(storage, node, seen, 1, plist);
}

void ParseStorage(const Variant& storage, XmlNode node, SeenStorages& seen, int level, bool plist) {
    if (level > kMaxLevel || !seen.insert(storage.object<Object>()).second)
        return;
    const std::size_t count = StorageCount(storage);
    for (std::size_t index = 0; index < count; ++index)
        appendEntry(node, storage, index, seen, level, plist);
}

std::size_t StorageCount(const Variant& storage) {
    if (const auto* dictionary = storage.object<Dictionary>())
        return dictionary->Count();
    const auto* collection = storage.object<Collection>();
    return collection ? collection->Count() : 0;
}

const Variant& StorageKey(const Variant& storage, std::size_t index) {
    static const Variant nil;
    const auto* dictionary = storage.object<Dictionary>();
    return dictionary ? dictionary->Key(index) : nil;
}

const Variant& StorageValue(const Variant& storage, std::size_t index) {
    static const Variant nil;
    if (const auto* dictionary = storage.object<Dictionary>())
        return dictionary->ValueAt(index);
    const auto* collection = storage.object<Collection>();
    return collection ? collection->Item(index + 1) : nil;
}

} // namespace skyvert
