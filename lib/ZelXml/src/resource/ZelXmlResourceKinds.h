#pragma once

#include "node/ZelXmlNodeKinds.h"

// The kinds of node of placed resources.
ZelXmlNodeKinds::Rows zelXmlResourceKinds();
