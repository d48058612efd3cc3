#pragma once

#include "node/ZelXmlService.h"

// Global attachments of an object, kept in the fields `mountedTo`, `mountLocation`, `mountRotation`,
// `mountType` and `mountedToRelativeId` of its layout and in `mountedTools` of the target's layout. Without a
// layout of its own an object answers false to everything.
class ZelXmlGlobalAttachmentService {
 public:
  explicit ZelXmlGlobalAttachmentService(ZelXmlNode* owner) : owner_(owner) {}
  virtual ~ZelXmlGlobalAttachmentService() = default;

  bool getGloballyAttachedTools(ApiPmIdList& ids) const;
  bool getGlobalAttachment(ApiPmExtendedId& target, RTTran3D& placement, RWClassicWString& type) const;
  bool setGlobalAttachment(const ApiPmExtendedId& oldTarget, const ApiPmExtendedId& newTarget,
                           const RTTran3D& placement, const RWClassicWString& type);

 private:
  bool ownLayout(IXMLDOMNode& layout) const;
  bool targetLayout(const ApiPmId& target, IXMLDOMNode& layout) const;
  bool detach(const ApiPmId& target, const IXMLDOMNode& layout);
  bool clear(const IXMLDOMNode& layout);
  bool attach(const ApiPmExtendedId& target, const IXMLDOMNode& layout, const RTTran3D& placement,
              const RWClassicWString& type);

  ZelXmlNode* owner_;
};

// A node that can be attached to another object.
template <class Base>
class ZelXmlAttachableNode : public Base {
 public:
  ZelXmlGlobalAttachmentService& globalAttachment() { return attachment_; }
  const ZelXmlGlobalAttachmentService& globalAttachment() const { return attachment_; }

 private:
  ZelXmlGlobalAttachmentService attachment_{this};
};
