#pragma once

#include "node/ZelXmlCollectionNode.h"
#include "node/ZelXmlConcreteNode.h"
#include "zel/ZelVorStudy.h"

// The node of a study object, which shows objects by shortcuts. Its own placement is the unit transformation,
// whatever stands in the document.
class ZelXmlStudy final
    : public ZelXmlConcreteNode<ZelXmlStudy, ZelXmlCollectionNode, ZEL_STUDY, ZelVorStudy, ZelVorNode,
                                ZelPhysical, ZelCollection, ZelVorCollection> {
 public:
  bool getLocation(RTTran3D& location) const override;
  bool getAbsoluteLocation(RTTran3D& location) const override { return getLocation(location); }

  // ZelCollection. The new child is published whole and gets its shortcut at once. A child that moves here
  // leaves its parent. Removal deletes the object that a shortcut of this study shows, shortcut included; the
  // id is the object's.
  ZelNode* createChild(ZelNodeType type, const RWClassicWString& className, const ApiPmId& id) override;
  ZelNode* createChild(ZelNodeType type, const ApiPmId& id) override { return createChild(type, {}, id); }
  bool moveChild(ZelNode* child) override;
  bool removeChild(const ApiPmId& id) override;

  // ZelVorCollection. Removes the study info and the study layout of a shortcut, and its place in both lists,
  // then the object with its layout; the shortcut object stays. Shortcuts are made by moveChild only.
  bool removeChildLocally(const ApiPmId& id) override;
  bool moveChildLocally(ZelNode*) override { return false; }

  bool containsNode(const ZelNode* node) const override;
  ZelNode* createOperationNode(const ApiPmId& id) override;
  ZelNode* createFlowNode(const ApiPmId& id) override;
  bool hasShortcutChild(const ZelNode* node) const override;
  bool getChildrenOfType(ZelNodeType type, ZelNodeList& nodes) const override;
  bool removeNodeShortcut(const ApiPmId& id) override;
  bool addShortcutInfo(ZelNode* node) override;

 private:
  // Makes a shortcut to the object, which becomes a root if it is none; the object itself stays where it is.
  bool addExistingChild(ZelNode* child);
  ZelNode* createSubjectNode(const ApiPmId& id, ZelNodeType type, ZelNode::InterfaceType face);
  bool findShortcutOf(const ZelNode* node, ApiPmId& shortcut) const;
  bool removeStudyInfo(const ApiPmId& shortcut);
};

// The node of the object that a shortcut shows; null when any step on the way fails.
ZelNode* zelXmlNodeOfShortcut(ZelXmlNodeHost& wrapper, const IXMLDOMNode& shortcut);
