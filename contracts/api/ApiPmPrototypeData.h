#pragma once

#include <string>
#include <utility>

#include "api/ApiPmId.h"

// Class name and family value of a prototype.
class ApiPmTypeData {
 public:
  ApiPmTypeData() = default;
  ApiPmTypeData(std::string className, std::string family)
      : className_(std::move(className)), family_(std::move(family)) {}

  const std::string& className() const { return className_; }
  const std::string& family() const { return family_; }
  // 0 for a part, 1 for a tool, -1 for any other family.
  int familyType() const {
    return family_ == "PartPrototype"                                      ? 0
           : family_ == "ToolPrototype" || family_ == "EquipmentPrototype" ? 1
                                                                           : -1;
  }

 private:
  std::string className_;
  std::string family_;
};

struct ApiPmPrototypeData {
  ApiPmId id;
  ApiPmTypeData type;
  double weight = 0;

  ApiPmPrototypeData() = default;
  ApiPmPrototypeData(ApiPmId prototypeId, ApiPmTypeData typeData)
      : id(std::move(prototypeId)), type(std::move(typeData)) {}
};
