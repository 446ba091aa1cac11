#pragma once

#include <pugixml.hpp>

#include <filesystem>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

namespace skyvert {

/// A text that is not a well-formed XML document, or one that is nested too deeply.
class XmlException : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// How many elements may stand inside each other. Deeper documents count as malformed, so that
/// a document can be walked by recursion.
inline constexpr int kMaxXmlDepth = 250;

/// The attributes of an element: a name, its value, the next name, and so on.
using XmlAttributes = std::span<const char* const>;

/// Receives a document, or a part of one, in the order of its text. Ignores what it does not
/// override. A parser, a tree and the writer of dictionaries drive it; it makes a text, a tree or a
/// dictionary of what it receives.
class XmlHandler {
public:
    virtual ~XmlHandler() = default;

    virtual void openElement(const char* /*name*/, XmlAttributes /*attributes*/) {}

    virtual void closeElement(const char* /*name*/) {}

    /// All the text up to the next element, CDATA section, comment or instruction.
    virtual void text(std::string_view /*text*/) {}

    virtual void cdata(std::string_view /*text*/) {}

    virtual void comment(const char* /*text*/) {}

    virtual void instruction(const char* /*target*/, const char* /*data*/) {}
};

/// Parses a document. The encoding is UTF-8, with or without a byte order mark, UTF-16, or, when
/// declared, ISO-8859-1 or US-ASCII; any other, and one that contradicts the declaration, counts as
/// malformed. So do declarations of entities and references to any but the five of XML itself. A
/// document type is otherwise accepted; nothing is fetched, and no default attribute is added.
/// Throws `XmlException`; by then the handler has received the part before the fault.
void parseXml(std::string_view text, XmlHandler& handler);

/// The same from a regular file, a block at a time. False when it is none, or cannot be read.
bool parseXmlFile(const std::filesystem::path& file, XmlHandler& handler);

/// A node of a document.
using XmlNode = pugi::xml_node;

/// Drives a handler with everything below a node.
void walkXml(XmlNode node, XmlHandler& handler);

/// Appends what it receives to a text. White space is only what it receives as text.
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
    bool tagIsOpen_ = false; ///< whether an opening tag still lacks its end
};

/// Appends what it receives to a node.
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

/// The line that a written document opens with.
inline constexpr std::string_view kXmlDeclaration = R"(<?xml version="1.0" encoding="UTF-8"?>)"
                                                    "\n";

/// An XML document as a tree, built node by node or parsed from a text.
class XmlDocument {
public:
    /// Parses a text as `parseXml` does and keeps all white space, but no declaration and no
    /// document type. Throws `XmlException`, with the document unchanged.
    void LoadXml(std::string_view text);

    /// The document as the node to which the first nodes are appended.
    XmlNode node() { return document_.root(); }

    XmlNode node() const { return document_.root(); }

    /// The root element; a null node in an empty document.
    XmlNode DocumentElement() const { return document_.document_element(); }

    /// The declaration line and the nodes, without any layout of its own.
    std::string ToString() const;

private:
    pugi::xml_document document_;
};

/// The text with everything replaced that no XML document can hold: bytes that are not UTF-8 by
/// what they are in Windows-1252, control characters and their like by U+FFFD. That is `text`
/// itself when nothing has to be replaced, else a view of `storage`.
std::string_view xmlCharacters(std::string_view text, std::string& storage);

} // namespace skyvert
