#include "zelstudy/CheckModel.h"

#include <algorithm>
#include <iterator>

#include "api/ApiPmClassTypes.h"
#include "rw/RWTextHash.h"

namespace zelstudy {

namespace {

bool namesNothing(std::string_view id) { return id.empty() || id == "NULL"; }

CheckKind kindOfFamily(std::string_view family) {
  static const std::unordered_map<std::string_view, CheckKind, RWTextHash> kinds = {
      {"Study", CheckKind::study},
      {"Shortcut", CheckKind::shortcut},
      {"MarvekStudyInfo", CheckKind::studyInfo},
      {"PmLayout", CheckKind::layout},
      {"PmStudyLayout", CheckKind::studyLayout},
      {"Product", CheckKind::placed},
      {"Resource", CheckKind::placed},
      {"EquipmentPrototype", CheckKind::equipmentPrototype},
      {"Label", CheckKind::label},
      {"ExternalDocument", CheckKind::threeDRep},
  };
  const auto found = kinds.find(family);
  return found == kinds.end() ? CheckKind::other : found->second;
}

}  // namespace

// What the class types tell of an element name, asked once per name. Of one that is a slip of a known class
// it is what they tell of that.
struct CheckModel::ClassFacts {
  std::string_view known;  // the class itself, or the one that was meant; empty for an unknown class
  bool misspelt = false;
  bool studyInfo = false;
  std::string family;
};

const CheckModel::ClassFacts& CheckModel::classFacts(
    std::unordered_map<std::string_view, ClassFacts, RWTextHash>& cache, std::string_view className) {
  const auto [entry, isNew] = cache.try_emplace(className);
  ClassFacts& facts = entry->second;
  if (!isNew) return facts;
  const auto& types = ApiPmClassTypeDataMgr::the();
  const ApiPmClassType* type = types.find(className);
  facts.misspelt = type == nullptr;
  if (!type) type = types.findMisspelt(className);
  if (!type) return facts;
  facts.known = type->name;
  facts.studyInfo = ApiVorToolsClassTypesWrapper::the().IsDerivedFromClass(facts.known, "PmStudyInfo");
  types.getFamilyFromClassName(facts.known, facts.family);
  return facts;
}

CheckModel::CheckModel(const IXMLDOMDocument& document, const CheckOptions& options)
    : document_(document), strict_(options.strict), findings_(options.limit) {
  collect();
  std::unordered_map<std::string_view, ClassFacts, RWTextHash> classes;
  for (std::uint32_t i = 0; i < size(); ++i)
    decideKind(i, classFacts(classes, objects_[i].element.nodeName()));
  for (std::uint32_t i = 0; i < size(); ++i) readObject(i);
}

void CheckModel::decideKind(std::uint32_t index, const ClassFacts& facts) {
  CheckObject& object = objects_[index];
  DomView familyElement;
  for (DomView child = object.element.firstElementChild(); child; child = child.nextElementSibling()) {
    if (child.nodeName() != "NodeInfo") continue;
    for (DomView field = child.firstElementChild(); field; field = field.nextElementSibling())
      if (field.nodeName() == "family") familyElement = field;
    break;
  }
  const std::string_view family = text(familyElement);
  // A class of its own, which only looks like the known one.
  const bool isOther = facts.known.empty() || (facts.misspelt && !family.empty() && family != facts.family);
  const std::string_view usual = isOther ? std::string_view() : facts.family;
  object.isProcessAssembly = !isOther && facts.known == "PmDvProcessAssembly";
  object.isResource = (family.empty() ? usual : family) == "Resource";
  object.kind =
      facts.studyInfo && !isOther ? CheckKind::studyInfo : kindOfFamily(family.empty() ? usual : family);
  if (isOther) {
    report(Rule::classUnknown, index, {}, name(index) + ": the class is not known");
  } else if (facts.misspelt) {
    report(Rule::classMisspelt, index, {},
           name(index) + ": the class is not known, but " + std::string(facts.known) + " is");
  } else if (facts.studyInfo || usual.empty()) {
    return;
  } else if (family.empty()) {
    report(Rule::familyMissing, index, "family",
           name(index) + " has no family; its class has " + facts.family);
  } else if (family != facts.family) {
    report(Rule::familyClass, index, "family",
           name(index) + " has the family " + shown(family) + "; its class has " + facts.family);
  }
}

void CheckModel::collect() {
  std::vector<DomView> sections;
  std::size_t count = 0, withId = 0;
  const auto visit = [&](const auto& each) {
    for (const DomView section : sections)
      for (DomView element = section.firstElementChild(); element; element = element.nextElementSibling())
        each(element);
  };
  for (DomView root = DomView(document_).firstElementChild(); root; root = {})
    if (root.nodeName() == "Data")
      for (DomView each = root.firstElementChild(); each; each = each.nextElementSibling())
        if (each.nodeName() == "Objects") sections.push_back(each);
  visit([&](DomView) { ++count; });
  objects_.reserve(count);  // exactly: there may be millions
  visit([&](DomView element) {
    CheckObject& object = objects_.emplace_back();
    object.element = element;
    element.getAttribute("ExternalId", object.id);
    if (namesNothing(object.id)) object.id = {};
    withId += !object.id.empty();
  });
  byId_.reserve(withId);
  for (std::uint32_t i = 0; i < size(); ++i) {
    if (objects_[i].id.empty()) {
      objects_[i].isStray = true;
      report(Rule::idMissing, i, "ExternalId", name(i) + " has no id");
      continue;
    }
    const auto [entry, isNew] = byId_.emplace(objects_[i].id, i);
    if (isNew) continue;
    objects_[i].isStray = true;
    const unsigned line = objects_[entry->second].element.line();
    report(Rule::idDuplicate, i, "ExternalId",
           name(i) + " has the id of " + name(entry->second) +
               (line ? ", line " + std::to_string(line) : ", which stands before it"));
  }
}

CheckRef CheckModel::resolve(std::string_view id) {
  if (namesNothing(id)) return {};
  if (const auto found = byId_.find(id); found != byId_.end()) return CheckRef::object(found->second);
  const auto [entry, isNew] =
      lostByText_.try_emplace(std::string(id), static_cast<std::uint32_t>(lostIds_.size()));
  if (isNew) lostIds_.emplace_back(id);
  return CheckRef::lost(entry->second);
}

// The id may stand in a group of its own, beside a relative part.
CheckRef CheckModel::readReference(DomView element) {
  const DomView group = element.firstElementChild();
  if (!group) return resolve(text(element));
  if (group.nodeName() != "BrimID") return {};
  for (DomView part = group.firstElementChild(); part; part = part.nextElementSibling())
    if (part.nodeName() == "ProcessModelID") return resolve(text(part));
  return {};
}

CheckList CheckModel::readList(DomView element) {
  CheckList list{static_cast<std::uint32_t>(refs_.size()), 0};
  for (DomView item = element.firstElementChild(); item; item = item.nextElementSibling()) {
    if (item.nodeName() != "item") continue;
    refs_.push_back(readReference(item));
    ++list.count;
  }
  return list;
}

bool CheckModel::namesElement(const std::string& id) const {
  IXMLDOMElement found;
  return document_.findByAttribute("ExternalId", id, found);
}

std::string CheckModel::name(std::uint32_t index) const {
  const CheckObject& object = objects_[index];
  std::string text(object.element.nodeName());
  if (!object.id.empty()) text.append(" ").append(shown(object.id));
  return text;
}

void CheckModel::report(Rule rule, std::uint32_t object, std::string_view field, std::string text,
                        const std::vector<std::string_view>& others) {
  const CheckRule& told = checkRule(rule);
  if ((told.strict && !strict_) || !findings_.count(rule, object)) return;
  Finding finding;
  finding.code = told.code;
  finding.severity = told.severity;
  finding.line = objects_[object].element.line();
  finding.field = field;
  finding.text = std::move(text);
  finding.remedy = told.remedy;
  if (!objects_[object].id.empty()) finding.ids.emplace_back(objects_[object].id);
  for (const std::string_view other : others) finding.ids.emplace_back(other);
  findings_.add(rule, object, std::move(finding));
}

std::string shown(std::string_view text) {
  constexpr std::size_t longest = 200, kept = 90;
  if (text.size() <= longest) return "\"" + std::string(text) + "\"";
  // Not within a character.
  const auto isInside = [&](std::size_t at) { return (text[at] & 0xC0) == 0x80; };
  std::size_t end = kept, start = text.size() - kept;
  while (end > 0 && isInside(end)) --end;
  while (start < text.size() && isInside(start)) ++start;
  return "\"" + std::string(text.substr(0, end)) + "..." + std::string(text.substr(start)) + "\"";
}

void CheckPairs::sort() { std::sort(pairs_.begin(), pairs_.end()); }

bool CheckPairs::contains(std::uint32_t first, std::uint32_t second) const {
  return std::binary_search(pairs_.begin(), pairs_.end(), std::uint64_t{first} << 32 | second);
}

CheckTree::CheckTree(const CheckModel& model) {
  for (std::uint32_t i = 0; i < model.size(); ++i) {
    const CheckObject& object = model.at(i);
    if (object.isStray) continue;
    for (const CheckRef child : model.list(object.children))
      if (child.isObject()) children.add(i, child.index());
    for (const CheckRef parent : model.list(object.parents))
      if (parent.isObject()) parents.add(parent.index(), i);
  }
  children.sort();
  parents.sort();
}

CheckResult checkStudy(const IXMLDOMDocument& document, const CheckOptions& options) {
  CheckModel model(document, options);
  checkStructure(model);
  checkLayouts(model);
  checkShortcuts(model);
  return model.takeFindings();
}

}  // namespace zelstudy
