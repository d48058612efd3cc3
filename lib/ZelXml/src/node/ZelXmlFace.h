#pragma once

#include "node/ZelXmlCollectionService.h"
#include "node/ZelXmlGlobalAttachmentService.h"
#include "node/ZelXmlNode.h"
#include "node/ZelXmlNodeFields.h"
#include "zel/ZelCollection.h"
#include "zel/ZelCompound.h"
#include "zel/ZelGlobalAttachment.h"
#include "zel/ZelPhysical.h"
#include "zel/ZelPlcResourceInstance.h"
#include "zel/ZelVorLabel.h"
#include "zel/ZelVorNode.h"
#include "zel/ZelVorPlaceholder.h"

// How the node class `Self` serves the interface `I`, once for all classes that serve it alike: by operations
// and services of the ZelXmlNode, which self() leads to. A class that alone serves an interface, or serves it
// otherwise, writes its operations out.
template <class I, class Self>
class ZelXmlFace : public I {};

template <class I, class Self>
class ZelXmlSharedFace : public I {
 protected:
  Self& self() { return static_cast<Self&>(*this); }
  const Self& self() const { return static_cast<const Self&>(*this); }
};

template <class Self>
class ZelXmlFace<ZelPhysical, Self> : public ZelXmlSharedFace<ZelPhysical, Self> {
  using ZelXmlSharedFace<ZelPhysical, Self>::self;

 public:
  bool getLocation(RTTran3D& location) const override { return self().readLocation(location); }
  bool setLocation(const RTTran3D& location) override { return self().writeLocation(location); }
  bool getAbsoluteLocation(RTTran3D& location) const override {
    return self().readAbsoluteLocation(location);
  }
};

template <class Self>
class ZelXmlFace<ZelVorNode, Self> : public ZelXmlSharedFace<ZelVorNode, Self> {
  using ZelXmlSharedFace<ZelVorNode, Self>::self;

 public:
  bool getSolvaneName(RWClassicWString& name) const override {
    return zelXmlGetField(self(), zelObjectFields.SolvaneName, name);
  }
  bool getDisplayStringType(RWClassicWString& type) const override {
    return self().readDisplayStringType(type);
  }
  bool getInternalId(ApiPmInternalId& id) const override {
    return zelXmlGetField(self(), zelObjectFields.internalId, id);
  }
  bool setNameLocally(const RWClassicWString& name) override { return self().writeNameLocally(name); }
};

template <class Self>
class ZelXmlFace<ZelVorLabelsContainer, Self> : public ZelXmlSharedFace<ZelVorLabelsContainer, Self> {
  using ZelXmlSharedFace<ZelVorLabelsContainer, Self>::self;

 public:
  bool getLabels(ApiPmIdList& ids) const override { return self().readLabels(ids); }
  bool addLabel(const ApiPmId& id, const ZelVorLabelData& data) override {
    return self().createLabel(id, data);
  }
  bool updateLabel(const ApiPmId& id, const ZelVorLabelData& data) override {
    return self().writeLabel(id, data);
  }
  bool removeLabelLocally(const ApiPmId& id) override { return self().dropLabel(id); }
};

// Collections: `Self` answers collectionService().
template <class Self>
class ZelXmlFace<ZelCollection, Self> : public ZelXmlSharedFace<ZelCollection, Self> {
  using ZelXmlSharedFace<ZelCollection, Self>::self;

 public:
  bool getChildren(ZelNodeList& children) const override {
    return self().collectionService().getChildNodes(children);
  }
  bool getChildrenIds(ApiPmIdList& ids) const override { return self().collectionService().getChildIds(ids); }
  ZelNode* createChild(ZelNodeType type, const RWClassicWString& className, const ApiPmId& id) override {
    return self().collectionService().createPlacedChild(type, className, id);
  }
  ZelNode* createChild(ZelNodeType type, const ApiPmId& id) override { return createChild(type, {}, id); }
  bool moveChild(ZelNode* child) override { return self().collectionService().moveChild(child); }
  bool reserved() override { return false; }
  bool removeChild(const ApiPmId& id) override { return self().collectionService().removeChild(id); }
};

template <class Self>
class ZelXmlFace<ZelVorCollection, Self> : public ZelXmlSharedFace<ZelVorCollection, Self> {
  using ZelXmlSharedFace<ZelVorCollection, Self>::self;

 public:
  bool removeChildLocally(const ApiPmId& id) override {
    return self().collectionService().removeChildLocally(id);
  }
  bool moveChildLocally(ZelNode* child) override {
    return self().collectionService().moveChildLocally(child);
  }
};

// Global attachments: `Self` answers globalAttachment().
template <class Self>
class ZelXmlFace<ZelGlobalAttachment, Self> : public ZelXmlSharedFace<ZelGlobalAttachment, Self> {
  using ZelXmlSharedFace<ZelGlobalAttachment, Self>::self;

 public:
  bool getGloballyAttachedTools(ApiPmIdList& ids) const override {
    return self().globalAttachment().getGloballyAttachedTools(ids);
  }
  bool getGlobalAttachment(ApiPmExtendedId& target, RTTran3D& placement,
                           RWClassicWString& type) const override {
    return self().globalAttachment().getGlobalAttachment(target, placement, type);
  }
  bool setGlobalAttachment(const ApiPmExtendedId& oldTarget, const ApiPmExtendedId& newTarget,
                           const RTTran3D& placement, const RWClassicWString& type) override {
    return self().globalAttachment().setGlobalAttachment(oldTarget, newTarget, placement, type);
  }
};

// The services that all objects with PLC data share, on each interface that has them.
template <class I, class Self>
class ZelXmlPlcServicesFace : public ZelXmlSharedFace<I, Self> {
 protected:
  using ZelXmlSharedFace<I, Self>::self;

 public:
  bool publishPlcInfo() override { return self().publishPlcData(); }
  bool removePlcInfo() override { return self().removePlcData(); }
  bool isOriginalPlcData(bool& original) const override { return self().isOriginal(original); }
  bool setPlcVersion(const RWClassicCString& version) override {
    return zelXmlSetField(self(), zelPlcDataFields.version, version);
  }
  bool getPlcVersion(RWClassicCString& version) const override {
    return zelXmlGetField(self(), zelPlcDataFields.version, version);
  }
};

template <class Self>
class ZelXmlFace<ZelPlcResourceInstance, Self> : public ZelXmlPlcServicesFace<ZelPlcResourceInstance, Self> {
  using ZelXmlPlcServicesFace<ZelPlcResourceInstance, Self>::self;

 public:
  bool hasElement() const override { return static_cast<bool>(self().getXmlNode()); }
};
