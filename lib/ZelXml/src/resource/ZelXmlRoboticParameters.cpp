#include "resource/ZelXmlRoboticParameters.h"

#include <algorithm>
#include <span>

#include "document/ZelXmlFunctions.h"

namespace {

// How the values of a kind stand in the field `value`.
struct Kind {
  std::string_view type;
  int number;
  bool (*read)(const IXMLDOMNode& element, ApiTbmRoboticParam& parameter);
  bool (*add)(const IXMLDOMNode& element, const ApiTbmRoboticParam& parameter);
};

template <class Param, auto Read, auto Add>
Kind kindOf(std::string_view type) {
  return {type, Param().kind(),
          [](const IXMLDOMNode& element, ApiTbmRoboticParam& parameter) {
            auto* param = dynamic_cast<Param*>(&parameter);
            std::decay_t<decltype(param->value())> value{};
            if (!param || !Read(element, "value", value)) return false;
            param->setValue(std::move(value));
            return true;
          },
          [](const IXMLDOMNode& element, const ApiTbmRoboticParam& parameter) {
            const auto* param = dynamic_cast<const Param*>(&parameter);
            return param && Add(element, "value", param->value());
          }};
}

bool readXml(const IXMLDOMNode& element, ApiTbmRoboticParam& parameter) {
  auto* param = dynamic_cast<ApiTbmRoboticXmlParam*>(&parameter);
  IXMLDOMNode value;
  if (!param || !zelXmlGetFirstChild(element, "value", value)) return false;
  param->setXml(ApiBaseXmlElementWrapper(value.cloneNode(true)));
  return true;
}

bool addXml(const IXMLDOMNode& element, const ApiTbmRoboticParam& parameter) {
  const auto* param = dynamic_cast<const ApiTbmRoboticXmlParam*>(&parameter);
  return param && param->xml().element() &&
         zelXmlAddNode(element, "value", param->xml().element().cloneNode(true));
}

std::span<const Kind> kinds() {
  static const Kind all[] = {
      kindOf<ApiTbmRoboticIntParam, zelXmlGetInt, zelXmlAddInt>("int"),
      kindOf<ApiTbmRoboticDoubleParam, zelXmlGetDouble, zelXmlAddDouble>("double"),
      kindOf<ApiTbmRoboticBoolParam, zelXmlGetBool, zelXmlAddBool>("bool"),
      kindOf<ApiTbmRoboticMatrixParam, zelXmlGetTransform, zelXmlAddTransform>("matrix"),
      kindOf<ApiTbmRoboticStringParam, zelXmlGetWideString, zelXmlAddWideString>("string"),
      kindOf<ApiTbmRoboticVec3dParam, zelXmlGetTranslation, zelXmlAddTranslation>("vec3d"),
      {"xml", ApiTbmRoboticParam::Xml, readXml, addXml},
  };
  return all;
}

template <class Member, class Value>
const Kind* find(Member member, const Value& value) {
  const auto found = std::ranges::find(kinds(), value, member);
  return found == kinds().end() ? nullptr : &*found;
}

}  // namespace

RTAutoPtr<ApiTbmRoboticParam> zelXmlReadRoboticParameter(const IXMLDOMNode& element) {
  std::string type;
  std::string name;
  if (!zelXmlGetWideString(element, "type", type)) return nullptr;
  const Kind* kind = find(&Kind::type, type);
  if (!kind || !zelXmlGetString(element, "id", name)) return nullptr;
  RTAutoPtr<ApiTbmRoboticParam> parameter(ApiTbmRoboticParamFactory::the().create(kind->number));
  if (!parameter) return nullptr;
  parameter->setName(name);
  if (!kind->read(element, *parameter)) return nullptr;
  return parameter;
}

bool zelXmlWriteRoboticParameter(const IXMLDOMNode& element, const ApiTbmRoboticParam& parameter) {
  const Kind* kind = find(&Kind::number, parameter.kind());
  return kind && kind->add(element, parameter) && zelXmlAddString(element, "id", parameter.name()) &&
         zelXmlAddWideString(element, "type", kind->type);
}

bool zelXmlIsRoboticParameterType(std::string_view type) { return find(&Kind::type, type) != nullptr; }
