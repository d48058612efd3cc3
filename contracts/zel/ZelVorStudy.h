#pragma once

#include "zel/ZelNode.h"

// A study shows objects of the document by shortcuts: its children are shortcut objects, each with a study
// info object at the same place of the list `info`, whose layout places the object in the study.
class ZelVorStudy : public ZelNode {
 public:
  static constexpr InterfaceType interfaceType = VorStudy;
  static ZelVorStudy* queryZelVorStudy(ZelNode* node) { return zelQuery<ZelVorStudy>(node); }

  // Whether the object's shortcut names this study as its parent.
  virtual bool containsNode(const ZelNode* node) const = 0;
  // Makes the node of an operation or flow element that stands in the document without one, and answers its
  // interface (ZelNode::Operation, ZelNode::Link); null without the element or the interface.
  virtual ZelNode* createOperationNode(const ApiPmId& id) = 0;
  virtual ZelNode* createFlowNode(const ApiPmId& id) = 0;
  // Replaces `nodes` by the objects of this type among those shown, in order. False, and `nodes` untouched,
  // when a shortcut cannot be found.
  virtual bool getChildrenOfType(ZelNodeType type, ZelNodeList& nodes) const = 0;
  // Whether the object's shortcut is in the list of children.
  virtual bool hasShortcutChild(const ZelNode* node) const = 0;
  // Takes the object out of the study, with publication; the object stays. False without a shortcut.
  virtual bool removeNodeShortcut(const ApiPmId& id) = 0;
  // Lists the shortcut that the object has already, with a new study info and a new study layout.
  virtual bool addShortcutInfo(ZelNode* node) = 0;
};
