#pragma once

#include <array>
#include <bit>
#include <span>

#include "document/ZelXmlField.h"

// The plain fields that a study document has, as rows, in a structure for each owner. Who adds a field adds a
// row here, and a line each for getter and setter where the interface is served; whoever lists the fields of
// a study (zelXmlFieldGroups) knows it then.

struct ZelObjectFields : ZelFieldWords {
  ZelField<std::string> name{"name", "name of the object", existing, sendsField, words};
  ZelField<std::string> comment{"comment", "description of the object", replaces, sendsField, words};
  ZelField<std::string> caption{"caption", "text that trees show for the object", words};
  ZelField<ApiPmIdList> parents{"parents", "the objects that hold it", structural};
  ZelField<ApiPmIdList> children{"children", "the objects that it holds"};
  ZelField<ApiPmIdList> labels{"labels", "notes that are attached to it"};
  ZelField<ApiPmId> layout{"layout", "the object that places it"};
  ZelField<ApiPmId> threeDRep{"threeDRep", "its 3D representation", replaces};
  ZelField<std::string> SolvaneName{"SolvaneName", "its name in another system"};
  ZelField<ApiPmInternalId> internalId{"NodeInfo/Id", "the data store's number of the object"};
  ZelField<ApiPmId> variant{"variant", "the variant that it belongs to", elsewhere};
  ZelField<ApiPmIdList> collections{"collections", "the collections that name it", elsewhere};
};

struct ZelPlcDataFields : ZelFieldWords {
  ZelField<std::string> version{"version", "version of the PLC data", plcInfo, adds};
  ZelField<ApiPmId> OriginalId{"OriginalId", "the object that the PLC data came from", plcInfo, adds,
                               elsewhere};
  ZelField<double> robotSetupTime{"robotSetupTime", "time to set the robot up", plcInfo, adds, seconds};
};

struct ZelInstanceFields : ZelFieldWords {
  ZelField<ApiPmId> prototype{"prototype", "what it is a use of", existing, sendsField};
  ZelField<ApiPmId> masterObj{"masterObj", "what it is a use of, or the occurrence that it comes from", adds,
                              sendsObject};
  ZelField<std::string> humanLoadData{"humanLoadData", "what a person who handles it bears", replaces,
                                      sendsObject};
};

struct ZelResourceFields : ZelFieldWords {
  ZelField<std::string> Controller{"Controller", "controller of the robot", replaces, sendsObject, words};
  ZelField<std::string> ControllerVersion{"ControllerVersion", "version of the controller", replaces,
                                          sendsObject, words};
  ZelField<std::string> ManipulatorType{"rrsInformation/ManipulatorType", "what the controller moves",
                                        replaces, sendsObject, words};
  ZelField<std::string> RobotPathName{"rrsInformation/RobotPathName", "name of the path of the robot",
                                      replaces, sendsObject, words};
  // Any number but 0 means yes.
  ZelField<int> needToPropagate{"NodeInfo/needToPropagate", "whether the data store asks for changes"};
};

struct ZelCompoundFields : ZelFieldWords {
  ZelField<int> assemblyType{"assemblyType", "kind of assembly", replaces, sendsObject};
  ZelField<std::string> process{"process", "the process of a compound resource", leftBehind};
};

struct ZelLabelFields : ZelFieldWords {
  ZelField<ApiPmId> node{"node", "the object that the note is attached to", existing, structural};
  ZelField<std::string> displayInfo{"displayInfo", "how the note looks", existing};
  // Six numbers in one text: see ZelXmlLocationText.h.
  ZelField<std::string> noteLocation{"noteLocation", "where the note stands, relative to the object",
                                     existing};
};

struct ZelPrototypeFields : ZelFieldWords {
  ZelField<double> weight{"weight", "weight of one instance"};
  ZelField<ApiPmId> uses{"uses", "the prototype that an assignment uses"};
  ZelField<std::string> cloneStableId{"cloneStableId", "what tells an occurrence inside its equipment",
                                      replaces};
  ZelField<std::string> parentPrototype{"parentPrototype", "the equipment prototype that holds an occurrence",
                                        replaces, leftBehind};
  ZelField<ApiPmId> file{"file", "the file object of a 3D representation"};
};

struct ZelLayoutFields : ZelFieldWords {
  ZelField<ApiPmId> node{"node", "the object that is placed", structural};
  ZelField<ApiPmId> parent{"parent", "the layout of the object that holds it", existing, structural};
  ZelField<ApiPmId> mountedTo{"mountedTo", "the layout of the object that it is attached to", replaces,
                              elsewhere};
  ZelField<ApiPmIdList> mountedTools{"mountedTools", "layouts of the objects that are attached to it", adds,
                                     elsewhere};
  ZelField<std::string> mountType{"mountType", "kind of a global attachment", replaces};
  ZelField<std::string> mountedToRelativeId{"mountedToRelativeId", "key inside the object attached to",
                                            replaces};
};

struct ZelStudyFields : ZelFieldWords {
  ZelField<ApiPmIdList> info{"info", "study infos of the shortcuts in children, by place"};
  ZelField<ApiPmId> linkExternalID{"linkExternalID", "the object that a shortcut shows", existing,
                                   structural};
};

// Of the process side. The two lists of flows are written by hand: see ZelXmlOperation.
struct ZelProcessFields : ZelFieldWords {
  ZelField<ApiPmId> processResource{"processResource", "the resource that does an operation", leftBehind};
  ZelField<ApiPmId> predecessor{"predecessor", "the operation that a flow comes from", leftBehind};
  ZelField<ApiPmId> successor{"successor", "the operation that a flow leads to", leftBehind};
  ZelField<ApiPmId> materialPredecessor{"materialPredecessor", "the operation that material comes from",
                                        replaces, sendsField, leftBehind};
  ZelField<ApiPmId> materialSuccessor{"materialSuccessor", "the operation that material goes to", replaces,
                                      sendsField, leftBehind};
  ZelField<ApiPmIdList> inputMaterialFlows{"inputMaterialFlows", "flows of material into an operation",
                                           leftBehind};
  ZelField<ApiPmIdList> outputMaterialFlows{"outputMaterialFlows", "flows of material out of an operation",
                                            leftBehind};
  ZelField<ApiPmId> usedBy{"usedBy", "the resource that uses a tool", leftBehind};
  ZelField<ApiPmId> usesTool{"usesTool", "the tool of a use; of a resource its uses of tools", leftBehind};
};

inline constexpr ZelObjectFields zelObjectFields;
inline constexpr ZelPlcDataFields zelPlcDataFields;
inline constexpr ZelInstanceFields zelInstanceFields;
inline constexpr ZelResourceFields zelResourceFields;
inline constexpr ZelCompoundFields zelCompoundFields;
inline constexpr ZelLabelFields zelLabelFields;
inline constexpr ZelPrototypeFields zelPrototypeFields;
inline constexpr ZelLayoutFields zelLayoutFields;
inline constexpr ZelStudyFields zelStudyFields;
inline constexpr ZelProcessFields zelProcessFields;

// The rows of a structure one behind the other. A row adds nothing to its ZelFieldInfo, so a structure of
// rows and an array of them are the same bytes.
template <class Fields>
std::span<const ZelFieldInfo> zelFieldRows() {
  using Rows = std::array<ZelFieldInfo, sizeof(Fields) / sizeof(ZelFieldInfo)>;
  static const Rows rows = std::bit_cast<Rows>(Fields());
  return rows;
}

struct ZelFieldGroup {
  std::string_view owner;  // the word for those that have these fields
  std::span<const ZelFieldInfo> rows;
};
std::span<const ZelFieldGroup> zelXmlFieldGroups();
// The row of a field that stands below an object element; of several the first. Null for a field that no row
// is of.
const ZelFieldInfo* zelXmlFindFieldRow(std::string_view name);
