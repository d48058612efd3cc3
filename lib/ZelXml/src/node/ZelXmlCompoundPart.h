#pragma once

#include "node/ZelXmlCollectionNode.h"
#include "node/ZelXmlCompoundFaces.h"
#include "node/ZelXmlConcreteNode.h"
#include "node/ZelXmlNewElements.h"

// A compound of either kind: a collection whose new element comes by the recipe of compounds, and which can
// be attached to another object.
class ZelXmlCompoundNode : public ZelXmlCollectionNode {
 public:
  bool createXmlElement(const ZelXmlCreationRecord& record, IXMLDOMNode& element) override {
    return getWrapper() && zelXmlCreateCompoundElement(*getWrapper(), record, element);
  }
  ZelXmlGlobalAttachmentService& globalAttachment() { return attachment_; }
  const ZelXmlGlobalAttachmentService& globalAttachment() const { return attachment_; }

 private:
  ZelXmlGlobalAttachmentService attachment_{this};
};

class ZelXmlCompoundPart final
    : public ZelXmlConcreteNode<ZelXmlCompoundPart, ZelXmlCompoundNode, ZEL_COMPOUND_PART, ZelCompoundPart,
                                ZelCompoundObject, ZelCollection, ZelPhysical, ZelVorNode, ZelVorCollection,
                                ZelVorCompoundPart, ZelVorLabelsContainer, ZelGlobalAttachment> {};
