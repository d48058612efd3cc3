#include "api/ApiPmSessionManager.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "api/ApiPmXmlCacheDocumentMgr.h"

namespace {

// An object stands behind references of its own name, two objects share an id, and two sections hold objects.
const char* const study = R"(<Data>
  <Objects>
    <PLCProgram ExternalId="plc"><plcInfo><SensorsData><item><LightSensor ExternalId="tool"/></item></SensorsData></plcInfo></PLCProgram>
    <PmToolInstance ExternalId="tool"><name>T</name></PmToolInstance>
    <PmPartInstance ExternalId="twice"><name>first</name></PmPartInstance>
    <PmPartInstance ExternalId="NULL"/><PmPartInstance ExternalId=""/><PmPartInstance/>
  </Objects>
  <Other><PmPartInstance ExternalId="elsewhere"/></Other>
  <Objects command="DG_UPDATE_STREAM_COMMAND">
    <PmPartInstance ExternalId="twice"><name>second</name></PmPartInstance>
    <PmPartInstance ExternalId="late"><name>L</name></PmPartInstance>
  </Objects>
</Data>)";

IXMLDOMDocument read(const char* text) {
  const IXMLDOMDocument document = IXMLDOMDocument::create();
  DomError error;
  EXPECT_TRUE(document.loadXML(text, &error)) << error.message();
  return document;
}

IXMLDOMElement element(const IXMLDOMNode& at, const char* path) {
  IXMLDOMNode found;
  EXPECT_TRUE(at.selectSingleNode(path, found)) << path;
  return found;
}

// The name of what the index of a document has under an id; "-" for no entry, "?" for a document without
// index.
std::string nameOf(const IXMLDOMDocument& document, const char* id) {
  ApiPmXmlCachedDocument* cached = nullptr;
  if (!ApiPmXmlCacheDocumentMgr::the().getCachedDocument(document, cached)) return "?";
  IXMLDOMElement found;
  const bool known = cached->getNodeById(document, ApiPmId(id), found, false);
  EXPECT_EQ(known, static_cast<bool>(found));
  EXPECT_EQ(known, cached->isNodeCached(ApiPmId(id)));
  return known ? found.text() : "-";
}

// Each test starts and ends without documents.
class Session : public testing::Test {
 protected:
  Session() { close(); }
  ~Session() override { close(); }
  static void close() { session().setImportedDocumentAndDocRef({}, {}); }
  static ApiPmSessionManager& session() { return ApiPmSessionManager::the(); }
  static ApiPmXmlCacheDocumentMgr& manager() { return ApiPmXmlCacheDocumentMgr::the(); }
  static void open(const IXMLDOMDocument& document) {
    session().setImportedDocumentAndDocRef(document, {"study.xml"});
  }
};

TEST_F(Session, IndexesTheObjectsOfAllSectionsAndNothingElse) {
  const IXMLDOMDocument document = read(study);
  open(document);
  const struct {
    const char* id;
    const char* name;
  } cases[] = {{"plc", ""},   {"tool", "T"}, {"twice", "first"}, {"late", "L"}, {"elsewhere", "-"},
               {"NULL", "-"}, {"", "-"},     {"TOOL", "-"},      {"tool ", "-"}};
  for (const auto& [id, name] : cases) EXPECT_EQ(nameOf(document, id), name) << id;
  for (const char* text : {"<Data/>", "<Other><Objects><A ExternalId='tool'/></Objects></Other>"}) {
    const IXMLDOMDocument other = read(text);
    open(other);
    EXPECT_EQ(nameOf(other, "tool"), "-") << text;
    EXPECT_EQ(nameOf(document, "tool"), "?");
  }
}

TEST_F(Session, CachesANodePerDocument) {
  const IXMLDOMDocument document = read(study), out = read("<Data/>"), unknown = read("<Data/>");
  open(document);
  ASSERT_TRUE(manager().addDocument(out));
  const ApiPmId tool("tool");
  const IXMLDOMElement copy = element(document, "Data/Objects/PmToolInstance").cloneNode(true);
  copy.putText("copy");
  session().cacheNode(out, tool, copy);
  session().cacheNode(unknown, tool, copy);
  session().cacheNode({}, tool, copy);
  EXPECT_EQ(nameOf(document, "tool"), "T");
  EXPECT_EQ(nameOf(out, "tool"), "copy");
  EXPECT_EQ(nameOf(unknown, "tool"), "?");
  // A later one takes the entry, also of an element that stands in no tree.
  session().cacheNode(document, tool, copy);
  EXPECT_EQ(nameOf(document, "tool"), "copy");
  session().cacheNode(document, ApiPmId("NULL"), copy);
  session().cacheNode(document, ApiPmId(), copy);
  session().cacheNode(document, ApiPmId("none"), {});
  EXPECT_EQ(nameOf(document, "NULL"), "-");
  EXPECT_EQ(nameOf(document, "none"), "-");
  EXPECT_TRUE(manager().removeDocument(out));
  EXPECT_EQ(nameOf(out, "tool"), "?");
}

TEST_F(Session, ServesElementsThatLeftTheTree) {
  const IXMLDOMDocument document = read(study);
  open(document);
  const IXMLDOMElement tool = element(document, "Data/Objects/PmToolInstance");
  ASSERT_TRUE(tool.parentNode().removeChild(tool));
  EXPECT_EQ(nameOf(document, "tool"), "T");
}

TEST_F(Session, RegistrationIsCountedBesideTheSessionsOwn) {
  const IXMLDOMDocument document = read(study), other = read(study);
  EXPECT_FALSE(manager().addDocument({}));
  EXPECT_FALSE(manager().removeDocument({}));
  EXPECT_FALSE(manager().removeDocument(document));
  open(document);
  ApiPmXmlCachedDocument* cached = nullptr;
  ASSERT_TRUE(manager().getCachedDocument(document, cached));
  EXPECT_EQ(cached, &session().cachedDocument());
  EXPECT_FALSE(manager().getCachedDocument(other, cached));
  EXPECT_FALSE(manager().getCachedDocument({}, cached));
  EXPECT_EQ(cached, &session().cachedDocument());
  // Added and removed beside the session; what the index learned stays.
  session().cacheNode(document, ApiPmId("more"), element(document, "Data/Objects/PmToolInstance"));
  EXPECT_TRUE(manager().addDocument(document));
  EXPECT_TRUE(manager().removeDocument(document));
  EXPECT_FALSE(manager().removeDocument(document));
  EXPECT_EQ(nameOf(document, "more"), "T");
  EXPECT_EQ(&session().cachedDocument(), cached);
  // The same document again keeps its index and takes the new reference.
  session().setImportedDocumentAndDocRef(document, {"elsewhere.xml"});
  EXPECT_EQ(nameOf(document, "more"), "T");
  EXPECT_EQ(session().documentRef().path, "elsewhere.xml");
  // A replaced document loses the session's registration only.
  EXPECT_TRUE(manager().addDocument(document));
  EXPECT_TRUE(manager().addDocument(document));
  open(other);
  EXPECT_EQ(nameOf(document, "more"), "T");
  EXPECT_TRUE(manager().removeDocument(document));
  EXPECT_EQ(nameOf(document, "more"), "T");
  open(document);
  EXPECT_TRUE(manager().removeDocument(document));
  EXPECT_EQ(nameOf(document, "more"), "T");
  EXPECT_EQ(nameOf(other, "tool"), "?");
  open(other);
  EXPECT_EQ(nameOf(document, "more"), "?");
  EXPECT_FALSE(manager().removeDocument(document));
}

TEST_F(Session, WithoutADocumentEverythingAnswers) {
  ApiPmXmlCachedDocument& none = session().cachedDocument();
  EXPECT_FALSE(none.importedDocument());
  EXPECT_FALSE(session().importedDocument());
  EXPECT_EQ(session().documentRef().path, "");
  const IXMLDOMDocument document = read(study);
  const IXMLDOMElement tool = element(document, "Data/Objects/PmToolInstance");
  const ApiPmId id("tool");
  IXMLDOMElement found;
  for (const IXMLDOMDocument& asked : {IXMLDOMDocument(), document}) {
    EXPECT_FALSE(none.getNodeById(asked, id, found, true));
    EXPECT_FALSE(none.replaceCachedNode(asked, id, tool));
    EXPECT_FALSE(none.removeEntry(asked, id));
    EXPECT_FALSE(none.reCacheAllChildrenNodes(asked, tool));
  }
  none.cacheNode(id, tool);
  EXPECT_FALSE(none.isNodeCached(id));
  open(document);
  EXPECT_NE(&session().cachedDocument(), &none);
  close();
  EXPECT_EQ(&session().cachedDocument(), &none);
}

TEST_F(Session, KeepsADocumentNoLongerThanItsRegistration) {
  const std::size_t before = IXMLDOMDocument::livingNodes();
  open(read(study));
  EXPECT_GT(IXMLDOMDocument::livingNodes(), before);
  EXPECT_TRUE(manager().addDocument(session().importedDocument()));
  EXPECT_TRUE(manager().removeDocument(session().importedDocument()));
  open(read(study));
  close();
  EXPECT_EQ(IXMLDOMDocument::livingNodes(), before);
}

TEST_F(Session, EntriesFollowWhatIsSaid) {
  const IXMLDOMDocument document = read(study), other = read(study);
  open(document);
  auto& cached = session().cachedDocument();
  const IXMLDOMElement late = element(document, "Data/Objects[@command]/PmPartInstance[@ExternalId='late']");
  EXPECT_FALSE(cached.replaceCachedNode(other, ApiPmId("tool"), late));
  EXPECT_FALSE(cached.removeEntry(other, ApiPmId("tool")));
  EXPECT_EQ(nameOf(document, "tool"), "T");
  EXPECT_TRUE(cached.replaceCachedNode(document, ApiPmId("tool"), late));
  EXPECT_EQ(nameOf(document, "tool"), "L");
  EXPECT_TRUE(cached.replaceCachedNode(document, ApiPmId("made"), late));
  EXPECT_EQ(nameOf(document, "made"), "L");
  EXPECT_FALSE(cached.replaceCachedNode(document, ApiPmId("NULL"), late));
  EXPECT_TRUE(cached.removeEntry(document, ApiPmId("made")));
  EXPECT_FALSE(cached.removeEntry(document, ApiPmId("made")));
  // From the old id to the new one, over an entry that stands there; the attribute is left alone.
  EXPECT_TRUE(cached.replaceCachedNodeId(ApiPmId("late"), ApiPmId("twice")));
  EXPECT_EQ(nameOf(document, "late"), "-");
  EXPECT_EQ(nameOf(document, "twice"), "L");
  EXPECT_EQ(element(document, "Data/Objects[@command]/*[@ExternalId='late']").text(), "L");
  EXPECT_TRUE(cached.replaceCachedNodeId(ApiPmId("twice"), ApiPmId("twice")));
  for (const char* refused : {"", "NULL"}) {
    EXPECT_FALSE(cached.replaceCachedNodeId(ApiPmId("twice"), ApiPmId(refused)));
  }
  EXPECT_FALSE(cached.replaceCachedNodeId(ApiPmId("unknown"), ApiPmId("twice")));
  EXPECT_EQ(nameOf(document, "twice"), "L");
  // From one section alone.
  EXPECT_FALSE(cached.reCacheAllChildrenNodes(other, element(other, "Data/Objects")));
  EXPECT_FALSE(cached.reCacheAllChildrenNodes(document, {}));
  EXPECT_TRUE(cached.reCacheAllChildrenNodes(document, element(document, "Data/Objects[@command]")));
  EXPECT_EQ(nameOf(document, "twice"), "second");
  EXPECT_EQ(nameOf(document, "tool"), "-");
}

TEST_F(Session, ReadsTheIdThatADocumentCarries) {
  ApiPmId id("before");
  for (const char* text : {"<Data/>", "<Data cachedId=''/>", "<Data><Objects cachedId='inner'/></Data>"}) {
    EXPECT_FALSE(ApiPmXmlCachedDocument::getCachedDocId(read(text), id)) << text;
  }
  EXPECT_FALSE(ApiPmXmlCachedDocument::getCachedDocId({}, id));
  EXPECT_EQ(id, ApiPmId("before"));
  EXPECT_TRUE(ApiPmXmlCachedDocument::getCachedDocId(read("<Data cachedId='{6F}'/>"), id));
  EXPECT_EQ(id, ApiPmId("{6F}"));
}

// Ids that come and go in one index, against a plain count of what must be there.
TEST_F(Session, FindsEachOfManyObjects) {
  std::string text = "<Data><Objects>";
  constexpr int count = 20000;
  for (int i = 0; i < count; ++i) {
    const std::string number = std::to_string(i);
    text.append("<P ExternalId='p").append(number).append("'>").append(number).append("</P>");
  }
  const IXMLDOMDocument document = read((text + "</Objects></Data>").c_str());
  open(document);
  auto& cached = session().cachedDocument();
  const auto idOf = [](int i) { return ApiPmId(std::string("p").append(std::to_string(i))); };
  for (int i = 0; i < count; i += 3) ASSERT_TRUE(cached.removeEntry(document, idOf(i)));
  for (int i = 1; i < count; i += 3) ASSERT_TRUE(cached.replaceCachedNodeId(idOf(i), idOf(i + count)));
  for (int i = 0; i < count; ++i) {
    IXMLDOMElement found;
    ASSERT_EQ(cached.getNodeById(document, idOf(i), found, true), i % 3 == 2) << i;
    ASSERT_EQ(cached.getNodeById(document, idOf(i + count), found, true), i % 3 == 1) << i;
    ASSERT_EQ(found.text(), i % 3 == 0 ? "" : std::to_string(i));
  }
}

TEST_F(Session, ModeIsAnsweredByAVirtualOperation) {
  struct Fixed : ApiPmSessionManager {
    int sessionMode() const override { return 2; }
  } fixed;
  session().mode = 1;
  EXPECT_EQ(session().sessionMode(), 1);
  EXPECT_EQ(static_cast<const ApiPmSessionManager&>(fixed).sessionMode(), 2);
  session().mode = 0;
}

}  // namespace
