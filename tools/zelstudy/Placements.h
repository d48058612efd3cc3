#pragma once

#include <optional>

#include "dom/IXMLDOMElement.h"
#include "rt/RTTran3D.h"

namespace zelstudy {

// The placements of a layout object, in its parent and in the study. Nothing when a list does not hold three
// numbers, one of the six is missing, or a text is no number; an empty text is 0.
std::optional<RTTran3D> readRelative(const IXMLDOMElement& layout);
std::optional<RTTran3D> readAbsolute(const IXMLDOMElement& layout);

// Greatest of the three, without signs.
double reach(const RTVec3D& vector);

// Whether two placements are the same but for what rounding adds up to in some edits; `distance` is the
// greatest length that went into either of them.
bool isSameButForRounding(const RTTran3D& a, const RTTran3D& b, double distance);

}  // namespace zelstudy
