#include "UpdateGenerator.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>

#include "StudyGenerator.h"
#include "UpdateStudy.h"
#include "wrapper/StudyTest.h"

namespace zelgen_test {
namespace {
using document_test::parse;

// An object element, read by field.
struct Element {
  IXMLDOMElement node;
  std::string name = std::string(node.nodeName());

  bool has(const char* field) const {
    IXMLDOMNode found;
    return node.selectSingleNode(field, found);
  }
  std::string textOf(const char* field) const {
    IXMLDOMNode found;
    return node.selectSingleNode(field, found) ? found.text() : std::string();
  }
  std::vector<std::string> items(const std::string& list) const {
    IXMLDOMNodeList found;
    std::vector<std::string> texts;
    if (node.selectNodes(list + "/item", found))
      for (const IXMLDOMNode& item : found) texts.push_back(item.text());
    return texts;
  }
};
using Objects = std::map<std::string, Element>;
using UpdateGeneratorTest = document_test::StudyTest;

std::string updateOf(const std::string& text, std::uint64_t seed) {
  const zelgen::UpdateOptions options{.seed = seed, .added = 9, .changed = 8, .moved = 7, .vanished = 6};
  std::string update, reason;
  const auto sink = [&](std::string_view chunk) { return update += chunk, true; };
  EXPECT_TRUE(zelgen::generateUpdate(options, parse(text), sink, reason)) << reason;
  return update;
}
Objects objectsOf(const std::string& text) {
  Objects objects;
  const IXMLDOMDocument document = parse(text);
  const IXMLDOMNode section = document_test::at(document, "Data/Objects");
  for (IXMLDOMElement each = section.firstElementChild(); each; each = each.nextElementSibling()) {
    std::string_view id;
    EXPECT_TRUE(each.getAttribute("ExternalId", id) && objects.emplace(id, Element{each}).second) << id;
  }
  return objects;
}
bool holds(const Element& object, const char* list, const std::string& id) {
  const auto items = object.items(list);
  return std::count(items.begin(), items.end(), id) == 1;
}

TEST_F(UpdateGeneratorTest, HoldsTheSharesAskedForAndAgreesWithWhatItLeavesAlone) {
  for (const std::uint64_t seed : {1u, 2u, 3u}) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    const std::string text = zelgen::generateStudy({.objects = 1500, .seed = seed, .pretty = seed == 2});
    const std::string update = updateOf(text, seed);
    EXPECT_EQ(update, updateOf(text, seed));
    EXPECT_NE(update, updateOf(text, seed + 1));
    const Objects before = objectsOf(text), news = objectsOf(update);
    Objects after = before;
    std::set<std::string> gone, changed;
    std::size_t members = 0, added = 0, moved = 0, vanished = 0;
    for (const auto& [id, object] : news) {
      for (const auto& child : before.contains(id) ? before.at(id).items("children") : object.items("none"))
        if (!holds(object, "children", child) && !news.contains(child)) gone.insert(child);
      after.insert_or_assign(id, object);
      if (object.name == "PmLayout") continue;
      if (!before.contains(id) && ++added) continue;
      const Element& old = before.at(id);
      moved += old.items("parents") != object.items("parents");
      for (const char* field : {"name", "comment"})
        if (old.textOf(field) != object.textOf(field)) changed.insert(id);
    }
    for (const std::string& id : gone) vanished += after.at(id).name != "PmLayout", after.erase(id);
    for (const auto& [id, object] : before)
      members += object.has("layout") && !object.items("parents").empty();
    const auto share = [&](std::size_t percent) { return (members * percent + 50) / 100; };
    const std::array counts{added, changed.size(), moved, vanished};
    EXPECT_EQ(counts, (std::array{share(9), share(8), share(7), share(6)}));
    const zelgen::UpdateStudy placed(parse(text)), updates(parse(update));
    for (const auto& [id, object] : after) {
      if (object.name == "PmStudyLayout" || object.name == "MarvekStudy") continue;
      const bool isLayout = object.name == "PmLayout";
      for (const auto& child : object.items("children")) {
        const Element& held = after.at(child);
        EXPECT_TRUE(isLayout ? held.textOf("parent") == id : holds(held, "parents", id)) << child;
      }
      for (const auto& each : object.items("parents")) EXPECT_TRUE(holds(after.at(each), "children", id));
      const std::string parent = object.textOf("parent");
      if (!isLayout || parent == "NULL") continue;
      EXPECT_TRUE(holds(after.at(parent), "children", id)) << id;
      if (!news.contains(id)) continue;
      const auto& own = updates.objects[updates.find(id)];
      EXPECT_EQ(own.absolute, compose(placed.objects[placed.find(parent)].absolute, own.relative));
    }
    study = parse(text);  // the library takes it in whole, and deletes just what vanished
    session().setImportedDocumentAndDocRef(study, {});
    wrapper.reset(dynamic_cast<ZelXmlWrapper*>(ZelWrapperFactory::the().create(0)));
    ASSERT_TRUE(wrapper->build(false));
    wrapper->setUpdateDocument(parse(update));
    ApiPmIdList deleted;
    EXPECT_TRUE(wrapper->update(deleted, false));
    EXPECT_EQ(deleted.entries(), vanished);
  }
}

}  // namespace
}  // namespace zelgen_test
