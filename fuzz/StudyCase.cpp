#include "StudyCase.h"

#include "OpenStudy.h"
#include "zel/ZelCollection.h"
#include "zel/ZelInstance.h"
#include "zel/ZelPhysical.h"
#include "zel/ZelVorLabel.h"
#include "zel/ZelVorStudy.h"
#include "zelstudy/StudyCheck.h"

namespace fuzz {

namespace {

ZelNode* nodeAt(OpenStudy& study, unsigned at) {
  ZelNodeList nodes;
  study.wrapper().getAllNodes(nodes);
  return nodes.entries() ? nodes[at % nodes.entries()] : nullptr;
}

void readAll(OpenStudy& study) {
  ZelNodeList nodes;
  study.wrapper().getAllNodes(nodes);
  for (ZelNode* node : nodes) {
    RWClassicWString text;
    ApiPmId id;
    RTTran3D place;
    node->getExternalId(id);
    node->getName(text);
    node->getCaption(text);
    node->getDescription(text);
    node->getStringType(text);
    node->getParent();
    if (const auto* placed = zelQuery<ZelPhysical>(node)) {
      placed->getLocation(place);
      placed->getAbsoluteLocation(place);
    }
    ZelNodeList children;
    if (const auto* collection = zelQuery<ZelCollection>(node)) collection->getChildren(children);
    ApiPmIdList labels;
    if (const auto* labelled = zelQuery<ZelVorLabelsContainer>(node)) labelled->getLabels(labels);
    if (const auto* instance = zelQuery<ZelInstance>(node)) instance->getPrototypeId(id);
  }
}

}  // namespace

void editAnyNode(OpenStudy& study, const std::uint8_t (&how)[4]) {
  static constexpr ZelNodeType types[] = {ZEL_PART_INSTANCE, ZEL_RESOURCE_INSTANCE, ZEL_COMPOUND_PART,
                                          ZEL_COMPOUND_RESOURCE};
  ZelXmlWrapper& wrapper = study.wrapper();
  const unsigned a = how[1] | unsigned(how[3] & 0x0Fu) << 8;
  const unsigned b = how[2] | unsigned(how[3] >> 4) << 8;
  ZelNode* const node = nodeAt(study, a);
  ZelNode* const other = nodeAt(study, b);
  ApiPmId id;
  ApiPmId fresh;
  if (!node || !other || !node->getExternalId(id)) return;
  wrapper.generateUniqueId(fresh);
  const std::vector<std::string>& wild = wildTexts();
  switch (how[0] % 14) {
    case 0:
      if (auto* parent = zelQuery<ZelCollection>(other)) parent->moveChild(node);
      break;
    case 1:
      wrapper.addRootFromOtherParent(node);
      break;
    case 2:
      if (auto* parent = zelQuery<ZelCollection>(other)) parent->createChild(types[a % 4], fresh);
      break;
    case 3:
      wrapper.createRoot(types[a % 4], ApiPmId(wild[b % wild.size()]));
      break;
    case 4:
      wrapper.deleteNode(id);
      break;
    case 5:
      if (auto* parent = zelQuery<ZelCollection>(other)) parent->removeChild(id);
      break;
    case 6:
      if (auto* placed = zelQuery<ZelPhysical>(node))
        placed->setLocation(RTTran3D({double(a), double(b), -1.5}, {1, 0.5, -3}));
      break;
    case 7:
      node->setName(wild[b % wild.size()]);
      node->setDescription(wild[a % wild.size()]);
      break;
    case 8:
      if (auto* labelled = zelQuery<ZelVorLabelsContainer>(node)) {
        labelled->addLabel(fresh, {});
        labelled->updateLabel(fresh, {"l", RTTran3D::unit, wild[b % wild.size()], "a", id});
      }
      break;
    case 9:
      if (auto* shows = zelQuery<ZelVorStudy>(other)) shows->removeNodeShortcut(id);
      break;
    case 10:
      if (auto* parent = zelQuery<ZelVorCollection>(other)) parent->moveChildLocally(node);
      break;
    case 11:
      if (auto* parent = zelQuery<ZelVorCollection>(other)) parent->removeChildLocally(id);
      break;
    case 12: {
      ApiPmIdList order{id};
      wrapper.reorderRoots(order);
      break;
    }
    default:
      if (b % 8 == 0) {
        wrapper.removeSharing();
      } else if (b % 8 == 1) {
        wrapper.setUpdateDocument(study.document());
        wrapper.incrementalUpdate(false);
        wrapper.setUpdateDocument({});
      } else {
        wrapper.refreshDeleteRoot(node);
      }
  }
}

std::string runStudy(std::string_view study, std::string_view edits, bool loses) {
  const IXMLDOMDocument document = IXMLDOMDocument::create();
  DomError error;
  if (!document.loadXML(study, &error))
    return error.reason.empty() ? "the file is refused without a reason" : "";
  std::string saved;
  std::string written;
  {
    OpenStudy open(document);
    readAll(open);
    for (std::size_t at = 0; at + 4 <= edits.size() && at < 256; at += 4) {
      const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(edits[at + i]); };
      editAnyNode(open, {byte(0), byte(1), byte(2), byte(3)});
    }
    readAll(open);
    zelstudy::checkStudy(document, {.strict = true});
    saved = open.saved();
    if (saved.empty()) return "the study cannot be saved";
    written = document.xml();
    if (open.out().documentElement() && !IXMLDOMDocument::create().loadXML(open.out().xml(), &error))
      return "the OUT document cannot be read again: " + error.message();
  }
  if (loses) {
    const std::size_t at = saved.rfind(" ExternalId=\"");
    if (at != std::string::npos) saved.erase(at, saved.find('"', at + 13) + 1 - at);
  }
  const IXMLDOMDocument again = IXMLDOMDocument::create();
  if (!again.loadXML(saved, &error)) return "the saved study cannot be read again: " + error.message();
  if (again.xml() != written) return "the saved study is read again as another one";
  OpenStudy reopened(again);
  readAll(reopened);
  return {};
}

}  // namespace fuzz
