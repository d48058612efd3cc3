#include "node/ZelXmlGlobalAttachmentService.h"

#include "document/ZelXmlFunctions.h"
#include "node/ZelXmlNodeHost.h"

bool ZelXmlGlobalAttachmentService::ownLayout(IXMLDOMNode& layout) const {
  return owner_->getWrapper() &&
         zelXmlGetReferencedNode(owner_->getWrapper()->DOMDocument(), owner_->getXmlNode(), "layout", layout);
}

bool ZelXmlGlobalAttachmentService::targetLayout(const ApiPmId& target, IXMLDOMNode& layout) const {
  const ZelXmlNode* node = owner_->getWrapper()->zelXmlNodeFromId(target);
  return node &&
         zelXmlGetReferencedNode(owner_->getWrapper()->DOMDocument(), node->getXmlNode(), "layout", layout);
}

bool ZelXmlGlobalAttachmentService::getGloballyAttachedTools(ApiPmIdList& ids) const {
  IXMLDOMNode layout;
  IXMLDOMNodeList items;
  if (!ownLayout(layout) || !zelXmlSelectChildren(layout, "mountedTools/item", items)) return false;
  const IXMLDOMDocument document = owner_->getWrapper()->DOMDocument();
  for (const IXMLDOMNode& item : items) {
    std::string id;
    std::string type;
    IXMLDOMNode mounted;
    ApiPmId tool;
    if (zelXmlGetText(item, id) && zelXmlFindNodeById(document, id, mounted) &&
        zelXmlGetWideString(mounted, "mountType", type) && !type.empty() &&
        zelXmlGetLayoutOwnerId(document, mounted, tool)) {
      ids.append(tool);
    }
  }
  return true;
}

bool ZelXmlGlobalAttachmentService::getGlobalAttachment(ApiPmExtendedId& target, RTTran3D& placement,
                                                        RWClassicWString& type) const {
  IXMLDOMNode layout;
  IXMLDOMNode mountedTo;
  if (!ownLayout(layout)) return false;
  const IXMLDOMDocument document = owner_->getWrapper()->DOMDocument();
  if (!zelXmlGetReferencedNode(document, layout, "mountedTo", mountedTo) ||
      !zelXmlGetLayoutOwnerId(document, mountedTo, target.id) ||
      !zelXmlGetTransformPaths(layout, "mountLocation/item", "mountRotation/item", placement) ||
      !zelXmlGetWideString(layout, "mountType", type) || type.empty()) {
    return false;
  }
  std::string key;
  return !zelXmlGetWideString(layout, "mountedToRelativeId", key) || key.empty() ||
         target.key.setSelfFromDefaultRestrictedString(key);
}

bool ZelXmlGlobalAttachmentService::setGlobalAttachment(const ApiPmExtendedId& oldTarget,
                                                        const ApiPmExtendedId& newTarget,
                                                        const RTTran3D& placement,
                                                        const RWClassicWString& type) {
  IXMLDOMNode layout;
  if (!ownLayout(layout)) return false;
  ZelXmlNodeHost& wrapper = *owner_->getWrapper();
  if (wrapper.getZelNodeFromId(oldTarget.id) && !detach(oldTarget.id, layout)) return false;
  return wrapper.getZelNodeFromId(newTarget.id) ? attach(newTarget, layout, placement, type) : clear(layout);
}

bool ZelXmlGlobalAttachmentService::detach(const ApiPmId& target, const IXMLDOMNode& layout) {
  IXMLDOMNode other;
  ApiPmId layoutId;
  IXMLDOMNodeList items;
  IXMLDOMNode item;
  long index = 0;
  return targetLayout(target, other) && zelXmlGetExternalId(layout, layoutId) &&
         zelXmlSelectChildren(other, "mountedTools/item", items) &&
         zelXmlFindListItem(items, layoutId.text(), item, index) && zelXmlRemoveFromParent(item) &&
         zelXmlPublishUpdate(owner_->getWrapper()->OUTDocument(), other);
}

bool ZelXmlGlobalAttachmentService::clear(const IXMLDOMNode& layout) {
  for (const char* name : {"mountedTo", "mountLocation", "mountRotation"}) {
    IXMLDOMNode field;
    if (!zelXmlSelectChild(layout, name, field) || !zelXmlSetText(field, "NULL")) return false;
  }
  for (const char* name : {"mountType", "mountedToRelativeId"}) {
    IXMLDOMNode field;
    if (zelXmlSelectChild(layout, name, field) && !zelXmlSetText(field, {})) return false;
  }
  return zelXmlPublishUpdate(owner_->getWrapper()->OUTDocument(), layout);
}

bool ZelXmlGlobalAttachmentService::attach(const ApiPmExtendedId& target, const IXMLDOMNode& layout,
                                           const RTTran3D& placement, const RWClassicWString& type) {
  const IXMLDOMDocument document = owner_->getWrapper()->DOMDocument();
  const IXMLDOMDocument& out = owner_->getWrapper()->OUTDocument();
  IXMLDOMNode other;
  IXMLDOMNode tools;
  IXMLDOMNode field;
  ApiPmId layoutId;
  ApiPmId otherId;
  if (!targetLayout(target.id, other) || !zelXmlGetExternalId(layout, layoutId) ||
      !zelXmlGetExternalId(other, otherId) || !zelXmlEnsureChild(document, other, "mountedTools", tools) ||
      !zelXmlAddChildWithText(document, tools, "item", layoutId.text()) || !zelXmlPublishUpdate(out, other) ||
      !zelXmlEnsureChild(document, layout, "mountedTo", field) || !zelXmlSetText(field, otherId.text())) {
    return false;
  }
  for (const char* name : {"mountLocation", "mountRotation"}) {
    if (zelXmlSelectChild(layout, name, field) && !zelXmlRemoveChild(layout, field)) return false;
  }
  if (!zelXmlAddVec3List(layout, "mountLocation", field) ||
      !zelXmlAddVec3List(layout, "mountRotation", field) ||
      !zelXmlSetTransformPaths(layout, "mountLocation/item", "mountRotation/item", placement) ||
      !zelXmlEnsureChild(document, layout, "mountType", field) || !zelXmlSetWideText(field, type)) {
    return false;
  }
  if (!target.isPmOnly()) {
    if (!zelXmlEnsureChild(document, layout, "mountedToRelativeId", field) ||
        !zelXmlSetWideText(field, target.key.getSelfAsDefaultRestrictedString())) {
      return false;
    }
  } else if (zelXmlSelectChild(layout, "mountedToRelativeId", field) && !zelXmlSetText(field, {})) {
    return false;
  }
  return zelXmlPublishUpdate(out, layout);
}
