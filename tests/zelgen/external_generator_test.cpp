#include "ExternalGenerator.h"

#include <array>

#include "StudyGenerator.h"
#include "zelgen/Objects.h"
#include "zelstudy/StudyDiff.h"

namespace zelgen_test {
namespace {
std::string externalOf(const std::string& study, const zelgen::ExternalOptions& options) {
  std::string external, reason;
  const auto sink = [&](std::string_view chunk) { return external += chunk, true; };
  EXPECT_TRUE(zelgen::generateExternal(options, parse(study), sink, reason)) << reason;
  return external;
}

const Object& studyIn(const Objects& objects) {
  return std::find_if(objects.begin(), objects.end(),
                      [](const auto& each) { return each.second.family() == "Study"; })
      ->second;
}

// How an import that takes everything leaves the study: every object of the external document in place of
// that of the study, and the external study's pairs that are new at the end of the study's lists.
IXMLDOMDocument imported(const std::string& study, const IXMLDOMDocument& external) {
  const IXMLDOMDocument result = parse(study);
  const Objects ours = objectsOf(result), theirs = objectsOf(external);
  const Object &own = studyIn(ours), &other = studyIn(theirs);
  std::string id, otherId;
  zelXmlGetExternalId(own.node, id);
  zelXmlGetExternalId(other.node, otherId);
  const Strings shortcuts = other.items("children"), infos = other.items("info");
  EXPECT_EQ(shortcuts.size(), infos.size());
  for (std::size_t i = 0; i < shortcuts.size(); ++i) {
    if (own.holds("children", shortcuts[i])) continue;
    zelXmlAddChildWithText(result, at(own.node, "children"), "item", shortcuts[i]);
    zelXmlAddChildWithText(result, at(own.node, "info"), "item", infos[i]);
  }
  for (const auto& [key, object] : theirs) {
    if (key == otherId) continue;
    const IXMLDOMNode copy = put(result, key, object);
    if (copy.nodeName() == "PmShortcut") {
      EXPECT_EQ(at(copy, "parent").text(), otherId);
      at(copy, "parent").putText(id);
    }
    if (copy.nodeName() == "MarvekStudyInfo") zelXmlSetFamily(result, copy, "MarvekStudyInfo");
  }
  return result;
}

TEST(ExternalGenerator, ImportedWholeTheStudyIsInOrder) {
  for (const char* studyClass : {"MarvekStudy", "LineSimulationStudy"}) {
    const std::string study = zelgen::generateStudy({.objects = 3000, .seed = 5, .studyClass = studyClass});
    const zelgen::ExternalOptions options{.seed = 3, .added = 9, .changed = 8, .unchanged = 30};
    const std::string text = externalOf(study, options);
    EXPECT_EQ(text, externalOf(study, options));
    const IXMLDOMDocument external = parse(text), after = imported(study, external);
    expectInOrder(after);

    std::size_t named = 0, added = 0, members = 0;
    const zelstudy::StudyDiff diff = zelstudy::diffStudies(parse(study), after);
    EXPECT_TRUE(diff.removed.empty());
    for (const auto& [object, changes] : diff.changed)
      named += object.className.ends_with("Prototype") ? 0 : 1;
    for (const auto& object : diff.added)
      added += object.name.is_string() && object.name.get<std::string>().starts_with("Added") &&
               object.className != "PmShortcut" && !object.className.ends_with("Prototype");
    for (const auto& [id, object] : objectsOf(parse(study)))
      members += object.has("layout") && !object.items("parents").empty();
    EXPECT_EQ(named, (members * 8 + 50) / 100);
    EXPECT_EQ(added, (members * 9 + 50) / 100);
  }
}

// What an import stumbles over: both orders of all that belongs together, and what only one side has.
TEST(ExternalGenerator, HoldsBothOrdersOfWhatBelongsTogether) {
  const std::string study = zelgen::generateStudy({.objects = 9000, .seed = 6});
  const Objects before = objectsOf(parse(study)),
                external = objectsOf(parse(externalOf(
                    study, {.seed = 4, .added = 20, .changed = 10, .unchanged = 20, .classChanges = 4})));
  std::size_t otherClass = 0, infosWithFamily = 0, infos = 0;
  for (const auto& [id, object] : external) {
    otherClass += before.contains(id) && before.at(id).name != object.name;
    infos += object.name == "MarvekStudyInfo";
    infosWithFamily += object.name == "MarvekStudyInfo" && object.has("NodeInfo/family");
  }
  EXPECT_EQ(otherClass, 4u);
  const std::array<std::pair<const char*, const char*>, 5> references{{{"PmPartInstance", "prototype"},
                                                                       {"PmToolInstance", "prototype"},
                                                                       {"PmPartPrototype", "threeDRep"},
                                                                       {"Pm3DRep", "file"},
                                                                       {"PmShortcut", "linkExternalID"}}};
  for (const auto& [className, field] : references) {
    std::map<std::string, int> orders;
    for (const auto& [id, object] : external) {
      const std::string target = object.textOf(field);
      // Of an instance that the study has as a placeholder it is empty.
      if (object.name != className || target.empty()) continue;
      const auto found = external.find(target);
      const bool isKnown = before.contains(target);
      EXPECT_TRUE(found != external.end() || isKnown) << id << ' ' << target;
      ++orders[std::string(found == external.end()              ? "missing"
                           : found->second.place < object.place ? "ahead"
                                                                : "behind") +
               (isKnown ? ", known" : ", new")];
    }
    for (const char* order : {"ahead, known", "behind, known", "ahead, new", "behind, new"})
      EXPECT_GT(orders[order], 0) << className << ' ' << order;
  }
  EXPECT_GT(infosWithFamily, 0u);
  EXPECT_LT(infosWithFamily, infos);
}

}  // namespace
}  // namespace zelgen_test
