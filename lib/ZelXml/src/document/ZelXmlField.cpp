#include "document/ZelXmlField.h"

std::string_view zelXmlFieldElement(const ZelFieldInfo& row) {
  return row.name.substr(row.name.rfind('/') + 1);
}

bool zelXmlHasField(const IXMLDOMNode& holder, const ZelFieldInfo& row) {
  IXMLDOMNode field;
  return zelXmlSelectChild(holder, row.name, field);
}

namespace {

// The element that the field is a child of. Groups are made for those who may make a field.
bool fieldGroup(const IXMLDOMNode& holder, const ZelFieldInfo& row, IXMLDOMNode& group) {
  group = holder;
  std::string_view rest = row.name;
  for (std::size_t end = rest.find('/'); end != std::string_view::npos; end = rest.find('/')) {
    IXMLDOMNode step;
    const std::string_view name = rest.substr(0, end);
    if (!(row.write == ZelFieldWrite::existing ? zelXmlSelectChild(group, name, step)
                                               : zelXmlGetOrAddChild(group, name, step))) {
      return false;
    }
    group = step;
    rest.remove_prefix(end + 1);
  }
  return static_cast<bool>(group);
}

}  // namespace

bool zelXmlWriteFieldText(const IXMLDOMNode& holder, const ZelFieldInfo& row, std::string_view text,
                          IXMLDOMNode& field) {
  IXMLDOMNode group;
  if (row.write == ZelFieldWrite::readOnly || !fieldGroup(holder, row, group)) return false;
  const std::string_view name = zelXmlFieldElement(row);
  if (row.write != ZelFieldWrite::adds && zelXmlSelectChild(group, name, field))
    return zelXmlSetText(field, text);
  if (row.write == ZelFieldWrite::existing || !zelXmlAddChild(group, name, field)) return false;
  if (zelXmlSetText(field, text)) return true;
  zelXmlRemoveFromParent(field);
  return false;
}

bool zelXmlClearFieldPlace(const IXMLDOMNode& holder, const ZelFieldInfo& row, IXMLDOMNode& group) {
  if (row.write == ZelFieldWrite::readOnly || !fieldGroup(holder, row, group)) return false;
  IXMLDOMNode former;
  return row.write == ZelFieldWrite::adds || !zelXmlSelectChild(group, zelXmlFieldElement(row), former)
             ? row.write != ZelFieldWrite::existing
             : zelXmlRemoveChild(group, former);
}

namespace {

template <class T, class Make>
bool readText(const IXMLDOMNode& holder, std::string_view name, T& value, Make make) {
  std::string buffer;
  std::string_view text;
  if (!holder.selectText(name, buffer, text)) return false;
  value = make(text);
  return true;
}

}  // namespace

bool ZelFieldCodec<std::uint32_t>::read(const IXMLDOMNode& holder, std::string_view name,
                                        std::uint32_t& value) {
  return readText(holder, name, value,
                  [](std::string_view text) { return static_cast<std::uint32_t>(zelXmlParseLong(text)); });
}

bool ZelFieldCodec<ApiPmInternalId>::read(const IXMLDOMNode& holder, std::string_view name,
                                          ApiPmInternalId& value) {
  std::string buffer;
  std::string_view text;
  return holder.selectText(name, buffer, text) && zelXmlParseInt32(text, value.value);
}

bool ZelFieldCodec<ApiPmId>::read(const IXMLDOMNode& holder, std::string_view name, ApiPmId& value) {
  return readText(holder, name, value, [](std::string_view text) { return ApiPmId(text); });
}

bool ZelFieldCodec<ApiPmExtendedId>::read(const IXMLDOMNode& holder, std::string_view name,
                                          ApiPmExtendedId& value) {
  IXMLDOMNode field;
  return zelXmlSelectChild(holder, name, field) && zelXmlGetExtendedId(field, value);
}

bool ZelFieldCodec<ApiPmExtendedId>::add(const IXMLDOMNode& group, std::string_view name,
                                         const ApiPmExtendedId& value) {
  IXMLDOMNode field;
  return zelXmlAddChild(group, name, field) && zelXmlAddExtendedId(field, value);
}
