#pragma once

#include "node/ZelXmlService.h"

// How a child enters and leaves a collection, in all the places that stay in step: the `children` of the
// collection, the `parents` of the child, `children` and `parent` of the two layout objects, the parent that
// counts, and the OUT document. A step that fails ends an operation with false; earlier steps stand.
class ZelXmlCollectionService : public ZelXmlService {
 public:
  using ZelXmlService::ZelXmlService;

  // Takes the child off the list, publishes the collection, and deletes the child. False, with nothing done,
  // for an id without node.
  virtual bool removeChild(const ApiPmId& id);
  // The same without publication; the child's layout leaves the layout of its parent and goes too.
  virtual bool removeChildLocally(const ApiPmId& id);
  // Takes the child from wherever it stands and puts it here; its absolute placement stays. False, with
  // nothing done, under itself or below.
  virtual bool addExistingChild(ZelNode* child);
  // Makes a new object and its node; it is not placed under the collection. False, with nothing made, when
  // its class makes no element.
  virtual bool createChild(const ZelXmlCreationRecord& record, ZelNode*& child);
  // Moves the child's layout from its parent layout to the own layout, with and without publication.
  virtual bool addLayoutChild(const IXMLDOMNode& child);
  virtual bool addLayoutChildLocally(const IXMLDOMNode& child);

  // Enters a child here whose own lists name this collection already. Publishes nothing.
  bool addChild(ZelNode* child);
  // Detaches the child (from its parent that counts, or from the roots) and lists it here; published.
  bool addChildElement(const IXMLDOMNode& child);
  // Takes an occurrence from the collection that its `parentPrototype` names, if any, lists it here and names
  // this one there; both lists are published. False, with nothing done, when the old one is not there.
  bool addOccurrence(ZelNode* occurrence);
  // Appends the nodes of the children for which this is the parent that counts.
  bool getChildNodes(ZelNodeList& children) const;
  // Replaces `ids` by the whole list.
  bool getChildIds(ApiPmIdList& ids) const;

  // The operations of ZelCollection and ZelVorCollection that are made of the above.
  ZelNode* createPlacedChild(ZelNodeType type, const RWClassicWString& className, const ApiPmId& id);
  bool moveChild(ZelNode* child);
  bool moveChildLocally(ZelNode* child);

 private:
  bool isBelow(const ApiPmId& id) const;
  bool canHold(const ZelXmlNode& node) const;
  bool canHoldLocally(const ZelXmlNode& node) const;
  void takeFromRoots(const ApiPmId& id);
  bool listChild(const ApiPmId& id);
  bool takeLayout(const IXMLDOMNode& child, const IXMLDOMDocument& out);
};

// Takes an object off its parent's list, the parent off the object's, and drops the parent that counts;
// publishes both.
bool zelXmlDetachFromParent(ZelXmlNodeHost& wrapper, const IXMLDOMNode& child, const ApiPmId& parent);
// Detaches an object from its parent that counts without publication: the parent's list, the child's list,
// the finder. True for an object without one; false when the parent cannot be found.
bool zelXmlDetachFromRelevantParent(ZelXmlNodeHost& wrapper, const IXMLDOMNode& child);
// Takes a layout off the `children` of its parent layout, published where `out` is not null. True when it
// stands below none, which a `parent` that is absent, "NULL", empty or unknown says.
bool zelXmlDetachLayout(const IXMLDOMDocument& document, const IXMLDOMDocument& out,
                        const IXMLDOMNode& layout);
