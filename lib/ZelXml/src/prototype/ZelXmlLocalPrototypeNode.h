#pragma once

#include <utility>

#include "prototype/ZelXmlPrototypeNode.h"

// A prototype that lives in memory alone: it has no element in any document, and keeps its values itself.
// What would need an element answers false: to write a description, labels, deletion, all that ZelVorNode
// tells. It belongs to the registry like any other node, is neither root nor child, and goes with the next
// build.
class ZelXmlLocalPrototypeNode final
    : public ZelXmlConcreteNode<ZelXmlLocalPrototypeNode, ZelXmlPrototypeNode, ZEL_PART_PROTOTYPE,
                                ZelPrototype, ZelVorNode> {
 public:
  // `type` is that of a part or of a resource prototype. Path and name are empty at first.
  ZelXmlLocalPrototypeNode(const ApiPmId& id, ZelNodeType type, RWClassicWString className)
      : type_(type), className_(std::move(className)) {
    setId(id);
  }

  ZelNodeType type() const override { return type_; }
  bool getName(RWClassicWString& name) const override { return copy(name_, name); }
  bool getCaption(RWClassicWString& caption) const override { return copy(name_, caption); }
  bool setName(const RWClassicWString& name) override { return copy(name, name_); }
  bool getStringType(RWClassicWString& type) const override { return copy(className_, type); }
  bool getDescription(RWClassicWString& description) const override { return copy({}, description); }
  bool setDescription(const RWClassicWString&) override { return false; }

  bool readPrototypePath(RWClassicWString& path) const override { return copy(path_, path); }
  bool writePrototypePath(const RWClassicWString& path) override { return copy(path, path_); }

 private:
  static bool copy(const RWClassicWString& value, RWClassicWString& result) {
    result = value;
    return true;
  }

  ZelNodeType type_;
  RWClassicWString className_;
  RWClassicWString path_;
  RWClassicWString name_;
};
