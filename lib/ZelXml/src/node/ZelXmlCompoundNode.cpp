#include "node/ZelXmlCompoundNode.h"

#include "api/ApiSysFileName.h"
#include "document/ZelXmlFunctions.h"
#include "node/ZelXmlNewElements.h"
#include "node/ZelXmlNodeHost.h"

bool ZelXmlCompoundNode::createXmlElement(const ZelXmlCreationRecord& record, IXMLDOMNode& element) {
  return getWrapper() && zelXmlCreateCompoundElement(*getWrapper(), record, element);
}

bool ZelXmlCompoundNode::writeCompoundPath(const RWClassicWString& path) {
  IXMLDOMNode rep;
  return writeThreeDRepPath(path) && zelXmlPublishUpdate(outDocument(), getXmlNode()) && getThreeDRep(rep) &&
         zelXmlPublishUpdate(outDocument(), rep);
}

bool ZelXmlCompoundNode::readCompoundFileName(RWClassicWString& name) const {
  RWClassicWString path;
  if (!readThreeDRepPath(path)) return false;
  name = ApiSysFileName(path).fileName();
  return true;
}

bool ZelXmlCompoundNode::readAllChildNodes(ZelNodeList& children) const {
  ApiPmIdList ids;
  if (!getWrapper() || !zelXmlGetChildIds(getXmlNode(), ids)) return false;
  for (const ApiPmId& id : ids) {
    if (ZelNode* child = getWrapper()->getZelNodeFromId(id)) children.append(child);
  }
  return true;
}
