#pragma once

#include "api/ApiPmId.h"
#include "rw/RWClassicTValHashDictionary.h"

// The shortcut object that leads to a node, for each node that stands in a study. A later shortcut to the
// same node takes the entry. Only the wrapper fills it.
class ZelXmlShortcutFinder {
 public:
  // False, and `shortcut` untouched, without an entry.
  bool findShortcut(const ApiPmId& id, ApiPmId& shortcut) const;
  // Replaces both vectors: shortcuts, and at the same places the nodes that they lead to. Always true.
  bool getAllShortcuts(ApiPmIdList& shortcuts, ApiPmIdList& nodes) const;
  // True, with or without an entry; `shortcut` is written only with one. `id` may be the entry's own key.
  bool removeNodeAndShortcut(const ApiPmId& id, ApiPmId& shortcut);

 private:
  friend class ZelXmlWrapper;
  bool addNodeAndShortcut(const ApiPmId& id, const ApiPmId& shortcut);
  void clear() { shortcuts_.clear(); }

  RWClassicTValHashDictionary<ApiPmId, ApiPmId, RWOrderHash<ApiPmId>, RWByNumber> shortcuts_;
};
