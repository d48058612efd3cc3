#include "zelstudy/Tool.h"

#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>
#include <string>

#include "zelstudy/ToolLog.h"

namespace zelstudy {

void say(std::string_view message) {
  std::cout.flush();
  std::cerr << "zelstudy: " << message << std::endl;
}

void addCommonOptions(CLI::App& app, Tool& tool) {
  app.add_flag("--json", tool.json, "One JSON value instead of text for people");
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

int runTool(int argc, char** argv) {
  CLI::App app("Look into a study and edit it.", "zelstudy");
  Tool tool;
  app.set_version_flag("--version", "zelstudy " ZELSTUDY_VERSION);
  app.require_subcommand(1);
  app.get_formatter()->column_width(34);
  app.footer(
      "Data goes to standard output, messages to standard error. The exit code is 0 for success,\n"
      "1 for an unknown id or a refused operation, 2 for a file that cannot be opened or saved\n"
      "and for wrong usage. Each command has a --help of its own.\n\n"
      "Example: zelstudy tree cell.xml --depth 2");
  addCommonOptions(app, tool);
  for (const AddCommand add : commands) add(app, tool);

  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? exitSuccess : exitFailure;
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
