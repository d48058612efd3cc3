#include <string>
#include <unordered_map>

#include "document/ZelXmlFunctions.h"
#include "node/ZelXmlNode.h"
#include "node/ZelXmlNodeFields.h"
#include "node/ZelXmlNodeHost.h"
#include "node/ZelXmlNodeKinds.h"

// The group `plcInfo` and what all its owners keep in it.

bool ZelXmlNode::hasPlcData(ZelNodeType type) {
  return ZelXmlNodeKinds::of(type).has(ZelXmlNodeKind::plcData);
}

bool ZelXmlNode::getPlcInfo(IXMLDOMNode& info) const {
  return hasPlcData(zelType()) && zelXmlSelectChild(element_, "plcInfo", info);
}

bool ZelXmlNode::getOrCreatePlcInfo(IXMLDOMNode& info) {
  ApiPmId own;
  IXMLDOMNode origin;
  return getPlcInfo(info) || (zelXmlAddChild(element_, "plcInfo", info) && readId(own) &&
                              zelXmlWriteField(info, zelPlcDataFields.OriginalId, own, origin));
}

bool ZelXmlNode::isOriginal(bool& original) const {
  ApiPmId own;
  ApiPmId origin;
  if (!readId(own)) return false;
  original = !zelXmlGetField(*this, zelPlcDataFields.OriginalId, origin) || origin == own;
  return true;
}

bool ZelXmlNode::removePlcData() {
  const bool requisites = hasPlcData(zelType()) ? removeRequisites() : true;
  IXMLDOMNode info;
  return zelXmlSelectChild(element_, "plcInfo", info) ? zelXmlRemoveChild(element_, info) : requisites;
}

bool ZelXmlNode::publishPlcData() {
  return hasPlcData(zelType()) && zelXmlPublishFields(outDocument(), element_, {"NodeInfo", "plcInfo"});
}

namespace {

// Calls `visit(id, element)` for every element below that has an id.
template <class Visit>
void visitIds(const IXMLDOMElement& parent, Visit&& visit) {
  for (IXMLDOMElement child = parent.firstElementChild(); child; child = child.nextElementSibling()) {
    ApiPmId id;
    if (zelXmlGetExternalId(child, id)) visit(id, child);
    visitIds(child, visit);
  }
}

// The kind of place: the names on the way up to the group.
std::string placeOf(const IXMLDOMNode& element, const IXMLDOMNode& group) {
  std::string place;
  for (IXMLDOMNode step = element; step && !(step == group); step = step.parentNode())
    place.append(step.nodeName()).append("/");
  return place;
}

}  // namespace

void ZelXmlNode::takeElement(const IXMLDOMNode& element) {
  struct Held {
    std::string place;
    ZelXmlElementNode* node;
  };
  IXMLDOMNode former;
  IXMLDOMNode group;
  getPlcInfo(former);
  setXmlNode(element);
  if (!wrapper_ || !hasPlcData(zelType())) return;
  getPlcInfo(group);
  std::unordered_map<ApiPmId, Held> held;
  visitIds(former, [&](const ApiPmId& id, const IXMLDOMNode& inner) {
    ZelXmlElementNode* node = zelXmlElementNodeOf(wrapper_->findPlcInternalNode(id));
    if (node && node->getXmlNode() == inner) held.emplace(id, Held{placeOf(inner, former), node});
  });
  if (!held.empty()) {
    visitIds(group, [&](const ApiPmId& id, const IXMLDOMNode& inner) {
      const auto found = held.find(id);
      if (found == held.end() || found->second.place != placeOf(inner, group)) return;
      found->second.node->setXmlNode(inner);
      held.erase(found);
    });
  }
  for (const auto& [id, gone] : held) wrapper_->removeAndDeletePlcInternalNode(id);
  createSubnodes();
}
