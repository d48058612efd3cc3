#pragma once

#include "node/ZelXmlCollectionNode.h"
#include "node/ZelXmlConcreteNode.h"
#include "zel/ZelCompound.h"

// Always true; an absent field leaves `assemblyType` alone.
inline bool zelXmlGetAssemblyType(const ZelXmlNode& node, int& assemblyType) {
  zelXmlGetField(node, zelCompoundFields.assemblyType, assemblyType);
  return true;
}

// A compound: a collection with a 3D representation of its own.
class ZelXmlCompoundNode : public ZelXmlCollectionNode {
 public:
  bool createXmlElement(const ZelXmlCreationRecord& record, IXMLDOMNode& element) override;

  // Publishes the compound and its representation object.
  bool writeCompoundPath(const RWClassicWString& path);
  bool readCompoundFileName(RWClassicWString& name) const;
  // Appends the nodes of all children, shared ones included.
  bool readAllChildNodes(ZelNodeList& children) const;
};

template <class Self>
class ZelXmlFace<ZelCompoundResource, Self> : public ZelXmlSharedFace<ZelCompoundResource, Self> {
  using ZelXmlSharedFace<ZelCompoundResource, Self>::self;

 public:
  bool getThreeDRepPath(ApiFullPathDocument& path) const override {
    return self().readThreeDRepPath(path.path);
  }
  bool setThreeDRepPath(const ApiFullPathDocument& path) override {
    return self().writeCompoundPath(path.path);
  }
};

template <class Self>
class ZelXmlFace<ZelCompoundObject, Self> : public ZelXmlSharedFace<ZelCompoundObject, Self> {
  using ZelXmlSharedFace<ZelCompoundObject, Self>::self;

 public:
  bool getThreeDRepFileName(RWClassicWString& name) const override {
    return self().readCompoundFileName(name);
  }
};

template <class Self>
class ZelXmlFace<ZelVorCompoundResource, Self> : public ZelXmlSharedFace<ZelVorCompoundResource, Self> {
  using ZelXmlSharedFace<ZelVorCompoundResource, Self>::self;

 public:
  bool hasProcess(bool& has) const override {
    has = zelXmlHasField(self().getXmlNode(), zelCompoundFields.process);
    return true;
  }
  bool getProcess(RWClassicWString& process) const override {
    return zelXmlGetField(self(), zelCompoundFields.process, process);
  }
};
