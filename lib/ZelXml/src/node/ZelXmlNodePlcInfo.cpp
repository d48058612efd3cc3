#include <algorithm>

#include "document/ZelXmlFunctions.h"
#include "node/ZelXmlNode.h"
#include "node/ZelXmlNodeFields.h"

// The group `plcInfo` and what all its owners keep in it.

bool ZelXmlNode::hasPlcData(ZelNodeType type) {
  static constexpr int types[] = {2, 6, 13, 15, 35, 36, 37, 40, 83, 85, 96, 112};
  return std::find(std::begin(types), std::end(types), type) != std::end(types);
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
