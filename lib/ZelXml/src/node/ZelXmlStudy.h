#pragma once

#include "node/ZelXmlCollectionNode.h"
#include "node/ZelXmlConcreteNode.h"
#include "zel/ZelVorStudy.h"

// The base of a study's node: how objects are shown by shortcuts.
class ZelXmlStudyNode : public ZelXmlCollectionNode {
 public:
  // Deletes the object that a shortcut of this study shows, shortcut included; `id` is the object's.
  bool removeChild(const ApiPmId& id) override;
  // Makes a shortcut to the object, which becomes a root if it is none; the object itself stays where it is.
  bool addExistingChild(ZelNode* child) override;
  // As for collections, and published whole.
  bool createChild(const ZelXmlCreationRecord& record, ZelNode*& child) override;
  bool addLayoutChild(const IXMLDOMNode&) override { return true; }

  // Takes the object from its parent, then as addExistingChild.
  bool moveChild(ZelNode* child);
  // Removes the study info and the study layout of a shortcut, and its place in both lists, then the object
  // with its layout; the shortcut object stays. Publishes nothing.
  bool removeShownObjectLocally(const ApiPmId& id);

  bool containsNode(const ZelNode* node) const;
  bool hasShortcutChild(const ZelNode* node) const;
  bool getChildrenOfType(ZelNodeType type, ZelNodeList& nodes) const;
  ZelNode* createSubjectNode(const ApiPmId& id, ZelNodeType type, ZelNode::InterfaceType face);
  bool removeNodeShortcut(const ApiPmId& id);
  bool addShortcutInfo(ZelNode* node);

 private:
  bool findShortcutOf(const ZelNode* node, ApiPmId& shortcut) const;
  bool removeStudyInfo(const ApiPmId& shortcut);
};

template <class Self>
class ZelXmlFace<ZelVorStudy, Self> : public ZelVorStudy {
 public:
  bool containsNode(const ZelNode* node) const override { return study().containsNode(node); }
  ZelNode* createOperationNode(const ApiPmId& id) override {
    return study().createSubjectNode(id, ZEL_OPERATION, ZelNode::Operation);
  }
  ZelNode* createFlowNode(const ApiPmId& id) override {
    return study().createSubjectNode(id, ZEL_FLOW, ZelNode::Link);
  }
  bool getChildrenOfType(ZelNodeType type, ZelNodeList& nodes) const override {
    return study().getChildrenOfType(type, nodes);
  }
  bool hasShortcutChild(const ZelNode* node) const override { return study().hasShortcutChild(node); }
  bool removeNodeShortcut(const ApiPmId& id) override { return study().removeNodeShortcut(id); }
  bool addShortcutInfo(ZelNode* node) override { return study().addShortcutInfo(node); }

 private:
  ZelXmlStudyNode& study() { return static_cast<Self&>(*this); }
  const ZelXmlStudyNode& study() const { return static_cast<const Self&>(*this); }
};

class ZelXmlStudy;

// The local removal of a study is not that of its collection node: it takes the object that is shown. Written
// out as a face, since an override in the class would replace both.
template <>
class ZelXmlFace<ZelVorCollection, ZelXmlStudy> : public ZelVorCollection {
 public:
  bool removeChildLocally(const ApiPmId& id) override;
  // False: shortcuts are made by ZelCollection::moveChild only.
  bool moveChildLocally(ZelNode*) override { return false; }
};

// The node of a study object. Its own placement is the unit transformation, whatever stands in the document.
class ZelXmlStudy final
    : public ZelXmlConcreteNode<ZelXmlStudy, ZelXmlStudyNode, ZEL_STUDY, ZelVorStudy, ZelVorNode, ZelPhysical,
                                ZelCollection, ZelVorCollection> {
 public:
  bool getLocation(RTTran3D& location) const override;
  bool getAbsoluteLocation(RTTran3D& location) const override { return getLocation(location); }

  // ZelCollection: the new child gets its shortcut at once.
  ZelNode* createChild(ZelNodeType type, const RWClassicWString& className, const ApiPmId& id) override;
  ZelNode* createChild(ZelNodeType type, const ApiPmId& id) override { return createChild(type, {}, id); }
  using ZelXmlStudyNode::createChild;
  bool moveChild(ZelNode* child) override { return ZelXmlStudyNode::moveChild(child); }
  bool removeChild(const ApiPmId& id) override { return ZelXmlStudyNode::removeChild(id); }
};

// The node of the object that a shortcut shows; null when any step on the way fails.
ZelNode* zelXmlNodeOfShortcut(ZelXmlNodeHost& wrapper, const IXMLDOMNode& shortcut);
