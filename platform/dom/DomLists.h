#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "DomNode.h"
#include "rw/RWFlatTable.h"

namespace dom {

// What is known of the children of single parents: where the children of one name stand in a long list, by
// text and by place, and in which order long rows of siblings are. What a short walk finds is not kept, and
// all is forgotten when it grows too large.
//
// The tree tells each child that is linked or taken out, before and after, and each parent that goes. Texts
// it does not tell: the lists of a parent count while it has the stamp that it had when they were last told.
// The order of siblings hangs on no text and counts always.
class Lists {
 public:
  Lists();
  ~Lists();
  Lists(const Lists&) = delete;
  Lists& operator=(const Lists&) = delete;

  // The first child element of this name with exactly this text, and its place among those of the name; null
  // without one.
  Node* find(Node* parent, NameId name, std::string_view text, long& index);
  // The child element of this name at a place; null beyond the last.
  Node* at(Node* parent, NameId name, long index);
  // Whether one child element of a parent stands before another, in a time that does not depend on their
  // distance.
  bool before(Node* parent, const Node* a, const Node* b);

  // Before a change of the children of a node: what is known of them. Then what was done; null is nothing to
  // do.
  class Known;
  Known* of(Node* parent) noexcept;
  void appended(Known* known, Node* child);
  void removed(Known* known, const Node* child);
  // The parent goes, or its children change in another way.
  void forget(Node* parent) noexcept;

 private:
  class List;
  Known& know(Node* parent);
  List& list(Node* parent, NameId name);
  void dropLists(Known& known) noexcept;
  void clear() noexcept;

  RWFlatTable<Known*> known_;
  std::size_t children_ = 0;  // in all lists and orders
};

// Of the process, like the names.
Lists& lists();

}  // namespace dom
