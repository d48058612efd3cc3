#include "UpdateGenerator.h"

#include <algorithm>
#include <map>
#include <set>
#include <string_view>
#include <vector>

#include "Random.h"
#include "UpdateStudy.h"
#include "XmlWriter.h"

namespace zelgen {
namespace {

using Index = UpdateStudy::Index;
using Kind = UpdateStudy::Kind;
constexpr Index kNone = UpdateStudy::kNone;

/// Streams of random numbers, one for each sort of change.
enum class Stream : std::uint64_t { Vanished = 1, Moved, Changed, Added, Ids };

std::uint64_t streamSeed(std::uint64_t seed, Stream stream) {
  return scatter(seed ^ (static_cast<std::uint64_t>(stream) << 56));
}

/// What happens to a `children` list.
struct ListEdit {
  std::set<std::string> removed;
  std::vector<std::string> added;
};

struct Added {
  IdText id, layoutId;
  Index parent;
  Placement relative;
  std::string prototype;  ///< empty for a placeholder
  std::string name;
};

class Generator {
 public:
  Generator(const UpdateOptions& options, const IXMLDOMDocument& document)
      : options_(options),
        document_(document),
        study_(document),
        isTouched_(study_.objects.size()),
        isTaken_(study_.objects.size()) {}

  bool hasCompounds() const { return !compounds(Kind::Parts).empty() || !compounds(Kind::Resources).empty(); }
  void draw();
  bool write(const ChunkSink& sink);

 private:
  const std::vector<Index>& compounds(Kind kind) const {
    return study_.compounds[static_cast<std::size_t>(kind)];
  }
  std::size_t share(std::uint32_t percent) const;
  template <typename Fits>
  std::vector<Index> take(Random& random, std::uint32_t percent, Fits fits);

  void vanish();
  void move();
  void change();
  void add();
  IdText newId();

  void setText(const IXMLDOMElement& element, std::string_view field, std::string_view text);
  void setList(const IXMLDOMElement& element, std::string_view field, const std::vector<std::string>& items);
  void applyListEdits();
  void writeAdded(XmlWriter& xml, std::size_t index);

  const UpdateOptions options_;
  const IXMLDOMDocument document_;
  UpdateStudy study_;
  std::vector<bool> isTouched_;  ///< goes into the update
  std::vector<bool> isTaken_;    ///< vanished, moved or changed
  std::map<Index, ListEdit> edits_;
  std::vector<Added> added_;
  std::size_t vanished_ = 0, moved_ = 0, changed_ = 0;
  std::uint64_t ids_ = 0;
};

std::size_t Generator::share(std::uint32_t percent) const {
  if (percent == 0) return 0;
  return std::max<std::size_t>(1, (study_.members.size() * percent + 50) / 100);
}

/// A share of the members that are not taken yet and fit, in the order in which they are drawn.
template <typename Fits>
std::vector<Index> Generator::take(Random& random, std::uint32_t percent, Fits fits) {
  std::vector<Index> found;
  for (const Index i : study_.members) {
    if (!isTaken_[i] && fits(study_.objects[i])) found.push_back(i);
  }
  const std::size_t wanted = std::min(share(percent), found.size());
  for (std::size_t i = 0; i < wanted; ++i) {
    std::swap(found[i], found[i + random.below(static_cast<std::uint32_t>(found.size() - i))]);
    isTaken_[found[i]] = true;
  }
  found.resize(wanted);
  return found;
}

void Generator::draw() {
  vanish();
  move();
  change();
  add();
  applyListEdits();
}

void Generator::vanish() {
  Random random(streamSeed(options_.seed, Stream::Vanished));
  // Not what has two parents: who takes the update in meets it twice, and the second time it is not there.
  const auto fits = [&](const UpdateStudy::Object& object) {
    return object.isLeaf && !object.isWanted && object.parentItems == 1 && object.layout != kNone &&
           !study_.objects[object.layout].isWanted;
  };
  for (const Index i : take(random, options_.vanished, fits)) {
    const auto& object = study_.objects[i];
    for (const Index parent : object.parents) edits_[parent].removed.insert(object.id);
    const auto& layout = study_.objects[object.layout];
    if (layout.parentLayout != kNone) edits_[layout.parentLayout].removed.insert(layout.id);
    ++vanished_;
  }
}

void Generator::move() {
  Random random(streamSeed(options_.seed, Stream::Moved));
  const auto fits = [&](const UpdateStudy::Object& object) {
    if (!object.isLeaf || object.parentItems != 1 || object.layout == kNone) return false;
    const auto& layout = study_.objects[object.layout];
    const auto& parent = study_.objects[object.parents[0]];
    return !layout.isWanted && layout.parentLayout == parent.layout && compounds(parent.compound).size() > 1;
  };
  for (const Index i : take(random, options_.moved, fits)) {
    const auto& object = study_.objects[i];
    const Index from = object.parents[0];
    const auto& others = compounds(study_.objects[from].compound);
    // Any but its own: the last one stands in for that.
    Index to = others[random.below(static_cast<std::uint32_t>(others.size() - 1))];
    if (to == from) to = others.back();
    const auto& layout = study_.objects[object.layout];
    const Index toLayout = study_.objects[to].layout;
    edits_[from].removed.insert(object.id);
    edits_[to].added.push_back(object.id);
    edits_[layout.parentLayout].removed.insert(layout.id);
    edits_[toLayout].added.push_back(layout.id);
    setList(object.element, "parents", {study_.objects[to].id});
    setText(layout.element, "parent", study_.objects[toLayout].id);
    const Placement absolute = compose(study_.objects[toLayout].absolute, layout.relative);
    IXMLDOMNode holder;
    layout.element.selectSingleNode("NodeInfo/absoluteLocation", holder);
    const IXMLDOMElement fields(holder);
    setText(fields, "x", decimal(absolute.x));
    setText(fields, "y", decimal(absolute.y));
    setText(fields, "z", decimal(absolute.z));
    setText(fields, "rx", decimal(absolute.roll));
    setText(fields, "ry", decimal(absolute.pitch));
    setText(fields, "rz", decimal(absolute.yaw));
    isTouched_[i] = isTouched_[object.layout] = true;
    ++moved_;
  }
}

void Generator::change() {
  Random random(streamSeed(options_.seed, Stream::Changed));
  for (const Index i : take(random, options_.changed, [](const UpdateStudy::Object&) { return true; })) {
    const IXMLDOMElement& element = study_.objects[i].element;
    const std::string revision = std::to_string(random.between(2, 99));
    const std::uint32_t what = random.below(3);
    if (what != 0) setText(element, "name", textOf(element, "name") + " rev. " + revision);
    if (what != 1) setText(element, "comment", "Revised: no. " + revision + ", gap < 0.5 mm & flush");
    isTouched_[i] = true;
    ++changed_;
  }
}

void Generator::add() {
  Random random(streamSeed(options_.seed, Stream::Added));
  std::vector<Index> parents;
  std::vector<std::string> prototypes[3];
  for (const Kind kind : {Kind::Parts, Kind::Resources}) {
    parents.insert(parents.end(), compounds(kind).begin(), compounds(kind).end());
    // A prototype that an instance of the study has may have one more.
    for (const Index i : study_.members) {
      const IXMLDOMElement& element = study_.objects[i].element;
      const bool fits = element.nodeName() == (kind == Kind::Parts ? "PmPartInstance" : "PmToolInstance");
      if (!fits) continue;
      std::string prototype = textOf(element, "prototype");
      if (study_.find(prototype) != kNone) prototypes[static_cast<std::size_t>(kind)].push_back(prototype);
    }
  }
  for (std::size_t i = share(options_.added); i > 0; --i) {
    Added each;
    each.parent = parents[random.below(static_cast<std::uint32_t>(parents.size()))];
    const auto& parent = study_.objects[each.parent];
    const bool isPart = parent.compound == Kind::Parts;
    const auto& known = prototypes[static_cast<std::size_t>(parent.compound)];
    if (!known.empty() && !random.chance(10)) {
      each.prototype = known[random.below(static_cast<std::uint32_t>(known.size()))];
    }
    each.name = (isPart ? "Added part " : "Added tool ") + std::to_string(added_.size() + 1);
    const auto coordinate = [&] { return (Millionths{random.below(3'000'001)} - 1'500'000) * 1000; };
    each.relative.x = coordinate();
    each.relative.y = coordinate();
    each.relative.z = coordinate();
    each.relative.yaw = Millionths{random.below(6'283'185)} - 3'141'592;
    each.id = newId();
    each.layoutId = newId();
    edits_[each.parent].added.emplace_back(std::string_view(each.id));
    edits_[parent.layout].added.emplace_back(std::string_view(each.layoutId));
    added_.push_back(std::move(each));
  }
}

IdText Generator::newId() {
  IdText id = guid(scatter(streamSeed(options_.seed, Stream::Ids) ^ ids_++));
  // A study that took in an update of the same seed has these ids already.
  while (study_.find(id) != kNone) id = guid(scatter(streamSeed(options_.seed, Stream::Ids) ^ ids_++));
  return id;
}

void Generator::setText(const IXMLDOMElement& element, std::string_view field, std::string_view text) {
  IXMLDOMNode found;
  if (!element.selectSingleNode(field, found)) {
    found = document_.createElement(field);
    element.appendChild(found);
  }
  found.putText(text);
}

void Generator::setList(const IXMLDOMElement& element, std::string_view field,
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

void Generator::applyListEdits() {
  for (const auto& [index, edit] : edits_) {
    const IXMLDOMElement& element = study_.objects[index].element;
    std::vector<std::string> items = itemsOf(element, "children");
    std::erase_if(items, [&removed = edit.removed](const std::string& id) { return removed.contains(id); });
    items.insert(items.end(), edit.added.begin(), edit.added.end());
    setList(element, "children", items);
    isTouched_[index] = true;
  }
}

bool Generator::write(const ChunkSink& sink) {
  XmlWriter xml(sink, true);
  const auto number = [](auto value) { return std::to_string(value); };
  xml.raw("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Data>\n");
  xml.raw("  <!-- zelgen update seed=" + number(options_.seed) + ": " + number(added_.size()) + " new, " +
          number(changed_) + " changed, " + number(moved_) + " moved, " + number(vanished_) +
          " vanished -->\n  <Objects>\n");
  for (Index i = 0; i < study_.objects.size() && !xml.refused(); ++i) {
    if (isTouched_[i]) xml.object(study_.objects[i].element.xml());
  }
  for (std::size_t i = 0; i < added_.size() && !xml.refused(); ++i) writeAdded(xml, i);
  xml.raw("  </Objects>\n</Data>\n");
  return xml.finish();
}

void Generator::writeAdded(XmlWriter& xml, std::size_t index) {
  const Added& added = added_[index];
  const auto& parent = study_.objects[added.parent];
  const auto& parentLayout = study_.objects[parent.layout];
  const bool isPart = parent.compound == Kind::Parts, isInstance = !added.prototype.empty();
  const std::string_view className = isPart ? (isInstance ? "PmPartInstance" : "PmPartPlaceholder")
                                            : (isInstance ? "PmToolInstance" : "PmResourcePlaceholder");
  const std::uint64_t internal = study_.lastNumber + 1 + 2 * index;
  xml.beginObject(className, added.id);
  xml.text("name", added.name);
  xml.begin("parents");
  xml.text("item", parent.id);
  xml.end("parents");
  xml.text("layout", added.layoutId);
  xml.text("prototype", added.prototype);
  xml.nodeInfo(isPart ? "Product" : "Resource", internal);
  xml.endObject(className);

  const Placement absolute = compose(parentLayout.absolute, added.relative);
  xml.beginObject("PmLayout", added.layoutId);
  xml.vectors(added.relative);
  xml.empty("children");
  xml.text("parent", parentLayout.id);
  xml.text("node", added.id);
  xml.nodeInfo("PmLayout", internal + 1, &absolute);
  xml.endObject("PmLayout");
}

}  // namespace

std::optional<std::string> whyRefused(const UpdateOptions& options) {
  const std::pair<std::string_view, std::uint32_t> shares[] = {{"new", options.added},
                                                               {"changed", options.changed},
                                                               {"moved", options.moved},
                                                               {"vanished", options.vanished}};
  for (const auto& [what, percent] : shares) {
    if (percent > 100) return "the share of " + std::string(what) + " objects must be between 0 and 100";
  }
  if (options.changed + options.moved + options.vanished > 100) {
    return "the shares of changed, moved and vanished objects must not exceed 100 together";
  }
  return std::nullopt;
}

bool generateUpdate(const UpdateOptions& options, const IXMLDOMDocument& study, const ChunkSink& sink,
                    std::string& reason) {
  IXMLDOMNode section;
  if (!study.selectSingleNode("Data/Objects", section)) {
    reason = "no study: it has no Data/Objects";
    return false;
  }
  Generator generator(options, study);
  if (!generator.hasCompounds()) {
    reason = "nothing to update: it has no compound part or compound resource with a placed layout";
    return false;
  }
  generator.draw();
  return generator.write(sink);
}

}  // namespace zelgen
