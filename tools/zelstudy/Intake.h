#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "dom/IXMLDOMDocument.h"
#include "zelstudy/NodeJson.h"
#include "zelstudy/SaveFiles.h"
#include "zelstudy/SessionSettings.h"
#include "zelstudy/StudySession.h"

namespace CLI {
class App;
}

namespace zelstudy {

// What commands have in common that take a second document into a study.
struct IntakeArguments {
  std::string file;
  std::string other;
  std::string newFile;
  bool inPlace = false;
  bool dryRun = false;
  bool force = false;

  // Where the study goes; empty for a dry run.
  std::string studyFile() const { return dryRun ? std::string() : inPlace ? file : newFile; }
  Outputs outputs() const { return {studyFile(), {}, force}; }
};

// FILE, then the second document under its own name, -o, --in-place, --dry-run and --force.
void addIntakeOptions(CLI::App& command, IntakeArguments& arguments, const std::string& otherName,
                      const std::string& otherHelp);

// Loads the second document, `kind` in messages, and opens the study. False, with messages for people, when
// either cannot be read, the study was not built whole, or -o would overwrite the second document.
bool openIntake(const IntakeArguments& arguments, std::string_view kind, const SessionSettings& settings,
                StudySession& study, IXMLDOMDocument& other);

// Adds `messages` since `firstMessage`, and of the study as it stands `roots` and `parents`.
void addStudyState(Json& answer, const StudySession& study, std::size_t firstMessage);

// Saves the study where it is to go, or says that it is not saved. With a false `result` nothing is saved,
// and `refusal` says why. Answers the exit code.
int finishIntake(const StudySession& study, Outputs& outputs, const IntakeArguments& arguments, bool result,
                 std::string_view refusal);

}  // namespace zelstudy
