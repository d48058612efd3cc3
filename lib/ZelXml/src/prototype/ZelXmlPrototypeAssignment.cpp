#include "prototype/ZelXmlPrototypeAssignment.h"

#include "document/ZelXmlFunctions.h"

bool ZelXmlPrototypeAssignment::getPrototypeId(ApiPmId& id) const {
  std::string text;
  if (!zelXmlGetString(getXmlNode(), "uses", text) || text == "NULL") return false;
  id = ApiPmId(text);
  return true;
}
