#include "resource/ZelXmlRobotFrames.h"

#include "document/ZelXmlFunctions.h"

namespace {

constexpr std::string_view MOVING_CONVEYOR = "Conveyor_Moving";

void readAttachment(const IXMLDOMNode& frame, ApiPmPersistentId& attachment) {
  IXMLDOMNode group;
  std::string text;
  if (!zelXmlSelectChild(frame, "attachmentParent", group)) return;
  if (zelXmlGetWideString(group, "externalId", text)) {
    ApiPmExtendedId id{ApiPmId(text), {}};
    if (zelXmlGetWideString(group, "relKey", text)) id.key.setSelfFromDefaultRestrictedString(text);
    attachment.setPmExtendedId(id);
  } else if (zelXmlGetString(group, "GUID", text)) {
    const ApiGlobalUniqueId guid(text);
    if (!guid.isNull()) attachment.setGuid(guid);
  }
}

void readExtraData(const IXMLDOMNode& frame, ApiPmRobotFramesData& record) {
  IXMLDOMNode group;
  IXMLDOMNode number;
  std::string type;
  long conveyor = 0;
  if (zelXmlSelectChild(frame, "data", group) && zelXmlGetWideString(group, "type", type) &&
      type == MOVING_CONVEYOR && zelXmlSelectChild(group, "conveyorNumber", number) &&
      zelXmlGetLongText(number, conveyor)) {
    // 16 bits, whatever the text says.
    record.setData(
        std::make_shared<ApiPmRobotMovingConveyorSystemFrameData>(static_cast<std::uint16_t>(conveyor)));
  }
}

bool readOlderFrame(const IXMLDOMNode& frame, ApiPmRobotFramesData& record) {
  std::string name;
  std::string id;
  std::string text;
  ApiPmPersistentId attachment;
  zelXmlGetString(frame, "robotsystemFrameName", name);
  zelXmlGetWideString(frame, "robotsystemFrameId", id);
  if (zelXmlGetWideString(frame, "robotsystemFrameAttachment", text))
    attachment.setPmExtendedId({ApiPmId(text), {}});
  if (!zelXmlGetString(frame, "robotsystemFrameRotation", text)) return false;
  record = ApiPmRobotFramesData(id, name, zelXmlParseFrameText(text), attachment);
  return true;
}

bool addText(const IXMLDOMDocument& document, const IXMLDOMNode& element, std::string_view name,
             std::string_view text) {
  return zelXmlAddChildWithText(document, element, name, text);
}

bool writeAttachment(const IXMLDOMDocument& document, const IXMLDOMNode& frame,
                     const ApiPmPersistentId& attachment) {
  const IXMLDOMNode group = document.createElement("attachmentParent");
  if (attachment.isPmExtendedId()) {
    const ApiPmExtendedId id = attachment.pmExtendedId();
    if (!addText(document, group, "externalId", id.id.text()) ||
        !(id.isPmOnly() || addText(document, group, "relKey", id.key.getSelfAsDefaultRestrictedString()))) {
      return false;
    }
  } else if (!attachment.isGuid() || !addText(document, group, "GUID", attachment.guid().getAsString())) {
    return false;
  }
  return zelXmlAppendChild(frame, group);
}

// Of kinds that documents do not hold only the group is written.
bool writeExtraData(const IXMLDOMDocument& document, const IXMLDOMNode& frame,
                    const ApiPmRobotSystemFrameData& data) {
  IXMLDOMNode group;
  const bool isMoving = data.kind() == ApiPmRobotSystemFrameData::MovingConveyor;
  const auto* moving = dynamic_cast<const ApiPmRobotMovingConveyorSystemFrameData*>(&data);
  return zelXmlAddChild(frame, "data", group) &&
         addText(document, group, "type", isMoving ? MOVING_CONVEYOR : std::string_view()) &&
         (!isMoving || !moving ||
          addText(document, group, "conveyorNumber", std::to_string(moving->conveyorNumber())));
}

}  // namespace

bool zelXmlReadRobotFrame(const IXMLDOMNode& element, ApiPmRobotFramesData& frame) {
  std::string name;
  if (!zelXmlGetString(element, "name", name)) return readOlderFrame(element, frame);
  std::string location;
  if (!zelXmlGetString(element, "location", location)) {
    frame = {};
    return true;
  }
  std::string id;
  ApiPmPersistentId attachment;
  zelXmlGetWideString(element, "id", id);
  readAttachment(element, attachment);
  frame = ApiPmRobotFramesData(id, name, zelXmlParseFrameText(location), attachment);
  readExtraData(element, frame);
  return true;
}

bool zelXmlWriteRobotFrame(const IXMLDOMDocument& document, const IXMLDOMNode& element,
                           const ApiPmRobotFramesData& frame) {
  return addText(document, element, "id", frame.id()) && addText(document, element, "name", frame.name()) &&
         writeAttachment(document, element, frame.attachment()) &&
         addText(document, element, "location", zelXmlFormatFrameText(frame.location())) &&
         (!frame.Data() || writeExtraData(document, element, *frame.Data()));
}
