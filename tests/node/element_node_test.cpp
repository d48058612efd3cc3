#include "node/ZelXmlConcreteNode.h"
#include "node/ZelXmlNodeHost.h"
#include "wrapper/StudyTest.h"

using namespace document_test;

namespace {

// A node inside `plcInfo` has what an object has: the class template, fields by rows, a place in the
// registry.
class InnerBase : public ZelXmlElementNode {
 public:
  bool readName(RWClassicWString& name) const { return zelXmlGetField(*this, zelObjectFields.name, name); }
  bool writeName(const RWClassicWString& name) { return zelXmlSetField(*this, stream, name); }
  static bool readCaption(RWClassicWString&) { return false; }
  static ZelNode* shownParent() { return nullptr; }
  static bool readShownParentId(ApiPmId&) { return false; }
  static bool readStringType(RWClassicWString&) { return false; }
  static bool readDescription(RWClassicWString&) { return false; }
  static bool writeDescription(const RWClassicWString&) { return false; }

  static constexpr ZelField<std::string> stream{"Stream", "content", ZelFieldWrite::adds};
  static constexpr ZelField<std::string> inPlcInfo{"Stream", "content", ZelFieldPlace::plcInfo,
                                                   ZelFieldWrite::adds};
};

class Inner final : public ZelXmlConcreteNode<Inner, InnerBase, ZEL_SIGNAL> {};

class ElementNodeTest : public StudyTest {};

TEST_F(ElementNodeTest, StandsInTheRegistryLikeAnObject) {
  build(bare("PmToolInstance", "R",
             "<plcInfo><Sig><Signal ExternalId=\"S\"/></Sig></plcInfo>" + familyOf("Resource")));
  auto* inner = new Inner;
  inner->setXmlNode(document_test::at(element("R"), "plcInfo/Sig/Signal"));
  inner->setWrapper(zelXmlNodeOf(node("R"))->getWrapper());
  ApiPmId id;
  ASSERT_TRUE(inner->readId(id) && id == ApiPmId("S"));
  inner->getWrapper()->insertNode(id, inner->pmNode());
  ASSERT_EQ(node("S"), inner->pmNode());
  EXPECT_EQ(zelXmlElementNodeOf(node("S")), inner);
  EXPECT_EQ(zelXmlNodeOf(node("S")), nullptr);
  EXPECT_EQ(zelXmlElementNodeOf(node("R")), zelXmlNodeOf(node("R")));
  EXPECT_EQ(node("S")->type(), ZEL_SIGNAL);
  EXPECT_TRUE(node("S")->setName("x") && node("S")->setName("y"));
  RWClassicWString text;
  EXPECT_TRUE(zelXmlGetField(*inner, InnerBase::stream, text) && text == "x");
  EXPECT_EQ(inner->getXmlNode().xml(),
            "<Signal ExternalId=\"S\"><Stream>x</Stream><Stream>y</Stream></Signal>");
  EXPECT_FALSE(zelXmlGetField(*inner, InnerBase::inPlcInfo, text)) << "it has no group of its own";
  EXPECT_FALSE(zelXmlSetField(*inner, InnerBase::inPlcInfo, "z"));
  EXPECT_TRUE(inner->createSubnodes() && inner->removeRequisites());
}

}  // namespace
