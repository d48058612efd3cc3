#pragma once

#include <string>
#include <string_view>

#include "rt/RTTran3D.h"

// A placement as one text, as labels keep it: x, y, z, roll, pitch, yaw joined by "_", each with six decimals
// less the zeros at its end: "1.5_2._0._0._0._0.".
std::string zelXmlLocationText(const RTTran3D& location);
// Leaves `location` alone for a text of fewer than six parts.
void zelXmlParseLocationText(std::string_view text, RTTran3D& location);
