#include "node/ZelXmlNode.h"

#include <algorithm>

#include "document/ZelXmlFunctions.h"
#include "node/ZelXmlNodeAccess.h"
#include "node/ZelXmlNodeFields.h"
#include "node/ZelXmlNodeHost.h"

// The tie to element and wrapper, plain fields, and the parent that counts.

bool ZelXmlNode::createXmlElement(const ZelXmlCreationRecord&, IXMLDOMNode& element) {
  element = {};
  return true;
}

bool ZelXmlNode::getDataElement(IXMLDOMNode& element) const {
  element = element_;
  return true;
}

bool ZelXmlNode::getDisplayElement(IXMLDOMNode& element) const {
  element = element_;
  return true;
}

bool ZelXmlNode::addChild(ZelNode*) { return false; }

bool ZelXmlNode::referenced(std::string_view field, IXMLDOMNode& element) const {
  return zelXmlGetReferencedNode(document(), element_, field, element);
}

// The one getter that does not read its row: it is asked a hundred times as often as any other.
bool ZelXmlNode::readName(RWClassicWString& name) const { return zelXmlGetName(element_, name); }

bool ZelXmlNode::writeNameLocally(const RWClassicWString& name) {
  IXMLDOMNode field;
  return zelXmlSetFieldLocally(*this, zelObjectFields.name, name, field);
}

bool ZelXmlNode::writeName(const RWClassicWString& name) {
  return zelXmlSetField(*this, zelObjectFields.name, name);
}

bool ZelXmlNode::readCaption(RWClassicWString& caption) const {
  return zelXmlGetField(*this, zelObjectFields.caption, caption);
}

bool ZelXmlNode::readDescription(RWClassicWString& description) const {
  return zelXmlGetField(*this, zelObjectFields.comment, description);
}

bool ZelXmlNode::writeDescription(const RWClassicWString& description) {
  return zelXmlSetField(*this, zelObjectFields.comment, description);
}

bool ZelXmlNode::readStringType(RWClassicWString& type) const { return zelXmlGetNodeName(element_, type); }

bool ZelXmlNode::readDisplayStringType(RWClassicWString& type) const {
  IXMLDOMNode element;
  return getDisplayElement(element) && zelXmlGetNodeName(element, type);
}

bool ZelXmlNode::readLabels(ApiPmIdList& ids) const { return zelXmlGetLabelIds(element_, ids); }

bool ZelXmlNode::getThreeDRep(IXMLDOMNode& rep) const { return referenced("threeDRep", rep); }

bool ZelXmlNode::getOrCreateThreeDRep(IXMLDOMNode& rep) {
  if (getThreeDRep(rep)) return true;
  std::string id;
  if (!zelXmlCreateThreeDRep(document(), rep) || !zelXmlGetExternalIdText(rep, id)) return false;
  return zelXmlSetField(*this, zelObjectFields.threeDRep, ApiPmId(id));
}

bool ZelXmlNode::readThreeDRepPath(RWClassicWString& path) const {
  IXMLDOMNode rep;
  return getThreeDRep(rep) && zelXmlGetThreeDRepPath(document(), rep, path);
}

bool ZelXmlNode::writeThreeDRepPath(const RWClassicWString& path) {
  IXMLDOMNode rep;
  return getOrCreateThreeDRep(rep) && zelXmlSetThreeDRepPath(document(), rep, path);
}

bool ZelXmlNode::readParentId(ApiPmId& id) const {
  ApiPmId own;
  return wrapper_ && readId(own) && wrapper_->relevantParentFinder().findRelevantParent(own, id);
}

ZelNode* ZelXmlNode::shownParent() const {
  ApiPmId parent;
  return readShownParentId(parent) ? wrapper_->getZelNodeFromId(parent) : nullptr;
}

bool ZelXmlNode::replaceElement(const IXMLDOMNode& replacement) {
  IXMLDOMNode clone;
  if (!wrapper_ || !zelXmlReplaceObject(wrapper_->cachedDOMDocument(), element_, replacement, clone)) {
    return false;
  }
  takeElement(clone);
  return true;
}

bool ZelXmlNode::updateElement(const IXMLDOMNode& replacement) {
  return replaceElement(replacement) && validateRelevantParent();
}

bool ZelXmlNode::validateRelevantParent() {
  ApiPmId own;
  ApiPmId parent;
  ApiPmIdList parents;
  if (!readId(own) || !readParentId(parent) || !zelXmlGetParentItemIds(element_, parents)) return true;
  if (parents.contains(parent)) return true;
  // An empty item names no parent: as one it would hide the object from roots and tree.
  const auto first =
      std::find_if(parents.begin(), parents.end(), [](const ApiPmId& id) { return !id.isNull(); });
  if (first != parents.end()) wrapper_->setRelevantParent(own, *first);
  return true;
}

ZelXmlNode* zelXmlNodeOf(ZelNode* node) {
  auto* access = zelQuery<ZelXmlNodeAccess>(node);
  return access ? access->zelXmlNode() : nullptr;
}

const ZelXmlNode* zelXmlNodeOf(const ZelNode* node) { return zelXmlNodeOf(const_cast<ZelNode*>(node)); }
