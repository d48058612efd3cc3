#pragma once

#include "node/ZelXmlNodeKinds.h"

// The kinds of node of prototypes and their assignments.
ZelXmlNodeKinds::Rows zelXmlPrototypeKinds();
