#include "DomLists.h"

#include <string>
#include <vector>

#include "DomTree.h"
#include "rw/RWTextHash.h"

namespace dom {

namespace {

// As many children are looked at one by one before a list is made.
constexpr long shortWalk = 32;
// Of all lists together: some 50 bytes for each. A single list may be longer.
constexpr std::size_t mostChildren = 1'000'000;

Node* firstNamed(const Node* parent, NameId name) noexcept {
  Node* child = firstElement(parent);
  while (child != nullptr && child->name != name) child = nextElement(child);
  return child;
}

Node* nextNamed(const Node* element, NameId name) noexcept {
  Node* next = nextElement(element);
  while (next != nullptr && next->name != name) next = nextElement(next);
  return next;
}

}  // namespace

// Children keep the slot that they were given; one that goes leaves its slot empty. How many living slots
// stand before one is counted by a Fenwick tree, so a place is found, and a child by its place, in the
// logarithm of their number. Slots of one text are chained, the first of them living.
class Lists::List {
 public:
  List(Node* parent, NameId name) {
    for (Node* child = firstNamed(parent, name); child != nullptr; child = nextNamed(child, name)) add(child);
  }

  std::size_t children() const noexcept { return slots_.size(); }

  Node* find(std::string_view text, long& index) const {
    const auto* cell = cellOf(text);
    if (cell == nullptr) return nullptr;
    const std::size_t slot = cell->value.first - 1;
    index = 0;
    for (std::size_t i = slot; i != 0; i &= i - 1) index += counts_[i - 1];
    return slots_[slot].child;
  }

  Node* at(long index) const noexcept {
    std::size_t slot = 0;
    std::size_t step = 1;
    while (step * 2 <= counts_.size()) step *= 2;
    for (; step != 0; step /= 2) {
      if (slot + step <= counts_.size() && counts_[slot + step - 1] <= index) {
        slot += step;
        index -= counts_[slot - 1];
      }
    }
    return slot < slots_.size() ? slots_[slot].child : nullptr;
  }

  void add(Node* child) {
    ++work.nodesVisited;
    slots_.push_back({child, 0});
    ++living_;
    const std::size_t place = slots_.size();
    std::uint32_t count = 1;
    for (std::size_t i = place - 1; i > (place & (place - 1)); i &= i - 1) count += counts_[i - 1];
    counts_.push_back(count);
    if (places_.size() != 0) places_.add(rwSpread(child), static_cast<std::uint32_t>(place));
    const auto slot = static_cast<std::uint32_t>(place);
    std::string buffer;
    const std::string_view text = textOf(child, buffer);
    if (auto* const cell = cellOf(text)) {
      slots_[cell->value.last - 1].next = slot;
      cell->value.last = slot;
    } else {
      cells_.add(RWTextHash{}(text), {slot, slot});
    }
  }

  // False when so many have gone that the list is better made anew.
  bool remove(const Node* child) {
    std::string buffer;
    auto* const cell = cellOf(textOf(child, buffer));
    if (cell == nullptr) return false;
    std::uint32_t slot = cell->value.first;
    const bool first = slots_[slot - 1].child == child;
    if (!first && (slot = placeOf(child)) == 0) return false;
    slots_[slot - 1].child = nullptr;
    if (auto* const place = places_.find(rwSpread(child))) places_.remove(place);
    if (first) {
      std::uint32_t next = slots_[slot - 1].next;
      while (next != 0 && slots_[next - 1].child == nullptr) next = slots_[next - 1].next;
      if (next != 0) {
        cell->value.first = next;
      } else {
        cells_.remove(cell);
      }
    }
    for (std::size_t i = slot; i <= counts_.size(); i += i & (~i + 1)) --counts_[i - 1];
    return --living_ * 2 + 64 >= slots_.size();
  }

 private:
  // Slots are counted from 1 on, 0 is none.
  struct Slot {
    Node* child;
    std::uint32_t next;  // of the same text
  };
  struct Cell {
    std::uint32_t first = 0;
    std::uint32_t last = 0;
    bool operator==(const Cell&) const = default;
  };

  RWFlatTable<Cell>::Slot* cellOf(std::string_view text) const {
    return cells_.find(RWTextHash{}(text), [&](const Cell& cell) {
      ++work.nodesVisited;
      return textEquals(slots_[cell.first - 1].child, text);
    });
  }

  // Only for those that are not the first of their text: few lists have any.
  std::uint32_t placeOf(const Node* child) {
    if (places_.size() == 0) {
      for (std::size_t i = 0; i < slots_.size(); ++i) {
        ++work.nodesVisited;
        if (slots_[i].child != nullptr)
          places_.add(rwSpread(slots_[i].child), static_cast<std::uint32_t>(i + 1));
      }
    }
    const auto* const place = places_.find(rwSpread(child));
    return place != nullptr ? place->value : 0;
  }

  std::vector<Slot> slots_;
  std::vector<std::uint32_t> counts_;  // the Fenwick tree
  RWFlatTable<Cell> cells_;            // by text
  RWFlatTable<std::uint32_t> places_;  // slots by child, once they were asked for
  std::size_t living_ = 0;
};

class Lists::Known {
 public:
  explicit Known(Node* parent) : parent(parent) {}

  Node* const parent;
  std::uint64_t stamp = 0;           // of the parent, for `lists`
  RWFlatTable<List*> lists;          // by name
  RWFlatTable<std::uint64_t> order;  // numbers of the child elements, ascending; empty unless asked for
  std::uint64_t lastInOrder = 0;
};

Lists::Lists() = default;
Lists::~Lists() { clear(); }

Lists::Known& Lists::know(Node* parent) {
  if (children_ > mostChildren) clear();
  if (parent->known) return *known_.find(rwSpread(parent))->value;
  auto made = std::make_unique<Known>(parent);
  known_.add(rwSpread(parent), made.get());
  parent->known = true;
  return *made.release();
}

Lists::Known* Lists::of(Node* parent) noexcept {
  if (!parent->known) return nullptr;
  Known& known = *known_.find(rwSpread(parent))->value;
  if (known.stamp != parent->stamp()) dropLists(known);
  return &known;
}

void Lists::dropLists(Known& known) noexcept {
  known.lists.each([this](List* list) {
    children_ -= list->children();
    delete list;
  });
  known.lists.clear();
}

void Lists::forget(Node* parent) noexcept {
  if (!parent->known) return;
  auto* const slot = known_.find(rwSpread(parent));
  Known* const known = slot->value;
  known_.remove(slot);
  parent->known = false;
  dropLists(*known);
  children_ -= known->order.size();
  delete known;
}

void Lists::clear() noexcept {
  std::vector<Node*> parents;
  known_.each([&](const Known* known) { parents.push_back(known->parent); });
  for (Node* const parent : parents) forget(parent);
}

Lists::List& Lists::list(Node* parent, NameId name) {
  const std::uint64_t hash = rwSpread(name);
  if (Known* const known = of(parent)) {
    if (auto* const slot = known->lists.find(hash)) return *slot->value;
  }
  Known& known = know(parent);
  known.stamp = stampOf(parent);
  auto made = std::make_unique<List>(parent, name);
  known.lists.add(hash, made.get());
  children_ += made->children();
  return *made.release();
}

Node* Lists::find(Node* parent, NameId name, std::string_view text, long& index) {
  long walked = 0;
  for (Node* child = firstNamed(parent, name); child != nullptr; child = nextNamed(child, name)) {
    ++work.nodesVisited;
    if (textEquals(child, text)) {
      index = walked;
      return child;
    }
    if (++walked == shortWalk) return list(parent, name).find(text, index);
  }
  return nullptr;
}

Node* Lists::at(Node* parent, NameId name, long index) {
  if (index >= shortWalk) return list(parent, name).at(index);
  Node* child = index < 0 ? nullptr : firstNamed(parent, name);
  for (; child != nullptr && index != 0; --index) child = nextNamed(child, name);
  return child;
}

bool Lists::before(Node* parent, const Node* a, const Node* b) {
  Known& known = know(parent);
  if (known.order.size() == 0) {
    for (const Node* child = firstElement(parent); child != nullptr; child = nextElement(child)) {
      ++work.nodesVisited;
      known.order.add(rwSpread(child), ++known.lastInOrder);
    }
    children_ += known.order.size();
  }
  return known.order.find(rwSpread(a))->value < known.order.find(rwSpread(b))->value;
}

void Lists::appended(Known* known, Node* child) {
  if (known == nullptr) return;
  known->stamp = known->parent->stamp();
  if (!child->isElement()) return;
  if (known->order.size() != 0) {
    known->order.add(rwSpread(child), ++known->lastInOrder);
    ++children_;
  }
  if (auto* const slot = known->lists.find(rwSpread(child->name))) {
    slot->value->add(child);
    ++children_;
  }
}

void Lists::removed(Known* known, const Node* child) {
  if (known == nullptr) return;
  known->stamp = known->parent->stamp();
  if (!child->isElement()) return;
  if (auto* const slot = known->order.find(rwSpread(child))) {
    known->order.remove(slot);
    --children_;
  }
  auto* const slot = known->lists.find(rwSpread(child->name));
  if (slot == nullptr || slot->value->remove(child)) return;
  const std::unique_ptr<List> gone(slot->value);
  children_ -= gone->children();
  known->lists.remove(slot);
}

// Never destroyed, like the names: documents may outlive what is destroyed at the end of the process.
Lists& lists() {
  static Lists* const instance = new Lists;
  return *instance;
}

}  // namespace dom
