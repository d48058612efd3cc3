#include "api/ApiPmClassTypes.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace {

std::string familyOf(const char* className) {
  std::string family = "none";
  const bool known = ApiPmClassTypeDataMgr::the().getFamilyFromClassName(className, family);
  EXPECT_EQ(known, family != "none");
  return family;
}

TEST(ApiPmClassTypes, FamiliesOfTheClassesThatTheSystemKnows) {
  const struct {
    const char* className;
    const char* family;
  } cases[] = {
      {"MarvekStudy", "Study"},
      {"LineSimulationStudy", "Study"},
      {"MarvekStudyInfo", "MarvekStudyInfo"},
      {"LineSimulationStudyInfo", "MarvekStudyInfo"},
      {"PmShortcut", "Shortcut"},
      {"PmLayout", "PmLayout"},
      {"PmStudyLayout", "PmStudyLayout"},
      {"Label", "Label"},
      {"PmPart", "Product"},
      {"PmPartInstance", "Product"},
      {"PmCompoundPart", "Product"},
      {"PmDvProcessAssembly", "Product"},
      {"PmToolInstance", "Resource"},
      {"PmCompoundResource", "Resource"},
      {"DeviceGroup", "Resource"},
      {"PmEquipmentInstance", "Resource"},
      {"PmEquipmentPrototypeOccurrence", "Resource"},
      {"PmToolboxUsage", "PmToolboxUsage"},
      {"PmPartPrototype", "PartPrototype"},
      {"PmToolPrototype", "ToolPrototype"},
      {"LightSensor", "ToolPrototype"},
      {"PropertySensor", "ToolPrototype"},
      {"PmEquipmentPrototype", "EquipmentPrototype"},
      {"PmPartPrototypeUsage", "PartPrototypeUsage"},
      {"PmToolPrototypeUsage", "ToolPrototypeUsage"},
      {"Pm3DRep", "ExternalDocument"},
      {"PmReferenceFile", "PmReferenceFile"},
      {"PmOperation", "Operation"},
      {"PmSource", "Operation"},
      {"PmFlow", "PmFlow"},
      {"PmScopeFlow", "PmFlow"},
      {"PmMaterialFlow", "PmMaterialFlow"},
      {"PLCProgram", "PLCProgram"},
      {"PmVariantFilterLibrary", "PmVariantFilterLibrary"},
      {"PmNode", "none"},
      {"pmlayout", "none"},
      {"", "none"},
  };
  for (const auto& [className, family] : cases) EXPECT_EQ(familyOf(className), family) << className;
  std::set<std::string> families;
  std::set<int> numbers;
  for (const char* name :
       {"PmWeldPoint", "PmRoboticProgram", "PmMfgFeature", "PmContinuousMfgFeature", "PmOperationRoute"}) {
    families.insert(familyOf(name));
  }
  EXPECT_EQ(families,
            (std::set<std::string>{"WeldPoint", "RoboticProgram", "Mfg", "ContinuousMfg", "OperationRoute"}));
}

TEST(ApiPmClassTypes, DerivationByNameAndByNumber) {
  const auto& types = ApiVorToolsClassTypesWrapper::the();
  const struct {
    const char* derived;
    const char* base;
    bool expected;
  } cases[] = {
      {"LightSensor", "LightSensor", true},
      {"LightSensor", "PmToolPrototype", true},
      {"LightSensor", "PropertySensor", false},
      {"PmToolPrototype", "LightSensor", false},
      {"PmScopeFlow", "PmFlow", true},
      {"PmSource", "PmOperation", true},
      {"PmDvProcessAssembly", "PmPart", true},
      {"PmVariantFilter", "PmVariantFilterLibrary", false},
      {"PmVariantSet", "PmNode", true},
      {"Unknown", "Unknown", false},
      {"PmPart", "Unknown", false},
      {"PmPart", "", false},
  };
  for (const auto& [derived, base, expected] : cases) {
    EXPECT_EQ(types.IsDerivedFromClass(derived, base), expected) << derived << " " << base;
    int derivedId = -7, baseId = -7;
    if (!types.ClassNameToClassTypeId(derived, derivedId)) {
      EXPECT_EQ(derivedId, -7);
    }
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
  EXPECT_EQ(familyOf("TestLibrary"), "TestFamily");
  EXPECT_EQ(familyOf("TestTaken"), "none");
  EXPECT_TRUE(
      ApiVorToolsClassTypesWrapper::the().IsDerivedFromClass("TestLibrary", "PmVariantFilterLibrary"));
  const ApiPmClassType refused[] = {{.name = "TestGripper"},
                                    {.name = "PmPart"},
                                    {.name = ""},
                                    {.name = "TestOrphan", .base = "TestNoSuchBase"},
                                    {.name = "TestNumber", .typeId = gripper->typeId}};
  for (const ApiPmClassType& type : refused) EXPECT_FALSE(types.addClass(type)) << type.name;
  EXPECT_EQ(types.find("TestOrphan"), nullptr);
  EXPECT_EQ(types.find("TestNumber"), nullptr);
  EXPECT_EQ(types.find("TestGripper"), gripper);
}

}  // namespace
