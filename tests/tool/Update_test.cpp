#include <gtest/gtest.h>

#include "tool/ToolRun.h"

namespace {

using nlohmann::json;
using namespace tool_test;
using UpdateCommandTest = StudyTest;

TEST_F(UpdateCommandTest, TakesNewDataInAndTellsObjectsWithoutIdAsNull) {
  const std::string update = folder.write(
      "update.xml",
      R"(<Data><Objects><PmCompoundResource><name>Nobody</name><NodeInfo><family>Resource</family></NodeInfo></PmCompoundResource>
<PmCompoundResource ExternalId="C"><name>Rack</name><parents/><children/><labels/><NodeInfo><family>Resource</family></NodeInfo></PmCompoundResource>
</Objects></Data>)");
  const Outcome taken = run({"update", file, update, "-o", folder.path("new.xml"), "--json"});
  EXPECT_EQ(taken.exitCode, 0);
  EXPECT_EQ(taken.err, "");
  EXPECT_EQ(taken.json()["updated"], json({nullptr, "C"})) << taken.out;
  EXPECT_EQ(taken.json()["deleted"], json::array()) << taken.out;
  const Outcome shown = run({"show", folder.path("new.xml"), "C", "--json"});
  EXPECT_EQ(shown.json()["name"], "Rack");
  EXPECT_EQ(shown.json()["labels"], json::array());
  EXPECT_EQ(folder.read("small.xml"), smallStudy);
}

}  // namespace
