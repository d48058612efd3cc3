#include "plc/PlainFields.h"
#include "plc/ZelXmlSignal.h"
#include "wrapper/StudyTest.h"
#include "zel/ZelLink.h"
#include "zel/ZelMaterialFlow.h"
#include "zel/ZelOperation.h"
#include "zel/ZelPlcLink.h"
#include "zel/ZelPlcOperation.h"
#include "zel/ZelVorCompoundOperation.h"
#include "zel/ZelVorStudy.h"

using namespace document_test;

namespace {

std::string operation(const std::string& id, const std::string& fields = "") {
  return made("PmOperation", id, "Operation", fields);
}
std::string flow(const std::string& id, const std::string& fields = "") {
  return made("PmFlow", id, "PmFlow", fields);
}
std::string materialFlow(const std::string& id, const std::string& fields = "") {
  return made("PmMaterialFlow", id, "PmMaterialFlow", fields);
}
std::string signalIn(const std::string& holder, const std::string& id) {
  return field(holder, bare("Signal", id));
}

class OperationsTest : public StudyTest {
 protected:
  ZelPlcOperation* operationOf(const char* id) const { return zelQuery<ZelPlcOperation>(node(id)); }
  std::string inner() const {
    RWClassicTValOrderedVector<const ApiPmId*> ids;
    wrapper->convertor().getPlcInternalIds(ids);
    std::vector<std::string> texts;
    for (const ApiPmId* id : ids) texts.push_back(id->asString());
    std::sort(texts.begin(), texts.end());
    return joined(texts);
  }
};

TEST_F(OperationsTest, PlainFieldsStandInTheGroup) {
  build(operation("O") + flow("F") + materialFlow("M"));
  using O = ZelPlcOperation;
  struct Case {
    const char* id;
    std::span<const ZelFieldInfo> rows;
    std::vector<PlainField> fields;
  };
  const Case cases[] = {
      {"O",
       zelFieldRows<ZelOperationFields>(),
       {plain("Transition", &O::setTransition, &O::getTransition),
        plain("GoToOperation", &O::setGoToOperation, &O::getGoToOperation),
        plain("JumpToEnd", &O::setJumpToEnd, &O::getJumpToEnd),
        plain("UseDfltAction", &O::setUseDfltAction, &O::getUseDfltAction),
        plain("JumpToStart", &O::setJumpToStart, &O::getJumpToStart),
        plain("Interlock", &O::setInterlock, &O::getInterlock),
        plain("Supervision", &O::setSupervision, &O::getSupervision),
        plain("JumpToEndCond", &O::setJumpToEndCond, &O::getJumpToEndCond),
        plain("JumpToStartCond", &O::setJumpToStartCond, &O::getJumpToStartCond),
        plain("StepActions", &O::setStepActions, &O::getStepActions),
        plain("ShouldGenerateParts", &O::setShouldGenerateParts, &O::getShouldGenerateParts),
        plain("version", &O::setPlcVersion, &O::getPlcVersion)}},
      {"F",
       zelFieldRows<ZelFlowFields>(),
       {plain("BranchType", &ZelPlcLink::setBranchType, &ZelPlcLink::getBranchType),
        plain("Condition", &ZelPlcLink::setCondition, &ZelPlcLink::getCondition),
        plain("version", &ZelPlcLink::setPlcVersion, &ZelPlcLink::getPlcVersion)}},
      {"M",
       zelFieldRows<ZelMaterialFlowFields>(),
       {plain("BranchType", &ZelMaterialFlow::setBranchType, &ZelMaterialFlow::getBranchType),
        plain("AlternativeGroup", &ZelMaterialFlow::setAlternativeGroup,
              &ZelMaterialFlow::getAlternativeGroup),
        plain("version", &ZelMaterialFlow::setPlcVersion, &ZelMaterialFlow::getPlcVersion)}},
  };
  for (const Case& test : cases) {
    for (const PlainField& each : test.fields) {
      // Nothing but a write makes the group.
      IXMLDOMNode info;
      ASSERT_FALSE(zelXmlSelectChild(element(test.id), "plcInfo", info));
      const std::string written = each.writeTwice(node(test.id));
      ASSERT_TRUE(zelXmlSelectChild(element(test.id), "plcInfo", info)) << each.name << written;
      EXPECT_EQ(info.xml(), field("plcInfo", field("OriginalId", test.id) + written)) << each.name;
      ASSERT_TRUE(element(test.id).removeChild(info));
    }
    for (const ZelFieldInfo& row : test.rows) {
      if (row.write != ZelFieldWrite::adds) continue;
      EXPECT_TRUE(std::any_of(test.fields.begin(), test.fields.end(), [&](const PlainField& each) {
        return each.name == row.name;
      })) << row.name;
    }
  }
}

TEST_F(OperationsTest, ServeTheirInterfaces) {
  build(operation("O") + flow("F") + materialFlow("M"));
  const auto numbers = [this](const char* id) {
    std::string text;
    for (int number = 0; number < 140; ++number)
      if (node(id)->queryInterface(static_cast<ZelNode::InterfaceType>(number)))
        text += (text.empty() ? "" : " ") + std::to_string(number);
    return text;
  };
  EXPECT_EQ(numbers("O"), "0 19 20 24");
  EXPECT_EQ(numbers("F"), "5 19 21");
  EXPECT_EQ(numbers("M"), "62");
  for (const auto& [id, number] : {std::pair("O", 0), {"F", 5}, {"M", 62}})
    EXPECT_EQ(node(id), node(id)->queryInterface(static_cast<ZelNode::InterfaceType>(number)));
  auto* slots = ZelOperation::queryZelOperation(node("O"));
  EXPECT_FALSE(slots->reserved(ZelSlot<1>()) || slots->reserved(ZelSlot<29>()) ||
               ZelLink::queryZelLink(node("F"))->reserved(ZelSlot<4>()));
  // The study makes nodes of objects that have none, and none inside them.
  build(studyOf("study", "", "") + operation("O", field("plcInfo", signalIn("StartingSig", "S"))) +
        flow("F"));
  for (const char* id : {"O", "F", "S"}) wrapper->removeAndDeleteNodeObject(ApiPmId(id));
  auto* study = zelQuery<ZelVorStudy>(node("study"));
  EXPECT_TRUE(ZelOperation::queryZelOperation(study->createOperationNode(ApiPmId("O"))));
  EXPECT_TRUE(ZelLink::queryZelLink(study->createFlowNode(ApiPmId("F"))));
  EXPECT_EQ(inner(), "");
}

TEST_F(OperationsTest, SignalsHaveAHolderEach) {
  build(operation("O"));
  auto* made = operationOf("O");
  ApiPmId id;
  EXPECT_FALSE(made->getStartingSig(id));
  EXPECT_TRUE(made->createStartingSig(ZEL_SIGNAL, ApiPmId("S1")) &&
              made->createEndingSig(ZEL_KEY_SIGNAL, ApiPmId("E")) &&
              made->createMemorySig(ZEL_SIGNAL, ApiPmId("M")) &&
              made->createStartingSig(ZEL_SIGNAL, ApiPmId("S2")));
  EXPECT_FALSE(made->createEndingSig(ZEL_OPERATION, ApiPmId("E")));
  const auto signal = [](const char* holder, const char* name, const char* type) {
    return field(holder, bare("Signal", name, type ? field("StringType", type) : ""));
  };
  EXPECT_EQ(
      at(element("O"), "plcInfo").xml(),
      field("plcInfo", field("OriginalId", "O") + signal("StartingSig", "S1", "PlcSignal") +
                           signal("EndingSig", "E", "PlcKeySignal") + signal("MemorySig", "M", "PlcSignal") +
                           signal("StartingSig", "S2", "PlcSignal") + signal("EndingSig", "E", nullptr)));
  EXPECT_TRUE(made->getStartingSig(id) && id.text() == "S1");
  EXPECT_TRUE(made->getEndingSig(id) && id.text() == "E");
  EXPECT_TRUE(made->getMemorySig(id) && id.text() == "M");
  EXPECT_EQ(inner(), "E M S1 S2");
  ASSERT_TRUE(wrapper->build(false));
  EXPECT_EQ(inner(), "E M S1") << "of two holders the first";
  publish();
  EXPECT_TRUE(operationOf("O")->removePlcInfo());
  EXPECT_EQ(inner(), "");
  EXPECT_EQ(element("O").xml(), operation("O"));
  EXPECT_EQ(updated(), "");
  EXPECT_TRUE(operationOf("O")->publishPlcInfo());
  EXPECT_EQ(root(stream), updates(operation("O")));
}

// Signals of an operation that is deleted, or is named like one of them.
TEST_F(OperationsTest, SignalsGoWithTheirOperation) {
  const std::string clash =
      operation("O", field("plcInfo", signalIn("StartingSig", "O") + signalIn("EndingSig", "P")));
  build(clash +
        operation("P", field("plcInfo", signalIn("EndingSig", "E") + "<MemorySig><Signal/></MemorySig>")) +
        made("PmPartInstance", "E", "Product"));
  EXPECT_EQ(inner(), "E O P");
  EXPECT_EQ(roots(), "E") << "a signal of that name takes nothing from an object";
  EXPECT_TRUE(remove("P"));
  EXPECT_EQ(root(study).find("<PmOperation ExternalId=\"P\""), std::string::npos);
  EXPECT_TRUE(node("E"));
  EXPECT_EQ(inner(), "O P");
  EXPECT_TRUE(operationOf("O")->removePlcInfo());
  EXPECT_TRUE(node("O")) << "the object";
  EXPECT_EQ(inner(), "");
  EXPECT_EQ(element("O").xml(), operation("O"));
}

TEST_F(OperationsTest, EventsAreKeptByKeysOfTheDocument) {
  build(operation("A") + operation("B"));
  using Values = RWClassicTValOrderedVector<RWClassicCString>;
  const std::string key = "part \"1\" 'gripped'";
  const auto read = [this](const std::string& event, bool answer) {
    ApiPmIdList ids{ApiPmId("former")};
    Values values;
    EXPECT_EQ(operationOf("B")->getEventSigs(event, ids, values), answer) << event;
    return joined(ids) + " = " + joined(values);
  };
  EXPECT_TRUE(operationOf("A")->addEventSig(key, "S1", "1") && operationOf("B")->addEventSig(key, "S2", "") &&
              operationOf("B")->addEventSig("other", "S1", "0"));
  const auto pair = [](const char* id, const char* value) {
    return field("item", field("Id", id) + field("Value", value));
  };
  EXPECT_EQ(at(element("A"), "plcInfo/SigEvent/EventSigs").xml(),
            field("EventSigs", pair("S1", "1") + pair("S2", "")));
  EXPECT_EQ(at(element("B"), "plcInfo").xml(),
            "<plcInfo><OriginalId>B</OriginalId><SigEvent EventId=\"other\"><EventSigs>" + pair("S1", "0") +
                "</EventSigs></SigEvent></plcInfo>");
  EXPECT_EQ(read(key, true), "former S1 S2 = 1 ");
  EXPECT_EQ(read("none", false), "former = ");
  EXPECT_FALSE(operationOf("A")->addEventSig("bad", "S", "\x01"));
  EXPECT_EQ(read("bad", true), "former = ");
  // The table of another operation goes with that one.
  EXPECT_TRUE(operationOf("A")->removePlcInfo());
  EXPECT_EQ(read(key, false), "former = ");

  const std::string bad = "<item><Value>1</Value></item>", half = "<item><Id>S</Id></item>";
  struct Case {
    std::string items;
    bool answer;
    std::string result;
  };
  for (const Case& test : {Case{bad + pair("S", "1"), true, "S = 1"},
                           {pair("S", "1") + bad, false, "S = 1"},
                           {pair("", "1"), false, " = "},
                           {pair("S", "1") + half, false, "S S = 1"},
                           {"<deep>" + pair("S", "1") + "</deep>", true, "S = 1"}}) {
    build(operation("B", "<plcInfo><SigEvent EventId=\"e\"><EventSigs>" + test.items +
                             "</EventSigs></SigEvent></plcInfo>"));
    EXPECT_EQ(read("e", test.answer), "former" + std::string(test.result[0] == ' ' ? "" : " ") + test.result)
        << test.items;
  }
}

TEST_F(OperationsTest, MaterialFlowsArePublishedByThemselves) {
  build(operation("O", listOf("inputMaterialFlows", "x y x") + listOf("inputMaterialFlows", "z")) +
        materialFlow("M"));
  publish();
  auto* made = operationOf("O");
  ApiPmIdList flows{ApiPmId("former")};
  EXPECT_FALSE(made->getOutputMaterialFlows(flows));
  EXPECT_TRUE(flows.isEmpty());
  EXPECT_TRUE(made->getInputMaterialFlows(flows));
  EXPECT_EQ(joined(flows), "x y x z");
  EXPECT_TRUE(made->setInputMaterialFlows({ApiPmId("a"), {}, ApiPmId("a")}));
  EXPECT_TRUE(made->setOutputMaterialFlows({}));
  EXPECT_TRUE(made->getOutputMaterialFlows(flows) && flows.isEmpty());
  EXPECT_EQ(element("O").xml(),
            bare("PmOperation", "O",
                 listOf("inputMaterialFlows", "z a a") + familyOf("Operation") + "<outputMaterialFlows/>"));
  auto* material = zelQuery<ZelMaterialFlow>(node("M"));
  ApiPmId end;
  EXPECT_FALSE(material->getMaterialSuccessor(end));
  EXPECT_TRUE(material->setMaterialPredecessor(ApiPmId("O")) &&
              material->setMaterialPredecessor(ApiPmId("P")) && material->setMaterialSuccessor({}));
  EXPECT_TRUE(material->getMaterialPredecessor(end) && end.text() == "P");
  EXPECT_TRUE(material->getMaterialSuccessor(end) && end.isNull());
  EXPECT_EQ(root(stream), updates(bare("PmOperation", "O",
                                       familyOf("Operation") + listOf("inputMaterialFlows", "z a a") +
                                           "<outputMaterialFlows/>") +
                                  materialFlow("M").replace(materialFlow("M").rfind("</PmM"), 0,
                                                            "<materialPredecessor>P</materialPredecessor>"
                                                            "<materialSuccessor/>")));
}

TEST_F(OperationsTest, BranchTypesAreFoundAtAnyDepth) {
  build(flow("F", "<BranchType>1</BranchType><plcInfo><deep><BranchType> 7 </BranchType></deep></plcInfo>") +
        materialFlow("M", "<plcInfo><BranchType>x</BranchType></plcInfo>"));
  std::int32_t type = 0;
  EXPECT_TRUE(zelQuery<ZelPlcLink>(node("F"))->getBranchType(type) && type == 7);
  EXPECT_TRUE(zelQuery<ZelMaterialFlow>(node("M"))->getBranchType(type) && type == 0);
}

TEST_F(OperationsTest, ResourcesOfOperations) {
  build(operation("O", "<processResource>R</processResource>") + operation("P"));
  bool has = false;
  RWClassicWString resource;
  for (const bool expected : {true, false}) {
    auto* asked = zelQuery<ZelVorCompoundOperation>(node(expected ? "O" : "P"));
    EXPECT_TRUE(asked->hasProcessResource(has) && has == expected);
    EXPECT_EQ(asked->getProcessResource(resource), expected);
  }
  EXPECT_EQ(resource, "R");
}

}  // namespace
