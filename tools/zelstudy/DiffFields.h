#pragma once

#include <string>
#include <vector>

#include "dom/DomView.h"
#include "dom/IXMLDOMElement.h"
#include "zelstudy/NodeJson.h"

namespace zelstudy {

// A field that differs between two versions of an object, as `DiffChange` has it.
struct FieldChange {
  std::string path;
  Json before, after;
};

// What differs in the attributes and fields of an object, in the order of the earlier one, then what only the
// later one has. The attribute ExternalId of the object itself and the element name are not compared. Fields
// of different names may stand in any order; of one name the first is held against the first.
std::vector<FieldChange> compareFields(DomView before, DomView after);

// The value of a field: the text of one without elements, an array for a list, else an object by field name,
// with "@name" for an attribute and "#text" for text beside elements. Null for the null view.
Json fieldJson(DomView field);

// A text that two elements share when they are equal but for white space and the order of their fields.
std::string contentKey(DomView element);

// First child element of this name; null when there is none.
IXMLDOMElement childOf(const IXMLDOMElement& element, std::string_view name);

}  // namespace zelstudy
