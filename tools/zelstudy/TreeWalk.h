#pragma once

#include <cstddef>
#include <vector>

#include "zel/ZelNode.h"

namespace zelstudy {

// Where a node stands in a walk.
struct TreePlace {
  std::size_t level;  // 0 for the nodes that the walk started from
  bool first;         // among its siblings
  bool last;
  bool repeated;  // stands under itself: its children are not walked again
};

class TreeVisitor {
 public:
  virtual ~TreeVisitor() = default;
  virtual void enter(const ZelNode& node, const TreePlace& place) = 0;
  // Called for every node, after all below it.
  virtual void leave(const TreePlace& place) = 0;
};

// Walks the trees of `roots` in order by the children of collections, `levels` deep at most; 0 for all
// levels. A node that stands under itself is visited there once more, without its children, so a walk always
// ends. The depth of a tree costs memory, not stack.
void walkTree(const ZelNodeList& roots, std::size_t levels, TreeVisitor& visitor);

}  // namespace zelstudy
