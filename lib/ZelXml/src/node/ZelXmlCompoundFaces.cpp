#include "node/ZelXmlCompoundFaces.h"

#include "api/ApiSysFileName.h"
#include "document/ZelXmlFunctions.h"
#include "node/ZelXmlNodeHost.h"

bool zelXmlGetCompoundPath(const ZelXmlNode& node, ApiFullPathDocument& path) {
  IXMLDOMNode rep;
  return node.getWrapper() && node.getThreeDRep(rep) &&
         zelXmlGetThreeDRepPath(node.getWrapper()->DOMDocument(), rep, path.path);
}

bool zelXmlSetCompoundPath(ZelXmlNode& node, const ApiFullPathDocument& path) {
  IXMLDOMNode rep;
  return node.getWrapper() && node.getOrCreateThreeDRep(rep) &&
         zelXmlSetThreeDRepPath(node.getWrapper()->DOMDocument(), rep, path.path) &&
         zelXmlPublishNode(node) && node.getThreeDRep(rep) &&
         zelXmlPublishUpdate(node.getWrapper()->OUTDocument(), rep);
}

bool zelXmlGetCompoundFileName(const ZelXmlNode& node, RWClassicWString& name) {
  ApiFullPathDocument path;
  if (!zelXmlGetCompoundPath(node, path)) return false;
  name = ApiSysFileName(path.path).fileName();
  return true;
}

bool zelXmlGetAssemblyType(const ZelXmlNode& node, int& assemblyType) {
  zelXmlGetInt(node.getXmlNode(), "assemblyType", assemblyType);
  return true;
}

bool zelXmlSetAssemblyType(ZelXmlNode& node, int assemblyType) {
  IXMLDOMNode field;
  return zelXmlSelectChild(node.getXmlNode(), "assemblyType", field)
             ? zelXmlSetIntText(field, assemblyType)
             : zelXmlAddInt(node.getXmlNode(), "assemblyType", assemblyType);
}

bool zelXmlPublishNode(const ZelXmlNode& node) {
  return node.getWrapper() && zelXmlPublishUpdate(node.getWrapper()->OUTDocument(), node.getXmlNode());
}

bool zelXmlGetAllChildNodes(const ZelXmlNode& node, ZelNodeList& children) {
  ApiPmIdList ids;
  if (!node.getWrapper() || !zelXmlGetChildIds(node.getXmlNode(), ids)) return false;
  for (const ApiPmId& id : ids) {
    if (ZelNode* child = node.getWrapper()->getZelNodeFromId(id)) children.append(child);
  }
  return true;
}

bool zelXmlHasProcess(const ZelXmlNode& node) {
  IXMLDOMNode field;
  return zelXmlSelectChild(node.getXmlNode(), "process", field);
}

bool zelXmlGetProcess(const ZelXmlNode& node, RWClassicWString& process) {
  return zelXmlGetWideString(node.getXmlNode(), "process", process);
}
