#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>
#include <unordered_map>

#include "rw/RWTextHash.h"
#include "zelstudy/Progress.h"
#include "zelstudy/SaveFiles.h"
#include "zelstudy/StudyDiff.h"
#include "zelstudy/StudySession.h"
#include "zelstudy/TextOutput.h"
#include "zelstudy/Tool.h"

namespace zelstudy {

namespace {

struct DiffArguments {
  std::string before, after;
  DiffTolerances tolerances;
};

Json objectsJson(const std::vector<DiffObject>& objects) {
  Json list = Json::array();
  for (const DiffObject& object : objects)
    list.push_back({{"id", object.id.empty() ? Json() : Json(object.id)},
                    {"class", object.className},
                    {"name", object.name}});
  return list;
}

Json changeJson(const DiffChange& change) {
  Json json{{"kind", changeKindName(change.kind)},
            {"path", change.path.empty() ? Json() : Json(change.path)},
            {"old", change.before},
            {"new", change.after}};
  if (change.kind == ChangeKind::placement) {
    json["length"] = change.length;
    json["angle"] = change.angle;
  }
  return json;
}

void printJson(const StudyDiff& diff) {
  Json changed = Json::array();
  for (const ChangedObject& object : diff.changed) {
    Json changes = Json::array();
    for (const DiffChange& change : object.changes) changes.push_back(changeJson(change));
    changed.push_back({{"id", object.object.id.empty() ? Json() : Json(object.object.id)},
                       {"changes", std::move(changes)}});
  }
  std::cout << jsonText({{"equal", diff.equal()},
                         {"added", objectsJson(diff.added)},
                         {"removed", objectsJson(diff.removed)},
                         {"changed", std::move(changed)}},
                        2)
            << '\n';
}

std::string objectText(const DiffObject& object) {
  std::string text = object.className + (object.id.empty() ? " without id" : " \"" + object.id + "\"");
  if (object.name.is_string() && !object.name.empty()) text += ", " + object.name.get<std::string>();
  return printable(text);
}

std::string valueText(const Json& value) { return value.is_null() ? "none" : printable(jsonText(value)); }

std::string placeText(const Json& place) {
  return locationText(
      RTTran3D({place["x"], place["y"], place["z"]}, {place["roll"], place["pitch"], place["yaw"]}));
}

// Ids of a list that the other one lacks.
std::string itemsText(const Json& list, const Json& other) {
  std::unordered_map<std::string, int, RWTextHash> left;
  for (const Json& item : other) ++left[item.dump()];
  std::string text;
  for (const Json& item : list)
    if (--left[item.dump()] < 0) text += (text.empty() ? "" : ", ") + printable(jsonText(item));
  return text;
}

std::string changeText(const DiffChange& change) {
  if (change.kind == ChangeKind::placement)
    return "by " + shortNumber(change.length) + " and " + shortNumber(change.angle) + " rad, from " +
           placeText(change.before) + " to " + placeText(change.after);
  if (change.before.is_array() && change.after.is_array()) {
    const std::string lost = itemsText(change.before, change.after);
    const std::string came = itemsText(change.after, change.before);
    if (lost.empty() && came.empty()) return "in another order";
    return (lost.empty() ? "" : "without " + lost) + (lost.empty() || came.empty() ? "" : ", ") +
           (came.empty() ? "" : "with " + came);
  }
  return valueText(change.before) + " -> " + valueText(change.after);
}

void printText(const StudyDiff& diff) {
  for (const DiffObject& object : diff.removed) std::cout << "removed  " << objectText(object) << '\n';
  for (const DiffObject& object : diff.added) std::cout << "added    " << objectText(object) << '\n';
  for (const ChangedObject& object : diff.changed) {
    std::cout << "changed  " << objectText(object.object) << '\n';
    Table table;
    for (const DiffChange& change : object.changes) {
      const bool isField = change.kind == ChangeKind::field || change.kind == ChangeKind::parent;
      table.row(
          {isField ? printable(change.path) : std::string(changeKindName(change.kind)), changeText(change)});
    }
    table.print(std::cout, "    ");
  }
  if (diff.equal())
    std::cout << "no object differs\n";
  else
    std::cout << diff.removed.size() << " removed, " << diff.added.size() << " added, " << diff.changed.size()
              << " changed\n";
}

int run(const Tool& tool, const DiffArguments& arguments) {
  IXMLDOMDocument before, after;
  if (!canReadBoth("OLD", arguments.before, "NEW", arguments.after) || !loadStudy(arguments.before, before) ||
      !loadStudy(arguments.after, after))
    return exitFailure;
  StudyDiff diff;
  {
    const Progress progress("comparing");
    diff = diffStudies(before, after, arguments.tolerances);
  }
  tool.json ? printJson(diff) : printText(diff);
  return diff.equal() ? exitSuccess : exitFindings;
}

}  // namespace

void addDiffCommand(CLI::App& app, Tool& tool) {
  CLI::App* command = app.add_subcommand("diff", "Tell what differs between two studies, object by object");
  command->footer(
      "Objects are found by their ids; their order, the order of their fields and white space between "
      "elements\n"
      "say nothing. The exit code is 0 for equal studies, 1 for different ones, 2 for a file that cannot be "
      "opened.\n\n"
      "Example: zelstudy diff cell.xml new.xml");
  const auto arguments = std::make_shared<DiffArguments>();
  command->add_option("OLD", arguments->before, "The study as it was")->required()->type_name("");
  command->add_option("NEW", arguments->after, "The study as it is")->required()->type_name("");
  command
      ->add_option("--tolerance-length", arguments->tolerances.length,
                   "Placements this far apart are the same, in the unit of the study")
      ->type_name("X")
      ->capture_default_str()
      ->check(CLI::NonNegativeNumber);
  command->add_option("--tolerance-angle", arguments->tolerances.angle, "The same for angles, in radians")
      ->type_name("Y")
      ->capture_default_str()
      ->check(CLI::NonNegativeNumber);
  addCommonOptions(*command, tool);
  command->callback([&tool, arguments] { tool.run = [&tool, arguments] { return run(tool, *arguments); }; });
}

}  // namespace zelstudy
