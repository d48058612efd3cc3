#include "zelstudy/Tool.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include "zelstudy/Nearest.h"
#include "zelstudy/TextOutput.h"
#include "zelstudy/ToolLog.h"

namespace zelstudy {

void say(std::string_view message) {
  std::cout.flush();
  std::cerr << "zelstudy: " << printable(message) << std::endl;
}

bool answersWritten() {
  if (std::cout.flush()) return true;
  say("standard output cannot be written; nothing is saved");
  return false;
}

void addCommonOptions(CLI::App& app, Tool& tool) {
  app.add_flag("--json", tool.json, "JSON instead of text for people");
  app.add_option_function<std::string>(
         "--log",
         [&tool](const std::string& level) {
           tool.logLevel = readLogLevel(level);
           if (!tool.logLevel) throw CLI::ValidationError("--log", "no such level: " + level);
         },
         "Log to standard error: 0 error, 1 progress, 2 trace")
      ->type_name("LEVEL");
  app.add_option_function<std::vector<std::string>>(
         "--session",
         [&tool](const std::vector<std::string>& settings) {
           for (const std::string& setting : settings)
             if (const std::string reason = tool.session.add(setting); !reason.empty())
               throw CLI::ValidationError("--session", reason);
         },
         "Set a member of the session (repeatable): " + SessionSettings::keys())
      ->type_name("KEY=VALUE")
      ->expected(1)
      ->take_all();
}

namespace {

// No command was named, or one that there is not.
void sayUnknownCommand(const CLI::App& app, const std::string& word) {
  std::vector<std::string> names;
  for (const CLI::App* command : app.get_subcommands({})) names.push_back(command->get_name());
  const std::string_view meant = nearest(word, {names.begin(), names.end()});
  say("there is no command \"" + word + "\"" +
      (meant.empty() ? "; zelstudy --help lists them" : "; did you mean \"" + std::string(meant) + "\"?"));
}

// The arguments, the first one last, as the parser wants them. `help` is `--help`, of a command if one
// follows.
std::vector<std::string> wordsOf(int argc, char** argv) {
  std::vector<std::string> words(argv + 1, argv + argc);
  if (!words.empty() && words.front() == "help") {
    words.erase(words.begin());
    words.resize(std::min<std::size_t>(words.size(), 1));
    words.push_back("--help");
  }
  std::reverse(words.begin(), words.end());
  return words;
}

}  // namespace

int runTool(int argc, char** argv) {
  CLI::App app("Look into a study and edit it.", "zelstudy");
  Tool tool;
  app.set_version_flag("--version", "zelstudy " ZELSTUDY_VERSION);
  app.require_subcommand(0, 1);  // none is told below, in words of our own
  app.get_formatter()->column_width(34);
  app.footer(
      "Data goes to standard output, messages to standard error. The exit code is 0 for success,\n"
      "1 for an unknown id or a refused operation, 2 for a file that cannot be opened or saved\n"
      "and for wrong usage. \"zelstudy help COMMAND\" tells about a command.\n\n"
      "Example: zelstudy tree cell.xml --depth 2");
  addCommonOptions(app, tool);
  for (const AddCommand add : commands) add(app, tool);
  app.failure_message([](const CLI::App*, const CLI::Error& error) {
    return "zelstudy: " + printable(error.what()) +
           "\nzelstudy --help and zelstudy COMMAND --help tell more\n";
  });

  const auto unknownCommand = [&app] {
    for (const std::string& word :
         app.get_subcommands().empty() ? app.remaining() : std::vector<std::string>())
      if (!word.starts_with('-')) return word;
    return std::string();
  };
  try {
    app.parse(wordsOf(argc, argv));
  } catch (const CLI::ParseError& error) {
    if (const std::string word = unknownCommand(); !word.empty()) {
      sayUnknownCommand(app, word);
      return exitFailure;
    }
    return app.exit(error) == 0 ? exitSuccess : exitFailure;
  }
  if (!tool.run) {
    say("a command is missing; zelstudy --help lists them");
    return exitFailure;
  }
  if (tool.logLevel) listenToLog(*tool.logLevel);
  int code = exitFailure;
  try {
    code = tool.run();
  } catch (const std::exception& error) {
    say(std::string("failed: ") + error.what());
    return exitFailure;
  }
  if (!std::cout.flush()) {
    say("standard output cannot be written");
    return exitFailure;
  }
  return code;
}

}  // namespace zelstudy
