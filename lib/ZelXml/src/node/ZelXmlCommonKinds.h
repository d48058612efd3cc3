#pragma once

#include "node/ZelXmlNodeKinds.h"

// The kinds of node of the room that all families stand on.
ZelXmlNodeKinds::Rows zelXmlCommonKinds();
