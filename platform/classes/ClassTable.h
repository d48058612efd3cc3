#pragma once

// The class types that are there from the start, one row each: name, base, family, class type id. A base
// stands above its classes; an empty family is that of the base. Numbers are kept for good: a new row takes a
// new one, and the number of a row that goes is not used again.
//
// A host does not add rows here: it calls ApiPmClassTypeDataMgr::addClass, see api/ApiPmClassTypes.h.
namespace classes {

struct Row {
  const char* name;
  const char* base;
  const char* family;
  int typeId;
};

inline constexpr int firstHostTypeId = 10000;

inline constexpr Row table[] = {
    {"PmNode", "", "", 1},

    // Studies.
    {"PmStudy", "PmNode", "Study", 100},
    {"MarvekStudy", "PmStudy", "", 101},
    {"LineSimulationStudy", "PmStudy", "", 102},
    {"PmStudyInfo", "PmNode", "MarvekStudyInfo", 110},
    {"MarvekStudyInfo", "PmStudyInfo", "", 111},
    {"LineSimulationStudyInfo", "PmStudyInfo", "", 112},
    {"PmShortcut", "PmNode", "Shortcut", 120},
    {"PmLayout", "PmNode", "PmLayout", 130},
    {"PmStudyLayout", "PmNode", "PmStudyLayout", 131},
    {"Label", "PmNode", "Label", 140},

    // Products.
    {"PmPart", "PmNode", "Product", 200},
    {"PmPartInstance", "PmPart", "", 201},
    {"PmCompoundPart", "PmPart", "", 202},
    {"PmDvProcessAssembly", "PmPart", "", 203},
    {"PmPartPlaceholder", "PmPart", "", 204},

    // Resources.
    {"PmResource", "PmNode", "Resource", 300},
    {"PmToolInstance", "PmResource", "", 301},
    {"PmCompoundResource", "PmResource", "", 302},
    {"DeviceGroup", "PmCompoundResource", "", 303},
    {"PmEquipmentInstance", "PmCompoundResource", "", 304},
    {"PmEquipmentPrototypeOccurrence", "PmToolInstance", "", 305},
    {"PmResourcePlaceholder", "PmResource", "", 306},
    {"PmToolboxUsage", "PmNode", "PmToolboxUsage", 310},

    // Prototypes, their use, and the files behind them.
    {"PmPrototype", "PmNode", "", 400},
    {"PmPartPrototype", "PmPrototype", "PartPrototype", 401},
    {"PmCompoundPartPrototype", "PmPartPrototype", "", 402},
    {"PmToolPrototype", "PmPrototype", "ToolPrototype", 410},
    {"LightSensor", "PmToolPrototype", "", 411},
    {"PropertySensor", "PmToolPrototype", "", 412},
    {"PmEquipmentPrototype", "PmPrototype", "EquipmentPrototype", 420},
    {"PmPrototypeUsage", "PmNode", "", 430},
    {"PmPartPrototypeUsage", "PmPrototypeUsage", "PartPrototypeUsage", 431},
    {"PmToolPrototypeUsage", "PmPrototypeUsage", "ToolPrototypeUsage", 432},
    {"PmEquipmentPrototypeUsage", "PmToolPrototypeUsage", "", 433},
    {"PmExternalDocument", "PmNode", "ExternalDocument", 440},
    {"Pm3DRep", "PmExternalDocument", "", 441},
    {"PmReferenceFile", "PmNode", "PmReferenceFile", 442},

    // Operations and flows.
    {"PmOperation", "PmNode", "Operation", 500},
    {"PmCompoundOperation", "PmOperation", "", 501},
    {"PmSource", "PmOperation", "", 502},
    {"PmWeldOperation", "PmOperation", "", 503},
    {"PmWeldPoint", "PmNode", "WeldPoint", 510},
    {"PmRoboticProgram", "PmNode", "RoboticProgram", 511},
    {"PmMfgFeature", "PmNode", "Mfg", 512},
    {"PmContinuousMfgFeature", "PmMfgFeature", "ContinuousMfg", 513},
    {"PmOperationRoute", "PmNode", "OperationRoute", 514},
    {"PmFlow", "PmNode", "PmFlow", 520},
    {"PmScopeFlow", "PmFlow", "", 521},
    {"PmMaterialFlow", "PmNode", "PmMaterialFlow", 522},

    // Control.
    {"PLCProgram", "PmNode", "PLCProgram", 600},

    // Variants.
    {"PmVariantFilterLibrary", "PmNode", "PmVariantFilterLibrary", 700},
    {"PmVariantFilter", "PmNode", "PmVariantFilter", 701},
    {"PmVariantSet", "PmNode", "PmVariantSet", 702},
};

}  // namespace classes
