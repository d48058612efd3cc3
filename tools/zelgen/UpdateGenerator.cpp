#include "UpdateGenerator.h"

#include <string_view>
#include <vector>

#include "StudyChanges.h"

namespace zelgen {
namespace {

class Generator : public StudyChanges {
 public:
  Generator(const UpdateOptions& options, const IXMLDOMDocument& document)
      : StudyChanges(options.seed, document), options_(options) {}

  void draw();
  bool write(const ChunkSink& sink);

 private:
  void vanish();
  void move();

  const UpdateOptions options_;
  std::size_t vanished_ = 0, moved_ = 0, changed_ = 0;
};

void Generator::draw() {
  vanish();
  move();
  Random changes = random(ChangeStream::Changed);
  const auto changed = take(changes, options_.changed, [](const UpdateStudy::Object&) { return true; });
  change(changes, changed);
  changed_ = changed.size();
  addLeaves(share(options_.added));
  applyListEdits();
}

void Generator::vanish() {
  Random random = this->random(ChangeStream::Vanished);
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
  Random random = this->random(ChangeStream::Moved);
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

bool Generator::write(const ChunkSink& sink) {
  XmlWriter xml(sink, true);
  const auto number = [](auto value) { return std::to_string(value); };
  xml.raw("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Data>\n");
  xml.raw("  <!-- zelgen update seed=" + number(options_.seed) + ": " + number(added_.size()) + " new, " +
          number(changed_) + " changed, " + number(moved_) + " moved, " + number(vanished_) +
          " vanished -->\n  <Objects>\n");
  writeTouched(xml);
  writeAdded(xml);
  xml.raw("  </Objects>\n</Data>\n");
  return xml.finish();
}

}  // namespace

std::optional<std::string> whyRefused(const UpdateOptions& options) {
  return whySharesRefused({{"new", options.added},
                           {"changed", options.changed},
                           {"moved", options.moved},
                           {"vanished", options.vanished}},
                          "changed, moved and vanished", options.changed + options.moved + options.vanished);
}

bool generateUpdate(const UpdateOptions& options, const IXMLDOMDocument& study, const ChunkSink& sink,
                    std::string& reason) {
  return generateFrom<Generator>(options, study, sink, reason);
}

}  // namespace zelgen
