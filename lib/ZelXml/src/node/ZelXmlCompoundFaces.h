#pragma once

#include "node/ZelXmlFace.h"
#include "zel/ZelCompound.h"

// What compounds and process assemblies keep in their element beside their children.
bool zelXmlGetCompoundPath(const ZelXmlNode& node, ApiFullPathDocument& path);
bool zelXmlSetCompoundPath(ZelXmlNode& node, const ApiFullPathDocument& path);
// Always true; an absent field leaves `assemblyType` alone.
bool zelXmlGetAssemblyType(const ZelXmlNode& node, int& assemblyType);
// Replaces or makes the field; publishes nothing.
bool zelXmlSetAssemblyType(ZelXmlNode& node, int assemblyType);
bool zelXmlPublishNode(const ZelXmlNode& node);
bool zelXmlGetAllChildNodes(const ZelXmlNode& node, ZelNodeList& children);
bool zelXmlHasProcess(const ZelXmlNode& node);
bool zelXmlGetProcess(const ZelXmlNode& node, RWClassicWString& process);
bool zelXmlGetCompoundFileName(const ZelXmlNode& node, RWClassicWString& name);

template <class Self>
class ZelXmlFace<ZelCompoundPart, Self> : public ZelCompoundPart {
 public:
  bool getThreeDRepPath(ApiFullPathDocument& path) const override {
    return zelXmlGetCompoundPath(static_cast<const Self&>(*this), path);
  }
  bool setThreeDRepPath(const ApiFullPathDocument& path) override {
    return zelXmlSetCompoundPath(static_cast<Self&>(*this), path);
  }
  bool getPartChildren(ZelNodeList& children) const override {
    return zelXmlGetAllChildNodes(static_cast<const Self&>(*this), children);
  }
};

template <class Self>
class ZelXmlFace<ZelCompoundResource, Self> : public ZelCompoundResource {
 public:
  bool getThreeDRepPath(ApiFullPathDocument& path) const override {
    return zelXmlGetCompoundPath(static_cast<const Self&>(*this), path);
  }
  bool setThreeDRepPath(const ApiFullPathDocument& path) override {
    return zelXmlSetCompoundPath(static_cast<Self&>(*this), path);
  }
};

template <class Self>
class ZelXmlFace<ZelCompoundObject, Self> : public ZelCompoundObject {
 public:
  bool getThreeDRepFileName(RWClassicWString& name) const override {
    return zelXmlGetCompoundFileName(static_cast<const Self&>(*this), name);
  }
};

template <class Self>
class ZelXmlFace<ZelVorCompoundPart, Self> : public ZelVorCompoundPart {
 public:
  bool getAssemblyType(int& assemblyType) const override {
    return zelXmlGetAssemblyType(static_cast<const Self&>(*this), assemblyType);
  }
  bool setAssemblyType(int assemblyType) override {
    return zelXmlSetAssemblyType(static_cast<Self&>(*this), assemblyType) &&
           zelXmlPublishNode(static_cast<Self&>(*this));
  }
};

template <class Self>
class ZelXmlFace<ZelVorCompoundResource, Self> : public ZelVorCompoundResource {
 public:
  bool hasProcess(bool& has) const override {
    has = zelXmlHasProcess(static_cast<const Self&>(*this));
    return true;
  }
  bool getProcess(RWClassicWString& process) const override {
    return zelXmlGetProcess(static_cast<const Self&>(*this), process);
  }
};
