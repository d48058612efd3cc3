#pragma once

#include "node/ZelXmlCollectionNode.h"
#include "node/ZelXmlCompoundFaces.h"
#include "node/ZelXmlConcreteNode.h"
#include "zel/ZelVorProcessAssembly.h"

template <class Self>
class ZelXmlFace<ZelVorProcessAssembly, Self> : public ZelVorProcessAssembly {
 public:
  bool getThreeDRepPath(ApiFullPathDocument& path) const override {
    return zelXmlGetCompoundPath(static_cast<const Self&>(*this), path);
  }
  bool getAssemblyType(int& assemblyType) const override {
    return zelXmlGetAssemblyType(static_cast<const Self&>(*this), assemblyType);
  }
  bool getOperation(ApiPmId& operation) const override {
    ApiPmId own;
    return static_cast<const ZelXmlNode&>(static_cast<const Self&>(*this)).getExternalId(own) &&
           ZelVorProcessAssembly::getOperationFromProcessAssembly(own, operation);
  }
  bool reserved() override { return true; }
};

class ZelXmlProcessAssembly;

// Two faces with fixed answers. They are written out as faces, since overrides in the class would replace the
// operations of ZelXmlCollectionNode and ZelXmlNode too, which work and serve the wrapper.
template <>
class ZelXmlFace<ZelCollection, ZelXmlProcessAssembly> : public ZelCollection {
 public:
  bool getChildren(ZelNodeList&) const override { return true; }
  bool getChildrenIds(ApiPmIdList&) const override { return true; }
  ZelNode* createChild(ZelNodeType, const RWClassicWString&, const ApiPmId&) override { return nullptr; }
  ZelNode* createChild(ZelNodeType, const ApiPmId&) override { return nullptr; }
  bool moveChild(ZelNode*) override { return true; }
  bool reserved() override { return false; }
  bool removeChild(const ApiPmId&) override { return true; }
};

template <>
class ZelXmlFace<ZelVorLabelsContainer, ZelXmlProcessAssembly> : public ZelVorLabelsContainer {
 public:
  bool getLabels(ApiPmIdList& ids) const override;
  bool addLabel(const ApiPmId&, const ZelVorLabelData&) override { return false; }
  bool updateLabel(const ApiPmId&, const ZelVorLabelData&) override { return true; }
  bool removeLabelLocally(const ApiPmId&) override { return false; }
};

// A product object with a collection face that shows nothing of the ordinary collection: it exists for its
// place in the tree and for its operation. The fixed answers below are meant; the collection operations of
// its ZelXmlCollectionNode work and serve the wrapper.
class ZelXmlProcessAssembly final
    : public ZelXmlConcreteNode<ZelXmlProcessAssembly, ZelXmlCollectionNode, ZEL_PROCESS_ASSEMBLY,
                                ZelVorProcessAssembly, ZelVorNode, ZelPhysical, ZelCollection,
                                ZelVorLabelsContainer> {
 public:
  bool setName(const RWClassicWString&) override { return false; }
  const ZelNode* getParent() const override { return nullptr; }
  ZelNode* getParent() override { return nullptr; }
  bool getParentId(ApiPmId&) const override { return true; }
  bool setNameLocally(const RWClassicWString&) override { return false; }

  // The placement in the study for an assembly that stands in one, else the unit transformation.
  bool getLocation(RTTran3D& location) const override;
  bool getAbsoluteLocation(RTTran3D& location) const override;

  // The parent that counts must be a process assembly: the first of `parents` that is one, or none.
  bool validateRelevantParent() override;
};
