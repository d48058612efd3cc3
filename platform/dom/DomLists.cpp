#include "DomLists.h"

#include <algorithm>
#include <functional>
#include <string>

#include "DomTree.h"

namespace dom {

namespace {

// As many children are looked at one by one before a list is made.
constexpr long shortWalk = 32;
// Of all lists together: some 30 bytes for each. A single list may be longer.
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
// logarithm of their number.
class Lists::List {
 public:
  List(Node* parent, NameId name) : parent_(parent), name_(name), stamp_(stampOf(parent)) {
    for (Node* child = firstNamed(parent, name); child != nullptr; child = nextNamed(child, name)) add(child);
  }

  std::size_t children() const noexcept { return slots_.size(); }
  bool counts(const Node* parent) const noexcept { return parent_ == parent && stamp_ == parent->stamp; }
  bool counts(const Node* parent, NameId name) const noexcept { return counts(parent) && name_ == name; }

  Node* find(std::string_view text, long& index) const {
    const std::size_t at = cellOf(text);
    if (cells_[at] == 0) return nullptr;
    const std::size_t slot = cells_[at] - 1;
    index = 0;
    for (std::size_t i = slot; i != 0; i &= i - 1) index += counts_[i - 1];
    return slots_[slot];
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
    return slot < slots_.size() ? slots_[slot] : nullptr;
  }

  void appended(Node* child) {
    if (parent_ == nullptr) return;
    stamp_ = parent_->stamp;
    if (child->isElement() && child->name == name_) add(child);
  }

  void removed(const Node* child) {
    stamp_ = parent_->stamp;
    if (!child->isElement() || child->name != name_) return;
    std::string buffer;
    const std::uint32_t cell = cells_[cellOf(textOf(child, buffer))];
    // Of children with equal texts only the first can be found: who takes its place is not known.
    if (repeated_ || cell == 0 || slots_[cell - 1] != child) {
      forget();
      return;
    }
    slots_[cell - 1] = nullptr;
    for (std::size_t i = cell; i <= counts_.size(); i += i & (~i + 1)) --counts_[i - 1];
    if (--living_ * 2 + 64 < slots_.size()) forget();
  }

 private:
  void forget() noexcept { parent_ = nullptr; }

  void add(Node* child) {
    ++work.nodesVisited;
    slots_.push_back(child);
    ++living_;
    const std::size_t place = slots_.size();
    std::uint32_t count = 1;
    for (std::size_t i = place - 1; i > (place & (place - 1)); i &= i - 1) count += counts_[i - 1];
    counts_.push_back(count);
    if (slots_.size() * 2 > cells_.size()) {
      cells_.assign(std::max<std::size_t>(256, slots_.size() * 4), 0);
      repeated_ = false;
      for (std::size_t slot = 0; slot < slots_.size(); ++slot) enter(slot);
    } else {
      enter(place - 1);
    }
  }

  void enter(std::size_t slot) {
    if (slots_[slot] == nullptr) return;
    std::string buffer;
    std::uint32_t& cell = cells_[cellOf(textOf(slots_[slot], buffer))];
    if (cell == 0) {
      cell = static_cast<std::uint32_t>(slot + 1);
    } else {
      repeated_ = true;
    }
  }

  // The cell of the first child with this text, or the free one where it would go. Cells of children that
  // went stay in the way until the cells are made anew.
  std::size_t cellOf(std::string_view text) const {
    std::size_t at = std::hash<std::string_view>{}(text) % cells_.size();
    while (cells_[at] != 0) {
      const Node* const child = slots_[cells_[at] - 1];
      if (child != nullptr && textEquals(child, text)) break;
      if (++at == cells_.size()) at = 0;
    }
    return at;
  }

  const Node* parent_;
  NameId name_;
  std::uint32_t stamp_;
  std::vector<Node*> slots_;
  std::vector<std::uint32_t> counts_;                                   // the Fenwick tree
  std::vector<std::uint32_t> cells_ = std::vector<std::uint32_t>(256);  // by text: slot + 1, 0 is free
  std::size_t living_ = 0;
  bool repeated_ = false;
};

Lists::Lists() = default;
Lists::~Lists() = default;

Lists::List& Lists::list(Node* parent, NameId name) {
  const auto known = lists_.find(parent);
  if (known != lists_.end() && known->second->counts(parent, name)) return *known->second;
  auto made = std::make_unique<List>(parent, name);
  children_ += made->children();
  if (children_ > mostChildren) clear();
  return *(lists_[parent] = std::move(made));
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

Lists::List* Lists::listOf(const Node* parent) noexcept {
  if (lists_.empty()) return nullptr;
  const auto known = lists_.find(parent);
  return known != lists_.end() && known->second->counts(parent) ? known->second.get() : nullptr;
}

void Lists::appended(List* list, Node* child) {
  if (list != nullptr) list->appended(child);
}

void Lists::removed(List* list, const Node* child) {
  if (list != nullptr) list->removed(child);
}

void Lists::clear() noexcept {
  lists_.clear();
  children_ = 0;
}

// Never destroyed, like the names: documents may outlive what is destroyed at the end of the process.
Lists& lists() {
  static Lists* const instance = new Lists;
  return *instance;
}

}  // namespace dom
