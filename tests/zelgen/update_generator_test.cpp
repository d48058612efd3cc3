#include "UpdateGenerator.h"

#include <array>
#include <set>

#include "StudyGenerator.h"
#include "wrapper/StudyTest.h"
#include "zelgen/Objects.h"

namespace zelgen_test {
namespace {

using UpdateGeneratorTest = document_test::StudyTest;

std::string updateOf(const std::string& text, std::uint64_t seed) {
  const zelgen::UpdateOptions options{.seed = seed, .added = 9, .changed = 8, .moved = 7, .vanished = 6};
  std::string update, reason;
  const auto sink = [&](std::string_view chunk) { return update += chunk, true; };
  EXPECT_TRUE(zelgen::generateUpdate(options, parse(text), sink, reason)) << reason;
  return update;
}

TEST_F(UpdateGeneratorTest, HoldsTheSharesAskedForAndAgreesWithWhatItLeavesAlone) {
  for (const std::uint64_t seed : {1u, 2u, 3u}) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    const std::string text = zelgen::generateStudy({.objects = 1500, .seed = seed, .pretty = seed == 2});
    const std::string update = updateOf(text, seed);
    EXPECT_EQ(update, updateOf(text, seed));
    EXPECT_NE(update, updateOf(text, seed + 1));
    const Objects before = objectsOf(parse(text)), news = objectsOf(parse(update));
    const IXMLDOMDocument merged = parse(text);
    std::set<std::string> gone, changed;
    std::size_t members = 0, added = 0, moved = 0, vanished = 0;
    for (const auto& [id, object] : news) {
      for (const auto& child : before.contains(id) ? before.at(id).items("children") : object.items("none"))
        if (!object.holds("children", child) && !news.contains(child)) gone.insert(child);
      put(merged, id, object);
      if (object.name == "PmLayout") continue;
      if (!before.contains(id) && ++added) continue;
      const Object& old = before.at(id);
      moved += old.items("parents") != object.items("parents");
      for (const char* field : {"name", "comment"})
        if (old.textOf(field) != object.textOf(field)) changed.insert(id);
    }
    for (const std::string& id : gone) {
      vanished += before.at(id).name != "PmLayout";
      zelXmlRemoveFromParent(document_test::object(merged, id));
    }
    for (const auto& [id, object] : before)
      members += object.has("layout") && !object.items("parents").empty();
    const auto share = [&](std::size_t percent) { return (members * percent + 50) / 100; };
    const std::array counts{added, changed.size(), moved, vanished};
    EXPECT_EQ(counts, (std::array{share(9), share(8), share(7), share(6)}));
    expectInOrder(merged);
    // The library takes it in whole, and deletes just what vanished.
    wrapper.reset(dynamic_cast<ZelXmlWrapper*>(ZelWrapperFactory::the().create(0)));
    buildText(text);
    wrapper->setUpdateDocument(parse(update));
    ApiPmIdList deleted;
    EXPECT_TRUE(wrapper->update(deleted, false));
    EXPECT_EQ(deleted.entries(), vanished);
  }
}

}  // namespace
}  // namespace zelgen_test
