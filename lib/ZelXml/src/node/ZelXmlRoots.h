#pragma once

#include <cstddef>
#include <unordered_map>
#include <vector>

#include "zel/ZelNode.h"

// The roots of a wrapper in root order. It owns no node; each stands in it at most once. Membership and
// removal take constant time: a removed root leaves a gap, and gaps are closed when they outnumber the rest.
class ZelXmlRoots {
 public:
  bool contains(const ZelNode* node) const { return places_.count(node) != 0; }
  std::size_t entries() const { return places_.size(); }
  // Does nothing for a root.
  void append(ZelNode* node);
  // False for a node that is no root.
  bool remove(const ZelNode* node);
  void clear();
  // Replaces all roots; null entries and repeats are passed over.
  void assign(const std::vector<ZelNode*>& roots);
  std::vector<ZelNode*> list() const;

 private:
  std::vector<ZelNode*> roots_;  // null where a root was removed
  std::unordered_map<const ZelNode*, std::size_t> places_;
};
