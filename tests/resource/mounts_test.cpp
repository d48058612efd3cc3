#include "wrapper/StudyTest.h"
#include "zel/ZelGlobalAttachment.h"
#include "zel/ZelResourceInstance.h"

using namespace document_test;

namespace {

const std::string zeros = items("0.000000 0.000000 0.000000");

class MountTest : public StudyTest {
 protected:
  // Tools A, B and T with layouts, of which that of B has no `node`; one without, and one without element.
  void buildTools(const std::string& more = "") {
    const auto tool = [](const std::string& id) {
      return made("PmToolInstance", id, "Resource", field("layout", "L" + id));
    };
    build(tool("A") + tool("B") + tool("T") + made("PmToolInstance", "N", "Resource") +
          bare("PmLayout", "LA", "<node>A</node>") + bare("PmLayout", "LB") +
          bare("PmLayout", "LT", "<node>T</node>") + part("P", "", "") +
          bare("PmLayout", "LP", "<node>P</node>") + more);
    publish();
  }
  ZelResourceInstance& tool(std::string_view id) const {
    return *ZelResourceInstance::queryZelResourceInstance(node(id));
  }
  ZelGlobalAttachment& attachment(std::string_view id) const {
    return *ZelGlobalAttachment::queryZelGlobalAttachment(node(id));
  }
  bool mount(std::string_view id, std::string_view from, std::string_view to,
             const RTTran3D& place = {}) const {
    return tool(id).setMount(ApiPmId(from), ApiPmId(to), place);
  }
  bool attach(std::string_view id, std::string_view to, const char* key, const char* type) const {
    return attachment(id).setGlobalAttachment({}, {ApiPmId(to), ApiKey(key)}, {}, type);
  }
  std::string mounted(std::string_view id) const {
    ApiPmIdList ids;
    EXPECT_TRUE(tool(id).getMountedTools(ids)) << id;
    return joined(ids);
  }
  std::string attached(std::string_view id) const {
    ApiPmIdList ids;
    EXPECT_TRUE(attachment(id).getGloballyAttachedTools(ids)) << id;
    return joined(ids);
  }
  std::string target(std::string_view id) const {
    ApiPmId to;
    RTTran3D place;
    return tool(id).getMountedTo(to, place) ? to.asString() : "";
  }
  std::string layoutOf(std::string_view id) const { return element(id).xml(); }
};

std::string mountLayout(const std::string& id, const std::string& mount) {
  return bare("PmLayout", id, field("node", id.substr(1)) + mount);
}

TEST_F(MountTest, AMountTiesTwoLayouts) {
  buildTools();
  const RTTran3D place({1, 2, 3}, {0.1, 0.2, 0.3});
  ASSERT_TRUE(mount("A", "", "T", place));
  const std::string onT = mountLayout("LT", "<mountedTools><item>LA</item></mountedTools>");
  const std::string ofA =
      mountLayout("LA", "<mountedTo>LT</mountedTo>" + listOf("mountLocation", "1.000000 2.000000 3.000000") +
                            listOf("mountRotation", "0.100000 0.200000 0.300000"));
  EXPECT_EQ(layoutOf("LT"), onT);
  EXPECT_EQ(layoutOf("LA"), ofA);
  EXPECT_EQ(root(stream), updates(onT + ofA)) << "the target's layout first";
  ApiPmId to;
  RTTran3D read;
  EXPECT_TRUE(tool("A").getMountedTo(to, read) && to == ApiPmId("T") && read.isNear(place, 1e-9, 1e-9));
  ASSERT_TRUE(mount("B", "", "T"));
  EXPECT_EQ(mounted("T"), "A B") << "the owner of a layout without `node` is looked for";
  EXPECT_EQ(attached("T"), "");

  EXPECT_TRUE(tool("A").setMountLocation(along(7)));
  EXPECT_TRUE(tool("A").getMountedTo(to, read) && read.isNear(along(7), 1e-9, 1e-9));
  EXPECT_EQ(object(stream, "LA").xml(), layoutOf("LA"));

  ASSERT_TRUE(mount("A", "T", "P"));
  EXPECT_EQ(mounted("T"), "B");
  EXPECT_EQ(target("A"), "P");
  ASSERT_TRUE(mount("A", "P", ""));
  EXPECT_EQ(target("A"), "");
  EXPECT_EQ(layoutOf("LP"), mountLayout("LP", "<mountedTools/>"));
  EXPECT_EQ(layoutOf("LA"), mountLayout("LA",
                                        "<mountedTo>NULL</mountedTo><mountLocation>NULL</mountLocation>"
                                        "<mountRotation>NULL</mountRotation>"));
  EXPECT_EQ(object(stream, "LA").xml(), layoutOf("LA"));
  EXPECT_FALSE(tool("A").setMountLocation({})) << "its lists have no items any more";
  ASSERT_TRUE(mount("A", "", "T"));
  EXPECT_EQ(layoutOf("LA"), mountLayout("LA", "<mountedTo>LT</mountedTo>" + field("mountLocation", zeros) +
                                                  field("mountRotation", zeros)));
}

TEST_F(MountTest, TheTwoSortsDoNotSeeEachOther) {
  buildTools();
  ASSERT_TRUE(mount("A", "", "T") && attach("B", "T", "joint", "weld"));
  EXPECT_EQ(mounted("T"), "A");
  EXPECT_EQ(attached("T"), "B");
  ApiPmId to;
  RTTran3D place = along(9);
  EXPECT_FALSE(tool("B").getMountedTo(to, place)) << "with both values written";
  EXPECT_TRUE(to == ApiPmId("T") && place == RTTran3D::unit);
  ApiPmExtendedId found;
  RWClassicWString type;
  EXPECT_FALSE(attachment("A").getGlobalAttachment(found, place, type));
  EXPECT_TRUE(tool("B").setMountLocation(along(3))) << "for both sorts";
  EXPECT_TRUE(attachment("B").getGlobalAttachment(found, place, type) && place.isNear(along(3), 1e-9, 1e-9));
  EXPECT_TRUE(found == (ApiPmExtendedId{ApiPmId("T"), ApiKey("joint")}) && type == "weld");

  // A target without key empties the key that is left; a plain mount empties the type too.
  ASSERT_TRUE(attachment("B").setGlobalAttachment({ApiPmId("T"), {}}, {ApiPmId("P"), {}}, {}, "glue"));
  EXPECT_EQ(text("LB", "mountedToRelativeId"), "");
  EXPECT_EQ(text("LB", "mountType"), "glue");
  ASSERT_TRUE(mount("B", "P", "T"));
  EXPECT_EQ(text("LB", "mountType"), "");
  EXPECT_EQ(mounted("T"), "A B");
  // Without type it is a plain mount from the start.
  ASSERT_TRUE(attach("A", "P", "key", ""));
  EXPECT_EQ(target("A"), "P");
  EXPECT_EQ(text("LA", "mountedToRelativeId"), "key");
  ASSERT_TRUE(attachment("A").setGlobalAttachment({}, {}, {}, "ignored"));
  EXPECT_EQ(text("LA", "mountType") + text("LA", "mountedToRelativeId"), "");
}

TEST_F(MountTest, StepsThatWereDoneStand) {
  buildTools(made("PmToolInstance", "C", "Resource", "<layout>LC</layout>") +
             mountLayout("LC",
                         "<mountedTo>LT</mountedTo><mountLocation><item>1</item><item>2</item>"
                         "<item>3</item></mountLocation>"));
  // No layout of the own, and an old target that does not list it.
  ApiPmId to;
  RTTran3D place;
  ApiPmIdList ids;
  EXPECT_FALSE(tool("N").getMountedTo(to, place) || tool("N").getMountedTools(ids) ||
               tool("N").setMountLocation({}) || mount("N", "", "T"));
  EXPECT_FALSE(mount("A", "T", "P") || mount("A", "T", "") || mount("A", "", ""));
  EXPECT_FALSE(tool("A").setMountLocation({})) << "without the two lists";
  EXPECT_EQ(updated(), "");
  EXPECT_EQ(layoutOf("LA") + layoutOf("LP"), mountLayout("LA", "") + mountLayout("LP", ""));

  // The first list is written before the second fails; a clear stops behind what it found.
  EXPECT_FALSE(tool("C").setMountLocation(along(5)));
  EXPECT_EQ(list("LC", "mountLocation"), "5.000000 0.000000 0.000000");
  EXPECT_FALSE(mount("C", "", ""));
  EXPECT_EQ(layoutOf("LC"),
            mountLayout("LC", "<mountedTo>NULL</mountedTo><mountLocation>NULL</mountLocation>"));
  EXPECT_EQ(updated(), "");

  // A target with node and without layout: detached by then.
  ASSERT_TRUE(mount("A", "", "T"));
  EXPECT_FALSE(mount("A", "T", "N"));
  EXPECT_EQ(mounted("T"), "");
  EXPECT_EQ(target("A"), "T");
  EXPECT_EQ(object(stream, "LT").xml(), layoutOf("LT"));
  // Without old target its entry stays; a second mount adds a second one, and a detach takes one.
  ASSERT_TRUE(mount("A", "", "T") && mount("A", "gone", "T"));
  EXPECT_EQ(mounted("T"), "A A");
  ASSERT_TRUE(mount("A", "T", "P"));
  EXPECT_EQ(mounted("T"), "A") << "whatever the tool's own layout says";
  EXPECT_EQ(target("A"), "P");
  ASSERT_TRUE(mount("A", "P", "A")) << "on itself";
  EXPECT_EQ(mounted("A"), "A");
}

TEST_F(MountTest, EntriesThatLeadNowhereAreSkipped) {
  const std::string onT = listOf("mountedTools", "LA gone NULL orphan LG LA");
  build(made("PmToolInstance", "T", "Resource", "<layout>LT</layout>") +
        made("PmToolInstance", "A", "Resource", "<layout>LA</layout>") +
        made("PmToolInstance", "G", "Resource", "<layout>LG</layout>") +
        bare("PmLayout", "LT", "<node>T</node>" + onT) + mountLayout("LA", "<mountedTo>LT</mountedTo>") +
        bare("PmLayout", "orphan", "<node>NULL</node>") +
        mountLayout("LG", "<mountedTo>orphan</mountedTo><mountType>weld</mountType>"));
  EXPECT_EQ(mounted("T"), "A A");
  EXPECT_EQ(attached("T"), "G");
  ApiPmId to;
  RTTran3D place = along(1);
  EXPECT_TRUE(tool("A").getMountedTo(to, place) && place == RTTran3D::unit) << "a mount without lists";
  EXPECT_FALSE(tool("G").getMountedTo(to, place)) << "its target's layout is nobody's";
}

TEST_F(MountTest, ManyToolsOnOneTarget) {
  std::string objects;
  for (int i = 0; i < 200; ++i) {
    const std::string id = "A" + std::to_string(i);
    objects += made("PmToolInstance", id, "Resource", field("layout", "L" + id)) + mountLayout("L" + id, "");
  }
  buildTools(objects);
  // The list is long enough here to be published by its changes alone.
  std::string left;
  for (int i = 0; i < 200; ++i) ASSERT_TRUE(mount("A" + std::to_string(i), "", "T"));
  EXPECT_EQ(object(stream, "LT").xml(), layoutOf("LT"));
  for (int i = 0; i < 200; ++i) {
    if (i % 3 == 0) {
      ASSERT_TRUE(mount("A" + std::to_string(i), "T", "T"));
    } else {
      left += (left.empty() ? "A" : " A") + std::to_string(i);
    }
  }
  for (int i = 0; i < 200; i += 3) ASSERT_TRUE(mount("A" + std::to_string(i), "T", ""));
  EXPECT_EQ(mounted("T"), left);
  EXPECT_EQ(object(stream, "LT").xml(), layoutOf("LT"));
}

}  // namespace
