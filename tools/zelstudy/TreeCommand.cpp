#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "zelstudy/NodeJson.h"
#include "zelstudy/SaveFiles.h"
#include "zelstudy/StudyPlaces.h"
#include "zelstudy/StudySession.h"
#include "zelstudy/TextOutput.h"
#include "zelstudy/Tool.h"
#include "zelstudy/TreeWalk.h"

namespace zelstudy {

namespace {

// The places in the study of the objects on the way down, when they are asked for.
class WalkedPlaces {
 public:
  WalkedPlaces(const StudySession& study, bool wanted) : places_(study), wanted_(wanted) {}
  bool wanted() const { return wanted_; }

  std::optional<RTTran3D> enter(const ZelNode& node, std::size_t level) {
    if (!wanted_) return {};
    way_.resize(level);
    way_.push_back(level == 0 ? places_.of(node) : places_.below(way_.back(), node));
    return way_.back();
  }

 private:
  StudyPlaces places_;
  bool wanted_;
  std::vector<std::optional<RTTran3D>> way_;  // by level
};

// Writes while it walks, so that neither memory nor stack grows with the tree; all on one line, since an
// indent would make the text of a deep tree grow with the square of its depth.
class JsonTree : public TreeVisitor {
 public:
  explicit JsonTree(WalkedPlaces places) : places_(std::move(places)) {}
  void enter(const ZelNode& node, const TreePlace& place) override {
    if (!place.first) std::cout << ',';
    Json json = nodeHeadJson(node);
    const std::optional<RTTran3D> inStudy = places_.enter(node, place.level);
    if (places_.wanted()) json["studyLocation"] = inStudy ? locationJson(*inStudy) : Json();
    std::string head = jsonText(json);
    head.pop_back();
    std::cout << head << ",\"children\":[";
  }
  void leave(const TreePlace&) override { std::cout << "]}"; }

 private:
  WalkedPlaces places_;
};

class TextTree : public TreeVisitor {
 public:
  explicit TextTree(WalkedPlaces places) : places_(std::move(places)) {}
  void enter(const ZelNode& node, const TreePlace& place) override {
    if (place.level > maxDrawn) {
      std::cout << bars_ << faint("level " + std::to_string(place.level + 1) + ": ");
    } else if (place.level) {
      std::cout << bars_ << (place.last ? "└─ " : "├─ ");
    }
    RWClassicWString name, type;
    if (!node.getName(name) || name.empty()) name = "(no name)";
    node.getStringType(type);
    std::cout << printable(name) << "  " << faint(printable(type) + "  " + printable(idOf(node).text()));
    if (const auto inStudy = places_.enter(node, place.level)) std::cout << "  " << locationText(*inStudy);
    if (place.repeated) std::cout << "  ↺ stands under itself";
    std::cout << '\n';
    if (place.level && place.level <= maxDrawn) bars_ += place.last ? "   " : "│  ";
  }
  void leave(const TreePlace& place) override {
    if (place.level && place.level <= maxDrawn) bars_.resize(bars_.size() - (place.last ? 3 : 5));
  }

 private:
  // Levels below this one are numbered, not drawn: lines would grow out of all proportion.
  static constexpr std::size_t maxDrawn = 100;
  std::string bars_;
  WalkedPlaces places_;
};

struct TreeArguments {
  std::string file;
  std::size_t depth = 0;
  std::optional<std::string> root;
  bool places = false;
};

int run(const Tool& tool, const TreeArguments& arguments) {
  StudySession study;
  if (!openStudy(study, arguments.file, tool.session)) return exitFailure;
  ZelNodeList roots;
  if (arguments.root) {
    const ApiPmId id(*arguments.root);
    ZelNode* node = study.find(id);
    if (!node) {
      say(inputName(arguments.file) + ": " + study.whyNoNode(id));
      return exitFindings;
    }
    roots.append(node);
  } else {
    ApiPmIdList ids;
    study.wrapper().getRoots(ids);
    for (const ApiPmId& id : ids)
      if (ZelNode* node = study.find(id)) roots.append(node);
  }

  if (tool.json) {
    JsonTree visitor(WalkedPlaces(study, arguments.places));
    std::cout << '[';
    walkTree(roots, arguments.depth, visitor);
    std::cout << "]\n";
  } else {
    TextTree visitor(WalkedPlaces(study, arguments.places));
    walkTree(roots, arguments.depth, visitor);
  }
  return exitSuccess;
}

}  // namespace

void addTreeCommand(CLI::App& app, Tool& tool) {
  CLI::App* command = app.add_subcommand("tree", "Print the tree of a study, or a part of it");
  command->footer(
      "A child that several parents share stands under the one that counts. A study shows its objects by\n"
      "shortcuts: they are roots of their own here.\n\n"
      "Example: zelstudy tree cell.xml --depth 2 --root E-gripper");
  const auto arguments = std::make_shared<TreeArguments>();
  command->add_option("FILE", arguments->file, "The study")->required()->type_name("");
  command->add_option("--depth", arguments->depth, "Levels to print; 1 is the roots alone")
      ->check(CLI::Range(std::size_t{1}, std::size_t{1000000000}))
      ->type_name("N");
  command->add_option("--root", arguments->root, "Start from this object instead of the roots")
      ->type_name("ID");
  command->add_flag("--places", arguments->places,
                    "Tell where the objects stand in the study, from those that it shows down");
  addCommonOptions(*command, tool);
  command->callback([&tool, arguments] { tool.run = [&tool, arguments] { return run(tool, *arguments); }; });
}

}  // namespace zelstudy
