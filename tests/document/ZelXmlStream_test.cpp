#include <sstream>

#include "document/DocumentTest.h"

using namespace document_test;

namespace {

class DocumentStream : public DocumentTest {
 protected:
  void SetUp() override {
    DocumentTest::SetUp();
    open(bare("P", "p", "<name>n</name><caption>c</caption><comment>d</comment><weight>1</weight>") + q +
         "<R/>");
    p = element("p");
  }
  bool publishField(const char* name) const { return zelXmlPublishField(out, at(p, name)); }

  const std::string q = bare("Q", "q", "<NodeInfo>i</NodeInfo><plcInfo>l</plcInfo>");
  IXMLDOMNode p;
};

const std::string whole = bare("P", "p", "<weight>1</weight>");

}  // namespace

TEST_F(DocumentStream, SectionsAreMadeOnceEachBehindOneDeclaration) {
  IXMLDOMNode update, deletion, again;
  EXPECT_TRUE(zelXmlEnsureStreamSection(out, ZELXML_UPDATE_COMMAND, update));
  EXPECT_TRUE(zelXmlEnsureStreamSection(out, ZELXML_DELETE_COMMAND, deletion));
  EXPECT_TRUE(zelXmlEnsureStreamSection(out, ZELXML_UPDATE_COMMAND, again));
  EXPECT_EQ(again, update);
  std::ostringstream saved;
  EXPECT_TRUE(out.save(saved));
  EXPECT_EQ(saved.str().find("<?xml"), 0U);
  EXPECT_EQ(saved.str().rfind("<?xml"), 0U);
  EXPECT_EQ(root(out),
            "<Data><Objects command=\"DG_UPDATE_STREAM_COMMAND\"/>"
            "<Objects command=\"DG_DELETE_STREAM_COMMAND\"/></Data>");
  EXPECT_TRUE(parse(saved.str()));
}

TEST_F(DocumentStream, NewObjectsAreFoundBeforeTheyStandAnywhere) {
  IXMLDOMNode made, found;
  EXPECT_TRUE(zelXmlCreateObjectElement(study, "S", "s", made));
  EXPECT_TRUE(zelXmlFindNodeById(study, std::string_view("s"), found) && !found.parentNode());
  EXPECT_FALSE(zelXmlAddObjectElement(out, "S", "t", made));
  EXPECT_FALSE(zelXmlAddObjectElement(study, "no name", "t", made));
  EXPECT_FALSE(zelXmlFindNodeById(study, std::string_view("t"), found));
  EXPECT_TRUE(zelXmlAddObjectElement(study, "S", "t", made));
  EXPECT_TRUE(zelXmlAppendObjectClone(study, object(study, "q"), made));
  EXPECT_EQ(at(study, "Data/Objects/S").xml(), "<S ExternalId=\"t\"/>");
  EXPECT_TRUE(zelXmlFindNodeById(study, std::string_view("q"), found) && found != made);
}

TEST_F(DocumentStream, AWholeElementLeavesItsTextsBehindAndStandsOnce) {
  EXPECT_TRUE(zelXmlPublishUpdate(out, p));
  EXPECT_TRUE(zelXmlPublishUpdate(out, element("q")));
  EXPECT_TRUE(zelXmlPublishUpdate(out, p));
  EXPECT_EQ(root(out), updates(q + whole));
  EXPECT_FALSE(zelXmlPublishUpdate(out, at(study, "Data/Objects/R")));
}

TEST_F(DocumentStream, AFieldOfAnUnpublishedObjectFollowsTheWholeElement) {
  EXPECT_TRUE(publishField("name"));
  EXPECT_EQ(root(out), updates(bare("P", "p", "<weight>1</weight><name>n</name>")));
  EXPECT_TRUE(zelXmlSetText(at(p, "name"), "m") && publishField("name"));
  EXPECT_TRUE(publishField("weight"));
  EXPECT_EQ(root(out), updates(bare("P", "p", "<name>m</name><weight>1</weight>")));
  EXPECT_FALSE(zelXmlPublishField(out, p));
}

TEST_F(DocumentStream, ALaterWholeElementKeepsCommentAndNameAndLosesTheCaption) {
  EXPECT_TRUE(publishField("name") && publishField("caption") && publishField("comment"));
  EXPECT_TRUE(zelXmlSetText(at(p, "name"), "later"));
  EXPECT_TRUE(zelXmlPublishUpdate(out, p));
  EXPECT_EQ(root(out), updates(bare("P", "p", "<weight>1</weight><comment>d</comment><name>n</name>")));
}

TEST_F(DocumentStream, NamedFieldsMakeAnElementOfTheirOwnOrReplaceThoseThatStandThere) {
  const std::vector<std::string_view> fields = {"plcInfo", "absent", "NodeInfo"};
  EXPECT_TRUE(zelXmlPublishFields(out, element("q"), fields));
  EXPECT_EQ(root(out), updates(bare("Q", "q", "<plcInfo>l</plcInfo><NodeInfo>i</NodeInfo>")));
  zelXmlRemoveNamedChild(element("q"), "plcInfo");
  EXPECT_TRUE(zelXmlPublishFields(out, element("q"), fields));
  EXPECT_EQ(root(out), updates(bare("Q", "q", "<NodeInfo>i</NodeInfo>")));

  const IXMLDOMDocument other = parse("<Other/>");
  EXPECT_FALSE(zelXmlPublishFields(other, element("q"), fields));
  EXPECT_EQ(root(other), "<Other/>");
}

TEST_F(DocumentStream, ADeletionLeavesTheUpdateAndTakesItsPlaceInTheIndex) {
  EXPECT_TRUE(zelXmlPublishUpdate(out, p));
  EXPECT_TRUE(zelXmlPublishDeletion(cached(), out, p));
  const std::string both = "<Data><Objects command=\"DG_UPDATE_STREAM_COMMAND\">" + whole +
                           "</Objects><Objects command=\"DG_DELETE_STREAM_COMMAND\">";
  EXPECT_EQ(root(out), both + "<P ExternalId=\"p\"/></Objects></Data>");
  EXPECT_FALSE(cached().isNodeCached(ApiPmId("p")) || p.parentNode());
  // An object made again under the id finds the skeleton.
  EXPECT_TRUE(zelXmlPublishFields(out, p, {"weight"}));
  EXPECT_EQ(root(out), both + whole + "</Objects></Data>");
  EXPECT_TRUE(zelXmlPublishUpdate(out, p));
  EXPECT_EQ(root(out), "<Data><Objects command=\"DG_UPDATE_STREAM_COMMAND\">" + whole + whole +
                           "</Objects><Objects command=\"DG_DELETE_STREAM_COMMAND\"/></Data>");
}

TEST_F(DocumentStream, WithoutOutDocumentPublishingSucceedsAndDeletionStillDeletes) {
  EXPECT_TRUE(zelXmlPublishUpdate(none, p) && zelXmlPublishClone(none, p));
  EXPECT_TRUE(zelXmlPublishField(none, at(p, "name")) && zelXmlPublishFields(none, p, {"name"}));
  EXPECT_TRUE(zelXmlPublishUpdate(none, at(study, "Data/Objects/R")));
  EXPECT_TRUE(zelXmlPublishDeletion(cached(), none, p));
  EXPECT_FALSE(cached().isNodeCached(ApiPmId("p")));
  EXPECT_FALSE(zelXmlPublishDeletion(cached(), none, p));
  EXPECT_FALSE(zelXmlRemoveCachedElement(cached(), at(study, "Data/Objects/R")));
  EXPECT_EQ(objects(), q + "<R/>");
}

TEST_F(DocumentStream, AReplacedObjectStandsLastAndIsFoundUnderItsOwnId) {
  const IXMLDOMDocument other = parse("<T ExternalId=\"p\"><a/></T>");
  IXMLDOMNode clone, found;
  EXPECT_TRUE(zelXmlReplaceObject(cached(), p, at(other, "T"), clone));
  EXPECT_EQ(objects(), q + "<R/>" + root(other));
  EXPECT_TRUE(zelXmlFindNodeById(study, std::string_view("p"), found));
  EXPECT_EQ(found, clone);
  EXPECT_FALSE(zelXmlReplaceObject(cached(), p, at(other, "T"), clone));
}
