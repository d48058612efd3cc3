#pragma once

#include <string>
#include <string_view>

#include "dom/IXMLDOMNode.h"

// A node that is only looked at: a plain pointer. Nothing is counted, so a step costs the same at every depth
// and every size, where the first handle to a node climbs to the root. For walks over whole documents that
// change nothing.
//
// A view is good while a handle keeps the tree alive and nothing in the tree changes; asking a handle for
// `childNodes` is a change in this sense. A null view may be asked anything, as a null handle may.
class DomView {
 public:
  DomView() noexcept = default;
  DomView(const IXMLDOMNode& node) noexcept  // NOLINT(google-explicit-constructor)
      : node_(static_cast<const dom::Node*>(node.identity())) {}

  explicit operator bool() const noexcept { return node_ != nullptr; }
  friend bool operator==(DomView a, DomView b) noexcept { return a.node_ == b.node_; }

  // As of a handle.
  int nodeType() const noexcept;
  std::string_view nodeName() const noexcept;
  std::string text() const;
  std::string_view textView(std::string& buffer) const;
  bool getAttribute(std::string_view name, std::string_view& value) const noexcept;
  unsigned line() const noexcept;
  bool isEqualNode(DomView other) const noexcept;

  // Children and siblings of all kinds, or elements alone. A text that an element holds alone is no child
  // here: it is the text of an element without children.
  DomView firstChild() const noexcept;
  DomView nextSibling() const noexcept;
  DomView firstElementChild() const noexcept;
  DomView nextElementSibling() const noexcept;
  // Attributes are siblings of each other.
  DomView firstAttribute() const noexcept;

 private:
  explicit DomView(const dom::Node* node) noexcept : node_(node) {}

  const dom::Node* node_ = nullptr;
};
