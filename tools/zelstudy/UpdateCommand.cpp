#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "api/LocalFilesCacheClientFilesManager.h"
#include "zelstudy/Intake.h"
#include "zelstudy/Progress.h"
#include "zelstudy/TextOutput.h"
#include "zelstudy/Tool.h"

namespace zelstudy {

namespace {

struct UpdateArguments {
  IntakeArguments files;
  bool incremental = false;
  bool download = false;
  std::string filesCache;
};

struct UpdateOutcome {
  bool result = false;
  ApiPmIdList updated;
  ApiPmIdList deleted;
  std::size_t firstMessage = 0;
};

void printJson(const StudySession& study, const UpdateOutcome& outcome) {
  Json answer = {{"result", outcome.result},
                 {"updated", idsJson(outcome.updated)},
                 {"deleted", idsJson(outcome.deleted)}};
  addStudyState(answer, study, outcome.firstMessage);
  std::cout << jsonText(answer, 2) << '\n';
}

void printText(const StudySession& study, const UpdateOutcome& outcome) {
  Table table;
  table.row({"result", outcome.result ? "true" : "false"});
  table.row({"updated", std::to_string(outcome.updated.entries())});
  table.row({"deleted", std::to_string(outcome.deleted.entries())});
  table.row({"roots", std::to_string(study.wrapper().roots().entries())});
  table.print(std::cout);
}

int run(const Tool& tool, const UpdateArguments& arguments) {
  if (!arguments.filesCache.empty() &&
      !LocalFilesCacheClientFilesManager::the().activate(arguments.filesCache)) {
    say(arguments.filesCache + ": cannot be used as a files cache");
    return exitFailure;
  }
  Outputs outputs = arguments.files.outputs();
  StudySession study;
  IXMLDOMDocument update;
  if (!openIntake(arguments.files, "update", tool.session, study, update)) return exitFailure;
  ZelXmlWrapper& wrapper = study.wrapper();
  UpdateOutcome outcome;
  outcome.firstMessage = study.messages().size();
  {
    const Progress progress("updating");
    wrapper.setUpdateDocument(update);
    outcome.result = arguments.incremental
                         ? wrapper.incrementalUpdate(outcome.updated, arguments.download)
                         : wrapper.update(outcome.deleted, outcome.updated, arguments.download);
  }
  tool.json ? printJson(study, outcome) : printText(study, outcome);
  return finishIntake(study, outputs, arguments.files, outcome.result,
                      "the update could not be taken in whole: a referenced file or a child to remove is "
                      "missing");
}

}  // namespace

void addUpdateCommand(CLI::App& app, Tool& tool) {
  CLI::App* command = app.add_subcommand("update", "Take new data of the data store into a study");
  command->footer(
      "Without --incremental UPDATE is the new truth for the objects that it holds: they are added or "
      "replaced,\n"
      "and children that their parents no longer name are removed. With it, objects are only added.\n\n"
      "Example: zelstudy update cell.xml update.xml -o new.xml");
  const auto arguments = std::make_shared<UpdateArguments>();
  addIntakeOptions(*command, arguments->files, "UPDATE", "The update document");
  command->add_flag("--incremental", arguments->incremental,
                    "Add what is new; replace only the study object");
  command->add_flag("--download", arguments->download, "Fetch referenced files into the files cache first");
  command->add_option("--files-cache", arguments->filesCache, "Directory of the local files cache")
      ->type_name("DIR");
  addCommonOptions(*command, tool);
  command->callback([&tool, arguments] { tool.run = [&tool, arguments] { return run(tool, *arguments); }; });
}

}  // namespace zelstudy
