#include "node/ZelXmlNodeHost.h"

#include "document/ZelXmlFunctions.h"
#include "node/ZelXmlNode.h"

ZelXmlNode* ZelXmlNodeHost::zelXmlNodeFromId(const ApiPmId& id) const {
  return zelXmlNodeOf(const_cast<ZelXmlNodeHost*>(this)->getZelNodeFromId(id));
}

bool ZelXmlNodeHost::addParentAndChildToRelevantParentFinder(const ZelXmlNode& parent,
                                                             const ZelXmlNode& child) {
  ApiPmId id;
  return zelXmlGetExternalId(child.getXmlNode(), id) &&
         addParentAndChildToRelevantParentFinder(parent.getXmlNode(), id, true);
}
