#include "zelstudy/CheckModel.h"

// Studies, their shortcuts and study infos.

namespace zelstudy {

namespace {

std::string counted(std::uint32_t count, std::string_view what) {
  return std::to_string(count) + " " + std::string(what);
}

void checkListedShortcut(CheckModel& model, std::uint32_t study, std::uint32_t index) {
  const CheckObject& shortcut = model.at(index);
  if (!shortcut.parent.is(study))
    model.report(Rule::shortcutParent, index, "parent",
                 model.name(index) + " does not name " + model.name(study) + " in parent, which lists it",
                 {model.at(study).id});
  if (shortcut.link.isObject()) return;
  std::vector<std::string_view> others;
  if (shortcut.link.isLost()) others.emplace_back(model.lostId(shortcut.link));
  model.report(
      Rule::shortcutTarget, index, "linkExternalID",
      model.name(index) + (others.empty() ? " links to nothing"
                                          : " links to " + shown(others[0]) + ", and no object has that id"),
      others);
}

// Marks what the study lists. `targets` says which study links to an object already, and by which shortcut.
struct Listed {
  std::vector<bool> objects;
  struct Target {
    CheckRef study, shortcut;
  };
  std::vector<Target> targets;
};

void checkStudyObject(CheckModel& model, std::uint32_t study, Listed& listed) {
  const CheckObject& object = model.at(study);
  if (object.children.count != object.info.count)
    model.report(Rule::studyLists, study, "info",
                 model.name(study) + " has " + counted(object.children.count, "children") + " and " +
                     counted(object.info.count, "infos"));
  for (const CheckRef ref : model.list(object.children)) {
    if (!ref.isObject()) continue;
    if (model.at(ref).kind != CheckKind::shortcut) {
      model.report(
          Rule::referenceKind, study, "children",
          model.name(study) + " lists " + model.name(ref.index()) + " in children, which is no shortcut",
          {model.at(ref).id});
      continue;
    }
    if (listed.objects[ref.index()]) continue;
    listed.objects[ref.index()] = true;
    checkListedShortcut(model, study, ref.index());
    const CheckRef link = model.at(ref).link;
    if (!link.isObject()) continue;
    Listed::Target& target = listed.targets[link.index()];
    if (target.study.is(study)) {
      model.report(Rule::shortcutTwice, ref.index(), "linkExternalID",
                   model.name(ref.index()) + " links to " + model.name(link.index()) + ", and so does " +
                       model.name(target.shortcut.index()),
                   {model.at(link).id, model.at(target.shortcut).id});
    } else {
      target = {CheckRef::object(study), ref};
    }
  }
  for (const CheckRef ref : model.list(object.info)) {
    if (!ref.isObject()) continue;
    listed.objects[ref.index()] = true;
    if (model.at(ref).kind != CheckKind::studyInfo)
      model.report(
          Rule::referenceKind, study, "info",
          model.name(study) + " lists " + model.name(ref.index()) + " in info, which is no study info",
          {model.at(ref).id});
  }
}

}  // namespace

void checkShortcuts(CheckModel& model) {
  Listed listed;
  listed.objects.resize(model.size());
  listed.targets.resize(model.size());
  CheckRef first;
  for (std::uint32_t i = 0; i < model.size(); ++i) {
    if (model.at(i).kind != CheckKind::study || model.at(i).isStray) continue;
    if (first.isNone()) {
      first = CheckRef::object(i);
    } else {
      model.report(Rule::studySeveral, i, {},
                   model.name(i) + " is a study beside " + model.name(first.index()), {model.at(first).id});
    }
    checkStudyObject(model, i, listed);
  }
  for (std::uint32_t i = 0; i < model.size(); ++i) {
    const CheckObject& object = model.at(i);
    if (object.isStray) continue;
    if (object.kind == CheckKind::shortcut && !listed.objects[i])
      model.report(Rule::shortcutUnlisted, i, "parent", model.name(i) + " is listed by no study");
    if (object.kind != CheckKind::studyInfo) continue;
    if (!listed.objects[i]) model.report(Rule::infoUnlisted, i, {}, model.name(i) + " is listed by no study");
    if (object.layout.isNone()) model.report(Rule::infoLayout, i, "layout", model.name(i) + " has no layout");
  }
}

}  // namespace zelstudy
