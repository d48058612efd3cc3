#pragma once

#include <cstdint>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "DomNode.h"
#include "rw/RWFlatTable.h"

namespace dom {

// Nodes by the hash of a text. Nodes of one hash stand together in document order of the elements that own
// them, as attribute or as child; those that came later are put in order at the next look. A node has to
// leave before it or an element above it moves.
class HashIndex {
 public:
  HashIndex() = default;
  HashIndex(HashIndex&&) noexcept = default;
  HashIndex& operator=(HashIndex&&) = delete;
  ~HashIndex();

  // `inOrder`: behind all that are there, as a walk in document order gives them.
  void add(std::uint64_t hash, Node* node, bool inOrder);
  void remove(std::uint64_t hash, Node* node);
  // Calls `visit` for each node of this hash, in order, until it answers true.
  template <class Visit>
  void each(std::uint64_t hash, Visit visit);

 private:
  struct InOrder {
    bool operator()(const Node* a, const Node* b) const;
  };
  struct Group;
  static Group* groupOf(std::uintptr_t what) noexcept;

  RWFlatTable<std::uintptr_t> places_;
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
