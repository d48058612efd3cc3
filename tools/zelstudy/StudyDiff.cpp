#include "zelstudy/StudyDiff.h"

#include <algorithm>
#include <map>
#include <optional>

#include "document/ZelXmlFields.h"
#include "rw/RWTextHash.h"
#include "zelstudy/DiffModel.h"
#include "zelstudy/DiffPlacements.h"

namespace zelstudy {

namespace {

using Index = DiffModel::Index;
using Side = DiffModel::Side;

bool isParentField(std::string_view path) {
  return path == "parents" || path == "parent" || path == "parentPrototype";
}

class Differ {
 public:
  Differ(const IXMLDOMDocument& before, const IXMLDOMDocument& after, const DiffTolerances& tolerances)
      : model_(before, after), placements_(model_, tolerances) {}

  StudyDiff run() {
    const auto& pairs = model_.pairs();
    for (Index i = 0; i < pairs.size(); ++i) {
      if (pairs[i].before().isEqualNode(pairs[i].after())) continue;  // almost all
      if (pairs[i].before().nodeName() != pairs[i].after().nodeName())
        changes_[i].push_back(
            {ChangeKind::className, "", pairs[i].before().nodeName(), pairs[i].after().nodeName()});
      if (auto fields = compareFields(pairs[i].before(), pairs[i].after()); !fields.empty())
        fields_.emplace(i, std::move(fields));
    }
    for (auto& [pair, fields] : fields_) interpret(pair, fields);

    StudyDiff diff;
    for (auto& [pair, changes] : changes_) {
      if (changes.empty()) continue;
      std::stable_sort(changes.begin(), changes.end(),
                       [](const DiffChange& a, const DiffChange& b) { return a.kind < b.kind; });
      diff.changed.push_back({describe(pairs[pair].before()), std::move(changes)});
    }
    for (const Side side : {Side::earlier, Side::later})
      for (const Index i : model_.alone(side))
        (side == Side::earlier ? diff.removed : diff.added).push_back(describe(model_.objects(side)[i]));
    return diff;
  }

 private:
  static DiffObject describe(const IXMLDOMElement& element) {
    std::string_view id;
    element.getAttribute("ExternalId", id);
    return {zelXmlIsReference(id) ? std::string(id) : std::string(), std::string(element.nodeName()),
            fieldJson(childOf(element, "name"))};
  }

  void interpret(Index pair, std::vector<FieldChange>& fields) {
    const LayoutFields layout(model_.pairs()[pair]);
    bool isPlaced = false;
    for (FieldChange& field : fields) {
      const bool isLayoutParent = layout.readable && field.path == "parent";
      if (layout.covers(field.path) || isLayoutParent) isPlaced = true;
      if (layout.covers(field.path) || isTold(pair, field, isLayoutParent)) continue;
      if (field.path == "layout") tellAll(placements_.ofNewLayout(pair));
      const ChangeKind kind = field.path == "name"        ? ChangeKind::name
                              : isParentField(field.path) ? ChangeKind::parent
                                                          : ChangeKind::field;
      changes_[pair].push_back({kind, field.path, std::move(field.before), std::move(field.after)});
    }
    if (isPlaced) tellAll(placements_.ofLayout(pair));
  }

  void tellAll(std::vector<PlacedChange> placed) {
    for (PlacedChange& each : placed) changes_[each.pair].push_back(std::move(each.change));
  }

  // Whether a change of a list, or of the parent of a layout, follows from changes that are told of others.
  bool isTold(Index pair, const FieldChange& field, bool isLayoutParent) {
    if (isLayoutParent) return followsOwner(pair, field);
    if (field.path == "children" || field.path == "labels") return followsMembers(pair, field);
    return field.path == "info" && followsShortcuts(pair, field);
  }

  // Of an item that one version of a list has and the other has not: whether the object comes or goes itself,
  // or tells the same of its parents. `having` is the version that has it.
  bool isMemberTold(Index pair, const std::string& item, Side having) {
    const std::string_view list = model_.pairs()[pair].id;
    const Side lacking = having == Side::earlier ? Side::later : Side::earlier;
    const IXMLDOMElement member = model_.find(having, item), other = model_.find(lacking, item);
    if (!member) return false;
    if (!other)
      return having == Side::earlier || model_.belongsTo(member, list) || model_.belongsToNone(member);
    return model_.belongsTo(member, list) && !model_.belongsTo(other, list);
  }

  // The items that both versions have, in their order; nothing when another one is not told elsewhere.
  std::optional<std::vector<std::string>> common(Index pair, const Json& list, const Json& other,
                                                 Side having) {
    std::unordered_set<std::string, RWTextHash> others(other.begin(), other.end());
    std::vector<std::string> kept;
    for (const Json& each : list) {
      const std::string item = each.get<std::string>();
      if (others.contains(item))
        kept.push_back(item);
      else if (!isMemberTold(pair, item, having))
        return {};
    }
    return kept;
  }

  bool followsMembers(Index pair, const FieldChange& field) {
    // A list that comes or goes as a whole makes a compound of an object, or a leaf.
    const bool isWhole = field.before.is_null() || field.after.is_null();
    if (isWhole && (field.path == "children" || field.before.empty() == field.after.empty())) return false;
    for (const Json* list : {&field.before, &field.after}) {
      if (!list->is_null() && !list->is_array()) return false;
      for (const Json& item : *list)
        if (!item.is_string()) return false;
    }
    const auto before = common(pair, field.before, field.after, Side::earlier);
    return before && before == common(pair, field.after, field.before, Side::later);
  }

  // The infos of a study belong to the shortcuts at the same places of `children`.
  bool followsShortcuts(Index pair, const FieldChange& field) {
    if (!field.before.is_array() || !field.after.is_array()) return false;
    const Infos before = infosOf(pair, Side::earlier), after = infosOf(pair, Side::later);
    const auto isFound = [&](const Infos& infos, const Infos& others, Side having) {
      return std::all_of(infos.ofShortcut.begin(), infos.ofShortcut.end(), [&](const auto& each) {
        const auto same = others.ofShortcut.find(each.first);
        return same == others.ofShortcut.end() ? isMemberTold(pair, each.first, having)
                                               : same->second == each.second;
      });
    };
    return before.rest == after.rest && isFound(before, after, Side::earlier) &&
           isFound(after, before, Side::later);
  }

  struct Infos {
    std::map<std::string, std::string> ofShortcut;
    std::vector<std::string> rest;  // without a shortcut of its own
  };
  Infos infosOf(Index pair, Side side) const {
    const IXMLDOMElement& study = model_.pairs()[pair].versions[side];
    const auto shortcuts = itemTexts(study, "children"), infos = itemTexts(study, "info");
    Infos result;
    for (std::size_t i = 0; i < infos.size(); ++i)
      if (i >= shortcuts.size() || !result.ofShortcut.emplace(shortcuts[i], infos[i]).second)
        result.rest.push_back(infos[i]);
    return result;
  }

  // A layout moves to the layout of the parent that its object moves to.
  bool followsOwner(Index pair, const FieldChange& field) const {
    const Index owner = placements_.ownerOf(pair);
    const auto changes = fields_.find(owner);
    if (changes == fields_.end() ||
        std::none_of(changes->second.begin(), changes->second.end(),
                     [](const FieldChange& each) { return isParentField(each.path); }))
      return false;
    const IXMLDOMElement& object = model_.pairs()[owner].after();
    auto parents = itemTexts(object, "parents");
    parents.push_back(childText(object, "parentPrototype"));
    const std::string now = field.after.is_string() ? field.after.get<std::string>() : std::string();
    bool hasPlacedParent = false;
    for (const std::string& parent : parents) {
      const std::string layout = childText(model_.find(Side::later, parent), "layout");
      hasPlacedParent |= zelXmlIsReference(layout);
      if (zelXmlIsReference(layout) && layout == now) return true;
    }
    return !hasPlacedParent && !zelXmlIsReference(now);
  }

  DiffModel model_;
  DiffPlacements placements_;
  std::map<Index, std::vector<FieldChange>> fields_;
  std::map<Index, std::vector<DiffChange>> changes_;
};

}  // namespace

std::string_view changeKindName(ChangeKind kind) {
  constexpr std::string_view names[] = {"class", "name", "parent", "placement", "field"};
  return names[static_cast<std::size_t>(kind)];
}

StudyDiff diffStudies(const IXMLDOMDocument& before, const IXMLDOMDocument& after,
                      const DiffTolerances& tolerances) {
  return Differ(before, after, tolerances).run();
}

}  // namespace zelstudy
