#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "dom/IXMLDOMNode.h"

// For the document layer alone: how long list fields of an element (`children`, `info`, `mountedTools`) have
// changed since the element was published, so that n changes of one list, each followed by a publication, do
// not copy the list n times.
//
// An entry counts while its element has the change stamp that it had then. Stamps are never given twice, so
// an entry can be out of date but never wrong, also when another element comes to stand at the same address.
// Entries hold no nodes, and so keep no document alive.
class ZelXmlLongLists {
 public:
  // Appends an item to the list field of an element; false without the field.
  bool append(const IXMLDOMNode& element, std::string_view list, std::string_view text);
  // Removes an item of a list field of an element.
  bool remove(const IXMLDOMNode& element, const IXMLDOMNode& item);

  // Notes that `copy` is what publishing the element as it stands gives.
  void published(const IXMLDOMNode& element, const IXMLDOMNode& copy);
  // Brings such a copy up to date by the changes of lists since. False when anything else has happened to
  // either: then it takes a new copy.
  bool patch(const IXMLDOMNode& element, const IXMLDOMNode& copy);

 private:
  struct Change {
    std::string list;
    long removed;  // place of an item that went, or -1: `appended` came
    std::string appended;
  };
  struct Entry {
    const void* element = nullptr;
    std::uint64_t stamp = 0;
    const void* copy = nullptr;
    std::uint64_t copyStamp = 0;
    std::vector<Change> changes;  // since the copy was equal
  };
  Entry* find(const IXMLDOMNode& element);
  static void note(Entry* known, const IXMLDOMNode& element, Change change);

  std::array<Entry, 8> entries_;
};

ZelXmlLongLists& zelXmlLongLists();
