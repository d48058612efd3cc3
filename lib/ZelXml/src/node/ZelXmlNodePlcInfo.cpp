#include <algorithm>

#include "document/ZelXmlFunctions.h"
#include "node/ZelXmlNode.h"
#include "node/ZelXmlNodeHost.h"

// The group `plcInfo` and what all its owners keep in it.

bool ZelXmlNode::hasPlcData(ZelNodeType type) {
  static constexpr int types[] = {2, 6, 13, 15, 35, 36, 37, 40, 83, 85, 96, 112};
  return std::find(std::begin(types), std::end(types), type) != std::end(types);
}

bool ZelXmlNode::getPlcInfo(IXMLDOMNode& info) const {
  return hasPlcData(zelType()) && zelXmlSelectChild(element_, "plcInfo", info);
}

bool ZelXmlNode::getOrCreatePlcInfo(IXMLDOMNode& info) {
  return getPlcInfo(info) || (zelXmlAddChild(element_, "plcInfo", info) && setOriginalId());
}

bool ZelXmlNode::ensurePlcInfo(IXMLDOMNode& info) {
  return getPlcInfo(info) || (zelXmlEnsureChild(document(), element_, "plcInfo", info) && setOriginalId());
}

bool ZelXmlNode::setOriginalId() {
  ApiPmId own;
  IXMLDOMNode info;
  return readId(own) && zelXmlSelectChild(element_, "plcInfo", info) &&
         zelXmlAddWideString(info, "OriginalId", own.text());
}

bool ZelXmlNode::isOriginal(bool& original) const {
  ApiPmId own;
  if (!readId(own)) return false;
  IXMLDOMNode info;
  std::string origin;
  original = !getPlcInfo(info) || !zelXmlGetWideString(info, "OriginalId", origin) || origin == own.text();
  return true;
}

bool ZelXmlNode::getVersion(RWClassicWString& version) const {
  IXMLDOMNode info;
  return getPlcInfo(info) && zelXmlGetWideString(info, "version", version);
}

bool ZelXmlNode::setVersion(const RWClassicWString& version) {
  IXMLDOMNode info;
  return hasPlcData(zelType()) && ensurePlcInfo(info) &&
         zelXmlAddChildWithText(document(), info, "version", version);
}

bool ZelXmlNode::readRobotSetupTime(double& seconds) const {
  IXMLDOMNode info;
  return getPlcInfo(info) && zelXmlGetDouble(info, "robotSetupTime", seconds);
}

bool ZelXmlNode::writeRobotSetupTime(double seconds) {
  IXMLDOMNode info;
  return hasPlcData(zelType()) && ensurePlcInfo(info) && zelXmlAddDouble(info, "robotSetupTime", seconds);
}

bool ZelXmlNode::removePlcData() {
  const bool requisites = hasPlcData(zelType()) ? removeRequisites() : true;
  IXMLDOMNode info;
  return zelXmlSelectChild(element_, "plcInfo", info) ? zelXmlRemoveChild(element_, info) : requisites;
}

bool ZelXmlNode::publishPlcData() {
  return hasPlcData(zelType()) && zelXmlPublishFields(outDocument(), element_, {"NodeInfo", "plcInfo"});
}
