#pragma once

#include <initializer_list>
#include <optional>

#include "document/ZelXmlPlcFieldRows.h"
#include "node/ZelXmlConcreteNode.h"
#include "node/ZelXmlNodeFields.h"
#include "node/ZelXmlNodeHost.h"
#include "node/ZelXmlNodeKinds.h"

// The base of the nodes that live inside the group `plcInfo` of an object: signals, control blocks, sensors,
// poses. Their element stands alone in a holder, a field of the owner or an item of one of its lists.
//
// An owner makes such a node on a new element, or adopts one that the document has. Either way the node is
// registered, and lives until the owner's removeRequisites. The element does not go with the node: it goes
// with `plcInfo`.
class ZelXmlPlcInternalNode : public ZelXmlElementNode {
 public:
  // Name of the element.
  virtual std::string_view pattern() const = 0;

  // A new element in the holder, with id and, where one is given, the text of the type. False without
  // wrapper, for an id that cannot be written and for a type without text: the element stays then, but
  // nothing is registered.
  bool create(ZelXmlNodeHost* wrapper, const IXMLDOMNode& holder, const ApiPmId& id,
              std::optional<ZelNodeType> type);
  // False without wrapper, and for an element without id.
  bool adopt(ZelXmlNodeHost* wrapper, const IXMLDOMNode& element);

  // The text of the type.
  bool readStringType(RWClassicWString& text) const;
  // Name and description: most classes have none.
  virtual bool readName(RWClassicWString&) const { return false; }
  virtual bool writeName(const RWClassicWString&) { return false; }
  virtual bool readDescription(RWClassicWString&) const { return false; }
  virtual bool writeDescription(const RWClassicWString&) { return false; }
  static bool readCaption(RWClassicWString&) { return false; }
  static bool readShownParentId(ApiPmId&) { return false; }
  static ZelNode* shownParent() { return nullptr; }

 protected:
  // The type that the element tells: by `Type`, which old documents have, else by `StringType`. Without
  // either, and for one that means none, `own`.
  ZelNodeType readType(ZelNodeType own) const;
  using Holders = std::initializer_list<const ZelField<ZelHeldId>*>;
  // Adopts the first element in each of these holders below this node as a signal; an empty one is passed
  // over, one whose element has no id ends it with false.
  bool adoptHeldSignals(Holders holders);
  // Deletes the nodes of the signals in these holders. False without wrapper.
  bool removeHeldSignals(Holders holders);
};

// The same for sensors, poses and projectors, which people name and describe.
class ZelXmlNamedPlcInternalNode : public ZelXmlPlcInternalNode {
 public:
  bool readName(RWClassicWString& name) const override {
    return zelXmlGetField(*this, zelPlcNodeFields.name, name);
  }
  bool writeName(const RWClassicWString& name) override {
    return zelXmlSetField(*this, zelPlcNodeFields.name, name);
  }
  bool readDescription(RWClassicWString& text) const override {
    return zelXmlGetField(*this, zelPlcNodeFields.comment, text);
  }
  bool writeDescription(const RWClassicWString& text) override {
    return zelXmlSetField(*this, zelPlcNodeFields.comment, text);
  }
};

// A class of such nodes: `Face` is the one interface that it serves.
template <class Self, class Base, ZelNodeType Type, class Face>
class ZelXmlPlcNodeClass : public ZelXmlConcreteNode<Self, Base, Type, Face> {
 public:
  std::string_view pattern() const override { return ZelXmlNodeKinds::of(Type).pattern; }
};
