#pragma once

#include "settings/Dictionary.h"
#include "settings/Variant.h"
#include "settings/Xml.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>

// Writes a `Dictionary` as an XML document and reads it back. There are two flavours: `plist`
// follows the published property list format; `xmldict` is this module's own and can also hold a
// null, a colour and a file reference. A storage is a `Variant` with a `Dictionary` or a
// `Collection`.
namespace skyvert {

// --- Writing

/// The document of a dictionary, in the `plist` or the `xmldict` flavour. Line ends and indentation
/// are text nodes. A value that the flavour cannot express becomes an empty element: `false` in
/// `plist`, `null` in `xmldict`. Throws `std::invalid_argument` for a null pointer.
XmlDocument ExportXML(const std::shared_ptr<Dictionary>& storage, bool plist);

/// The text of the same document with its DOCTYPE line. Lines end with LF; a blank line separates
/// the DOCTYPE from the root element.
std::string ExportXMLString(const std::shared_ptr<Dictionary>& storage, bool plist);

/// Writes that text to a file, in place. Returns false if the file could not be opened; later write
/// errors are ignored.
bool SaveXML(const std::shared_ptr<Dictionary>& storage, const std::filesystem::path& file,
             bool plist);

/// The same with the finished text.
bool SaveXML(std::string_view text, const std::filesystem::path& file);

/// Indents a node: adds a line end and `level` tabs before it and, if `closing`, before its closing
/// tag.
void IndentNode(XmlNode node, int level, bool closing);

/// The storages already written to a document, compared by identity.
using SeenStorages = std::unordered_set<const Object*>;

/// Appends the entries of the outermost storage to a node.
void ParseStorage(const Variant& storage, XmlNode node, bool plist);

/// Appends the entries of a storage to a node, indented by `level` tabs, and recursively those of
/// nested storages. A storage in `seen` adds nothing: each is written once, where it first occurs,
/// which also ends cycles. A storage nested deeper than the reader accepts adds nothing either.
void ParseStorage(const Variant& storage, XmlNode node, SeenStorages& seen, int level, bool plist);

/// The number of entries; 0 for a value that is not a storage.
std::size_t StorageCount(const Variant& storage);

/// The key of an entry, 0 to `StorageCount` - 1; Nil for a value that is not a dictionary.
const Variant& StorageKey(const Variant& storage, std::size_t index);

/// The value of an entry, 0 to `StorageCount` - 1; Nil for a value that is not a storage.
const Variant& StorageValue(const Variant& storage, std::size_t index);

// --- Reading

/// Adds the entries of a document of either flavour to a dictionary. The value of an existing key
/// is replaced, but a dictionary is merged into an existing one. Returns false and leaves the
/// dictionary unchanged if the text is not a well-formed document of a supported version.
/// Throws `std::invalid_argument` for a null pointer.
bool LoadXML(const std::shared_ptr<Dictionary>& storage, const std::string& text);

/// The same from a file. Returns false also if the file cannot be read.
bool LoadXML(const std::shared_ptr<Dictionary>& storage, const std::filesystem::path& file);

/// The same from a parsed document.
bool LoadXML(const std::shared_ptr<Dictionary>& storage, const XmlDocument& document);

/// Reads the entries below a node into a storage. Unknown elements, and `data` and `file`, are
/// skipped together with their keys.
void ParseXML(XmlNode node, const Variant& storage);

/// The text of an element, with comments, CDATA sections and nested elements in serialised form.
std::string NodeContents(XmlNode node);

/// Stores a value: in a dictionary under a key, unless that is Nil; at the end of a collection,
/// whatever the key. Any other storage is left alone.
void StoreValue(Variant key, Variant value, const Variant& storage);

/// The value for a key of a dictionary; Nil in every other case.
const Variant& StorageByKey(const Variant& storage, const Variant& key);

} // namespace skyvert
