#pragma once

#include <string>
#include <string_view>

#include "rt/RTTran3D.h"

// A placement as one text, as frames and tools of robots keep it: x, y, z, roll, pitch, yaw joined by "_".
// Ten significant digits, whatever the locale; a "." always stands behind the whole digits, and no zero has a
// sign: "0.", "12.5", "-1.e-07". What is no finite number is written as it would be read, as zero.
std::string zelXmlFormatFrameNumber(double value);
std::string zelXmlFormatFrameText(const RTTran3D& location);

// Any text reads as a placement. Numbers are read as zelXmlParseDouble does; the last one stands for all that
// are missing behind it, and a seventh is not looked at.
RTTran3D zelXmlParseFrameText(std::string_view text);
