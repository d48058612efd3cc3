#include "node/ZelXmlGlobalAttachmentService.h"

#include "document/ZelXmlFunctions.h"
#include "node/ZelXmlNodeHost.h"

namespace {

bool readPlacement(const IXMLDOMNode& layout, RTTran3D& placement) {
  return zelXmlGetTransformPaths(layout, "mountLocation/item", "mountRotation/item", placement);
}

bool writePlacement(const IXMLDOMNode& layout, const RTTran3D& placement) {
  return zelXmlSetTransformPaths(layout, "mountLocation/item", "mountRotation/item", placement);
}

bool isGlobalMount(const IXMLDOMNode& layout) {
  std::string buffer;
  std::string_view type;
  return layout.selectText("mountType", buffer, type) && !type.empty();
}

// Empties a field, if there is one.
bool emptyField(const IXMLDOMNode& layout, std::string_view name) {
  IXMLDOMNode field;
  return !zelXmlSelectChild(layout, name, field) || zelXmlSetText(field, {});
}

bool setField(const IXMLDOMDocument& document, const IXMLDOMNode& layout, std::string_view name,
              std::string_view text) {
  IXMLDOMNode field;
  return zelXmlEnsureChild(document, layout, name, field) && zelXmlSetText(field, text);
}

}  // namespace

bool ZelXmlGlobalAttachmentService::ownLayout(IXMLDOMNode& layout) const {
  return owner_->getWrapper() &&
         zelXmlGetReferencedNode(owner_->getWrapper()->DOMDocument(), owner_->getXmlNode(), "layout", layout);
}

bool ZelXmlGlobalAttachmentService::targetLayout(const ApiPmId& target, IXMLDOMNode& layout) const {
  const ZelXmlNode* node = owner_->getWrapper()->zelXmlNodeFromId(target);
  return node &&
         zelXmlGetReferencedNode(owner_->getWrapper()->DOMDocument(), node->getXmlNode(), "layout", layout);
}

bool ZelXmlGlobalAttachmentService::listMounted(bool isGlobal, ApiPmIdList& ids) const {
  IXMLDOMNode layout;
  IXMLDOMNodeList items;
  if (!ownLayout(layout) || !zelXmlSelectChildren(layout, "mountedTools/item", items)) return false;
  const IXMLDOMDocument document = owner_->getWrapper()->DOMDocument();
  std::string buffer;
  for (const IXMLDOMNode& item : items) {
    IXMLDOMNode mounted;
    ApiPmId tool;
    if (zelXmlFindNodeById(document, item.textView(buffer), mounted) && isGlobalMount(mounted) == isGlobal &&
        zelXmlGetLayoutOwnerId(document, mounted, tool)) {
      ids.append(tool);
    }
  }
  return true;
}

bool ZelXmlGlobalAttachmentService::readTarget(const IXMLDOMNode& layout, ApiPmId& target) const {
  const IXMLDOMDocument document = owner_->getWrapper()->DOMDocument();
  IXMLDOMNode other;
  return zelXmlGetReferencedNode(document, layout, "mountedTo", other) &&
         zelXmlGetLayoutOwnerId(document, other, target);
}

bool ZelXmlGlobalAttachmentService::getMountedTo(ApiPmId& target, RTTran3D& placement) const {
  IXMLDOMNode layout;
  return ownLayout(layout) && readTarget(layout, target) && readPlacement(layout, placement) &&
         !isGlobalMount(layout);
}

bool ZelXmlGlobalAttachmentService::getGlobalAttachment(ApiPmExtendedId& target, RTTran3D& placement,
                                                        RWClassicWString& type) const {
  IXMLDOMNode layout;
  if (!ownLayout(layout) || !readTarget(layout, target.id) || !readPlacement(layout, placement) ||
      !zelXmlGetWideString(layout, "mountType", type) || type.empty()) {
    return false;
  }
  std::string key;
  return !zelXmlGetWideString(layout, "mountedToRelativeId", key) || key.empty() ||
         target.key.setSelfFromDefaultRestrictedString(key);
}

bool ZelXmlGlobalAttachmentService::setMountLocation(const RTTran3D& placement) {
  IXMLDOMNode layout;
  return ownLayout(layout) && writePlacement(layout, placement) &&
         zelXmlPublishUpdate(owner_->getWrapper()->OUTDocument(), layout);
}

bool ZelXmlGlobalAttachmentService::setMount(const ApiPmId& oldTarget, const ApiPmId& newTarget,
                                             const RTTran3D& placement) {
  return change(oldTarget, newTarget, placement, {});
}

bool ZelXmlGlobalAttachmentService::setGlobalAttachment(const ApiPmExtendedId& oldTarget,
                                                        const ApiPmExtendedId& newTarget,
                                                        const RTTran3D& placement,
                                                        const RWClassicWString& type) {
  return change(oldTarget.id, newTarget.id, placement, Global{newTarget.key, type});
}

bool ZelXmlGlobalAttachmentService::change(const ApiPmId& oldTarget, const ApiPmId& newTarget,
                                           const RTTran3D& placement, const Variant& variant) {
  IXMLDOMNode layout;
  if (!ownLayout(layout)) return false;
  ZelXmlNodeHost& wrapper = *owner_->getWrapper();
  if (wrapper.getZelNodeFromId(oldTarget) && !detach(oldTarget, layout)) return false;
  return wrapper.getZelNodeFromId(newTarget) ? attach(newTarget, layout, placement, variant) : clear(layout);
}

bool ZelXmlGlobalAttachmentService::detach(const ApiPmId& target, const IXMLDOMNode& layout) {
  IXMLDOMNode other;
  ApiPmId layoutId;
  IXMLDOMNode item;
  long index = 0;
  return targetLayout(target, other) && zelXmlGetExternalId(layout, layoutId) &&
         zelXmlFindItem(other, "mountedTools", layoutId.text(), item, index) &&
         zelXmlRemoveItem(other, item) && zelXmlPublishUpdate(owner_->getWrapper()->OUTDocument(), other);
}

bool ZelXmlGlobalAttachmentService::clear(const IXMLDOMNode& layout) {
  for (const char* name : {"mountedTo", "mountLocation", "mountRotation"}) {
    IXMLDOMNode field;
    if (!zelXmlSelectChild(layout, name, field) || !zelXmlSetText(field, "NULL")) return false;
  }
  return emptyField(layout, "mountType") && emptyField(layout, "mountedToRelativeId") &&
         zelXmlPublishUpdate(owner_->getWrapper()->OUTDocument(), layout);
}

bool ZelXmlGlobalAttachmentService::attach(const ApiPmId& target, const IXMLDOMNode& layout,
                                           const RTTran3D& placement, const Variant& variant) {
  const IXMLDOMDocument document = owner_->getWrapper()->DOMDocument();
  const IXMLDOMDocument& out = owner_->getWrapper()->OUTDocument();
  IXMLDOMNode other;
  IXMLDOMNode field;
  ApiPmId layoutId;
  ApiPmId otherId;
  if (!targetLayout(target, other) || !zelXmlGetExternalId(layout, layoutId) ||
      !zelXmlGetExternalId(other, otherId) || !zelXmlEnsureChild(document, other, "mountedTools", field) ||
      !zelXmlAddItem(other, "mountedTools", layoutId.text()) || !zelXmlPublishUpdate(out, other) ||
      !setField(document, layout, "mountedTo", otherId.text())) {
    return false;
  }
  for (const char* name : {"mountLocation", "mountRotation"})
    if (zelXmlSelectChild(layout, name, field) && !zelXmlRemoveChild(layout, field)) return false;
  if (!zelXmlAddVec3List(layout, "mountLocation", field) ||
      !zelXmlAddVec3List(layout, "mountRotation", field) || !writePlacement(layout, placement)) {
    return false;
  }
  const bool isSet =
      variant ? setField(document, layout, "mountType", variant->type) : emptyField(layout, "mountType");
  const bool hasKey = variant && variant->key.isSet();
  return isSet &&
         (hasKey ? setField(document, layout, "mountedToRelativeId",
                            variant->key.getSelfAsDefaultRestrictedString())
                 : emptyField(layout, "mountedToRelativeId")) &&
         zelXmlPublishUpdate(out, layout);
}
