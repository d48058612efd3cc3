#include "api/ApiPmClassTypes.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::string familyOf(const char* className) {
  std::string family = "none";
  const bool known = ApiPmClassTypeDataMgr::the().getFamilyFromClassName(className, family);
  EXPECT_EQ(known, family != "none");
  return family;
}

TEST(ApiPmClassTypes, DerivationByNameAndByNumber) {
  const auto& types = ApiVorToolsClassTypesWrapper::the();
  const struct {
    const char *derived, *base;
    bool expected;
  } cases[] = {
      {"LightSensor", "LightSensor", true},
      {"LightSensor", "PmToolPrototype", true},
      {"PmVariantFilter", "PmVariantFilterLibrary", false},
      {"PmVariantSet", "PmNode", true},
      {"Unknown", "Unknown", false},
      {"PmPart", "Unknown", false},
  };
  for (const auto& [derived, base, expected] : cases) {
    EXPECT_EQ(types.IsDerivedFromClass(derived, base), expected) << derived << " " << base;
    int derivedId = -7, baseId = -7;
    types.ClassNameToClassTypeId(derived, derivedId);
    types.ClassNameToClassTypeId(base, baseId);
    EXPECT_EQ(types.IsDerivedFromClass(derivedId, base), expected) << derived << " " << base;
    EXPECT_EQ(types.IsDerivedFromClass(derivedId, baseId), expected) << derived << " " << base;
  }
}

TEST(ApiPmClassTypes, AHostAddsClassesOfItsOwn) {
  auto& types = ApiPmClassTypeDataMgr::the();
  ASSERT_TRUE(types.addClass({.name = "TestGripper", .base = "PmToolInstance"}));
  const ApiPmClassType* gripper = types.find("TestGripper");
  ASSERT_NE(gripper, nullptr);
  EXPECT_GE(gripper->typeId, 10000);
  ASSERT_TRUE(types.addClass({.name = "TestTaken", .base = "", .family = "", .typeId = gripper->typeId + 1}));
  ASSERT_TRUE(
      types.addClass({.name = "TestLibrary", .base = "PmVariantFilterLibrary", .family = "TestFamily"}));
  EXPECT_EQ(types.find("TestLibrary")->typeId, gripper->typeId + 2);
  EXPECT_EQ(familyOf("TestGripper"), "Resource");
  EXPECT_EQ(familyOf("LightSensor"), "ToolPrototype");
  EXPECT_EQ(familyOf("PmNode"), "none");
  EXPECT_EQ(familyOf("TestLibrary"), "TestFamily");
  const ApiPmClassType refused[] = {{.name = "TestGripper"},
                                    {.name = ""},
                                    {.name = "TestOrphan", .base = "TestNoSuchBase"},
                                    {.name = "TestNumber", .typeId = gripper->typeId}};
  for (const ApiPmClassType& type : refused) EXPECT_FALSE(types.addClass(type)) << type.name;
  EXPECT_EQ(types.find("TestOrphan"), nullptr);
  EXPECT_EQ(types.find("TestGripper"), gripper);
}

}  // namespace
