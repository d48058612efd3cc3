// The program stands behind this only where it is built.
#ifdef ZELSTUDY_PROGRAM
#include <gtest/gtest.h>

#include "tool/ToolRun.h"

namespace {

using nlohmann::json;
using namespace tool_test;
namespace fs = std::filesystem;

TEST(ToolPrototypes, ListsThemInDocumentOrder) {
  const Folder folder;
  folder.write("lib/T\xC3\xBCr/b.jt", "");
  const std::string file = folder.write("lib/T\xC3\xBCr/a.jt", "");
  fs::last_write_time(file,
                      std::chrono::file_clock::from_sys(std::chrono::sys_seconds(std::chrono::hours(24))));
  const std::string study = folder.write("s.xml", R"(<Data><Objects>
    <PmPartPrototypeUsage ExternalId="U"><uses>P</uses><NodeInfo><family>PartPrototypeUsage</family></NodeInfo></PmPartPrototypeUsage>
    <PmToolPrototype ExternalId="T"><NodeInfo><family>ToolPrototype</family></NodeInfo></PmToolPrototype>
    <PmPartPrototype ExternalId="P"><name>Door</name><weight>1.5</weight><threeDRep>R</threeDRep><NodeInfo><family>PartPrototype</family></NodeInfo></PmPartPrototype>
    <Pm3DRep ExternalId="R"><file>F</file></Pm3DRep>
    <PmReferenceFile ExternalId="F"><fileName>#\Tür</fileName></PmReferenceFile>
    </Objects></Data>)");
  const std::string root = folder.path("lib"), path = root + "\\T\xC3\xBCr";
  const Outcome list = run({"prototypes", study, "--json", "--session", "systemRoot=" + root});
  EXPECT_EQ(list.exitCode, 0) << list.err;
  json expected = json::parse(R"([
    {"id": "U", "type": 11, "class": "PmPartPrototypeUsage", "uses": "P"},
    {"id": "T", "type": 8, "class": "PmToolPrototype", "name": null, "weight": null, "storedName": null,
     "path": null, "jtFile": null, "modificationTime": null},
    {"id": "P", "type": 7, "class": "PmPartPrototype", "name": "Door", "weight": 1.5, "storedName": "#\\Tür",
     "modificationTime": 86400}])");
  expected[2]["path"] = path;
  expected[2]["jtFile"] = path + "/a.jt";
  EXPECT_EQ(list.json(), expected);
}

}  // namespace
#endif
