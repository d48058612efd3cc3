#include "node/ZelXmlPlaceholder.h"

#include "document/ZelXmlFunctions.h"
#include "node/ZelXmlNewElements.h"
#include "node/ZelXmlNodeHost.h"

bool ZelXmlPlaceholderNode::createXmlElement(const ZelXmlCreationRecord& record, IXMLDOMNode& element) {
  return getWrapper() && zelXmlAddInstanceFields(*getWrapper(), record, element);
}

bool ZelXmlPlaceholderNode::readDocument(ApiPmDocument& result) const {
  return zelXmlGetExternalId(getXmlNode(), result.id);
}
