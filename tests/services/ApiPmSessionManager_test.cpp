#include "api/ApiPmSessionManager.h"

#include "api/ApiPmXmlCacheDocumentMgr.h"
#include "dom/DomTesting.h"

namespace {

using domtest::at;
using domtest::parsed;

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
  const IXMLDOMDocument document = parsed(study);
  open(document);
  const struct {
    const char *id, *name;
  } cases[] = {{"plc", ""},   {"tool", "T"}, {"twice", "first"}, {"late", "L"}, {"elsewhere", "-"},
               {"NULL", "-"}, {"", "-"},     {"TOOL", "-"},      {"tool ", "-"}};
  for (const auto& [id, name] : cases) EXPECT_EQ(nameOf(document, id), name) << id;
  for (const char* text : {"<Data/>", "<Other><Objects><A ExternalId='tool'/></Objects></Other>"}) {
    const IXMLDOMDocument other = parsed(text);
    open(other);
    EXPECT_EQ(nameOf(other, "tool"), "-") << text;
    EXPECT_EQ(nameOf(document, "tool"), "?");
  }
}

TEST_F(Session, CachesANodePerDocument) {
  const IXMLDOMDocument document = parsed(study), out = parsed("<Data/>"), unknown = parsed("<Data/>");
  open(document);
  ASSERT_TRUE(manager().addDocument(out));
  const ApiPmId tool("tool");
  const IXMLDOMElement copy = at(document, "Data/Objects/PmToolInstance").cloneNode(true);
  copy.putText("copy");
  session().cacheNode(out, tool, copy);
  session().cacheNode(unknown, tool, copy);
  EXPECT_EQ(nameOf(document, "tool"), "T");
  EXPECT_EQ(nameOf(out, "tool"), "copy");
  EXPECT_EQ(nameOf(unknown, "tool"), "?");
  // A later one takes the entry, also of an element that stands in no tree.
  session().cacheNode(document, tool, copy);
  EXPECT_EQ(nameOf(document, "tool"), "copy");
  session().cacheNode(document, ApiPmId("NULL"), copy);
  EXPECT_EQ(nameOf(document, "NULL"), "-");
  EXPECT_TRUE(manager().removeDocument(out));
  EXPECT_EQ(nameOf(out, "tool"), "?");
}

TEST_F(Session, RegistrationIsCountedBesideTheSessionsOwn) {
  const IXMLDOMDocument document = parsed(study), other = parsed(study);
  EXPECT_FALSE(manager().removeDocument(document));
  open(document);
  // Added and removed beside the session; what the index learned stays.
  session().cacheNode(document, ApiPmId("more"), at(document, "Data/Objects/PmToolInstance"));
  EXPECT_TRUE(manager().addDocument(document));
  EXPECT_TRUE(manager().removeDocument(document));
  EXPECT_FALSE(manager().removeDocument(document));
  EXPECT_EQ(nameOf(document, "more"), "T");
  // The same document again keeps its index.
  session().setImportedDocumentAndDocRef(document, {"elsewhere.xml"});
  EXPECT_EQ(nameOf(document, "more"), "T");
  // A replaced document loses the session's registration only.
  EXPECT_TRUE(manager().addDocument(document));
  open(other);
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
  const IXMLDOMDocument document = parsed(study);
  const IXMLDOMElement tool = at(document, "Data/Objects/PmToolInstance");
  const ApiPmId id("tool");
  none.cacheNode(id, tool);
  IXMLDOMElement found;
  for (const IXMLDOMDocument& asked : {IXMLDOMDocument(), document}) {
    EXPECT_FALSE(none.getNodeById(asked, id, found, true) || none.replaceCachedNode(asked, id, tool) ||
                 none.removeEntry(asked, id) || none.reCacheAllChildrenNodes(asked, tool));
  }
}

TEST_F(Session, KeepsADocumentNoLongerThanItsRegistration) {
  const std::size_t before = IXMLDOMDocument::livingNodes();
  open(parsed(study));
  EXPECT_GT(IXMLDOMDocument::livingNodes(), before);
  EXPECT_TRUE(manager().addDocument(session().importedDocument()));
  EXPECT_TRUE(manager().removeDocument(session().importedDocument()));
  open(parsed(study));
  close();
  EXPECT_EQ(IXMLDOMDocument::livingNodes(), before);
}

TEST_F(Session, EntriesFollowWhatIsSaid) {
  const IXMLDOMDocument document = parsed(study), other = parsed(study);
  open(document);
  auto& cached = session().cachedDocument();
  const IXMLDOMElement late = at(document, "Data/Objects[@command]/PmPartInstance[@ExternalId='late']");
  EXPECT_FALSE(cached.replaceCachedNode(other, ApiPmId("tool"), late));
  EXPECT_FALSE(cached.removeEntry(other, ApiPmId("tool")));
  // The index serves an element that left the tree, until told of another.
  const IXMLDOMElement tool = at(document, "Data/Objects/PmToolInstance");
  ASSERT_TRUE(tool.parentNode().removeChild(tool));
  EXPECT_EQ(nameOf(document, "tool"), "T");
  EXPECT_TRUE(cached.replaceCachedNode(document, ApiPmId("tool"), late));
  EXPECT_EQ(nameOf(document, "tool"), "L");
  EXPECT_FALSE(cached.replaceCachedNode(document, ApiPmId("NULL"), late));
  EXPECT_TRUE(cached.removeEntry(document, ApiPmId("plc")));
  EXPECT_EQ(nameOf(document, "plc"), "-");
  // From the old id to the new one, over an entry that stands there; the attribute is left alone.
  EXPECT_TRUE(cached.replaceCachedNodeId(ApiPmId("late"), ApiPmId("twice")));
  EXPECT_EQ(nameOf(document, "late"), "-");
  EXPECT_EQ(nameOf(document, "twice"), "L");
  EXPECT_EQ(at(document, "Data/Objects[@command]/*[@ExternalId='late']").text(), "L");
  EXPECT_FALSE(cached.replaceCachedNodeId(ApiPmId("unknown"), ApiPmId("twice")));
  EXPECT_EQ(nameOf(document, "twice"), "L");
  // From one section alone.
  EXPECT_FALSE(cached.reCacheAllChildrenNodes(other, at(other, "Data/Objects")));
  EXPECT_TRUE(cached.reCacheAllChildrenNodes(document, at(document, "Data/Objects[@command]")));
  EXPECT_EQ(nameOf(document, "twice"), "second");
  EXPECT_EQ(nameOf(document, "tool"), "-");
}

}  // namespace
