#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <memory>
#include <sstream>

#include "zelstudy/NodeJson.h"
#include "zelstudy/Progress.h"
#include "zelstudy/StudyCheck.h"
#include "zelstudy/StudySession.h"
#include "zelstudy/TextOutput.h"
#include "zelstudy/Tool.h"

namespace zelstudy {

namespace {

struct CheckArguments {
  std::string file;
  bool strict = false;
  std::string code;
};

Json ruleJson(const CheckRule& rule) {
  return {{"code", rule.code},     {"severity", severityName(rule.severity)},
          {"strict", rule.strict}, {"says", rule.says},
          {"why", rule.why},       {"example", rule.example},
          {"remedy", rule.remedy}};
}

int explain(const Tool& tool, const CheckArguments& arguments) {
  const CheckRule* rule = findCheckRule(arguments.code);
  if (!rule) {
    std::string codes;
    for (const CheckRule& known : checkRules()) codes.append(codes.empty() ? "" : ", ").append(known.code);
    say("no rule has the code \"" + arguments.code + "\"; there are " + codes);
    return exitFailure;
  }
  if (tool.json) {
    std::cout << jsonText(ruleJson(*rule), 2) << '\n';
  } else {
    std::cout << rule->code << " (" << severityName(rule->severity)
              << (rule->strict ? ", with --strict only" : "") << ")\n\n"
              << rule->says << ' ' << rule->why << "\n\nFor example: " << rule->example
              << ".\n\nWhat to do: " << rule->remedy << '\n';
  }
  return exitSuccess;
}

Json findingJson(const Finding& finding) {
  return {{"code", finding.code},
          {"severity", severityName(finding.severity)},
          {"ids", finding.ids},
          {"line", finding.line ? Json(finding.line) : Json()},
          {"field", finding.field.empty() ? Json() : Json(finding.field)},
          {"text", finding.text},
          {"remedy", finding.remedy}};
}

std::string counted(std::size_t count, std::string_view one, std::string_view many) {
  return std::to_string(count) + " " + std::string(count == 1 ? one : many);
}

int run(const Tool& tool, const CheckArguments& arguments) {
  if (!arguments.code.empty()) return explain(tool, arguments);
  IXMLDOMDocument document;
  if (!loadStudy(arguments.file, document)) return exitFailure;
  std::vector<Finding> findings;
  {
    const Progress progress("checking " + arguments.file);
    findings = checkStudy(document, arguments.strict);
  }
  const auto errors = static_cast<std::size_t>(std::count_if(
      findings.begin(), findings.end(), [](const Finding& f) { return f.severity == Severity::error; }));
  if (tool.json) {
    Json list = Json::array();
    for (const Finding& finding : findings) list.push_back(findingJson(finding));
    std::cout << jsonText({{"findings", std::move(list)},
                           {"errors", errors},
                           {"debris", findings.size() - errors}},
                          2)
              << '\n';
  } else {
    for (const Finding& finding : findings)
      std::cout << printable(arguments.file) << ':' << finding.line << ": " << severityName(finding.severity)
                << ": " << printable(finding.text) << faint(" [" + std::string(finding.code) + "]") << '\n';
    if (findings.empty()) {
      std::cout << printable(arguments.file) << ": nothing is out of order\n";
    } else {
      std::cout << counted(errors, "error", "errors") << ", " << findings.size() - errors
                << " debris; zelstudy check --explain CODE tells more\n";
    }
  }
  return findings.empty() ? exitSuccess : exitFindings;
}

std::string help() {
  std::string text = "Rules:\n";
  Table table;
  for (const CheckRule& rule : checkRules())
    table.row({std::string(rule.code),
               std::string(severityName(rule.severity)) + (rule.strict ? ", --strict" : ""),
               std::string(rule.says)});
  std::ostringstream rows;
  table.print(rows, "  ");
  return text + rows.str() +
         "\nDebris is what an edit leaves behind when it does what it is meant to do; nothing stumbles over "
         "it.\n"
         "The exit code is 0 without findings, 1 with any, 2 for a file that cannot be opened.\n\n"
         "Example: zelstudy check cell.xml";
}

}  // namespace

void addCheckCommand(CLI::App& app, Tool& tool) {
  CLI::App* command = app.add_subcommand("check", "Tell what in a study is out of order");
  command->footer(help());
  const auto arguments = std::make_shared<CheckArguments>();
  CLI::Option* file = command->add_option("FILE", arguments->file, "The study")->type_name("");
  command->add_flag("--strict", arguments->strict, "Check also what a healthy study may break");
  CLI::Option* code =
      command->add_option("--explain", arguments->code, "Tell a rule instead")->type_name("CODE");
  addCommonOptions(*command, tool);
  command->callback([&tool, arguments, file, code] {
    if (!*file && !*code) throw CLI::RequiredError("FILE");
    tool.run = [&tool, arguments] { return run(tool, *arguments); };
  });
}

}  // namespace zelstudy
