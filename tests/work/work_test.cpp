// What operations cost, counted and not timed: nodes that searches visit, paths that are compiled, indexes
// that are made, allocations.

#include <cstdlib>
#include <functional>
#include <new>
#include <random>

#include "StudyGenerator.h"
#include "StudyText.h"
#include "wrapper/StudyTest.h"
#include "zelstudy/StudyCheck.h"
#include "zelstudy/StudyDiff.h"

namespace {

std::size_t allocations = 0;

}  // namespace

void* operator new(std::size_t size) {
  ++allocations;
  void* memory = std::malloc(size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  ++allocations;
  return std::malloc(size);
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

using namespace document_test;

namespace {

struct Cost {
  std::uint64_t nodes = 0;
  std::uint64_t paths = 0;
  std::uint64_t indexes = 0;
  std::size_t allocations = 0;
};

Cost costOf(const std::function<void()>& work) {
  const DomWork before = IXMLDOMDocument::work();
  const std::size_t allocated = allocations;
  work();
  const DomWork after = IXMLDOMDocument::work();
  return {after.nodesVisited - before.nodesVisited, after.pathsCompiled - before.pathsCompiled,
          after.indexesMade - before.indexesMade, allocations - allocated};
}

class WorkTest : public StudyTest {
 protected:
  void SetUp() override {
    StudyTest::SetUp();
    ApiPmXmlCacheDocumentMgr::the().addDocument(stream);
  }
  void TearDown() override {
    ApiPmXmlCacheDocumentMgr::the().removeDocument(stream);
    StudyTest::TearDown();
  }

  // A generated study of so many objects, built, with an OUT document.
  void generate(std::uint32_t objects) {
    api::setGuidSource([this] { return "made" + std::to_string(++made_); });
    zelgen::StudyOptions options;
    options.objects = objects;
    study = parse(zelgen::generateStudy(options));
    session().setImportedDocumentAndDocRef(study, {});
    ASSERT_TRUE(wrapper->build(false));
    publish();
    random_.seed(7);
  }
  ZelNode* any(ZelNodeType type) {
    ZelNodeList all;
    wrapper->getAllNodes(all);
    std::vector<ZelNode*> found;
    for (ZelNode* each : all) {
      if (each->type() == type) found.push_back(each);
    }
    return found[random_() % found.size()];
  }
  static ApiPmId idOf(const ZelNode* node) {
    ApiPmId id;
    node->getExternalId(id);
    return id;
  }
  ApiPmId newId() { return ApiPmId("added" + std::to_string(++made_)); }

 private:
  std::mt19937 random_;
  int made_ = 0;
};

// Once it has run, an edit of one object costs the same in a small and in a large study: it searches no
// document, compiles no path and makes no index.
TEST_F(WorkTest, AnEditCostsTheSameInEveryStudy) {
  struct Edit {
    const char* name;
    std::function<std::function<void()>()> prepare;
  };
  const std::vector<Edit> all = {
      {"setName", [&] { return [part = any(ZEL_PART_INSTANCE)] { part->setName("x"); }; }},
      {"setLocation",
       [&] {
         return [part = zelQuery<ZelPhysical>(any(ZEL_PART_INSTANCE))] {
           part->setLocation(RTTran3D({1, 2, 3}, {0, 0, 1}));
         };
       }},
      {"moveChild",
       [&] {
         auto* target = zelQuery<ZelCollection>(any(ZEL_COMPOUND_PART));
         return [target, part = any(ZEL_PART_INSTANCE)] { target->moveChild(part); };
       }},
      {"createChild",
       [&] {
         auto* target = zelQuery<ZelCollection>(any(ZEL_COMPOUND_PART));
         return [target, id = newId()] { target->createChild(ZEL_PART_INSTANCE, id); };
       }},
      {"deleteNode",
       [&] { return [this, id = idOf(any(ZEL_PART_INSTANCE))]() mutable { wrapper->deleteNode(id); }; }},
      {"show in the study",
       [&] {
         ZelNode* made = wrapper->createRoot(ZEL_COMPOUND_PART, newId());
         return [this, made] { collection(wrapper->studyId())->moveChild(made); };
       }},
      {"take out of the study",
       [&] {
         ZelNode* made = wrapper->createRoot(ZEL_COMPOUND_PART, newId());
         collection(wrapper->studyId())->moveChild(made);
         return [this, id = idOf(made)]() mutable { wrapper->deleteNode(id); };
       }},
  };
  std::map<std::string, Cost> small;
  for (const std::uint32_t objects : {1000U, 20000U}) {
    generate(objects);
    for (const Edit& edit : all) {
      for (int first = 0; first < 3; ++first) edit.prepare()();
      Cost most;
      for (int round = 0; round < 20; ++round) {
        const Cost cost = costOf(edit.prepare());
        most = {std::max(most.nodes, cost.nodes), most.paths + cost.paths, most.indexes + cost.indexes,
                std::max(most.allocations, cost.allocations)};
      }
      EXPECT_EQ(most.paths, 0U) << edit.name;
      EXPECT_EQ(most.indexes, 0U) << edit.name;
      if (objects == 1000) {
        small[edit.name] = most;
        continue;
      }
      EXPECT_LE(most.nodes, 2 * small[edit.name].nodes + 500) << edit.name;
      EXPECT_LE(most.allocations, 2 * small[edit.name].allocations + 500) << edit.name;
    }
  }
}

TEST_F(WorkTest, ReadsAllocateNothing) {
  generate(1000);
  ZelNodeList all;
  wrapper->getAllNodes(all);
  std::string text(200, ' ');
  ApiPmId id;
  RTTran3D place;
  const std::vector<std::pair<const char*, std::function<void(ZelNode*)>>> reads = {
      {"getExternalId", [&](ZelNode* node) { node->getExternalId(id); }},
      {"getZelNodeFromId", [&](ZelNode* node) { node->getExternalId(id) && wrapper->getZelNodeFromId(id); }},
      {"getName", [&](ZelNode* node) { node->getName(text); }},
      {"getParent", [&](ZelNode* node) { node->getParent(); }},
      {"getLocation",
       [&](ZelNode* node) {
         // A label's placement is a text of its own, which is taken apart.
         auto* physical = node->type() == ZEL_LABEL ? nullptr : zelQuery<ZelPhysical>(node);
         if (physical) physical->getLocation(place);
       }},
  };
  for (const auto& [name, read] : reads) {
    for (ZelNode* each : all) read(each);
    const Cost cost = costOf([&] {
      for (ZelNode* each : all) read(each);
    });
    EXPECT_EQ(cost.allocations, 0U) << name << " of " << all.entries() << " nodes";
    EXPECT_EQ(cost.paths + cost.indexes, 0U) << name;
  }
}

// Work that takes in a whole document visits each object a bounded number of times.
// A handle climbs to the root; what reads whole documents does so for their objects, not for each field.
TEST_F(WorkTest, DeepFieldsAreReadWithoutClimbing) {
  const auto chain = [](int depth, const std::string& name, const std::string& text) {
    std::string start, end;
    for (int i = 0; i < depth; ++i) {
      start += "<" + name + ">";
      end += "</" + name + ">";
    }
    return start + text + end;
  };
  const auto climbed = [&](int depth) {
    std::string before, after;
    for (int i = 0; i < 20; ++i) {
      before += "<P>" + chain(depth, i % 2 ? "item" : "a", "x") + "</P>";
      after += "<P>" + chain(depth, i % 2 ? "item" : "a", i < 10 ? "y" : "x") + "</P>";
      before += bare("P", "P" + std::to_string(i), chain(depth, "a", "x"));
      after += bare("P", "P" + std::to_string(i), chain(depth, "a", "y"));
    }
    const IXMLDOMDocument one = parse(dataOf(before)), other = parse(dataOf(after));
    const std::uint64_t start = IXMLDOMDocument::work().levelsClimbed;
    EXPECT_EQ(zelstudy::diffStudies(one, one).equal(), true);
    EXPECT_EQ(zelstudy::diffStudies(one, other).changed.size(), 20u);
    EXPECT_FALSE(zelstudy::checkStudy(one, {.strict = true}).findings.empty());
    return IXMLDOMDocument::work().levelsClimbed - start;
  };
  EXPECT_EQ(climbed(900), climbed(9));
}

TEST_F(WorkTest, AnUpdateOfEverythingIsLinear) {
  std::vector<double> perObject;
  for (const std::uint32_t objects : {1000U, 10000U}) {
    generate(objects);
    zelgen::StudyOptions options;
    options.objects = objects;
    const IXMLDOMDocument update = parse(zelgen::generateStudy(options));
    const Cost cost = costOf([&] {
      wrapper->setUpdateDocument(update);
      EXPECT_TRUE(wrapper->update(false));
    });
    perObject.push_back(static_cast<double>(cost.nodes) / objects);
  }
  EXPECT_LT(perObject[1], 1.5 * perObject[0]);
}

// What a document keeps for its searches and long lists costs by what is asked and changed, not by its size.
TEST_F(WorkTest, SearchesAndListsAreKeptThroughChanges) {
  const auto rows = [](int count) {
    std::string text = "<all>";
    for (int i = 0; i < count; ++i) {
      const std::string n = std::to_string(i);
      text += "<row id='same'><x/></row><a>" + n + "</a><b>" + n + "</b>";
    }
    return parse(text + "</all>");
  };
  struct Case {
    const char* name;
    std::function<void(const IXMLDOMElement& all, const IXMLDOMElement& row, int round)> change;
  };
  const auto look = [](const IXMLDOMElement& all) {
    IXMLDOMElement found;
    EXPECT_TRUE(all.ownerDocument().findByAttribute("id", "same", found));
  };
  const Case cases[] = {
      {"values of one text come at the end, each looked for",
       [&](const IXMLDOMElement& all, const IXMLDOMElement&, int) {
         const IXMLDOMElement fresh = all.ownerDocument().createElement("row");
         EXPECT_TRUE(fresh.setAttribute("id", "same") && all.appendChild(fresh));
         look(all);
       }},
      {"values of one text come and go in the midst",
       [&](const IXMLDOMElement& all, const IXMLDOMElement& row, int) {
         EXPECT_TRUE(row.firstElementChild().setAttribute("id", "same"));
         look(all);
         EXPECT_TRUE(row.setAttribute("id", "other"));
         look(all);
       }},
      {"lists of two names take turns, and temporary documents end",
       [&](const IXMLDOMElement& all, const IXMLDOMElement&, int round) {
         IXMLDOMNode found;
         long index = 0;
         for (const char* name : {"a", "b"}) {
           EXPECT_TRUE(all.findChild(name, std::to_string(400 + round), found, index));
           parse("<temporary/>");
         }
       }},
      {"children of one text go",
       [&](const IXMLDOMElement& all, const IXMLDOMElement& row, int) {
         IXMLDOMNode found;
         long index = 0;
         EXPECT_FALSE(all.findChild("row", "none", found, index));
         EXPECT_TRUE(all.removeChild(row));
       }},
  };
  for (const Case& c : cases) {
    std::uint64_t small = 0;
    for (const int count : {1000, 16000}) {
      const IXMLDOMDocument document = rows(count);
      const IXMLDOMElement all = document.documentElement();
      std::vector<IXMLDOMElement> some;
      IXMLDOMNodeList found;
      all.selectNodes("row", found);
      for (int i = 0; i < 300; ++i) some.push_back(found.item(i * 7919L % count));
      const auto run = [&](int from, int to) {
        for (int i = from; i < to; ++i) c.change(all, some[static_cast<std::size_t>(i)], i);
      };
      run(0, 3);
      const std::uint64_t nodes = costOf([&] { run(3, 300); }).nodes;
      if (count == 1000) small = nodes;
      EXPECT_LE(nodes, 2 * small + 500) << c.name << ", " << count;
    }
  }
}

// A bulk of new values of one text is put in order by numbers, not by walks among siblings.
TEST_F(WorkTest, ManyNewValuesOfOneTextAreOrderedInOneGo) {
  constexpr int count = 16000;
  const IXMLDOMDocument document = parse("<all/>");
  const IXMLDOMElement all = document.documentElement();
  std::vector<IXMLDOMElement> rows;
  for (int i = 0; i < count; ++i) {
    rows.push_back(document.createElement("row"));
    all.appendChild(rows.back());
  }
  IXMLDOMElement first;
  EXPECT_FALSE(document.findByAttribute("id", "x", first));
  std::shuffle(rows.begin(), rows.end(), std::mt19937(7));
  for (const IXMLDOMElement& row : rows) row.setAttribute("id", "x");
  const Cost cost = costOf([&] { EXPECT_TRUE(document.findByAttribute("id", "x", first)); });
  EXPECT_EQ(first, all.firstElementChild());
  EXPECT_LE(cost.nodes, 100U * 15 * count);
  const Cost removal = costOf([&] {
    for (const IXMLDOMElement& row : rows) EXPECT_TRUE(row.removeAttribute("id"));
  });
  EXPECT_LE(removal.nodes, 100U * 15 * count);
}

}  // namespace
