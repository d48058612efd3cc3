#include "plc/ZelXmlPlcInternalNode.h"

#include <algorithm>

#include "document/ZelXmlFunctions.h"
#include "plc/ZelXmlPlcNodes.h"
#include "zel/ZelPlcTypeConvertor.h"

bool ZelXmlPlcInternalNode::create(ZelXmlNodeHost* wrapper, const IXMLDOMNode& holder, const ApiPmId& id,
                                   std::optional<ZelNodeType> type) {
  IXMLDOMNode element;
  if (!wrapper || !zelXmlAddChild(holder, pattern(), element)) return false;
  setXmlNode(element);
  setWrapper(wrapper);
  setId(id);
  RWClassicCString text;
  // The registration comes last: nothing takes it back.
  if (!zelXmlSetExternalId(element, id) ||
      (type && !(ZelPlcTypeConvertor::the().getPlcType(*type, text) &&
                 zelXmlSetField(*this, zelPlcNodeFields.StringType, text)))) {
    return false;
  }
  wrapper->insertNode(id, pmNode());
  return true;
}

bool ZelXmlPlcInternalNode::adopt(ZelXmlNodeHost* wrapper, const IXMLDOMNode& element) {
  ApiPmId id;
  if (!wrapper || !zelXmlGetExternalId(element, id)) return false;
  setXmlNode(element);
  setWrapper(wrapper);
  setId(id);
  wrapper->insertNode(id, pmNode());
  return true;
}

bool ZelXmlPlcInternalNode::readStringType(RWClassicWString& text) const {
  return ZelPlcTypeConvertor::the().getPlcType(zelType(), text);
}

ZelNodeType ZelXmlPlcInternalNode::readType(ZelNodeType own) const {
  int number = 0;
  if (zelXmlGetField(*this, zelPlcNodeFields.Type, number)) {
    // Numbers of an older table, in which three types were missing.
    if (number >= 34 && number <= 75) return static_cast<ZelNodeType>(number + 3);
    return number == 76 ? static_cast<ZelNodeType>(83) : own;
  }
  std::string buffer;
  std::string_view text;
  ZelNodeType type = own;
  if (getXmlNode().selectText(zelPlcNodeFields.StringType.name, buffer, text))
    ZelPlcTypeConvertor::the().getZelType(text, type);
  return type;
}

bool ZelXmlPlcInternalNode::adoptHeldSignals(Holders holders) {
  return std::all_of(holders.begin(), holders.end(), [this](const ZelField<ZelHeldId>* holder) {
    return zelXmlAdoptHeldSignal(getWrapper(), getXmlNode(), *holder);
  });
}

bool ZelXmlPlcInternalNode::removeHeldSignals(Holders holders) {
  ZelXmlNodeHost* wrapper = getWrapper();
  if (!wrapper) return false;
  ApiPmIdList ids;
  for (const ZelField<ZelHeldId>* holder : holders) {
    ApiPmId id;
    if (zelXmlGetField(*this, *holder, id)) ids.append(id);
  }
  wrapper->removeAndDeletePlcInternalNodes(ids);  // this node may be among them
  return true;
}
