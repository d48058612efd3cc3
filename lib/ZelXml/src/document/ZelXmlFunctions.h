#pragma once

// The document layer: free functions on documents and elements, without state and without node classes.
#include "document/ZelXmlDom.h"
#include "document/ZelXmlFields.h"
#include "document/ZelXmlFrameText.h"
#include "document/ZelXmlLayouts.h"
#include "document/ZelXmlListEdits.h"
#include "document/ZelXmlLookup.h"
#include "document/ZelXmlShortcuts.h"
#include "document/ZelXmlStream.h"
#include "document/ZelXmlThreeDRep.h"
#include "document/ZelXmlTransforms.h"
