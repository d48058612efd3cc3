#include <cmath>
#include <memory>

#include "document/ZelXmlFrameText.h"
#include "wrapper/StudyTest.h"
#include "zel/ZelInstance.h"
#include "zel/ZelResourceInstance.h"
#include "zel/ZelTool.h"
#include "zel/ZelVorResourceInstance.h"

using namespace document_test;

namespace {

std::string robot(const std::string& id, const std::string& fields = "") {
  return made("PmToolInstance", id, "Resource", fields);
}

// One of each class of resource instances.
const std::string resources = made("LightSensor", "light", "ToolPrototype") +
                              made("PropertySensor", "property", "ToolPrototype") + robot("R") +
                              robot("LI", "<prototype>light</prototype>") +
                              robot("PR", "<prototype>property</prototype>") +
                              made("PmEquipmentInstance", "E", "Resource", "<children/>");

// What is read of a frame, in one line.
std::string told(const ApiPmRobotFramesData& frame) {
  const ApiPmPersistentId& attachment = frame.attachment();
  const ApiPmExtendedId object = attachment.pmExtendedId();
  std::string text = frame.id() + "|" + frame.name() + "|" + zelXmlFormatFrameText(frame.location()) + "|";
  if (attachment.isPmExtendedId())
    text += "object " + object.id.asString() + "#" + object.key.getSelfAsString();
  if (attachment.isGuid()) text += "guid " + attachment.guid().getAsString();
  if (const auto* moving = dynamic_cast<const ApiPmRobotMovingConveyorSystemFrameData*>(frame.Data()))
    text += "|" + std::to_string(moving->conveyorNumber());
  return text;
}

class RobotTest : public StudyTest {
 public:
  using Frames = ZelResourceInstance::Frames;
  using Parameters = RWClassicTValOrderedVector<RTAutoPtr<ApiTbmRoboticParam>>;

  ZelResourceInstance& resource(std::string_view id = "R") const {
    return *ZelResourceInstance::queryZelResourceInstance(node(id));
  }
  ZelVorResourceInstance& toolbox(std::string_view id = "R") const {
    return *ZelVorResourceInstance::queryZelVorResourceInstance(node(id));
  }
  ZelTool& tool(std::string_view id) const { return *ZelTool::queryZelTool(node(id)); }
  std::string frames(std::string_view id = "R") const {
    Frames read;
    EXPECT_TRUE(resource(id).getSystemFrames(read));
    std::string text;
    for (const ApiPmRobotFramesData& frame : read) text.append(text.empty() ? "" : "; ").append(told(frame));
    return text;
  }
  static ZelResourceInstance::RoboticParameters pointers(const Parameters& owned) {
    ZelResourceInstance::RoboticParameters list;
    for (const auto& parameter : owned) list.append(parameter.get());
    return list;
  }
  std::string streamed(std::string_view id) const { return object(stream, id).xml(); }
};

TEST_F(RobotTest, AllResourceInstancesServeRobotsAndTools) {
  build(resources);
  struct Case {
    const char* id;
    int type;
    bool isVorInstance;
  };
  for (const Case& test : {Case{"R", 2, true}, {"LI", 35, false}, {"PR", 36, false}, {"E", 112, true}}) {
    ZelNode* of = node(test.id);
    ASSERT_EQ(of->type(), test.type) << test.id;
    for (const ZelNode::InterfaceType type :
         {ZelNode::ResourceInstance, ZelNode::VorResourceInstance, ZelNode::Tool}) {
      ZelNode* face = of->queryInterface(type);
      ASSERT_TRUE(face) << test.id << type;
      EXPECT_EQ(face->type(), test.type);
    }
    EXPECT_EQ(of, of->queryInterface(ZelNode::ResourceInstance)) << "the one that stands for the object";
    EXPECT_EQ(of->queryInterface(ZelNode::VorInstance) != nullptr, test.isVorInstance) << test.id;
  }
}

TEST_F(RobotTest, PlainTexts) {
  struct Field {
    const char* path;
    bool (*get)(const RobotTest&, std::string_view, std::string&);
    bool (*set)(const RobotTest&, std::string_view, const std::string&);
  };
  using Test = RobotTest;
  const Field fields[] = {
      {"Controller",
       [](const Test& t, std::string_view id, std::string& v) { return t.resource(id).getController(v); },
       [](const Test& t, std::string_view id, const std::string& v) {
         return t.resource(id).setController(v);
       }},
      {"ControllerVersion",
       [](const Test& t, std::string_view id, std::string& v) {
         return t.resource(id).getControllerVersion(v);
       },
       [](const Test& t, std::string_view id, const std::string& v) {
         return t.resource(id).setControllerVersion(v);
       }},
      {"rrsInformation/ManipulatorType",
       [](const Test& t, std::string_view id, std::string& v) {
         return t.resource(id).getManipulatorType(v);
       },
       [](const Test& t, std::string_view id, const std::string& v) {
         return t.resource(id).setManipulatorType(v);
       }},
      {"rrsInformation/RobotPathName",
       [](const Test& t, std::string_view id, std::string& v) { return t.toolbox(id).getRobotPathName(v); },
       [](const Test& t, std::string_view id, const std::string& v) {
         return t.toolbox(id).setRobotPathName(v);
       }},
  };
  build(resources);
  publish();
  for (const char* id : {"R", "LI", "PR", "E"}) {
    for (const Field& row : fields) {
      std::string value = "kept";
      EXPECT_TRUE(!row.get(*this, id, value) && value == "kept") << id << row.path;
      EXPECT_TRUE(row.set(*this, id, "former") && row.set(*this, id, row.path)) << id << row.path;
      EXPECT_TRUE(row.get(*this, id, value) && value == row.path) << id << row.path;
      EXPECT_EQ(streamed(id), element(id).xml()) << id << row.path;
    }
  }
  EXPECT_EQ(element("R").xml(),
            bare("PmToolInstance", "R",
                 familyOf("Resource") + field("Controller", "Controller") +
                     field("ControllerVersion", "ControllerVersion") +
                     field("rrsInformation", field("ManipulatorType", "rrsInformation/ManipulatorType") +
                                                 field("RobotPathName", "rrsInformation/RobotPathName"))));
  double seconds = 0;
  EXPECT_FALSE(resource().getRobotSetupTime(seconds));
  EXPECT_TRUE(resource().setRobotSetupTime(1.5) && resource().setRobotSetupTime(2.5));
  EXPECT_TRUE(resource().getRobotSetupTime(seconds) && seconds == 1.5);
}

TEST_F(RobotTest, AnyNumberAsksForChanges) {
  const std::pair<const char*, bool> texts[] = {{"", false}, {"0", false}, {"no", false},
                                                {"1", true}, {"-3", true}, {"99999999999999", true}};
  std::string objects = robot("R");
  for (const auto& [text, asks] : texts)
    objects += bare("PmToolInstance", std::string("R") + text,
                    field("NodeInfo", "<family>Resource</family>" + field("needToPropagate", text)));
  build(objects.substr(robot("R").size()));
  for (const auto& [text, asks] : texts) {
    bool needed = !asks;
    EXPECT_TRUE(toolbox(std::string("R") + text).getNeedToPropagate(needed)) << text;
    EXPECT_EQ(needed, asks) << text;
  }
  build(robot("R"));
  bool needed = true;
  EXPECT_FALSE(toolbox().getNeedToPropagate(needed));
}

TEST_F(RobotTest, FramesAreReadBackAsTheyWereWritten) {
  build(robot("R") + robot("S"));
  publish();
  EXPECT_EQ(frames(), "");
  const ApiPmExtendedId object{ApiPmId("A"), {}};
  const ApiPmExtendedId joint{ApiPmId("A"), ApiKey("joint & 1")};
  const std::string guid = "01234567-89AB-cdef-0123-456789abcdef";
  Frames written{
      {"1", "base", RTTran3D({1, -2.25, 1e20}, {0, 0, 1.0 / 3}), ApiPmPersistentId(object)},
      {"2", "", RTTran3D({123456.789012, 1e-7, -0.0}, {-1, 0.5, 3}), ApiPmPersistentId(joint)},
      {"", "belt", {}, ApiPmPersistentId(ApiGlobalUniqueId(guid))},
  };
  written[2].setData(std::make_shared<ApiPmRobotMovingConveyorSystemFrameData>(65535));
  ASSERT_TRUE(resource().addSystemFrames(written));
  const auto frame = [](const std::string& id, const std::string& name, const std::string& attachment,
                        const std::string& location, const std::string& data = "") {
    return field("frame", field("id", id) + field("name", name) + field("attachmentParent", attachment) +
                              field("location", location) + data);
  };
  EXPECT_EQ(
      element("R").xml(),
      bare("PmToolInstance", "R",
           familyOf("Resource") +
               field("systemFrames",
                     frame("1", "base", "<externalId>A</externalId>", "1._-2.25_1.e+20_0._0._0.3333333333") +
                         frame("2", "", "<externalId>A</externalId><relKey>joint &amp; 1</relKey>",
                               "123456.789_1.e-07_0._-1._0.5_3.") +
                         frame("", "belt", field("GUID", guid), "0._0._0._0._0._0.",
                               "<data><type>Conveyor_Moving</type>"
                               "<conveyorNumber>65535</conveyorNumber></data>"))));
  EXPECT_EQ(streamed("R"), element("R").xml());

  Frames read;
  ASSERT_TRUE(resource().getSystemFrames(read) && read.entries() == 3u);
  ASSERT_TRUE(resource("S").addSystemFrames(read));
  EXPECT_EQ(at(element("S"), "systemFrames").xml(), at(element("R"), "systemFrames").xml());
  ASSERT_TRUE(resource().addSystemFrames({read[0]}));
  EXPECT_EQ(frames(), frames("S") + "; " + told(written[0])) << "frames are added to those that are there";
  EXPECT_TRUE(resource().clearSystemFrames());
  EXPECT_EQ(element("R").xml(), robot("R"));
  EXPECT_EQ(root(stream), updates(element("S").xml() + element("R").xml()));
}

TEST_F(RobotTest, FramesAsTheyAreFound) {
  const std::string place = "<location>1_2_3_4_5_6</location>";
  const std::string read = "|1._2._3._4._5._6.|";
  const std::string empty = "||0._0._0._0._0._0.|";
  const auto moving = [&](const std::string& data) { return "<name/>" + place + field("data", data); };
  const std::pair<std::string, std::string> cases[] = {
      {"<name>n</name><id>i</id>" + place, "i|n" + read},
      {"<name>n</name><id>i</id><attachmentParent><externalId>A</externalId></attachmentParent>", empty},
      {"<name/>" + place + "<attachmentParent/>", "|" + read},
      {"<name/>" + place + "<attachmentParent><relKey>k</relKey></attachmentParent>", "|" + read},
      {"<name/>" + place + "<attachmentParent><externalId>A</externalId><relKey/></attachmentParent>",
       "|" + read + "object A#"},
      {"<name/>" + place + "<attachmentParent><GUID>no id</GUID></attachmentParent>", "|" + read},
      {"<name/>" + place +
           "<attachmentParent><GUID>01234567-89AB-cdef-0123-456789abcdef</GUID><externalId>A</externalId>"
           "</attachmentParent>",
       "|" + read + "object A#"},
      {"<name/><location>1_2</location>", "||1._2._2._2._2._2.|"},
      {"<name/><location>7</location>", "||7._7._7._7._7._7.|"},
      {"<name/><location/>", empty},
      {"<name/><location>1_nan_1,5_inf_2x_6_7</location>", "||1._0._1._0._2._6.|"},
      {moving("<type>Conveyor_Moving</type><conveyorNumber>-1</conveyorNumber>"), "|" + read + "|65535"},
      {moving("<type>Conveyor_Moving</type><conveyorNumber>70000</conveyorNumber>"), "|" + read + "|4464"},
      {moving("<type>Conveyor_Moving</type>"), "|" + read},
      {moving("<type>conveyor_moving</type><conveyorNumber>1</conveyorNumber>"), "|" + read},
      {"<robotsystemFrameName>n</robotsystemFrameName><robotsystemFrameId>i</robotsystemFrameId>"
       "<robotsystemFrameAttachment>A</robotsystemFrameAttachment>"
       "<robotsystemFrameRotation>1_2_3_4_5_6</robotsystemFrameRotation>",
       "i|n" + read + "object A#"},
      {"<robotsystemFrameRotation>1_2_3_4_5_6</robotsystemFrameRotation>", "|" + read},
      {"<robotsystemFrameName>n</robotsystemFrameName>" + place, ""},
  };
  std::string objects;
  int count = 0;
  for (const auto& [frame, expected] : cases)
    objects += robot("R" + std::to_string(count++), field("systemFrames", field("frame", frame)));
  build(objects);
  count = 0;
  for (const auto& [frame, expected] : cases)
    EXPECT_EQ(frames("R" + std::to_string(count++)), expected) << frame;
}

TEST_F(RobotTest, AFrameThatCannotBeWrittenEndsTheList) {
  build(robot("R"));
  publish();
  EXPECT_TRUE(resource().addSystemFrames({}));
  EXPECT_EQ(updated(), "");
  const ApiPmPersistentId object(ApiPmExtendedId{ApiPmId("A"), {}});
  const Frames written{
      {"1", "a", {}, object}, {"2", "b", {}, object}, {"3", "c", {}, {}}, {"4", "d", {}, object}};
  EXPECT_FALSE(resource().addSystemFrames(written));
  IXMLDOMNodeList left;
  zelXmlSelectChildren(element("R"), "systemFrames/frame", left);
  ASSERT_EQ(left.length(), 3);
  EXPECT_EQ(left.item(2).xml(), "<frame><id>3</id><name>c</name></frame>");
  // It is not published, but the frames before it are.
  zelXmlRemoveFromParent(left.item(2));
  EXPECT_EQ(streamed("R"), element("R").xml());
  // A document that takes no changes ends it with the first.
  wrapper->setOutDocument(parse("<other/>"));
  EXPECT_FALSE(resource().addSystemFrames({written[0], written[1]}));
  EXPECT_EQ(frames(),
            "1|a|0._0._0._0._0._0.|object A#; 2|b|0._0._0._0._0._0.|object A#; "
            "1|a|0._0._0._0._0._0.|object A#");
}

TEST_F(RobotTest, ParametersOfAllKinds) {
  const auto place = [](const char* location, const char* rotation) {
    return listOf("location", location) + (rotation ? listOf("rotation", rotation) : "");
  };
  struct Case {
    const char* type;
    std::string value;
    std::string empty;  // what an empty value reads as, as a value; "-" for one that cannot be read
  };
  const Case cases[] = {
      {"int", "-7", "0"},
      {"double", "2.500000", "0.000000"},
      {"bool", "1", "0"},
      {"matrix", place("1.000000 2.000000 3.000000", "0.000000 0.000000 0.500000"),
       place("0.000000 0.000000 0.000000", "0.000000 0.000000 0.000000")},
      {"string", "a &lt; b", ""},
      {"vec3d", place("1.000000 2.000000 3.000000", nullptr), place("0.000000 0.000000 0.000000", nullptr)},
      {"xml", "<any a=\"1\"><b>text</b></any>", "-"},
  };
  const auto parameter = [](const Case& test, const std::string& value) {
    return field("parameter", field("value", value) + field("id", std::string("my ") + test.type) +
                                  field("type", test.type));
  };
  std::string all;
  std::string objects;
  for (const Case& test : cases) {
    all += parameter(test, test.value);
    objects +=
        robot(test.type, field("roboticParameters", parameter(test, ""))) +
        robot(std::string("no ") + test.type,
              field("roboticParameters", "<parameter><id/>" + field("type", test.type) + "</parameter>"));
  }
  build(objects + robot("R", field("roboticParameters", all)) + robot("S"));
  publish();
  Parameters read;
  ASSERT_TRUE(resource().getRoboticParameters(read) && read.entries() == std::size(cases));
  ASSERT_TRUE(resource("S").addRoboticParameters(pointers(read)));
  EXPECT_EQ(element("S").xml(),
            robot("S").replace(robot("S").rfind("</"), 0, field("roboticParameters", all)));
  EXPECT_EQ(streamed("S"), element("S").xml());
  EXPECT_EQ(at(element("R"), "roboticParameters").xml(), field("roboticParameters", all)) << "nothing moved";
  EXPECT_EQ(read[3]->name(), "my matrix");
  EXPECT_TRUE(dynamic_cast<ApiTbmRoboticMatrixParam&>(*read[3]).value().isNear(
      RTTran3D({1, 2, 3}, {0, 0, 0.5}), 1e-9, 1e-9));
  EXPECT_EQ(dynamic_cast<ApiTbmRoboticIntParam&>(*read[0]).value(), -7);
  ASSERT_TRUE(resource("S").clearRoboticParameters());
  EXPECT_EQ(root(stream), updates(robot("S")));

  for (const Case& test : cases) {
    Parameters one;
    EXPECT_EQ(resource(test.type).getRoboticParameters(one), test.empty != "-") << test.type;
    EXPECT_FALSE(resource(std::string("no ") + test.type).getRoboticParameters(one)) << test.type;
    if (test.empty == "-") continue;
    ASSERT_EQ(one.entries(), 1u) << test.type;
    ASSERT_TRUE(resource("S").clearRoboticParameters() && resource("S").addRoboticParameters(pointers(one)));
    EXPECT_EQ(at(element("S"), "roboticParameters").xml(),
              field("roboticParameters", parameter(test, test.empty)));
  }
}

TEST_F(RobotTest, AParameterThatIsNoneEndsTheList) {
  const std::string good = "<parameter><value>1</value><id>a</id><type>int</type></parameter>";
  std::string objects = robot("R");
  const std::string bad[] = {"<parameter><value>1</value><id/><type>integer</type></parameter>",
                             "<parameter><value>1</value><type>int</type></parameter>",
                             "<parameter><value>1</value><id/></parameter>", "<parameter/>"};
  for (const std::string& each : bad)
    objects += robot("R" + std::to_string(&each - bad), field("roboticParameters", good + each + good));
  build(objects);
  publish();
  for (const std::string& each : bad) {
    Parameters read;
    EXPECT_FALSE(resource("R" + std::to_string(&each - bad)).getRoboticParameters(read)) << each;
    EXPECT_EQ(read.entries(), 1u) << each;
  }
  Parameters none;
  EXPECT_TRUE(resource().getRoboticParameters(none) && none.isEmpty());

  struct Foreign : ApiTbmRoboticParam {
    int kind() const override { return 5; }
  };
  ApiTbmRoboticIntParam number;
  number.setName("n");
  const ApiTbmRoboticXmlParam withoutElement;
  const Foreign foreign;
  const std::string kept = "<parameter><value>0</value><id>n</id><type>int</type></parameter>";
  std::string expected;
  for (const ApiTbmRoboticParam* last : {static_cast<const ApiTbmRoboticParam*>(nullptr),
                                         static_cast<const ApiTbmRoboticParam*>(&withoutElement),
                                         static_cast<const ApiTbmRoboticParam*>(&foreign)}) {
    EXPECT_FALSE(resource().addRoboticParameters({&number, last, &number}));
    EXPECT_EQ(at(element("R"), "roboticParameters").xml(), field("roboticParameters", expected += kept));
  }
  EXPECT_EQ(updated(), "") << "nothing of it is published";
  EXPECT_TRUE(resource().addRoboticParameters({}));
  EXPECT_EQ(updated(), "R");
}

std::string usage(const std::string& id, const std::string& robot, const std::string& tool,
                  const std::string& rest) {
  return made("PmToolboxUsage", id, "PmToolboxUsage",
              rest + field("usesTool", tool) + field("usedBy", robot) +
                  "<workToolTCPFPosition>1._2._3._0._0._0.5</workToolTCPFPosition>"
                  "<workToolTCPF>4</workToolTCPF>");
}

TEST_F(RobotTest, TheToolboxIsOfUsesThatAreObjects) {
  build(robot("R") + robot("gun"));
  publish();
  ZelVorResourceInstance::Toolbox read;
  EXPECT_TRUE(toolbox().getToolboxData(read) && read.isEmpty());
  const RTTran3D place({1, 2, 3}, {0, 0, 0.5});
  const ZelVorResourceInstance::Toolbox written{{ApiPmId("U"), ApiPmId("gun"), "weld", "left", place, 4},
                                                {ApiPmId("V"), {}, "", "", place, 4}};
  ASSERT_TRUE(toolbox().addToolboxData(written));
  const std::string first =
      usage("U", "R", "gun", "<workToolName>weld</workToolName><workToolComment>left</workToolComment>");
  const std::string second = usage("V", "R", "", "<workToolName/><workToolComment/>");
  const std::string filled =
      bare("PmToolInstance", "R", familyOf("Resource") + "<workToolTCPF/>" + listOf("usesTool", "U V"));
  EXPECT_EQ(objects(), filled + robot("gun") + first + second);
  EXPECT_EQ(root(stream), updates(first + second + filled));
  EXPECT_TRUE(toolbox().getToolboxData(read));
  EXPECT_EQ(read, written);

  // Ids that name something, or nothing at all, are refused before anything is made.
  for (const char* id : {"", "NULL", "gun", "U"}) {
    EXPECT_FALSE(toolbox().addToolboxData({{ApiPmId(id), {}, "", "", {}, 0}})) << id;
    EXPECT_EQ(objects(), filled + robot("gun") + first + second) << id;
  }
  EXPECT_FALSE(toolbox().addToolboxData({{ApiPmId("W"), {}, "", "", {}, 0}, written[0], written[1]}));
  EXPECT_EQ(list("R", "usesTool"), "U V W");
  EXPECT_EQ(streamed("R"), element("R").xml());

  ASSERT_TRUE(toolbox().clearToolboxData());
  EXPECT_EQ(objects(), bare("PmToolInstance", "R", familyOf("Resource") + "<workToolTCPF/>") + robot("gun"));
  EXPECT_EQ(deleted(), "U V W");
  EXPECT_EQ(streamed("R"), element("R").xml());
  ASSERT_TRUE(toolbox().addToolboxData({written[0]})) << "a deleted id is free again";
}

TEST_F(RobotTest, AUseThatIsMissingEndsTheToolbox) {
  const std::string broken = made("PmToolboxUsage", "N", "PmToolboxUsage", "<workToolName>n</workToolName>");
  build(robot("R", listOf("usesTool", "U gone V U")) + robot("S", listOf("usesTool", "V V N U")) +
        robot("T") + usage("U", "R", "NULL", "") + usage("V", "R", "gun", "") + broken);
  publish();
  ZelVorResourceInstance::Toolbox read;
  EXPECT_FALSE(toolbox().getToolboxData(read));
  ASSERT_EQ(read.entries(), 1u);
  EXPECT_TRUE(read[0].toolId.isNull());
  read.clear();
  EXPECT_FALSE(toolbox("S").getToolboxData(read));
  EXPECT_EQ(read.entries(), 1u) << "each use once, and none behind one without position";

  EXPECT_FALSE(toolbox().clearToolboxData());
  EXPECT_EQ(deleted(), "U");
  EXPECT_TRUE(exists("V"));
  EXPECT_EQ(element("R").xml(), robot("R"));
  EXPECT_EQ(updated(), "");
  EXPECT_TRUE(toolbox("T").clearToolboxData());
  EXPECT_EQ(updated(), "T") << "also without a list";
}

TEST_F(RobotTest, AToolStandsForAnOccurrence) {
  const auto occurrence = [](const char* id, const char* childId) {
    return made("PmToolInstance", id, "Resource",
                field("layout", std::string("L") + id) +
                    "<prototype>tool</prototype><parentPrototype>EP"
                    "</parentPrototype>" +
                    field("cloneStableId", childId));
  };
  build(
      made("PmToolPrototype", "tool", "ToolPrototype") +
      made("PmEquipmentPrototype", "EP", "EquipmentPrototype", listOf("children", "O P Q")) +
      occurrence("O", "one") + occurrence("P", "two") + occurrence("Q", "two") +
      made("PmEquipmentInstance", "E", "Resource", listOf("children", "A B") + "<prototype>EP</prototype>") +
      robot("A", listOf("parents", "E")) +
      robot("B", listOf("parents", "E") + "<masterObj>NULL</masterObj>") + robot("free"));
  publish();
  ASSERT_EQ(node("O")->type(), ZEL_EQUIPMENT_PROTOTYPE_OCCURRENCE);
  ApiPmPrototypeChildId id;
  EXPECT_FALSE(tool("A").getChildId(id)) << "without masterObj";
  EXPECT_FALSE(tool("A").setChildId(ApiPmPrototypeChildId("three")));
  EXPECT_FALSE(tool("free").setChildId(ApiPmPrototypeChildId("two"))) << "under no equipment";
  EXPECT_FALSE(tool("E").setChildId(ApiPmPrototypeChildId("two")));
  EXPECT_EQ(updated(), "");
  EXPECT_EQ(element("free").xml(), robot("free"));

  EXPECT_TRUE(tool("A").setChildId(ApiPmPrototypeChildId("two")));
  EXPECT_EQ(text("A", "masterObj"), "P") << "the first of its child id";
  EXPECT_TRUE(tool("A").getChildId(id) && id.getAsString() == "two");
  EXPECT_EQ(streamed("A"), element("A").xml());
  EXPECT_TRUE(tool("A").setMasterObj(ApiPmId("O")));
  EXPECT_TRUE(tool("A").getChildId(id) && id.getAsString() == "two") << "the first masterObj counts";
  EXPECT_TRUE(tool("B").setChildId(ApiPmPrototypeChildId("one")));
  EXPECT_FALSE(tool("B").getChildId(id)) << "behind a NULL that counts";
  EXPECT_TRUE(tool("free").setMasterObj(ApiPmId("A")));
  EXPECT_FALSE(tool("free").getChildId(id)) << "no occurrence";
  EXPECT_EQ(node("A")->type(), ZEL_RESOURCE_INSTANCE) << "a node keeps its class";
}

}  // namespace
