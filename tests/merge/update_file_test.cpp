#include <gmock/gmock.h>

#include "Folder.h"
#include "api/LocalFilesCacheClientFilesManager.h"
#include "dom/DomFaults.h"
#include "merge/ZelXmlUpdateXmlWrapper.h"
#include "wrapper/StudyTest.h"

using namespace document_test;

namespace {

using files_test::contentOf;

std::string info(const std::string& id) {
  return made("MarvekStudyInfo", id, "MarvekStudyInfo", field("layout", "L" + id));
}
std::string infoLayout(const std::string& id, const std::string& place) {
  return made("PmStudyLayout", "L" + id, "PmStudyLayout", field("location", place));
}
std::string rootLayout(const std::string& children) { return layout("LA", "A", "NULL", children); }
std::string layoutOf(const std::string& id, const std::string& parent, const std::string& children = "") {
  return layout("L" + id, id, parent, children, 1, 1);
}

class UpdateFile : public StudyTest {
 protected:
  void TearDown() override {
    file.reset();
    domtest::Faults::clear();
    LocalFilesCacheClientFilesManager::the().activate("");
    StudyTest::TearDown();
  }

  // The session's study, and the file.
  void give(const std::string& source, const std::string& text) {
    study = parse(dataOf(source));
    session().setImportedDocumentAndDocRef(study, ApiDocumentRef("session.xml"));
    session().cacheNode(study, ApiPmId("outside"), study.createElement("PmX"));
    folder.write("study.xml", text);
    file = std::make_unique<ZelXmlUpdateXmlWrapper>(target, target);
    ASSERT_TRUE(file->buildToWrapDocumentToBeUpdated()) << file->lastFailure().text;
  }
  // Runs an update, and sees to what holds for every update, whatever it answers.
  bool update(const IXMLDOMDocument& given, const std::string& root = "A") {
    const std::string former = content();
    const bool result = file->updateWrappedDocument(ApiPmId(root), ApiBaseXmlDocumentWrapper(given));
    expectSessionRestored();
    EXPECT_EQ(file->lastFailure().text.empty(), result);
    EXPECT_TRUE(result || content() == former);
    return result;
  }
  void expectUpdated(const std::string& objects, const std::string& root = "A") {
    EXPECT_TRUE(update(parse(dataOf(objects)), root)) << file->lastFailure().text;
  }
  void expectSessionRestored() {
    EXPECT_EQ(session().importedDocument(), study);
    EXPECT_EQ(session().documentRef().path, "session.xml");
    EXPECT_TRUE(cached().isNodeCached(ApiPmId("outside"))) << "the session's index was made anew";
  }
  std::string content() const { return contentOf(target); }
  static bool isRegistered(const IXMLDOMDocument& of) {
    ApiPmXmlCachedDocument* found = nullptr;
    return ApiPmXmlCacheDocumentMgr::the().getCachedDocument(of, found);
  }

  const files_test::Folder folder;
  const std::string target = folder.path("study.xml");
  std::unique_ptr<ZelXmlUpdateXmlWrapper> file;
  const std::string source = studyOf("S", "K", "I") + shortcutTo("K", "A", "S") + infoWith("I", "LI") +
                             infoLayout("I", "new") + part("A", "", "");
  const std::string lists = studyOf("S", "K", "I");
  const std::string shown = shortcutTo("K", "A", "S") + info("I") + infoLayout("I", "new");
};

TEST_F(UpdateFile, AShownObjectIsReplacedWithAllBelowIt) {
  give(source,
       dataOf(lists + shortcutTo("K", "A", "S") + info("I") + infoLayout("I", "old") + part("A", "", "X Y") +
              part("X", "A", "Z") + part("Z", "X", "-") + part("Y", "A", "-") + rootLayout("LX LY") +
              layoutOf("X", "LA", "LZ") + layoutOf("Z", "LX") + layoutOf("Y", "LA")));
  const std::string tree = part("A", "", "Y N") + part("Y", "A", "-") + part("N", "A", "-") +
                           rootLayout("LY LN") + layoutOf("N", "LA");
  const IXMLDOMDocument given = parse(dataOf(tree));
  EXPECT_TRUE(update(given)) << file->lastFailure().text;
  EXPECT_EQ(content(), dataOf(lists + layoutOf("Y", "LA") + tree + shown))
      << "X went, and Z with it; the place in the study is the session's";
  EXPECT_EQ(root(given), dataOf(tree + shown)) << "the update document is extended";

  // The wrapper takes a second update, here one that empties the compound.
  expectUpdated(part("A", "", "") + rootLayout(""));
  EXPECT_EQ(content(), dataOf(lists + part("A", "", "") + rootLayout("") + shown));
  EXPECT_EQ(file->nodesNum(), 2);
}

TEST_F(UpdateFile, AnObjectThatIsNotShownHangsOnItsParents) {
  // B has a place of its own in the target's study, and a parent: the place goes. The label is replaced.
  const auto label = [](const char* name) { return made("Label", "N", "Label", field("name", name)); };
  give(source, dataOf(studyOf("S", "KB K", "IB I") + shortcutTo("KB", "B", "S") + info("IB") +
                      infoLayout("IB", "old") + shown + part("A", "", "B") + part("B", "A", "-") +
                      rootLayout("LB") + layoutOf("B", "LA") + label("old")));
  const std::string given = part("B", "gone A", "-") + label("new") + part("C", "A", "-");
  expectUpdated(given + layoutOf("C", "LA"), "B");
  EXPECT_EQ(content(),
            dataOf(lists + shown + part("A", "", "C B") + rootLayout("LC LB") + layoutOf("B", "LA") +
                   part("B", "gone A", "-") + part("C", "A", "-") + label("new") + layoutOf("C", "LA")));
  ApiPmId found;
  EXPECT_FALSE(file->findShortcut(ApiPmId("B"), found));
  const IXMLDOMDocument wrapped = file->zelXmlNodeFromId(ApiPmId("A"))->getXmlNode().ownerDocument();
  EXPECT_FALSE(isRegistered(wrapped));
  EXPECT_FALSE(update(parse("<Data/>")));
  EXPECT_TRUE(isRegistered(wrapped)) << "after a failure";
  file.reset();
  EXPECT_FALSE(isRegistered(wrapped));
}

TEST_F(UpdateFile, TheListsOfTheStudyFollowTheShortcut) {
  struct Case {
    const char *children, *infos, *newChildren, *newInfos;
  };
  for (const Case& c : {Case{"K Q", "I R", "K Q", "I R"}, Case{"K Q", "J R", "Q K", "R I"},
                        Case{"Q", "R", "Q K", "R I"}, Case{"", "", "K", "I"}}) {
    give(source, dataOf(studyOf("S", c.children, c.infos) + part("A", "", "") + rootLayout("")));
    expectUpdated(part("A", "", ""));
    EXPECT_EQ(content(),
              dataOf(studyOf("S", c.newChildren, c.newInfos) + rootLayout("") + part("A", "", "") + shown))
        << c.children;
  }
}

TEST_F(UpdateFile, AnObjectThatLostAParentStaysWhileSomethingLeadsToIt) {
  // All three lose A: P has another parent, Q a shortcut, R only a parent that is not in the document.
  const auto text = [&](const std::string& a, const std::string& rest, const std::string& r) {
    return dataOf(studyOf("S", "KQ K", "IQ I") + shortcutTo("KQ", "Q", "S") + part("B", "", "P") + rest + r +
                  a);
  };
  give(source, text(part("A", "", "P Q R") + shown, part("P", "A B", "-") + part("Q", "A", "-"),
                    part("R", "A gone", "-")));
  expectUpdated(part("A", "", ""));
  EXPECT_EQ(content(), text(part("A", "", "") + shown, part("P", "B", "-") + part("Q", "", "-"), ""));

  // A chain of orphans as long as a tree can be deep.
  constexpr int depth = 20000;
  std::string chain;
  for (int i = 1; i <= depth; ++i)
    chain += part("C" + std::to_string(i), i == 1 ? "A" : "C" + std::to_string(i - 1),
                  "C" + std::to_string(i + 1));
  give(source, dataOf(lists + part("A", "", "C1") + chain));
  expectUpdated(part("A", "", ""));
  EXPECT_EQ(content(), dataOf(lists + part("A", "", "") + shown));
}

// P has the child Q, and Q stands also beside it: where P is judged first, Q goes with it, and its own turn
// finds it gone.
TEST_F(UpdateFile, ChildrenOfAnOrphanAreJudgedInTheirOrder) {
  for (const bool isPFirst : {true, false}) {
    give(source, dataOf(lists + shown + part("A", "", "O") + part("O", "A", isPFirst ? "P Q" : "Q P") +
                        part("P", "O", "Q") + part("Q", "O P", "-")));
    EXPECT_EQ(update(parse(dataOf(part("A", "", "")))), !isPFirst) << file->lastFailure().text;
    if (isPFirst)
      EXPECT_THAT(file->lastFailure().text,
                  testing::HasSubstr("\"Q\", which lost a parent, has been removed"));
    else
      EXPECT_EQ(content(), dataOf(lists + part("A", "", "") + shown));
  }
}

TEST_F(UpdateFile, AFailingStepLeavesTheFileAndTheSession) {
  const std::string plain = part("A", "", "") + rootLayout("");
  const std::string given = dataOf(part("A", "", ""));
  struct Case {
    std::string source, target, update, root, reason;
  };
  const std::vector<Case> cases = {
      {studyOf("T", "", ""), lists + plain, given, "A", "no study object \"S\""},
      {source, lists + plain, given, "none", "the update has no object \"none\""},
      {source, lists + plain, dataOf(part("B", "C", "")), "B", "nor is one of its parents in"},
      {source, lists + plain, dataOf(partWithoutId + part("A", "", "")), "A", "has no id: PmPartInstance"},
      {source, lists + part("A", "", "B") + part("B", "", "-"), given, "A",
       "\"B\", a child of \"A\", does not name it"},
      {source, lists + shown + plain, dataOf(lists), "A", "\"K\", a child of \"S\", does not name it"},
      {studyOf("S", "K", "") + shortcutTo("K", "A", "S") + part("A", "", ""), lists + plain, given, "A",
       "no whole shortcut to \"A\""},
      {source, lists + plain, "<Data/>", "A", "no Data/Objects"},
      {source, lists + plain, dataOf(bare("PmReferenceFile", "F", "<fileName>/no/such/file</fileName>")), "A",
       "cannot be fetched"},
      {source, lists + plain + "</Objects><Objects>" + made("Label", "N", "Label"),
       dataOf(made("Label", "N", "Label")), "A", "\"N\" cannot be replaced"},
      {source, lists + plain + part("B", "", "-"), dataOf(part("C", "B", "-")), "A",
       "\"B\" does not take the object \"C\""},
      {studyOf("S", "K", "I") + shortcutTo("K", "A", "T") + info("I") + infoLayout("I", "") + plain,
       lists + plain, given, "A", "the study of the shortcut \"K\""},
      {source, studyOf("S", "K", "") + plain, given, "A", "no study info for the shortcut \"K\""},
      // P takes B along, which is judged after it.
      {source, lists + part("A", "", "P B") + part("P", "A", "B") + part("B", "A P", "-"), given, "A",
       "\"B\", which lost a parent, has been removed"},
  };
  ASSERT_TRUE(LocalFilesCacheClientFilesManager::the().activate(folder.path("cache")));
  for (const Case& c : cases) {
    give(c.source, dataOf(c.target));
    EXPECT_FALSE(update(parse(c.update), c.root)) << c.reason;
    EXPECT_THAT(file->lastFailure().text, testing::HasSubstr(c.reason));
    EXPECT_FALSE(file->lastFailure().ofFile);
  }
}

TEST_F(UpdateFile, AFailingSaveLeavesTheFileWhole) {
  int failures = 0;
  for (bool renamed = false; !renamed; ++failures) {
    give(source, dataOf(lists + part("A", "", "")));
    domtest::Faults::set(failures);
    const bool saved = update(parse(dataOf(part("A", "", ""))));
    renamed = saved;
    const std::string failed = domtest::Faults::failed;
    domtest::Faults::clear();
    EXPECT_EQ(file->lastFailure().ofFile, !saved) << failed;
    EXPECT_EQ(content(), dataOf(saved ? lists + part("A", "", "") + shown : lists + part("A", "", "")));
    EXPECT_EQ(folder.files().size(), 1u) << "a file is left after " << failed;
  }
  EXPECT_GT(failures, 5) << "open, write, chmod, fsync, close and rename";
}

TEST_F(UpdateFile, TheSessionComesBackAfterAnException) {
  give(source, dataOf(lists + part("A", "", "") + part("B", "", "C") + part("C", "B", "-")));
  // The warning that B is C's second parent finds a sink that gives up.
  apiErr.setSink([](const ApiErrEntry&) { throw std::runtime_error("full"); });
  const std::string former = content();
  const auto given = ApiBaseXmlDocumentWrapper(parse(dataOf(part("D", "A", "C"))));
  EXPECT_THROW(file->updateWrappedDocument(ApiPmId("D"), given), std::runtime_error);
  expectSessionRestored();
  EXPECT_EQ(content(), former);
}

TEST_F(UpdateFile, AFileThatCannotBeReadIsNotUpdated) {
  give(source, dataOf(studyOf("S", "", "")));
  folder.write("study.xml", "<Data>");
  EXPECT_FALSE(file->buildToWrapDocumentToBeUpdated());
  EXPECT_THAT(file->lastFailure().text, testing::HasSubstr(target + ":1:"));
  EXPECT_TRUE(file->lastFailure().ofFile);
  expectSessionRestored();
  EXPECT_FALSE(update(parse(dataOf(part("A", "", "")))));
}

TEST_F(UpdateFile, ACopyOfTheSessionsFileGetsAnIdOfItsOwn) {
  const _GUID guid = {0x01234567, 0x89ab, 0xcdef, {0x01, 0x23, 0x45, 0x67, 0x89, 0xab, 0xcd, 0xef}};
  struct Case {
    const char* own;
    bool alternative;
    const char* saved;
  };
  for (const Case& c :
       {Case{"", false, ""}, Case{" cachedId=\"other\"", true, " cachedId=\"other\""},
        Case{" cachedId=\"one\"", true, " cachedId=\"{01234567-89ab-cdef-0123-456789abcdef}\""},
        Case{" cachedId=\"one\"", false, " cachedId=\"{new1}\""},
        Case{" cachedId=\"one\"", false, " cachedId=\"{new2}\""}}) {
    const std::string objects = "><Objects>" + lists + part("A", "", "");
    give(source, "<Data" + std::string(c.own) + objects + "</Objects></Data>");
    study.documentElement().setAttribute("cachedId", "one");
    if (c.alternative) file->setAlternativeCachedIdForDoc(guid);
    EXPECT_TRUE(file->buildToWrapDocumentToBeUpdated());
    expectUpdated(part("A", "", ""));
    EXPECT_EQ(content(), "<Data" + std::string(c.saved) + objects + shown + "</Objects></Data>");
  }
}

}  // namespace
