#include <CLI/CLI.hpp>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>
#include <memory>

#include "zelstudy/EditRun.h"
#include "zelstudy/Progress.h"
#include "zelstudy/SaveFiles.h"
#include "zelstudy/Tool.h"

namespace zelstudy {

namespace {

struct EditArguments {
  std::string file;
  std::string script;
  std::string newFile;
  bool inPlace = false;
  std::string changesFile;
  bool keepGoing = false;
  bool force = false;

  std::string scriptName() const { return inputName(script); }
  // Where the study goes; empty for a dry run.
  const std::string& studyFile() const { return inPlace ? file : newFile; }
};

bool readText(const EditArguments& arguments, std::string& text, std::string& error) {
  std::ifstream file;
  std::istream& in = isStandard(arguments.script) ? std::cin : file;
  errno = 0;
  if (!isStandard(arguments.script)) file.open(arguments.script, std::ios::binary);
  char piece[65536];
  while (in.read(piece, sizeof piece) || in.gcount())
    text.append(piece, static_cast<std::size_t>(in.gcount()));
  if (in.eof() && !in.bad()) return true;
  error = errno ? std::strerror(errno) : "unknown error";
  return false;
}

// Says all that is wrong with a script; false when anything is.
bool readScript(const EditArguments& arguments, std::vector<ScriptOperation>& operations) {
  std::string text, reason;
  if (!readText(arguments, text, reason)) {
    say(arguments.scriptName() + ": cannot read the script: " + reason);
    return false;
  }
  std::vector<ScriptError> errors;
  operations = parseEditScript(text, errors);
  for (const ScriptError& error : errors)
    say(arguments.scriptName() + ":" + std::to_string(error.line) + ": " + error.reason);
  if (!errors.empty()) say("nothing was run");
  return errors.empty();
}

bool inputsAreApart(const EditArguments& arguments) {
  if (arguments.inPlace && isStandard(arguments.file)) {
    say("standard input has no place to save to: give -o NEW");
    return false;
  }
  return canReadBoth("FILE", arguments.file, "SCRIPT", arguments.script);
}

// An output must not replace what the command reads or writes besides; -o may name the study itself.
bool outputsAreApart(const EditArguments& arguments) {
  return spares("--out", arguments.changesFile, arguments.file) &&
         spares("--out", arguments.changesFile, arguments.newFile) &&
         spares("--out", arguments.changesFile, arguments.script) &&
         spares("-o", arguments.newFile, arguments.script);
}

int run(const Tool& tool, const EditArguments& arguments) {
  std::vector<ScriptOperation> operations;
  Outputs outputs(arguments.studyFile(), arguments.changesFile, arguments.force);
  if (!inputsAreApart(arguments) || !outputs.areApart() || !outputsAreApart(arguments) ||
      !readScript(arguments, operations))
    return exitFailure;
  StudySession study;
  if (!openStudy(study, arguments.file, tool.session)) return exitFailure;
  if (!study.builtWhole()) {
    say("nothing was run");
    return exitFailure;
  }
  IXMLDOMDocument changes;
  if (!arguments.changesFile.empty()) {
    changes = IXMLDOMDocument::create();
    study.wrapper().setOutDocument(changes);
  }

  const EditOutcome outcome = runEdits(study, operations, arguments.keepGoing, std::cout);
  if (outcome.refused) {
    std::string message = arguments.scriptName() + ":" + std::to_string(outcome.refusedLine) +
                          ": refused: " + outcome.refusedReason;
    if (outcome.refused > 1) message += " (and " + std::to_string(outcome.refused - 1) + " more)";
    say(message);
    if (!arguments.keepGoing) {
      say("the script was stopped; nothing is saved");
      return exitFindings;
    }
  }
  if (arguments.studyFile().empty()) say("the study is not saved: give -o NEW or --in-place to save it");

  if (!answersWritten()) return exitFailure;
  const Progress progress("saving");
  if (!outputs.save(study, changes)) return exitFailure;
  return outcome.refused ? exitFindings : exitSuccess;
}

std::string help() {
  std::string text =
      "SCRIPT has one operation per line. - as a file is standard input or output. Words are parted by "
      "blanks; a word in\n"
      "double quotes may hold blanks, and \\\" \\\\ \\n \\t. # starts a comment.\n\n"
      "Operations:\n";
  std::size_t width = 0;
  for (const EditOperation& operation : editOperations()) width = std::max(width, operation.usage().size());
  for (const EditOperation& operation : editOperations()) {
    std::string usage = operation.usage();
    usage.resize(width + 2, ' ');
    text.append("  ").append(usage).append(operation.does).append("\n");
  }
  return text +
         "\nLengths are in the unit of the study, angles in radians. Each operation prints one line of "
         "JSON.\n"
         "A refused operation stops the script and nothing is saved, unless --keep-going says otherwise.\n\n"
         "Example: echo 'rename E-gripper \"Gripper, left\"' | zelstudy edit cell.xml - -o new.xml";
}

}  // namespace

void addEditCommand(CLI::App& app, Tool& tool) {
  CLI::App* command = app.add_subcommand("edit", "Run a script of edits on a study");
  command->footer(help());
  const auto arguments = std::make_shared<EditArguments>();
  command->add_option("FILE", arguments->file, "The study")->required()->type_name("");
  command->add_option("SCRIPT", arguments->script, "The script")->required()->type_name("");
  const CLI::Validator named([](std::string& name) { return name.empty() ? "a file name is empty" : ""; },
                             "");
  CLI::Option* output =
      command->add_option("-o", arguments->newFile, "Save the study here")->type_name("NEW")->check(named);
  command->add_flag("--in-place", arguments->inPlace, "Save the study where it came from")->excludes(output);
  command->add_option("--out", arguments->changesFile, "Save the changes here, as commands")
      ->type_name("OUT")
      ->check(named);
  command->add_flag("--keep-going", arguments->keepGoing, "Go on, and save, after a refused operation");
  addForce(*command, arguments->force);
  addCommonOptions(*command, tool);
  command->callback([&tool, arguments] { tool.run = [&tool, arguments] { return run(tool, *arguments); }; });
}

}  // namespace zelstudy
