#include <memory>

#include "api/ApiPmClassTypes.h"
#include "api/ApiPmXmlCacheDocumentMgr.h"
#include "api/LocalFilesCacheClientFilesManager.h"
#include "document/ZelXmlFunctions.h"
#include "equipment/ZelXmlEquipmentPrototype.h"
#include "equipment/ZelXmlEquipmentPrototypeOccurrence.h"
#include "node/ZelXmlNode.h"
#include "node/ZelXmlNodeFactory.h"
#include "node/ZelXmlNodeKinds.h"
#include "prototype/ZelXmlLocalPrototypeNode.h"
#include "prototype/ZelXmlPrototypeAssignment.h"
#include "wrapper/ZelXmlWrapper.h"
#include "zel/ZelInstance.h"

// New prototypes, in the study and in memory, and the data and files of prototypes. Prototypes are never
// roots, and nothing of them is published to the OUT document.

namespace {

// The kind of a prototype; null for a family whose objects get no node here.
const ZelXmlNodeKind* prototypeKind(const ApiPmTypeData& type) {
  const ApiVorToolsClassTypesWrapper& types = ApiVorToolsClassTypesWrapper::the();
  for (const ZelXmlNodeKind* kind : ZelXmlNodeKinds::ofFamily(type.family())) {
    if (kind->isPrototype() &&
        (kind->base.empty() || types.IsDerivedFromClass(type.className(), kind->base))) {
      return kind;
    }
  }
  return nullptr;
}

}  // namespace

bool ZelXmlWrapper::createNewPrototype(const ApiPmPrototypeData& data, const RWClassicWString& name,
                                       ApiPmId& id) {
  ApiPmPrototypeData copy = data;
  if (!generateUniqueId(copy.id) || !createPrototypeNode(copy, name)) return false;
  id = copy.id;
  return true;
}

bool ZelXmlWrapper::createPrototypeNode(const ApiPmPrototypeData& data, const RWClassicWString& name) {
  const IXMLDOMDocument document = DOMDocument();
  IXMLDOMNode element;
  if (data.id.isNull() || !zelXmlAddObjectElement(document, data.type.className(), data.id.text(), element) ||
      !zelXmlSetFamily(document, element, data.type.family())) {
    return false;
  }
  const ZelXmlNodeKind* kind = prototypeKind(data.type);
  std::unique_ptr<ZelXmlNode> node;
  if (kind) node.reset(ZelXmlNodeFactory::the().create(kind->type));
  IXMLDOMNode children;
  if (node && kind->has(ZelXmlNodeKind::collection) && !zelXmlAddChild(element, "children", children))
    return false;
  if (!name.empty() && !zelXmlAddChildWithText(document, element, "name", name)) return false;
  if (!zelXmlAddDouble(element, "weight", data.weight)) return false;
  if (!node) return true;
  node->setXmlNode(element);
  node->setId(data.id);
  node->setWrapper(this);
  insertNode(data.id, node.release()->pmNode());
  return true;
}

ZelNode* ZelXmlWrapper::createLocalPrototypeNode(const ApiPmPrototypeData& data,
                                                 const RWClassicWString& name) {
  const int family = data.type.familyType();
  if ((family != 0 && family != 1) || data.id.isNull()) return nullptr;
  auto node = std::make_unique<ZelXmlLocalPrototypeNode>(
      data.id, family == 0 ? ZEL_PART_PROTOTYPE : ZEL_RESOURCE_PROTOTYPE, data.type.className());
  node->setWrapper(this);
  node->setName(name);
  ZelNode* made = node.release()->pmNode();
  insertNode(data.id, made);
  return made;
}

bool ZelXmlWrapper::getPrototypeData(const ApiPmId& id, ApiPmPrototypeData& data) const {
  IXMLDOMNode element, field;
  std::string className, family, buffer;
  double weight = 0;
  if (!zelXmlFindNodeById(DOMDocument(), id, element) || !zelXmlGetNodeName(element, className) ||
      !zelXmlGetFamily(element, family) || !zelXmlSelectChild(element, "weight", field) ||
      field.textView(buffer).empty() || !zelXmlGetDoubleText(field, weight)) {
    return false;
  }
  data = ApiPmPrototypeData(id, ApiPmTypeData(className, family));
  data.weight = weight;
  return true;
}

bool ZelXmlWrapper::computeInstanceStringTypeFromPrototypeData(const ApiPmId& id,
                                                               RWClassicWString& type) const {
  const ZelNode* node = getZelNodeFromId(id);
  const ZelXmlNodeKind* kind = node ? &ZelXmlNodeKinds::of(node->type()) : nullptr;
  if (!kind || !kind->isPrototype()) return false;
  type = ZelXmlNodeKinds::of(kind->instances).className;
  return true;
}

bool ZelXmlWrapper::getPrototypePath(const ApiPmId& id, RWClassicWString& path) const {
  const ZelNode* node = getZelNodeFromId(id);
  const ZelXmlNode* xmlNode = zelXmlNodeOf(node);
  if (!xmlNode) return false;
  if (const auto* prototype = zelQuery<ZelPrototype>(node)) return prototype->getPrototypePath(path);
  IXMLDOMNode rep;
  return zelQuery<ZelVorPlaceholder>(node) && xmlNode->getThreeDRep(rep) &&
         zelXmlGetThreeDRepPath(DOMDocument(), rep, path);
}

bool ZelXmlWrapper::setPrototypePath(const ApiPmId& id, const RWClassicWString& path) {
  auto* prototype = zelQuery<ZelPrototype>(getZelNodeFromId(id));
  return prototype && prototype->setPrototypePath(path);
}

namespace {

// The node that holds the representation of a node: its prototype's, or itself.
const ZelXmlNode* holderOfFiles(const ZelXmlWrapper& wrapper, const ZelNode& node) {
  ApiPmId id;
  if (const auto* instance = zelQuery<ZelInstance>(&node)) {
    return instance->getPrototypeId(id) ? wrapper.zelXmlNodeFromId(id) : nullptr;
  }
  if (const auto* assignment = zelQuery<ZelPrototypeAssignment>(&node)) {
    return assignment->getPrototypeId(id) ? wrapper.zelXmlNodeFromId(id) : nullptr;
  }
  return zelXmlNodeOf(&node);
}

}  // namespace

bool ZelXmlWrapper::registerNodeForPreDownload(ZelNode& node) const {
  const ZelXmlNode* holder = holderOfFiles(*this, node);
  IXMLDOMNode rep;
  std::string stored, name, local;
  if (!holder || !holder->getThreeDRep(rep) || !zelXmlGetReferenceFileName(DOMDocument(), rep, stored) ||
      !zelXmlResolveFileName(stored, name)) {
    return false;
  }
  LocalFilesCacheClientFilesManager& files = LocalFilesCacheClientFilesManager::the();
  return files.getDownloadedPath(name, local, false) || files.registerFileForDownload(name);
}

// Prototypes for another document: the elements that one is made of, as update commands.

namespace {

// The index that publishing needs, for the length of a call.
class Indexed {
 public:
  explicit Indexed(const IXMLDOMDocument& document) : document_(document) {
    ApiPmXmlCacheDocumentMgr::the().addDocument(document_);
  }
  ~Indexed() { ApiPmXmlCacheDocumentMgr::the().removeDocument(document_); }
  Indexed(const Indexed&) = delete;
  Indexed& operator=(const Indexed&) = delete;

 private:
  const IXMLDOMDocument document_;
};

// An occurrence, unlike a prototype, keeps its texts.
bool publishOccurrence(const IXMLDOMDocument& study, const IXMLDOMDocument& document,
                       const IXMLDOMNode& occurrence) {
  std::vector<IXMLDOMNode> texts;
  for (const std::string_view name : {"comment", "name"}) {
    IXMLDOMNode field;
    if (zelXmlSelectChild(occurrence, name, field)) texts.push_back(field.cloneNode(true));
  }
  if (!zelXmlPublishClone(document, occurrence, texts)) return false;
  IXMLDOMNode layout;
  return !zelXmlGetReferencedNode(study, occurrence, "layout", layout) ||
         zelXmlPublishClone(document, layout);
}

}  // namespace

bool ZelXmlWrapper::getPrototypeDataAsOutputDoc(const ApiPmId& id, const IXMLDOMDocument& document) const {
  const Indexed indexed(document);
  IXMLDOMNode element;
  if (!zelXmlFindNodeById(DOMDocument(), id, element)) return false;
  const bool published = zelXmlPublishClone(document, element);
  IXMLDOMNode geometry;
  if (zelXmlSelectChild(document, "//threeDRep", geometry)) zelXmlRemoveFromParent(geometry);
  return published && addEquipmentPrototypeData(id, document);
}

bool ZelXmlWrapper::getPrototypeDataWith3DAsOutputDoc(const ApiPmId& id,
                                                      const IXMLDOMDocument& document) const {
  const Indexed indexed(document);
  return getPrototypeDataWith3DAsOutputDocInternal(id, document);
}

bool ZelXmlWrapper::getListOfPrototypeDataWith3DRepAsOutputDoc(const ApiPmIdList& ids,
                                                               const IXMLDOMDocument& document) const {
  const Indexed indexed(document);
  for (const ApiPmId& id : ids) {
    if (!getPrototypeDataWith3DAsOutputDocInternal(id, document)) return false;
  }
  return true;
}

bool ZelXmlWrapper::getPrototypeDataWith3DAsOutputDocInternal(const ApiPmId& id,
                                                              const IXMLDOMDocument& document) const {
  const IXMLDOMDocument study = DOMDocument();
  IXMLDOMNode element, rep, file;
  if (!zelXmlFindNodeById(study, id, element) || !zelXmlPublishClone(document, element)) return false;
  if (zelXmlGetReferencedNode(study, element, "threeDRep", rep)) {
    if (!zelXmlPublishClone(document, rep)) return false;
    if (zelXmlGetReferencedNode(study, rep, "file", file) && !zelXmlPublishClone(document, file))
      return false;
  }
  return addEquipmentPrototypeData(id, document);
}

bool ZelXmlWrapper::addEquipmentPrototypeData(const ApiPmId& id, const IXMLDOMDocument& document) const {
  const ZelXmlNode* prototype = zelXmlNodeFromId(id);
  if (!prototype || prototype->zelType() != ZEL_EQUIPMENT_PROTOTYPE) return true;
  const IXMLDOMDocument study = DOMDocument();
  ApiPmIdList ids;
  bool result = zelXmlGetChildIds(prototype->getXmlNode(), ids);
  for (const ApiPmId& child : ids) {
    IXMLDOMNode occurrence;
    if (!zelXmlFindNodeById(study, child, occurrence)) continue;
    result = publishOccurrence(study, document, occurrence);
    if (!result) break;
  }
  IXMLDOMNode children, item;
  if (zelXmlSelectChild(document, "//children", children) && !zelXmlSelectChild(children, "item", item)) {
    zelXmlSetText(children, "");
  }
  return result;
}

bool ZelXmlWrapper::copyOccurrences(ZelNode& source, ZelNode& target) {
  const auto* from = zelQuery<ZelCollection>(&source);
  ZelXmlNode* to = zelXmlNodeOf(&target);
  if (!from || !to || target.type() != ZEL_EQUIPMENT_PROTOTYPE) return true;
  auto& equipment = static_cast<ZelXmlEquipmentPrototype&>(*to);
  ApiPmId targetId;
  ZelNodeList children;
  if (!equipment.getExternalId(targetId) || !from->getChildren(children)) return false;
  for (ZelNode* child : children) {
    const auto* occurrence = zelQuery<ZelVorPrototypeOccurrence>(child);
    ApiPmId prototype;
    ApiPmId id;
    if (!occurrence || !occurrence->getPrototypeId(prototype)) return false;
    ZelNode* copy = equipment.createOccurrence(prototype);
    if (!copy || !copy->getExternalId(id)) return false;
    setRelevantParent(id, targetId);
    static_cast<ZelXmlEquipmentPrototypeOccurrence&>(*zelXmlNodeOf(copy)).copyFrom(child);
  }
  return true;
}
