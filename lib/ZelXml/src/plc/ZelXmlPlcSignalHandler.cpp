#include "plc/ZelXmlPlcSignalHandler.h"

#include "document/ZelXmlFunctions.h"
#include "node/ZelXmlNodeHost.h"

bool ZelXmlPlcSignalHandler::writeCommon(const ApiPlcSignalCreationData& data) {
  return wrapper_ && zelXmlSetAttribute(element_, "Id", data.globalUniqueId().getAsString()) &&
         add("Type", data.typeText()) && add("name", data.name());
}

bool ZelXmlPlcSignalHandler::readCommon(ApiPlcSignalCreationData& data) const {
  std::string id;
  if (!zelXmlGetAttribute(element_, "Id", id)) return false;
  const ApiGlobalUniqueId read(id);
  if (read.isNull()) return false;
  data.setGlobalUniqueId(read);
  data.setName(text("name"));
  return true;
}

bool ZelXmlPlcSignalHandler::add(std::string_view name, std::string_view text) {
  return zelXmlAddChildWithText(wrapper_->DOMDocument(), element_, name, text);
}

RWClassicCString ZelXmlPlcSignalHandler::text(std::string_view name) const {
  RWClassicCString value;
  zelXmlGetString(element_, name, value);
  return value;
}

bool ZelXmlPlcDeviceSensorSignalHandler::write(const ApiPlcSignalCreationData& data) {
  const auto* own = dynamic_cast<const ApiPlcDeviceSensorSignalCreationData*>(&data);
  return own && writeCommon(data) && add("Pose", own->poseName());
}

RTAutoPtr<ApiPlcSignalCreationData> ZelXmlPlcDeviceSensorSignalHandler::read() const {
  auto data = std::make_unique<ApiPlcDeviceSensorSignalCreationData>();
  if (readCommon(*data)) data->setPoseName(text("Pose"));
  return data;
}

RTObjDictionaryFactory<ZelXmlPlcSignalHandler>& ZelXmlPlcSignalHandlerFactory::the() {
  static auto& factory = *new RTObjDictionaryFactory<ZelXmlPlcSignalHandler>;
  return factory;
}

namespace {

template <class Handler, class Data>
void addHandler() {
  static const RTObjAllocator<ZelXmlPlcSignalHandler, Handler> allocator;
  ZelXmlPlcSignalHandlerFactory::the().addAllocator(Data().typeText(), &allocator);
}

}  // namespace

void zelXmlAddPlcSignalHandlers() {
  addHandler<ZelXmlPlcKeySignalHandler, ApiPlcKeySignalCreationData>();
  addHandler<ZelXmlPlcDeviceSensorSignalHandler, ApiPlcDeviceSensorSignalCreationData>();
  addHandler<ZelXmlPlcToRobotSignalHandler, ApiPlcToRobotSignalCreationData>();
  addHandler<ZelXmlPlcFromRobotSignalHandler, ApiPlcFromRobotSignalCreationData>();
  addHandler<ZelXmlPlcResourceInputSignalHandler, ApiPlcResourceInputSignalCreationData>();
  addHandler<ZelXmlPlcResourceOutputSignalHandler, ApiPlcResourceOutputSignalCreationData>();
}
