#pragma once

#include "zel/ZelNode.h"

// An inner node (see ZelSignal) that connects a signal to the entries and exits of a block.
class ZelSignalInstance : public ZelNode {
 public:
  using GlobalIds = RWClassicTValOrderedVector<ApiGlobalUniqueId>;
  static constexpr InterfaceType interfaceType = SignalInstance;
  static ZelSignalInstance* queryZelSignalInstance(ZelNode* node) {
    return zelQuery<ZelSignalInstance>(node);
  }

  // Lists `Entries` and `Exits`, each of pairs, in two vectors in step. Writing adds a list, none for empty
  // vectors; false, and nothing changed, for vectors of different length; a null id stops it with false, the
  // pairs before it and an item without id stay. A null GUID is not written. Reading appends to both, over
  // all lists of the name; a pair that lacks its id or its GUID ends it with false; no list is true.
  virtual bool setEntries(const ApiPmIdList& ids, const GlobalIds& guids) = 0;
  virtual bool getEntries(ApiPmIdList& ids, GlobalIds& guids) const = 0;
  virtual bool setExits(const ApiPmIdList& ids, const GlobalIds& guids) = 0;
  virtual bool getExits(ApiPmIdList& ids, GlobalIds& guids) const = 0;
};
