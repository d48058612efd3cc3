#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "zel/ZelCollection.h"
#include "zel/ZelPhysical.h"
#include "zel/ZelVorLabel.h"
#include "zelstudy/NodeJson.h"
#include "zelstudy/NodeNames.h"
#include "zelstudy/SaveFiles.h"
#include "zelstudy/StudyPlaces.h"
#include "zelstudy/StudySession.h"
#include "zelstudy/TextOutput.h"
#include "zelstudy/Tool.h"

namespace zelstudy {

namespace {

constexpr int interfaceNumbers = 256;

Json interfacesJson(const ZelNode& node) {
  Json numbers = Json::array();
  for (int number = 0; number < interfaceNumbers; ++number)
    if (node.queryInterface(static_cast<ZelNode::InterfaceType>(number))) numbers.push_back(number);
  return numbers;
}

// What an operation of an interface answers: null when the node does not serve it or answers false.
template <class Interface, class Value>
Json askJson(const ZelNode& node, bool (Interface::*operation)(Value&) const, Json (*json)(const Value&)) {
  const auto* interface = zelQuery<Interface>(&node);
  Value value;
  return interface && (interface->*operation)(value) ? json(value) : Json();
}

// From the object that the study shows down to this one, each with its own placement.
Json placesJson(const StudyPlaces& places, const ZelNode& node) {
  Json list = Json::array();
  for (const ZelNode* each : places.way(node)) {
    const std::optional<RTTran3D> location = locationOf(*each);
    list.push_back({{"id", idJson(idOf(*each))}, {"location", location ? locationJson(*location) : Json()}});
  }
  return list;
}

Json nodeJson(const StudySession& study, const ZelNode& node, const ApiPmId& id, bool withPlaces) {
  ApiPmId shortcut;
  const bool hasShortcut = study.wrapper().findShortcut(id, shortcut);
  Json json = nodeHeadJson(node);
  json["caption"] = textJson(node, &ZelNode::getCaption);
  json["description"] = textJson(node, &ZelNode::getDescription);
  json["parentId"] = parentIdJson(node);
  json["interfaces"] = interfacesJson(node);
  json["location"] = askJson(node, &ZelPhysical::getLocation, &locationJson);
  json["absoluteLocation"] = askJson(node, &ZelPhysical::getAbsoluteLocation, &locationJson);
  if (withPlaces) {
    const StudyPlaces places(study);
    const std::optional<RTTran3D> place = places.of(node);
    json["studyLocation"] = place ? locationJson(*place) : Json();
    json["places"] = placesJson(places, node);
  }
  json["children"] = askJson(node, &ZelCollection::getChildrenIds, &idsJson);
  json["labels"] = askJson(node, &ZelVorLabelsContainer::getLabels, &idsJson);
  json["shortcutId"] = hasShortcut ? idJson(shortcut) : Json();
  json["fields"] = fieldsJson(study.elementOf(id));
  return json;
}

std::string placeText(const Json& place) {
  std::string text;
  for (const auto& [axis, number] : place.items())
    text += (text.empty()     ? ""
             : axis == "roll" ? "   "
                              : "  ") +
            axis + " " + shortNumber(number.get<double>());
  return text;
}

std::string interfaceText(const Json& number) {
  const std::string_view name = interfaceName(number.get<int>());
  return number.dump() + (name.empty() ? "" : " " + std::string(name));
}

// The value of a field on one line.
std::string fieldText(const Json& value) {
  if (value.is_null()) return "-";
  if (value.is_string()) return printable(value.get<std::string>());
  if (value.is_number_float()) return shortNumber(value.get<double>());
  if (value.is_object() && value.contains("x")) return placeText(value);
  if (!value.is_array()) return jsonText(value);
  std::string text;
  for (const Json& each : value) text += (text.empty() ? "" : ", ") + fieldText(each);
  return text.empty() ? "none" : text;
}

// One row per value; a list takes a line per entry, and what is null has no row.
void printText(const Json& json) {
  Table table;
  for (const auto& [key, value] : json.items()) {
    if (value.is_null()) continue;
    std::vector<std::string> lines;
    if (key == "type") {
      lines = {value.dump() + " " + std::string(nodeTypeName(value.get<int>()))};
    } else if (key == "interfaces") {
      std::string text;
      for (const Json& number : value) text += (text.empty() ? "" : ", ") + interfaceText(number);
      lines = {text};
    } else if (key == "places") {
      for (const Json& each : value)
        lines.push_back((each["location"].is_null() ? "no place" : placeText(each["location"])) + "   " +
                        (each["id"].is_null() ? "-" : printable(each["id"].get<std::string>())));
      if (lines.empty()) lines = {"no study shows it"};
    } else if (key == "fields") {
      for (const auto& [name, field] : value.items()) lines.push_back(name + ": " + fieldText(field));
    } else if (value.is_array()) {
      for (const Json& id : value) lines.push_back(id.is_null() ? "-" : printable(id.get<std::string>()));
      if (lines.empty()) lines = {"none"};
    } else if (value.is_object()) {
      lines = {placeText(value)};
    } else {
      lines = {printable(value.get<std::string>())};
    }
    for (std::size_t i = 0; i < lines.size(); ++i) table.row({i ? "" : key, lines[i]});
  }
  table.print(std::cout);
}

struct ShowArguments {
  std::string file;
  std::string id;
  bool places = false;
};

int run(const Tool& tool, const ShowArguments& arguments) {
  StudySession study;
  if (!openStudy(study, arguments.file, tool.session)) return exitFailure;
  const ApiPmId id(arguments.id);
  const ZelNode* node = study.find(id);
  if (!node) {
    say(inputName(arguments.file) + ": " + study.whyNoNode(id));
    return exitFindings;
  }
  const Json json = nodeJson(study, *node, id, arguments.places);
  if (tool.json) {
    std::cout << jsonText(json, 2) << '\n';
  } else {
    printText(json);
  }
  return exitSuccess;
}

}  // namespace

void addShowCommand(CLI::App& app, Tool& tool) {
  CLI::App* command = app.add_subcommand("show", "Tell everything about one object");
  command->footer(
      "Lengths are in the unit of the study, angles in radians. absoluteLocation is that of the layout;\n"
      "--places tells where the object stands in the study, from what that shows by a shortcut down.\n\n"
      "Example: zelstudy show cell.xml E-gripper");
  const auto arguments = std::make_shared<ShowArguments>();
  command->add_option("FILE", arguments->file, "The study")->required()->type_name("");
  command->add_option("ID", arguments->id, "Id of the object")->required()->type_name("");
  command->add_flag("--places", arguments->places,
                    "Tell the place in the study, and the placements that make it up");
  addCommonOptions(*command, tool);
  command->callback([&tool, arguments] { tool.run = [&tool, arguments] { return run(tool, *arguments); }; });
}

}  // namespace zelstudy
