#include "plc/PlainFields.h"
#include "plc/ZelXmlPlcSignalHandler.h"
#include "wrapper/StudyTest.h"
#include "zel/ZelInstance.h"
#include "zel/ZelPlcDeviceInstance.h"
#include "zel/ZelPlcGenericConveyorInstance.h"
#include "zel/ZelPlcPoseHoldingResourceInstance.h"
#include "zel/ZelPlcResourceInstance.h"
#include "zel/ZelPlcRobotInstance.h"
#include "zel/ZelSignal.h"

using namespace document_test;

namespace {

using Robot = ZelPlcRobotInstance;
using Device = ZelPlcDeviceInstance;
using Poses = ZelPlcPoseHoldingResourceInstance;

std::string robot(const std::string& id, const std::string& fields = "") {
  return made("PmToolInstance", id, "Resource", fields);
}
std::string signalIn(const std::string& holder, const std::string& id, const std::string& more = "") {
  return field(holder, bare("Signal", id) + more);
}

class PlcResourcesTest : public StudyTest {
 protected:
  void give(const std::string& info) { build(robot("R", field("plcInfo", info))); }
  template <class Face>
  Face* as(const char* id = "R") const {
    return zelQuery<Face>(node(id));
  }
  std::string group(const char* id = "R") const { return at(element(id), "plcInfo").xml(); }
  std::string inner() const {
    RWClassicTValOrderedVector<const ApiPmId*> ids;
    wrapper->convertor().getPlcInternalIds(ids);
    std::vector<std::string> texts;
    for (const ApiPmId* id : ids) texts.push_back(id->asString());
    std::sort(texts.begin(), texts.end());
    return joined(texts);
  }
};

struct NamedSignal {
  const char* name;
  std::function<ZelNode*(ZelNode*, const ApiPmId&)> make;
  std::function<bool(ZelNode*, ApiPmId&)> read;
};
template <class Face>
NamedSignal named(const char* name, ZelNode* (Face::*make)(ZelNodeType, const ApiPmId&),
                  bool (Face::*read)(ApiPmId&) const) {
  return {name,
          [=](ZelNode* node, const ApiPmId& id) { return (zelQuery<Face>(node)->*make)(ZEL_SIGNAL, id); },
          [=](ZelNode* node, ApiPmId& id) { return (zelQuery<Face>(node)->*read)(id); }};
}

TEST_F(PlcResourcesTest, SignalsStandInHoldersOfTheirName) {
  const NamedSignal signals[] = {
      named("ConveyorSig", &Device::createConveyorSig, &Device::getConveyorSig),
      named("ProgStartSig", &Robot::createProgStartSig, &Robot::getProgStartSig),
      named("ProgNumberSig", &Robot::createProgNumberSig, &Robot::getProgNumberSig),
      named("ProgStopSig", &Robot::createProgStopSig, &Robot::getProgStopSig),
      named("ProgEndedSig", &Robot::createProgEndedSig, &Robot::getProgEndedSig),
      named("ProgMirrorSig", &Robot::createProgMirrorSig, &Robot::getProgMirrorSig),
      named("ProgErrorSig", &Robot::createProgErrorSig, &Robot::getProgErrorSig),
      named("ProgPauseSig", &Robot::createProgPauseSig, &Robot::getProgPauseSig),
      named("RobotReadySig", &Robot::createRobotReadySig, &Robot::getRobotReadySig),
      named("GenericConveyorSignal", &ZelPlcGenericConveyorInstance::createGenericConveyorSignal,
            &ZelPlcGenericConveyorInstance::getGenericConveyorSignal),
  };
  build(robot("R") + made("PmEquipmentInstance", "E", "Resource", "<children/>"));
  for (const char* id : {"R", "E"}) {
    std::string expected = field("OriginalId", id), ids;
    for (const NamedSignal& each : signals) {
      ApiPmId read;
      EXPECT_FALSE(each.read(node(id), read)) << each.name;
      const std::string own = std::string(each.name) + id;
      ASSERT_TRUE(each.make(node(id), ApiPmId(own))) << each.name;
      EXPECT_TRUE(each.read(node(id), read) && read.text() == own) << each.name;
      expected += field(each.name, bare("Signal", own, "<StringType>PlcSignal</StringType>"));
    }
    EXPECT_EQ(group(id), field("plcInfo", expected));
  }
  const std::string whole = inner();
  EXPECT_EQ(std::count(whole.begin(), whole.end(), ' '), 19);
  ASSERT_TRUE(wrapper->build(false));
  EXPECT_EQ(inner(), whole);
  for (const char* id : {"R", "E"}) {
    EXPECT_TRUE(as<ZelPlcResourceInstance>(id)->removePlcInfo());
    EXPECT_FALSE(at(element(id), "*").nodeName() == "plcInfo");
  }
  EXPECT_EQ(inner(), "");
}

TEST_F(PlcResourcesTest, PlainFieldsStandInTheGroup) {
  build(robot("R"));
  for (const PlainField& each : {plain("DeviceClass", &Device::setDeviceClass, &Device::getDeviceClass),
                                 plain("ValveType", &Device::setValveType, &Device::getValveType)}) {
    const std::string written = each.writeTwice(node("R"));
    EXPECT_TRUE(group().ends_with(written + "</plcInfo>")) << written << group();
  }
}

// A resource that was made in this session has no PLC side until it has a prototype.
TEST_F(PlcResourcesTest, NewResourcesTakePlcDataOnceTheyHaveAPrototype) {
  build(made("PmToolPrototype", "P", "ToolPrototype"));
  ASSERT_TRUE(wrapper->createRoot(ZEL_RESOURCE_INSTANCE, "", ApiPmId("R"), {}));
  const std::string before = element("R").xml();
  ApiPmIdList ids;
  EXPECT_FALSE(as<Device>()->setDeviceClass("x") || as<Device>()->setConveyorTrackingRobots({ApiPmId("A")}) ||
               as<Device>()->createConveyorSig(ZEL_SIGNAL, ApiPmId("S")) ||
               as<Poses>()->createPose(ApiPmId("S")) ||
               as<Robot>()->createConveyorTriggerSignal(ZEL_SIGNAL, 1, ApiPmId("S")) ||
               as<Robot>()->createToRobSignal(ZEL_SIGNAL, ApiPmId("S")) || as<Poses>()->getPoses(ids));
  EXPECT_EQ(element("R").xml(), before);
  EXPECT_FALSE(as<ZelPlcResourceInstance>()->removePlcInfo());
  EXPECT_TRUE(as<ZelPlcResourceInstance>()->setPlcVersion("1")) << "the services need none";
  EXPECT_TRUE(as<ZelInstance>()->setPrototypeId(ApiPmId("P")));
  EXPECT_TRUE(as<Device>()->setDeviceClass("x") && as<Poses>()->createPose(ApiPmId("S")));
  EXPECT_EQ(inner(), "S");
  EXPECT_TRUE(remove("R"));
  EXPECT_EQ(inner(), "");
}

TEST_F(PlcResourcesTest, ListsOfSignalsSensorsAndPoses) {
  build(robot("R"));
  ApiPmIdList ids;
  EXPECT_FALSE(as<Robot>()->getFromRobSignals(ids) || as<Poses>()->getSensors(ids));
  const ApiPmId one("1"), two("2"), three("3");
  EXPECT_TRUE(as<Robot>()->createFromRobSignal(ZEL_FROM_ROBOT_SIGNAL, one) &&
              as<Robot>()->createFromRobSignal(ZEL_SIGNAL, two) &&
              as<Robot>()->createFromRobSignal(ZEL_SIGNAL, one) &&
              as<Robot>()->createToRobSignal(ZEL_TO_ROBOT_SIGNAL, three) &&
              as<Poses>()->createSensor(ZEL_DEVICE_POSE_SENSOR, ApiPmId("J")) &&
              as<Poses>()->createPose(ApiPmId("P")));
  EXPECT_FALSE(as<Poses>()->createSensor(ZEL_SIGNAL, ApiPmId("X")));
  const auto entry = [](const char* kind, const char* id, const char* type) {
    return field("item", bare(kind, id, type ? field("StringType", type) : ""));
  };
  EXPECT_EQ(group(), field("plcInfo", field("OriginalId", "R") +
                                          field("FromRobSignals", entry("Signal", "1", "PlcFromRobotSignal") +
                                                                      entry("Signal", "2", "PlcSignal") +
                                                                      entry("Signal", "1", "PlcSignal")) +
                                          field("ToRobSignals", entry("Signal", "3", "PlcToRobotSignal")) +
                                          field("Sensors", entry("JointSensor", "J", "PlcDevicePoseSensor")) +
                                          field("Poses", entry("Pose", "P", nullptr))));
  EXPECT_TRUE(as<Robot>()->getFromRobSignals(ids) && as<Robot>()->getToRobSignals(ids) &&
              as<Poses>()->getSensors(ids) && as<Poses>()->getPoses(ids));
  EXPECT_EQ(joined(ids), "1 2 3 J P");
  EXPECT_EQ(inner(), "1 2 3 J P");
}

TEST_F(PlcResourcesTest, ConveyorsHaveNumbersAndPlaces) {
  build(robot("R"));
  const auto add = [this](const char* id, std::int16_t number, const char* conveyor) {
    return as<Robot>()->createConveyorPositionSignal(ZEL_SIGNAL, number, ApiPmId(conveyor), ApiPmId(id));
  };
  Robot::ConveyorNumbers numbers;
  ApiPmIdList conveyors{ApiPmId("former")};
  const auto read = [&](bool answer) {
    EXPECT_EQ(as<Robot>()->getConveyorPositionSignals(numbers, conveyors), answer);
    std::vector<std::string> pairs;
    for (const auto* each : numbers.listing())
      pairs.push_back(each->key.asString() + "=" + std::to_string(each->value));
    std::sort(pairs.begin(), pairs.end());
    return joined(pairs) + " | " + joined(conveyors);
  };
  EXPECT_EQ(read(false), " | former");
  EXPECT_TRUE(add("a", 2, "C2") && add("b", 5, "C5") && add("c", 4, "") && add("d", -1, ""));
  EXPECT_FALSE(add("", 1, "C1")) << "number and conveyor are written all the same";
  EXPECT_TRUE(
      at(element("R"), "plcInfo/ConveyorPositionSignals")
          .xml()
          .ends_with(
              "<item><Signal/><ConveyorNumber>1</ConveyorNumber><ConveyorObject>C1</ConveyorObject></item>"
              "</ConveyorPositionSignals>"));
  EXPECT_EQ(read(false), "a=2 b=5 c=4 d=-1 | former");
  EXPECT_TRUE(as<ZelPlcResourceInstance>()->removePlcInfo());
  EXPECT_EQ(inner(), "") << "what was read before the entry without id";

  give(field("ConveyorPositionSignals",
             signalIn("item", "a", "<ConveyorNumber>2</ConveyorNumber><ConveyorObject>C2</ConveyorObject>") +
                 signalIn("item", "b", "<ConveyorNumber>65540</ConveyorNumber>") +
                 signalIn("item", "a", "<ConveyorNumber>7</ConveyorNumber>")) +
       field("ConveyorTriggerSignals", signalIn("item", "t")));
  EXPECT_EQ(read(true), "a=7 b=4 | C2  ") << "four places";
  EXPECT_FALSE(as<Robot>()->getConveyorTriggerSignals(numbers));
  EXPECT_TRUE(numbers.isEmpty());
}

TEST_F(PlcResourcesTest, TrackingRobotsGather) {
  build(robot("R"));
  ApiPmIdList robots{ApiPmId("former")};
  EXPECT_TRUE(as<Device>()->setConveyorTrackingRobots({}));
  EXPECT_FALSE(as<Device>()->getConveyorTrackingRobots(robots));
  EXPECT_EQ(joined(robots), "former");
  EXPECT_TRUE(as<Device>()->setConveyorTrackingRobots({ApiPmId("a"), {}}) &&
              as<Device>()->setConveyorTrackingRobots({ApiPmId("b"), ApiPmId("a")}));
  EXPECT_TRUE(as<Device>()->getConveyorTrackingRobots(robots));
  EXPECT_EQ(joined(robots), "a b a");
}

TEST_F(PlcResourcesTest, NodesOfAllThatADocumentHolds) {
  const std::string sensor = bare("JointSensor", "J", signalIn("SensorSig", "js"));
  const std::string pose = bare("Pose", "P", signalIn("KeySig", "ps"));
  const std::string all = field("Sensors", field("item", sensor)) + field("Poses", field("item", pose)) +
                          signalIn("ConveyorSig", "c1") + signalIn("ConveyorSig", "c2") +
                          field("Unknown", signalIn("item", "u")) + signalIn("GenericConveyorSignal", "g") +
                          signalIn("ProgStartSig", "s");
  give(all);
  EXPECT_EQ(inner(), "J P c1 c2 g js ps s u");
  EXPECT_TRUE(as<ZelPlcResourceInstance>()->removePlcInfo());
  EXPECT_EQ(inner(), "c2 u") << "what no getter reads stays";

  struct Case {
    std::string info, nodes;
  };
  for (const Case& test : {Case{field("Sensors", field("item", "<Other ExternalId=\"o\"/>")) + all, ""},
                           {field("Poses", "<item><Pose/></item>") + all, "J js"},
                           {"<ConveyorSig><Signal/></ConveyorSig>" + all, "J P js ps"},
                           {field("X", "<item><Signal/></item>") + all, "J P c1 js ps"},
                           {"<X><Signal ExternalId=\"\"/></X>" + all, "J P c1 js ps u"},
                           {"<Sensors><item/></Sensors><ProgStartSig/>", ""},
                           {"", ""}}) {
    give(test.info);
    EXPECT_EQ(inner(), test.nodes) << test.info;
  }
}

// A node whose element is replaced takes its inner nodes along.
TEST_F(PlcResourcesTest, InnerNodesFollowAnUpdate) {
  const auto sensor = [](const char* id, const char* signal) {
    return field("item", bare("JointSensor", id, signalIn("SensorSig", signal)));
  };
  give(field("Sensors", sensor("J", "js") + sensor("K", "ks")) + signalIn("ConveyorSig", "c") +
       signalIn("ProgStartSig", "moved") + signalIn("ProgStopSig", "gone") +
       field("ToRobSignals", signalIn("item", "t") + signalIn("item", "u")));
  ASSERT_TRUE(as<Robot>()->createProgStopSig(ZEL_SIGNAL, ApiPmId("second")));
  ASSERT_EQ(inner(), "J K c gone js ks moved second t u");
  const std::vector<const char*> stay = {"K", "ks", "c", "u"};
  std::vector<ZelNode*> nodes;
  for (const char* id : stay) nodes.push_back(node(id));
  const std::string info =
      field("plcInfo", field("Sensors", sensor("N", "ns") + sensor("K", "ks")) +
                           signalIn("ConveyorSig", "c") + signalIn("ProgEndedSig", "moved") +
                           field("ToRobSignals", signalIn("item", "u") + signalIn("item", "v")));
  const auto expectFollowed = [&] {
    EXPECT_EQ(inner(), "K N c ks moved ns u v");
    for (std::size_t i = 0; i < stay.size(); ++i) {
      EXPECT_EQ(node(stay[i]), nodes[i]) << stay[i];
      EXPECT_EQ(zelXmlElementNodeOf(nodes[i])->getXmlNode(), element(stay[i])) << stay[i];
    }
    EXPECT_EQ(zelXmlElementNodeOf(node("moved"))->getXmlNode(), element("moved"));
  };
  wrapper->setUpdateDocument(parse(dataOf(robot("R", info))));
  ASSERT_TRUE(wrapper->update(false));
  expectFollowed();
  // Setters write into the study.
  EXPECT_TRUE(zelQuery<ZelSignal>(node("ks"))->setStream("x"));
  EXPECT_EQ(text("ks", "Stream"), "x");

  const IXMLDOMDocument other = parse(robot("R", info));
  EXPECT_TRUE(wrapper->replaceDOMDocumentNode(ApiPmId("R"), other.documentElement()));
  expectFollowed();
  EXPECT_TRUE(as<ZelPlcResourceInstance>()->removePlcInfo());
  EXPECT_EQ(inner(), "");
}

TEST_F(PlcResourcesTest, HandlersOfSignalRecords) {
  build("");
  const ApiGlobalUniqueId guid("00000000-0000-0000-0000-00000000000A");
  struct Case {
    const char *key, *own;
    std::function<std::unique_ptr<ApiPlcSignalCreationData>()> make;
  };
  const auto of = [](auto* sample) {
    using Data = std::remove_pointer_t<decltype(sample)>;
    return []() -> std::unique_ptr<ApiPlcSignalCreationData> {
      auto data = std::make_unique<Data>();
      if constexpr (requires { data->setPoseName(""); }) data->setPoseName("p");
      if constexpr (requires { data->setPrivateName(""); }) data->setPrivateName("p");
      return data;
    };
  };
  const Case cases[] = {
      {"PlcKeySignal", "", of((ApiPlcKeySignalCreationData*)nullptr)},
      {"PlcDeviceSensorSignal", "<Pose>p</Pose>", of((ApiPlcDeviceSensorSignalCreationData*)nullptr)},
      {"PlcToRobotSignal", "<PrivName>p</PrivName>", of((ApiPlcToRobotSignalCreationData*)nullptr)},
      {"PlcFromRobotSignal", "<PrivName>p</PrivName>", of((ApiPlcFromRobotSignalCreationData*)nullptr)},
      {"PlcResourceInputSignal", "", of((ApiPlcResourceInputSignalCreationData*)nullptr)},
      {"PlcResourceOutputSignal", "", of((ApiPlcResourceOutputSignalCreationData*)nullptr)},
  };
  for (const Case& test : cases) {
    const auto handler = [&](const IXMLDOMElement& target) {
      std::unique_ptr<ZelXmlPlcSignalHandler> made(ZelXmlPlcSignalHandlerFactory::the().create(test.key));
      made->set(target, wrapper.get());
      return made;
    };
    const IXMLDOMElement target = study.createElement("S");
    const auto data = test.make();
    data->setGlobalUniqueId(guid);
    data->setName("n");
    ASSERT_TRUE(handler(target)->write(*data)) << test.key;
    EXPECT_EQ(target.xml(), "<S Id=\"" + guid.getAsString() + "\">" + field("Type", test.key) +
                                "<name>n</name>" + test.own + "</S>");
    const auto read = handler(target)->read();
    ASSERT_TRUE(read) << test.key;
    EXPECT_TRUE(read->globalUniqueId() == guid && read->name() == "n" && read->typeText() == test.key);
    const IXMLDOMElement again = study.createElement("S");
    EXPECT_TRUE(handler(again)->write(*read) && again.xml() == target.xml());
    target.setAttribute("Id", "none");
    EXPECT_EQ(handler(target)->read() != nullptr, *test.own != '\0') << "an empty record, or none";
  }
  EXPECT_FALSE(ZelXmlPlcSignalHandlerFactory::the().create("PlcSignal"));
}

}  // namespace
