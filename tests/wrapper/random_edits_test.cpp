// Random edits of generated studies through the public interfaces: between any two edits roots, registry and
// finders agree, and a study that was saved and opened again is the one that was edited.

#include <map>
#include <set>
#include <sstream>

#include "RandomDraws.h"
#include "StudyGenerator.h"
#include "node/ZelXmlNode.h"
#include "wrapper/StudyTest.h"
#include "zel/ZelVorLabel.h"
#include "zel/ZelVorStudy.h"
#include "zelstudy/StudyCheck.h"

using namespace document_test;

namespace {

class RandomEdits : public StudyTest, protected RandomDraws {
 protected:
  void open(std::uint32_t objects) {
    openText(zelgen::generateStudy({.objects = objects, .seed = seed, .shared = 20}));
    ASSERT_TRUE(wrapper->read());
    publish();
  }

  double length() { return RandomDraws::length(10000); }
  RTTran3D place() { return RTTran3D({length(), length(), length()}, {angle(3), angle(1.5), angle(3)}); }
  ZelNode* any() {
    if (pool.empty() || below(200) == 0) {
      pool.clear();
      ZelNodeList nodes;
      wrapper->getAllNodes(nodes);
      for (const ZelNode* each : nodes)
        if (zelXmlNodeOf(each)) pool.emplace_back(textOf(each));  // inner nodes have no place in these edits
    }
    return wrapper->getZelNodeFromId(pool[below(pool.size())]);  // null for one that is gone by now
  }
  template <class I>
  I* anyWith() {
    for (int attempt = 0; attempt < 50; ++attempt) {
      if (auto* found = zelQuery<I>(any())) return found;
    }
    return nullptr;
  }
  // Objects that a planner moves and deletes: they have a layout and can name their parents. Others are
  // refused half way, which leaves lists that do not agree.
  static bool isPlaced(ZelNode* node) {
    IXMLDOMNode field;
    const IXMLDOMNode& element = zelXmlNodeOf(node)->getXmlNode();
    return zelXmlSelectChild(element, "layout", field) && zelXmlSelectChild(element, "parents", field);
  }
  // Of an object that was deleted from one of its parents the element stays, and with it the list of labels.
  bool isLabelOfNode(ZelNode* node) const {
    const auto* label = zelQuery<ZelVorLabel>(node);
    ApiPmId object;
    return label && label->getAssignedObjId(object) && wrapper->getZelNodeFromId(object);
  }
  bool isShown(const ApiPmId& id) const {
    ApiPmId shortcut;
    return wrapper->findShortcut(id, shortcut);
  }
  ApiPmId fresh() {
    const ApiPmId id("edit-" + std::to_string(++made));
    pool.push_back(id);
    return id;
  }

  // One edit; its answer is not looked at, since refusals are part of the game.
  void edit() {
    static constexpr ZelNodeType types[] = {ZEL_PART_INSTANCE, ZEL_RESOURCE_INSTANCE, ZEL_COMPOUND_PART,
                                            ZEL_COMPOUND_RESOURCE};
    ZelNode* node = any();
    ApiPmId id;
    if (!node || !node->getExternalId(id)) return;
    switch (below(16)) {
      case 0:
      case 1:
      case 2:
        // A study would show an object twice that it shows already.
        if (auto* parent = anyWith<ZelCollection>();
            parent && isPlaced(node) && !(parent->type() == ZEL_STUDY && isShown(id))) {
          parent->moveChild(node);
        }
        break;
      case 3:
        wrapper->addRootFromOtherParent(node);
        break;
      case 4:
      case 5:
        if (auto* parent = anyWith<ZelCollection>()) parent->createChild(types[below(4)], fresh());
        break;
      case 6:
        wrapper->createRoot(types[below(4)], fresh());
        break;
      case 7:
        if (isPlaced(node) || isLabelOfNode(node)) wrapper->deleteNode(id);
        break;
      case 8:
      case 9:
        if (auto* placed = zelQuery<ZelPhysical>(node)) placed->setLocation(place());
        break;
      case 10:
        node->setName("name " + std::to_string(made));
        node->setDescription("<&\"\n");
        break;
      case 11:
        if (auto* labelled = zelQuery<ZelVorLabelsContainer>(node)) {
          const ApiPmId label = fresh();
          if (labelled->addLabel(label, {})) labelled->updateLabel(label, {"l", place(), "t", "a", id});
        }
        break;
      case 12:
        if (auto* shows = anyWith<ZelVorStudy>()) {
          if (shows->containsNode(node)) shows->removeNodeShortcut(id);
        }
        break;
      case 13: {
        ApiPmIdList order{id};
        wrapper->reorderRoots(order);
        break;
      }
      case 14:
        // The shortcut of an object that is shown would stay.
        if (auto* parent = anyWith<ZelVorCollection>(); parent && isPlaced(node) && !isShown(id)) {
          parent->moveChildLocally(node);
        }
        break;
      default:
        if (below(100) == 0) wrapper->removeSharing();
    }
  }

  // Every entry of the registry is the node of its id, roots are registered, and the document keeps the
  // rules, but for what edits are meant to leave behind.
  void expectInStep() {
    std::set<const ZelNode*> registered;
    ZelNodeList nodes;
    RWClassicTValOrderedVector<const ApiPmId*> ids;
    wrapper->convertor().getAllNodesAndIds(nodes, ids);
    for (std::size_t i = 0; i < nodes.entries(); ++i) {
      ApiPmId id;
      ASSERT_TRUE(nodes[i]->getExternalId(id) && id == *ids[i]);
      registered.insert(nodes[i]);
    }
    for (const ZelNode* each : wrapper->roots().list()) EXPECT_TRUE(registered.count(each));
    for (const zelstudy::Finding& finding : zelstudy::checkStudy(study).findings) {
      if (finding.code == "resource-in-part") continue;  // objects are put anywhere here
      EXPECT_NE(finding.severity, zelstudy::Severity::error)
          << finding.code << ' ' << joined(finding.ids) << ' ' << finding.field << ' ' << finding.text;
    }
  }

  // Class, name, parents that have a node, and placement of every object.
  struct Seen {
    std::string text;
    std::string parent;  // the one that counts, where no other could
    std::string shortcut;
    RTTran3D absolute;
  };
  static std::map<std::string, Seen> picture(ZelXmlWrapper& of) {
    std::map<std::string, Seen> seen;
    ZelNodeList nodes;
    of.getAllNodes(nodes);
    for (ZelNode* each : nodes) {
      const ApiPmId id(textOf(each));
      std::string name;
      each->getName(name);
      ZelXmlNode* object = zelXmlNodeOf(each);
      if (!object) {  // inner nodes stand where their owner does
        seen["inner " + id.asString()].text = std::to_string(each->type()) + ' ' + name;
        continue;
      }
      ApiPmIdList parents, living;  // parents that were deleted stay in the list
      zelXmlGetParentItemIds(object->getXmlNode(), parents);
      for (const ApiPmId& parent : parents) {
        if (of.getZelNodeFromId(parent)) living.append(parent);
      }
      Seen& entry = seen[id.asString()];
      entry.text = std::to_string(each->type()) + ' ' + name + ' ' + joined(living);
      ZelNode* parent = object->shownParent();
      if (living.entries() == 1 && parent) entry.parent = textOf(parent);
      ApiPmId shortcut;
      if (of.findShortcut(id, shortcut)) entry.shortcut = shortcut.asString();
      object->readAbsoluteLocation(entry.absolute);
    }
    return seen;
  }

  void expectSameWhenReopened() {
    const std::map<std::string, Seen> living = picture(*wrapper);
    std::ostringstream saved;
    ASSERT_TRUE(wrapper->write(saved));
    const IXMLDOMDocument reread = parse(saved.str());
    session().setImportedDocumentAndDocRef(reread, {});
    {
      ZelXmlWrapper reopened;
      EXPECT_TRUE(reopened.read());
      const std::map<std::string, Seen> found = picture(reopened);
      // Opening finds more than the edited study has: nodes of shared objects that were deleted from one
      // parent, a parent that stayed when the one that counted went, shortcuts that local moves left behind.
      EXPECT_GE(found.size(), living.size());
      for (const auto& [id, seen] : living) {
        const auto other = found.find(id);
        ASSERT_TRUE(other != found.end()) << id << ' ' << seen.text;
        EXPECT_EQ(other->second.text, seen.text) << id;
        EXPECT_TRUE(seen.parent.empty() || other->second.parent == seen.parent) << id;
        EXPECT_TRUE(seen.shortcut.empty() || other->second.shortcut == seen.shortcut) << id;
        EXPECT_TRUE(other->second.absolute.isNear(seen.absolute, 1e-3, 1e-4)) << id;
      }
    }
    session().setImportedDocumentAndDocRef(study, {});
    messages.clear();
  }

  std::vector<ApiPmId> pool;
  int made = 0;
};

TEST_F(RandomEdits, LeaveNothingOutOfStep) {
  for (int round = 0; round < 8 && !HasFailure(); ++round, ++seed) {
    SCOPED_TRACE("ZEL_SEED=" + std::to_string(seed));
    random.seed(seed);
    pool.clear();
    open(static_cast<std::uint32_t>(150 + below(400)));
    for (int edits = 1; edits <= 2500 && !HasFailure(); ++edits) {
      edit();
      if (edits % 100 == 0) expectInStep();
      if (edits % 500 == 0) expectSameWhenReopened();
    }
    wrapper->setOutDocument({});
    stream = IXMLDOMDocument::create();
  }
}

}  // namespace
