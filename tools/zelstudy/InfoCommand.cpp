#include <CLI/CLI.hpp>
#include <iostream>
#include <map>
#include <memory>

#include "zelstudy/NodeJson.h"
#include "zelstudy/NodeNames.h"
#include "zelstudy/StudySession.h"
#include "zelstudy/TextOutput.h"
#include "zelstudy/Tool.h"

namespace zelstudy {

namespace {

struct StudyInfo {
  std::size_t objects = 0;
  int nodes = 0;
  std::size_t plcInternalNodes = 0;
  ApiPmIdList roots;
  std::map<int, std::size_t> byType;
  std::map<std::string, std::size_t> byStringType;
};

StudyInfo collect(const StudySession& study) {
  StudyInfo info;
  ZelXmlWrapper& wrapper = study.wrapper();
  info.objects = study.objectCount();
  info.nodes = wrapper.nodesNum();
  RWClassicTValOrderedVector<const ApiPmId*> plcIds;
  wrapper.convertor().getPlcInternalIds(plcIds);
  info.plcInternalNodes = plcIds.entries();
  wrapper.getRoots(info.roots);
  ZelNodeList nodes;
  wrapper.getAllNodes(nodes);
  for (const ZelNode* node : nodes) {
    ++info.byType[node->type()];
    RWClassicWString type;
    node->getStringType(type);
    ++info.byStringType[type];
  }
  return info;
}

void printJson(const StudySession& study, const StudyInfo& info) {
  Json byType = Json::object(), byStringType = Json::object();
  for (const auto& [type, count] : info.byType) byType[std::to_string(type)] = count;
  for (const auto& [type, count] : info.byStringType) byStringType[type] = count;
  std::cout << jsonText({{"studyId", study.wrapper().studyId()},
                         {"objects", info.objects},
                         {"nodes", info.nodes},
                         {"plcInternalNodes", info.plcInternalNodes},
                         {"roots", idsJson(info.roots)},
                         {"byType", byType},
                         {"byStringType", byStringType},
                         {"messages", messagesJson(study.messages())}},
                        2)
            << '\n';
}

void printText(const StudySession& study, const StudyInfo& info) {
  Table head;
  const std::string& studyId = study.wrapper().studyId();
  head.row({"study", studyId.empty() ? "none" : printable(studyId)});
  head.row({"objects", std::to_string(info.objects)});
  head.row({"nodes", std::to_string(info.nodes)});
  head.row({"PLC internal", std::to_string(info.plcInternalNodes)});
  head.print(std::cout);

  std::cout << "\nroots\n";
  Table roots;
  for (const ApiPmId& id : info.roots) {
    RWClassicWString name, type;
    if (const ZelNode* node = study.find(id)) {
      node->getName(name);
      node->getStringType(type);
    }
    roots.row({printable(name), printable(type), printable(id.text())});
  }
  roots.print(std::cout, "  ");

  std::cout << "\nnodes by type\n";
  Table types({true, true});
  for (const auto& [type, count] : info.byType)
    types.row({std::to_string(count), std::to_string(type), std::string(nodeTypeName(type))});
  types.print(std::cout, "  ");

  std::cout << "\nnodes by class\n";
  Table classes({true});
  for (const auto& [type, count] : info.byStringType) classes.row({std::to_string(count), printable(type)});
  classes.print(std::cout, "  ");

  if (study.messages().empty()) return;
  std::cout << "\nmessages\n";
  for (const ApiErrEntry& message : study.messages()) {
    std::cout << "  " << message.code << " (severity " << message.severity << ")";
    for (const std::string& text : message.texts) std::cout << "  \"" << printable(text) << '"';
    std::cout << '\n';
  }
}

int run(const Tool& tool, const std::string& file) {
  StudySession study;
  if (!openStudy(study, file, tool.session)) return exitFailure;
  const StudyInfo info = collect(study);
  tool.json ? printJson(study, info) : printText(study, info);
  return exitSuccess;
}

}  // namespace

void addInfoCommand(CLI::App& app, Tool& tool) {
  CLI::App* command = app.add_subcommand("info", "Count the objects of a study and list its roots");
  command->footer("Example: zelstudy info cell.xml --json");
  const auto file = std::make_shared<std::string>();
  command->add_option("FILE", *file, "The study")->required()->type_name("");
  addCommonOptions(*command, tool);
  command->callback([&tool, file] { tool.run = [&tool, file] { return run(tool, *file); }; });
}

}  // namespace zelstudy
