#include "platform/Files.h"
#include "platform/Number.h"
#include "settings/Objects.h"
#include "settings/XMLDictionary.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <stdexcept>
#include <string_view>

namespace skyvert {

namespace {

/// The parts of a document that depend on its flavour.
struct Flavour {
    const char* root;
    const char* version;
    std::string_view doctype;
};

constexpr Flavour kPlist{"plist", "1.0",
                         "<!DOCTYPE plist PUBLIC \"-//Apple Computer//DTD PLIST 1.0//EN\" "
                         "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"};
constexpr Flavour kXmlDict{"xmldict", "1.1",
                           "<!DOCTYPE xmldict PUBLIC \"-//Marlowick//DTD XMLDICT 1.1//EN\" "
                           "\"http://localhost/DTDs/XMLDictionary-1.1.dtd\">\n"};

const Flavour& flavour(bool plist) {
    return plist ? kPlist : kXmlDict;
}

constexpr std::size_t kBase64Line = 45; ///< characters, not bytes
constexpr std::size_t kUsualEntry = 80; ///< bytes, enough for the text of most entries
constexpr std::string_view kRealMask = "-#.0##############";

// An entry of level n is n + 1 elements deep, one more in a `plist`.
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

/// Passes the entries of storages, with their indentation, to a handler.
class EntriesWriter {
public:
    EntriesWriter(XmlHandler& out, SeenStorages& seen, bool plist)
        : out_(out), seen_(seen), plist_(plist) {}

    void writeEntries(const Variant& storage, int level) {
        if (level > kMaxLevel || !seen_.insert(storage.object<Object>()).second)
            return;
        const std::string indent = layout(level);
        const std::size_t count = StorageCount(storage);
        for (std::size_t index = 0; index < count; ++index) {
            if (const Variant& key = StorageKey(storage, index); !key.isNil()) {
                out_.text(indent);
                writeString("key", key);
            }
            out_.text(indent);
            writeValue(StorageValue(storage, index), level, indent);
        }
    }

private:
    void writeElement(const char* name, std::string_view text = {}) {
        out_.openElement(name, {});
        out_.text(text);
        out_.closeElement(name);
    }

    void writeInexpressible() { writeElement(plist_ ? "false" : "null"); }

    /// An element with the text of a value, limited to the characters that XML allows.
    void writeString(const char* name, const Variant& value) {
        const auto text = value.string();
        writeElement(name, text ? xmlCharacters(*text, storage_) : value.stringValue());
    }

    void writeValue(const Variant& value, int level, const std::string& indent) {
        switch (value.type()) {
        case VarType::Integer:
        case VarType::Long:
            return writeElement("integer", value.stringValue());
        case VarType::Single:
        case VarType::Double:
            return writeElement("real", Format(value.doubleValue(), kRealMask, Locale{}));
        case VarType::Date:
            return writeElement("date", value.stringValue());
        case VarType::String:
            return writeString("string", value);
        case VarType::Object:
            return writeObject(value, level, indent);
        case VarType::Boolean:
            return writeElement(value.booleanValue() ? "true" : "false");
        case VarType::Color:
            return plist_ ? writeInexpressible() : writeElement("color", colorText(value.color()));
        default:
            return writeInexpressible();
        }
    }

    void writeObject(const Variant& value, int level, const std::string& indent) {
        if (value.object<Dictionary>() != nullptr)
            writeContainer("dict", value, level, indent);
        else if (const auto* block = value.object<MemoryBlock>())
            writeBytes("data", block->bytes(), indent);
        else if (value.object<Collection>() != nullptr)
            writeContainer("array", value, level, indent);
        else if (const auto* file = value.object<FolderItem>(); file != nullptr && !plist_)
            writeBytes("file", pathText(file->path()), indent);
        else
            writeInexpressible();
    }

    void writeContainer(const char* name, const Variant& storage, int level,
                        const std::string& indent) {
        out_.openElement(name, {});
        writeEntries(storage, level + 1);
        out_.text(indent);
        out_.closeElement(name);
    }

    /// Base64, on separate lines with the indentation of the element.
    void writeBytes(const char* name, std::string_view bytes, const std::string& indent) {
        const std::string text = EncodeBase64(bytes);
        out_.openElement(name, {});
        for (std::size_t at = 0; at < text.size(); at += kBase64Line) {
            out_.text(indent);
            out_.text(std::string_view(text).substr(at, kBase64Line));
        }
        out_.text(indent);
        out_.closeElement(name);
    }

    XmlHandler& out_;
    SeenStorages& seen_;
    bool plist_;
    std::string storage_; ///< holds a text in which characters had to be replaced
};

/// Passes the nodes of a dictionary's document to a handler.
void writeDocument(const std::shared_ptr<Dictionary>& storage, XmlHandler& out, bool plist) {
    if (!storage)
        throw std::invalid_argument("There is no dictionary to write.");
    const auto& [root, version, doctype] = flavour(plist);
    const std::string indent = layout(0);
    out.text(indent);
    out.openElement(root, std::array{"version", version});
    if (plist) {
        out.text(indent);
        out.openElement("dict", {});
    }
    SeenStorages seen;
    EntriesWriter(out, seen, plist).writeEntries(storage, 1);
    if (plist) {
        out.text(indent);
        out.closeElement("dict");
    }
    out.text(indent);
    out.closeElement(root);
    out.text(indent);
}

} // namespace

XmlDocument ExportXML(const std::shared_ptr<Dictionary>& storage, bool plist) {
    XmlDocument document;
    XmlTree tree(document.node());
    writeDocument(storage, tree, plist);
    return document;
}

std::string ExportXMLString(const std::shared_ptr<Dictionary>& storage, bool plist) {
    std::string text(kXmlDeclaration);
    text += flavour(plist).doctype;
    text.reserve(text.size() + StorageCount(storage) * kUsualEntry);
    XmlText writer(text);
    writeDocument(storage, writer, plist);
    return text;
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
    node.parent().insert_child_before(pugi::node_pcdata, node).set_value(text.data(), text.size());
    if (closing)
        XmlTree(node).text(text);
}

void ParseStorage(const Variant& storage, XmlNode node, bool plist) {
    SeenStorages seen;
    ParseStorage(storage, node, seen, 1, plist);
}

void ParseStorage(const Variant& storage, XmlNode node, SeenStorages& seen, int level, bool plist) {
    XmlTree tree(node);
    EntriesWriter(tree, seen, plist).writeEntries(storage, level);
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
