#pragma once

#include "dom/IXMLDOMNode.h"

// A handle to an element: null when made from any other node.
class IXMLDOMElement : public IXMLDOMNode {
 public:
  IXMLDOMElement() noexcept = default;
  IXMLDOMElement(const IXMLDOMNode& node) noexcept  // NOLINT(google-explicit-constructor)
      : IXMLDOMNode(node.nodeType() == NODE_ELEMENT ? node : IXMLDOMNode()) {}
  IXMLDOMElement(IXMLDOMNode&& node) noexcept  // NOLINT(google-explicit-constructor)
      : IXMLDOMNode(node.nodeType() == NODE_ELEMENT ? std::move(node) : IXMLDOMNode()) {}

  std::string_view tagName() const noexcept { return nodeName(); }
};

template <>
struct std::hash<IXMLDOMElement> : std::hash<IXMLDOMNode> {};
