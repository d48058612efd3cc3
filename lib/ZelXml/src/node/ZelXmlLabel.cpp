#include "node/ZelXmlLabel.h"

#include <unordered_set>

#include "document/ZelXmlFunctions.h"
#include "node/ZelXmlLocationText.h"
#include "node/ZelXmlNewElements.h"
#include "node/ZelXmlNodeHost.h"

bool ZelXmlLabel::createXmlElement(const ZelXmlCreationRecord& record, IXMLDOMNode& element) {
  return getWrapper() && zelXmlCreateLabelElement(*getWrapper(), record, element);
}

bool ZelXmlLabel::removeLabelElement() {
  ApiPmId own;
  IXMLDOMNode section;
  if (!getWrapper() || !readId(own) || !zelXmlGetObjectsSection(document(), section) ||
      !getWrapper()->findNode(own) || !zelXmlRemoveChild(section, getXmlNode())) {
    return false;
  }
  getWrapper()->cachedDOMDocument().removeEntry(document(), own);
  getWrapper()->removeAndDeleteNodeObject(own);
  return true;
}

bool ZelXmlLabel::getLocation(RTTran3D& location) const {
  RWClassicWString text;
  if (!zelXmlGetField(*this, zelLabelFields.noteLocation, text)) return false;
  zelXmlParseLocationText(text, location);
  return true;
}

bool ZelXmlLabel::setLocation(const RTTran3D& location) {
  return zelXmlIsFinite(location) &&
         zelXmlSetField(*this, zelLabelFields.noteLocation, zelXmlLocationText(location));
}

bool ZelXmlLabel::getAbsoluteLocation(RTTran3D& location) const {
  if (!getWrapper()) return false;
  // A label may be assigned to a label, and so on; a ring of them stands nowhere.
  std::unordered_set<const ZelXmlLabel*> seen;
  RTTran3D below = RTTran3D::unit;
  for (const ZelXmlLabel* label = this;;) {
    RTTran3D own;
    ApiPmId assigned;
    if (!seen.insert(label).second || !label->getLocation(own) || !label->getAssignedObjId(assigned))
      return false;
    below = own.inverse() * below;
    const ZelNode* object = getWrapper()->findNode(assigned);
    label = dynamic_cast<const ZelXmlLabel*>(zelXmlNodeOf(object));
    if (label) continue;
    const auto* placed = zelQuery<ZelPhysical>(object);
    RTTran3D absolute;
    if (!placed || !placed->getAbsoluteLocation(absolute)) return false;
    location = absolute * below;
    return true;
  }
}
