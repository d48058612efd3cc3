#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "dom/IXMLDOMName.h"

class IXMLDOMDocument;
class IXMLDOMElement;
class IXMLDOMNodeList;

namespace dom {
struct Node;
}

enum DOMNodeType : int {
  NODE_INVALID = 0,  // the null handle
  NODE_ELEMENT = 1,
  NODE_ATTRIBUTE = 2,
  NODE_TEXT = 3,
  NODE_CDATA_SECTION = 4,
  NODE_PROCESSING_INSTRUCTION = 7,
  NODE_COMMENT = 8,
  NODE_DOCUMENT = 9,
};

// A counted handle to one node of a document tree, one pointer in size. Handles compare by identity of the
// node. A node lives while it stands in a living document, or while a handle holds it or any node of its
// detached tree; a document lives while a handle to it, to a node in it, or to a detached node that it owns
// exists. So no handle ever dangles.
//
// A null handle may be asked anything: it answers NODE_INVALID, empty text, a null handle or false. Every
// operation that answers false has changed nothing.
//
// All documents of the process, their nodes and handles belong to one thread at a time: counts and the name
// table are not locked.
class IXMLDOMNode {
 public:
  IXMLDOMNode() noexcept = default;
  IXMLDOMNode(const IXMLDOMNode& other) noexcept : node_(other.node_) { acquire(node_); }
  IXMLDOMNode(IXMLDOMNode&& other) noexcept : node_(std::exchange(other.node_, nullptr)) {}
  IXMLDOMNode& operator=(const IXMLDOMNode& other) noexcept;
  IXMLDOMNode& operator=(IXMLDOMNode&& other) noexcept;
  ~IXMLDOMNode() { release(node_); }

  explicit operator bool() const noexcept { return node_ != nullptr; }
  friend bool operator==(const IXMLDOMNode& a, const IXMLDOMNode& b) noexcept { return a.node_ == b.node_; }

  int nodeType() const noexcept;

  // Qualified name of an element or attribute as it was written, target of a processing instruction, else
  // "#text", "#cdata-section", "#comment", "#document". The view stays good for the life of the process.
  std::string_view nodeName() const noexcept;

  // Value of an attribute, text, CDATA section, comment or processing instruction; empty for the others.
  std::string nodeValue() const;
  // False for elements and documents, and for a value that would not be read again as it was written: text
  // that XML cannot hold, broken UTF-8, "--" in a comment or "-" at its end, "?>" or white space at the start
  // of a processing instruction, "]]>" in a CDATA section, a carriage return in one of these three. The XML
  // declaration takes what a declaration may say, with UTF-8 if it names an encoding; the empty value gives
  // version 1.0 and UTF-8.
  bool putNodeValue(std::string_view value) const;

  // Text of an element or document: the text and CDATA of all descendants, joined; of other nodes the value.
  std::string text() const;
  // The same without a copy where the node holds its text in one piece; otherwise `buffer` is filled. The
  // view is good until the node or `buffer` changes.
  std::string_view textView(std::string& buffer) const;
  // Replaces all children of an element by one text (none for the empty text). Removed children that a
  // handle holds live on, detached. False for a document, and for text that XML cannot hold.
  bool putText(std::string_view text) const;

  IXMLDOMNode parentNode() const;         // null for a document, a detached node, an attribute
  IXMLDOMDocument ownerDocument() const;  // the document itself for a document
  IXMLDOMElement firstElementChild() const;
  IXMLDOMElement nextElementSibling() const;
  // Snapshot of all children, text included.
  IXMLDOMNodeList childNodes() const;

  // Moves `child` to the end of this node's children, from wherever it stands, another document included; it
  // keeps its identity and all handles to it. False for a null child, a child that is an attribute or a
  // document, an ancestor of this node or this node itself, a parent that takes no children, a second element
  // or any text at document level, and a tree that would be more than maxDepth levels deep. The XML
  // declaration, a processing instruction "xml", may stand in a document only, once, and is put first there.
  bool appendChild(const IXMLDOMNode& child) const;
  // False unless `child` is a child of this node. The child lives on, detached, while a handle holds it.
  bool removeChild(const IXMLDOMNode& child) const;
  // A detached copy owned by the same document; without `deep` an element comes with its attributes only.
  // Null for a document.
  IXMLDOMNode cloneNode(bool deep) const;

  // The XPath subset: child steps by name or "*", a leading "/" (from the document), "//" (descendants, at
  // the start or between steps), and predicates in [] after a step: "@name", "path", each alone or compared
  // by = or != with a literal in either quote, and parenthesised terms joined by "and". Names are compared as
  // they are written, prefix included. A path compares true when any node it selects has that text, or for !=
  // another one; an attribute that is absent compares false. In a detached tree "/" stands above its topmost
  // node. A text outside the subset answers false.
  //
  // First match in document order; false when there is none.
  bool selectSingleNode(std::string_view xpath, IXMLDOMNode& found) const;
  // Whether a path selects anything.
  bool selects(std::string_view xpath) const;
  // Text of the first match, as textView gives it.
  bool selectText(std::string_view xpath, std::string& buffer, std::string_view& text) const;
  // Replaces `found` by all matches in document order, as they stand at the call; true also for none. `found`
  // may hold this very handle.
  bool selectNodes(std::string_view xpath, IXMLDOMNodeList& found) const;

  // Calls `visit` for each match in document order. No snapshot is taken: `visit` must not change the tree.
  // False for a text outside the subset.
  bool visitNodes(std::string_view xpath, const std::function<void(const IXMLDOMNode&)>& visit) const;

  // Text of the first child element of this name, as selectText.
  bool childText(const IXMLDOMName& name, std::string& buffer, std::string_view& text) const;
  // First child element of this name with exactly this text, and its place among the children of this name,
  // counted from 0; and the child at a place. False, with nothing changed, without one. In a long list they
  // answer from what is kept of it, which goes on through appends and removals.
  bool findChild(std::string_view name, std::string_view text, IXMLDOMNode& found, long& index) const;
  bool childAt(std::string_view name, long index, IXMLDOMNode& found) const;

  // Attribute node of an element, null when absent.
  IXMLDOMNode getNamedItem(std::string_view name) const;
  // Snapshot of the attribute nodes in their order.
  IXMLDOMNodeList attributes() const;
  // Value of an attribute without a copy; the view is good until the attribute changes. False when absent.
  bool getAttribute(std::string_view name, std::string_view& value) const;
  // Puts a detached attribute node on this element, in place of one of its name. False for a node that is
  // not an attribute or stands on another element, on anything but an element, and on one that has
  // maxAttributes others.
  bool setAttributeNode(const IXMLDOMNode& attribute) const;
  // False for a name or value that XML cannot hold, on anything but an element, and beyond maxAttributes.
  bool setAttribute(std::string_view name, std::string_view value) const;
  bool removeAttribute(std::string_view name) const;

  // Whether two nodes and all below them are alike: types, names, attributes in their order, texts. Then they
  // are written alike too; white space counts.
  bool isEqualNode(const IXMLDOMNode& other) const noexcept;
  // This node and all below it as XML text in UTF-8.
  std::string xml() const;
  // Line at which an element with child elements or none, read from text, began; 0 for all other nodes.
  unsigned line() const noexcept;
  // A number that changes with every change of this node or of anything below it. Two equal numbers of one
  // node mean an unchanged subtree.
  std::uint64_t changeStamp() const noexcept;
  // Address of the node, for hashing by identity.
  const void* identity() const noexcept { return node_; }

  // Most levels of elements that a document may have, in reading and in building.
  static constexpr int maxDepth = 1000;
  // Most attributes of an element. Names are compared with each other: what a tag costs to read grows with
  // the square of their number.
  static constexpr int maxAttributes = 256;

 protected:
  explicit IXMLDOMNode(dom::Node* node) noexcept : node_(node) { acquire(node_); }
  static void acquire(dom::Node* node) noexcept;
  static void release(dom::Node* node) noexcept;

  dom::Node* node_ = nullptr;

  friend struct dom::Node;
};

template <>
struct std::hash<IXMLDOMNode> {
  std::size_t operator()(const IXMLDOMNode& node) const noexcept {
    return std::hash<const void*>{}(node.identity());
  }
};
