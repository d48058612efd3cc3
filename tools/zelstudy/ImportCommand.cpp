#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "api/ApiPmSessionManager.h"
#include "merge/ZelXmlUpdateFromExternalDocument.h"
#include "zelstudy/Intake.h"
#include "zelstudy/Progress.h"
#include "zelstudy/TextOutput.h"
#include "zelstudy/Tool.h"

namespace zelstudy {

namespace {

using Import = ZelXmlUpdateFromExternalDocument;

struct ImportArguments {
  IntakeArguments files;
  bool all = false;
  bool selected = false;
  bool parts = false;
  bool resources = false;

  Import::ImportType type() const {
    unsigned type = all        ? ApiPmAddToStudyFromFileData::importAll
                    : selected ? ApiPmAddToStudyFromFileData::importSelected
                               : ApiPmAddToStudyFromFileData::importPartsAndResources;
    if (files.dryRun) type |= ApiPmAddToStudyFromFileData::dryRun;
    return static_cast<Import::ImportType>(type);
  }
};

Json textsJson(const Import::List<_bstr_t>& texts) {
  Json list = Json::array();
  for (const _bstr_t& text : texts) list.push_back(text);
  return list;
}

void printJson(const StudySession& study, const Import& import, bool result, std::size_t firstMessage) {
  Json roots = Json::array();
  for (const ZelNode* root : import.handledRoots()) roots.push_back(idJson(idOf(*root)));
  Json answer = {{"result", result},
                 {"handled", idsJson(import.handledNodes())},
                 {"handledRoots", std::move(roots)},
                 {"removed", idsJson(import.removedNodes())},
                 {"related",
                  {{"prototypes", idsJson(import.relatedPrototypeIds())},
                   {"representations", textsJson(import.relatedTreeDRepIds())},
                   {"files", textsJson(import.relatedReferenceFileIds())},
                   {"layouts", idsJson(import.relatedLayoutIds())}}}};
  addStudyState(answer, study, firstMessage);
  std::cout << jsonText(answer, 2) << '\n';
}

void printText(const StudySession& study, const Import& import, bool result) {
  Table table;
  table.row({"result", result ? "true" : "false"});
  table.row({"handled", std::to_string(import.handledNodes().entries())});
  table.row({"handled roots", std::to_string(import.handledRoots().entries())});
  table.row({"removed", std::to_string(import.removedNodes().entries())});
  table.row({"roots", std::to_string(study.wrapper().roots().entries())});
  table.print(std::cout);
}

// The session's root node is the study that shortcuts are taken into: that of the file, for the length of an
// import, in a session that names none.
class RootNode {
 public:
  explicit RootNode(const std::string& study) {
    if (kept_.empty()) session_.rootNodeId = study;
  }
  ~RootNode() { session_.rootNodeId = kept_; }
  RootNode(const RootNode&) = delete;
  RootNode& operator=(const RootNode&) = delete;

 private:
  ApiPmSessionManager& session_ = ApiPmSessionManager::the();
  const std::string kept_ = session_.rootNodeId;
};

int run(const Tool& tool, const ImportArguments& arguments) {
  Outputs outputs = arguments.files.outputs();
  StudySession study;
  IXMLDOMDocument external;
  if (!openIntake(arguments.files, "external document", tool.session, study, external)) return exitFailure;
  const ApiPmAddToStudyFromFileData settings(arguments.parts, arguments.resources);
  Import import(external, settings, study.wrapper(), arguments.type());
  const std::size_t firstMessage = study.messages().size();
  bool result = false;
  {
    const Progress progress("importing");
    const RootNode root(study.wrapper().studyId());
    result = import.execute();
  }
  tool.json ? printJson(study, import, result, firstMessage) : printText(study, import, result);
  std::string refusal = "the import stopped";
  for (std::size_t i = firstMessage; i < study.messages().size(); ++i) {
    refusal += (i == firstMessage ? ": " : ", ") + study.messages()[i].code;
    for (const std::string& text : study.messages()[i].texts) refusal += " \"" + text + "\"";
  }
  return finishIntake(study, outputs, arguments.files, result, refusal);
}

}  // namespace

void addImportCommand(CLI::App& app, Tool& tool) {
  CLI::App* command = app.add_subcommand("import", "Take objects of another study into a study");
  command->footer(
      "--parts and --resources take parts and resources with what belongs to them, --selected all objects "
      "of the\n"
      "kinds that a selection can hold, --all every object. Objects that the study has already are "
      "replaced.\n"
      "--log trace tells for each object whether it was taken.\n\n"
      "Example: zelstudy import cell.xml other.xml --parts --resources -o new.xml");
  const auto arguments = std::make_shared<ImportArguments>();
  addIntakeOptions(*command, arguments->files, "EXTERNAL", "The study to take from");
  CLI::Option* all = command->add_flag("--all", arguments->all, "Every object");
  CLI::Option* selected =
      command->add_flag("--selected", arguments->selected, "All that a selection can hold")->excludes(all);
  command->add_flag("--parts", arguments->parts, "Parts")->excludes(all)->excludes(selected);
  command->add_flag("--resources", arguments->resources, "Resources")->excludes(all)->excludes(selected);
  addCommonOptions(*command, tool);
  command->callback([&tool, arguments] {
    if (!arguments->all && !arguments->selected && !arguments->parts && !arguments->resources)
      throw CLI::ValidationError("import", "say what to take: --all, --selected, --parts or --resources");
    tool.run = [&tool, arguments] { return run(tool, *arguments); };
  });
}

}  // namespace zelstudy
