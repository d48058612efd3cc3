#include "node/ZelXmlLocationText.h"
#include "node/ZelXmlTableServices.h"
#include "wrapper/StudyTest.h"
#include "zel/ZelCompound.h"
#include "zel/ZelGlobalAttachment.h"
#include "zel/ZelInstance.h"
#include "zel/ZelPlcResourceInstance.h"
#include "zel/ZelVorLabel.h"
#include "zel/ZelVorNode.h"

using namespace document_test;

namespace {

class FieldsTest : public StudyTest {};

TEST_F(FieldsTest, LabelsOnLabelsStandByTheObjectThatTheyLeadTo) {
  build(part("A", "", "") + layout("LA", "A", "NULL", "", 10, 10));
  auto* labelled = zelQuery<ZelVorLabelsContainer>(node("A"));
  const auto put = [&](const char* id, double x, const char* on) {
    return labelled->updateLabel(ApiPmId(id), {"n", RTTran3D({x, 0, 0}, {0, 0, 0}), "t", "a", ApiPmId(on)});
  };
  ASSERT_TRUE(labelled->addLabel(ApiPmId("K"), {}) && labelled->addLabel(ApiPmId("L"), {}));
  ASSERT_TRUE(put("K", 1, "A") && put("L", 2, "K"));
  RTTran3D place;
  EXPECT_TRUE(physical("L")->getAbsoluteLocation(place));
  EXPECT_EQ(place.getTranslation().x, 7);
  ASSERT_TRUE(put("K", 1, "L"));
  EXPECT_FALSE(physical("L")->getAbsoluteLocation(place)) << "they lead to each other";
  EXPECT_FALSE(labelled->addLabel(ApiPmId("NULL"), {}));
}

TEST_F(FieldsTest, NamesAndTextsArePublishedByField) {
  const std::string bareN = made("PmPartInstance", "N", "Product");
  build(part("A", "", "") + bareN);
  publish();
  EXPECT_FALSE(node("N")->setName("x")) << "an object without the field";
  EXPECT_TRUE(node("A")->setDescription("first"));
  EXPECT_TRUE(node("A")->setName("second"));
  EXPECT_FALSE(node("A")->setName("bad \x01")) << "no XML text";
  EXPECT_FALSE(node("N")->setDescription("bad \x01"));
  const auto publishedA = [](const std::string& fields) {
    return updates(bare("PmCompoundPart", "A",
                        "<parents/><children/><layout>LA</layout>" + familyOf("Product") + fields +
                            "<comment>first</comment><name>second</name>"));
  };
  EXPECT_EQ(root(stream), publishedA(""));
  // A whole publication keeps both, comment first; the plain interface changes only the study.
  EXPECT_TRUE(zelQuery<ZelVorCompoundPart>(node("A"))->setAssemblyType(4));
  EXPECT_TRUE(zelQuery<ZelVorNode>(node("A"))->setNameLocally("third"));
  EXPECT_EQ(root(stream), publishedA("<assemblyType>4</assemblyType>"));
  EXPECT_EQ(element("N").xml(), bareN);
}

TEST_F(FieldsTest, PrototypesOfInstances) {
  const auto instance = [](const char* id, const char* fields) {
    return made("PmToolInstance", id, "Resource", fields);
  };
  build(made("PmToolPrototype", "proto", "ToolPrototype") +
        made("PmEquipmentPrototypeOccurrence", "occ", "Resource", "<prototype>proto</prototype>") +
        instance("direct", "<prototype>proto</prototype>") +
        instance("master", "<prototype>NULL</prototype><masterObj>proto</masterObj>") +
        instance("occurring", "<masterObj>occ</masterObj>") + instance("empty", "<prototype/>") +
        instance("null", "<prototype>NULL</prototype>"));
  struct Case {
    const char *id, *prototype, *shownAs;
  };
  for (const Case& test : {Case{"direct", "proto", "PmToolPrototype"},
                           {"master", "proto", "PmToolPrototype"},
                           {"occurring", "proto", "PmToolPrototype"},
                           {"empty", "", "PmToolInstance"},
                           {"null", "", "PmToolInstance"}}) {
    ApiPmId id;
    RWClassicWString type;
    EXPECT_EQ(zelQuery<ZelInstance>(node(test.id))->getPrototypeId(id), *test.prototype != 0) << test.id;
    EXPECT_EQ(id.text(), test.prototype) << test.id;
    EXPECT_TRUE(zelQuery<ZelVorNode>(node(test.id))->getDisplayStringType(type));
    EXPECT_EQ(type, test.shownAs) << test.id;
  }
  publish();
  EXPECT_FALSE(zelQuery<ZelInstance>(node("null"))->setPrototypeId(ApiPmId("proto")));
  EXPECT_TRUE(zelQuery<ZelInstance>(node("empty"))->setPrototypeId(ApiPmId("proto")));
  EXPECT_EQ(updated(), "empty");
}

TEST_F(FieldsTest, ALabelBelongsToItsObject) {
  build(part("A", "", "") + layout("LA", "A", "NULL", "", 5, 5));
  publish();
  auto* labels = zelQuery<ZelVorLabelsContainer>(node("A"));
  ZelVorLabelData data{"note", RTTran3D({1.5, 2, 0}, {}), "look here", "red", ApiPmId("A")};
  ASSERT_TRUE(labels->addLabel(ApiPmId("N"), data));
  ASSERT_TRUE(labels->updateLabel(ApiPmId("N"), data));
  EXPECT_EQ(element("N").xml(),
            made("Label", "N", "Label",
                 "<name>note</name><node>A</node><comment>look here</comment><displayInfo>red</displayInfo>"
                 "<noteLocation>1.5_2._0._0._0._0.</noteLocation>"));
  EXPECT_EQ(list("A", "labels"), "N");
  EXPECT_EQ(updated(), "N A");
  RTTran3D location;
  EXPECT_TRUE(physical("N")->getAbsoluteLocation(location));
  EXPECT_TRUE(location.isNear(RTTran3D({3.5, -2, 0}, {}), 1e-9, 1e-9));

  ASSERT_TRUE(remove("N"));
  EXPECT_EQ(deleted(), "N");
  EXPECT_EQ(list("A", "labels"), "");
  EXPECT_EQ(node("N"), nullptr);

  RTTran3D kept({9, 9, 9}, {});
  zelXmlParseLocationText("1_2_3_4_5", kept);
  EXPECT_EQ(kept, RTTran3D({9, 9, 9}, {})) << "five parts";
  EXPECT_EQ(zelXmlLocationText(RTTran3D({-1e-9, 0, 0}, {}).inverse()), zelXmlLocationText(RTTran3D::unit));
}

TEST_F(FieldsTest, AttachmentsTieTwoLayouts) {
  build(part("A", "", "") + part("B", "", "") + layout("LA", "A") + layout("LB", "B"));
  publish();
  auto* attached = zelQuery<ZelGlobalAttachment>(node("A"));
  const RTTran3D placement({1, 2, 3}, {0, 0, 0.5});
  ApiPmExtendedId target{ApiPmId("B"), ApiKey("joint")};
  ASSERT_TRUE(attached->setGlobalAttachment({}, target, placement, "weld"));
  ApiPmExtendedId found;
  RTTran3D at;
  RWClassicWString type;
  ASSERT_TRUE(attached->getGlobalAttachment(found, at, type));
  EXPECT_EQ(found, target);
  EXPECT_EQ(type, "weld");
  EXPECT_TRUE(at.isNear(placement, 1e-6, 1e-6));
  ApiPmIdList tools;
  EXPECT_TRUE(zelQuery<ZelGlobalAttachment>(node("B"))->getGloballyAttachedTools(tools));
  EXPECT_EQ(tools, ApiPmIdList{ApiPmId("A")});
  ASSERT_TRUE(attached->setGlobalAttachment(target, {}, {}, {}));
  EXPECT_EQ(list("LB", "mountedTools"), "");
  EXPECT_EQ(text("LA", "mountedTo"), "NULL");
  EXPECT_FALSE(attached->getGlobalAttachment(found, at, type));
  EXPECT_EQ(updated(), "LB LA");
}

TEST_F(FieldsTest, PlcDataKnowsItsOrigin) {
  const std::string info = "<NodeInfo><family>Resource</family><Id>7</Id></NodeInfo>";
  build(bare("PmToolInstance", "R", "<threeDRep/>" + info));
  publish();
  auto* plc = zelQuery<ZelPlcResourceInstance>(node("R"));
  ASSERT_TRUE(plc && plc->setPlcVersion("1") && plc->setPlcVersion("2") && plc->publishPlcInfo());
  RWClassicWString version;
  EXPECT_TRUE(plc->getPlcVersion(version) && version == "1") << "writing adds, reading takes the first";
  EXPECT_EQ(root(stream),
            updates(bare("PmToolInstance", "R",
                         info + "<plcInfo><OriginalId>R</OriginalId><version>1</version><version>2</version>"
                                "</plcInfo>")));
  bool original = false;
  EXPECT_TRUE(plc->isOriginalPlcData(original) && original);
  zelXmlSetText(document_test::at(element("R"), "plcInfo/OriginalId"), "other");
  EXPECT_TRUE(plc->isOriginalPlcData(original) && !original);
  EXPECT_TRUE(plc->removePlcInfo() && plc->isOriginalPlcData(original) && original);
}

TEST_F(FieldsTest, TablesOfText) {
  const IXMLDOMDocument document = parse("<O/>");
  const IXMLDOMNode owner = document.documentElement();
  const RWClassicTValOrderedVector<RWClassicCString> names{"In", "Ex"};
  ZelXmlTableServices table(owner, "T", names);
  ZelXmlTableServices::Columns read;
  EXPECT_TRUE(table.readTable(read) && read.entries() == 2u && read[0].isEmpty());
  EXPECT_FALSE(table.writeTable({ZelXmlTableServicesColumn{"a"}, ZelXmlTableServicesColumn{"b", "c"}}));
  EXPECT_TRUE(table.writeTable({ZelXmlTableServicesColumn{}, ZelXmlTableServicesColumn{}}));
  EXPECT_EQ(owner.xml(), "<O/>");
  const ZelXmlTableServices::Columns columns{{"a", "b"}, {"1", ""}};
  ASSERT_TRUE(table.writeTable(columns));
  EXPECT_EQ(owner.xml(), "<O><T><item><In>a</In><Ex>1</Ex></item><item><In>b</In><Ex/></item></T></O>");
  EXPECT_TRUE(table.readTable(read) && read == columns);
  zelXmlRemoveNamedChild(owner, "T/item/Ex");
  zelXmlRemoveNamedChild(at(owner, "T/item"), "Ex");
  EXPECT_FALSE(table.readTable(read));
}

}  // namespace
