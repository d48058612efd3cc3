#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "api/LocalFilesCacheClientFilesManager.h"
#include "zelstudy/NodeJson.h"
#include "zelstudy/Progress.h"
#include "zelstudy/SaveFiles.h"
#include "zelstudy/StudySession.h"
#include "zelstudy/TextOutput.h"
#include "zelstudy/Tool.h"
#include "zelstudy/UpdateDocument.h"

namespace zelstudy {

namespace {

struct UpdateArguments {
  std::string file;
  std::string update;
  bool incremental = false;
  bool download = false;
  std::string filesCache;
  std::string newFile;
  bool inPlace = false;
  bool dryRun = false;

  // Where the study goes; empty for a dry run.
  std::string studyFile() const { return dryRun ? std::string() : inPlace ? file : newFile; }
};

struct UpdateOutcome {
  bool result = false;
  ApiPmIdList updated;
  ApiPmIdList deleted;
  ApiPmIdList roots;
  std::size_t firstMessage = 0;
};

// Id to relevant parent id, for every node that has one, in registry order.
Json parentsJson(ZelXmlWrapper& wrapper) {
  Json parents = Json::object();
  ZelNodeList nodes;
  RWClassicTValOrderedVector<const ApiPmId*> ids;
  wrapper.convertor().getAllNodesAndIds(nodes, ids);
  for (const ApiPmId* id : ids) {
    ApiPmId parent;
    if (wrapper.relevantParentFinder().findRelevantParent(*id, parent))
      parents[id->asString()] = idJson(parent);
  }
  return parents;
}

void printJson(const StudySession& study, const UpdateOutcome& outcome) {
  std::cout << jsonText({{"result", outcome.result},
                         {"updated", idsJson(outcome.updated)},
                         {"deleted", idsJson(outcome.deleted)},
                         {"messages", messagesJson(study.messages(), outcome.firstMessage)},
                         {"roots", idsJson(outcome.roots)},
                         {"parents", parentsJson(study.wrapper())}},
                        2)
            << '\n';
}

void printText(const UpdateOutcome& outcome) {
  Table table;
  table.row({"result", outcome.result ? "true" : "false"});
  table.row({"updated", std::to_string(outcome.updated.entries())});
  table.row({"deleted", std::to_string(outcome.deleted.entries())});
  table.row({"roots", std::to_string(outcome.roots.entries())});
  table.print(std::cout);
}

bool prepare(const UpdateArguments& arguments, IXMLDOMDocument& update) {
  if (!spares("-o", arguments.newFile, arguments.update)) return false;
  if (!arguments.filesCache.empty() &&
      !LocalFilesCacheClientFilesManager::the().activate(arguments.filesCache)) {
    say(arguments.filesCache + ": cannot be used as a files cache");
    return false;
  }
  return loadUpdate(arguments.update, update);
}

int run(const Tool& tool, const UpdateArguments& arguments) {
  IXMLDOMDocument update;
  if (!prepare(arguments, update)) return exitFailure;
  StudySession study;
  if (!openStudy(study, arguments.file, tool.session)) return exitFailure;
  if (!study.builtWhole()) {
    say("nothing was updated");
    return exitFailure;
  }
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
  wrapper.getRoots(outcome.roots);
  tool.json ? printJson(study, outcome) : printText(outcome);
  if (!outcome.result) {
    say(arguments.update +
        ": the update could not be taken in whole: a referenced file or a child to remove is missing; "
        "nothing is "
        "saved");
    return exitFindings;
  }
  if (arguments.studyFile().empty()) {
    if (!arguments.dryRun) say("the study is not saved: give -o NEW or --in-place to save it");
    return exitSuccess;
  }
  const Progress progress("saving");
  std::string error;
  if (study.save(arguments.studyFile(), error)) return exitSuccess;
  say(error);
  return exitFailure;
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
  command->add_option("FILE", arguments->file, "The study")->required()->type_name("");
  command->add_option("UPDATE", arguments->update, "The update document")->required()->type_name("");
  command->add_flag("--incremental", arguments->incremental,
                    "Add what is new; replace only the study object");
  command->add_flag("--download", arguments->download, "Fetch referenced files into the files cache first");
  command->add_option("--files-cache", arguments->filesCache, "Directory of the local files cache")
      ->type_name("DIR");
  CLI::Option* output =
      command->add_option("-o", arguments->newFile, "Save the study here")->type_name("NEW");
  CLI::Option* inPlace =
      command->add_flag("--in-place", arguments->inPlace, "Save the study where it came from")
          ->excludes(output);
  command->add_flag("--dry-run", arguments->dryRun, "Tell what would come, and save nothing")
      ->excludes(output)
      ->excludes(inPlace);
  addCommonOptions(*command, tool);
  command->callback([&tool, arguments] { tool.run = [&tool, arguments] { return run(tool, *arguments); }; });
}

}  // namespace zelstudy
