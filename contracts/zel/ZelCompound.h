#pragma once

#include "zel/ZelNode.h"

class ZelCompoundPart : public ZelNode {
 public:
  static constexpr InterfaceType interfaceType = CompoundPart;
  static ZelCompoundPart* queryZelCompoundPart(ZelNode* node) { return zelQuery<ZelCompoundPart>(node); }

  // Path of the 3D representation; false without one, or when its file name is empty.
  virtual bool getThreeDRepPath(ApiFullPathDocument& path) const = 0;
  // Stores the path, relative to the system root where it lies below it; the representation object and its
  // file object are made if need be. Publishes the compound and the representation object.
  virtual bool setThreeDRepPath(const ApiFullPathDocument& path) = 0;
  // Appends the nodes of all children, shared ones included.
  virtual bool getPartChildren(ZelNodeList& children) const = 0;
};

class ZelCompoundResource : public ZelNode {
 public:
  static constexpr InterfaceType interfaceType = CompoundResource;
  static ZelCompoundResource* queryZelCompoundResource(ZelNode* node) {
    return zelQuery<ZelCompoundResource>(node);
  }

  // As for ZelCompoundPart.
  virtual bool getThreeDRepPath(ApiFullPathDocument& path) const = 0;
  virtual bool setThreeDRepPath(const ApiFullPathDocument& path) = 0;
};

class ZelCompoundObject : public ZelNode {
 public:
  static constexpr InterfaceType interfaceType = CompoundObject;
  static ZelCompoundObject* queryZelCompoundObject(ZelNode* node) {
    return zelQuery<ZelCompoundObject>(node);
  }

  // File name part of the path of the 3D representation.
  virtual bool getThreeDRepFileName(RWClassicWString& name) const = 0;
};

class ZelVorCompoundPart : public ZelNode {
 public:
  static constexpr InterfaceType interfaceType = VorCompoundPart;
  static ZelVorCompoundPart* queryZelVorCompoundPart(ZelNode* node) {
    return zelQuery<ZelVorCompoundPart>(node);
  }

  // Field `assemblyType`; absent, `assemblyType` keeps the caller's value. Always true.
  virtual bool getAssemblyType(int& assemblyType) const = 0;
  // Replaces or makes the field, and publishes the compound.
  virtual bool setAssemblyType(int assemblyType) = 0;
};

class ZelVorCompoundResource : public ZelNode {
 public:
  static constexpr InterfaceType interfaceType = VorCompoundResource;
  static ZelVorCompoundResource* queryZelVorCompoundResource(ZelNode* node) {
    return zelQuery<ZelVorCompoundResource>(node);
  }

  // Whether the compound has the field `process`. Always true.
  virtual bool hasProcess(bool& has) const = 0;
  virtual bool getProcess(RWClassicWString& process) const = 0;
};
