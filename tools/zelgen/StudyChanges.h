#pragma once

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Geometry.h"
#include "Random.h"
#include "UpdateStudy.h"
#include "XmlWriter.h"

namespace zelgen {

/// Why shares of the members cannot be met, as a sentence for the user: one is above 100, or those that no
/// object takes part in twice are so together. Nothing when they can.
std::optional<std::string> whySharesRefused(
    std::initializer_list<std::pair<std::string_view, std::uint32_t>> shares, std::string_view exclusive,
    std::uint32_t together);

/// Streams of random numbers, one for each sort of change.
enum class ChangeStream : std::uint64_t {
  Vanished = 1,
  Moved,
  Changed,
  Added,
  Ids,
  Unchanged,
  Trees,
  Classes,
  Prototypes,
  Shortcuts
};

/// A new object with its layout: an instance, a placeholder, or a compound.
struct AddedObject {
  IdText id, layoutId;
  bool isPart = true;
  bool isCompound = false;
  std::string parent, parentLayout;  ///< ids; empty for a root
  Placement relative, absolute;
  std::string prototype;  ///< empty for a placeholder
  std::string name;
  std::vector<std::size_t> children;  ///< of a compound: positions in the list of added objects
};

/// What every document that is made from a study draws and changes. The changes are made in the document of
/// the study itself.
class StudyChanges {
 public:
  StudyChanges(std::uint64_t seed, const IXMLDOMDocument& document)
      : document_(document),
        study_(document),
        isTouched_(study_.objects.size()),
        isTaken_(study_.objects.size()),
        seed_(seed) {}

  /// False, with the why, for a document that is no study and one without a placed compound.
  bool canBeDrawn(std::string& reason) const;

 protected:
  using Index = UpdateStudy::Index;
  using Kind = UpdateStudy::Kind;
  static constexpr Index kNone = UpdateStudy::kNone;

  /// What happens to a `children` list.
  struct ListEdit {
    std::set<std::string> removed;
    std::vector<std::string> added;
  };

  Random random(ChangeStream stream) const { return Random(streamSeed(stream)); }
  const std::vector<Index>& compounds(Kind kind) const {
    return study_.compounds[static_cast<std::size_t>(kind)];
  }
  /// Of the members; at least one unless `percent` is 0.
  std::size_t share(std::uint32_t percent) const;
  /// A share of the members that are not taken yet and fit, in the order in which they are drawn.
  template <typename Fits>
  std::vector<Index> take(Random& random, std::uint32_t percent, Fits fits) {
    return takeCount(random, share(percent), fits);
  }
  template <typename Fits>
  std::vector<Index> takeCount(Random& random, std::size_t count, Fits fits);

  /// Another name, another comment, or both; touched objects.
  void change(Random& random, const std::vector<Index>& objects);
  /// `count` new leaves under compounds of the study.
  void addLeaves(std::size_t count);
  /// A new leaf under nothing yet, at a drawn place.
  AddedObject newLeaf(Random& random, bool isPart);
  void applyListEdits();
  IdText newId();

  void setText(const IXMLDOMElement& element, std::string_view field, std::string_view text);
  void setList(const IXMLDOMElement& element, std::string_view field, const std::vector<std::string>& items);

  void writeTouched(XmlWriter& xml) const;
  void writeAdded(XmlWriter& xml) const;

  const IXMLDOMDocument document_;
  UpdateStudy study_;
  std::vector<bool> isTouched_;  ///< goes into the document
  std::vector<bool> isTaken_;    ///< drawn for one sort of change
  std::map<Index, ListEdit> edits_;
  std::vector<AddedObject> added_;

 private:
  std::uint64_t streamSeed(ChangeStream stream) const {
    return scatter(seed_ ^ (static_cast<std::uint64_t>(stream) << 56));
  }
  const std::vector<std::string>& usedPrototypes(bool isPart);

  const std::uint64_t seed_;
  std::uint64_t ids_ = 0;
  std::vector<std::string> prototypes_[2];
  bool hasPrototypes_ = false;
};

template <typename Fits>
std::vector<StudyChanges::Index> StudyChanges::takeCount(Random& random, std::size_t count, Fits fits) {
  std::vector<Index> found;
  for (const Index i : study_.members) {
    if (!isTaken_[i] && fits(study_.objects[i])) found.push_back(i);
  }
  const std::size_t wanted = std::min(count, found.size());
  for (std::size_t i = 0; i < wanted; ++i) {
    std::swap(found[i], found[i + random.below(static_cast<std::uint32_t>(found.size() - i))]);
    isTaken_[found[i]] = true;
  }
  found.resize(wanted);
  return found;
}

/// Writes the document of a generator that is made from options and a study. False, with the why in `reason`,
/// when the study has nothing to change; false with `reason` as it was when the sink said so.
template <class Generator, class Options>
bool generateFrom(const Options& options, const IXMLDOMDocument& study, const ChunkSink& sink,
                  std::string& reason) {
  Generator generator(options, study);
  if (!generator.canBeDrawn(reason)) return false;
  generator.draw();
  return generator.write(sink);
}

}  // namespace zelgen
