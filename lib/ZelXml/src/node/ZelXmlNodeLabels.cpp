#include <memory>

#include "api/ApiPmSessionManager.h"
#include "document/ZelXmlFunctions.h"
#include "node/ZelXmlNode.h"
#include "node/ZelXmlNodeFactory.h"
#include "node/ZelXmlNodeHost.h"
#include "zel/ZelPhysical.h"

// Labels of an object: the list `labels`, and the label objects that it names.

bool ZelXmlNode::createLabel(const ApiPmId& id, const ZelVorLabelData&) {
  if (!wrapper_ || !element_) return false;
  std::unique_ptr<ZelXmlNode> label(ZelXmlNodeFactory::the().create(ZEL_LABEL));
  if (!label) return false;
  label->setWrapper(wrapper_);
  IXMLDOMNode element;
  if (!label->createXmlElement({ZEL_LABEL, "Label", id}, element) || !element) return false;
  label->setXmlNode(element);
  label->setId(id);
  wrapper_->insertNode(id, label.release()->pmNode());
  ApiPmSessionManager::the().cacheNode(document(), id, element);
  return addLabelItem(id);
}

bool ZelXmlNode::addLabelItem(const ApiPmId& id) {
  IXMLDOMNode labels;
  if (!zelXmlEnsureChild(document(), element_, "labels", labels)) return false;
  ApiPmIdList present;
  if (!zelXmlGetLabelIds(element_, present)) return false;
  if (!present.contains(id) && !zelXmlAddChildWithText(document(), labels, "item", id.text())) return false;
  return zelXmlPublishUpdate(outDocument(), element_);
}

bool ZelXmlNode::removeLabelItem(const ApiPmId& id) {
  IXMLDOMNodeList items;
  IXMLDOMNode item;
  long index = 0;
  if (!zelXmlSelectChildren(element_, "labels/item", items)) return false;
  return !zelXmlFindListItem(items, id.text(), item, index) || zelXmlRemoveFromParent(item);
}

bool ZelXmlNode::removeLabel(const ApiPmId& label) {
  const ApiPmId id = label;
  if (!wrapper_ || !removeLabelItem(id) || !zelXmlPublishUpdate(outDocument(), element_)) return false;
  ZelXmlNode* node = wrapper_->zelXmlNodeFromId(id);
  if (!node || !zelXmlPublishDeletion(wrapper_->cachedDOMDocument(), outDocument(), node->getXmlNode())) {
    return false;
  }
  wrapper_->removeAndDeleteNodeObject(id);
  return true;
}

bool ZelXmlNode::dropLabel(const ApiPmId& label) {
  const ApiPmId id = label;
  if (!wrapper_ || !removeLabelItem(id)) return false;
  ZelXmlNode* node = wrapper_->zelXmlNodeFromId(id);
  if (!node || !zelXmlRemoveCachedElement(wrapper_->cachedDOMDocument(), node->getXmlNode())) return false;
  wrapper_->removeAndDeleteNodeObject(id);
  return true;
}

bool ZelXmlNode::writeLabel(const ApiPmId& id, const ZelVorLabelData& data) {
  ZelNode* node = wrapper_ ? wrapper_->getZelNodeFromId(id) : nullptr;
  auto* label = zelQuery<ZelVorLabel>(node);
  auto* placed = zelQuery<ZelPhysical>(node);
  const ZelXmlNode* xmlNode = zelXmlNodeOf(node);
  return label && placed && xmlNode && label->setName(data.name) && placed->setLocation(data.relLocation) &&
         label->setText(data.text) && label->setAppearanceData(data.appearanceData) &&
         label->setAssignedObjId(data.assignedObjId) &&
         zelXmlPublishUpdate(outDocument(), xmlNode->getXmlNode()) &&
         zelXmlPublishUpdate(outDocument(), element_);
}
