#include "operation/ZelXmlOperation.h"

#include <algorithm>

#include "document/ZelXmlFunctions.h"

namespace {

constexpr const ZelField<ZelHeldId>* signals[] = {
    &zelOperationFields.StartingSig, &zelOperationFields.EndingSig, &zelOperationFields.MemorySig};

// The pair of an entry; false, with the signal appended if there is one, where a part is missing.
bool readEntry(const IXMLDOMNode& item, ApiPmIdList& ids,
               RWClassicTValOrderedVector<RWClassicCString>& values) {
  std::string id;
  std::string value;
  if (!zelXmlGetString(item, "Id", id) || id.empty()) return false;
  ids.append(ApiPmId(id));
  if (!zelXmlGetString(item, "Value", value)) return false;
  values.append(value);
  return true;
}

// At any depth of the group.
bool readBranchType(const IXMLDOMNode& element, std::int32_t& type) {
  return zelXmlGetInt(element, "plcInfo//BranchType", type);
}

}  // namespace

bool ZelXmlOperation::createSubnodes() {
  IXMLDOMNode info;
  return !getPlcInfo(info) || std::all_of(std::begin(signals), std::end(signals), [&](auto* holder) {
    return zelXmlAdoptHeldSignal(getWrapper(), info, *holder);
  });
}

bool ZelXmlOperation::removeRequisites() {
  if (!getWrapper()) return false;
  for (const auto* holder : signals) {
    ApiPmId id;
    if (zelXmlGetField(*this, *holder, id)) getWrapper()->removeAndDeletePlcInternalNode(id);
  }
  return true;
}

// Keys are those of the whole document, whose index answers.
bool ZelXmlOperation::findEvent(std::string_view key, IXMLDOMElement& event) const {
  return getXmlNode().ownerDocument().findByAttribute("EventId", key, event);
}

bool ZelXmlOperation::makeEvent(std::string_view key, IXMLDOMElement& event) {
  IXMLDOMNode info;
  IXMLDOMNode made;
  if (!getOrCreatePlcInfo(info) || !zelXmlAddChild(info, "SigEvent", made)) return false;
  event = made;
  return zelXmlSetAttribute(event, "EventId", key);
}

bool ZelXmlOperation::addEventSig(const RWClassicWString& key, const RWClassicWString& signal,
                                  const RWClassicCString& value) {
  IXMLDOMElement event;
  IXMLDOMNode entries;
  const IXMLDOMDocument document = getXmlNode().ownerDocument();
  const IXMLDOMElement item = document.createElement("item");
  return (findEvent(key, event) || makeEvent(key, event)) &&
         zelXmlGetOrAddChild(event, "EventSigs", entries) &&
         zelXmlAddChildWithText(document, item, "Id", signal) &&
         zelXmlAddChildWithText(document, item, "Value", value) && zelXmlAppendChild(entries, item);
}

bool ZelXmlOperation::getEventSigs(const RWClassicWString& key, ApiPmIdList& ids,
                                   RWClassicTValOrderedVector<RWClassicCString>& values) const {
  IXMLDOMElement event;
  IXMLDOMNodeList items;
  if (!findEvent(key, event) || !zelXmlSelectChildren(event, "EventSigs//item", items)) return false;
  bool last = true;
  for (const IXMLDOMNode& item : items) last = readEntry(item, ids, values);
  return last;
}

// Of several lists the first goes, and what is then the first takes the flows.
bool ZelXmlOperation::writeFlows(const ZelField<ApiPmIdList>& row, const ApiPmIdList& flows) {
  const IXMLDOMNode& element = getXmlNode();
  IXMLDOMNode list;
  if (zelXmlSelectChild(element, row.name, list) && !zelXmlRemoveChild(element, list)) return false;
  if (!zelXmlGetOrAddChild(element, row.name, list)) return false;
  const IXMLDOMDocument document = element.ownerDocument();
  for (const ApiPmId& flow : flows)
    if (!flow.isNull() && !zelXmlAddChildWithText(document, list, "item", flow.text())) return false;
  return publishField(ZelFieldPublication::sendsField, list);
}

bool ZelXmlOperation::readFlows(const ZelField<ApiPmIdList>& row, ApiPmIdList& flows) const {
  flows.clear();
  ZelXmlList<std::string> texts;
  if (!zelXmlHasField(getXmlNode(), row) || !zelXmlGetWideStringList(getXmlNode(), row.name, texts))
    return false;
  for (const std::string& text : texts) flows.append(ApiPmId(text));
  return true;
}

bool ZelXmlOperation::setInputMaterialFlows(const ApiPmIdList& flows) {
  return writeFlows(zelProcessFields.inputMaterialFlows, flows);
}

bool ZelXmlOperation::getInputMaterialFlows(ApiPmIdList& flows) const {
  return readFlows(zelProcessFields.inputMaterialFlows, flows);
}

bool ZelXmlOperation::setOutputMaterialFlows(const ApiPmIdList& flows) {
  return writeFlows(zelProcessFields.outputMaterialFlows, flows);
}

bool ZelXmlOperation::getOutputMaterialFlows(ApiPmIdList& flows) const {
  return readFlows(zelProcessFields.outputMaterialFlows, flows);
}

bool ZelXmlOperation::hasProcessResource(bool& has) const {
  has = zelXmlHasField(getXmlNode(), zelProcessFields.processResource);
  return true;
}

bool ZelXmlFlow::getBranchType(std::int32_t& type) const { return readBranchType(getXmlNode(), type); }
bool ZelXmlMaterialFlow::getBranchType(std::int32_t& type) const {
  return readBranchType(getXmlNode(), type);
}
