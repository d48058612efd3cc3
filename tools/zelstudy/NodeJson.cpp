#include "zelstudy/NodeJson.h"

namespace zelstudy {

std::string jsonText(const Json& value, int indent) {
  return value.dump(indent, ' ', false, Json::error_handler_t::replace);
}

Json idJson(const ApiPmId& id) { return id.isNull() ? Json() : Json(id.asString()); }

Json idsJson(const ApiPmIdList& ids) {
  Json list = Json::array();
  for (const ApiPmId& id : ids) list.push_back(idJson(id));
  return list;
}

Json locationJson(const RTTran3D& location) {
  const RTVec3D place = location.getTranslation(), angles = location.getRotationRPY();
  // Adding zero turns a negative zero into zero.
  return {{"x", place.x + 0.},     {"y", place.y + 0.},      {"z", place.z + 0.},
          {"roll", angles.x + 0.}, {"pitch", angles.y + 0.}, {"yaw", angles.z + 0.}};
}

Json messagesJson(const std::vector<ApiErrEntry>& messages, std::size_t from) {
  Json list = Json::array();
  for (std::size_t i = from; i < messages.size(); ++i)
    list.push_back(
        {{"code", messages[i].code}, {"severity", messages[i].severity}, {"texts", messages[i].texts}});
  return list;
}

Json textJson(const ZelNode& node, TextGetter getter) {
  RWClassicWString text;
  return (node.*getter)(text) ? Json(std::move(text)) : Json();
}

Json parentIdJson(const ZelNode& node) {
  ApiPmId id;
  return node.getParentId(id) ? idJson(id) : Json();
}

ApiPmId idOf(const ZelNode& node) {
  ApiPmId id;
  return node.getExternalId(id) ? id : ApiPmId();
}

Json nodeHeadJson(const ZelNode& node) {
  return {{"id", idJson(idOf(node))},
          {"type", static_cast<int>(node.type())},
          {"stringType", textJson(node, &ZelNode::getStringType)},
          {"name", textJson(node, &ZelNode::getName)}};
}

}  // namespace zelstudy
