#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "DomNode.h"

namespace dom {

// Where the children of long lists stand: of each parent that was asked, the children of one name by text and
// by place. What a short walk finds is not kept, and all is forgotten when it grows too large.
//
// A list counts while its parent has the stamp that it had then. Stamps are never given twice, so a list can
// be out of date but never wrong, also when another node comes to stand at the same address. The tree tells
// what it appends and takes out, and such a list goes on.
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

  // Before a change of the children of a node: its list, if one counts. Then what was done; null is nothing
  // to do.
  class List;
  List* listOf(const Node* parent) noexcept;
  static void appended(List* list, Node* child);
  static void removed(List* list, const Node* child);

  void clear() noexcept;

 private:
  List& list(Node* parent, NameId name);

  std::unordered_map<const Node*, std::unique_ptr<List>> lists_;
  std::size_t children_ = 0;  // in all lists as they were made
};

// Of the process, like the names.
Lists& lists();

}  // namespace dom
