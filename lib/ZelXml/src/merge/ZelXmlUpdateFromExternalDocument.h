#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <unordered_set>

#include "api/ApiPmAddToStudyFromFileData.h"
#include "api/ApiPmId.h"
#include "api/ApiPmIdSet.h"
#include "dom/IXMLDOMDocument.h"
#include "merge/ZelXmlImportCondition.h"
#include "rw/RWClassicTValHashDictionary.h"
#include "wrapper/ZelXmlKnownList.h"
#include "zel/ZelNode.h"
#include "zel/ZelWrapper.h"

class ZelXmlNode;
class ZelXmlWrapper;

// Takes objects of a second document, the external document, into the study of a wrapper. It walks the
// NodeInfo/family elements of that document twice, asks for each object whether it belongs to the import, and
// creates or updates the object in the study with its node. What an object drags along (prototypes, 3D
// representations, files, layouts, study infos) is noted on the way, and taken where the conditions of the
// import ask for it.
//
// One object serves one run: construct it, call `execute`, read the lists. Neither document nor the wrapper
// may change from outside meanwhile. A step that fails ends the run, and what was done by then stays done.
//
// The external document is not only read: study infos get their family, its study the id of the session's
// root node, its shortcuts that study as their parent, and items of its study lists move to the study.
class ZelXmlUpdateFromExternalDocument {
 public:
  using ImportType = ApiPmAddToStudyFromFileData::ImportType;
  using IdMap = RWClassicTValHashDictionary<ApiPmId, ApiPmId>;
  template <class T>
  using List = RWClassicTValOrderedVector<T>;

  // What an import takes over, in the order in which the conditions are asked.
  static const RTAutoPtr<ZelXmlImportCondition> PART_IMPORT_FAMILIES[8];
  static const RTAutoPtr<ZelXmlImportCondition> RESOURCE_IMPORT_FAMILIES[10];
  static const RTAutoPtr<ZelXmlImportCondition> SELECTED_IMPORT_FAMILIES[19];

  // `settings` and `wrapper`, which is a ZelXmlWrapper, must outlive the object.
  ZelXmlUpdateFromExternalDocument(const IXMLDOMDocument& document,
                                   const ApiPmAddToStudyFromFileData& settings, const ZelVorWrapper& wrapper,
                                   ImportType importType);
  ZelXmlUpdateFromExternalDocument(const ZelXmlUpdateFromExternalDocument&) = delete;
  ZelXmlUpdateFromExternalDocument& operator=(const ZelXmlUpdateFromExternalDocument&) = delete;
  virtual ~ZelXmlUpdateFromExternalDocument() = default;

  // The whole run. Prepares the files of the study and the external document, walks it twice, removes the
  // children that updated objects have lost and that were not taken over themselves, gathers the roots anew
  // and fills handledRoots. False for the first step that fails:
  //   - nothing has been taken over yet when the files cannot be had, or the study lists of either document
  //     are out of step; list items before that place have moved;
  //   - nor when, for an import of parts and resources, either side holds an equipment
  //     ("ZEL_EXISTING_EQIPMENT_WILL_NOT_BE_MODIFIED"); all list items have moved;
  //   - the walk ends at an object whose class is another than its node's, handled or not
  //     ("ZELXML_ATTEMPT_TO_CHANGE_OBJECT_TYPE"), at a shortcut without `parent`, and at a node that cannot
  //     follow; roots and handledRoots stay as they were, and nothing is removed;
  //   - a child to remove is not in the study: removal ends there, roots stay as they were.
  virtual bool execute();

  // The object that the walk stands on: its NodeInfo/family, its element, id and family value, its node in
  // the study (null without one) and, for a prototype, its path. Without meaning after a run.
  const IXMLDOMNode& currentItemNode() const { return currentItemNode_; }
  const IXMLDOMNode& currentRealNode() const { return currentRealNode_; }
  const ApiPmId& currentRealNodeId() const { return currentRealNodeId_; }
  ZelNode* currentZelNode() const { return currentZelNode_; }
  ZelXmlNode* currentZelXmlNode() const { return currentZelXmlNode_; }
  const _bstr_t& currentFamily() const { return currentFamily_; }
  const RWClassicWString& currentPrototypeFullPath() const { return currentPrototypeFullPath_; }

  const ApiPmAddToStudyFromFileData* importSettings() const { return settings_; }
  ZelXmlWrapper* zelWrapper() const { return wrapper_; }
  const IXMLDOMDocument& addDocument() const { return addDocument_; }
  std::uint32_t importType() const { return importType_; }

  // Ids taken over, in order, each once; the second form replaces `ids` by their texts. An id is entered
  // before the work on its object, and also where that changes nothing.
  const List<ApiPmId>& handledNodes() const { return handled_.list(); }
  void handledNodes(List<_bstr_t>& ids) const;
  // Nodes of handled objects whose parent was not handled, in the same order. Prototypes without parent are
  // none.
  const List<ZelNode*>& handledRoots() const { return handledRoots_; }
  // Children that updated objects have lost, and ids of nodes that the run deleted.
  const List<_bstr_t>& removedChildren() const { return removedChildren_; }
  const List<ApiPmId>& removedNodes() const { return removedNodes_; }
  // What handled objects name, each once but for layouts.
  const List<_bstr_t>& relatedTreeDRepIds() const { return relatedTreeDReps_.list(); }
  const List<_bstr_t>& relatedReferenceFileIds() const { return relatedReferenceFiles_.list(); }
  const List<ApiPmId>& relatedPrototypeIds() const { return relatedPrototypes_.list(); }
  const List<ApiPmId>& relatedLayoutIds() const { return relatedLayouts_.list(); }
  // From the lists of the external study.
  const IdMap& shortcutToMarvekStudyInfoMap() const { return shortcutToMarvekStudyInfo_; }
  const IdMap& layoutToMarvekStudyInfoMap() const { return layoutToMarvekStudyInfo_; }
  const IdMap& marvekStudyInfoToLayoutMap() const { return marvekStudyInfoToLayout_; }

  // Membership in the lists above, in constant time.
  bool isHandled(const ApiPmId& id) const { return handled_.contains(id); }
  bool isRelatedPrototype(const ApiPmId& id) const { return relatedPrototypes_.contains(id); }
  bool isRelatedTreeDRep(const _bstr_t& id) const { return relatedTreeDReps_.contains(id); }
  bool isRelatedReferenceFile(const _bstr_t& id) const { return relatedReferenceFiles_.contains(id); }
  bool isRelatedLayout(const ApiPmId& id) const { return relatedLayouts_.contains(id); }

  // Look-ups in a document without an index of ids; false, and the result untouched, for what is not there.
  // The first finds the first element with this ExternalId, with a log line before and behind; "NULL" and the
  // empty id find nothing. The second follows the text of the first element that `pattern` selects below
  // `node`; the others are made of it.
  static bool getXmlNodeById(const IXMLDOMDocument& document, std::string_view id, IXMLDOMNode& node);
  static bool zelXmlFindNodeByPattern(const IXMLDOMDocument& document, const IXMLDOMNode& node,
                                      std::string_view pattern, IXMLDOMNode& found);
  // The object that a shortcut shows (`linkExternalID`).
  static bool getLinkNodeFromShortcut(const IXMLDOMDocument& document, const IXMLDOMNode& shortcut,
                                      IXMLDOMNode& link);
  // `fileName` of the file object that a 3D representation names (`file`), and its text as it is stored.
  static bool getThreeDRepPathStringNode(const IXMLDOMDocument& document, const IXMLDOMNode& rep,
                                         IXMLDOMNode& element);
  static bool getThreeDRepPmPathString(const IXMLDOMDocument& document, const IXMLDOMNode& rep,
                                       RWClassicWString& text);

  // Puts the ids of a list into a set.
  static void getVectorAsSet(const List<ApiPmId>& ids, ApiPmIdSet& set);
  // Id of the parent that counts; false for a node without one.
  static bool getNodeParent(const ZelNode* node, ApiPmId& id);
  // Whether a node without parent can be a root of an import: a prototype cannot.
  static bool isOrphanNodeAnImportedRoot(const ZelNode* node);

 protected:
  // One walk; ends at the first object that fails.
  virtual bool fromFileUpdate();
  // Whether the current object belongs to the import: not handled yet, and taken by a table in force.
  virtual bool shouldHandle();
  // Whether a condition of the current family takes the current object; asked in order, up to the first true.
  virtual bool shouldHandleFamilies(const RTAutoPtr<ZelXmlImportCondition>* table, std::size_t count);
  // Steps onto the object of a family element. False for an object without id, which leaves the node of the
  // former object, and for a known prototype whose file name in the external document is empty.
  virtual bool acquireRealNodeData(const IXMLDOMNode& item, bool resetPath);
  // Note what the current object names, by the type of its node.
  virtual bool collectRelations();
  virtual bool collectRelationsCompundPhysical();
  virtual bool collectRelationsInstance();
  virtual bool collectRelationsPrototype(const IXMLDOMNode& node);
  // Fills the study info maps from the lists of the external study, and moves the entries that the study
  // lacks to its own lists.
  virtual bool collectMarvekStudyInfo(const IXMLDOMNode& externalStudy, const IXMLDOMNode& study,
                                      bool hasStudy);
  virtual bool collectLayoutFromMarvekStudyInfo();
  virtual bool collectRelatedLayout();
  // The current object has a node: element and node take the new data.
  virtual bool updateCurrentNode();
  // Brings the current element into the study; in a dry run only its relations are collected.
  virtual void updateXmlNode();
  // The current object has no node. Changes nothing for one that is in the study already. Always true.
  virtual bool createNewNode();
  // Drop relevant parents: of the children that `existing` has and the current element has not, where it is
  // the current object; of the children of the current element, where it is another.
  virtual bool disconnectFromRemovedChildren(const IXMLDOMNode& existing);
  virtual bool disconnectChildrenFromOtherParents();
  // Gives the prototype its path once its element is replaced.
  virtual bool handle3DRepNodes();
  virtual bool filterImportedRoots();
  // False for an object whose class is not that of its node, which is reported, or cannot be read.
  virtual bool chackThereIsCorrespondingWrapperNode() const;

 private:
  bool fillInMissingFamilyNodes();
  bool gatherExternalStudyInfo();
  bool checkForEquipments(const IXMLDOMDocument& document);
  bool hasEquipments(const IXMLDOMDocument& document) const;
  bool handleCurrentObject(bool exists);
  bool fixShortcutNodeBeforeImport();
  bool isTheCurrentNodeAPrototype() const;
  bool acquirePrototypePath();
  bool replaceXmlNode();
  bool addRootFromOtherParent(const IXMLDOMNode& node);
  bool addRemovedPlcInternalToRemovedNodes(const List<ApiPmId>& ids);
  void forgetDeletedNode();
  void noteStudyInfo(const ApiPmId& shortcut, const ApiPmId& info);
  bool getRelatedPrototypeId(ApiPmId& id) const;
  bool isDryRun() const { return (importType_ & ApiPmAddToStudyFromFileData::dryRun) != 0; }
  // The chosen way without the dry run bit.
  std::uint32_t choice() const { return importType_ & 0xffff; }
  void logAction(std::string_view action) const;
  static bool getPrototypeFromNode(const IXMLDOMDocument& document, const IXMLDOMNode& node,
                                   IXMLDOMNode& prototype);
  static bool getPrototypeFromInstance(const IXMLDOMDocument& document, const IXMLDOMNode& instance,
                                       IXMLDOMNode& prototype);
  static bool getPrototypeIdFromInstance(const IXMLDOMDocument& document, const IXMLDOMNode& instance,
                                         ApiPmId& id);

  IXMLDOMNode currentItemNode_;
  IXMLDOMNode currentRealNode_;
  ApiPmId currentRealNodeId_;
  ZelNode* currentZelNode_ = nullptr;
  ApiPmId currentZelNodeId_;  // under which the registry gave it
  ZelXmlNode* currentZelXmlNode_ = nullptr;
  _bstr_t currentFamily_;
  RWClassicWString currentPrototypeFullPath_;
  const ApiPmAddToStudyFromFileData* settings_;
  ZelXmlWrapper* wrapper_;
  ZelXmlKnownList<ApiPmId> handled_;
  List<ZelNode*> handledRoots_{64};
  IXMLDOMDocument addDocument_;
  List<_bstr_t> removedChildren_{64};
  List<ApiPmId> removedNodes_{64};
  ZelXmlKnownList<_bstr_t> relatedTreeDReps_;
  ZelXmlKnownList<_bstr_t> relatedReferenceFiles_;
  ZelXmlKnownList<ApiPmId> relatedPrototypes_;
  ZelXmlKnownList<ApiPmId> relatedLayouts_;
  IdMap shortcutToMarvekStudyInfo_;
  IdMap layoutToMarvekStudyInfo_;
  IdMap marvekStudyInfoToLayout_;
  std::uint32_t importType_;
  ApiPmId externalStudyId_;
  IXMLDOMNode externalStudy_;
};
