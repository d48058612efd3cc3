#include "prototype/ZelXmlPrototypeAssignment.h"

#include "document/ZelXmlFunctions.h"
#include "node/ZelXmlNodeHost.h"

bool ZelXmlPrototypeAssignment::getPrototypeId(ApiPmId& id) const {
  std::string text;
  if (!zelXmlGetString(getXmlNode(), "uses", text) || text == "NULL") return false;
  id = ApiPmId(text);
  return true;
}

ZelNode* ZelXmlPrototypeAssignment::getPrototype() const {
  ApiPmId id;
  return getWrapper() && getPrototypeId(id) ? getWrapper()->getZelNodeFromId(id) : nullptr;
}
