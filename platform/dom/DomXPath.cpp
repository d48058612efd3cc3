#include "DomXPath.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <unordered_map>

#include "DomIndex.h"
#include "DomNames.h"
#include "DomTree.h"
#include "rw/RWTextHash.h"

namespace dom {

namespace {

bool isPlain(const Path& path) {
  if (path.absolute) return false;
  return std::all_of(path.steps.begin(), path.steps.end(), [](const Step& step) {
    return !step.descendant && step.name != anyName && step.terms.empty();
  });
}

// The first match of a plain path from its step `i` on: nearly all reads of fields are one of these.
Node* firstPlain(const Node* parent, const Path& path, std::size_t i) {
  const NameId name = path.steps[i].name;
  for (Node* child = firstElement(parent); child != nullptr; child = nextElement(child)) {
    ++work.nodesVisited;
    if (child->name != name) continue;
    if (i + 1 == path.steps.size()) return child;
    if (Node* const found = firstPlain(child, path, i + 1)) return found;
  }
  return nullptr;
}

// Paths compiled once. The callers' texts are mostly literals of the program, found again by address and
// length and then compared; the others by their content. The cache is dropped when it is full.
class Cache {
 public:
  const Path* get(std::string_view xpath) {
    const std::uint64_t key = reinterpret_cast<std::uintptr_t>(xpath.data()) + xpath.size();
    Short& near = shorts_[key * 0x9E3779B97F4A7C15u >> 57];
    const Entry* entry = near.entry;
    if (entry == nullptr || near.data != xpath.data() || entry->text != xpath) {
      entry = &entryOf(xpath);
      near = {xpath.data(), entry};
    }
    return entry->good ? &entry->path : nullptr;
  }

 private:
  static constexpr std::size_t most = 512;

  struct Entry {
    std::string text;
    bool good = false;
    Path path;
  };
  struct Short {
    const char* data = nullptr;
    const Entry* entry = nullptr;
  };

  const Entry& entryOf(std::string_view xpath) {
    const auto known = entries_.find(xpath);
    if (known != entries_.end()) return *known->second;
    if (entries_.size() == most) {
      shorts_.fill({});
      entries_.clear();
    }
    ++work.pathsCompiled;
    auto entry = std::make_unique<Entry>();
    entry->text = xpath;
    entry->good = parsePath(xpath, entry->path);
    entry->path.plain = isPlain(entry->path);
    const std::string_view text = entry->text;
    return *entries_.emplace(text, std::move(entry)).first->second;
  }

  std::unordered_map<std::string_view, std::unique_ptr<Entry>, RWTextHash> entries_;
  std::array<Short, 128> shorts_;  // by 7 bits
};

// Never destroyed, like the names.
Cache& cache() {
  static Cache* const instance = new Cache;
  return *instance;
}

// The active steps of each level of a walk: most walks are not deep.
class LevelStack {
 public:
  std::uint64_t& operator[](std::size_t level) {
    if (level < near_.size()) return near_[level];
    if (level - near_.size() >= far_.size()) far_.resize(level);
    return far_[level - near_.size()];
  }

 private:
  std::array<std::uint64_t, 24> near_;
  std::vector<std::uint64_t> far_;
};

bool matches(Node* element, const Step& step);

// One walk in document order finds each match once, whatever the steps: every element gets the set of steps
// that lead to it, bit i standing for "the first i steps do". A set that has run empty prunes what is below.
// `visit` is called for each match until it answers true.
template <class Visit>
bool walk(Node* start, bool startIsCandidate, const Path& path, Visit visit) {
  std::uint64_t descendants = 0;
  for (std::size_t i = 0; i < path.steps.size(); ++i) {
    if (path.steps[i].descendant) descendants |= std::uint64_t{1} << i;
  }
  const std::uint64_t whole = std::uint64_t{1} << path.steps.size();
  LevelStack active;
  std::size_t level = 0;
  active[0] = 1;
  Node* node = startIsCandidate ? (start->isElement() ? start : nullptr) : firstElement(start);
  while (node != nullptr) {
    ++work.nodesVisited;
    std::uint64_t reached = 0;
    const std::uint64_t here = active[level];
    for (std::uint64_t left = here; left != 0; left &= left - 1) {
      const auto i = static_cast<std::size_t>(__builtin_ctzll(left));
      if (matches(node, path.steps[i])) reached |= std::uint64_t{2} << i;
    }
    if ((reached & whole) != 0 && visit(node)) return true;
    const std::uint64_t below = (reached & ~whole) | (here & descendants);
    Node* const child = below != 0 ? firstElement(node) : nullptr;
    if (child != nullptr) {
      active[++level] = below;
      node = child;
      continue;
    }
    for (;;) {
      if (Node* const next = node != start ? nextElement(node) : nullptr) {
        node = next;
        break;
      }
      if (level == 0) return false;
      --level;
      node = node->parent;
    }
  }
  return false;
}

bool holds(Node* element, const Term& term) {
  if (term.attribute) {
    const Node* const attribute = findAttribute(element, term.name);
    if (attribute == nullptr) return false;
    return term.kind == Term::exists || (attribute->ownText() == term.literal) == (term.kind == Term::equal);
  }
  return walk(element, false, term.path, [&term](const Node* node) {
    return term.kind == Term::exists || textEquals(node, term.literal) == (term.kind == Term::equal);
  });
}

bool matches(Node* element, const Step& step) {
  if (step.name != anyName && step.name != element->name) return false;
  for (const Term& term : step.terms) {
    if (!holds(element, term)) return false;
  }
  return true;
}

template <class Visit>
void select(Node* context, const Path& path, Visit visit) {
  if (!path.absolute) {
    if (context->takesChildren()) walk(context, false, path, visit);
    return;
  }
  Node* const root = rootOf(context);
  walk(root, root->type != NODE_DOCUMENT, path, visit);
}

// Lookups by value leave nothing in the cache: their texts are as many as there are ids.
bool lookUp(Node* context, std::string_view xpath, bool all, std::vector<Node*>& found) {
  bool attribute = false;
  std::string_view name, value;
  if (!parseLookup(xpath, attribute, name, value)) return false;
  DocumentNode* const document = homeOf(context);
  if (document == nullptr) return false;
  findByValue(document, attribute, name, value, all, found);
  return true;
}

}  // namespace

Node* selectFirst(Node* context, std::string_view xpath) {
  if (xpath.starts_with('/')) {
    std::vector<Node*> looked;
    if (lookUp(context, xpath, false, looked)) return looked.empty() ? nullptr : looked.front();
  }
  const Path* const path = cache().get(xpath);
  if (path == nullptr) return nullptr;
  if (path->plain) return firstPlain(context, *path, 0);
  Node* found = nullptr;
  select(context, *path, [&found](Node* node) {
    found = node;
    return true;
  });
  return found;
}

bool selectAll(Node* context, std::string_view xpath, std::vector<Node*>& found) {
  if (lookUp(context, xpath, true, found)) return true;
  const Path* const path = cache().get(xpath);
  if (path == nullptr) return false;
  found.clear();
  select(context, *path, [&found](Node* node) {
    found.push_back(node);
    return false;
  });
  return true;
}

bool visitAll(Node* context, std::string_view xpath, const std::function<void(Node*)>& visit) {
  const Path* const known = cache().get(xpath);
  if (known == nullptr) return false;
  const Path path = *known;  // what is visited may fill the cache with other paths
  select(context, path, [&visit](Node* node) {
    visit(node);
    return false;
  });
  return true;
}

}  // namespace dom
