#include "StudyChanges.h"

namespace zelgen {

std::optional<std::string> whySharesRefused(
    std::initializer_list<std::pair<std::string_view, std::uint32_t>> shares, std::string_view exclusive,
    std::uint32_t together) {
  for (const auto& [what, percent] : shares) {
    if (percent > 100) return "the share of " + std::string(what) + " objects must be between 0 and 100";
  }
  if (together <= 100) return std::nullopt;
  return "the shares of " + std::string(exclusive) + " objects must not exceed 100 together";
}

bool StudyChanges::canBeDrawn(std::string& reason) const {
  IXMLDOMNode section;
  if (!document_.selectSingleNode("Data/Objects", section))
    reason = "no study: it has no Data/Objects";
  else if (compounds(Kind::Parts).empty() && compounds(Kind::Resources).empty())
    reason = "nothing to update: it has no compound part or compound resource with a placed layout";
  return reason.empty();
}

std::size_t StudyChanges::share(std::uint32_t percent) const {
  if (percent == 0) return 0;
  return std::max<std::size_t>(1, (study_.members.size() * percent + 50) / 100);
}

void StudyChanges::change(Random& random, const std::vector<Index>& objects) {
  for (const Index i : objects) {
    const IXMLDOMElement& element = study_.objects[i].element;
    const std::string revision = std::to_string(random.between(2, 99));
    const std::uint32_t what = random.below(3);
    if (what != 0) setText(element, "name", textOf(element, "name") + " rev. " + revision);
    if (what != 1) setText(element, "comment", "Revised: no. " + revision + ", gap < 0.5 mm & flush");
    isTouched_[i] = true;
  }
}

/// One entry for each instance: a prototype that an instance of the study has may have one more.
const std::vector<std::string>& StudyChanges::usedPrototypes(bool isPart) {
  for (const Index i : study_.members) {
    if (hasPrototypes_) break;
    const IXMLDOMElement& element = study_.objects[i].element;
    const bool ofPart = element.nodeName() == "PmPartInstance";
    if (!ofPart && element.nodeName() != "PmToolInstance") continue;
    std::string prototype = textOf(element, "prototype");
    if (study_.find(prototype) != kNone) prototypes_[ofPart].push_back(std::move(prototype));
  }
  hasPrototypes_ = true;
  return prototypes_[isPart];
}

AddedObject StudyChanges::newLeaf(Random& random, bool isPart) {
  AddedObject leaf;
  leaf.isPart = isPart;
  const auto& known = usedPrototypes(isPart);
  if (!known.empty() && !random.chance(10)) {
    leaf.prototype = known[random.below(static_cast<std::uint32_t>(known.size()))];
  }
  leaf.name = (isPart ? "Added part " : "Added tool ") + std::to_string(added_.size() + 1);
  const auto coordinate = [&] { return (Millionths{random.below(3'000'001)} - 1'500'000) * 1000; };
  leaf.relative.x = coordinate();
  leaf.relative.y = coordinate();
  leaf.relative.z = coordinate();
  leaf.relative.yaw = Millionths{random.below(6'283'185)} - 3'141'592;
  leaf.id = newId();
  leaf.layoutId = newId();
  return leaf;
}

void StudyChanges::addLeaves(std::size_t count) {
  Random random = this->random(ChangeStream::Added);
  std::vector<Index> parents;
  for (const Kind kind : {Kind::Parts, Kind::Resources})
    parents.insert(parents.end(), compounds(kind).begin(), compounds(kind).end());
  for (; count > 0; --count) {
    const Index index = parents[random.below(static_cast<std::uint32_t>(parents.size()))];
    const auto& parent = study_.objects[index];
    const auto& parentLayout = study_.objects[parent.layout];
    AddedObject leaf = newLeaf(random, parent.compound == Kind::Parts);
    leaf.parent = parent.id;
    leaf.parentLayout = parentLayout.id;
    leaf.absolute = compose(parentLayout.absolute, leaf.relative);
    edits_[index].added.emplace_back(std::string_view(leaf.id));
    edits_[parent.layout].added.emplace_back(std::string_view(leaf.layoutId));
    added_.push_back(std::move(leaf));
  }
}

IdText StudyChanges::newId() {
  IdText id = guid(scatter(streamSeed(ChangeStream::Ids) ^ ids_++));
  // A study that took in an update of the same seed has these ids already.
  while (study_.find(id) != kNone) id = guid(scatter(streamSeed(ChangeStream::Ids) ^ ids_++));
  return id;
}

void StudyChanges::setText(const IXMLDOMElement& element, std::string_view field, std::string_view text) {
  IXMLDOMNode found;
  if (!element.selectSingleNode(field, found)) {
    found = document_.createElement(field);
    element.appendChild(found);
  }
  found.putText(text);
}

void StudyChanges::setList(const IXMLDOMElement& element, std::string_view field,
                           const std::vector<std::string>& items) {
  setText(element, field, {});
  IXMLDOMNode list;
  element.selectSingleNode(field, list);
  for (const std::string& text : items) {
    const IXMLDOMElement item = document_.createElement("item");
    item.putText(text);
    list.appendChild(item);
  }
}

void StudyChanges::applyListEdits() {
  for (const auto& [index, edit] : edits_) {
    const IXMLDOMElement& element = study_.objects[index].element;
    std::vector<std::string> items = itemsOf(element, "children");
    std::erase_if(items, [&removed = edit.removed](const std::string& id) { return removed.contains(id); });
    items.insert(items.end(), edit.added.begin(), edit.added.end());
    setList(element, "children", items);
    isTouched_[index] = true;
  }
}

void StudyChanges::writeTouched(XmlWriter& xml) const {
  for (Index i = 0; i < study_.objects.size() && !xml.refused(); ++i) {
    if (isTouched_[i]) xml.object(study_.objects[i].element.xml());
  }
}

void StudyChanges::writeAdded(XmlWriter& xml) const {
  std::uint64_t number = study_.lastNumber;
  for (const AddedObject& added : added_) {
    if (xml.refused()) return;
    const std::string_view className =
        added.isCompound          ? (added.isPart ? "PmCompoundPart" : "PmCompoundResource")
        : added.prototype.empty() ? (added.isPart ? "PmPartPlaceholder" : "PmResourcePlaceholder")
                                  : (added.isPart ? "PmPartInstance" : "PmToolInstance");
    const auto list = [&](std::string_view field, auto idOf) {
      xml.begin(field);
      for (const std::size_t child : added.children) xml.text("item", idOf(added_[child]));
      xml.end(field);
    };
    xml.beginObject(className, added.id);
    xml.text("name", added.name);
    xml.begin("parents");
    if (!added.parent.empty()) xml.text("item", added.parent);
    xml.end("parents");
    if (added.isCompound) list("children", [](const AddedObject& child) { return child.id; });
    xml.text("layout", added.layoutId);
    if (!added.isCompound) xml.text("prototype", added.prototype);
    xml.nodeInfo(added.isPart ? "Product" : "Resource", ++number);
    xml.endObject(className);

    xml.beginObject("PmLayout", added.layoutId);
    xml.vectors(added.relative);
    if (added.children.empty())
      xml.empty("children");
    else
      list("children", [](const AddedObject& child) { return child.layoutId; });
    xml.text("parent", added.parentLayout.empty() ? "NULL" : added.parentLayout);
    xml.text("node", added.id);
    xml.nodeInfo("PmLayout", ++number, &added.absolute);
    xml.endObject("PmLayout");
  }
}

}  // namespace zelgen
