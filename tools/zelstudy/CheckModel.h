#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "dom/DomView.h"
#include "dom/IXMLDOMDocument.h"
#include "rt/RTTran3D.h"
#include "rw/RWTextHash.h"
#include "zelstudy/CheckFindings.h"
#include "zelstudy/StudyCheck.h"

namespace zelstudy {

// What an object is to the rules.
enum class CheckKind : std::uint8_t {
  other,
  study,
  shortcut,
  studyInfo,
  layout,
  studyLayout,
  placed,  // parts and resources
  equipmentPrototype,
  label,
  threeDRep,
};

// What a reference names: an object by its position, nothing ("" or "NULL"), or an id that no object has.
class CheckRef {
 public:
  CheckRef() = default;
  static CheckRef object(std::uint32_t index) { return CheckRef(index); }
  static CheckRef lost(std::uint32_t text) { return CheckRef(text | lostBit); }
  bool isNone() const { return value_ == none; }
  bool isObject() const { return !(value_ & lostBit); }
  bool isLost() const { return !isNone() && !isObject(); }
  bool is(std::uint32_t object) const { return value_ == object; }
  std::uint32_t index() const { return value_; }            // of isObject
  std::uint32_t text() const { return value_ & ~lostBit; }  // of isLost
  std::uint32_t value() const { return value_; }

 private:
  explicit CheckRef(std::uint32_t value) : value_(value) {}
  static constexpr std::uint32_t none = 0xFFFFFFFF, lostBit = 0x80000000;
  std::uint32_t value_ = none;
};

struct CheckList {
  std::uint32_t first = 0;
  std::uint32_t count = 0;
};

// The numbers of a layout, as far as they read.
struct CheckPlacement {
  RTVec3D location, rotation, absoluteLocation, absoluteRotation;
  bool relative = false;  // whether they all read
  bool absolute = false;
};

struct CheckObject {
  DomView element;
  std::string_view id;
  CheckKind kind = CheckKind::other;
  bool isStray = false;  // without id, or with that of an earlier object: no reference reaches it
  bool isProcessAssembly = false;
  bool isResource = false;     // of the placed ones
  bool parentIsEmpty = false;  // `parent` is there, with no text
  CheckList children, parents, info, labels;
  CheckRef layout, node, parent, link, parentPrototype;
  CheckRef owner;               // of a layout: the object that names it
  std::uint32_t placement = 0;  // of a layout: position among the placements
};

// A study document as the rules see it: every object with its references resolved. Reading it reports what is
// wrong with a single field: ids, families, numbers, references that name nothing.
class CheckModel {
 public:
  CheckModel(const IXMLDOMDocument& document, const CheckOptions& options);

  std::vector<CheckObject>& objects() { return objects_; }
  const CheckObject& at(std::uint32_t index) const { return objects_[index]; }
  const CheckObject& at(CheckRef ref) const { return objects_[ref.index()]; }
  std::uint32_t size() const { return static_cast<std::uint32_t>(objects_.size()); }
  std::span<const CheckRef> list(const CheckList& list) const {
    return {refs_.data() + list.first, list.count};
  }
  const std::string& lostId(CheckRef ref) const { return lostIds_[ref.text()]; }
  const CheckPlacement& placement(const CheckObject& layout) const { return placements_[layout.placement]; }

  // `class "id"`, a long id shortened.
  std::string name(std::uint32_t index) const;
  // Reports a finding about an object; the ids of `others` follow its own. Strict rules are dropped unless
  // asked for.
  void report(Rule rule, std::uint32_t object, std::string_view field, std::string text,
              const std::vector<std::string_view>& others = {});
  CheckResult takeFindings() { return findings_.take(); }

 private:
  struct Field;
  struct ClassFacts;
  static const ClassFacts& classFacts(std::unordered_map<std::string_view, ClassFacts, RWTextHash>& cache,
                                      std::string_view className);
  static const Field* findField(std::string_view name);

  void collect();
  void decideKind(std::uint32_t index, const ClassFacts& facts);
  void readObject(std::uint32_t index);
  void readField(std::uint32_t index, const Field& field, DomView element);
  void readPlacement(std::uint32_t index, DomView nodeInfo);
  bool readVector(std::uint32_t index, std::string_view field, DomView list, RTVec3D& vector);
  bool readNumber(std::uint32_t index, std::string_view field, DomView element, double& value);
  void checkNumber(std::uint32_t index, std::string_view field, DomView element, bool whole);
  void checkLabelLocation(std::uint32_t index, DomView element);
  CheckRef resolve(std::string_view id);
  CheckRef readReference(DomView element);
  CheckList readList(DomView element);
  void reportLost(std::uint32_t index, const Field& field, CheckRef ref);
  // Whether an element within an object has an id that no object has.
  bool namesElement(const std::string& id) const;
  std::string_view text(DomView node) { return node.textView(buffer_); }

  IXMLDOMDocument document_;
  bool strict_;
  std::vector<CheckObject> objects_;
  std::unordered_map<std::string_view, std::uint32_t, RWTextHash> byId_;
  std::vector<CheckRef> refs_;
  std::vector<std::string> lostIds_;
  std::unordered_map<std::string, std::uint32_t, RWTextHash> lostByText_;
  std::vector<CheckPlacement> placements_;
  std::string buffer_;
  CheckFindings findings_;
};

// Rules between objects, by subject.
void checkStructure(CheckModel& model);  // children, parents, labels, repeated ids, cycles
void checkLayouts(CheckModel& model);    // layouts, their tree and their locations
void checkShortcuts(CheckModel& model);  // studies, shortcuts, study infos

// A text of the study as messages show it: in quotes, and a long one shortened in its middle.
std::string shown(std::string_view text);

// Pairs of objects from lists, sorted, so that a question for one is a search.
class CheckPairs {
 public:
  void add(std::uint32_t first, std::uint32_t second) {
    pairs_.push_back(std::uint64_t{first} << 32 | second);
  }
  void sort();
  bool contains(std::uint32_t first, std::uint32_t second) const;

 private:
  std::vector<std::uint64_t> pairs_;
};

// Who holds whom, by the `children` of the one; and by the `parents` of the other.
struct CheckTree {
  CheckPairs children, parents;
  explicit CheckTree(const CheckModel& model);
  bool holds(std::uint32_t parent, std::uint32_t child) const {
    return children.contains(parent, child) || parents.contains(parent, child);
  }
};

}  // namespace zelstudy
