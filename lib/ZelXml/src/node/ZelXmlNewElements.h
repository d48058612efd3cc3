#pragma once

#include "node/ZelXmlNode.h"

// The recipes of new object elements. Class name and family are settled before anything is made: a class
// without family, an id that no reference can name (empty, "NULL") and a class name that is no element name
// are refused with nothing left behind. The element is the result; the recipes end with its publication
// unless they say otherwise.

// name, parents, children, layout, NodeInfo/family.
bool zelXmlCreateCompoundElement(ZelXmlNodeHost& wrapper, const ZelXmlCreationRecord& record,
                                 IXMLDOMNode& element);
// name, parents, layout, prototype, NodeInfo/family.
bool zelXmlCreateInstanceElement(ZelXmlNodeHost& wrapper, const ZelXmlCreationRecord& record,
                                 IXMLDOMNode& element);
// name, NodeInfo/family.
bool zelXmlCreatePlainElement(ZelXmlNodeHost& wrapper, const ZelXmlCreationRecord& record,
                              IXMLDOMNode& element);
// name, node, comment, displayInfo, noteLocation, NodeInfo/family.
bool zelXmlCreateLabelElement(ZelXmlNodeHost& wrapper, const ZelXmlCreationRecord& record,
                              IXMLDOMNode& element);
// name, layout, NodeInfo/family, prototype, for an occurrence in an equipment; publishes nothing.
bool zelXmlCreateOccurrenceElement(ZelXmlNodeHost& wrapper, const ZelXmlCreationRecord& record,
                                   IXMLDOMNode& element);
// layout, prototype, NodeInfo/family, on an element that the caller has; publishes the layout only.
bool zelXmlAddInstanceFields(ZelXmlNodeHost& wrapper, const ZelXmlCreationRecord& record,
                             const IXMLDOMNode& element);
