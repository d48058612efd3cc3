#include "zelstudy/TreeWalk.h"

#include <unordered_set>
#include <utility>

#include "zel/ZelCollection.h"
#include "zelstudy/NodeJson.h"

namespace zelstudy {

namespace {

// The nodes of one level under one parent, and how far the walk is among them.
struct Siblings {
  ZelNodeList nodes;
  std::size_t next = 0;
  ApiPmId parent;
  TreePlace parentPlace{};
};

}  // namespace

void walkTree(const ZelNodeList& roots, std::size_t levels, TreeVisitor& visitor) {
  std::unordered_set<ApiPmId> onPath;
  std::vector<Siblings> open;
  open.push_back({roots, 0, {}, {}});
  while (true) {
    Siblings& siblings = open.back();
    const std::size_t level = open.size() - 1;
    if (siblings.next == siblings.nodes.entries()) {
      if (level == 0) return;
      onPath.erase(siblings.parent);
      const TreePlace place = siblings.parentPlace;
      open.pop_back();
      visitor.leave(place);
      continue;
    }
    const ZelNode* node = siblings.nodes[siblings.next++];
    const ApiPmId id = idOf(*node);
    const TreePlace place{level, siblings.next == 1, siblings.next == siblings.nodes.entries(),
                          onPath.contains(id)};
    visitor.enter(*node, place);
    ZelNodeList children;
    const auto* collection = zelQuery<ZelCollection>(node);
    if (collection && !place.repeated && level + 1 != levels) collection->getChildren(children);
    if (children.isEmpty()) {
      visitor.leave(place);
    } else {
      onPath.insert(id);
      open.push_back({std::move(children), 0, id, place});
    }
  }
}

}  // namespace zelstudy
