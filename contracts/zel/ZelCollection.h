#pragma once

#include "zel/ZelNode.h"

// A node with children, kept as a list of ids on the collection's element.
class ZelCollection : public ZelNode {
 public:
  static constexpr InterfaceType interfaceType = Collection;
  static ZelCollection* queryZelCollection(ZelNode* node) { return zelQuery<ZelCollection>(node); }

  // Appends the nodes of the children for which this is the parent that counts, in list order: a shared child
  // shows under one parent only. Ids without node are passed over.
  virtual bool getChildren(ZelNodeList& children) const = 0;
  // Replaces `ids` by the whole list of children, shared ones included, each id once.
  virtual bool getChildrenIds(ApiPmIdList& ids) const = 0;
  // Makes an object with this id, class and type at the origin of the study, puts it under this collection,
  // where it keeps that absolute placement, and publishes it. An empty class name takes that of the type.
  // Answers the child also when it was made but could not be placed under this collection; null when it could
  // not be made, and then nothing was made.
  //
  // Neither id nor class is looked up. With an id that is in use (ask ZelVorWrapper::isIdInUse before) a
  // second object of that id comes to stand in the document, and the id leads to the new node. The former
  // node is not deleted: pointers to it stay good until the next build, it leaves the roots, and no id leads
  // to it any more. Any class that can name an element is taken as it stands, known or not.
  virtual ZelNode* createChild(ZelNodeType type, const RWClassicWString& className, const ApiPmId& id) = 0;
  virtual ZelNode* createChild(ZelNodeType type, const ApiPmId& id) = 0;
  // Takes `child` from wherever it stands and puts it at the end of this collection; its absolute placement
  // stays. False, and nothing changed, under itself or one of its descendants.
  virtual bool moveChild(ZelNode* child) = 0;
  // A slot without meaning, kept for the order of the table: false.
  virtual bool reserved() = 0;
  // Takes the child out and deletes it, with publication. False for an id without node; nothing is changed
  // then.
  virtual bool removeChild(const ApiPmId& id) = 0;
};

class ZelVorCollection : public ZelNode {
 public:
  static constexpr InterfaceType interfaceType = VorCollection;
  static ZelVorCollection* queryZelVorCollection(ZelNode* node) { return zelQuery<ZelVorCollection>(node); }

  // As removeChild and moveChild of ZelCollection, without publication. A child moved so keeps its relative
  // placement.
  virtual bool removeChildLocally(const ApiPmId& id) = 0;
  virtual bool moveChildLocally(ZelNode* child) = 0;
};
