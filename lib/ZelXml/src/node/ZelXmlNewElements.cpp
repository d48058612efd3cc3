#include "node/ZelXmlNewElements.h"

#include "document/ZelXmlFunctions.h"
#include "node/ZelXmlLocationText.h"
#include "node/ZelXmlNodeHost.h"

namespace {

// The object element with `name`, and the family that it will get.
bool addObject(const IXMLDOMDocument& document, const ZelXmlCreationRecord& record, IXMLDOMNode& element,
               RWClassicWString& family) {
  RWClassicWString className;
  // No reference could lead to the id "NULL", and no index has it.
  return zelXmlIsReference(record.id.text()) && zelXmlClassNameFromType(record, className) &&
         zelXmlFamilyFromType({record.type, className, record.id}, family) &&
         zelXmlAddObjectElement(document, className, record.id.text(), element) &&
         zelXmlAddChildWithText(document, element, "name", {});
}

bool addEmpty(const IXMLDOMNode& element, std::string_view name) {
  IXMLDOMNode child;
  return zelXmlAddChild(element, name, child);
}

bool addInstanceFields(ZelXmlNodeHost& wrapper, const IXMLDOMNode& element, const RWClassicWString& family) {
  const IXMLDOMDocument document = wrapper.DOMDocument();
  return zelXmlCreateLayout(document, wrapper.OUTDocument(), element, RTTran3D::unit) &&
         addEmpty(element, "prototype") && zelXmlSetFamily(document, element, family);
}

}  // namespace

bool zelXmlCreateCompoundElement(ZelXmlNodeHost& wrapper, const ZelXmlCreationRecord& record,
                                 IXMLDOMNode& element) {
  const IXMLDOMDocument document = wrapper.DOMDocument();
  RWClassicWString family;
  return addObject(document, record, element, family) && addEmpty(element, "parents") &&
         addEmpty(element, "children") &&
         zelXmlCreateLayout(document, wrapper.OUTDocument(), element, RTTran3D::unit) &&
         zelXmlSetFamily(document, element, family) && zelXmlPublishClone(wrapper.OUTDocument(), element);
}

bool zelXmlCreateInstanceElement(ZelXmlNodeHost& wrapper, const ZelXmlCreationRecord& record,
                                 IXMLDOMNode& element) {
  RWClassicWString family;
  return addObject(wrapper.DOMDocument(), record, element, family) && addEmpty(element, "parents") &&
         addInstanceFields(wrapper, element, family) && zelXmlPublishClone(wrapper.OUTDocument(), element);
}

bool zelXmlCreatePlainElement(ZelXmlNodeHost& wrapper, const ZelXmlCreationRecord& record,
                              IXMLDOMNode& element) {
  const IXMLDOMDocument document = wrapper.DOMDocument();
  RWClassicWString family;
  return addObject(document, record, element, family) && zelXmlSetFamily(document, element, family) &&
         zelXmlPublishClone(wrapper.OUTDocument(), element);
}

bool zelXmlCreateLabelElement(ZelXmlNodeHost& wrapper, const ZelXmlCreationRecord& record,
                              IXMLDOMNode& element) {
  const IXMLDOMDocument document = wrapper.DOMDocument();
  RWClassicWString family;
  return addObject(document, record, element, family) && addEmpty(element, "node") &&
         addEmpty(element, "comment") && addEmpty(element, "displayInfo") &&
         zelXmlAddChildWithText(document, element, "noteLocation", zelXmlLocationText(RTTran3D::unit)) &&
         zelXmlSetFamily(document, element, family) && zelXmlPublishUpdate(wrapper.OUTDocument(), element);
}

bool zelXmlCreateOccurrenceElement(ZelXmlNodeHost& wrapper, const ZelXmlCreationRecord& record,
                                   IXMLDOMNode& element) {
  const IXMLDOMDocument document = wrapper.DOMDocument();
  RWClassicWString family;
  return addObject(document, record, element, family) &&
         zelXmlCreateLocalLayout(document, element, RTTran3D::unit) &&
         zelXmlSetFamily(document, element, family) && addEmpty(element, "prototype");
}

bool zelXmlAddInstanceFields(ZelXmlNodeHost& wrapper, const ZelXmlCreationRecord& record,
                             const IXMLDOMNode& element) {
  RWClassicWString family;
  return element && zelXmlFamilyFromType(record, family) && addInstanceFields(wrapper, element, family);
}
