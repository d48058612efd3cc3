#include "document/ZelXmlFunctions.h"
#include "node/ZelXmlNode.h"
#include "node/ZelXmlNodeFields.h"
#include "node/ZelXmlNodeKinds.h"

// The group `plcInfo` and what all its owners keep in it.

bool ZelXmlNode::hasPlcData(ZelNodeType type) {
  return ZelXmlNodeKinds::of(type).has(ZelXmlNodeKind::plcData);
}

bool ZelXmlNode::getPlcInfo(IXMLDOMNode& info) const {
  return hasPlcData(zelType()) && zelXmlSelectChild(element_, "plcInfo", info);
}

bool ZelXmlNode::getOrCreatePlcInfo(IXMLDOMNode& info) {
  ApiPmId own;
  IXMLDOMNode origin;
  return getPlcInfo(info) || (zelXmlAddChild(element_, "plcInfo", info) && readId(own) &&
                              zelXmlWriteField(info, zelPlcDataFields.OriginalId, own, origin));
}

bool ZelXmlNode::isOriginal(bool& original) const {
  ApiPmId own;
  ApiPmId origin;
  if (!readId(own)) return false;
  original = !zelXmlGetField(*this, zelPlcDataFields.OriginalId, origin) || origin == own;
  return true;
}

bool ZelXmlNode::removePlcData() {
  const bool requisites = hasPlcData(zelType()) ? removeRequisites() : true;
  IXMLDOMNode info;
  return zelXmlSelectChild(element_, "plcInfo", info) ? zelXmlRemoveChild(element_, info) : requisites;
}

bool ZelXmlNode::publishPlcData() {
  return hasPlcData(zelType()) && zelXmlPublishFields(outDocument(), element_, {"NodeInfo", "plcInfo"});
}
