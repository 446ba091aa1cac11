#pragma once

#include <pugixml.hpp>

#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

namespace skyvert {

/// A text that is no well-formed XML document, or one that is nested too deep.
class XmlException : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A node of a document. In a parsed document the text that an element opens with is the element's
/// own value, which saves a node for almost every element; what follows it are children.
using XmlNode = pugi::xml_node;

/// How many elements may stand inside each other. Deeper documents count as malformed, so that
/// walking a document level by level by recursion is safe.
inline constexpr int kMaxXmlDepth = 250;

/// An XML document, to be built node by node or parsed from a text.
class XmlDocument {
public:
    /// Parses a text; all white space is kept. The text is UTF-8, with or without a byte order
    /// mark, UTF-16 or UTF-32, or ISO-8859-1 if its declaration says so. A document type is
    /// accepted, never fetched and never evaluated: besides references to characters, only the
    /// five entities of XML itself are known. Throws `XmlException`, with the document unchanged.
    void LoadXml(std::string text);

    /// The document as the node to which the first nodes are appended.
    XmlNode node() { return document_.root(); }

    /// The root element; a null node in an empty document.
    XmlNode DocumentElement() const { return document_.document_element(); }

    /// The declaration line, `prolog`, and the nodes, without any layout of its own.
    std::string ToString(std::string_view prolog = {}) const;

private:
    std::unique_ptr<std::string> text_; ///< what `document_` was parsed from and points into
    pugi::xml_document document_;
};

/// Appends an element, empty or with a text.
XmlNode appendElement(XmlNode parent, const char* name);
XmlNode appendElement(XmlNode parent, const char* name, std::string_view text);

/// Appends a text node.
XmlNode appendText(XmlNode parent, std::string_view text);

/// Puts a text node directly before a node.
void insertTextBefore(XmlNode node, std::string_view text);

/// Adds the serialised form of a node and what is below it to a text.
void appendSerialised(XmlNode node, std::string& out);

/// The text with everything replaced that no XML document can hold: bytes that are no UTF-8 by
/// what they are in Windows-1252, control characters and their like by U+FFFD. That is `text`
/// itself when nothing has to be replaced, else a view of `storage`.
std::string_view xmlCharacters(std::string_view text, std::string& storage);

} // namespace skyvert
