#pragma once

#include "node/ZelXmlCompoundNode.h"
#include "zel/ZelVorProcessAssembly.h"

// The slot stands in two interfaces of the class, which answer differently.
template <class Self>
class ZelXmlFace<ZelVorProcessAssembly, Self> : public ZelVorProcessAssembly {
 public:
  bool reserved() override { return true; }
};

// A product object with a collection face that shows nothing of the ordinary collection: it exists for its
// place in the tree and for its operation. The fixed answers below are meant; what its ZelXmlCollectionNode
// does works and serves the wrapper.
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

  bool getThreeDRepPath(ApiFullPathDocument& path) const override { return readThreeDRepPath(path.path); }
  bool getAssemblyType(int& assemblyType) const override {
    return zelXmlGetAssemblyType(*this, assemblyType);
  }
  bool getOperation(ApiPmId& operation) const override;

  // The placement in the study for an assembly that stands in one, else the unit transformation.
  bool getLocation(RTTran3D& location) const override;
  bool getAbsoluteLocation(RTTran3D& location) const override;

  bool getChildren(ZelNodeList&) const override { return true; }
  bool getChildrenIds(ApiPmIdList&) const override { return true; }
  ZelNode* createChild(ZelNodeType, const RWClassicWString&, const ApiPmId&) override { return nullptr; }
  ZelNode* createChild(ZelNodeType, const ApiPmId&) override { return nullptr; }
  bool moveChild(ZelNode*) override { return true; }
  bool removeChild(const ApiPmId&) override { return true; }

  bool addLabel(const ApiPmId&, const ZelVorLabelData&) override { return false; }
  bool updateLabel(const ApiPmId&, const ZelVorLabelData&) override { return true; }
  bool removeLabelLocally(const ApiPmId&) override { return false; }

  // The parent that counts must be a process assembly: the first of `parents` that is one, or none.
  bool validateRelevantParent() override;
};
