#pragma once

#include <cstdint>
#include <vector>

#include "StudyGenerator.h"
#include "XmlWriter.h"

namespace zelgen {

/// Every object element has a serial: its position in the document, from 0. Ids and internal numbers follow
/// from it, so any reference can be written before or long after the object that it names.
using Serial = std::uint32_t;

/// A tree of compounds with leaves below. It takes 2 * nodes + labels serials from `first`: node i has the
/// serial first + 2 * i and its layout the one after; the labels stand at the end.
struct TreePlan {
  Serial first;
  std::uint32_t nodes;
  std::uint32_t labels;
  std::uint32_t depth;
  bool product;        ///< compound parts and part leaves; otherwise compound resources and tool leaves
  std::uint64_t seed;  ///< all that is drawn in the tree comes from it, so a tree can be made again alone
};

/// A compound operation, its steps and the flows that link them. Serials from `first`: the compound, then
/// the steps, then the flows.
struct ProcessPlan {
  Serial first;
  std::uint32_t steps;
  std::uint32_t flows;
  std::uint64_t seed;

  std::uint32_t size() const { return 1 + steps + flows; }
};

/// Where everything stands in the document, computed from the options alone before a byte is written.
struct Plan {
  explicit Plan(const StudyOptions& options);

  StudyOptions options;
  std::uint32_t partPrototypes = 0;
  std::uint32_t toolPrototypes = 0;
  std::vector<TreePlan> trees;
  std::vector<ProcessPlan> processes;
  std::vector<std::uint32_t> resourceTrees;  ///< indices in `trees`; operations draw their resources there

  /// Serials in document order: the study, the shortcuts (with info and layout), the prototypes (with
  /// 3D representation and file), then trees, then processes.
  static constexpr Serial kStudy = 0;
  std::uint32_t shortcuts() const { return static_cast<std::uint32_t>(trees.size() + processes.size()); }
  Serial shortcut(std::uint32_t index) const { return 1 + 3 * index; }
  std::uint32_t prototypes() const { return partPrototypes + toolPrototypes; }
  Serial prototype(std::uint32_t index) const { return 1 + 3 * shortcuts() + 3 * index; }
  /// The object that a shortcut names: the root of a tree, or a compound operation.
  Serial shortcutTarget(std::uint32_t index) const;

  IdText id(Serial serial) const { return idIn(0, serial); }
  /// Ids of the signals inside an operation; they are no objects and so have no serial of their own.
  IdText startingSignalId(Serial operation) const { return idIn(1, operation); }
  IdText endingSignalId(Serial operation) const { return idIn(2, operation); }

 private:
  IdText idIn(std::uint32_t space, Serial serial) const;
};

/// A tree plan worked out: who stands under whom, and where.
struct Tree {
  enum class Kind : std::uint8_t { Compound, Instance, Placeholder };
  static constexpr std::uint32_t kNone = 0xFFFFFFFF;

  struct Node {
    std::uint32_t parent = kNone;       ///< the first parent: its layout holds this one's layout
    std::uint32_t otherParent = kNone;  ///< of a shared node; always behind `parent` in the document
    std::uint32_t prototype = 0;        ///< index in the plan; of a placeholder, whose geometry it shows
    std::uint32_t firstLabel = 0;       ///< index among the labels of the tree
    std::uint32_t labels = 0;
    Kind kind = Kind::Instance;
    Placement relative;
    Placement absolute;
  };

  Tree(const Plan& plan, const TreePlan& tree);

  /// Calls `visit(child)` for each entry of a compound's `children`, in the document's order. With
  /// `ownOnly` the shared ones that have another first parent are left out, as in the layout's list.
  template <typename Visit>
  void forChildren(std::uint32_t node, bool ownOnly, Visit visit) const {
    for (std::uint32_t i = childStart_[node]; i < childStart_[node + 1]; ++i) {
      if (!ownOnly || nodes[children_[i]].parent == node) visit(children_[i]);
    }
  }

  std::vector<Node> nodes;  ///< a parent always ahead of its children; the root is node 0

 private:
  void grow(const Plan& plan, const TreePlan& tree);
  void share(std::uint32_t percent, std::uint64_t seed);
  void place(const TreePlan& tree);
  void dealLabels(const TreePlan& tree);
  void listChildren();

  std::vector<std::uint32_t> compounds_;
  std::vector<std::uint32_t> childStart_;
  std::vector<std::uint32_t> children_;
};

/// Where the root of a tree stands: the same that the worked-out tree has, without working it out.
Placement rootPlacement(const TreePlan& tree);

}  // namespace zelgen
