#pragma once

#include <string_view>

#include "rw/RWClassicText.h"
#include "zel/ZelNodeType.h"

// The text that stands for the type of an inner node in documents (`StringType`), and the type of a text.
// Each text belongs to one type. Types of objects have none.
//
// The texts of the six kinds of signals of devices and robots are those that their creation records give
// (ApiPlcSignalCreationData).
class ZelPlcTypeConvertor {
 public:
  static const ZelPlcTypeConvertor& the();
  ZelPlcTypeConvertor(const ZelPlcTypeConvertor&) = delete;
  ZelPlcTypeConvertor& operator=(const ZelPlcTypeConvertor&) = delete;

  // False, and the result untouched, for a type without text and an unknown text. Texts compare exactly.
  bool getPlcType(ZelNodeType type, RWClassicCString& text) const;
  bool getZelType(std::string_view text, ZelNodeType& type) const;

 private:
  ZelPlcTypeConvertor() = default;
};
