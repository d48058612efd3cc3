#include "prototype/ZelXmlPrototypeAssignment.h"

#include "document/ZelXmlFunctions.h"
#include "node/ZelXmlNodeHost.h"

bool ZelXmlPrototypeAssignment::readPrototypeId(ApiPmId& id) const {
  std::string text;
  if (!zelXmlGetString(getXmlNode(), "uses", text) || text == "NULL") return false;
  id = ApiPmId(text);
  return true;
}

ZelNode* ZelXmlPrototypeAssignment::prototypeNode() const {
  ApiPmId id;
  return getWrapper() && readPrototypeId(id) ? getWrapper()->getZelNodeFromId(id) : nullptr;
}
