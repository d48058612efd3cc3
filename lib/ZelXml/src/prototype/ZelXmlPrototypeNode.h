#pragma once

#include <cstdint>

#include "node/ZelXmlConcreteNode.h"
#include "zel/ZelPrototype.h"

// The `.jt` file of a prototype: the directory followed by the first name that a listing of it gives. The
// empty name for a directory without one; false, and `file` untouched, for one that cannot be read.
bool zelXmlFindJtFile(const RWClassicWString& directory, RWClassicWString& file);

// Prototypes: reusable definitions behind instances. They stand beside the tree.
class ZelXmlPrototypeNode : public ZelXmlNode {
 public:
  virtual bool readPrototypePath(RWClassicWString& path) const { return readThreeDRepPath(path); }
  virtual bool writePrototypePath(const RWClassicWString& path) { return writeThreeDRepPath(path); }

  // Callers are told of no parent, also where a list of children names the prototype.
  bool readShownParentId(ApiPmId&) const override { return false; }

  // The `.jt` file in the directory of the prototype; empty in every case but a file that was found.
  bool getJtFile(RWClassicWString& file) const;
  bool readModificationTime(std::int64_t& time) const;

 private:
  // The one value that a node keeps, since reading it touches the disk twice. 0: not known yet.
  mutable std::int64_t modificationTime_ = 0;
};

class ZelXmlResPrototypeBaseNode : public ZelXmlPrototypeNode {};

template <class Self>
class ZelXmlFace<ZelPrototype, Self> : public ZelXmlSharedFace<ZelPrototype, Self> {
  using ZelXmlSharedFace<ZelPrototype, Self>::self;

 public:
  bool getPrototypePath(RWClassicWString& path) const override { return self().readPrototypePath(path); }
  bool setPrototypePath(const RWClassicWString& path) override { return self().writePrototypePath(path); }
  bool reserved() override { return false; }
  bool getModificationTime(std::int64_t& time) const override { return self().readModificationTime(time); }
};

class ZelXmlPartPrototype final : public ZelXmlConcreteNode<ZelXmlPartPrototype, ZelXmlPrototypeNode,
                                                            ZEL_PART_PROTOTYPE, ZelPrototype, ZelVorNode> {};

class ZelXmlResourcePrototype final
    : public ZelXmlConcreteNode<ZelXmlResourcePrototype, ZelXmlResPrototypeBaseNode, ZEL_RESOURCE_PROTOTYPE,
                                ZelPrototype, ZelVorNode> {};

class ZelXmlLightSensorPrototype final
    : public ZelXmlConcreteNode<ZelXmlLightSensorPrototype, ZelXmlResPrototypeBaseNode,
                                ZEL_LIGHT_SENSOR_PROTOTYPE, ZelPrototype, ZelVorNode> {};

class ZelXmlPropertySensorPrototype final
    : public ZelXmlConcreteNode<ZelXmlPropertySensorPrototype, ZelXmlResPrototypeBaseNode,
                                ZEL_PROPERTY_SENSOR_PROTOTYPE, ZelPrototype, ZelVorNode> {};
