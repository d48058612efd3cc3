#include "document/ZelXmlLayouts.h"

#include <string>

#include "api/ApiPmClassTypes.h"
#include "api/ApiPmIds.h"
#include "document/ZelXmlFields.h"
#include "document/ZelXmlStream.h"
#include "document/ZelXmlTransforms.h"

namespace {

// The element names its layout, and the layout gets its place.
bool giveLayout(const IXMLDOMDocument& document, const IXMLDOMNode& element, const IXMLDOMNode& layout,
                const RTTran3D& placement) {
  std::string id;
  return zelXmlGetExternalId(layout, id) && zelXmlAddChildWithText(document, element, "layout", id) &&
         zelXmlSetLayoutTransform(layout, placement);
}

bool addAbsoluteLocation(const IXMLDOMDocument& document, const IXMLDOMNode& layout) {
  IXMLDOMNode info, group, number;
  if (!zelXmlEnsureChild(document, layout, "NodeInfo", info)) return false;
  if (!zelXmlAddChild(info, "absoluteLocation", group)) return false;
  for (const std::string_view name : {"x", "y", "z", "rx", "ry", "rz"})
    if (!zelXmlAddChild(group, name, number)) return false;
  return true;
}

}  // namespace

bool zelXmlCreateLayoutElement(const IXMLDOMDocument& document, std::string_view className,
                               const IXMLDOMNode& owner, IXMLDOMNode& layout, bool withOwner) {
  const std::string id = api::newGuidText();
  IXMLDOMNode made, list;
  if (!zelXmlAddObjectElement(document, className, id, made)) return false;
  if (!zelXmlAddVec3List(made, "location", list) || !zelXmlAddVec3List(made, "rotation", list)) return false;
  if (!zelXmlAddChildWithText(document, made, "children", "")) return false;
  if (!zelXmlAddChildWithText(document, made, "parent", "NULL")) return false;
  if (withOwner) {
    std::string ownerId;
    if (!zelXmlGetExternalId(owner, ownerId)) return false;
    if (!zelXmlAddChildWithText(document, made, "node", ownerId)) return false;
  }
  std::string family;
  if (!ApiPmClassTypeDataMgr::the().getFamilyFromClassName(className, family)) return false;
  if (!zelXmlSetFamily(document, made, family)) return false;
  if (className == "PmLayout" && !addAbsoluteLocation(document, made)) return false;
  layout = std::move(made);
  return true;
}

bool zelXmlCreateLayout(const IXMLDOMDocument& document, const IXMLDOMDocument& out, const IXMLDOMNode& owner,
                        const RTTran3D& placement) {
  IXMLDOMNode layout;
  return zelXmlCreateLayoutElement(document, "PmLayout", owner, layout, true) &&
         giveLayout(document, owner, layout, placement) && zelXmlSetAbsoluteLocation(layout, placement) &&
         zelXmlPublishClone(out, layout);
}

bool zelXmlCreateLocalLayout(const IXMLDOMDocument& document, const IXMLDOMNode& owner,
                             const RTTran3D& placement) {
  IXMLDOMNode layout;
  return zelXmlCreateLayoutElement(document, "PmLayout", owner, layout, true) &&
         giveLayout(document, owner, layout, placement);
}

bool zelXmlCreateStudyLayout(const IXMLDOMDocument& document, const IXMLDOMDocument& out,
                             const IXMLDOMNode& studyInfo, const RTTran3D& placement) {
  IXMLDOMNode layout;
  return zelXmlCreateLayoutElement(document, "PmStudyLayout", studyInfo, layout, false) &&
         giveLayout(document, studyInfo, layout, placement) && zelXmlPublishClone(out, layout);
}
