#pragma once

#include <string_view>

#include "api/ApiPmIds.h"
#include "document/ZelXmlDom.h"

// The object element of an id. A registered document answers from its index alone; any other is searched for
// the attribute ExternalId, with a log line at the start and at the end, and "NULL" and the empty id are not
// searched for. The quiet form asks the index quietly and is the same otherwise.
bool zelXmlFindNodeById(const IXMLDOMDocument& document, std::string_view id, IXMLDOMNode& element);
bool zelXmlFindNodeById(const IXMLDOMDocument& document, const ApiPmId& id, IXMLDOMNode& element);
bool zelXmlFindNodeByIdQuiet(const IXMLDOMDocument& document, std::string_view id, IXMLDOMNode& element);

// The object element that the text of a field refers to; false for an absent field, "NULL" and empty text.
bool zelXmlGetReferencedNode(const IXMLDOMDocument& document, const IXMLDOMNode& element,
                             std::string_view field, IXMLDOMNode& referenced);
bool zelXmlGetReferencedNodeQuiet(const IXMLDOMDocument& document, const IXMLDOMNode& element,
                                  std::string_view field, IXMLDOMNode& referenced);

// Whether `id` is indexed in the first document, else in the second; the element is looked up there. A null
// or unregistered document is passed over.
bool zelXmlFindInDocuments(const ApiPmId& id, const IXMLDOMDocument& first, const IXMLDOMDocument& second,
                           IXMLDOMNode& element);

// The first Data/Objects.
bool zelXmlGetObjectsSection(const IXMLDOMDocument& document, IXMLDOMNode& section);

// The object that a layout places: the text of `node`, else the first element whose `layout` names it. A
// `node` that refers to nothing is false.
bool zelXmlGetLayoutOwnerId(const IXMLDOMDocument& document, const IXMLDOMNode& layout, ApiPmId& owner);

// The element that holds the data of an instance: `prototype`, else `prototype` of `masterObj`, else
// `masterObj` itself when it is a tool or equipment prototype.
bool zelXmlGetPrototypeElement(const IXMLDOMDocument& document, const IXMLDOMNode& element,
                               IXMLDOMNode& prototype);

// Whether a parent counts for tree walks of a child. `parent` is the parent's element; the child is looked up
// by zelXmlFindInDocuments. A process assembly's parent is a process assembly, and it is no parent for
// anything else; of parents of other families all count.
bool zelXmlIsRelevantParent(const IXMLDOMDocument& study, const IXMLDOMDocument& update,
                            const IXMLDOMNode& parent, const ApiPmId& child);
