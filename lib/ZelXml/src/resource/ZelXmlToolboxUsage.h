#pragma once

#include "api/ApiPmRobotToolBoxData.h"
#include "dom/IXMLDOMDocument.h"

// Uses of tools by robots as objects `PmToolboxUsage`.

// All but the usage id. False without `workToolTCPFPosition`; other fields that are missing keep what the
// record holds.
bool zelXmlReadToolboxUsage(const IXMLDOMNode& element, ApiPmRobotToolBoxData& use);
// Makes the object, used by `robot`; publishes nothing.
bool zelXmlCreateToolboxUsage(const IXMLDOMDocument& document, const ApiPmId& robot,
                              const ApiPmRobotToolBoxData& use, IXMLDOMNode& element);
