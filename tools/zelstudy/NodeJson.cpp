#include "zelstudy/NodeJson.h"

#include "document/ZelXmlFieldRows.h"

namespace zelstudy {

namespace {

Json fieldValueJson(bool value) { return value; }
Json fieldValueJson(int value) { return value; }
Json fieldValueJson(double value) { return value; }
Json fieldValueJson(const std::string& value) { return value; }
Json fieldValueJson(const ApiPmId& id) { return zelXmlIsReference(id.asString()) ? idJson(id) : Json(); }
Json fieldValueJson(const ApiPmIdList& ids) { return idsJson(ids); }
Json fieldValueJson(const RTTran3D& location) { return locationJson(location); }
Json fieldValueJson(const RTVec3D& place) {
  return {{"x", place.x + 0.}, {"y", place.y + 0.}, {"z", place.z + 0.}};
}
Json fieldValueJson(const ApiPmExtendedId& id) {
  return {{"id", idJson(id.id)}, {"key", id.key.isSet() ? Json(id.key.getSelfAsString()) : Json()}};
}
Json fieldValueJson(const ApiPmNameExtendedId& id) { return {{"id", idJson(id.id)}, {"name", id.name}}; }
template <class T>
Json fieldValueJson(const ZelXmlList<T>& values) {
  Json list = Json::array();
  for (const T& value : values) list.push_back(fieldValueJson(value));
  return list;
}

template <class T>
Json readJson(const IXMLDOMNode& element, std::string_view name) {
  typename ZelFieldCodec<T>::Value value{};
  return ZelFieldCodec<T>::read(element, name, value) ? fieldValueJson(value) : Json();
}

Json fieldJson(const IXMLDOMNode& element, const ZelFieldInfo& row) {
  switch (row.type) {
    case ZelFieldType::boolean:
      return readJson<bool>(element, row.name);
    case ZelFieldType::integer:
      return readJson<int>(element, row.name);
    case ZelFieldType::number:
      return readJson<double>(element, row.name);
    case ZelFieldType::text:
      return readJson<std::string>(element, row.name);
    case ZelFieldType::id:
      return readJson<ApiPmId>(element, row.name);
    case ZelFieldType::extendedId:
      return readJson<ApiPmExtendedId>(element, row.name);
    case ZelFieldType::heldId:
      return readJson<ZelHeldId>(element, row.name);
    case ZelFieldType::placement:
      return readJson<RTTran3D>(element, row.name);
    case ZelFieldType::translation:
      return readJson<RTVec3D>(element, row.name);
    case ZelFieldType::texts:
      return readJson<ZelXmlList<std::string>>(element, row.name);
    case ZelFieldType::numbers:
      return readJson<ZelXmlList<double>>(element, row.name);
    case ZelFieldType::ids:
      return readJson<ApiPmIdList>(element, row.name);
    case ZelFieldType::nameExtendedIds:
      return readJson<ZelXmlList<ApiPmNameExtendedId>>(element, row.name);
    case ZelFieldType::heldIds:
      return readJson<ZelHeldIds>(element, row.name);
  }
  return {};
}

}  // namespace

Json fieldsJson(const IXMLDOMNode& element) {
  Json fields = Json::object();
  for (const ZelFieldGroup& group : zelXmlFieldGroups())
    for (const ZelFieldInfo& row : group.rows)
      if (row.place == ZelFieldPlace::element && zelXmlHasField(element, row) && !fields.contains(row.name))
        fields[std::string(row.name)] = fieldJson(element, row);
  return fields;
}

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
