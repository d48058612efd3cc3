#pragma once

#include "rt/RTTran3D.h"
#include "zel/ZelNode.h"

// Attachment of an object to another, so that it moves with it, by a relation between the two layout objects.
// A global attachment has a type text; a plain mount has none.
class ZelGlobalAttachment : public ZelNode {
 public:
  static constexpr InterfaceType interfaceType = GlobalAttachment;
  static ZelGlobalAttachment* queryZelGlobalAttachment(ZelNode* node) {
    return zelQuery<ZelGlobalAttachment>(node);
  }

  // Appends the ids of the objects attached to this one, plain mounts left out. False without a layout.
  virtual bool getGloballyAttachedTools(ApiPmIdList& ids) const = 0;
  // Target, placement on it and type. False for an object that is not attached and for a plain mount; target
  // and placement may have been written by then.
  virtual bool getGlobalAttachment(ApiPmExtendedId& target, RTTran3D& placement,
                                   RWClassicWString& type) const = 0;
  // Detaches from `oldTarget` if it has a node, then attaches to `newTarget`, or clears the attachment when
  // that has no node. Publishes the layouts of both. A step that fails ends with false; earlier steps stand.
  virtual bool setGlobalAttachment(const ApiPmExtendedId& oldTarget, const ApiPmExtendedId& newTarget,
                                   const RTTran3D& placement, const RWClassicWString& type) = 0;
};
