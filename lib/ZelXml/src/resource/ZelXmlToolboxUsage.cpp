#include "resource/ZelXmlToolboxUsage.h"

#include "document/ZelXmlFunctions.h"

bool zelXmlReadToolboxUsage(const IXMLDOMNode& element, ApiPmRobotToolBoxData& use) {
  std::string text;
  zelXmlGetWideString(element, "workToolName", use.name);
  if (zelXmlGetString(element, "usesTool", text))
    use.toolId = zelXmlIsReference(text) ? ApiPmId(text) : ApiPmId();
  zelXmlGetWideString(element, "workToolComment", use.comment);
  zelXmlGetInt(element, "workToolTCPF", use.tcpfNumber);
  if (!zelXmlGetString(element, "workToolTCPFPosition", text)) return false;
  use.tcpfPosition = zelXmlParseFrameText(text);
  return true;
}

bool zelXmlCreateToolboxUsage(const IXMLDOMDocument& document, const ApiPmId& robot,
                              const ApiPmRobotToolBoxData& use, IXMLDOMNode& element) {
  constexpr std::string_view className = "PmToolboxUsage";
  const auto add = [&](std::string_view field, std::string_view text) {
    return zelXmlAddChildWithText(document, element, field, text);
  };
  return zelXmlAddObjectElement(document, className, use.usageId.text(), element) &&
         add("workToolName", use.name) && add("workToolComment", use.comment) &&
         add("usesTool", use.toolId.text()) && add("usedBy", robot.text()) &&
         add("workToolTCPFPosition", zelXmlFormatFrameText(use.tcpfPosition)) &&
         add("workToolTCPF", std::to_string(use.tcpfNumber)) && zelXmlSetFamily(document, element, className);
}
