#pragma once

#include <sstream>
#include <string>

// Pieces of study documents, written as a save writes them.
namespace document_test {

inline std::string field(const std::string& name, const std::string& content = "") {
  return content.empty() ? "<" + name + "/>" : "<" + name + ">" + content + "</" + name + ">";
}
inline std::string item(const std::string& id) { return field("item", id); }
// Lists are written as the words that they hold.
inline std::string items(const std::string& words) {
  std::istringstream stream(words);
  std::string text;
  for (std::string word; stream >> word;) text += item(word);
  return text;
}
inline std::string listOf(const std::string& name, const std::string& words) {
  return field(name, items(words));
}
inline std::string familyOf(const std::string& name) { return field("NodeInfo", field("family", name)); }

// An object without family, and one with a family behind its fields.
inline std::string bare(const std::string& type, const std::string& id, const std::string& fields = "") {
  const std::string start = "<" + type + " ExternalId=\"" + id + "\"";
  return fields.empty() ? start + "/>" : start + ">" + fields + "</" + type + ">";
}
inline std::string made(const std::string& type, const std::string& id, const std::string& family,
                        const std::string& fields = "") {
  return bare(type, id, fields + familyOf(family));
}
inline const std::string partWithoutId =
    "<PmPartInstance><NodeInfo><family>Product</family></NodeInfo></PmPartInstance>";

inline std::string dataOf(const std::string& objects) {
  return "<Data><Objects>" + objects + "</Objects></Data>";
}
inline std::string updates(const std::string& content) {
  return "<Data><Objects command=\"DG_UPDATE_STREAM_COMMAND\">" + content + "</Objects></Data>";
}

// An object of a part tree with a layout "L" + id; "-" as children makes an instance.
inline std::string part(const std::string& id, const std::string& parents, const std::string& children) {
  const bool isInstance = children == "-";
  return made(isInstance ? "PmPartInstance" : "PmCompoundPart", id, "Product",
              field("name", id) + listOf("parents", parents) +
                  (isInstance ? "" : listOf("children", children)) + field("layout", "L" + id));
}
// A layout object at these relative and absolute positions, without rotation.
inline std::string layout(const std::string& id, const std::string& node, const std::string& parent = "NULL",
                          const std::string& children = "", int relative = 0, int absolute = 0) {
  const auto along = [](int x) { return items(std::to_string(x) + ".000000 0.000000 0.000000"); };
  const std::string zeros =
      "<y>0.000000</y><z>0.000000</z><rx>0.000000</rx><ry>0.000000</ry><rz>0.000000</rz>";
  return bare("PmLayout", id,
              field("location", along(relative)) + field("rotation", along(0)) +
                  listOf("children", children) + field("parent", parent) + field("node", node) +
                  field("NodeInfo", field("family", "PmLayout") +
                                        field("absoluteLocation",
                                              field("x", std::to_string(absolute) + ".000000") + zeros)));
}

inline std::string studyOf(const std::string& id, const std::string& shortcuts, const std::string& infos) {
  return made("MarvekStudy", id, "Study", listOf("children", shortcuts) + listOf("info", infos));
}
inline std::string shortcutTo(const std::string& id, const std::string& link, const std::string& parent) {
  return made("PmShortcut", id, "Shortcut", field("parent", parent) + field("linkExternalID", link));
}
// Without family, as documents have them.
inline std::string infoWith(const std::string& id, const std::string& layout) {
  return bare("MarvekStudyInfo", id, field("layout", layout));
}
// The representation and the file of a prototype.
inline std::string rep(const std::string& id, const std::string& fileName) {
  return bare("Pm3DRep", "R" + id, field("file", "F" + id)) +
         bare("PmReferenceFile", "F" + id, field("fileName", fileName));
}

}  // namespace document_test
