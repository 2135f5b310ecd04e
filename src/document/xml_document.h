#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "document/xml_journal.h"

namespace rulemesh {

class XmlDocument;

namespace xml {
class Store;
}

/// What becomes of a carriage return in front of a line feed when a written text goes back to the host: it is written
/// as the line end of the loaded text, or kept as a character reference so that it survives the next load.
enum class CarriageReturns { AsLineEnds, Kept };

/// A reference to a node of an XmlDocument: an element, or (only as the first node of a document) a declaration,
/// comment or processing instruction. A light value; the null handle is an ordinary answer, tested with `if (node)`.
///
/// Children are child elements: white space, comments and processing instructions among them stay where they stand
/// and never count. Every member raises ObjectVariableNotSet when it is called on the null handle, when a handle that
/// it is given is null, and when it would change the children of a node that isn't an element.
/// A handle stays valid until its node is removed or the document is loaded anew.
class XmlNode {
public:
    XmlNode() = default;

    [[nodiscard]] explicit operator bool() const noexcept { return document_ != nullptr; }
    friend bool operator==(const XmlNode&, const XmlNode&) = default;

    /// The element's name, with its prefix if it has one.
    [[nodiscard]] Text baseName() const;

    /// The text of the node and of everything below it, comments and instructions left out, references and line ends
    /// decoded, with blanks, tabs, carriage returns and line feeds trimmed from both ends.
    [[nodiscard]] Text text() const;

    /// Replaces all content by one text. A character that XML can't hold becomes U+FFFD.
    void text(TextView value, CarriageReturns returns = CarriageReturns::AsLineEnds) const;

    /// The value of an attribute, decoded; nothing when the element has none of that name.
    [[nodiscard]] std::optional<Text> getNamedItem(TextView name) const;

    /// The values of several attributes, named in UTF-8, in one look at the element; "" for one that is absent.
    [[nodiscard]] std::vector<Text> getNamedItems(std::span<const std::string_view> names) const;

    /// Replaces the value of an attribute, or adds the attribute behind the others.
    void setNamedItem(TextView name, TextView value) const;

    [[nodiscard]] bool hasChildNodes() const;
    [[nodiscard]] XmlNode firstChild() const;
    [[nodiscard]] XmlNode nextSibling() const;
    [[nodiscard]] std::vector<XmlNode> childNodes() const;

    /// The first element that the path names, from this node on; a path that begins with "/" starts at the document.
    /// Null when nothing matches. Raises InvalidProcedureCall for a malformed path.
    [[nodiscard]] XmlNode selectSingleNode(TextView path) const;

    /// Appends an element made by createNode, cloneNode or taken out of the tree, and returns it.
    XmlNode appendChild(XmlNode child) const;

    /// Takes a child element out, and returns it. Raises InvalidProcedureCall when it is no child of this node.
    XmlNode removeChild(XmlNode child) const;

    /// Puts an unattached element in the place of a child element.
    void replaceChild(XmlNode newChild, XmlNode oldChild) const;

    /// Removes all content: child elements, and white space and comments with or without them.
    void removeChildren() const;

    /// An unattached copy of the element with everything below it.
    [[nodiscard]] XmlNode cloneNode() const;

private:
    friend class XmlDocument;
    XmlNode(const XmlDocument* document, std::uint32_t index) noexcept;

    /// What a node is called on; raises ObjectVariableNotSet for the null handle and, in the second, for what is no
    /// element.
    [[nodiscard]] xml::Store& StoreOf() const;
    [[nodiscard]] xml::Store& ElementStore() const;

    /// Makes sure that an element of this document can become a child here.
    void RequireOwnElement(XmlNode child) const;
    void RequireChild(XmlNode child) const;

    const XmlDocument* document_ = nullptr;
    std::uint32_t index_ = 0;
    std::uint32_t load_ = 0; // of the document when the handle was made: it names nothing behind another one
};

/// The one store of a mapping object: an XML text that was checked whole and is kept as it came.
///
/// A path is "/" followed by element names joined by "/". A step that is empty or holds one of `( ) [ ] ' " @ = , | *`
/// makes it malformed. Names and key values compare exactly.
///
/// Every member, of the document and of its nodes, may raise std::bad_alloc; the document is then as it was before the
/// call.
class XmlDocument {
public:
    XmlDocument();
    ~XmlDocument();
    XmlDocument(const XmlDocument&) = delete;
    XmlDocument& operator=(const XmlDocument&) = delete;

    /// Replaces the whole content by a text, UTF-16 or UTF-8. False, and an empty document, when it is not well-formed
    /// XML 1.0 (Fifth Edition, namespaces as plain names) or has a document type declaration.
    bool loadXML(TextView text);
    bool loadXML(std::string utf8);

    /// The whole document as text; what was not touched comes back byte for byte.
    [[nodiscard]] Text xml() const;
    [[nodiscard]] std::string xmlUtf8() const;

    /// The root element; null in an empty document.
    [[nodiscard]] XmlNode documentElement() const;

    /// The first node of the document, which may be a declaration, comment or instruction before the root.
    [[nodiscard]] XmlNode firstChild() const;

    /// The first element in document order that the path names, or null. Raises InvalidProcedureCall for a malformed
    /// path.
    [[nodiscard]] XmlNode selectSingleNode(TextView path) const;

    /// The same among elements whose attribute `keyName` has exactly the value `keyValue`. A key value that holds an
    /// apostrophe makes the path malformed.
    [[nodiscard]] XmlNode selectSingleNode(TextView path, TextView keyName, TextView keyValue) const;

    /// All elements that the path names, in document order. Raises InvalidProcedureCall for a malformed path.
    [[nodiscard]] std::vector<XmlNode> selectNodes(TextView path) const;

    /// All elements of the name, anywhere in the document, in document order.
    [[nodiscard]] std::vector<XmlNode> getElementsByTagName(TextView name) const;

    /// A new element without attributes and content, not attached yet. Raises InvalidProcedureCall when the name is no
    /// XML name.
    [[nodiscard]] XmlNode createNode(TextView name);

    /// From now on, whatever is loaded, edits can be taken back.
    void KeepEdits();

    /// The edits since the last call, or since the last load.
    [[nodiscard]] DocumentEdits TakeEdits();

    /// Takes back the edits that were made last; every byte of the text is then as it was before them. Done again they
    /// are what they were. Nothing may have been loaded since they were made.
    void TakeBack(DocumentEdits& edits) noexcept;
    void DoAgain(DocumentEdits& edits) noexcept;

    /// Whether the text differs from what it was before these edits, which were made last.
    [[nodiscard]] bool ChangeText(DocumentEdits& edits);

private:
    friend class XmlNode;
    bool Load(std::string utf8);
    [[nodiscard]] std::vector<XmlNode> Nodes(const std::vector<std::uint32_t>& indexes) const;

    std::unique_ptr<xml::Store> store_;
    std::uint32_t load_ = 0; // counts the loads
    bool keepsEdits_ = false;
};

} // namespace rulemesh
