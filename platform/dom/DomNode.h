#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>

#include "api/ApiSysFileState.h"
#include "dom/IXMLDOMDocument.h"

namespace dom {

using NameId = std::uint32_t;
struct DocumentNode;
class Indexes;

// One node of a tree: 56 bytes, an element 64. What holds at all times:
//
// 1. A node without a parent is a document or a detached root. A detached root has no siblings; the room of
//    its sibling links names the document that owns it and counts the nodes of its tree that handles hold.
// 2. Children are linked from `first()`: the `prev` of the first child is the last child, the `next` of the
//    last is null. Attributes are linked in the same way from ElementNode::attributes, with the element as
//    parent.
// 3. An element has either children or a text of its own, `length` > 0, never both. Its own text stands for
//    one text node that nobody has asked for yet.
// 4. A text of at most inlineText bytes stands in `slot`, a longer one in the pool with its address in
// `slot`.
// 5. An element whose short text somebody has asked for as a node is `shown`: it goes on to hold its text
// where
//    views of it point, and the text node, which has the same text, stands in a table beside the tree
//    (`show`). Before either changes the element is made one with a child.
struct Node {
  static constexpr std::uint32_t inlineText = 12;

  std::uint32_t refs = 0;  // handles to this node
  NameId name = 0;
  std::uint32_t type : 8;
  std::uint32_t known : 1;  // Lists knows something of the children
  std::uint32_t shown : 1;  // the own text is a text node too: rule 5
  std::uint32_t stampUpper : 22;
  std::uint32_t length = 0;  // bytes of the text
  Node* parent = nullptr;
  union {
    Node* prev;
    DocumentNode* owner;  // detached root
  };
  union {
    Node* next;
    std::size_t treeRefs;  // detached root: nodes of the tree with handles
  };
  alignas(8) unsigned char slot[inlineText];  // text, or first child (8 bytes) and line (4 bytes)
  std::uint32_t stampLower = 0;

  Node(int nodeType, NameId nodeName) noexcept
      : name(nodeName), type(static_cast<std::uint8_t>(nodeType)), known(0), shown(0), stampUpper(0) {
    prev = nullptr;
    next = nullptr;
    std::memset(slot, 0, sizeof slot);
  }

  // 54 bits: a change each nanosecond would take half a year to use them up.
  std::uint64_t stamp() const noexcept { return std::uint64_t{stampUpper} << 32 | stampLower; }
  void setStamp(std::uint64_t value) noexcept {
    stampUpper = static_cast<std::uint32_t>(value >> 32) & 0x3fffff;
    stampLower = static_cast<std::uint32_t>(value);
  }

  bool isElement() const noexcept { return type == NODE_ELEMENT; }
  bool takesChildren() const noexcept { return type == NODE_ELEMENT || type == NODE_DOCUMENT; }
  bool isText() const noexcept { return type == NODE_TEXT || type == NODE_CDATA_SECTION; }

  // For nodes that take children.
  Node* first() const noexcept {
    if (length != 0) return nullptr;
    Node* child;
    std::memcpy(&child, slot, sizeof child);
    return child;
  }
  void setFirst(Node* child) noexcept { std::memcpy(slot, &child, sizeof child); }
  std::uint32_t line() const noexcept {
    if (!isElement() || length != 0) return 0;
    std::uint32_t value;
    std::memcpy(&value, slot + sizeof(Node*), sizeof value);
    return value;
  }
  void setLine(std::uint32_t value) noexcept { std::memcpy(slot + sizeof(Node*), &value, sizeof value); }

  std::string_view ownText() const noexcept {
    if (length <= inlineText) return {reinterpret_cast<const char*>(slot), length};
    const char* text;
    std::memcpy(&text, slot, sizeof text);
    return {text, length};
  }

  // The way between handles and nodes.
  static Node* of(const IXMLDOMNode& handle) noexcept { return handle.node_; }
  static IXMLDOMNode handle(Node* node) noexcept { return IXMLDOMNode(node); }
};
static_assert(sizeof(Node) == 56);

struct ElementNode : Node {
  Node* attributes = nullptr;

  explicit ElementNode(NameId elementName) noexcept : Node(NODE_ELEMENT, elementName) {}
};
static_assert(sizeof(ElementNode) == 64);

struct DocumentNode : Node {
  std::size_t heldNodes = 0;      // nodes of the document's own tree with handles
  std::size_t detachedTrees = 0;  // trees that name this document as their owner
  bool preserveWhiteSpace = true;
  bool endsWithNewline = false;
  std::unique_ptr<Indexes> indexes;
  ApiSysFileStates files;  // that it was read from and saved to

  DocumentNode() noexcept;
  ~DocumentNode();
};

inline ElementNode* asElement(Node* node) noexcept { return static_cast<ElementNode*>(node); }
inline const ElementNode* asElement(const Node* node) noexcept {
  return static_cast<const ElementNode*>(node);
}
inline DocumentNode* asDocument(Node* node) noexcept { return static_cast<DocumentNode*>(node); }

}  // namespace dom
