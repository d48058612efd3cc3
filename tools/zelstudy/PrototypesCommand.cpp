#include <CLI/CLI.hpp>
#include <cstdint>
#include <ctime>
#include <iostream>
#include <memory>
#include <vector>

#include "document/ZelXmlFunctions.h"
#include "prototype/ZelXmlPrototypeNode.h"
#include "zel/ZelPrototypeAssignment.h"
#include "zelstudy/NodeJson.h"
#include "zelstudy/StudySession.h"
#include "zelstudy/TextOutput.h"
#include "zelstudy/Tool.h"

namespace zelstudy {

namespace {

std::vector<std::string> cells(const Json& row, std::initializer_list<const char*> keys) {
  std::vector<std::string> texts;
  for (const char* key : keys) {
    const Json& value = row.at(key);
    texts.push_back(value.is_null()           ? "-"
                    : value.is_string()       ? printable(value.get<std::string>())
                    : value.is_number_float() ? shortNumber(value.get<double>())
                                              : jsonText(value));
  }
  return texts;
}

std::string timeText(const Json& seconds) {
  if (seconds.is_null()) return "-";
  const std::time_t time = seconds.get<std::int64_t>();
  std::tm parts{};
  char text[64];
  if (!::gmtime_r(&time, &parts) || !std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &parts))
    return jsonText(seconds);
  return text;
}

Json headJson(const ZelNode& node) {
  return {{"id", idJson(idOf(node))},
          {"type", static_cast<int>(node.type())},
          {"class", textJson(node, &ZelNode::getStringType)}};
}

Json prototypeJson(const ZelXmlWrapper& wrapper, const ZelPrototype& prototype) {
  Json row = headJson(prototype);
  row["name"] = textJson(prototype, &ZelNode::getName);
  ApiPmPrototypeData data;
  row["weight"] = wrapper.getPrototypeData(idOf(prototype), data) ? Json(data.weight) : Json();
  IXMLDOMNode rep;
  RWClassicWString stored, path, file;
  const bool hasName = zelXmlNodeOf(&prototype)->getThreeDRep(rep) &&
                       zelXmlGetReferenceFileName(wrapper.DOMDocument(), rep, stored);
  row["storedName"] = hasName ? Json(stored) : Json();
  const bool hasPath = prototype.getPrototypePath(path);
  row["path"] = hasPath ? Json(path) : Json();
  const bool hasFile = hasPath && zelXmlFindJtFile(path, file) && !file.empty();
  row["jtFile"] = hasFile ? Json(file) : Json();
  std::int64_t time = 0;
  row["modificationTime"] = prototype.getModificationTime(time) ? Json(time) : Json();
  return row;
}

Json assignmentJson(const ZelPrototypeAssignment& assignment) {
  Json row = headJson(assignment);
  ApiPmId id;
  row["uses"] = assignment.getPrototypeId(id) ? idJson(id) : Json();
  return row;
}

struct Rows {
  Json all = Json::array();  // in document order
  std::vector<std::size_t> prototypes, assignments;
};

Rows collect(const ZelXmlWrapper& wrapper) {
  Rows rows;
  IXMLDOMNodeList elements;
  zelXmlSelectChildren(wrapper.DOMDocument(), "Data/Objects/*", elements);
  for (const IXMLDOMNode& element : elements) {
    ApiPmId id;
    if (!zelXmlGetExternalId(element, id)) continue;
    const ZelNode* node = wrapper.getZelNodeFromId(id);
    // Of several elements with one id the last has the node.
    const ZelXmlNode* xmlNode = zelXmlNodeOf(node);
    if (!xmlNode || xmlNode->getXmlNode() != element) continue;
    if (const auto* prototype = zelQuery<ZelPrototype>(node)) {
      rows.prototypes.push_back(rows.all.size());
      rows.all.push_back(prototypeJson(wrapper, *prototype));
    } else if (const auto* assignment = zelQuery<ZelPrototypeAssignment>(node)) {
      rows.assignments.push_back(rows.all.size());
      rows.all.push_back(assignmentJson(*assignment));
    }
  }
  return rows;
}

void printText(const Rows& rows) {
  std::cout << "prototypes\n";
  Table prototypes({false, true, false, false, true});
  if (!rows.prototypes.empty())
    prototypes.row({"id", "type", "class", "name", "weight", "stored name", "jt file", "written (UTC)"});
  for (const std::size_t at : rows.prototypes) {
    std::vector<std::string> row =
        cells(rows.all[at], {"id", "type", "class", "name", "weight", "storedName", "jtFile"});
    row.push_back(timeText(rows.all[at]["modificationTime"]));
    prototypes.row(std::move(row));
  }
  prototypes.print(std::cout, "  ");
  if (rows.assignments.empty()) return;
  std::cout << "\nassignments\n";
  Table assignments({false, true});
  assignments.row({"id", "type", "class", "uses"});
  for (const std::size_t at : rows.assignments)
    assignments.row(cells(rows.all[at], {"id", "type", "class", "uses"}));
  assignments.print(std::cout, "  ");
}

int run(const Tool& tool, const std::string& file) {
  StudySession study;
  if (!openStudy(study, file, tool.session)) return exitFailure;
  const Rows rows = collect(study.wrapper());
  if (tool.json)
    std::cout << jsonText(rows.all, 2) << '\n';
  else
    printText(rows);
  return exitSuccess;
}

}  // namespace

void addPrototypesCommand(CLI::App& app, Tool& tool) {
  CLI::App* command = app.add_subcommand("prototypes", "List prototypes with their files, and assignments");
  command->footer(
      "A stored name that begins with \"#\" is relative to the system root, which\n"
      "--session systemRoot=DIR sets. \"-\" is a value that a prototype does not have.\n\n"
      "Example: zelstudy prototypes cell.xml --session systemRoot=/srv/library");
  const auto file = std::make_shared<std::string>();
  command->add_option("FILE", *file, "The study")->required()->type_name("");
  addCommonOptions(*command, tool);
  command->callback([&tool, file] { tool.run = [&tool, file] { return run(tool, *file); }; });
}

}  // namespace zelstudy
