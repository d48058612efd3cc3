#pragma once

#include <string_view>

#include "api/ApiPmIds.h"
#include "document/ZelXmlDom.h"

// Edits of the lists `children` and `parents` and of single text fields. An id stands at most once in these
// two: their adders answer true and do nothing for one that is there.

// Appends an item with this text to a list field, whatever is in it; false without the field. The second
// removes an item of one of the element's lists.
bool zelXmlAddItem(const IXMLDOMNode& element, std::string_view list, std::string_view text);
bool zelXmlRemoveItem(const IXMLDOMNode& element, const IXMLDOMNode& item);

// Appends an item; false without the list element.
bool zelXmlAddChildItem(const IXMLDOMNode& element, const ApiPmId& id);
bool zelXmlAddParentItem(const IXMLDOMNode& element, const ApiPmId& id);
bool zelXmlContainsChild(const IXMLDOMNode& element, const ApiPmId& id);
// Takes an id out of `children`; true also when it was not there. The second form then publishes the element.
bool zelXmlRemoveChildItem(const IXMLDOMNode& element, const ApiPmId& id);
bool zelXmlRemoveChildAndPublish(const IXMLDOMDocument& out, const IXMLDOMNode& element, const ApiPmId& id);
// Takes an id out of `parents`; false when it was not there. The second form then publishes the element.
bool zelXmlRemoveParentEntry(const IXMLDOMNode& element, const ApiPmId& id);
bool zelXmlRemoveParentItem(const IXMLDOMNode& element, const IXMLDOMDocument& out, const ApiPmId& id);

// Text of the existing field `parent`.
bool zelXmlSetParentText(const IXMLDOMNode& element, std::string_view id);
bool zelXmlSetParentTextFromElement(const IXMLDOMNode& element, const IXMLDOMNode& other);
// Text of the existing field `linkExternalID`.
bool zelXmlSetLinkText(const IXMLDOMNode& element, std::string_view id);
// Empties the text of an existing field.
bool zelXmlClearField(const IXMLDOMNode& element, std::string_view field);
// Writes the family value of its class into every object element, or into those of one class. An object of a
// class without family keeps what it has.
bool zelXmlFillFamily(const IXMLDOMDocument& document, std::string_view className);
