#pragma once

#include "node/ZelXmlCompoundNode.h"

class ZelXmlCompoundPart final
    : public ZelXmlConcreteNode<ZelXmlCompoundPart, ZelXmlAttachableNode<ZelXmlCompoundNode>,
                                ZEL_COMPOUND_PART, ZelCompoundPart, ZelCompoundObject, ZelCollection,
                                ZelPhysical, ZelVorNode, ZelVorCollection, ZelVorCompoundPart,
                                ZelVorLabelsContainer, ZelGlobalAttachment> {
 public:
  bool getThreeDRepPath(ApiFullPathDocument& path) const override { return readThreeDRepPath(path.path); }
  bool setThreeDRepPath(const ApiFullPathDocument& path) override { return writeCompoundPath(path.path); }
  bool getPartChildren(ZelNodeList& children) const override { return readAllChildNodes(children); }
  bool getAssemblyType(int& assemblyType) const override {
    return zelXmlGetAssemblyType(*this, assemblyType);
  }
  bool setAssemblyType(int assemblyType) override {
    return zelXmlSetField(*this, zelCompoundFields.assemblyType, assemblyType);
  }
};
