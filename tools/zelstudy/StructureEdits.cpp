#include <unordered_set>

#include "api/ApiPmPrototypeData.h"
#include "node/ZelXmlNode.h"
#include "zel/ZelInstance.h"
#include "zel/ZelVorLabel.h"
#include "zelstudy/EditHelpers.h"
#include "zelstudy/Utf8.h"

namespace zelstudy {

namespace {

constexpr std::string_view notXml = "a text holds a character that XML cannot hold";

bool areXmlTexts(const Arguments& arguments) {
  for (std::size_t i = 0; i < arguments.count(); ++i)
    if (!isXmlText(arguments.text(i))) return false;
  return true;
}

Json madeJson(const ZelNode& node) {
  return {{"id", idJson(idOf(node))},
          {"type", static_cast<int>(node.type())},
          {"stringType", textJson(node, &ZelNode::getStringType)},
          {"parentId", parentIdJson(node)}};
}

}  // namespace

EditResult createRootObject(StudySession& study, const Arguments& arguments) {
  const ApiPmId id = arguments.id(1);
  if (std::string reason = whyNoNewId(study, id); !reason.empty()) return refused(std::move(reason));
  const ZelNode* node = study.wrapper().createRoot(arguments.nodeType(0), arguments.text(3), id, {});
  if (!node)
    return refused("no root of type " + arguments.text(0) +
                   (arguments.text(3).empty() ? "" : " and class \"" + arguments.text(3) + "\"") +
                   " could be made");
  return done(madeJson(*node));
}

EditResult deleteObject(StudySession& study, const Arguments& arguments) {
  const ApiPmId id = arguments.id(0);
  return withNode(study, id, [&](ZelNode&) {
    ApiPmId given = id;
    if (!study.wrapper().deleteNode(given))
      return refused(study.describe(id) + ", could not be deleted; its parent may list it no more");
    return done({{"id", idJson(id)}, {"gone", !study.isInUse(id)}});
  });
}

EditResult makeRoot(StudySession& study, const Arguments& arguments) {
  const ApiPmId id = arguments.id(0);
  return withNode(study, id, [&](ZelNode& node) {
    if (!study.wrapper().addRootFromOtherParent(&node))
      return refused(study.describe(id) + ", could not be taken out of its parent");
    return done({{"id", idJson(id)}, {"parentId", parentIdJson(node)}});
  });
}

EditResult reorderRoots(StudySession& study, const Arguments& arguments) {
  ApiPmIdList ids, roots;
  std::unordered_set<ApiPmId> seen;
  for (std::size_t i = 0; i < arguments.count(); ++i) {
    if (!seen.insert(arguments.id(i)).second) return refused("\"" + arguments.text(i) + "\" is named twice");
    ids.append(arguments.id(i));
  }
  if (!study.wrapper().reorderRoots(ids) || !study.wrapper().getRoots(roots))
    return refused("the roots could not be put in order");
  return done({{"roots", idsJson(roots)}});
}

EditResult setPrototype(StudySession& study, const Arguments& arguments) {
  const ApiPmId id = arguments.id(0), prototype = arguments.id(1);
  return withInterface<ZelInstance>(study, id, "prototype that can be set", [&](ZelInstance& instance) {
    if (!study.isInUse(prototype)) return refused("no object has the id \"" + prototype.asString() + "\"");
    if (!instance.setPrototypeId(prototype))
      return refused(study.describe(id) + ", has a prototype already, or no field for one");
    return done({{"id", idJson(id)}, {"prototypeId", idJson(prototype)}});
  });
}

EditResult addLabel(StudySession& study, const Arguments& arguments) {
  const ApiPmId id = arguments.id(0), label = arguments.id(1);
  return withInterface<ZelVorLabelsContainer>(study, id, "labels", [&](ZelVorLabelsContainer& labelled) {
    if (std::string reason = whyNoNewId(study, label); !reason.empty()) return refused(std::move(reason));
    if (!areXmlTexts(arguments)) return refused(std::string(notXml));
    ZelVorLabelData data;
    data.name = arguments.text(2);
    data.text = arguments.text(3);
    data.assignedObjId = id;
    if (!labelled.addLabel(label, data)) return refused(study.describe(id) + ", could not be labelled");
    if (!labelled.updateLabel(label, data))
      return refused(study.describe(label) + ", could not be filled in");
    return done({{"id", idJson(label)}, {"objectId", idJson(id)}});
  });
}

EditResult removeLabel(StudySession& study, const Arguments& arguments) {
  const ApiPmId id = arguments.id(0), label = arguments.id(1);
  return withInterface<ZelVorLabelsContainer>(study, id, "labels", [&](ZelVorLabelsContainer& labelled) {
    ApiPmIdList labels;
    // The library would take away any label, also one that another object lists.
    if (!labelled.getLabels(labels) || !labels.contains(label))
      return refused(study.describe(id) + ", has no label \"" + label.asString() + "\"");
    ZelXmlNode* node = zelXmlNodeOf(study.find(id));
    if (!node || !node->removeLabel(label))
      return refused(study.describe(label) + ", is off the list, but could not be removed");
    ApiPmIdList left;
    labelled.getLabels(left);
    return done({{"id", idJson(id)}, {"labels", idsJson(left)}});
  });
}

EditResult removeSharing(StudySession& study, const Arguments&) {
  if (!study.wrapper().removeSharing()) return refused("the sharing of an object could not be removed");
  return done(Json::object());
}

EditResult filterStudy(StudySession& study, const Arguments&) {
  if (study.wrapper().filterOtherTechnologiesShortcutsFromStudy()) return done(Json::object());
  return refused(study.wrapper().OUTDocument() ? "the study could not be published"
                                               : "there is nowhere to publish the study: give --out OUT");
}

EditResult createPrototype(StudySession& study, const Arguments& arguments) {
  if (!areXmlTexts(arguments)) return refused(std::string(notXml));
  ApiPmPrototypeData data({}, ApiPmTypeData(arguments.text(1), arguments.text(0)));
  data.weight = arguments.number(2);
  ApiPmId id;
  if (!study.wrapper().createNewPrototype(data, arguments.text(3), id))
    return refused("no prototype of class \"" + arguments.text(1) + "\" could be made");
  const ZelNode* node = study.find(id);
  return done({{"id", idJson(id)}, {"type", node ? Json(static_cast<int>(node->type())) : Json()}});
}

}  // namespace zelstudy
