#include "ExternalGenerator.h"

#include <array>
#include <map>

#include "StudyGenerator.h"
#include "document/DocumentTest.h"
#include "zelstudy/StudyCheck.h"
#include "zelstudy/StudyDiff.h"

namespace zelgen_test {
namespace {
using document_test::at;
using document_test::parse;
using Strings = std::vector<std::string>;

std::string externalOf(const std::string& study, const zelgen::ExternalOptions& options) {
  std::string external, reason;
  const auto sink = [&](std::string_view chunk) { return external += chunk, true; };
  EXPECT_TRUE(zelgen::generateExternal(options, parse(study), sink, reason)) << reason;
  return external;
}

IXMLDOMNodeList objectsOf(const IXMLDOMDocument& document, const char* path = "Data/Objects/*") {
  IXMLDOMNodeList objects;
  document.selectNodes(path, objects);
  return objects;
}

Strings items(const IXMLDOMNode& object, const std::string& list) {
  ZelXmlList<std::string> texts;
  zelXmlGetTextList(object, list, texts);
  return {texts.begin(), texts.end()};
}

// How an import that takes everything leaves the study: every object of the external document in place of
// that of the study, and the external study's pairs that are new at the end of the study's lists.
IXMLDOMDocument imported(const std::string& study, const IXMLDOMDocument& external) {
  const IXMLDOMDocument result = parse(study);
  const IXMLDOMNode own = at(result, "Data/Objects/*[NodeInfo/family='Study']"),
                    other = at(external, "Data/Objects/*[NodeInfo/family='Study']");
  std::string id, otherId;
  zelXmlGetExternalId(own, id);
  zelXmlGetExternalId(other, otherId);
  const Strings has = items(own, "children"), shortcuts = items(other, "children"),
                infos = items(other, "info");
  EXPECT_EQ(shortcuts.size(), infos.size());
  for (std::size_t i = 0; i < shortcuts.size(); ++i) {
    if (std::find(has.begin(), has.end(), shortcuts[i]) != has.end()) continue;
    zelXmlAddChildWithText(result, at(own, "children"), "item", shortcuts[i]);
    zelXmlAddChildWithText(result, at(own, "info"), "item", infos[i]);
  }
  for (const IXMLDOMNode& each : objectsOf(external)) {
    if (each == other) continue;
    std::string key;
    IXMLDOMElement former;
    EXPECT_TRUE(zelXmlGetExternalId(each, key));
    if (result.findByAttribute("ExternalId", key, former)) zelXmlRemoveFromParent(former);
    at(result, "Data/Objects").appendChild(each.cloneNode(true));
    const IXMLDOMNode copy = document_test::object(result, key);
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
    for (const auto& finding : zelstudy::checkStudy(after))
      ADD_FAILURE() << finding.code << ' ' << finding.text;

    std::size_t named = 0, added = 0, members = 0;
    const zelstudy::StudyDiff diff = zelstudy::diffStudies(parse(study), after);
    EXPECT_TRUE(diff.removed.empty());
    for (const auto& [object, changes] : diff.changed)
      named += object.className.ends_with("Prototype") ? 0 : 1;
    for (const auto& object : diff.added)
      added += object.name.is_string() && object.name.get<std::string>().starts_with("Added") &&
               object.className != "PmShortcut" && !object.className.ends_with("Prototype");
    for (const IXMLDOMNode& each : objectsOf(parse(study))) {
      IXMLDOMNode layout;
      members += each.selectSingleNode("layout", layout) && !items(each, "parents").empty();
    }
    EXPECT_EQ(named, (members * 8 + 50) / 100);
    EXPECT_EQ(added, (members * 9 + 50) / 100);
  }
}

// What an import stumbles over: both orders of all that belongs together, and what only one side has.
TEST(ExternalGenerator, HoldsBothOrdersOfWhatBelongsTogether) {
  const std::string study = zelgen::generateStudy({.objects = 9000, .seed = 6});
  const IXMLDOMDocument external =
      parse(externalOf(study, {.seed = 4, .added = 20, .changed = 10, .unchanged = 20, .classChanges = 4}));
  const IXMLDOMDocument before = parse(study);
  std::map<std::string, std::size_t> places;
  std::size_t place = 0, otherClass = 0;
  for (const IXMLDOMNode& each : objectsOf(external)) {
    std::string id;
    zelXmlGetExternalId(each, id);
    EXPECT_TRUE(places.emplace(id, place++).second) << id;
    IXMLDOMElement known;
    otherClass += before.findByAttribute("ExternalId", id, known) && known.nodeName() != each.nodeName();
  }
  EXPECT_EQ(otherClass, 4u);
  const std::array<std::pair<const char*, const char*>, 5> references{{{"PmPartInstance", "prototype"},
                                                                       {"PmToolInstance", "prototype"},
                                                                       {"PmPartPrototype", "threeDRep"},
                                                                       {"Pm3DRep", "file"},
                                                                       {"PmShortcut", "linkExternalID"}}};
  for (const auto& [className, field] : references) {
    std::map<std::string, int> orders;
    for (const IXMLDOMNode& each : objectsOf(external, ("Data/Objects/" + std::string(className)).c_str())) {
      std::string id, target;
      zelXmlGetExternalId(each, id);
      // Of an instance that the study has as a placeholder.
      if (!zelXmlGetString(each, field, target) || target.empty()) continue;
      const auto found = places.find(target);
      IXMLDOMElement known;
      const bool isKnown = before.findByAttribute("ExternalId", target, known);
      EXPECT_TRUE(found != places.end() || isKnown) << id << ' ' << target;
      ++orders[std::string(found == places.end()           ? "missing"
                           : found->second < places.at(id) ? "ahead"
                                                           : "behind") +
               (isKnown ? ", known" : ", new")];
    }
    for (const char* order : {"ahead, known", "behind, known", "ahead, new", "behind, new"})
      EXPECT_GT(orders[order], 0) << className << ' ' << order;
  }
  EXPECT_GT(objectsOf(external, "Data/Objects/MarvekStudyInfo[NodeInfo/family]").length(), 0);
  EXPECT_LT(objectsOf(external, "Data/Objects/MarvekStudyInfo[NodeInfo/family]").length(),
            objectsOf(external, "Data/Objects/MarvekStudyInfo").length());
}

}  // namespace
}  // namespace zelgen_test
