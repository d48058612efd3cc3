#pragma once

#include <functional>
#include <optional>
#include <string_view>

#include "zelstudy/SessionSettings.h"

namespace CLI {
class App;
}

namespace zelstudy {

enum ExitCode : int {
  exitSuccess = 0,
  exitFindings = 1,  // findings, an unknown id, a refused operation
  exitFailure = 2,   // nothing could be done: a file that cannot be opened or saved, wrong usage
};

// What every command is told, and the command that the arguments chose.
struct Tool {
  bool json = false;
  std::optional<int> logLevel;
  SessionSettings session;
  std::function<int()> run;  // answers the exit code
};

// A command adds itself to the program: its arguments, its help, and the function that sets `tool.run`. A new
// command is one file with one such function, and one line in `commands`.
using AddCommand = void (*)(CLI::App& app, Tool& tool);
void addInfoCommand(CLI::App& app, Tool& tool);
void addTreeCommand(CLI::App& app, Tool& tool);
void addShowCommand(CLI::App& app, Tool& tool);
void addEditCommand(CLI::App& app, Tool& tool);
void addUpdateCommand(CLI::App& app, Tool& tool);
void addUpdateFileCommand(CLI::App& app, Tool& tool);
void addImportCommand(CLI::App& app, Tool& tool);
void addCheckCommand(CLI::App& app, Tool& tool);
void addDiffCommand(CLI::App& app, Tool& tool);
void addPrototypesCommand(CLI::App& app, Tool& tool);
inline constexpr AddCommand commands[] = {
    addInfoCommand,        //
    addTreeCommand,        //
    addShowCommand,        //
    addEditCommand,        //
    addUpdateCommand,      //
    addUpdateFileCommand,  //
    addImportCommand,      //
    addCheckCommand,       //
    addDiffCommand,        //
    addPrototypesCommand,  //
};

// --json, --log and --session. They may stand before the command and behind it.
void addCommonOptions(CLI::App& app, Tool& tool);

// The whole program: reads the arguments, runs the command and answers the exit code.
int runTool(int argc, char** argv);

// One line to standard error.
void say(std::string_view message);

// Whether all that was printed has reached standard output; with a message when it has not. To be asked
// before anything is saved: who cannot read the answer is not to find the files changed.
bool answersWritten();

}  // namespace zelstudy
