#pragma once

#include "node/ZelXmlCollectionService.h"
#include "node/ZelXmlGlobalAttachmentService.h"
#include "node/ZelXmlNode.h"
#include "zel/ZelCollection.h"
#include "zel/ZelCompound.h"
#include "zel/ZelGlobalAttachment.h"
#include "zel/ZelPhysical.h"
#include "zel/ZelPlcResourceInstance.h"
#include "zel/ZelVorLabel.h"
#include "zel/ZelVorNode.h"
#include "zel/ZelVorPlaceholder.h"

// How the node class `Self` serves the interface `I`: one implementation per interface, which goes to the
// ZelXmlNode or to a service of the object.
template <class I, class Self>
class ZelXmlFace;

template <class Self>
class ZelXmlFace<ZelPhysical, Self> : public ZelPhysical {
 public:
  bool getLocation(RTTran3D& location) const override { return node().getLocation(location); }
  bool setLocation(const RTTran3D& location) override {
    return static_cast<ZelXmlNode&>(static_cast<Self&>(*this)).setLocation(location);
  }
  bool getAbsoluteLocation(RTTran3D& location) const override { return node().getAbsoluteLocation(location); }

 private:
  const ZelXmlNode& node() const { return static_cast<const Self&>(*this); }
};

template <class Self>
class ZelXmlFace<ZelVorNode, Self> : public ZelVorNode {
 public:
  bool getSolvaneName(RWClassicWString& name) const override { return node().getSolvaneName(name); }
  bool getDisplayStringType(RWClassicWString& type) const override {
    return node().getDisplayStringType(type);
  }
  bool getInternalId(ApiPmInternalId& id) const override { return node().getInternalId(id); }
  bool setNameLocally(const RWClassicWString& name) override {
    return static_cast<ZelXmlNode&>(static_cast<Self&>(*this)).setNameLocally(name);
  }

 private:
  const ZelXmlNode& node() const { return static_cast<const Self&>(*this); }
};

template <class Self>
class ZelXmlFace<ZelVorLabelsContainer, Self> : public ZelVorLabelsContainer {
 public:
  bool getLabels(ApiPmIdList& ids) const override {
    return static_cast<const ZelXmlNode&>(static_cast<const Self&>(*this)).getLabels(ids);
  }
  bool addLabel(const ApiPmId& id, const ZelVorLabelData& data) override { return node().addLabel(id, data); }
  bool updateLabel(const ApiPmId& id, const ZelVorLabelData& data) override {
    return node().updateLabel(id, data);
  }
  bool removeLabelLocally(const ApiPmId& id) override { return node().removeLabelLocally(id); }

 private:
  ZelXmlNode& node() { return static_cast<Self&>(*this); }
};

// Collections: `Self` answers collectionService().
template <class Self>
class ZelXmlFace<ZelCollection, Self> : public ZelCollection {
 public:
  bool getChildren(ZelNodeList& children) const override {
    return static_cast<const Self&>(*this).collectionService().getChildNodes(children);
  }
  bool getChildrenIds(ApiPmIdList& ids) const override {
    return static_cast<const Self&>(*this).collectionService().getChildIds(ids);
  }
  ZelNode* createChild(ZelNodeType type, const RWClassicWString& className, const ApiPmId& id) override {
    return service().createPlacedChild(type, className, id);
  }
  // Through the virtual operation, so that a class that writes out the other form changes this one too.
  ZelNode* createChild(ZelNodeType type, const ApiPmId& id) override {
    return static_cast<ZelCollection&>(*this).createChild(type, {}, id);
  }
  bool moveChild(ZelNode* child) override { return service().moveChild(child); }
  bool reserved() override { return false; }
  bool removeChild(const ApiPmId& id) override { return service().removeChild(id); }

 private:
  ZelXmlCollectionService& service() { return static_cast<Self&>(*this).collectionService(); }
};

template <class Self>
class ZelXmlFace<ZelVorCollection, Self> : public ZelVorCollection {
 public:
  bool removeChildLocally(const ApiPmId& id) override { return service().removeChildLocally(id); }
  bool moveChildLocally(ZelNode* child) override { return service().moveChildLocally(child); }

 private:
  ZelXmlCollectionService& service() { return static_cast<Self&>(*this).collectionService(); }
};

// Global attachments: `Self` answers globalAttachment().
template <class Self>
class ZelXmlFace<ZelGlobalAttachment, Self> : public ZelGlobalAttachment {
 public:
  bool getGloballyAttachedTools(ApiPmIdList& ids) const override {
    return service().getGloballyAttachedTools(ids);
  }
  bool getGlobalAttachment(ApiPmExtendedId& target, RTTran3D& placement,
                           RWClassicWString& type) const override {
    return service().getGlobalAttachment(target, placement, type);
  }
  bool setGlobalAttachment(const ApiPmExtendedId& oldTarget, const ApiPmExtendedId& newTarget,
                           const RTTran3D& placement, const RWClassicWString& type) override {
    return static_cast<Self&>(*this).globalAttachment().setGlobalAttachment(oldTarget, newTarget, placement,
                                                                            type);
  }

 private:
  const ZelXmlGlobalAttachmentService& service() const {
    return static_cast<const Self&>(*this).globalAttachment();
  }
};

// PLC services that all objects with PLC data share.
template <class Self>
class ZelXmlFace<ZelPlcResourceInstance, Self> : public ZelPlcResourceInstance {
 public:
  bool publishPlcInfo() override { return node().publishPlcData(); }
  bool removePlcInfo() override { return node().removePlcData(); }
  bool isOriginalPlcData(bool& original) const override { return constNode().isOriginal(original); }
  bool setPlcVersion(const RWClassicCString& version) override { return node().setVersion(version); }
  bool getPlcVersion(RWClassicCString& version) const override { return constNode().getVersion(version); }
  bool hasElement() const override { return static_cast<bool>(constNode().getXmlNode()); }

 private:
  ZelXmlNode& node() { return static_cast<Self&>(*this); }
  const ZelXmlNode& constNode() const { return static_cast<const Self&>(*this); }
};
