#include "StudyGenerator.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <random>
#include <set>

#include "MiniXml.h"

namespace zelgen_test {
namespace {

using zelgen::generateStudy;
using zelgen::StudyOptions;

using Matrix = std::array<std::array<double, 3>, 3>;

Matrix rotation(const std::array<double, 6>& placement) {
  const double sr = std::sin(placement[3]), cr = std::cos(placement[3]), sp = std::sin(placement[4]),
               cp = std::cos(placement[4]), sy = std::sin(placement[5]), cy = std::cos(placement[5]);
  return {{{cy * cp, cy * sp * sr - sy * cr, cy * sp * cr + sy * sr},
           {sy * cp, sy * sp * sr + cy * cr, sy * sp * cr - cy * sr},
           {-sp, cp * sr, cp * cr}}};
}

std::array<double, 6> relativeOf(const Element& layout) {
  std::array<double, 6> result{};
  std::size_t at = 0;
  for (const char* list : {"location", "rotation"}) {
    for (const auto& item : layout.items(list)) result.at(at++) = std::stod(item);
  }
  EXPECT_EQ(at, 6u);
  return result;
}

std::array<double, 6> absoluteOf(const Element& layout) {
  const Element* info = layout.child("NodeInfo")->child("absoluteLocation");
  std::array<double, 6> result{};
  std::size_t at = 0;
  for (const char* name : {"x", "y", "z", "rx", "ry", "rz"}) result[at++] = std::stod(info->textOf(name));
  return result;
}

/// How far the absolute placement is from parent * relative: the greatest difference of a coordinate or of
/// an entry of the rotation matrices (angles alone say nothing near the poles).
double placementError(const Element& parent, const Element& layout) {
  const auto base = absoluteOf(parent), relative = relativeOf(layout), absolute = absoluteOf(layout);
  const Matrix turn = rotation(base), inner = rotation(relative), whole = rotation(absolute);
  double error = 0;
  for (std::size_t i = 0; i < 3; ++i) {
    double moved = base[i];
    for (std::size_t k = 0; k < 3; ++k) moved += turn[i][k] * relative[k];
    error = std::max(error, std::fabs(moved - absolute[i]));
    for (std::size_t j = 0; j < 3; ++j) {
      double entry = 0;
      for (std::size_t k = 0; k < 3; ++k) entry += turn[i][k] * inner[k][j];
      error = std::max(error, std::fabs(entry - whole[i][j]));
    }
  }
  return error;
}

/// A study read back, with the checks that any study must pass.
class ReadStudy {
 public:
  explicit ReadStudy(const StudyOptions& options) : root_(MiniXml::parse(generateStudy(options))) {
    for (const auto& object : objects()) {
      EXPECT_TRUE(byId_.emplace(object.attributes.at("ExternalId"), &object).second) << "an id twice";
    }
    options_ = options;
  }

  const std::vector<Element>& objects() const { return root_.child("Objects")->children; }

  const Element& at(const std::string& id) const {
    const auto found = byId_.find(id);
    if (found == byId_.end()) throw std::runtime_error("dangling reference " + id);
    return *found->second;
  }

  static std::string idOf(const Element& object) { return object.attributes.at("ExternalId"); }
  static std::string familyOf(const Element& object) { return object.child("NodeInfo")->textOf("family"); }

  void checkAll() const {
    EXPECT_EQ(objects().size(), options_.objects);
    std::set<std::string> numbers;
    for (const auto& object : objects()) {
      SCOPED_TRACE(object.name + " " + idOf(object));
      EXPECT_TRUE(numbers.insert(object.child("NodeInfo")->textOf("Id")).second)
          << "an internal number twice";
      checkReferences(object);
      const std::string family = familyOf(object);
      if (family == "Product" || family == "Resource" || family == "Operation") checkParents(object);
      if (family == "Product" || family == "Resource") checkLayout(object);
      if (family == "Study") checkStudy(object);
      if (family == "Label") {
        EXPECT_THAT(at(object.textOf("node")).items("labels"), testing::Contains(idOf(object)));
      }
    }
  }

  std::map<std::string, unsigned> countByFamily() const {
    std::map<std::string, unsigned> counts;
    for (const auto& object : objects()) ++counts[familyOf(object)];
    return counts;
  }

  unsigned levelOf(const Element& object) const {
    const auto parents = object.items("parents");
    return parents.empty() ? 1 : 1 + levelOf(at(parents[0]));
  }

 private:
  /// What each reference field must name, by the family of the named object.
  void checkReferences(const Element& object) const {
    static const std::map<std::string, std::set<std::string>> kFields = {
        {"layout", {"PmLayout", "PmStudyLayout"}},
        {"node", {"Product", "Resource"}},
        {"prototype", {"PartPrototype", "ToolPrototype"}},
        {"threeDRep", {"ExternalDocument"}},
        {"file", {"PmReferenceFile"}},
        {"linkExternalID", {"Product", "Resource", "Operation"}},
        {"processResource", {"Resource"}},
        {"predecessor", {"Operation"}},
        {"successor", {"Operation"}}};
    for (const auto& [field, families] : kFields) {
      const std::string target = object.textOf(field);
      if (target.empty()) continue;
      EXPECT_THAT(families, testing::Contains(familyOf(at(target)))) << field;
    }
    if (object.name == "PmPartInstance") {
      EXPECT_EQ(familyOf(at(object.textOf("prototype"))), "PartPrototype");
    }
    if (object.name == "PmToolInstance") {
      EXPECT_EQ(familyOf(at(object.textOf("prototype"))), "ToolPrototype");
    }
    for (const auto& label : object.items("labels")) EXPECT_EQ(at(label).textOf("node"), idOf(object));
  }

  void checkParents(const Element& object) const {
    std::set<std::string> once;
    for (const auto& parent : object.items("parents")) {
      EXPECT_TRUE(once.insert(parent).second) << "a parent twice";
      EXPECT_THAT(at(parent).items("children"), testing::Contains(idOf(object)));
      EXPECT_EQ(familyOf(at(parent)), familyOf(object));
      // The order of the objects is that of the vector they stand in.
      EXPECT_LT(&at(object.items("parents")[0]), &object);
      EXPECT_LE(&at(object.items("parents")[0]), &at(parent)) << "the first parent comes first";
    }
    for (const auto& child : object.items("children")) {
      EXPECT_THAT(at(child).items("parents"), testing::Contains(idOf(object)));
    }
  }

  void checkLayout(const Element& object) const {
    const Element& layout = at(object.textOf("layout"));
    EXPECT_EQ(layout.textOf("node"), idOf(object));
    for (const auto& child : layout.items("children")) EXPECT_EQ(at(child).textOf("parent"), idOf(layout));
    const auto parents = object.items("parents");
    if (parents.empty()) {
      EXPECT_EQ(layout.textOf("parent"), "NULL");
      EXPECT_EQ(relativeOf(layout), absoluteOf(layout));
      return;
    }
    const Element& above = at(at(parents[0]).textOf("layout"));
    EXPECT_EQ(layout.textOf("parent"), idOf(above));
    EXPECT_THAT(above.items("children"), testing::Contains(idOf(layout)));
    EXPECT_LT(placementError(above, layout), 1e-5);
  }

  void checkStudy(const Element& study) const {
    const auto shortcuts = study.items("children"), infos = study.items("info");
    ASSERT_EQ(shortcuts.size(), infos.size());
    std::set<std::string> shown;
    for (std::size_t i = 0; i < shortcuts.size(); ++i) {
      const Element& shortcut = at(shortcuts[i]);
      const Element& info = at(infos[i]);
      const Element& target = at(shortcut.textOf("linkExternalID"));
      EXPECT_EQ(shortcut.textOf("parent"), idOf(study));
      EXPECT_EQ(shortcut.textOf("name"), target.textOf("name"));
      EXPECT_EQ(info.name, study.name + "Info");
      EXPECT_TRUE(shown.insert(idOf(target)).second) << "shown twice";
      if (!target.textOf("layout").empty()) {
        EXPECT_EQ(relativeOf(at(info.textOf("layout"))), absoluteOf(at(target.textOf("layout"))));
      }
    }
    for (const auto& object : objects()) {
      const std::string family = familyOf(object);
      const bool root = object.items("parents").empty() &&
                        (family == "Product" || family == "Resource" || family == "Operation");
      EXPECT_EQ(shown.count(idOf(object)) == 1, root) << object.name;
    }
  }

  StudyOptions options_;
  Element root_;
  std::map<std::string, const Element*> byId_;
};

std::size_t sharedLeaves(const ReadStudy& study) {
  std::size_t count = 0;
  for (const auto& object : study.objects()) count += object.items("parents").size() == 2;
  return count;
}

TEST(StudyGenerator, EveryStudyIsConsistentAndOfTheAskedSize) {
  const unsigned start = std::random_device{}();
  SCOPED_TRACE("seeds from " + std::to_string(start));
  std::mt19937 draw(start);
  const auto between = [&](std::uint32_t low, std::uint32_t high) {
    return std::uniform_int_distribution<std::uint32_t>(low, high)(draw);
  };
  std::vector<StudyOptions> cases = {{.objects = zelgen::kMinObjects, .depth = zelgen::kMinDepth},
                                     {.objects = zelgen::kMinObjects, .depth = zelgen::kMaxDepth},
                                     {.objects = 3000, .depth = zelgen::kMaxDepth, .shared = 100},
                                     {.objects = 3001, .studyClass = "LineSimulationStudy"}};
  for (int i = 0; i < 40; ++i) {
    cases.push_back(
        {.objects = between(100, i < 35 ? 600 : 9000), .depth = between(2, 12), .shared = between(0, 100)});
  }
  for (auto& options : cases) {
    options.seed = draw();
    SCOPED_TRACE("objects " + std::to_string(options.objects) + " seed " + std::to_string(options.seed) +
                 " depth " + std::to_string(options.depth) + " shared " + std::to_string(options.shared));
    const ReadStudy study(options);
    study.checkAll();
    if (HasFailure()) return;
  }
}

TEST(StudyGenerator, SmallestStudyHoldsEveryKind) {
  for (std::uint64_t seed = 0; seed < 20; ++seed) {
    SCOPED_TRACE(seed);
    const auto counts = ReadStudy({.objects = zelgen::kMinObjects, .seed = seed}).countByFamily();
    for (const char* family : {"Study", "Shortcut", "MarvekStudyInfo", "PmStudyLayout", "PartPrototype",
                               "ToolPrototype", "ExternalDocument", "PmReferenceFile", "Product", "Resource",
                               "PmLayout", "Label", "Operation", "PmFlow"}) {
      EXPECT_TRUE(counts.contains(family)) << family;
    }
  }
}

TEST(StudyGenerator, DeepestTreeHasTheAskedDepth) {
  for (const std::uint32_t depth : {2u, 3u, 9u, 150u}) {
    const ReadStudy study({.objects = 2000, .depth = depth});
    unsigned deepest = 0;
    for (const auto& object : study.objects()) deepest = std::max(deepest, study.levelOf(object));
    EXPECT_EQ(deepest, depth);
  }
}

TEST(StudyGenerator, SharingFollowsItsShareAndLeavesTheRestAlone) {
  EXPECT_EQ(sharedLeaves(ReadStudy({.objects = 4000, .shared = 0})), 0u);
  const auto some = sharedLeaves(ReadStudy({.objects = 4000, .shared = 20}));
  const auto all = sharedLeaves(ReadStudy({.objects = 4000, .shared = 100}));
  EXPECT_NEAR(static_cast<double>(some) / static_cast<double>(all), 0.2, 0.06);

  const ReadStudy without({.objects = 1000, .shared = 0}), with({.objects = 1000, .shared = 50});
  ASSERT_EQ(without.objects().size(), with.objects().size());
  for (std::size_t i = 0; i < with.objects().size(); ++i) {
    EXPECT_EQ(with.objects()[i].attributes, without.objects()[i].attributes);
    EXPECT_EQ(with.objects()[i].textOf("name"), without.objects()[i].textOf("name"));
  }
}

TEST(StudyGenerator, PrettyDiffersFromCompactInBlanksOnly) {
  StudyOptions options{.objects = 400, .shared = 30};
  const std::string compact = generateStudy(options);
  options.pretty = true;
  const std::string pretty = generateStudy(options);
  EXPECT_EQ(MiniXml::parse(compact), MiniXml::parse(pretty));
  // A line per object, and declaration, comment and the two frames of two lines around them.
  EXPECT_EQ(std::count(compact.begin(), compact.end(), '\n'), 400 + 6);
}

TEST(StudyGenerator, SeedDecidesTheBytes) {
  const StudyOptions options{.objects = 20'000, .seed = 7, .shared = 25};
  const std::string study = generateStudy(options);
  EXPECT_NE(study, generateStudy({.objects = 20'000, .seed = 8, .shared = 25}));
  // FNV-1a of the text as every machine must give it. A deliberate change of the output changes it too.
  std::uint64_t hash = 0xCBF29CE484222325u;
  for (const char byte : study) hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001B3u;
  EXPECT_EQ(hash, 18214641984703146802u);
}

TEST(StudyGenerator, StretchesMakeUpTheTextAndARefusalStopsThem) {
  const StudyOptions options{.objects = 10'000};
  std::string joined;
  int stretches = 0;
  EXPECT_TRUE(generateStudy(options, [&](std::string_view stretch) {
    joined += stretch;
    return ++stretches > 0;
  }));
  EXPECT_EQ(joined, generateStudy(options));
  EXPECT_GT(stretches, 2);

  int taken = 0;
  EXPECT_FALSE(generateStudy(options, [&](std::string_view) { return ++taken < 2; }));
  EXPECT_EQ(taken, 2);
}

TEST(StudyGenerator, RefusesWhatItCannotMakeAndSaysWhy) {
  const std::pair<StudyOptions, const char*> cases[] = {
      {{.objects = 99}, "objects"}, {{.objects = 100'000'001}, "objects"},
      {{.depth = 1}, "depth"},      {{.depth = 201}, "depth"},
      {{.shared = 101}, "shared"},  {{.studyClass = "OtherStudy"}, "study class"}};
  for (const auto& [options, word] : cases) {
    const auto reason = zelgen::whyRefused(options);
    ASSERT_TRUE(reason.has_value()) << word;
    EXPECT_THAT(*reason, testing::HasSubstr(word));
  }
  EXPECT_EQ(zelgen::whyRefused({}), std::nullopt);
}

}  // namespace
}  // namespace zelgen_test
