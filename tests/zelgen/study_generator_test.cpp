#include "StudyGenerator.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>

#include "dom/DomTesting.h"
#include "rt/RTTran3D.h"

namespace zelgen_test {
namespace {

using zelgen::generateStudy;
using zelgen::StudyOptions;

struct Element {
  explicit Element(const IXMLDOMElement& from) : name(from.tagName()) {
    std::string_view value;
    if (from.getAttribute("ExternalId", value)) id = value;
    for (auto child = from.firstElementChild(); child; child = child.nextElementSibling())
      children.emplace_back(child);
    if (children.empty() && from.text().find_first_not_of(" \n") != std::string::npos) text = from.text();
  }
  const Element* child(std::string_view wanted) const {
    for (const auto& each : children) {
      if (each.name == wanted) return &each;
    }
    return nullptr;
  }
  std::string textOf(std::string_view wanted) const {
    const Element* found = child(wanted);
    return found ? found->text : "";
  }
  std::vector<std::string> items(std::string_view list) const {
    std::vector<std::string> result;
    if (const Element* found = child(list)) {
      for (const auto& item : found->children) result.push_back(item.text);
    }
    return result;
  }
  bool operator==(const Element&) const = default;

  std::string name, id, text;  // the text is that of a leaf, blanks alone are none
  std::vector<Element> children;
};

Element read(const std::string& text) { return Element(domtest::parsed(text).documentElement()); }

RTTran3D relativeOf(const Element& layout) {
  const auto vector = [&layout](const char* list) {
    const auto items = layout.items(list);
    EXPECT_EQ(items.size(), 3u);
    return RTVec3D{std::stod(items.at(0)), std::stod(items.at(1)), std::stod(items.at(2))};
  };
  return {vector("location"), vector("rotation")};
}

RTTran3D absoluteOf(const Element& layout) {
  const Element* info = layout.child("NodeInfo")->child("absoluteLocation");
  const auto number = [info](const char* name) { return std::stod(info->textOf(name)); };
  return {{number("x"), number("y"), number("z")}, {number("rx"), number("ry"), number("rz")}};
}

/// A study read back, with the checks that any study must pass.
class ReadStudy {
 public:
  explicit ReadStudy(const StudyOptions& options) : root_(read(generateStudy(options))) {
    for (const auto& object : objects()) {
      EXPECT_TRUE(byId_.emplace(object.id, &object).second) << "an id twice";
    }
    options_ = options;
  }

  const std::vector<Element>& objects() const { return root_.child("Objects")->children; }

  // Throws where a reference dangles.
  const Element& at(const std::string& id) const { return *byId_.at(id); }
  static std::string familyOf(const Element& object) { return object.child("NodeInfo")->textOf("family"); }

  void checkAll() const {
    EXPECT_EQ(objects().size(), options_.objects);
    std::set<std::string> numbers;
    for (const auto& object : objects()) {
      SCOPED_TRACE(object.name + " " + object.id);
      EXPECT_TRUE(numbers.insert(object.child("NodeInfo")->textOf("Id")).second)
          << "an internal number twice";
      checkReferences(object);
      const std::string family = familyOf(object);
      if (family == "Product" || family == "Resource" || family == "Operation") checkParents(object);
      if (family == "Product" || family == "Resource") checkLayout(object);
      if (family == "Study") checkStudy(object);
      if (family == "Label") {
        EXPECT_THAT(at(object.textOf("node")).items("labels"), testing::Contains(object.id));
      }
    }
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
    for (const auto& label : object.items("labels")) EXPECT_EQ(at(label).textOf("node"), object.id);
  }

  void checkParents(const Element& object) const {
    std::set<std::string> once;
    for (const auto& parent : object.items("parents")) {
      EXPECT_TRUE(once.insert(parent).second) << "a parent twice";
      EXPECT_THAT(at(parent).items("children"), testing::Contains(object.id));
      EXPECT_EQ(familyOf(at(parent)), familyOf(object));
      // The order of the objects is that of the vector they stand in.
      EXPECT_LT(&at(object.items("parents")[0]), &object);
      EXPECT_LE(&at(object.items("parents")[0]), &at(parent)) << "the first parent comes first";
    }
    for (const auto& child : object.items("children")) {
      EXPECT_THAT(at(child).items("parents"), testing::Contains(object.id));
    }
  }

  void checkLayout(const Element& object) const {
    const Element& layout = at(object.textOf("layout"));
    EXPECT_EQ(layout.textOf("node"), object.id);
    for (const auto& child : layout.items("children")) EXPECT_EQ(at(child).textOf("parent"), layout.id);
    const auto parents = object.items("parents");
    if (parents.empty()) {
      EXPECT_EQ(layout.textOf("parent"), "NULL");
      EXPECT_EQ(relativeOf(layout), absoluteOf(layout));
      return;
    }
    const Element& above = at(at(parents[0]).textOf("layout"));
    EXPECT_EQ(layout.textOf("parent"), above.id);
    EXPECT_THAT(above.items("children"), testing::Contains(layout.id));
    EXPECT_TRUE((absoluteOf(above) * relativeOf(layout)).isNear(absoluteOf(layout), 1e-5, 1e-5));
  }

  void checkStudy(const Element& study) const {
    const auto shortcuts = study.items("children"), infos = study.items("info");
    ASSERT_EQ(shortcuts.size(), infos.size());
    std::set<std::string> shown;
    for (std::size_t i = 0; i < shortcuts.size(); ++i) {
      const Element& shortcut = at(shortcuts[i]);
      const Element& info = at(infos[i]);
      const Element& target = at(shortcut.textOf("linkExternalID"));
      EXPECT_EQ(shortcut.textOf("parent"), study.id);
      EXPECT_EQ(info.name, study.name + "Info");
      EXPECT_TRUE(shown.insert(target.id).second) << "shown twice";
      if (!target.textOf("layout").empty()) {
        EXPECT_EQ(relativeOf(at(info.textOf("layout"))), absoluteOf(at(target.textOf("layout"))));
      }
    }
    for (const auto& object : objects()) {
      const std::string family = familyOf(object);
      const bool root = object.items("parents").empty() &&
                        (family == "Product" || family == "Resource" || family == "Operation");
      EXPECT_EQ(shown.count(object.id) == 1, root) << object.name;
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
    ReadStudy(options).checkAll();
    if (HasFailure()) return;
  }
}

TEST(StudyGenerator, SmallestStudyHoldsEveryKind) {
  for (std::uint64_t seed = 0; seed < 20; ++seed) {
    SCOPED_TRACE(seed);
    const ReadStudy study({.objects = zelgen::kMinObjects, .seed = seed});
    std::set<std::string> families;
    for (const auto& object : study.objects()) families.insert(ReadStudy::familyOf(object));
    EXPECT_EQ(families.size(), 14u);
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
  for (std::size_t i = 0; i < with.objects().size(); ++i) {
    EXPECT_EQ(with.objects()[i].textOf("name"), without.objects()[i].textOf("name"));
  }
}

TEST(StudyGenerator, PrettyDiffersFromCompactInBlanksOnly) {
  StudyOptions options{.objects = 400, .shared = 30};
  const std::string compact = generateStudy(options);
  options.pretty = true;
  const std::string pretty = generateStudy(options);
  EXPECT_TRUE(read(compact) == read(pretty));
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
