#pragma once

#include <initializer_list>
#include <span>
#include <string_view>
#include <vector>

#include "rt/RTObjAllocator.h"
#include "zel/ZelNode.h"

class ZelXmlNode;

// By what an element of a family is known as one of a kind. Of the kinds of a family the first that fits, in
// this order, and then in that of registration, is the one.
enum class ZelXmlShape {
  named,              // the element name is `className`
  namedWithChildren,  // the same, and it has `children`
  withChildren,       // it has `children`
  occurrence,         // it is an occurrence in an equipment prototype
  withThreeDRep,      // it has `threeDRep`
  classBelow,         // its class derives from `base`
  prototypeBelow,     // the class of its prototype derives from `base`
  usesEquipment,      // what it `uses` is an equipment prototype
  any,
};

// A kind of node, as one row: all that the library knows of a node type. Each room has the rows of its own
// classes.
struct ZelXmlNodeKind {
  enum Traits : unsigned {
    plain = 0,
    collection = 1,       // keeps a list of children that objects can be taken off
    entersChildren = 2,   // becomes the parent that counts for them when its node is made
    besideTree = 4,       // is no root, also without parent
    plcData = 8,          // the group `plcInfo` of its element is looked at
    ofDocumentsOnly = 16  // nodes come with a document; the factory makes none
  };
  // What an import takes along with an object.
  enum class Import {
    nothing,
    instance,   // its prototype, and with that its layout
    compound,   // its layout
    prototype,  // its 3D representation and file; such an object is no root of an import
  };

  ZelNodeType type;
  std::string_view word;  // in words for people
  int order;              // of registration; 0 where no object element is of the kind
  // Which elements are of this kind: those of the family, by their shape; without a family those of families
  // that no kind has. A class name is also that of new elements, whose family is then this one.
  std::string_view family{};
  std::string_view className{};
  ZelXmlShape shape = ZelXmlShape::any;
  std::string_view base{};
  unsigned traits = plain;
  Import import = Import::nothing;
  const RTBaseObjAllocator<ZelXmlNode>* allocator = nullptr;
  ZelNodeType instances = type;  // of a prototype: the type of what is placed of it
  // Of a kind that lives inside `plcInfo`: the name of its elements, and the interface that it alone serves.
  // Its nodes are made by their owners.
  std::string_view pattern{};
  ZelNode::InterfaceType innerInterface{};

  bool has(Traits trait) const { return (traits & trait) != 0; }
  bool isInner() const { return !pattern.empty(); }
  bool isPrototype() const { return import == Import::prototype; }
};

template <class Node>
inline const RTObjAllocator<ZelXmlNode, Node> zelXmlAllocator{};

// The table of all kinds. zelXmlInit fills it from the rooms; it lives until the process ends.
class ZelXmlNodeKinds {
 public:
  using Rows = std::span<const ZelXmlNodeKind>;
  // Takes rows in, which must live as long, and registers their allocators, in the order that they tell.
  static void fill(std::initializer_list<Rows> rooms);

  // In the order of registration, kinds without order first.
  static const std::vector<const ZelXmlNodeKind*>& all();
  // The row of a type; for one without a row, a row without traits.
  static const ZelXmlNodeKind& of(ZelNodeType type);
  // The kinds of a family in the order in which they are tried; for a family of no kind, those without one.
  static const std::vector<const ZelXmlNodeKind*>& ofFamily(std::string_view family);
};
