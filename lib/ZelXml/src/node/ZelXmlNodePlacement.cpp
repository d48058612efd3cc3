#include "document/ZelXmlFunctions.h"
#include "node/ZelXmlNode.h"
#include "node/ZelXmlNodeHost.h"

// Where an object stands, and how it is put under a parent.

bool ZelXmlNode::getStudyLayout(const ApiPmId& shortcut, IXMLDOMNode& layout) const {
  IXMLDOMNode info;
  return zelXmlFindStudyInfo(document(), shortcut, info) &&
         zelXmlGetReferencedNode(document(), info, "layout", layout);
}

bool ZelXmlNode::readLocation(RTTran3D& location) const {
  ApiPmId own;
  ApiPmId shortcut;
  if (!wrapper_ || !readId(own)) return false;
  IXMLDOMNode layout;
  if (wrapper_->shortcutFinder().findShortcut(own, shortcut)) {
    return getStudyLayout(shortcut, layout) && zelXmlGetLayoutTransform(layout, location);
  }
  if (!referenced("layout", layout)) return false;
  ApiPmId parentId;
  const ZelXmlNode* parent = readParentId(parentId) ? wrapper_->zelXmlNodeFromId(parentId) : nullptr;
  if (!parent) return zelXmlGetAbsoluteLocation(layout, location);
  IXMLDOMNode parentLayout;
  return parent->referenced("layout", parentLayout) &&
         zelXmlGetRelativeTransform(layout, parentLayout, location);
}

bool ZelXmlNode::writeLocation(const RTTran3D& location) {
  ApiPmId own;
  ApiPmId shortcut;
  if (!wrapper_ || !readId(own)) return false;
  IXMLDOMNode layout;
  if (wrapper_->shortcutFinder().findShortcut(own, shortcut)) {
    return getStudyLayout(shortcut, layout) && zelXmlSetLayoutTransform(layout, location) &&
           zelXmlPublishUpdate(outDocument(), layout);
  }
  RTTran3D current;
  return readLocation(current) && referenced("layout", layout) &&
         zelXmlMoveLayout(document(), layout, current.inverse() * location) &&
         zelXmlPublishUpdate(outDocument(), layout);
}

bool ZelXmlNode::readAbsoluteLocation(RTTran3D& location) const {
  IXMLDOMNode layout;
  return referenced("layout", layout) && zelXmlGetAbsoluteLocation(layout, location);
}

bool ZelXmlNode::attachToParent(const IXMLDOMNode& parent) {
  ApiPmId parentId;
  if (!zelXmlGetExternalId(parent, parentId) || !zelXmlAddParentItem(element_, parentId) ||
      !zelXmlPublishUpdate(outDocument(), element_)) {
    return false;
  }
  IXMLDOMNode layout;
  IXMLDOMNode parentLayout;
  RTTran3D absolute;
  RTTran3D parentAbsolute;
  return zelXmlGetReferencedNode(document(), parent, "layout", parentLayout) &&
         referenced("layout", layout) && zelXmlSetParentTextFromElement(layout, parentLayout) &&
         zelXmlGetAbsoluteLocation(parentLayout, parentAbsolute) &&
         zelXmlGetAbsoluteLocation(layout, absolute) &&
         zelXmlSetLayoutTransform(layout, parentAbsolute.inverse() * absolute) &&
         zelXmlPublishUpdate(outDocument(), layout);
}

bool ZelXmlNode::setAsChildOf(const ApiPmId& parent, const ApiPmId& parentLayout,
                              const RTTran3D& parentAbsolute) {
  IXMLDOMNode layout;
  RTTran3D relative;
  RTTran3D absolute;
  if (!zelXmlAddParentItem(element_, parent) || !referenced("layout", layout) ||
      !zelXmlSetParentText(layout, parentLayout.text()) || !zelXmlGetLayoutTransform(layout, relative) ||
      !zelXmlGetAbsoluteLocation(layout, absolute)) {
    return false;
  }
  // Where the object stands does not count: it goes to its old relative placement, with everything below. To
  // put it in relation to the new parent first, and then move it, would come to the same but for rounding,
  // which is the greater the further it has to go.
  return zelXmlPlaceLayout(document(), layout, relative, parentAbsolute * relative);
}

bool ZelXmlNode::setAsChildOfElement(const IXMLDOMNode& parent) {
  ApiPmId parentId;
  ApiPmId parentLayoutId;
  IXMLDOMNode parentLayout;
  RTTran3D parentAbsolute;
  return zelXmlGetExternalId(parent, parentId) &&
         zelXmlGetReferencedNode(document(), parent, "layout", parentLayout) &&
         zelXmlGetExternalId(parentLayout, parentLayoutId) &&
         zelXmlGetAbsoluteLocation(parentLayout, parentAbsolute) &&
         setAsChildOf(parentId, parentLayoutId, parentAbsolute);
}
