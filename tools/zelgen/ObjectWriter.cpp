#include "ObjectWriter.h"

namespace zelgen {

void writePrototype(XmlWriter& xml, bool isPart, const IdText& id, std::string_view name,
                    std::string_view threeDRep, Millionths weight, std::uint64_t number) {
  const std::string_view element = isPart ? "PmPartPrototype" : "PmToolPrototype";
  xml.beginObject(element, id);
  xml.text("name", name);
  xml.text("threeDRep", threeDRep);
  xml.millionths("weight", weight);
  xml.nodeInfo(isPart ? "PartPrototype" : "ToolPrototype", number);
  xml.endObject(element);
}

void writeThreeDRep(XmlWriter& xml, const IdText& id, std::string_view file, std::uint64_t number) {
  xml.beginObject("Pm3DRep", id);
  xml.text("file", file);
  xml.nodeInfo("ExternalDocument", number);
  xml.endObject("Pm3DRep");
}

void writeReferenceFile(XmlWriter& xml, const IdText& id, std::string_view fileName, std::uint64_t number) {
  xml.beginObject("PmReferenceFile", id);
  xml.text("fileName", fileName);
  xml.nodeInfo("PmReferenceFile", number);
  xml.endObject("PmReferenceFile");
}

void writeShortcut(XmlWriter& xml, const IdText& id, std::string_view name, std::string_view study,
                   std::string_view target, std::uint64_t number) {
  xml.beginObject("PmShortcut", id);
  xml.text("name", name);
  xml.text("parent", study);
  xml.text("linkExternalID", target);
  xml.nodeInfo("Shortcut", number);
  xml.endObject("PmShortcut");
}

void writeStudyInfo(XmlWriter& xml, std::string_view className, const IdText& id, std::string_view layout,
                    std::optional<std::uint64_t> number) {
  xml.beginObject(className, id);
  xml.text("layout", layout);
  if (number) xml.nodeInfo(className, *number);
  xml.endObject(className);
}

void writeStudyLayout(XmlWriter& xml, const IdText& id, const Placement& placement, std::uint64_t number) {
  xml.beginObject("PmStudyLayout", id);
  xml.vectors(placement);
  xml.empty("children");
  xml.text("parent", "NULL");
  xml.nodeInfo("PmStudyLayout", number);
  xml.endObject("PmStudyLayout");
}

}  // namespace zelgen
