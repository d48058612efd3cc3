#include "zelstudy/Intake.h"

#include <CLI/CLI.hpp>

#include "zelstudy/Progress.h"
#include "zelstudy/Tool.h"

namespace zelstudy {

namespace {

// Id to relevant parent id, for every node that has one, in registry order.
Json parentsJson(ZelXmlWrapper& wrapper) {
  ZelNodeList nodes;
  RWClassicTValOrderedVector<const ApiPmId*> ids;
  wrapper.convertor().getAllNodesAndIds(nodes, ids);
  // Its entries one behind the other: the keys are known to differ, and an access by key would look at all.
  Json::object_t parents;
  for (const ApiPmId* id : ids) {
    ApiPmId parent;
    if (wrapper.relevantParentFinder().findRelevantParent(*id, parent))
      parents.emplace_back(id->asString(), idJson(parent));
  }
  return Json(std::move(parents));
}

}  // namespace

void addIntakeOptions(CLI::App& command, IntakeArguments& arguments, const std::string& otherName,
                      const std::string& otherHelp) {
  command.add_option("FILE", arguments.file, "The study")->required()->type_name("");
  command.add_option(otherName, arguments.other, otherHelp)->required()->type_name("");
  CLI::Option* output = command.add_option("-o", arguments.newFile, "Save the study here")->type_name("NEW");
  CLI::Option* inPlace =
      command.add_flag("--in-place", arguments.inPlace, "Save the study where it came from")
          ->excludes(output);
  command.add_flag("--dry-run", arguments.dryRun, "Tell what would come, and save nothing")
      ->excludes(output)
      ->excludes(inPlace);
  addForce(command, arguments.force);
}

bool openIntake(const IntakeArguments& arguments, std::string_view kind, const SessionSettings& settings,
                StudySession& study, IXMLDOMDocument& other) {
  if (arguments.inPlace && isStandard(arguments.file)) {
    say("standard input has no place to save to: give -o NEW");
    return false;
  }
  if (!canReadBoth("FILE", arguments.file, "the " + std::string(kind), arguments.other) ||
      !spares("-o", arguments.newFile, arguments.other) || !loadStudy(arguments.other, other, kind) ||
      !openStudy(study, arguments.file, settings)) {
    return false;
  }
  if (!study.builtWhole()) say("nothing was taken in");
  return study.builtWhole();
}

void addStudyState(Json& answer, const StudySession& study, std::size_t firstMessage) {
  ApiPmIdList roots;
  study.wrapper().getRoots(roots);
  answer["messages"] = messagesJson(study.messages(), firstMessage);
  answer["roots"] = idsJson(roots);
  answer["parents"] = parentsJson(study.wrapper());
}

int finishIntake(const StudySession& study, Outputs& outputs, const IntakeArguments& arguments, bool result,
                 std::string_view refusal) {
  if (!result) {
    say((inputName(arguments.other) + ": ").append(refusal) + "; nothing is saved");
    return exitFindings;
  }
  if (arguments.studyFile().empty()) {
    if (!arguments.dryRun) say("the study is not saved: give -o NEW or --in-place to save it");
    return exitSuccess;
  }
  if (!answersWritten()) return exitFailure;
  const Progress progress("saving");
  return outputs.save(study, {}) ? exitSuccess : exitFailure;
}

}  // namespace zelstudy
