#pragma once

#include "node/ZelXmlConcreteNode.h"
#include "node/ZelXmlInstanceNode.h"

// A part instance: an instance that can be attached to another object.
class ZelXmlPartInstanceNode : public ZelXmlInstanceNode {
 public:
  ZelXmlGlobalAttachmentService& globalAttachment() { return attachment_; }
  const ZelXmlGlobalAttachmentService& globalAttachment() const { return attachment_; }

 private:
  ZelXmlGlobalAttachmentService attachment_{this};
};

class ZelXmlPartInstance final
    : public ZelXmlConcreteNode<ZelXmlPartInstance, ZelXmlPartInstanceNode, ZEL_PART_INSTANCE, ZelPhysical,
                                ZelInstance, ZelVorNode, ZelVorLabelsContainer, ZelVorInstance,
                                ZelGlobalAttachment> {};
