#pragma once

#include <string_view>

#include "dom/IXMLDOMElement.h"

// The walk over list fields, for those who need no snapshot.

// Calls `visit(item)` for each `item` child of the lists named `list` below the element, in document order,
// until it answers false. No snapshot is taken: `visit` must not change the list. False for a null element.
//
// An element normally has one such list; further ones count as they do for the path "list/item".
template <class Visit>
bool zelXmlVisitItems(const IXMLDOMNode& element, std::string_view list, Visit&& visit) {
  IXMLDOMNode found;
  if (!element) return false;
  if (!element.selectSingleNode(list, found)) return true;
  for (IXMLDOMElement field = found; field; field = field.nextElementSibling()) {
    if (field.nodeName() != list) continue;
    for (IXMLDOMElement item = field.firstElementChild(); item; item = item.nextElementSibling())
      if (item.nodeName() == "item" && !visit(item)) return true;
  }
  return true;
}
