#include "DomIndex.h"

#include <algorithm>
#include <functional>

#include "DomNames.h"
#include "DomTree.h"

namespace dom {

namespace {

// A document that is searched by more names than this forgets the oldest.
constexpr std::size_t mostIndexes = 32;

std::uint64_t hashOf(std::string_view text) noexcept { return std::hash<std::string_view>{}(text); }

}  // namespace

HashIndex::HashIndex(HashIndex&& other) noexcept
    : places_(std::move(other.places_)), used_(other.used_), kept_(other.kept_) {
  other.places_.clear();
}

HashIndex::~HashIndex() {
  for (const Place& place : places_) {
    if ((place.what & 1) != 0) delete reinterpret_cast<Group*>(place.what - 1);
  }
}

HashIndex::Place* HashIndex::find(std::uint64_t hash) noexcept {
  if (places_.empty()) return nullptr;
  const std::size_t mask = places_.size() - 1;
  for (std::size_t at = hash & mask;; at = (at + 1) & mask) {
    Place& place = places_[at];
    if (place.what == 0) return nullptr;
    if (place.what != freed && place.hash == hash) return &place;
  }
}

void HashIndex::grow() {
  std::size_t size = 64;
  while (size < kept_ * 3) size *= 2;
  std::vector<Place> old(size);
  old.swap(places_);
  used_ = kept_;
  for (const Place& place : old) {
    if (place.what == 0 || place.what == freed) continue;
    std::size_t at = place.hash & (size - 1);
    while (places_[at].what != 0) at = (at + 1) & (size - 1);
    places_[at] = place;
  }
}

void HashIndex::add(std::uint64_t hash, Node* node, bool inOrder) {
  if (Place* const place = find(hash)) {
    if ((place->what & 1) == 0) {
      auto* const group = new Group{{reinterpret_cast<Node*>(place->what)}, 1};
      place->what = reinterpret_cast<std::uintptr_t>(group) + 1;
    }
    Group& group = *reinterpret_cast<Group*>(place->what - 1);
    group.nodes.push_back(node);
    if (inOrder) group.ordered = group.nodes.size();
    return;
  }
  if ((used_ + 1) * 4 > places_.size() * 3) grow();
  const std::size_t mask = places_.size() - 1;
  std::size_t at = hash & mask;
  while (places_[at].what != 0) at = (at + 1) & mask;
  places_[at] = {hash, reinterpret_cast<std::uintptr_t>(node)};
  ++used_;
  ++kept_;
}

void HashIndex::remove(std::uint64_t hash, Node* node) noexcept {
  Place* const place = find(hash);
  if (place == nullptr) return;
  if ((place->what & 1) == 0) {
    if (place->what != reinterpret_cast<std::uintptr_t>(node)) return;
    place->what = freed;
    --kept_;
    return;
  }
  Group* const group = reinterpret_cast<Group*>(place->what - 1);
  const auto at = std::find(group->nodes.begin(), group->nodes.end(), node);
  if (at == group->nodes.end()) return;
  if (static_cast<std::size_t>(at - group->nodes.begin()) < group->ordered) --group->ordered;
  group->nodes.erase(at);
  if (group->nodes.size() > 1) return;
  place->what = reinterpret_cast<std::uintptr_t>(group->nodes.front());
  delete group;
}

template <class OrderedBy, class Visit>
void HashIndex::each(std::uint64_t hash, OrderedBy orderedBy, Visit visit) {
  const Place* const place = find(hash);
  if (place == nullptr) return;
  if ((place->what & 1) == 0) {
    visit(reinterpret_cast<Node*>(place->what));
    return;
  }
  Group& group = *reinterpret_cast<Group*>(place->what - 1);
  if (group.ordered < group.nodes.size()) {
    const auto less = [&](const Node* a, const Node* b) {
      const Node* const left = orderedBy(a);
      const Node* const right = orderedBy(b);
      return left != right && before(left, right);
    };
    const auto middle = group.nodes.begin() + static_cast<std::ptrdiff_t>(group.ordered);
    std::sort(middle, group.nodes.end(), less);
    std::inplace_merge(group.nodes.begin(), middle, group.nodes.end(), less);
    group.ordered = group.nodes.size();
  }
  for (Node* const node : group.nodes) {
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
    const auto owner = [](const Node* node) { return node->parent; };
    values.each(hashOf(value), owner, [&](Node* node) {
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
