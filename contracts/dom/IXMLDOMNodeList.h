#pragma once

#include <vector>

#include "dom/IXMLDOMNode.h"

// A snapshot of nodes: what is moved or removed during a walk stays in the list. `length` and `item` take
// constant time.
class IXMLDOMNodeList {
 public:
  long length() const noexcept { return static_cast<long>(nodes_.size()); }
  // Null handle outside 0 .. length - 1.
  IXMLDOMNode item(long index) const {
    return index >= 0 && index < length() ? nodes_[static_cast<std::size_t>(index)] : IXMLDOMNode();
  }
  auto begin() const noexcept { return nodes_.begin(); }
  auto end() const noexcept { return nodes_.end(); }

  void clear() noexcept { nodes_.clear(); }
  void append(IXMLDOMNode node) { nodes_.push_back(std::move(node)); }

 private:
  std::vector<IXMLDOMNode> nodes_;
};
