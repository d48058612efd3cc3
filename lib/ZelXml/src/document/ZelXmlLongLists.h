#pragma once

#include <array>
#include <cstdint>
#include <unordered_set>
#include <vector>

#include "api/ApiPmId.h"
#include "dom/IXMLDOMNode.h"

// For the document layer alone: what is known of the elements whose long `children` lists were asked last, so
// that n children can be added to one parent, and the parent published each time, without walking the list n
// times.
//
// An entry counts while its element has the change stamp that it had then. Stamps are never given twice, so
// an entry can be out of date but never wrong, also when another element comes to stand at the same address.
// Entries hold no nodes, and so keep no document alive.
class ZelXmlLongLists {
 public:
  bool contains(const IXMLDOMNode& element, const ApiPmId& id);

  // Appends an item by `append`, which says whether it did; the list is known to go without the id.
  template <class Append>
  bool add(const IXMLDOMNode& element, const ApiPmId& id, Append append) {
    Entry* known = find(element);
    if (!append()) return false;
    if (known) {
      known->ids.insert(id);
      known->stamp = element.changeStamp();
      if (known->copy) known->appended.push_back(id);
    }
    return true;
  }

  // Notes that `copy` is what publishing the element as it stands gives.
  void published(const IXMLDOMNode& element, const IXMLDOMNode& copy);
  // Brings such a copy up to date by appending the items that have come to the element since. False, with
  // nothing done, unless nothing else has happened to either.
  bool patch(const IXMLDOMNode& element, const IXMLDOMNode& copy);

 private:
  struct Entry {
    const void* element = nullptr;
    std::uint32_t stamp = 0;
    std::unordered_set<ApiPmId> ids;
    const void* copy = nullptr;  // null while no copy is known
    std::uint32_t copyStamp = 0;
    std::vector<ApiPmId> appended;  // since the copy was equal
  };
  Entry* find(const IXMLDOMNode& element);

  std::array<Entry, 8> entries_;
};

ZelXmlLongLists& zelXmlLongLists();
