#include "merge/ZelXmlImportCondition.h"

#include <memory>
#include <utility>

#include "document/ZelXmlFunctions.h"
#include "merge/ZelXmlUpdateFromExternalDocument.h"

bool ZelXmlImportMarvekStudyInfo::shouldImport(const ZelXmlUpdateFromExternalDocument& update) const {
  return update.importSettings()->addParts();
}

bool ZelXmlImportPrototype::shouldImport(const ZelXmlUpdateFromExternalDocument& update) const {
  std::string id;
  return zelXmlGetExternalId(update.currentRealNode(), id) && update.isRelatedPrototype(ApiPmId(id));
}

bool ZelXmlImport3DRep::shouldImport(const ZelXmlUpdateFromExternalDocument& update) const {
  std::string id;
  return zelXmlGetExternalId(update.currentRealNode(), id) && update.isRelatedTreeDRep(id);
}

bool ZelXmlImportReferenceFile::shouldImport(const ZelXmlUpdateFromExternalDocument& update) const {
  std::string id;
  return zelXmlGetExternalId(update.currentRealNode(), id) && update.isRelatedReferenceFile(id);
}

bool ZelXmlImportLayout::shouldImport(const ZelXmlUpdateFromExternalDocument& update) const {
  return update.isRelatedLayout(update.currentRealNodeId()) ||
         update.layoutToMarvekStudyInfoMap().find(update.currentRealNodeId());
}

bool ZelXmlImportShortcut::shouldImport(const ZelXmlUpdateFromExternalDocument& update) const {
  using Update = ZelXmlUpdateFromExternalDocument;
  IXMLDOMNode link, node;
  std::string id;
  if (!Update::getLinkNodeFromShortcut(update.addDocument(), update.currentRealNode(), link) ||
      !zelXmlGetExternalId(link, id) || !Update::getXmlNodeById(update.addDocument(), id, node)) {
    return false;
  }
  return update.isHandled(ApiPmId(id)) ||
         update.marvekStudyInfoToLayoutMap().find(update.currentRealNodeId());
}

ZelXmlImportConditionDecorator::ZelXmlImportConditionDecorator(RTAutoPtr<ZelXmlImportCondition> wrapped)
    : ZelXmlImportCondition(wrapped ? wrapped->family() : RWClassicWString()), wrapped_(std::move(wrapped)) {}

bool ZelXmlImportConditionDecorator::shouldImport(const ZelXmlUpdateFromExternalDocument& update) const {
  return !wrapped_ || wrapped_->shouldImport(update);
}

ZelXmlExcludeClassesImportConditionDecorator::ZelXmlExcludeClassesImportConditionDecorator(
    RTAutoPtr<ZelXmlImportCondition> wrapped, const RWClassicWString& className)
    : ZelXmlImportConditionDecorator(std::move(wrapped)) {
  excludedClasses_.append(className);
}

bool ZelXmlExcludeClassesImportConditionDecorator::shouldImport(
    const ZelXmlUpdateFromExternalDocument& update) const {
  std::string className;
  return ZelXmlImportConditionDecorator::shouldImport(update) &&
         (!zelXmlGetNodeName(update.currentRealNode(), className) || !excludedClasses_.contains(className));
}

namespace {

// The parts table and the selected one leave out the objects that only group parts for their process.
RTAutoPtr<ZelXmlImportCondition> products() {
  return std::make_unique<ZelXmlExcludeClassesImportConditionDecorator>(
      std::make_unique<ZelXmlImportAll>("Product"), "PmDvProcessAssembly");
}

template <class Condition>
RTAutoPtr<ZelXmlImportCondition> of(const char* family) {
  return std::make_unique<Condition>(family);
}

}  // namespace

// Set up before what a program sets up, which may import already.
#define ZELXML_SET_UP_FIRST [[gnu::init_priority(101)]]

ZELXML_SET_UP_FIRST const RTAutoPtr<ZelXmlImportCondition>
    ZelXmlUpdateFromExternalDocument::PART_IMPORT_FAMILIES[] = {
        products(),
        of<ZelXmlImportMarvekStudyInfo>("MarvekStudyInfo"),
        of<ZelXmlImportPrototype>("PartPrototype"),
        of<ZelXmlImport3DRep>("ExternalDocument"),
        of<ZelXmlImportReferenceFile>("PmReferenceFile"),
        of<ZelXmlImportShortcut>("Shortcut"),
        of<ZelXmlImportLayout>("PmLayout"),
        of<ZelXmlImportLayout>("PmStudyLayout"),
};

ZELXML_SET_UP_FIRST const RTAutoPtr<ZelXmlImportCondition>
    ZelXmlUpdateFromExternalDocument::RESOURCE_IMPORT_FAMILIES[] = {
        of<ZelXmlImportAll>("Resource"),           of<ZelXmlImportMarvekStudyInfo>("MarvekStudyInfo"),
        of<ZelXmlImportAll>("ToolPrototype"),      of<ZelXmlImportAll>("EquipmentPrototype"),
        of<ZelXmlImport3DRep>("ExternalDocument"), of<ZelXmlImportReferenceFile>("PmReferenceFile"),
        of<ZelXmlImportAll>("PmToolboxUsage"),     of<ZelXmlImportShortcut>("Shortcut"),
        of<ZelXmlImportLayout>("PmLayout"),        of<ZelXmlImportLayout>("PmStudyLayout"),
};

ZELXML_SET_UP_FIRST const RTAutoPtr<ZelXmlImportCondition>
    ZelXmlUpdateFromExternalDocument::SELECTED_IMPORT_FAMILIES[] = {
        products(),
        of<ZelXmlImportAll>("Resource"),
        of<ZelXmlImportAll>("Label"),
        of<ZelXmlImportAll>("Operation"),
        of<ZelXmlImportAll>("PmFlow"),
        of<ZelXmlImportAll>("PLCProgram"),
        of<ZelXmlImportAll>("DeviceGroup"),
        of<ZelXmlImportAll>("PmEquipmentInstance"),
        of<ZelXmlImportAll>("PmMaterialFlow"),
        of<ZelXmlImportAll>("PartPrototype"),
        of<ZelXmlImportAll>("ToolPrototype"),
        of<ZelXmlImportAll>("EquipmentPrototype"),
        of<ZelXmlImportAll>("ExternalDocument"),
        of<ZelXmlImportAll>("PmReferenceFile"),
        of<ZelXmlImportAll>("PmToolboxUsage"),
        of<ZelXmlImportAll>("Shortcut"),
        of<ZelXmlImportAll>("PmLayout"),
        of<ZelXmlImportAll>("PmStudyLayout"),
        of<ZelXmlImportAll>("MarvekStudyInfo"),
};
