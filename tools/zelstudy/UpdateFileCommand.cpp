#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "merge/ZelXmlUpdateXmlWrapper.h"
#include "zelstudy/NodeJson.h"
#include "zelstudy/Progress.h"
#include "zelstudy/SaveFiles.h"
#include "zelstudy/StudySession.h"
#include "zelstudy/TextOutput.h"
#include "zelstudy/Tool.h"

namespace zelstudy {

namespace {

struct UpdateFileArguments {
  std::string target;
  std::string study;
  std::string update;
  std::string root;
  std::string newFile;
  bool force = false;

  const std::string& savedFile() const { return newFile.empty() ? target : newFile; }
  // As the library opens it.
  std::string targetPath() const { return isStandard(target) ? "/dev/stdin" : target; }
};

void print(const Tool& tool, const StudySession& study, const UpdateFileArguments& arguments, bool result,
           const std::string& reason, std::size_t firstMessage) {
  if (tool.json) {
    std::cout << jsonText({{"result", result},
                           {"reason", result ? Json() : Json(reason)},
                           {"saved", result ? Json(outputName(arguments.savedFile())) : Json()},
                           {"messages", messagesJson(study.messages(), firstMessage)}},
                          2)
              << '\n';
    return;
  }
  Table table;
  table.row({"result", result ? "true" : "false"});
  if (result) table.row({"saved", outputName(arguments.savedFile())});
  table.print(std::cout);
}

int run(const Tool& tool, const UpdateFileArguments& arguments) {
  IXMLDOMDocument update;
  StudySession study;
  Outputs outputs(arguments.savedFile(), {}, arguments.force);
  const std::string option = arguments.newFile.empty() ? "TARGET" : "-o";
  if (!canReadBoth("TARGET", arguments.target, "--study", arguments.study) ||
      !canReadBoth("TARGET", arguments.target, "--update", arguments.update) ||
      !canReadBoth("--study", arguments.study, "--update", arguments.update) ||
      !spares(option, arguments.savedFile(), arguments.study) ||
      !spares(option, arguments.savedFile(), arguments.update) ||
      !loadStudy(arguments.update, update, "update") || !openStudy(study, arguments.study, tool.session)) {
    return exitFailure;
  }
  const std::size_t firstMessage = study.messages().size();
  ZelXmlUpdateXmlWrapper wrapper(arguments.targetPath(), arguments.savedFile());
  wrapper.setSaver([&outputs](const IXMLDOMDocument& document, const std::string&, DomError& error) {
    return outputs.prepare(document, error);
  });
  bool result = false;
  {
    const Progress progress("updating " + arguments.target);
    result = wrapper.buildToWrapDocumentToBeUpdated() &&
             wrapper.updateWrappedDocument(ApiPmId(arguments.root), ApiBaseXmlDocumentWrapper(update));
  }
  const ZelXmlUpdateXmlWrapper::Failure& failure = wrapper.lastFailure();
  print(tool, study, arguments, result, failure.text, firstMessage);
  if (result) {
    DomError error;
    if (!answersWritten()) return exitFailure;
    if (outputs.commit(error)) return exitSuccess;
    say(error.message());
    return exitFailure;
  }
  say(failure.text + (failure.ofFile ? "" : "; nothing is saved"));
  return failure.ofFile ? exitFailure : exitFindings;
}

}  // namespace

void addUpdateFileCommand(CLI::App& app, Tool& tool) {
  CLI::App* command =
      app.add_subcommand("update-file", "Bring a study file up to date with objects of another study");
  command->footer(
      "TARGET is a file of the same study as STUDY. UPDATE holds the object ID, and what belongs to it, as\n"
      "it is in STUDY now. ID is an object that the study shows, or one with a parent in TARGET.\n\n"
      "Example: zelstudy update-file old.xml --study cell.xml --update update.xml --root P-body -o new.xml");
  const auto arguments = std::make_shared<UpdateFileArguments>();
  command->add_option("TARGET", arguments->target, "The file to bring up to date")->required()->type_name("");
  command->add_option("--study", arguments->study, "The study that the update comes from")
      ->required()
      ->type_name("FILE");
  command->add_option("--update", arguments->update, "The update document")->required()->type_name("FILE");
  command->add_option("--root", arguments->root, "The object that the update is of")
      ->required()
      ->type_name("ID");
  command->add_option("-o", arguments->newFile, "Save here and leave TARGET as it is")->type_name("NEW");
  addForce(*command, arguments->force);
  addCommonOptions(*command, tool);
  command->callback([&tool, arguments] { tool.run = [&tool, arguments] { return run(tool, *arguments); }; });
}

}  // namespace zelstudy
