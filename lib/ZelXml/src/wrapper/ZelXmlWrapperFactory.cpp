#include <algorithm>
#include <memory>

#include "api/ApiLogLogger.h"
#include "api/ApiPmClassTypes.h"
#include "api/ApiPmSessionManager.h"
#include "api/ApiVorTools.h"
#include "document/ZelXmlFieldRows.h"
#include "document/ZelXmlFunctions.h"
#include "node/ZelXmlNode.h"
#include "node/ZelXmlNodeFactory.h"
#include "node/ZelXmlNodeKinds.h"
#include "wrapper/ZelXmlWrapper.h"

// Which node class stands for an object element, and the making of its node.

namespace {

bool has(const IXMLDOMNode& element, std::string_view child) { return element.selects(child); }

bool isOfClass(const IXMLDOMNode& element, std::string_view base) {
  return ApiVorToolsClassTypesWrapper::the().IsDerivedFromClass(element.nodeName(), base);
}

}  // namespace

ZelNode* ZelXmlWrapper::createNodeByFamilyXmlNode(const IXMLDOMNode& familyElement) {
  if (!familyElement) return nullptr;
  std::string buffer;
  const std::string_view family = familyElement.textView(buffer);
  const IXMLDOMNode element = familyElement.parentNode().parentNode();
  return element ? handleNodeCreation(element, family) : nullptr;
}

ZelNode* ZelXmlWrapper::handleNodeCreation(const IXMLDOMNode& element, std::string_view family) {
  ZelNode* node = nullptr;
  ApiPmId id;
  zelXmlGetExternalId(element, id);
  if (family == "Shortcut") {
    addShortcutToShortcutFinder(element);
  } else {
    node = createNode(element, id, family);
  }
  handleNewNodeCaches(element, id);
  return node;
}

bool ZelXmlWrapper::handleNewNodeCaches(const IXMLDOMNode& element, const ApiPmId& id) {
  if (id.isNull()) return false;
  ApiPmSessionManager::the().cacheNode(DOMDocument(), id, element);
  ApiPmInternalId number;
  if (ZelFieldCodec<ApiPmInternalId>::read(element, zelObjectFields.internalId.name, number))
    ApiVorToolsIdConverter::the().insertIdPair(number, id);
  return true;
}

ZelNode* ZelXmlWrapper::createNode(const IXMLDOMNode& element, const ApiPmId& id, std::string_view family) {
  const auto& kinds = ZelXmlNodeKinds::ofFamily(family);
  const auto found = std::find_if(kinds.begin(), kinds.end(),
                                  [&](const ZelXmlNodeKind* kind) { return isOfKind(*kind, element); });
  if (found == kinds.end()) return nullptr;
  const ZelXmlNodeKind& kind = **found;
  if (kind.has(ZelXmlNodeKind::entersChildren) && !addParentAndChildrenToRelevantParentFinder(element)) {
    return nullptr;
  }
  std::unique_ptr<ZelXmlNode> made(kind.has(ZelXmlNodeKind::ofDocumentsOnly)
                                       ? kind.allocator->allocate()
                                       : ZelXmlNodeFactory::the().create(kind.type));
  if (!made) return nullptr;
  ZelXmlNode* xmlNode = made.release();
  ZelNode* node = xmlNode->pmNode();
  if (id.isNull()) {
    convertor_.keepUnregistered(node);
    return node;
  }
  xmlNode->setId(id);
  xmlNode->setXmlNode(element);
  xmlNode->setWrapper(this);
  insertNode(id, node);
  if (kind.type == ZEL_STUDY) {
    studyId_ = id.asString();
    ZEL_LOG("MarvekIntegration ", ApiLogLogger::trace, "ZelXmlWrapper::createNode old study id " + studyId_);
  }
  xmlNode->createSubnodes();
  return node;
}

bool ZelXmlWrapper::isOfKind(const ZelXmlNodeKind& kind, const IXMLDOMNode& element) const {
  IXMLDOMNode prototype;
  switch (kind.shape) {
    case ZelXmlShape::named:
      return element.nodeName() == kind.className;
    case ZelXmlShape::namedWithChildren:
      return element.nodeName() == kind.className && has(element, "children");
    case ZelXmlShape::withChildren:
      return has(element, "children");
    case ZelXmlShape::occurrence:
      return isPrototypeOccurrence(element);
    case ZelXmlShape::withThreeDRep:
      return has(element, "threeDRep");
    case ZelXmlShape::classBelow:
      return isOfClass(element, kind.base);
    case ZelXmlShape::prototypeBelow:
      return zelXmlGetPrototypeElement(DOMDocument(), element, prototype) && isOfClass(prototype, kind.base);
    case ZelXmlShape::usesEquipment:
      return isEquipmentPrototypeAssignment(element);
    case ZelXmlShape::any:
      return true;
  }
  return false;
}

bool ZelXmlWrapper::isPrototypeOccurrence(const IXMLDOMNode& element) const {
  if (element.nodeName() == "PmEquipmentPrototypeOccurrence") return true;
  if (element.nodeName() != "PmToolInstance") return false;
  std::string parentPrototype;
  if (zelXmlGetParentPrototype(element, parentPrototype) && zelXmlIsReference(parentPrototype) &&
      cachedDOMDocument().isNodeCached(ApiPmId(parentPrototype))) {
    return true;
  }
  ApiPmId id;
  return zelXmlGetExternalId(element, id) && toolInstanceMasterObjects_.contains(id);
}

bool ZelXmlWrapper::isEquipmentPrototypeAssignment(const IXMLDOMNode& element) const {
  IXMLDOMNode used;
  std::string family;
  return zelXmlGetReferencedNode(DOMDocument(), element, "uses", used) && zelXmlGetFamily(used, family) &&
         family == "EquipmentPrototype";
}
