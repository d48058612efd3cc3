#include "zelstudy/CheckModel.h"

#include <algorithm>
#include <iterator>

#include "api/ApiPmClassTypes.h"

namespace zelstudy {

namespace {

bool namesNothing(std::string_view id) { return id.empty() || id == "NULL"; }

CheckKind kindOfFamily(std::string_view family) {
  static const std::unordered_map<std::string_view, CheckKind> kinds = {
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

// What the class types tell of an element name; asked once per name.
struct ClassFacts {
  bool known = false;
  bool studyInfo = false;
  std::string family;
};

const ClassFacts& classFacts(std::unordered_map<std::string_view, ClassFacts>& cache,
                             std::string_view className) {
  const auto [entry, isNew] = cache.try_emplace(className);
  ClassFacts& facts = entry->second;
  if (isNew) {
    facts.known = ApiPmClassTypeDataMgr::the().find(className) != nullptr;
    facts.studyInfo = ApiVorToolsClassTypesWrapper::the().IsDerivedFromClass(className, "PmStudyInfo");
    ApiPmClassTypeDataMgr::the().getFamilyFromClassName(className, facts.family);
  }
  return facts;
}

}  // namespace

CheckModel::CheckModel(const IXMLDOMDocument& document, bool strict) : document_(document), strict_(strict) {
  collect(document);
  std::unordered_map<std::string_view, ClassFacts> classes;
  for (std::uint32_t i = 0; i < size(); ++i) {
    CheckObject& object = objects_[i];
    const ClassFacts& facts = classFacts(classes, object.element.nodeName());
    IXMLDOMElement familyElement;
    for (IXMLDOMElement child = object.element.firstElementChild(); child;
         child = child.nextElementSibling()) {
      if (child.nodeName() != "NodeInfo") continue;
      for (IXMLDOMElement field = child.firstElementChild(); field; field = field.nextElementSibling())
        if (field.nodeName() == "family") familyElement = field;
      break;
    }
    const std::string_view family = text(familyElement);
    object.isProcessAssembly = object.element.nodeName() == "PmDvProcessAssembly";
    object.kind =
        facts.studyInfo ? CheckKind::studyInfo : kindOfFamily(family.empty() ? facts.family : family);
    if (!facts.known) report(Rule::classUnknown, i, {}, name(i) + ": the class is not known");
    if (facts.studyInfo || facts.family.empty()) continue;
    if (family.empty()) {
      report(Rule::familyMissing, i, "family", name(i) + " has no family; its class has " + facts.family);
    } else if (family != facts.family) {
      report(Rule::familyClass, i, "family",
             name(i) + " has the family " + std::string(family) + "; its class has " + facts.family);
    }
  }
  for (std::uint32_t i = 0; i < size(); ++i) readObject(i);
}

void CheckModel::collect(const IXMLDOMDocument& document) {
  IXMLDOMNodeList sections;
  document.selectNodes("Data/Objects", sections);
  for (const IXMLDOMNode& section : sections) {
    for (IXMLDOMElement element = section.firstElementChild(); element;
         element = element.nextElementSibling()) {
      CheckObject& object = objects_.emplace_back();
      object.element = element;
      element.getAttribute("ExternalId", object.id);
      if (namesNothing(object.id)) object.id = {};
    }
  }
  byId_.reserve(objects_.size());
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
CheckRef CheckModel::readReference(const IXMLDOMElement& element) {
  const IXMLDOMElement group = element.firstElementChild();
  if (!group) return resolve(text(element));
  if (group.nodeName() != "BrimID") return {};
  for (IXMLDOMElement part = group.firstElementChild(); part; part = part.nextElementSibling())
    if (part.nodeName() == "ProcessModelID") return resolve(text(part));
  return {};
}

CheckList CheckModel::readList(const IXMLDOMElement& element) {
  CheckList list{static_cast<std::uint32_t>(refs_.size()), 0};
  for (IXMLDOMElement item = element.firstElementChild(); item; item = item.nextElementSibling()) {
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
  if (!object.id.empty()) text.append(" \"").append(object.id).append("\"");
  return text;
}

void CheckModel::report(Rule rule, std::uint32_t object, std::string_view field, std::string text,
                        const std::vector<std::string_view>& others) {
  const CheckRule& told = checkRule(rule);
  if (told.strict && !strict_) return;
  Finding finding;
  finding.code = told.code;
  finding.severity = told.severity;
  finding.line = objects_[object].element.line();
  finding.field = field;
  finding.text = std::move(text);
  finding.remedy = told.remedy;
  if (!objects_[object].id.empty()) finding.ids.emplace_back(objects_[object].id);
  for (const std::string_view other : others) finding.ids.emplace_back(other);
  reports_.push_back({object, std::move(finding)});
}

std::vector<Finding> CheckModel::takeFindings() {
  std::stable_sort(reports_.begin(), reports_.end(),
                   [](const Report& a, const Report& b) { return a.object < b.object; });
  std::vector<Finding> findings;
  findings.reserve(reports_.size());
  for (Report& report : reports_) findings.push_back(std::move(report.finding));
  reports_.clear();
  return findings;
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

std::vector<Finding> checkStudy(const IXMLDOMDocument& document, bool strict) {
  CheckModel model(document, strict);
  checkStructure(model);
  checkLayouts(model);
  checkShortcuts(model);
  return model.takeFindings();
}

}  // namespace zelstudy
