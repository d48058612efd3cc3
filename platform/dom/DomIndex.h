#pragma once

#include <cstdint>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "DomNode.h"

namespace dom {

// Nodes by the hash of a text. Nodes of one hash stand together in document order of the elements that they
// answer a search with; those that came later are put in order at the next look.
class HashIndex {
 public:
  HashIndex() = default;
  HashIndex(HashIndex&&) noexcept;
  HashIndex& operator=(HashIndex&&) = delete;
  ~HashIndex();

  // `inOrder`: behind all that are there, as a walk in document order gives them.
  void add(std::uint64_t hash, Node* node, bool inOrder);
  void remove(std::uint64_t hash, Node* node) noexcept;
  // Calls `visit` for each node of this hash, in order, until it answers true. `orderedBy` gives the element
  // that stands for a node.
  template <class OrderedBy, class Visit>
  void each(std::uint64_t hash, OrderedBy orderedBy, Visit visit);

 private:
  struct Group {
    std::vector<Node*> nodes;
    std::size_t ordered;  // so many at the front are in order
  };
  // A free place, a place that was freed, one node, or a group with its lowest bit set.
  struct Place {
    std::uint64_t hash = 0;
    std::uintptr_t what = 0;
  };
  static constexpr std::uintptr_t freed = 2;

  Place* find(std::uint64_t hash) noexcept;
  void grow();

  std::vector<Place> places_;
  std::size_t used_ = 0;  // free places it has not, freed ones included
  std::size_t kept_ = 0;  // hashes in it
};

// What a document knows of the values in its own tree: for each name that was ever searched for, the nodes by
// value. The tree tells every change: leave before it, enter after it.
class Indexes {
 public:
  Indexes();
  ~Indexes();
  Indexes(const Indexes&) = delete;
  Indexes& operator=(const Indexes&) = delete;

  // All elements of the document whose attribute `name` is `value`, or that have a child element `name` with
  // the text `value`, in document order; only the first one unless `all`.
  void byAttribute(DocumentNode* document, NameId name, std::string_view value, bool all,
                   std::vector<Node*>& found);
  void byChildText(DocumentNode* document, NameId name, std::string_view value, bool all,
                   std::vector<Node*>& found);

  void leaveTree(Node* top);
  void enterTree(Node* top);
  void leaveAttribute(Node* attribute);
  void enterAttribute(Node* attribute);
  // The children or the own text of an element.
  void leaveContent(Node* element);
  void enterContent(Node* element);

 private:
  struct ByName;

  ByName* find(bool attributes, NameId name) noexcept;
  ByName& make(bool attributes, NameId name);

  std::vector<ByName> indexes_;
};

// By the document's index, which the first search makes.
void findByValue(DocumentNode* document, bool attribute, std::string_view name, std::string_view value,
                 bool all, std::vector<Node*>& found);

}  // namespace dom
