#include "node/ZelXmlShortcutFinder.h"

bool ZelXmlShortcutFinder::findShortcut(const ApiPmId& id, ApiPmId& shortcut) const {
  const auto* entry = shortcuts_.find(id);
  if (!entry) return false;
  shortcut = entry->value;
  return true;
}

bool ZelXmlShortcutFinder::getAllShortcuts(ApiPmIdList& shortcuts, ApiPmIdList& nodes) const {
  shortcuts.clear();
  nodes.clear();
  for (const auto* entry : shortcuts_.listing()) {
    shortcuts.append(entry->value);
    nodes.append(entry->key);
  }
  return true;
}

bool ZelXmlShortcutFinder::removeNodeAndShortcut(const ApiPmId& id, ApiPmId& shortcut) {
  if (auto* entry = shortcuts_.find(id)) {
    shortcut = entry->value;
    shortcuts_.erase(entry);
  }
  return true;
}

bool ZelXmlShortcutFinder::addNodeAndShortcut(const ApiPmId& id, const ApiPmId& shortcut) {
  shortcuts_.insert(id, shortcut);
  return true;
}
