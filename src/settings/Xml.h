#pragma once

#include <pugixml.hpp>

#include <filesystem>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

namespace skyvert {

/// A text is not a well-formed XML document or is nested too deeply.
class XmlException : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The most elements that may be nested. Deeper documents count as malformed, so that recursion
/// over a document is safe.
inline constexpr int kMaxXmlDepth = 250;

/// The attributes of an element: a name, its value, the next name, and so on.
using XmlAttributes = std::span<const char* const>;

/// Receives the nodes of a document, or of a part of one, in document order. Events that a class
/// does not override are ignored. `parseXml`, `walkXml` and the writer of dictionaries are sources
/// of these events; `XmlText`, `XmlTree` and the reader of dictionaries receive them.
class XmlHandler {
public:
    virtual ~XmlHandler() = default;

    virtual void openElement(const char* /*name*/, XmlAttributes /*attributes*/) {}

    virtual void closeElement(const char* /*name*/) {}

    /// All text up to the next tag, CDATA section, comment or instruction.
    virtual void text(std::string_view /*text*/) {}

    virtual void cdata(std::string_view /*text*/) {}

    virtual void comment(const char* /*text*/) {}

    virtual void instruction(const char* /*target*/, const char* /*data*/) {}
};

/// Parses a document. The encoding may be UTF-8, with or without a byte order mark, UTF-16 or, if
/// declared, ISO-8859-1 or US-ASCII. Any other encoding, and one that contradicts its declaration,
/// counts as malformed, as do declarations of entities and references to any but the five that XML
/// predefines. Document types are accepted otherwise; nothing is fetched and no default attributes
/// are added. Throws `XmlException` after the handler has received the part before the error.
void parseXml(std::string_view text, XmlHandler& handler);

/// The same for a regular file, a block at a time. Returns false if it is of another kind or cannot
/// be read.
bool parseXmlFile(const std::filesystem::path& file, XmlHandler& handler);

using XmlNode = pugi::xml_node;

/// Passes everything below a node to a handler.
void walkXml(XmlNode node, XmlHandler& handler);

/// Writes the nodes it receives to the end of a text. Adds no white space of its own.
class XmlText final : public XmlHandler {
public:
    explicit XmlText(std::string& out) : out_(out) {}

    void openElement(const char* name, XmlAttributes attributes) override;
    void closeElement(const char* name) override;
    void text(std::string_view text) override;
    void cdata(std::string_view text) override;
    void comment(const char* text) override;
    void instruction(const char* target, const char* data) override;

private:
    void finishTag();

    std::string& out_;
    bool tagIsOpen_ = false; ///< the last opening tag still lacks its ">"
};

/// Appends the nodes it receives to a node.
class XmlTree final : public XmlHandler {
public:
    explicit XmlTree(XmlNode parent) : parent_(parent) {}

    void openElement(const char* name, XmlAttributes attributes) override;
    void closeElement(const char* name) override;
    void text(std::string_view text) override;
    void cdata(std::string_view text) override;
    void comment(const char* text) override;
    void instruction(const char* target, const char* data) override;

private:
    XmlNode parent_;
};

/// The first line of a written document.
inline constexpr std::string_view kXmlDeclaration = R"(<?xml version="1.0" encoding="UTF-8"?>)"
                                                    "\n";

/// An XML document as a tree, built node by node or parsed.
class XmlDocument {
public:
    /// Parses a text as `parseXml` does. Keeps all white space but neither the declaration nor the
    /// document type. Throws `XmlException` and leaves the document unchanged.
    void LoadXml(std::string_view text);

    /// The document node, the parent of the root element.
    XmlNode node() { return document_.root(); }

    XmlNode node() const { return document_.root(); }

    /// The root element; a null node if the document is empty.
    XmlNode DocumentElement() const { return document_.document_element(); }

    /// The declaration line and the nodes, without added white space.
    std::string ToString() const;

private:
    pugi::xml_document document_;
};

/// Replaces everything that XML does not allow: bytes that are not valid UTF-8 by their meaning in
/// Windows-1252, control characters and noncharacters by U+FFFD. Returns `text` itself if nothing
/// needs replacing, else a view of `storage`.
std::string_view xmlCharacters(std::string_view text, std::string& storage);

} // namespace skyvert
