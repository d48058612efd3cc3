#pragma once

#include <optional>

#include "node/ZelXmlService.h"

// Mounts of an object on others, kept in the fields `mountedTo`, `mountLocation`, `mountRotation`,
// `mountType` and `mountedToRelativeId` of its layout and in `mountedTools` of the target's layout. There are
// two sorts over the same fields: a global attachment has a type, a plain mount has none, and readers of one
// sort do not see the other. Without a layout of its own an object answers false to everything.
class ZelXmlGlobalAttachmentService {
 public:
  explicit ZelXmlGlobalAttachmentService(ZelXmlNode* owner) : owner_(owner) {}
  virtual ~ZelXmlGlobalAttachmentService() = default;

  // Plain mounts: see ZelResourceInstance.
  bool getMountedTools(ApiPmIdList& ids) const { return listMounted(false, ids); }
  bool getMountedTo(ApiPmId& target, RTTran3D& placement) const;
  bool setMountLocation(const RTTran3D& placement);
  bool setMount(const ApiPmId& oldTarget, const ApiPmId& newTarget, const RTTran3D& placement);

  // Global attachments: see ZelGlobalAttachment. One with an empty type is a plain mount.
  bool getGloballyAttachedTools(ApiPmIdList& ids) const { return listMounted(true, ids); }
  bool getGlobalAttachment(ApiPmExtendedId& target, RTTran3D& placement, RWClassicWString& type) const;
  bool setGlobalAttachment(const ApiPmExtendedId& oldTarget, const ApiPmExtendedId& newTarget,
                           const RTTran3D& placement, const RWClassicWString& type);

 private:
  // What a global attachment has beyond target and placement.
  struct Global {
    ApiKey key;
    RWClassicWString type;
  };
  using Variant = std::optional<Global>;  // a plain mount has none

  bool ownLayout(IXMLDOMNode& layout) const;
  bool targetLayout(const ApiPmId& target, IXMLDOMNode& layout) const;
  bool listMounted(bool isGlobal, ApiPmIdList& ids) const;
  bool readTarget(const IXMLDOMNode& layout, ApiPmId& target) const;
  bool change(const ApiPmId& oldTarget, const ApiPmId& newTarget, const RTTran3D& placement,
              const Variant& variant);
  bool detach(const ApiPmId& target, const IXMLDOMNode& layout);
  bool clear(const IXMLDOMNode& layout);
  bool attach(const ApiPmId& target, const IXMLDOMNode& layout, const RTTran3D& placement,
              const Variant& variant);

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
