#pragma once

#include "api/ApiPmId.h"
#include "rw/RWClassicTValHashDictionary.h"

// The parent that counts for tree walks and roots, for each child that has one. Only the wrapper fills it.
class ZelXmlParentFinder {
 public:
  // False, and `parent` untouched, without an entry.
  bool findRelevantParent(const ApiPmId& id, ApiPmId& parent) const;
  bool hasRelevantParent(const ApiPmId& id) const { return parents_.find(id) != nullptr; }
  // True, with or without an entry.
  bool removeRelevantParent(const ApiPmId& id);

 private:
  friend class ZelXmlWrapper;
  bool addNodeAndRelevantParent(const ApiPmId& id, const ApiPmId& parent);
  void clear() { parents_.clear(); }

  RWClassicTValHashDictionary<ApiPmId, ApiPmId, RWOrderHash<ApiPmId>, RWByNumber> parents_;
};
