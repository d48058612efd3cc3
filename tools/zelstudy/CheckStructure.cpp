#include <algorithm>

#include "zelstudy/CheckModel.h"

// The tree of the objects, and their labels.

namespace zelstudy {

namespace {

// Members of a cycle that a finding names.
constexpr std::size_t maxNamed = 20;

void checkRepeated(CheckModel& model, std::uint32_t index, const CheckList& list, std::string_view field,
                   std::vector<std::uint32_t>& values) {
  values.clear();
  for (const CheckRef ref : model.list(list))
    if (!ref.isNone()) values.push_back(ref.value());
  std::sort(values.begin(), values.end());
  for (std::size_t i = 1; i < values.size(); ++i) {
    if (values[i] != values[i - 1] || (i > 1 && values[i] == values[i - 2])) continue;
    for (const CheckRef ref : model.list(list)) {
      if (ref.value() != values[i]) continue;
      const std::string_view id = ref.isObject() ? model.at(ref).id : std::string_view(model.lostId(ref));
      model.report(Rule::repeated, index, field,
                   model.name(index) + " lists " + shown(id) + " more than once in " + std::string(field),
                   {id});
      break;
    }
  }
}

void checkParents(CheckModel& model, const CheckTree& tree, std::uint32_t index) {
  const CheckObject& object = model.at(index);
  for (const CheckRef parent : model.list(object.parents)) {
    if (parent.isLost()) {
      const std::string& id = model.lostId(parent);
      model.report(Rule::parentLost, index, "parents",
                   model.name(index) + " has the parent " + shown(id) + ", and no object has that id", {id});
    } else if (parent.isObject() && !tree.children.contains(parent.index(), index)) {
      model.report(Rule::parentWithoutChild, index, "parents",
                   model.name(index) + " has the parent " + model.name(parent.index()) +
                       ", whose children do not hold it",
                   {model.at(parent).id});
    }
  }
}

bool isPart(const CheckObject& object) {
  return object.kind == CheckKind::placed && !object.isResource && !object.isProcessAssembly;
}

void checkChildren(CheckModel& model, const CheckTree& tree, std::uint32_t index) {
  const CheckObject& object = model.at(index);
  for (const CheckRef child : model.list(object.children)) {
    if (!child.isObject()) continue;
    if (isPart(object) && model.at(child).isResource)
      model.report(Rule::resourceInPart, child.index(), "parents",
                   model.name(child.index()) + " is a resource below the part " + model.name(index),
                   {object.id});
    if (tree.parents.contains(index, child.index())) continue;
    // An occurrence knows its prototype by a field of its own.
    if (object.kind == CheckKind::equipmentPrototype && model.at(child).parentPrototype.is(index)) continue;
    model.report(
        Rule::childWithoutParent, index, "children",
        model.name(index) + " has the child " + model.name(child.index()) + ", whose parents do not hold it",
        {model.at(child).id});
  }
}

void checkLabels(CheckModel& model, const CheckPairs& labels, std::uint32_t index) {
  const CheckObject& object = model.at(index);
  for (const CheckRef label : model.list(object.labels)) {
    if (!label.isObject()) continue;
    if (model.at(label).kind != CheckKind::label) {
      model.report(
          Rule::referenceKind, index, "labels",
          model.name(index) + " lists " + model.name(label.index()) + " in labels, which is no label",
          {model.at(label).id});
      continue;
    }
    const CheckRef node = model.at(label).node;
    // Where the object that the label names does not list it, the label is at fault, below.
    if (node.isObject() && !node.is(index) && labels.contains(node.index(), label.index()))
      model.report(Rule::labelNode, index, "labels",
                   model.name(index) + " lists " + model.name(label.index()) + ", which belongs to " +
                       model.name(node.index()),
                   {model.at(label).id, model.at(node).id});
  }
  if (object.kind != CheckKind::label) return;
  if (object.node.isLost()) {
    const std::string& id = model.lostId(object.node);
    model.report(Rule::referenceLeft, index, "node",
                 model.name(index) + " names " + shown(id) + " in node, and no object has that id", {id});
  } else if (object.node.isObject() && !labels.contains(object.node.index(), index)) {
    model.report(Rule::labelNode, index, "node",
                 model.name(index) + " belongs to " + model.name(object.node.index()) +
                     ", whose labels do not hold it",
                 {model.at(object.node).id});
  }
}

// Depth first over all `children`, without recursion: a study may be as deep as it likes.
void checkCycles(CheckModel& model) {
  enum State : std::uint8_t { unseen, open, done };
  struct Step {
    std::uint32_t index;
    std::uint32_t next;  // position in its children
  };
  std::vector<State> states(model.size(), unseen);
  std::vector<Step> path;
  for (std::uint32_t start = 0; start < model.size(); ++start) {
    if (states[start] != unseen || model.at(start).isStray) continue;
    states[start] = open;
    path.push_back({start, 0});
    while (!path.empty()) {
      const std::uint32_t index = path.back().index;
      const auto children = model.list(model.at(index).children);
      if (path.back().next == children.size()) {
        states[index] = done;
        path.pop_back();
        continue;
      }
      const CheckRef child = children[path.back().next++];
      if (!child.isObject()) continue;
      if (states[child.index()] == unseen) {
        states[child.index()] = open;
        path.push_back({child.index(), 0});
      } else if (states[child.index()] == open) {
        auto member =
            std::find_if(path.begin(), path.end(), [&](const Step& s) { return child.is(s.index); });
        const auto length = path.end() - member;
        std::vector<std::string_view> others;
        for (++member; member != path.end() && others.size() < maxNamed; ++member)
          others.push_back(model.at(member->index).id);
        const bool layouts = model.at(child).kind == CheckKind::layout;
        model.report(layouts ? Rule::layoutCycle : Rule::cycle, child.index(), "children",
                     model.name(child.index()) + " stands under itself, by way of " +
                         (length == 1 ? "its own children" : model.name(index)),
                     others);
      }
    }
  }
}

}  // namespace

void checkStructure(CheckModel& model) {
  const CheckTree tree(model);
  CheckPairs labels;
  for (std::uint32_t i = 0; i < model.size(); ++i)
    if (!model.at(i).isStray)
      for (const CheckRef label : model.list(model.at(i).labels))
        if (label.isObject()) labels.add(i, label.index());
  labels.sort();

  std::vector<std::uint32_t> values;
  for (std::uint32_t i = 0; i < model.size(); ++i) {
    const CheckObject& object = model.at(i);
    if (object.isStray) continue;
    checkRepeated(model, i, object.children, "children", values);
    checkRepeated(model, i, object.parents, "parents", values);
    checkRepeated(model, i, object.info, "info", values);
    checkRepeated(model, i, object.labels, "labels", values);
    checkLabels(model, labels, i);
    // Layouts and studies have children of another kind.
    if (object.kind == CheckKind::layout || object.kind == CheckKind::studyLayout ||
        object.kind == CheckKind::study) {
      continue;
    }
    checkParents(model, tree, i);
    checkChildren(model, tree, i);
  }
  checkCycles(model);
}

}  // namespace zelstudy
