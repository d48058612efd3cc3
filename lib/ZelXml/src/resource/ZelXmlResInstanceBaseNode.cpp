#include "resource/ZelXmlResInstanceBaseNode.h"

#include <utility>

#include "document/ZelXmlFunctions.h"
#include "node/ZelXmlNodeFields.h"
#include "node/ZelXmlNodeHost.h"
#include "resource/ZelXmlRobotFrames.h"
#include "resource/ZelXmlRoboticParameters.h"
#include "resource/ZelXmlToolboxUsage.h"
#include "zel/ZelCollection.h"
#include "zel/ZelInstance.h"
#include "zel/ZelVorPrototypeOccurrence.h"

namespace {

// The publications of an object that changes several times in one call. Only the last can be seen, but for
// the first, which tells whether there can be any; so these two are made, and n changes cost no n copies.
class Publications {
 public:
  Publications(const IXMLDOMDocument& out, const IXMLDOMNode& element) : out_(out), element_(element) {}

  bool changed() {
    isDue_ = isMade_;
    isMade_ = true;
    return isDue_ || zelXmlPublishUpdate(out_, element_);
  }
  bool finish() { return !std::exchange(isDue_, false) || zelXmlPublishUpdate(out_, element_); }

 private:
  const IXMLDOMDocument& out_;
  const IXMLDOMNode& element_;
  bool isMade_ = false;
  bool isDue_ = false;
};

}  // namespace

bool ZelXmlResInstanceBaseNode::readSystemFrames(RWCollectionRef<ApiPmRobotFramesData> frames) const {
  IXMLDOMNode group;
  IXMLDOMNodeList elements;
  if (!zelXmlSelectChild(getXmlNode(), "systemFrames", group) ||
      !zelXmlSelectChildren(group, "frame", elements)) {
    return true;
  }
  for (const IXMLDOMNode& element : elements) {
    ApiPmRobotFramesData frame;
    if (zelXmlReadRobotFrame(element, frame)) frames.append(std::move(frame));
  }
  return true;
}

bool ZelXmlResInstanceBaseNode::appendSystemFrames(
    const RWClassicTValOrderedVector<ApiPmRobotFramesData>& frames) {
  const IXMLDOMDocument study = document();
  const IXMLDOMDocument out = outDocument();
  IXMLDOMNode group;
  if (!zelXmlEnsureChild(study, getXmlNode(), "systemFrames", group)) return false;
  Publications publications(out, getXmlNode());
  for (const ApiPmRobotFramesData& frame : frames) {
    const IXMLDOMNode element = study.createElement("frame");
    if (!zelXmlWriteRobotFrame(study, element, frame)) {
      // What has been written of it stays in the study, and is not published with the frames before it.
      publications.finish();
      zelXmlAppendChild(group, element);
      return false;
    }
    if (!zelXmlAppendChild(group, element) || !publications.changed()) return false;
  }
  return publications.finish();
}

bool ZelXmlResInstanceBaseNode::readRoboticParameters(
    RWCollectionRef<RTAutoPtr<ApiTbmRoboticParam>> parameters) const {
  IXMLDOMNode group;
  IXMLDOMNodeList elements;
  if (!zelXmlSelectChild(getXmlNode(), "roboticParameters", group) ||
      !zelXmlSelectChildren(group, "parameter", elements)) {
    return true;
  }
  for (const IXMLDOMNode& element : elements) {
    RTAutoPtr<ApiTbmRoboticParam> parameter = zelXmlReadRoboticParameter(element);
    if (!parameter) return false;
    parameters.append(std::move(parameter));
  }
  return true;
}

bool ZelXmlResInstanceBaseNode::appendRoboticParameters(
    const RWClassicTValOrderedVector<const ApiTbmRoboticParam*>& parameters) {
  const IXMLDOMDocument study = document();
  IXMLDOMNode group;
  if (!zelXmlEnsureChild(study, getXmlNode(), "roboticParameters", group)) return false;
  for (const ApiTbmRoboticParam* parameter : parameters) {
    const IXMLDOMNode element = study.createElement("parameter");
    if (!parameter || !zelXmlWriteRoboticParameter(element, *parameter) ||
        !zelXmlAppendChild(group, element)) {
      return false;
    }
  }
  return zelXmlPublishUpdate(outDocument(), getXmlNode());
}

bool ZelXmlResInstanceBaseNode::dropGroup(std::string_view name) {
  IXMLDOMNode group;
  if (zelXmlSelectChild(getXmlNode(), name, group) && !zelXmlRemoveChild(getXmlNode(), group)) return false;
  return getXmlNode() && zelXmlPublishUpdate(outDocument(), getXmlNode());
}

bool ZelXmlResInstanceBaseNode::readToolbox(RWCollectionRef<ApiPmRobotToolBoxData> uses) const {
  const IXMLDOMDocument study = document();
  ApiPmIdList ids;
  if (!zelXmlGetIdList(getXmlNode(), "usesTool", ids)) return false;
  for (const ApiPmId& id : ids) {
    IXMLDOMNode element;
    ApiPmRobotToolBoxData use;
    use.usageId = id;
    if (!zelXmlFindNodeById(study, id, element) || !zelXmlReadToolboxUsage(element, use)) return false;
    uses.append(std::move(use));
  }
  return true;
}

bool ZelXmlResInstanceBaseNode::appendToolbox(const RWClassicTValOrderedVector<ApiPmRobotToolBoxData>& uses) {
  const IXMLDOMDocument study = document();
  const IXMLDOMDocument out = outDocument();
  ApiPmId robot;
  if (!getWrapper() || !readId(robot)) return false;
  Publications publications(out, getXmlNode());
  const auto isFree = [&](const ApiPmId& id) {
    IXMLDOMNode other;
    return zelXmlIsReference(id.text()) && !zelXmlFindNodeById(study, id, other) &&
           !getWrapper()->findNode(id);
  };
  const auto add = [&](const ApiPmRobotToolBoxData& use) {
    IXMLDOMNode element;
    IXMLDOMNode number;
    return isFree(use.usageId) && zelXmlCreateToolboxUsage(study, robot, use, element) &&
           zelXmlPublishUpdate(out, element) &&
           // The robot too has the field, and it stays empty there.
           zelXmlEnsureChild(study, getXmlNode(), "workToolTCPF", number) &&
           zelXmlAddIdList(getXmlNode(), "usesTool", {use.usageId}, true) && publications.changed();
  };
  for (const ApiPmRobotToolBoxData& use : uses) {
    if (add(use)) continue;
    publications.finish();
    return false;
  }
  return publications.finish();
}

bool ZelXmlResInstanceBaseNode::dropToolbox() {
  const IXMLDOMDocument study = document();
  ApiPmIdList ids;
  if (!getWrapper() || !zelXmlGetIdList(getXmlNode(), "usesTool", ids)) return false;
  bool isDone = true;
  for (const ApiPmId& id : ids) {
    IXMLDOMNode element;
    isDone = zelXmlFindNodeById(study, id, element) &&
             zelXmlPublishDeletion(getWrapper()->cachedDOMDocument(), outDocument(), element);
    if (!isDone) break;
  }
  IXMLDOMNode list;
  if (zelXmlSelectChild(getXmlNode(), "usesTool", list) && !zelXmlRemoveChild(getXmlNode(), list))
    return false;
  return isDone && zelXmlPublishUpdate(outDocument(), getXmlNode());
}

bool ZelXmlResInstanceBaseNode::getMasterObj(ApiPmId& id) const {
  ApiPmId master;
  if (!zelXmlGetField(*this, zelInstanceFields.masterObj, master) || !zelXmlIsReference(master.text()))
    return false;
  id = master;
  return true;
}

bool ZelXmlResInstanceBaseNode::readOccurrenceChildId(ApiPmPrototypeChildId& id) const {
  ApiPmId master;
  if (!getWrapper() || !getMasterObj(master)) return false;
  const auto* occurrence = zelQuery<ZelVorPrototypeOccurrence>(getWrapper()->getZelNodeFromId(master));
  return occurrence && occurrence->getChildId(id);
}

bool ZelXmlResInstanceBaseNode::findOccurrence(const ApiPmPrototypeChildId& id, ApiPmId& occurrence) const {
  ZelNode* parent = shownParent();
  if (!parent || parent->type() != ZEL_EQUIPMENT_INSTANCE) return false;
  const auto* equipment = zelQuery<ZelInstance>(parent);
  ApiPmId prototype;
  if (!equipment || !equipment->getPrototypeId(prototype)) return false;
  auto* definition = zelQuery<ZelCollection>(getWrapper()->getZelNodeFromId(prototype));
  ZelNodeList children;
  if (!definition || !definition->getChildren(children)) return false;
  for (ZelNode* child : children) {
    const auto* candidate = zelQuery<ZelVorPrototypeOccurrence>(child);
    ApiPmPrototypeChildId childId;
    if (candidate && candidate->getChildId(childId) && childId == id)
      return candidate->getExternalId(occurrence);
  }
  return false;
}
