#pragma once

#include "node/ZelXmlNodeKinds.h"

// The kinds of node of variants.
ZelXmlNodeKinds::Rows zelXmlVariantKinds();
