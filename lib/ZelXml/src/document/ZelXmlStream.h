#pragma once

#include <string_view>
#include <vector>

#include "api/ApiPmIds.h"
#include "api/ApiPmXmlCachedDocument.h"
#include "document/ZelXmlDom.h"

// Object elements, and the change stream: each change of the study document is mirrored in the OUT document
// as a command. The stream stands in Data/Objects sections of the OUT document, one per command, told apart
// by the attribute `command`. With a null OUT document publishing succeeds and writes nothing. The study
// document is changed before it is published: a false answer from publishing undoes nothing there.
inline constexpr std::string_view ZELXML_UPDATE_COMMAND = "DG_UPDATE_STREAM_COMMAND";
inline constexpr std::string_view ZELXML_DELETE_COMMAND = "DG_DELETE_STREAM_COMMAND";

// The section of a command, made if need be, with Data and the XML declaration where there is no Data yet.
// False for a document whose root is another element.
bool zelXmlEnsureStreamSection(const IXMLDOMDocument& document, std::string_view command,
                               IXMLDOMNode& section);

// A new object element, indexed under its id before it has a parent; the second form appends it to the first
// objects section. Nothing is made for a bad class name or without a section.
bool zelXmlCreateObjectElement(const IXMLDOMDocument& document, std::string_view className,
                               std::string_view id, IXMLDOMNode& element);
bool zelXmlAddObjectElement(const IXMLDOMDocument& document, std::string_view className, std::string_view id,
                            IXMLDOMNode& element);
// A deep copy of an element of any document, appended to the first objects section. It is not indexed.
bool zelXmlAppendObjectClone(const IXMLDOMDocument& document, const IXMLDOMNode& element, IXMLDOMNode& clone);

// Puts the whole element into the update section, in place of a former one, whose `comment` and `name` it
// keeps, in this order. Its own `caption`, `comment` and `name` are left out: these go out by
// zelXmlPublishField. False without ExternalId.
bool zelXmlPublishUpdate(const IXMLDOMDocument& out, const IXMLDOMNode& element);
// The same without a look for a former element: a copy of `element` less `caption`, `comment` and `name`,
// with `extra` moved to its end, is appended to the update section and indexed.
bool zelXmlPublishClone(const IXMLDOMDocument& out, const IXMLDOMNode& element,
                        const std::vector<IXMLDOMNode>& extra = {});
// Puts one field into the object's element of the stream, in place of a former one; an object that is not in
// the stream goes there whole first.
bool zelXmlPublishField(const IXMLDOMDocument& out, const IXMLDOMNode& field);
// The same for several fields by name; an object that is not in the stream gets an element with these fields
// only. Fields that the object has not are passed over.
bool zelXmlPublishFields(const IXMLDOMDocument& out, const IXMLDOMNode& element,
                         const std::vector<std::string_view>& fields);
// Puts an empty element of the object's class and id into the delete section, and removes the element.
bool zelXmlPublishDeletion(ApiPmXmlCachedDocument& cached, const IXMLDOMDocument& out,
                           const IXMLDOMNode& element);

// Removes the element from its document, and its id from the index.
bool zelXmlRemoveCachedElement(ApiPmXmlCachedDocument& cached, const IXMLDOMNode& element);
// Takes the old element out and appends a deep copy of the new one in its stead, indexed.
bool zelXmlReplaceObject(ApiPmXmlCachedDocument& cached, const IXMLDOMNode& oldElement,
                         const IXMLDOMNode& newElement, IXMLDOMNode& clone);
