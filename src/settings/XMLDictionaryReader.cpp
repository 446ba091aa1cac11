#include "platform/Number.h"
#include "platform/Text.h"
#include "platform/Unicode.h"
#include "settings/Objects.h"
#include "settings/XMLDictionary.h"

#include <algorithm>
#include <array>
#include <functional>
#include <stdexcept>
#include <string_view>
#include <utility>
#include <vector>

namespace skyvert {

namespace {

constexpr double kNewestPlist = 1.0;
constexpr double kNewestXmlDict = 1.1;

/// Collects the contents of an element: text unchanged, everything else in serialised form.
class Contents : public XmlHandler {
public:
    std::string& gathered() { return text_; }

    /// Whether a nested element is open.
    bool isNested() const { return depth_ > 0; }

    void openElement(const char* name, XmlAttributes attributes) override {
        ++depth_;
        serialised_.openElement(name, attributes);
    }

    void closeElement(const char* name) override {
        --depth_;
        serialised_.closeElement(name);
    }

    void text(std::string_view text) override {
        if (depth_ == 0)
            text_ += text;
        else
            serialised_.text(text);
    }

    void cdata(std::string_view text) override { serialised_.cdata(text); }

    void comment(const char* text) override { serialised_.comment(text); }

    void instruction(const char* target, const char* data) override {
        serialised_.instruction(target, data);
    }

private:
    std::string text_;
    XmlText serialised_{text_};
    int depth_ = 0;
};

Variant readColor(std::string& text) {
    return colorFromText(text.replace(0, text.empty() ? 0 : utf8Length(text), "&h"));
}

Variant readDate(std::string& text) {
    // The published property list format has "2004-07-21T10:00:00Z".
    if (text.size() == 20 && text[10] == 'T' && text.back() == 'Z') {
        text[10] = ' ';
        text.pop_back();
    }
    const auto date = Date::fromSQL(text);
    return date ? Variant(*date) : Variant();
}

/// A value element without entries, and the function that reads its contents.
struct PlainElement {
    std::string_view name;
    Variant (*read)(std::string& contents);
};

constexpr std::array<PlainElement, 8> kPlainElements{{
    {"string", [](std::string& text) { return Variant(std::string_view(text)); }},
    {"integer", [](std::string& text) { return Variant(truncated(Val(text))); }},
    {"true", [](std::string&) { return Variant(true); }},
    {"false", [](std::string&) { return Variant(false); }},
    {"real", [](std::string& text) { return Variant(Val(text)); }},
    {"null", [](std::string&) { return Variant(); }},
    {"date", readDate},
    {"color", readColor},
}};

/// Reads the entries that it receives into a storage.
class EntriesReader : public Contents {
public:
    /// Starts reading the entries of a storage, until its closing tag.
    void begin(Variant storage) { levels_.emplace_back().storage = std::move(storage); }

    /// Whether the entries of a storage are being read.
    bool isReading() const { return !levels_.empty(); }

    void openElement(const char* name, XmlAttributes attributes) override {
        if (isPlain_)
            return Contents::openElement(name, attributes);
        isPlain_ = !openContainer(name);
        gathered().clear();
    }

    void closeElement(const char* name) override {
        if (isNested())
            Contents::closeElement(name);
        else if (std::exchange(isPlain_, false))
            closePlain(name);
        else
            closeContainer();
    }

private:
    /// A storage that is being filled.
    // NOLINTNEXTLINE(bugprone-exception-escape): see `Variant`
    struct Level {
        Variant storage;
        Variant key; ///< of the next entry; Nil before its `key` element
    };

    bool openContainer(std::string_view name) {
        if (equalsIgnoringCase(name, "dict")) {
            // A second dictionary under the same key is merged into the first.
            const Variant& present = StorageByKey(levels_.back().storage, levels_.back().key);
            begin(present.object<Dictionary>() != nullptr ? present
                                                          : std::make_shared<Dictionary>());
            return true;
        }
        if (equalsIgnoringCase(name, "array")) {
            begin(std::make_shared<Collection>());
            return true;
        }
        return false;
    }

    void closeContainer() {
        Variant storage = std::move(levels_.back().storage);
        levels_.pop_back();
        if (isReading())
            store(std::move(storage));
    }

    void closePlain(std::string_view name) {
        Variant& key = levels_.back().key;
        if (key.isNil() && equalsIgnoringCase(name, "key")) {
            key = std::string_view(gathered());
            return;
        }
        const auto* const element = std::find_if(
            kPlainElements.begin(), kPlainElements.end(),
            [&](const PlainElement& known) { return equalsIgnoringCase(name, known.name); });
        if (element == kPlainElements.end())
            key = Variant();
        else
            store(element->read(gathered()));
    }

    void store(Variant value) {
        Level& level = levels_.back();
        StoreValue(std::move(level.key), std::move(value), level.storage);
        level.key = Variant();
    }

    std::vector<Level> levels_;
    bool isPlain_ = false; ///< the open element is a key or a value without entries
};

/// Reads a document into a dictionary.
class DocumentReader final : public EntriesReader {
public:
    explicit DocumentReader(std::shared_ptr<Dictionary> storage) : storage_(std::move(storage)) {}

    /// Whether the document has a supported root and version.
    bool isSupported() const { return isSupported_; }

    void openElement(const char* name, XmlAttributes attributes) override {
        if (isReading())
            EntriesReader::openElement(name, attributes);
        else if (std::exchange(rootIsDue_, false))
            openRoot(name, attributes);
        else if (std::exchange(dictionaryIsDue_, false) && equalsIgnoringCase(name, "dict"))
            beginEntries();
    }

    void closeElement(const char* name) override {
        dictionaryIsDue_ = false;
        if (isReading())
            EntriesReader::closeElement(name);
    }

private:
    static double versionOf(XmlAttributes attributes) {
        for (std::size_t i = 0; i < attributes.size(); i += 2)
            if (std::string_view(attributes[i]) == "version")
                return Val(attributes[i + 1]);
        return 0;
    }

    void openRoot(const char* name, XmlAttributes attributes) {
        const double version = versionOf(attributes);
        if (equalsIgnoringCase(name, "plist"))
            dictionaryIsDue_ = version <= kNewestPlist;
        else if (version <= kNewestXmlDict)
            beginEntries();
    }

    void beginEntries() {
        isSupported_ = true;
        begin(storage_);
    }

    std::shared_ptr<Dictionary> storage_;
    bool rootIsDue_ = true;
    bool dictionaryIsDue_ = false; ///< in a `plist`, before its first element
    bool isSupported_ = false;
};

void requireStorage(const std::shared_ptr<Dictionary>& storage) {
    if (!storage)
        throw std::invalid_argument("There is no dictionary to fill.");
}

/// Fills a dictionary from the document that `parse` passes to a handler. Returns false if `parse`
/// does, or if the document is malformed or unsupported.
bool load(const std::shared_ptr<Dictionary>& storage,
          const std::function<bool(XmlHandler&)>& parse) {
    requireStorage(storage);
    const bool isEmpty = storage->Count() == 0;
    const auto filled = isEmpty ? std::make_shared<Dictionary>() : storage;
    DocumentReader reader(filled);
    try {
        XmlHandler judge;
        if ((!isEmpty && !parse(judge)) || !parse(reader))
            return false;
    } catch (const XmlException&) {
        return false;
    }
    if (isEmpty)
        storage->swap(*filled);
    return reader.isSupported();
}

} // namespace

bool LoadXML(const std::shared_ptr<Dictionary>& storage, const std::string& text) {
    return load(storage, [&](XmlHandler& handler) {
        parseXml(text, handler);
        return true;
    });
}

bool LoadXML(const std::shared_ptr<Dictionary>& storage, const std::filesystem::path& file) {
    return load(storage, [&](XmlHandler& handler) { return parseXmlFile(file, handler); });
}

bool LoadXML(const std::shared_ptr<Dictionary>& storage, const XmlDocument& document) {
    requireStorage(storage);
    DocumentReader reader(storage);
    walkXml(document.node(), reader);
    return reader.isSupported();
}

void ParseXML(XmlNode node, const Variant& storage) {
    EntriesReader reader;
    reader.begin(storage);
    walkXml(node, reader);
}

std::string NodeContents(XmlNode node) {
    Contents contents;
    walkXml(node, contents);
    return std::move(contents.gathered());
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
