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

// A `Dictionary` as an XML document, and back. There are two flavours: `plist` follows the
// published property list format; `xmldict` is this module's own and can also hold a null, a
// colour and a file reference. A storage is a `Variant` with a `Dictionary` or a `Collection`.
namespace skyvert {

// --- Writing

/// The document of a dictionary, in the `plist` or else the `xmldict` flavour. It carries its
/// layout as text nodes. A value that the flavour cannot express becomes an empty element, `false`
/// or `null`. Throws `std::invalid_argument` without a dictionary.
XmlDocument ExportXML(const std::shared_ptr<Dictionary>& storage, bool plist);

/// The text of that document with its DOCTYPE line. Lines end with LF. A blank line stands between
/// the DOCTYPE and the root element.
std::string ExportXMLString(const std::shared_ptr<Dictionary>& storage, bool plist);

/// Writes that text to a file, in place. False when the file could not be created; a write that
/// fails later goes unnoticed.
bool SaveXML(const std::shared_ptr<Dictionary>& storage, const std::filesystem::path& file,
             bool plist);

/// The same with a text that has been composed already.
bool SaveXML(std::string_view text, const std::filesystem::path& file);

/// Adds the layout of an element or text: a line end and `level` tabs before it and, when
/// `closing`, before its closing tag.
void IndentNode(XmlNode node, int level, bool closing);

/// The storages that a document holds already. Objects are told apart by identity.
using SeenStorages = std::unordered_set<const Object*>;

/// Appends the entries of a storage to a node, as those of the outermost dictionary.
void ParseStorage(const Variant& storage, XmlNode node, bool plist);

/// Appends the entries of a storage to a node, `level` tabs deep, and those of the storages in it.
/// A storage in `seen` adds nothing: each is written once, where it comes first, and that ends
/// cycles. One that is nested deeper than the reader would go adds nothing either.
void ParseStorage(const Variant& storage, XmlNode node, SeenStorages& seen, int level, bool plist);

/// The number of entries; 0 for what is no storage.
std::size_t StorageCount(const Variant& storage);

/// The key of an entry, counted from 0, below `StorageCount`; Nil for what is no dictionary.
const Variant& StorageKey(const Variant& storage, std::size_t index);

/// The value of an entry, counted from 0, below `StorageCount`; Nil for what is no storage.
const Variant& StorageValue(const Variant& storage, std::size_t index);

// --- Reading

/// Adds what a document of either flavour holds to a dictionary: entries under old keys are
/// replaced, dictionaries under old keys merged. False, with the dictionary unchanged, when the
/// text is no well-formed document or its version is newer than this module.
/// Throws `std::invalid_argument` without a dictionary.
bool LoadXML(const std::shared_ptr<Dictionary>& storage, const std::string& text);

/// The same from a file. False also when it cannot be read.
bool LoadXML(const std::shared_ptr<Dictionary>& storage, const std::filesystem::path& file);

/// The same from a parsed document.
bool LoadXML(const std::shared_ptr<Dictionary>& storage, const XmlDocument& document);

/// Reads the entries that stand under a node into a storage. Elements that are not known, `data`
/// and `file` among them, are skipped and their keys with them.
void ParseXML(XmlNode node, const Variant& storage);

/// The text of an element. Comments, CDATA sections and elements in it show in serialised form.
std::string NodeContents(XmlNode node);

/// Puts a value into a storage: a dictionary needs a key that is not Nil, a collection takes none.
void StoreValue(Variant key, Variant value, const Variant& storage);

/// The value under a key of a dictionary; Nil in every other case.
const Variant& StorageByKey(const Variant& storage, const Variant& key);

} // namespace skyvert
