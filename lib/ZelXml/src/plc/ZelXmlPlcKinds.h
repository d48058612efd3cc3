#pragma once

#include "node/ZelXmlNodeKinds.h"

// The kinds of node of control logic.
ZelXmlNodeKinds::Rows zelXmlPlcKinds();
