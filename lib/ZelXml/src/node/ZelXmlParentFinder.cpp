#include "node/ZelXmlParentFinder.h"

bool ZelXmlParentFinder::findRelevantParent(const ApiPmId& id, ApiPmId& parent) const {
  const auto* entry = parents_.find(id);
  if (!entry) return false;
  parent = entry->value;
  return true;
}

bool ZelXmlParentFinder::removeRelevantParent(const ApiPmId& id) {
  parents_.remove(id);
  return true;
}

bool ZelXmlParentFinder::addNodeAndRelevantParent(const ApiPmId& id, const ApiPmId& parent) {
  parents_.insert(id, parent);
  return true;
}
