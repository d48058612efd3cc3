#include "ExternalGenerator.h"

#include <array>
#include <string_view>
#include <vector>

#include "ObjectWriter.h"
#include "StudyChanges.h"

namespace zelgen {
namespace {

constexpr std::uint32_t kLargestTree = 9;

// An import of resources stops at the first equipment.
bool isImportable(const UpdateStudy::Object& object) {
  return object.element.nodeName() != "PmEquipmentInstance";
}

class Generator : public StudyChanges {
 public:
  Generator(const ExternalOptions& options, const IXMLDOMDocument& document)
      : StudyChanges(options.seed, document), options_(options), isDrawn_(study_.objects.size()) {}

  void draw();
  bool write(const ChunkSink& sink);

 private:
  /// A prototype with its representation and its file, as far as there are: objects of the study, or new
  /// ones.
  struct Prototype {
    std::array<Index, 3> known = {kNone, kNone, kNone};
    std::array<IdText, 3> ids = {};
    bool isNew = false, isPart = true;
    std::string name;
    std::array<std::uint8_t, 3> order = {0, 1, 2};
    std::uint32_t ahead = 0;  ///< how many of them stand ahead of the instances
  };
  /// A shortcut of the external study with its study info and their layout.
  struct Shortcut {
    std::array<Index, 3> known = {kNone, kNone, kNone};
    std::array<IdText, 3> ids = {};
    std::size_t target = 0;  ///< of a new one: position in `added_`
    bool isAhead = false;
    bool hasFamily = true;
  };

  void takeUnchanged();
  void takeOthers(Random& random);
  void touch(Index index);
  void changeClasses();
  void addTrees(std::size_t count);
  void drawPrototypes();
  void drawPrototype(Random& random, Prototype prototype);
  void drawShortcuts();
  bool hasMarvekInfos() const { return infoClass() == "MarvekStudyInfo"; }
  std::string infoClass() const { return std::string(studyElement_.nodeName()) + "Info"; }
  Index referenceOf(Index index, std::string_view field) const;
  void dropFamily(const IXMLDOMElement& element);

  void writeStudy(XmlWriter& xml);
  void writePrototypes(XmlWriter& xml, bool ahead);
  void writeShortcuts(XmlWriter& xml, bool ahead);

  const ExternalOptions options_;
  IXMLDOMElement studyElement_;  ///< null when the study has no study object
  IdText studyId_ = {};
  std::vector<char> isDrawn_;  ///< prototypes, representations and files that are in already
  std::vector<Prototype> prototypes_;
  std::vector<Shortcut> shortcuts_;
  std::vector<std::size_t> roots_;  ///< positions in `added_`
  std::size_t changed_ = 0, unchanged_ = 0, classChanges_ = 0;
  std::uint64_t number_ = 0;
};

void Generator::draw() {
  changeClasses();
  Random changes = random(ChangeStream::Changed);
  const auto changed = take(changes, options_.changed, isImportable);
  change(changes, changed);
  for (const Index i : changed) touch(i);
  changed_ = changed.size();
  takeUnchanged();
  const std::size_t added = share(options_.added);
  addLeaves((added + 1) / 2);
  addTrees(added / 2);
  drawPrototypes();
  drawShortcuts();
  applyListEdits();
}

void Generator::touch(Index index) {
  isTouched_[index] = true;
  if (study_.objects[index].layout != kNone) isTouched_[study_.objects[index].layout] = true;
}

void Generator::takeUnchanged() {
  Random random = this->random(ChangeStream::Unchanged);
  const auto unchanged = take(random, options_.unchanged, isImportable);
  for (const Index i : unchanged) touch(i);
  unchanged_ = unchanged.size();
  takeOthers(random);
}

// Not every import takes these over.
void Generator::takeOthers(Random& random) {
  for (Index i = 0; i < study_.objects.size(); ++i) {
    const std::string family = textOf(study_.objects[i].element, "NodeInfo/family");
    if (family != "Label" && family != "Operation" && family != "PmFlow") continue;
    if (!random.chance(options_.unchanged)) continue;
    isTouched_[i] = true;
    ++unchanged_;
  }
}

// An instance becomes a placeholder and the other way about: the element has another name, and nothing else.
void Generator::changeClasses() {
  Random random = this->random(ChangeStream::Classes);
  static constexpr std::pair<std::string_view, std::string_view> kOther[] = {
      {"PmPartInstance", "PmPartPlaceholder"},
      {"PmToolInstance", "PmResourcePlaceholder"},
      {"PmPartPlaceholder", "PmPartInstance"},
      {"PmResourcePlaceholder", "PmToolInstance"}};
  const auto otherOf = [](const UpdateStudy::Object& object) {
    for (const auto& [from, to] : kOther)
      if (object.element.nodeName() == from) return to;
    return std::string_view();
  };
  const auto fits = [&](const UpdateStudy::Object& object) { return !otherOf(object).empty(); };
  for (const Index i : takeCount(random, options_.classChanges, fits)) {
    auto& object = study_.objects[i];
    const IXMLDOMElement other = document_.createElement(otherOf(object));
    other.setAttribute("ExternalId", object.id);
    while (const IXMLDOMElement child = object.element.firstElementChild()) other.appendChild(child);
    object.element = other;
    touch(i);
    ++classChanges_;
  }
}

/// New compounds with leaves of their own, which the external study shows; `count` objects in all.
void Generator::addTrees(std::size_t count) {
  Random random = this->random(ChangeStream::Trees);
  while (count > 0) {
    const auto size = std::min<std::size_t>(count, random.between(2, kLargestTree));
    const bool isPart = random.chance(60);
    AddedObject root = newLeaf(random, isPart);
    root.prototype.clear();
    root.isCompound = true;
    root.name = (isPart ? "Added group " : "Added cell ") + std::to_string(added_.size() + 1);
    root.absolute = root.relative;
    const std::size_t at = added_.size();
    roots_.push_back(at);
    added_.push_back(std::move(root));
    for (std::size_t i = 1; i < size; ++i) {
      AddedObject leaf = newLeaf(random, isPart);
      leaf.parent = std::string_view(added_[at].id);
      leaf.parentLayout = std::string_view(added_[at].layoutId);
      leaf.absolute = compose(added_[at].absolute, leaf.relative);
      added_[at].children.push_back(added_.size());
      added_.push_back(std::move(leaf));
    }
    count -= size;
  }
}

Generator::Index Generator::referenceOf(Index index, std::string_view field) const {
  return index == kNone ? kNone : study_.find(textOf(study_.objects[index].element, field));
}

void Generator::drawPrototypes() {
  Random random = this->random(ChangeStream::Prototypes);
  const auto drawKnown = [&](std::string_view id) {
    Prototype prototype;
    const Index index = study_.find(id);
    // Of some instances only the study has the prototype.
    if (index == kNone || std::exchange(isDrawn_[index], true) || random.chance(10)) return;
    prototype.known = {index, referenceOf(index, "threeDRep"), kNone};
    prototype.known[2] = referenceOf(prototype.known[1], "file");
    for (const int i : {1, 2}) {  // which several prototypes may share
      Index& shared = prototype.known[static_cast<std::size_t>(i)];
      if (shared != kNone && std::exchange(isDrawn_[shared], true)) shared = kNone;
    }
    if (random.chance(20)) change(random, {index});
    isTouched_[index] = false;  // it has its own place in the document
    drawPrototype(random, std::move(prototype));
  };
  for (Index i = 0; i < study_.objects.size(); ++i)
    if (isTouched_[i]) drawKnown(textOf(study_.objects[i].element, "prototype"));
  for (AddedObject& added : added_) {
    if (added.prototype.empty()) continue;
    if (!random.chance(25)) {
      drawKnown(added.prototype);
      continue;
    }
    Prototype prototype;
    for (IdText& id : prototype.ids) id = newId();
    prototype.isNew = true;
    prototype.isPart = added.isPart;
    prototype.name = added.name + " prototype";
    added.prototype = std::string_view(prototype.ids[0]);
    drawPrototype(random, std::move(prototype));
  }
}

void Generator::drawPrototype(Random& random, Prototype prototype) {
  for (std::uint32_t i = 0; i < 2; ++i)
    std::swap(prototype.order[i], prototype.order[i + random.below(3 - i)]);
  prototype.ahead = random.below(4);
  prototypes_.push_back(std::move(prototype));
}

// Some of those that the study has, and one for each new tree.
void Generator::drawShortcuts() {
  for (const auto& object : study_.objects)
    if (!studyElement_ && textOf(object.element, "NodeInfo/family") == "Study")
      studyElement_ = object.element;
  if (!studyElement_) return;
  Random random = this->random(ChangeStream::Shortcuts);
  studyId_ = newId();
  const auto children = itemsOf(studyElement_, "children"), infos = itemsOf(studyElement_, "info");
  const std::size_t pairs = std::min(children.size(), infos.size());
  for (std::size_t i = 0; i < pairs; ++i) {
    Shortcut shortcut;
    shortcut.known = {study_.find(children[i]), study_.find(infos[i]), kNone};
    shortcut.known[2] = referenceOf(shortcut.known[1], "layout");
    if (shortcut.known[0] == kNone || shortcut.known[1] == kNone || random.chance(70)) continue;
    shortcut.isAhead = random.chance(50);
    shortcut.hasFamily = !hasMarvekInfos() || random.chance(50);
    setText(study_.objects[shortcut.known[0]].element, "parent", studyId_);
    if (!shortcut.hasFamily) dropFamily(study_.objects[shortcut.known[1]].element);
    // Of some shortcuts the document lacks the object.
    const Index target = referenceOf(shortcut.known[0], "linkExternalID");
    if (target != kNone && random.chance(70)) touch(target);
    shortcuts_.push_back(shortcut);
  }
  for (const std::size_t root : roots_) {
    Shortcut shortcut;
    for (IdText& id : shortcut.ids) id = newId();
    shortcut.target = root;
    shortcut.isAhead = random.chance(50);
    shortcut.hasFamily = !hasMarvekInfos() || random.chance(50);
    shortcuts_.push_back(shortcut);
  }
}

void Generator::dropFamily(const IXMLDOMElement& element) {
  IXMLDOMNode family;
  if (element.selectSingleNode("NodeInfo/family", family)) family.parentNode().removeChild(family);
}

bool Generator::write(const ChunkSink& sink) {
  XmlWriter xml(sink, true);
  const auto counted = [](auto value, const char* what) { return std::to_string(value) + what; };
  number_ = study_.lastNumber + 2 * added_.size();
  xml.raw("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Data>\n");
  xml.raw("  <!-- zelgen external seed=" + counted(options_.seed, ": ") + counted(added_.size(), " new, ") +
          counted(changed_, " changed, ") + counted(unchanged_, " unchanged, ") +
          counted(classChanges_, " of another class, ") + counted(prototypes_.size(), " prototypes, ") +
          counted(shortcuts_.size(), " shortcuts -->\n  <Objects>\n"));
  if (studyElement_) writeStudy(xml);
  writeShortcuts(xml, true);
  writePrototypes(xml, true);
  writeTouched(xml);
  writeAdded(xml);
  writePrototypes(xml, false);
  writeShortcuts(xml, false);
  xml.raw("  </Objects>\n</Data>\n");
  return xml.finish();
}

void Generator::writeStudy(XmlWriter& xml) {
  const auto list = [&](std::string_view field, std::size_t part) {
    xml.begin(field);
    for (const Shortcut& each : shortcuts_)
      xml.text("item", each.known[0] == kNone ? std::string_view(each.ids[part])
                                              : study_.objects[each.known[part]].id);
    xml.end(field);
  };
  xml.beginObject(studyElement_.nodeName(), studyId_);
  xml.text("name", "External study " + std::to_string(options_.seed));
  list("children", 0);
  list("info", 1);
  xml.nodeInfo("Study", ++number_);
  xml.endObject(studyElement_.nodeName());
}

void Generator::writePrototypes(XmlWriter& xml, bool ahead) {
  for (const Prototype& each : prototypes_) {
    for (std::uint32_t i = 0; i < each.order.size(); ++i) {
      if ((i < each.ahead) != ahead || xml.refused()) continue;
      const std::uint8_t part = each.order[i];
      if (!each.isNew) {
        if (each.known[part] != kNone) xml.object(study_.objects[each.known[part]].element.xml());
      } else if (part == 0) {
        writePrototype(xml, each.isPart, each.ids[0], each.name, each.ids[1], 1'500'000, ++number_);
      } else if (part == 1) {
        writeThreeDRep(xml, each.ids[1], each.ids[2], ++number_);
      } else {
        writeReferenceFile(xml, each.ids[2], "#\\external\\" + each.name + ".jt", ++number_);
      }
    }
  }
}

void Generator::writeShortcuts(XmlWriter& xml, bool ahead) {
  for (const Shortcut& each : shortcuts_) {
    if (each.isAhead != ahead || xml.refused()) continue;
    for (const Index known : each.known)
      if (known != kNone) xml.object(study_.objects[known].element.xml());
    if (each.known[0] != kNone) continue;
    const AddedObject& target = added_[each.target];
    writeShortcut(xml, each.ids[0], target.name, studyId_, target.id, ++number_);
    writeStudyInfo(xml, infoClass(), each.ids[1], each.ids[2],
                   each.hasFamily ? std::optional(++number_) : std::nullopt);
    writeStudyLayout(xml, each.ids[2], target.absolute, ++number_);
  }
}

}  // namespace

std::optional<std::string> whyRefused(const ExternalOptions& options) {
  return whySharesRefused(
      {{"new", options.added}, {"changed", options.changed}, {"unchanged", options.unchanged}},
      "changed and unchanged", options.changed + options.unchanged);
}

bool generateExternal(const ExternalOptions& options, const IXMLDOMDocument& study, const ChunkSink& sink,
                      std::string& reason) {
  return generateFrom<Generator>(options, study, sink, reason);
}

}  // namespace zelgen
