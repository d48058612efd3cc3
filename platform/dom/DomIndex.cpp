#include "DomIndex.h"

#include <algorithm>
#include <functional>
#include <set>

#include "DomNames.h"
#include "DomTree.h"
#include "rw/RWTextHash.h"

namespace dom {

namespace {

// A document that is searched by more names than this forgets the oldest.
constexpr std::size_t mostIndexes = 32;

std::uint64_t hashOf(std::string_view text) { return RWTextHash{}(text); }

}  // namespace

// Of the elements that own the nodes; the nodes of one element in any order.
bool HashIndex::InOrder::operator()(const Node* a, const Node* b) const {
  if (a->parent == b->parent) return std::less<const Node*>{}(a, b);
  return before(a->parent, b->parent);
}

// Most groups are small, or a whole index's making has put them in order and nothing changes them: a run of
// nodes does. A large one that changes becomes a tree, so that no change costs by the size of the group.
struct HashIndex::Group {
  static constexpr std::size_t shortRun = 64;

  std::vector<Node*> run;
  std::set<Node*, InOrder> tree;
  std::vector<Node*> fresh;  // came since the last look

  // Puts in order what came.
  void settle() {
    if (fresh.empty()) return;
    if (!tree.empty() || run.size() + fresh.size() > shortRun) {
      makeTree();
      for (Node* const node : fresh) tree.insert(tree.end(), node);
    } else {
      for (Node* const node : fresh)
        run.insert(std::upper_bound(run.begin(), run.end(), node, InOrder()), node);
    }
    fresh.clear();
  }
  void makeTree() {
    for (Node* const node : run) tree.insert(tree.end(), node);
    run.clear();
  }
  void remove(Node* node) {
    settle();
    if (run.size() > shortRun) makeTree();
    if (!tree.empty()) {
      tree.erase(node);
    } else {
      std::erase(run, node);
    }
  }
  std::size_t size() const noexcept { return run.size() + tree.size() + fresh.size(); }
  Node* any() const { return !run.empty() ? run.front() : !tree.empty() ? *tree.begin() : fresh.front(); }
};

namespace {

// What stands in a slot: one node, or a group with its lowest bit set.
constexpr std::uintptr_t groupBit = 1;

}  // namespace

HashIndex::~HashIndex() {
  places_.each([](std::uintptr_t what) {
    if ((what & groupBit) != 0) delete groupOf(what);
  });
}

HashIndex::Group* HashIndex::groupOf(std::uintptr_t what) noexcept {
  return reinterpret_cast<Group*>(what - groupBit);
}

void HashIndex::add(std::uint64_t hash, Node* node, bool inOrder) {
  auto* const place = places_.find(hash);
  if (place == nullptr) {
    places_.add(hash, reinterpret_cast<std::uintptr_t>(node));
    return;
  }
  if ((place->value & groupBit) == 0) {
    auto* const made = new Group;
    made->run.push_back(reinterpret_cast<Node*>(place->value));
    place->value = reinterpret_cast<std::uintptr_t>(made) + groupBit;
  }
  Group& group = *groupOf(place->value);
  (inOrder ? group.run : group.fresh).push_back(node);
}

void HashIndex::remove(std::uint64_t hash, Node* node) {
  auto* const place = places_.find(hash);
  if (place == nullptr) return;
  if ((place->value & groupBit) == 0) {
    if (place->value == reinterpret_cast<std::uintptr_t>(node)) places_.remove(place);
    return;
  }
  Group* const group = groupOf(place->value);
  group->remove(node);
  if (group->size() > 1) return;
  place->value = reinterpret_cast<std::uintptr_t>(group->any());
  delete group;
}

template <class Visit>
void HashIndex::each(std::uint64_t hash, Visit visit) {
  const auto* const place = places_.find(hash);
  if (place == nullptr) return;
  if ((place->value & groupBit) == 0) {
    visit(reinterpret_cast<Node*>(place->value));
    return;
  }
  Group& group = *groupOf(place->value);
  group.settle();
  for (Node* const node : group.run) {
    if (visit(node)) return;
  }
  for (Node* const node : group.tree) {
    if (visit(node)) return;
  }
}

// The index of one name. Attribute nodes and child elements are kept, not the elements that own them. A child
// element with elements below it has a text that any change far below changes: such children are not kept by
// text but in a set, and each search looks at them one by one. Ids, families and references have none below.
struct Indexes::ByName {
  bool attributes;
  NameId name;
  HashIndex values;
  std::unordered_set<Node*> composed;

  void enter(Node* node, bool inOrder) {
    if (!attributes && firstElement(node) != nullptr) {
      composed.insert(node);
      return;
    }
    std::string buffer;
    values.add(hashOf(textOf(node, buffer)), node, inOrder);
  }
  void leave(Node* node) {
    if (!attributes && firstElement(node) != nullptr) {
      composed.erase(node);
      return;
    }
    std::string buffer;
    values.remove(hashOf(textOf(node, buffer)), node);
  }
  void search(std::string_view value, bool all, std::vector<Node*>& found) {
    found.clear();
    values.each(hashOf(value), [&](Node* node) {
      if (!textEquals(node, value)) return false;
      if (found.empty() || found.back() != node->parent) found.push_back(node->parent);
      return !all;
    });
    if (composed.empty()) return;
    const std::size_t simple = found.size();
    for (Node* const node : composed) {
      if (textEquals(node, value)) found.push_back(node->parent);
    }
    if (found.size() == simple) return;
    std::sort(found.begin(), found.end(), [](Node* a, Node* b) { return a != b && before(a, b); });
    found.erase(std::unique(found.begin(), found.end()), found.end());
    if (!all) found.resize(1);
  }
};

Indexes::Indexes() = default;
Indexes::~Indexes() = default;

Indexes::ByName* Indexes::find(bool attributes, NameId name) noexcept {
  for (ByName& index : indexes_) {
    if (index.name == name && index.attributes == attributes) return &index;
  }
  return nullptr;
}

Indexes::ByName& Indexes::make(bool attributes, NameId name) {
  if (indexes_.size() == mostIndexes) {
    std::vector<ByName> kept;
    for (std::size_t i = 1; i < indexes_.size(); ++i) kept.push_back(std::move(indexes_[i]));
    indexes_.swap(kept);
  }
  ++work.indexesMade;
  return indexes_.emplace_back(ByName{attributes, name, {}, {}});
}

void Indexes::byAttribute(DocumentNode* document, NameId name, std::string_view value, bool all,
                          std::vector<Node*>& found) {
  ByName* index = find(true, name);
  if (index == nullptr) {
    index = &make(true, name);
    for (Node* node = document; node != nullptr; node = following(node, document)) {
      ++work.nodesVisited;
      if (Node* const attribute = findAttribute(node, name)) index->enter(attribute, true);
    }
  }
  index->search(value, all, found);
}

void Indexes::byChildText(DocumentNode* document, NameId name, std::string_view value, bool all,
                          std::vector<Node*>& found) {
  ByName* index = find(false, name);
  if (index == nullptr) {
    index = &make(false, name);
    // By parents, since it is their order that counts. The document is the parent of an element but none
    // itself.
    for (Node* node = document; node != nullptr; node = following(node, document)) {
      if (!node->isElement()) continue;
      for (Node* child = firstElement(node); child != nullptr; child = nextElement(child)) {
        ++work.nodesVisited;
        if (child->name == name) index->enter(child, true);
      }
    }
  }
  index->search(value, all, found);
}

void Indexes::leaveAttribute(Node* attribute) {
  if (ByName* const index = find(true, attribute->name)) index->leave(attribute);
}

void Indexes::enterAttribute(Node* attribute) {
  if (ByName* const index = find(true, attribute->name)) index->enter(attribute, false);
}

void Indexes::leaveContent(Node* element) {
  if (!element->isElement() || element->parent->type == NODE_DOCUMENT) return;
  if (ByName* const index = find(false, element->name)) index->leave(element);
}

void Indexes::enterContent(Node* element) {
  if (!element->isElement() || element->parent->type == NODE_DOCUMENT) return;
  if (ByName* const index = find(false, element->name)) index->enter(element, false);
}

void Indexes::leaveTree(Node* top) {
  for (Node* node = top; node != nullptr; node = following(node, top)) {
    if (!node->isElement()) continue;
    leaveContent(node);
    for (Node* a = firstAttribute(node); a != nullptr; a = a->next) leaveAttribute(a);
  }
}

void Indexes::enterTree(Node* top) {
  for (Node* node = top; node != nullptr; node = following(node, top)) {
    if (!node->isElement()) continue;
    enterContent(node);
    for (Node* a = firstAttribute(node); a != nullptr; a = a->next) enterAttribute(a);
  }
}

void findByValue(DocumentNode* document, bool attribute, std::string_view name, std::string_view value,
                 bool all, std::vector<Node*>& found) {
  found.clear();
  const NameId id = findName(name);
  if (id == anyName) return;
  if (document->indexes == nullptr) document->indexes = std::make_unique<Indexes>();
  if (attribute) {
    document->indexes->byAttribute(document, id, value, all, found);
  } else {
    document->indexes->byChildText(document, id, value, all, found);
  }
}

}  // namespace dom
