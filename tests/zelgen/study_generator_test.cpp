#include "StudyGenerator.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>

#include "dom/DomTesting.h"
#include "zelgen/Objects.h"
#include "zelstudy/StudyDiff.h"

namespace zelgen_test {
namespace {

using zelgen::generateStudy;
using zelgen::StudyOptions;

Objects generated(const StudyOptions& options) { return objectsOf(parse(generateStudy(options))); }

// The families of what a field must name.
const std::map<std::string, std::set<std::string>> namedFamilies = {
    {"layout", {"PmLayout", "PmStudyLayout"}},
    {"node", {"Product", "Resource"}},
    {"prototype", {"PartPrototype", "ToolPrototype"}},
    {"threeDRep", {"ExternalDocument"}},
    {"file", {"PmReferenceFile"}},
    {"linkExternalID", {"Product", "Resource", "Operation"}},
    {"processResource", {"Resource"}},
    {"predecessor", {"Operation"}},
    {"successor", {"Operation"}}};

// What holds for every study: that it is in order, and what such a check leaves open.
void expectStudy(const StudyOptions& options) {
  const IXMLDOMDocument document = parse(generateStudy(options));
  expectInOrder(document);
  const Objects objects = objectsOf(document);
  EXPECT_EQ(objects.size(), options.objects);
  std::set<std::string> numbers, roots, shown;
  for (const auto& [id, object] : objects) {
    SCOPED_TRACE(object.name + " " + id);
    EXPECT_TRUE(numbers.insert(object.textOf("NodeInfo/Id")).second) << "an internal number twice";
    const std::string family = object.family();
    for (const auto& [field, families] : namedFamilies) {
      const std::string target = object.textOf(field);
      EXPECT_TRUE(target.empty() || families.contains(objects.at(target).family())) << field;
    }
    const Strings parents = object.items("parents");
    for (const std::string& parent : parents) {
      const std::size_t first = objects.at(parents[0]).place;
      EXPECT_EQ(objects.at(parent).family(), family);
      EXPECT_LT(first, object.place);
      EXPECT_LE(first, objects.at(parent).place) << "the first parent comes first";
    }
    if (parents.empty() && (family == "Product" || family == "Resource" || family == "Operation"))
      roots.insert(id);
    EXPECT_TRUE(family != "Label" || objects.at(object.textOf("node")).holds("labels", id));
    if (family != "Study") continue;
    const Strings shortcuts = object.items("children"), infos = object.items("info");
    for (std::size_t i = 0; i < shortcuts.size(); ++i) {
      const std::string target = objects.at(shortcuts[i]).textOf("linkExternalID");
      shown.insert(target);
      const Object& info = objects.at(infos.at(i));
      EXPECT_EQ(info.name, object.name + "Info");
      const std::string layout = objects.at(target).textOf("layout");
      if (layout.empty()) continue;
      // A root stands in the study where it stands at all.
      for (const char* field : {"location", "rotation"})
        EXPECT_EQ(objects.at(info.textOf("layout")).items(field), objects.at(layout).items(field));
    }
  }
  EXPECT_EQ(shown, roots);
}

unsigned levelOf(const Objects& objects, const Object& object) {
  const Strings parents = object.items("parents");
  return parents.empty() ? 1 : 1 + levelOf(objects, objects.at(parents[0]));
}

std::size_t sharedLeaves(const StudyOptions& options) {
  std::size_t count = 0;
  for (const auto& [id, object] : generated(options)) count += object.items("parents").size() == 2;
  return count;
}

TEST(StudyGenerator, EveryStudyIsConsistentAndOfTheAskedSize) {
  std::mt19937 draw(domtest::seed());
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
    expectStudy(options);
    if (HasFailure()) return;
  }
}

TEST(StudyGenerator, SmallestStudyHoldsEveryKind) {
  for (std::uint64_t seed = 0; seed < 20; ++seed) {
    SCOPED_TRACE(seed);
    std::set<std::string> families;
    for (const auto& [id, object] : generated({.objects = zelgen::kMinObjects, .seed = seed}))
      families.insert(object.family());
    EXPECT_EQ(families.size(), 14u);
  }
}

TEST(StudyGenerator, DeepestTreeHasTheAskedDepth) {
  for (const std::uint32_t depth : {2u, 3u, 9u, 150u}) {
    const Objects objects = generated({.objects = 2000, .depth = depth});
    unsigned deepest = 0;
    for (const auto& [id, object] : objects) deepest = std::max(deepest, levelOf(objects, object));
    EXPECT_EQ(deepest, depth);
  }
}

TEST(StudyGenerator, SharingFollowsItsShareAndLeavesTheRestAlone) {
  EXPECT_EQ(sharedLeaves({.objects = 4000, .shared = 0}), 0u);
  const auto some = sharedLeaves({.objects = 4000, .shared = 20});
  const auto all = sharedLeaves({.objects = 4000, .shared = 100});
  EXPECT_NEAR(static_cast<double>(some) / static_cast<double>(all), 0.2, 0.06);

  const Objects without = generated({.objects = 1000, .shared = 0});
  for (const auto& [id, object] : generated({.objects = 1000, .shared = 50}))
    EXPECT_EQ(object.textOf("name"), without.at(id).textOf("name"));
}

TEST(StudyGenerator, PrettyDiffersFromCompactInBlanksOnly) {
  StudyOptions options{.objects = 400, .shared = 30};
  const std::string compact = generateStudy(options);
  options.pretty = true;
  const std::string pretty = generateStudy(options);
  const zelstudy::StudyDiff diff = zelstudy::diffStudies(parse(compact), parse(pretty));
  EXPECT_TRUE(diff.added.empty() && diff.removed.empty() && diff.changed.empty());
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
  EXPECT_TRUE(generateStudy(options, [&](std::string_view stretch) {
    joined += stretch;
    return true;
  }));
  EXPECT_EQ(joined, generateStudy(options));
  int taken = 0;
  EXPECT_FALSE(generateStudy(options, [&](std::string_view) { return ++taken < 2; }));
  EXPECT_EQ(taken, 2);
}

}  // namespace
}  // namespace zelgen_test
