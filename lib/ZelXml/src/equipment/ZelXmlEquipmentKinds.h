#pragma once

#include "node/ZelXmlNodeKinds.h"

// The kinds of node of equipment.
ZelXmlNodeKinds::Rows zelXmlEquipmentKinds();
