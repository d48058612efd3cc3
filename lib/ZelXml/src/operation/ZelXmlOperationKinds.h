#pragma once

#include "node/ZelXmlNodeKinds.h"

// The kinds of node of operations and flows.
ZelXmlNodeKinds::Rows zelXmlOperationKinds();
