#include "plc/PlainFields.h"
#include "plc/ZelXmlPlcInternalNode.h"
#include "plc/ZelXmlPlcNodes.h"
#include "wrapper/StudyTest.h"
#include "zel/ZelControl.h"
#include "zel/ZelControlCall.h"
#include "zel/ZelDeviceDistanceSensor.h"
#include "zel/ZelDeviceSensor.h"
#include "zel/ZelGroupPose.h"
#include "zel/ZelPlcOperation.h"
#include "zel/ZelPose.h"
#include "zel/ZelPropertyProjector.h"
#include "zel/ZelPropertySensorOnProgram.h"
#include "zel/ZelProximitySensor.h"
#include "zel/ZelSignal.h"
#include "zel/ZelSignalInstance.h"

using namespace document_test;

namespace {

class PlcNodesTest : public StudyTest {
 protected:
  void SetUp() override {
    StudyTest::SetUp();
    build(made("PmOperation", "O", "Operation", "<plcInfo/>"));
    group = at(element("O"), "plcInfo");
  }
  // The group with `content`, and nodes for what the path selects.
  void give(const std::string& content, const std::string& path, ZelXmlAdopt adopt) {
    build(made("PmOperation", "O", "Operation", field("plcInfo", content)));
    group = at(element("O"), "plcInfo");
    adopted = zelXmlAdoptAll(host(), group, path, adopt);
  }
  ZelXmlNodeHost* host() { return wrapper.get(); }
  std::string inner() const {
    ZelNodeList nodes;
    wrapper->getAllNodes(nodes);
    std::vector<std::string> ids;
    for (ZelNode* each : nodes)
      if (!zelXmlNodeOf(each)) ids.push_back(textOf(each));
    std::sort(ids.begin(), ids.end());
    return joined(ids);
  }
  bool removeRequisitesOf(const char* id) {
    return zelXmlElementNodeOf(wrapper->findPlcInternalNode(ApiPmId(id)))->removeRequisites();
  }

  IXMLDOMNode group;
  bool adopted = false;
};

TEST_F(PlcNodesTest, PlainFieldsStandBelowTheElement) {
  using D = ZelDeviceSensor;
  using M = ZelDeviceDistanceSensor;
  using X = ZelProximitySensor;
  using G = ZelGroupPose;
  using J = ZelPropertyProjector;
  using P = ZelPropertySensorOnProgram;
  using S = ZelSignal;
  using C = ZelControlCall;
  const ApiPmId id("N");
  struct Case {
    std::function<ZelNode*()> make;
    std::vector<PlainField> fields;
  };
  const Case cases[] = {
      {[&] { return createPlcSignal(host(), group, "h", ZEL_SIGNAL, id); },
       {plain("Stream", &S::setStream, &S::getStream), plain("SigOp", &S::setSigOp, &S::getSigOp),
        plain("SigSFC", &S::setSigSFC, &S::getSigSFC), plain("SigTar", &S::setSigTar, &S::getSigTar),
        plain("SigDev", &S::setSigDev, &S::getSigDev), plain("SigPose", &S::setSigPose, &S::getSigPose),
        plain("Property", &S::setProperty, &S::getProperty),
        plain("SigExternalConnectionName", &S::setSigExternalConnectionName,
              &S::getSigExternalConnectionName)}},
      {[&] { return createPlcControl(host(), group, "h", ZEL_CONTROL, id); },
       {plain("Stream", &ZelControl::setStream, &ZelControl::getStream)}},
      {[&] { return createPlcControlCall(host(), group, "h", ZEL_CONTROL_CALL, id); },
       {plain("Stream", &C::setStream, &C::getStream),
        plain("CalledControl", &C::setCalledControl, &C::getCalledControl),
        plain("DataBlock", &C::setDataBlock, &C::getDataBlock),
        plain("TargetSig", &C::setTargetSig, &C::getTargetSig),
        plain("SourceExpr", &C::setSourceExpr, &C::getSourceExpr)}},
      {[&] { return createPlcSensor(host(), group, "h", ZEL_DEVICE_SENSOR, id); },
       {plain("PrimaryJoint", &D::setPrimaryJoint, &D::getPrimaryJoint),
        plain("RangeValue", &D::setRangeValue, &D::getRangeValue),
        plain("RangeLow", &D::setRangeLow, &D::getRangeLow),
        plain("RangeHigh", &D::setRangeHigh, &D::getRangeHigh),
        plain("IsInverse", &D::setIsInverse, &D::getIsInverse), plain("PoseRef", &D::setPose, &D::getPose),
        plain("PoseName", &D::setPoseName, &D::getPoseName),
        plain("SensorDevice", &D::setDevice, &D::getDevice)}},
      {[&] { return createPlcSensor(host(), group, "h", ZEL_DEVICE_DISTANCE_SENSOR, id); },
       {plain("PrimaryJoint", &M::setPrimaryJoint, &M::getPrimaryJoint),
        plain("ValueUnits", &M::setValueUnits, &M::getValueUnits)}},
      {[&] { return createPlcSensor(host(), group, "h", ZEL_PROXIMITY_SENSOR, id); },
       {plain("TargetObjRef", &X::setTargetObject, &X::getTargetObject),
        plain("OperatingMode", &X::setOperatingMode, &X::getOperatingMode),
        plain("RangeValue", &X::setRangeValue, &X::getRangeValue),
        plain("PartsRefs", &X::setParts, &X::getParts, true)}},
      {[&] { return createPlcPose(host(), group, "h", id); },
       {plain("PoseDevice", &ZelPose::setPoseDevice, &ZelPose::getPoseDevice)}},
      {[&] { return createPlcGroupPose(host(), group, "h", id); },
       {plain("PrimaryJoint", &G::setPrimaryJoint, &G::getPrimaryJoint),
        plain("PosesRef", &G::setPosesRef, &G::getPosesRef),
        plain("DeviceGroup", &G::setDeviceGroup, &G::getDeviceGroup)}},
      {[&] { return createPlcProjector(host(), group, "h", ZEL_PROPERTY_PROJECTOR, id); },
       {plain("PartsRefs", &J::setParts, &J::getParts),
        plain("RangeValue", &J::setRangeValue, &J::getRangeValue),
        plain("Simulated", &J::setSimulated, &J::getSimulated)}},
      {[&] { return createPlcPropertySensor(host(), group, "h", id); },
       {plain("isActive", &P::setIsActive, &P::getIsActive), plain("PartsRefs", &P::setParts, &P::getParts),
        plain("maximalRange", &P::setMaximalRange, &P::getMaximalRange),
        plain("Height", &P::setHeight, &P::getHeight), plain("StartBase", &P::setStartBase, &P::getStartBase),
        plain("EndBase", &P::setEndBase, &P::getEndBase),
        plain("RangeValue", &P::setRangeValue, &P::getRangeValue),
        plain("Property", &P::setProperty, &P::getProperty),
        plain("DataType", &P::setDataType, &P::getDataType)}},
  };
  for (const Case& test : cases) {
    ZelNode* made = test.make();
    ASSERT_TRUE(made);
    const IXMLDOMNode holder = zelXmlElementNodeOf(made)->getXmlNode();
    const auto groups = zelXmlPlcNodeFieldGroups();
    const auto rows = std::find_if(groups.begin(), groups.end(), [&](const ZelFieldGroup& each) {
      return each.owner == holder.nodeName();
    });
    ASSERT_NE(rows, groups.end()) << holder.nodeName();
    expectPlainFields(made, holder, rows->rows, test.fields);
    wrapper->removeAndDeleteNodeObject(id);
    group.removeChild(holder.parentNode());
  }
}

TEST_F(PlcNodesTest, TellTypeNameAndDescriptionByTheirClass) {
  struct Case {
    ZelNode* node;
    const char *type, *xml;
    bool isNamed;
  };
  const auto id = [](const char* text) { return ApiPmId(text); };
  const Case cases[] = {
      {createPlcSignal(host(), group, "h", ZEL_KEY_SIGNAL, id("1")), "PlcKeySignal", "Signal", false},
      {createPlcSignalInstance(host(), group, "h", id("2")), "PlcSignalInstance", "SignalInstance", false},
      {createPlcControl(host(), group, "h", ZEL_CONTROL, id("3")), "PlcControl", "Control", false},
      {createPlcControlCall(host(), group, "h", ZEL_CONTROL_CALL, id("4")), "PlcControlCall", "ControlCall",
       false},
      {createPlcSensor(host(), group, "h", ZEL_DEVICE_POSE_SENSOR, id("5")), "PlcDevicePoseSensor",
       "JointSensor", true},
      {createPlcSensor(host(), group, "h", ZEL_DEVICE_DISTANCE_SENSOR, id("6")), "PlcDeviceDistanceSensor",
       "DistanceSensor", true},
      {createPlcSensor(host(), group, "h", ZEL_PROXIMITY_SENSOR, id("7")), "PlcProximitySensor",
       "ProximitySensor", true},
      {createPlcPose(host(), group, "h", id("8")), "PlcPose", "Pose", true},
      {createPlcGroupPose(host(), group, "h", id("9")), "PlcGroupPose", "GroupPose", true},
      {createPlcProjector(host(), group, "h", ZEL_PROPERTY_PROJECTOR, id("10")), "PlcPropertyProjector",
       "PropertyProjector", true},
      {createPlcPropertySensor(host(), group, "h", id("11")), "PlcPropertySensorOnProgram",
       "PropertySensorOnProgram", true},
  };
  int number = 0;
  for (const Case& test : cases) {
    ASSERT_TRUE(test.node) << test.xml;
    RWClassicWString text;
    ApiPmId own;
    EXPECT_TRUE(test.node->getExternalId(own) && own.text() == std::to_string(++number));
    EXPECT_TRUE(test.node->getStringType(text) && text == test.type) << text;
    EXPECT_TRUE(ZelXmlIdConvertor::isPlcInternalNode(test.node));
    EXPECT_EQ(ZelXmlNodeKinds::of(test.node->type()).word.empty(),
              test.node->type() == ZEL_DEVICE_POSE_SENSOR || test.node->type() == ZEL_KEY_SIGNAL);
    EXPECT_EQ(test.node->setName("n") && test.node->setName("m"), test.isNamed) << test.xml;
    EXPECT_EQ(test.node->setDescription("c"), test.isNamed) << test.xml;
    EXPECT_EQ(test.node->getName(text) && text == "n" && test.node->getDescription(text) && text == "c",
              test.isNamed);
    EXPECT_TRUE(!test.node->getCaption(text) && !test.node->getParent() && !test.node->getParentId(own));
    const IXMLDOMNode element = zelXmlElementNodeOf(test.node)->getXmlNode();
    const std::string written =
        element.nodeName() == "JointSensor" || !test.isNamed ? field("StringType", test.type) : "";
    EXPECT_EQ(element.xml(),
              bare(test.xml, std::to_string(number),
                   (number == 2 ? "" : written) +
                       (test.isNamed ? "<name>n</name><name>m</name><comment>c</comment>" : "")));
    EXPECT_EQ(element.parentNode().nodeName(), "h");
  }
  EXPECT_EQ(inner(), "1 10 11 2 3 4 5 6 7 8 9");
  // The nodes of a new build are those that the owner adopts; this one adopts no "h".
  ASSERT_TRUE(wrapper->build(false));
  EXPECT_EQ(inner(), "");
}

// By the number of old documents first, whatever the text is.
TEST_F(PlcNodesTest, ReadTypesOfBothForms) {
  struct Case {
    const char* fields;
    int signal, sensor;
  };
  const Case cases[] = {
      {"<StringType>PlcKeySignal</StringType>", 46, 46},
      {"<Type>40</Type><StringType>PlcKeySignal</StringType>", 43, 43},
      {"<Type>34</Type>", 37, 37},
      {"<Type>75</Type>", 78, 78},
      {"<Type>76</Type>", 83, 83},
      {"<Type>33</Type><StringType>PlcKeySignal</StringType>", 43, 38},
      {"<Type>77</Type>", 43, 38},
      {"<StringType>none</StringType>", 43, 38},
      {"", 43, 38},
  };
  for (const Case& test : cases) {
    give(
        "<S>" + bare("Signal", "S", test.fields) + "</S><J>" + bare("JointSensor", "J", test.fields) + "</J>",
        "S/*", adoptPlcSignal);
    EXPECT_EQ(node("S")->type(), test.signal) << test.fields;
    ZelNode* sensor = adoptPlcSensor(host(), at(group, "J/*"));
    ASSERT_TRUE(sensor);
    EXPECT_EQ(sensor->type(), test.sensor) << test.fields;
  }
  // A device sensor remembers what it was.
  ZelNode* sensor = createPlcSensor(host(), group, "h", ZEL_DEVICE_POSE_SENSOR, ApiPmId("R"));
  EXPECT_EQ(sensor->type(), 75);
  zelXmlElementNodeOf(sensor)->getXmlNode().putText("");
  EXPECT_EQ(sensor->type(), 75);
}

// A creation that fails leaves holder and element, and the node that had the id.
TEST_F(PlcNodesTest, CreationsThatFailRegisterNothing) {
  ZelNode* former = createPlcSignal(host(), group, "a", ZEL_SIGNAL, ApiPmId("S"));
  ASSERT_TRUE(former);
  const std::string first = group.xml().substr(0, group.xml().size() - std::string("</plcInfo>").size());
  EXPECT_FALSE(createPlcSignal(host(), group, "b", static_cast<ZelNodeType>(74), ApiPmId("S")));
  EXPECT_FALSE(createPlcSignal(host(), group, "b", ZEL_OPERATION, ApiPmId("S")));
  EXPECT_FALSE(createPlcPose(host(), group, "b", ApiPmId()));
  EXPECT_FALSE(createPlcPose(host(), group, "b", ApiPmId("bad \x01")));
  EXPECT_FALSE(createPlcSensor(host(), group, "c", ZEL_SIGNAL, ApiPmId("T")));
  EXPECT_FALSE(createPlcProjector(host(), group, "c", ZEL_POSE, ApiPmId("T")));
  EXPECT_EQ(group.xml(), first +
                             "<b><Signal ExternalId=\"S\"/></b><b><Signal ExternalId=\"S\"/></b>"
                             "<b><Pose/></b><b><Pose/></b></plcInfo>");
  EXPECT_EQ(node("S"), former);
  EXPECT_EQ(inner(), "S");
}

// It takes whatever has the id, and the place of a node that is registered under it.
TEST_F(PlcNodesTest, GroupPosesAreAdoptedWhereTheyAre) {
  ZelNode* pose = createPlcGroupPose(host(), group, "h", ApiPmId("G"));
  const std::string made = group.xml();
  EXPECT_EQ(made, "<plcInfo><h><GroupPose ExternalId=\"G\"/></h></plcInfo>");
  ZelNode* again = createPlcGroupPose(host(), group, "h", ApiPmId("G"));
  EXPECT_TRUE(again && again != pose && node("G") == again);
  ZelNode* object = createPlcGroupPose(host(), group, "h", ApiPmId("O"));
  EXPECT_EQ(zelXmlElementNodeOf(object)->getXmlNode(), element("O"));
  EXPECT_EQ(group.xml(), made);
  EXPECT_EQ(node("O"), xmlNode("O")->pmNode()) << "the object keeps its own entry";
}

TEST_F(PlcNodesTest, AdoptionsLookAtNamesAndIds) {
  give("<h><Pose ExternalId=\"P\"/></h>", "h/*", adoptPlcSignal);
  EXPECT_TRUE(adopted) << "a signal may have any name";
  for (const ZelXmlAdopt adopt : {adoptPlcSensor, adoptPlcProjector, adoptPlcPropertySensor})
    EXPECT_FALSE(adopt(host(), at(group, "h/*")));
  give("<h><Signal/></h><h><Signal ExternalId=\"\"/></h>", "h", adoptPlcSignal);
  for (const IXMLDOMNode& holder : {at(group, "h"), at(group, "h").firstElementChild().parentNode()})
    EXPECT_FALSE(adoptPlcSignal(host(), holder.firstElementChild()));
  EXPECT_EQ(inner(), "");
}

TEST_F(PlcNodesTest, ConnectionNamesFallBackOnTheOlderField) {
  give("<h><Signal ExternalId=\"S\"><SigOpcConnectionName>old</SigOpcConnectionName></Signal></h>", "h/*",
       adoptPlcSignal);
  auto* signal = zelQuery<ZelSignal>(node("S"));
  RWClassicWString name;
  EXPECT_TRUE(signal->getSigExternalConnectionName(name) && name == "old");
  EXPECT_TRUE(signal->setSigExternalConnectionName(""));
  EXPECT_TRUE(signal->getSigExternalConnectionName(name) && name.empty());
  EXPECT_TRUE(signal->reservedTrue() && !signal->reservedFalse());
}

TEST_F(PlcNodesTest, PairsOfSignalInstancesStopAtWhatIsMissing) {
  using Ids = ZelSignalInstance::GlobalIds;
  const ApiGlobalUniqueId guid("00000000-0000-0000-0000-000000000001");
  auto* instance = zelQuery<ZelSignalInstance>(createPlcSignalInstance(host(), group, "h", ApiPmId("I")));
  const ApiPmId a("a"), b("b");
  EXPECT_FALSE(instance->setEntries({a}, Ids()));
  EXPECT_TRUE(instance->setEntries({}, Ids()));
  EXPECT_TRUE(instance->setEntries({a, b}, {guid, {}})) << "a null one is left out";
  EXPECT_TRUE(instance->setExits({a}, {guid}) && instance->setExits({b}, {guid}));
  EXPECT_FALSE(instance->setExits({a, {}, b}, {guid, guid, guid}));
  const std::string whole = " GUID=\"" + guid.getAsString() + "\"/>";
  const std::string pairA = "<item ExternalId=\"a\"" + whole, pairB = "<item ExternalId=\"b\"" + whole;
  EXPECT_EQ(group.xml(),
            field("plcInfo", field("h", bare("SignalInstance", "I",
                                             field("Entries", pairA + "<item ExternalId=\"b\"/>") +
                                                 field("Exits", pairA) + field("Exits", pairB) +
                                                 field("Exits", pairA + "<item/>")))));
  ApiPmIdList ids;
  Ids guids;
  EXPECT_FALSE(instance->getEntries(ids, guids));
  EXPECT_TRUE(ids == ApiPmIdList{a} && guids == Ids{guid});
  EXPECT_FALSE(instance->getExits(ids, guids));
  EXPECT_TRUE(ids == (ApiPmIdList{a, a, b, a}) && guids.entries() == 4u);
}

std::string call(const std::string& id, const std::string& content = "") {
  return bare("ControlCall", id, content);
}
std::string calls(const std::string& entries) { return field("CallsToCtrls", entries); }

TEST_F(PlcNodesTest, ControlsHaveTreesOfCalls) {
  auto* control = zelQuery<ZelControl>(createPlcControl(host(), group, "h", ZEL_CONTROL, ApiPmId("K")));
  auto* one = zelQuery<ZelControlCall>(control->createCallToControl(ZEL_CONTROL_CALL, ApiPmId("1")));
  ASSERT_TRUE(one && one->createCallToControl(ZEL_CONTROL_CALL, ApiPmId("2")) &&
              one->createElseCompoundControlCall(ZEL_CONTROL_CALL, ApiPmId("3")) &&
              one->createElseCompoundControlCall(ZEL_CONTROL_CALL, ApiPmId("4")) &&
              control->createCallToControl(ZEL_CONTROL_CALL, ApiPmId("5")));
  const std::string type = "<StringType>PlcControlCall</StringType>";
  const std::string tree =
      bare("Control", "K",
           "<StringType>PlcControl</StringType>" +
               calls(field("item", call("1", type + calls(field("item", call("2", type))) +
                                                 field("ElseCompoundControlCall", call("3", type)) +
                                                 field("ElseCompoundControlCall", call("4", type)))) +
                     field("item", call("5", type))));
  EXPECT_EQ(group.xml(), field("plcInfo", field("h", tree)));
  ApiPmIdList ids;
  ApiPmId id;
  EXPECT_TRUE(control->getCallsToControls(ids) && joined(ids) == "1 5");
  EXPECT_TRUE(one->getElseCompoundControlCall(id) && id.text() == "3");

  give(field("h", tree), "h/*", adoptPlcControl);
  EXPECT_TRUE(adopted);
  EXPECT_EQ(inner(), "1 2 3 5 K") << "the first else branch counts";
  EXPECT_TRUE(removeRequisitesOf("1"));
  EXPECT_FALSE(removeRequisitesOf("5")) << "it has no else branch";
  EXPECT_TRUE(removeRequisitesOf("K"));
  EXPECT_EQ(inner(), "K");
}

TEST_F(PlcNodesTest, CallsThatListThemselvesOrObjectsTakeNoMoreThanThemselves) {
  build(made(
      "PmOperation", "O", "Operation",
      field("plcInfo", field("h", call("A", calls(field("item", call("A")) + field("item", call("O"))))))));
  group = at(element("O"), "plcInfo");
  auto* outer = adoptPlcControlCall(host(), at(group, "h/*"));
  EXPECT_FALSE(zelXmlElementNodeOf(outer)->removeRequisites());
  EXPECT_FALSE(node("A")) << "it lists itself";
  EXPECT_TRUE(node("O"));
}

TEST_F(PlcNodesTest, CallsGoDownToTheDepthOfDocuments) {
  // Levels that are taken: Data, Objects, O, plcInfo, h.
  const int depth = (IXMLDOMNode::maxDepth - 6) / 3;
  std::string text = "<ControlCall ExternalId=\"end\"/>";
  for (int i = 0; i < depth; ++i) text = call("c" + std::to_string(i), calls(field("item", text)));
  give(field("h", text), "h/*", adoptPlcControlCall);
  EXPECT_TRUE(adopted);
  auto* end = zelQuery<ZelControlCall>(node("end"));
  ASSERT_TRUE(end);
  for (ZelNode* last = node("end"); last;
       last =
           zelQuery<ZelControlCall>(last)->createElseCompoundControlCall(ZEL_CONTROL_CALL, ApiPmId("more"))) {
  }
  ApiPmIdList ids;
  EXPECT_TRUE(zelQuery<ZelControlCall>(node("c0"))->getCallsToControls(ids) && joined(ids) == "end");
}

TEST_F(PlcNodesTest, SensorsPosesAndProjectorsHoldSignals) {
  const auto holder = [](const char* name, const char* id) {
    return field(name, bare("Signal", id, "<Property>p" + std::string(id) + "</Property>"));
  };
  give(field("s", bare("JointSensor", "J", holder("SensorSig", "1"))) +
           field("s", bare("DistanceSensor", "D", holder("SensorSig", "2") + holder("SensorSig", "not"))) +
           field("s", bare("ProximitySensor", "X")),
       "s/*", adoptPlcSensor);
  EXPECT_TRUE(adopted);
  EXPECT_EQ(inner(), "1 2 D J X");
  for (const char* id : {"J", "D", "X"}) EXPECT_TRUE(removeRequisitesOf(id));
  EXPECT_EQ(inner(), "D J X");

  give(field("p", bare("Pose", "P", holder("KeySig", "1") + holder("MoveInDirSig", "2"))) +
           field("p", bare("Pose", "Q", holder("MoveToPoseSig", "3") + "<KeySig><Signal/></KeySig>")),
       "p/*", adoptPlcPose);
  EXPECT_FALSE(adopted) << "a signal without id";
  EXPECT_EQ(inner(), "1 2 3 P Q");
  EXPECT_TRUE(removeRequisitesOf("P") && removeRequisitesOf("Q"));
  EXPECT_EQ(inner(), "P Q");

  give(field("p",
             bare("PropertyProjector", "R",
                  field("PPSignals", holder("item", "1") + holder("item", "2") +
                                         "<item><Signal ExternalId=\"3\"/></item>" + holder("item", "4")))),
       "p/*", adoptPlcProjector);
  EXPECT_TRUE(adopted);
  auto* projector = zelQuery<ZelPropertyProjector>(node("R"));
  ApiPmId id;
  EXPECT_TRUE(projector->getSignalOfProperty("p2", id) && id.text() == "2");
  EXPECT_FALSE(projector->getSignalOfProperty("p4", id)) << "one ahead of it names no property";
  EXPECT_TRUE(projector->createSignal(ZEL_SIGNAL, ApiPmId("5")));
  EXPECT_EQ(inner(), "1 2 3 4 5 R");
  EXPECT_TRUE(removeRequisitesOf("R"));
  EXPECT_EQ(inner(), "R");
}

TEST_F(PlcNodesTest, ProjectorsAndSensorsOnProgramsKeepWhatIsNotPlain) {
  auto* projector = zelQuery<ZelPropertyProjector>(
      createPlcProjector(host(), group, "h", ZEL_PROPERTY_PROJECTOR, ApiPmId("R")));
  using Property = ApiPlcSimulationProperty;
  EXPECT_TRUE(projector->setProperties({Property("a"), Property("")}));
  EXPECT_FALSE(projector->setProperties({Property(), Property("c")}));
  EXPECT_EQ(group.xml(),
            field("plcInfo", field("h", bare("PropertyProjector", "R",
                                             "<Properties><item><name>a</name></item><item><name/></item>"
                                             "</Properties><Properties><item/></Properties>"))));
  ZelPropertyProjector::SimulationProperties read{Property("former")};
  EXPECT_FALSE(projector->getProperties(read));
  EXPECT_EQ(read, (ZelPropertyProjector::SimulationProperties{Property("a"), Property("")}));
  ApiPmIdList parts{ApiPmId("former")};
  EXPECT_TRUE(projector->setParts({ApiPmId("x"), ApiPmId("x")}) && projector->getParts(parts));
  EXPECT_EQ(joined(parts), "x x");

  auto* sensor =
      zelQuery<ZelPropertySensorOnProgram>(createPlcPropertySensor(host(), group, "i", ApiPmId("T")));
  RTTran3D place = along(3);
  EXPECT_TRUE(sensor->getRelativeLocation(place));
  EXPECT_EQ(place.getTranslation().x, 0);
  EXPECT_TRUE(sensor->setRelativeLocation(along(1)) && sensor->setRelativeLocation(along(2)));
  EXPECT_TRUE(sensor->getRelativeLocation(place));
  EXPECT_EQ(place.getTranslation().x, 2);
}

}  // namespace
