#include "zel/ZelPlcTypeConvertor.h"

#include "plc/PlcTypeTable.h"

const ZelPlcTypeConvertor& ZelPlcTypeConvertor::the() {
  static const ZelPlcTypeConvertor convertor;
  return convertor;
}

bool ZelPlcTypeConvertor::getPlcType(ZelNodeType type, RWClassicCString& text) const {
  const char* found = plc::textOf(type);
  if (found) text = found;
  return found != nullptr;
}

bool ZelPlcTypeConvertor::getZelType(std::string_view text, ZelNodeType& type) const {
  for (const plc::Type& row : plc::types) {
    if (text != row.text) continue;
    type = row.number;
    return true;
  }
  return false;
}
