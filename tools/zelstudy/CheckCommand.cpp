#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <map>
#include <memory>
#include <sstream>

#include "zelstudy/NodeJson.h"
#include "zelstudy/Progress.h"
#include "zelstudy/SaveFiles.h"
#include "zelstudy/StudyCheck.h"
#include "zelstudy/StudySession.h"
#include "zelstudy/TextOutput.h"
#include "zelstudy/Tool.h"

namespace zelstudy {

namespace {

struct CheckArguments {
  std::vector<std::string> files;
  CheckOptions options;
  bool all = false;
  std::string code;
};

// Findings of one rule that the text lists, unless it is to list all.
constexpr std::size_t maxListed = 5;

struct CheckedFile {
  std::string file;
  bool isRead = false;
  CheckResult result;
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

Json findingJson(const std::string& file, const Finding& finding) {
  return {{"file", file},
          {"code", finding.code},
          {"severity", severityName(finding.severity)},
          {"ids", finding.ids},
          {"line", finding.line ? Json(finding.line) : Json()},
          {"field", finding.field.empty() ? Json() : Json(finding.field)},
          {"text", finding.text},
          {"remedy", finding.remedy}};
}

Json totalsJson(const CheckResult& result) {
  Json totals = Json::object();
  for (const CheckCount& each : result.counts) totals[std::string(each.rule->code)] = each.count;
  return totals;
}

void printJson(const std::vector<CheckedFile>& checked) {
  Json findings = Json::array(), files = Json::array();
  std::size_t errors = 0, debris = 0;
  for (const CheckedFile& each : checked) {
    for (const Finding& finding : each.result.findings) findings.push_back(findingJson(each.file, finding));
    files.push_back({{"file", each.file},
                     {"read", each.isRead},
                     {"errors", each.result.errors},
                     {"debris", each.result.debris},
                     {"listed", each.result.findings.size()},
                     {"totals", totalsJson(each.result)}});
    errors += each.result.errors;
    debris += each.result.debris;
  }
  std::cout << jsonText({{"findings", std::move(findings)},
                         {"errors", errors},
                         {"debris", debris},
                         {"files", std::move(files)}},
                        2)
            << '\n';
}

std::string counted(std::size_t count, std::string_view one, std::string_view many) {
  return std::to_string(count) + " " + std::string(count == 1 ? one : many);
}

std::string codeText(std::string_view code) { return faint(" [" + std::string(code) + "]"); }

// Answers whether findings were left out.
bool printFindings(const CheckedFile& checked, bool all) {
  const std::string file = printable(checked.file);
  std::map<std::string_view, std::size_t> listed;
  for (const Finding& finding : checked.result.findings) {
    if (!all && listed[finding.code] == maxListed) continue;
    ++listed[finding.code];
    std::cout << file << ':' << finding.line << ": " << severityName(finding.severity) << ": "
              << printable(finding.text) << codeText(finding.code) << '\n';
  }
  bool leftOut = false;
  for (const CheckCount& each : checked.result.counts) {
    const std::size_t more = each.count - listed[each.rule->code];
    if (more == 0) continue;
    leftOut = true;
    std::cout << file << ": " << more << " more like " << (listed[each.rule->code] ? "these" : "this") << ": "
              << each.rule->says << codeText(each.rule->code) << '\n';
  }
  return leftOut;
}

void printText(const std::vector<CheckedFile>& checked, bool all) {
  std::size_t errors = 0, debris = 0;
  bool leftOut = false;
  for (const CheckedFile& each : checked) {
    leftOut |= printFindings(each, all);
    if (each.isRead && each.result.total() == 0)
      std::cout << printable(each.file) << ": nothing is out of order\n";
    errors += each.result.errors;
    debris += each.result.debris;
  }
  if (errors + debris == 0) return;
  std::cout << counted(errors, "error", "errors") << ", " << debris << " debris; ";
  if (leftOut) std::cout << (all ? "--limit N keeps more; " : "--all lists all; ");
  std::cout << "zelstudy check --explain CODE tells more\n";
}

int run(const Tool& tool, const CheckArguments& arguments) {
  if (!arguments.code.empty()) return explain(tool, arguments);
  std::vector<CheckedFile> checked;
  for (const std::string& file : arguments.files) {
    CheckedFile& each = checked.emplace_back();
    each.file = inputName(file);
    IXMLDOMDocument document;
    each.isRead = loadStudy(file, document);
    if (!each.isRead) continue;
    const Progress progress("checking " + each.file);
    each.result = checkStudy(document, arguments.options);
  }
  const auto any = [&](auto test) { return std::any_of(checked.begin(), checked.end(), test); };
  const bool anyUnread = any([](const CheckedFile& each) { return !each.isRead; });
  if (anyUnread && checked.size() == 1) return exitFailure;
  tool.json ? printJson(checked) : printText(checked, arguments.all);
  if (anyUnread) return exitFailure;
  return any([](const CheckedFile& each) { return each.result.total() != 0; }) ? exitFindings : exitSuccess;
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
         "Of each rule the text lists the first five findings and counts the others. The JSON output has "
         "all\n"
         "that are kept, and all counts.\n"
         "The exit code is 0 without findings, 1 with any, 2 when a file cannot be opened.\n\n"
         "Example: zelstudy check cell.xml";
}

}  // namespace

void addCheckCommand(CLI::App& app, Tool& tool) {
  CLI::App* command = app.add_subcommand("check", "Tell what in a study is out of order");
  command->footer(help());
  const auto arguments = std::make_shared<CheckArguments>();
  CLI::Option* file = command->add_option("FILE", arguments->files, "The study, or several")->type_name("");
  command->add_flag("--strict", arguments->options.strict, "Check also what a healthy study may break");
  command->add_flag("--all", arguments->all, "List all findings, not the first five of each rule");
  command
      ->add_option("--limit", arguments->options.limit,
                   "Findings to keep of a file; 0 for all. The counts are of all in any case")
      ->type_name("N")
      ->capture_default_str();
  CLI::Option* code =
      command->add_option("--explain", arguments->code, "Tell a rule instead")->type_name("CODE");
  addCommonOptions(*command, tool);
  command->callback([&tool, arguments, file, code] {
    if (!*file && !*code) throw CLI::RequiredError("FILE");
    tool.run = [&tool, arguments] { return run(tool, *arguments); };
  });
}

}  // namespace zelstudy
