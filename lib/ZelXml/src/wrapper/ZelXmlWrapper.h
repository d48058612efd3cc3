#pragma once

#include <string_view>

#include "api/ApiPmIdSet.h"
#include "api/ApiPmXmlCachedDocument.h"
#include "dom/IXMLDOMDocument.h"
#include "node/ZelXmlNodeHost.h"
#include "rw/RWClassicTValHashSet.h"
#include "wrapper/ZelXmlIdConvertor.h"
#include "zel/ZelWrapper.h"

class DomSave;
class ZelVorLabel;
class ZelXmlNode;
struct ZelXmlNodeKind;

// A study document as live nodes. The document itself belongs to the session, which is asked for it at each
// use; the wrapper holds the registry of nodes, the finders, the roots, and the update and OUT documents.
//
// Failures are false or null, without message; what was done before a failing step stands. One thread at a
// time uses a wrapper, its documents and the session.
class ZelXmlWrapper : public ZelVorWrapper, public ZelXmlNodeHost {
 public:
  ZelXmlWrapper();
  ~ZelXmlWrapper() override;
  ZelXmlWrapper(const ZelXmlWrapper&) = delete;
  ZelXmlWrapper& operator=(const ZelXmlWrapper&) = delete;

  // ZelWrapper
  bool getAllNodes(ZelNodeList& nodes) override;
  int nodesNum() override;
  const ZelNode* getZelNodeFromId(const ApiPmId& id) const override;
  ZelNode* getZelNodeFromId(const ApiPmId& id) override;
  bool getRoots(ApiPmIdList& ids) const override;
  bool isIdInUse(const ApiPmId& id) const override;
  bool generateUniqueId(ApiPmId& id) const override;
  // Takes the object off its parent's list and deletes it, as ZelXmlNode::deleteNode; a label is taken off
  // the object that it is assigned to. The children of a deleted compound stay, without a parent that counts.
  // False for an id without node, and when the element stays: then the node stays too, and is no root.
  bool deleteNode(ApiPmId& id) override;
  // A new object that is a root, published. An empty class name takes that of the type. Null, with nothing
  // made, for a type or class that no element can be made of. The last argument is not read. An id in use and
  // an unknown class are taken as told at ZelCollection::createChild.
  ZelNode* createRoot(ZelNodeType type, const RWClassicWString& className, const ApiPmId& id,
                      const ApiPmId& other) override;
  ZelNode* createRoot(ZelNodeType type, const ApiPmId& id) override { return createRoot(type, {}, id, {}); }
  // Takes a child out of its parent and makes it a root; published. True also for an object without parent.
  bool addRootFromOtherParent(ZelNode* node) override;
  // A prototype object under a new id, or under that of `data`; not published. False leaves the element where
  // a step after its making fails.
  bool createNewPrototype(const ApiPmPrototypeData& data, const RWClassicWString& name, ApiPmId& id) override;
  bool addExistingPrototype(const ApiPmPrototypeData& data) override { return createPrototypeNode(data, {}); }
  void setDatabaseId(const ApiDatabaseId& id) override { databaseId_ = id; }
  ApiDatabaseId databaseId() const override { return databaseId_; }
  const ZelWrapper* queryInterface(int type) const override { return type == 0 ? this : nullptr; }
  ZelWrapper* queryInterface(int type) override { return type == 0 ? this : nullptr; }
  ZelBehaviorRestrictionsMgr& getBehaviorRestrictionsManager() const override;
  bool isTemporaryWrapper() const override { return false; }
  // By the type of the prototype; false, and `type` untouched, for anything but a prototype.
  bool computeInstanceStringTypeFromPrototypeData(const ApiPmId& id, RWClassicWString& type) const override;
  bool build(bool download) override;
  // Class name, family and field `weight` of an object; false, and `data` untouched, without one of them and
  // for an empty weight.
  bool getPrototypeData(const ApiPmId& id, ApiPmPrototypeData& data) const override;
  // The path of a prototype or of a placeholder's own representation; as ZelPrototype. Only a prototype's can
  // be set.
  bool setPrototypePath(const ApiPmId& id, const RWClassicWString& path) override;
  bool getPrototypePath(const ApiPmId& id, RWClassicWString& path) const override;

  // ZelVorWrapper
  bool write(std::ostream& stream) const override;
  bool write(const RWClassicWString& fileName) const override;
  // The first step of such a save: the caller commits it, and hears from it why it was refused.
  bool prepareWrite(DomSave& save, const RWClassicWString& fileName,
                    DomOverwrite overwrite = DomOverwrite::known) const;
  bool read() override;
  bool findShortcut(const ApiPmId& id, ApiPmId& shortcut) const override;
  IXMLDOMDocument DOMDocument() override;
  IXMLDOMDocument DOMDocument() const { return const_cast<ZelXmlWrapper*>(this)->DOMDocument(); }
  // Folds the update document in as the new truth for the objects that it holds: new objects are added, those
  // of the families Product, Resource, Study and PLCProgram replaced, and children that a new version no
  // longer names, and that the update holds nowhere, removed. Objects of other families that exist already
  // keep their old element. `updated` gets the id of every object of the update, in document order, a null id
  // for one without; `deleted` the ids whose nodes went. Both are appended to. Nothing is published; roots
  // are gathered anew.
  //
  // Node pointers survive: a node takes a copy of the new element, and so do the nodes of PLC elements inside
  // it, as ZelXmlNode::takeElement tells.
  //
  // False when the referenced files cannot be prepared (nothing has changed then), or when a child to remove
  // cannot be found: the removals end there, with everything else done. What a removed child leaves: its
  // layout, its own children, and the shortcut finder's entry of a shortcut.
  bool update(ApiPmIdList& deleted, ApiPmIdList& updated, bool download) override;
  bool update(ApiPmIdList& deleted, bool download);
  bool update(bool download);
  // Adds what is new and replaces the study object; everything else stays. `updated` gets the ids of the
  // update's objects that have a node. False when the referenced files cannot be prepared.
  bool incrementalUpdate(ApiPmIdList& updated, bool download) override;
  bool incrementalUpdate(bool download);
  // Puts `element` itself in the place of an object; its node, if any, takes it. False for an unknown id.
  bool replaceDOMDocumentNode(const ApiPmId& id, const IXMLDOMElement& element) override;
  // Takes the 3D representation ids of these objects, and the file ids of the representations, over from the
  // update document. Ids that it does not hold are passed over. Stops at the first field that cannot be
  // written.
  bool update3DRepId(ApiPmIdList& ids) override;
  // Takes the index of the former update document back, and indexes the new one, which joins the fields
  // cache.
  void setUpdateDocument(const IXMLDOMDocument& document) override;
  void setOutDocument(const IXMLDOMDocument& document) override;
  // The roots named come first, in this order, the others follow in their present order. Ids that are no
  // roots are passed over. Always true.
  bool reorderRoots(const ApiPmIdList& ids) override;
  // Lets go of the study object, its shortcuts and all operation shortcuts, then takes `document` in as an
  // incremental update, whose study object becomes the study. The id is not read. Stops at the first false;
  // there is no way back then.
  bool moveContentToNewStudy(const IXMLDOMDocument& document, const ApiPmId& id) override;
  // Publishes a copy of the study object without its operation shortcuts. False without an OUT document.
  bool filterOtherTechnologiesShortcutsFromStudy() override;
  // Add a prototype to the change stream of any document: copies of its element without name, comment and
  // caption, and of what belongs to it (addEquipmentPrototypeData). The first without its geometry: it takes
  // the first `threeDRep` out of `document`, also one that stood there before. The second with the objects of
  // its 3D representation, as far as they resolve. The third is the second for each id, up to the first that
  // is false; true for none. Only during the call does `document` have an index, unless it had one before.
  // What was added before a failing step stays.
  bool getPrototypeDataAsOutputDoc(const ApiPmId& id, const IXMLDOMDocument& document) const override;
  bool getPrototypeDataWith3DAsOutputDoc(const ApiPmId& id, const IXMLDOMDocument& document) const override;
  bool getListOfPrototypeDataWith3DRepAsOutputDoc(const ApiPmIdList& ids,
                                                  const IXMLDOMDocument& document) const override;
  // Whether the OUT document holds a command for `id`, and the object has a node, or has none. False, and
  // `result` untouched, without an OUT document.
  bool isNodeInExportedNodes(const ApiPmId& id, bool& result) override;
  bool isNodeInExportDeletedNodes(const ApiPmId& id, bool& result) override;
  // Leaves every shared object to the parent that counts. Publishes nothing. Stops at the first node that
  // answers false; the nodes before it stay changed.
  bool removeSharing() override;
  // Makes for each child node of `source`, in order, an occurrence of the same prototype under the equipment
  // prototype `target`, with its name, its placement and its child id. The new occurrences are published,
  // placement and child id are not. True, with nothing done, when the source is no collection or the target
  // no equipment prototype. False at the first child that is no occurrence of a known prototype of a tool or
  // an equipment; the copies made by then stay.
  bool copyOccurrences(ZelNode& source, ZelNode& target) override;
  // A prototype in memory alone, registered under the id of `data`, whose weight is not kept. Null, with
  // nothing made, for a family that is neither of a part nor of a tool, and for the null id.
  ZelNode* createLocalPrototypeNode(const ApiPmPrototypeData& data, const RWClassicWString& name) override;
  // Marks the files of an object for the next download of the files cache: of the prototype of an instance or
  // an assignment, else of the node's own representation. True also for files that are in the cache and up to
  // date. False without representation, and while the cache is off.
  bool registerNodeForPreDownload(ZelNode& node) const override;
  // Follow what has happened in the data store already; nothing is published. The first removes a root with
  // its layout, and with its place in the study. The second takes a child from its parent that counts, enters
  // `parent` and the parent's layout, and puts it at its old relative placement under `location`, the
  // absolute placement of that parent. Steps after a failing one do not run.
  bool refreshDeleteRoot(ZelNode* node) override;
  bool refreshSetChildAsRoot(ZelNode* node, const ApiPmId& parent, const ApiPmId& parentLayout,
                             const RTTran3D& location) override;
  IXMLDOMDocument prototypesDOMDocument() const override { return DOMDocument(); }

  ZelXmlIdConvertor& convertor() { return convertor_; }
  const ZelXmlIdConvertor& convertor() const { return convertor_; }
  ZelXmlShortcutFinder& shortcutFinder() override { return shortcutFinder_; }
  const ZelXmlShortcutFinder& shortcutFinder() const { return shortcutFinder_; }
  ZelXmlParentFinder& relevantParentFinder() override { return parentFinder_; }
  const ZelXmlParentFinder& relevantParentFinder() const { return parentFinder_; }
  const IXMLDOMDocument& updateDocument() const override { return updateDocument_; }
  const IXMLDOMDocument& OUTDocument() const override { return outDocument_; }
  ApiPmXmlCachedDocument& cachedDOMDocument() const override;
  const RWClassicWString& studyId() const override { return studyId_; }
  ZelXmlRoots& roots() override { return roots_; }

  ZelNode* findNode(const ApiPmId& id) const override { return convertor_.findNode(id); }
  ZelNode* findPlcInternalNode(const ApiPmId& id) const override {
    return convertor_.findPlcInternalNode(id);
  }
  void insertNode(const ApiPmId& id, ZelNode* node) override;
  void removeAndDeleteNodeObject(const ApiPmId& id) override;
  void removeAndDeletePlcInternalNode(const ApiPmId& id) override {
    convertor_.removeAndDeletePlcInternalNode(id);
  }
  void removeAndDeleteNodeObjectsList(const ApiPmIdList& ids);

  void addShortcutToShortcutFinder(const IXMLDOMNode& shortcut) override;
  using ZelXmlNodeHost::addParentAndChildToRelevantParentFinder;
  bool addParentAndChildToRelevantParentFinder(const IXMLDOMNode& parent, const ApiPmId& child,
                                               bool force) override;
  // The same without force for all children of an element, in order; stops at the first false.
  bool addParentAndChildrenToRelevantParentFinder(const IXMLDOMNode& parent);
  void setRelevantParent(const ApiPmId& child, const ApiPmId& parent) override;

  // Node creation for an object element of the study document; `familyElement` is its NodeInfo/family,
  // `id` its id, null without one. All
  // answer the new node, or null for an object that gets none: shortcuts, families that have no nodes, and
  // elements without id, whose node is made but not registered.
  ZelNode* createNodeByFamilyXmlNode(const IXMLDOMNode& familyElement);
  ZelNode* handleNodeCreation(const IXMLDOMNode& element, std::string_view family);
  ZelNode* createNode(const IXMLDOMNode& element, const ApiPmId& id, std::string_view family);
  // Indexes the element under its id, and pairs the data store's number with the id. False for the null id.
  bool handleNewNodeCaches(const IXMLDOMNode& element, const ApiPmId& id);

  // Deletes one after the other; stops at the first false. False for an empty list.
  bool deleteNodesList(const ApiPmIdList& ids);
  // Whether a shortcut in the list of the study leads to `id`; none does in a study without `children`. False
  // without the study.
  bool doesStudyContainNodeByShortcut(const ApiPmId& id, bool& contained);

  // Adds the occurrences of an equipment prototype, with comment, name and layout, to the change stream of
  // `document`; ids without element are passed over. Then the first `children` of the document, if it has no
  // `item`, loses its text. True, and nothing done, for any other node and for an id without node.
  bool addEquipmentPrototypeData(const ApiPmId& id, const IXMLDOMDocument& document) const;
  // getPrototypeDataWith3DAsOutputDoc for a document that has an index.
  bool getPrototypeDataWith3DAsOutputDocInternal(const ApiPmId& id, const IXMLDOMDocument& document) const;

  // The section of a command of a change stream, made if need be.
  bool createOutDocumentNode(const IXMLDOMDocument& document, std::string_view command, IXMLDOMNode& node);

 private:
  // An import takes objects in by the same steps as an update.
  friend class ZelXmlUpdateFromExternalDocument;

  // What one full update remembers of the objects that it met.
  struct UpdateRun;
  void updateXmlNode(const IXMLDOMNode& familyElement, UpdateRun& run);
  void updateXmlNodeIncremental(const IXMLDOMNode& familyElement, ApiPmId& id);
  bool updateExistingXmlNode(const IXMLDOMNode& replacement, const IXMLDOMNode& old);
  bool updateExistingXmlNodeAsNew(const IXMLDOMNode& replacement, const IXMLDOMNode& old,
                                  std::string_view family);
  bool appendNewXmlNode(const IXMLDOMNode& element, std::string_view family);
  // Appends the children that `old` has and `replacement` has not.
  bool accumulateMissingChildren(const IXMLDOMNode& replacement, const IXMLDOMNode& old,
                                 RWClassicTValOrderedVector<_bstr_t>& missing);
  bool addNewChildToExistingParent(const IXMLDOMNode& element);
  bool addNewChildToExistingParentIncremental(const IXMLDOMNode& element);
  // Removes those of the missing children that were not seen elsewhere, in order, up to the first that is not
  // in the study: false then. `deleted` gets the ids of the nodes that went.
  bool removeMissingNodes(const RWClassicTValOrderedVector<_bstr_t>& missing, const ApiPmIdSet& seen,
                          ApiPmIdList& deleted);
  bool transferReference(std::string_view field, const IXMLDOMNode& from, const IXMLDOMNode& to);

  void clear();
  void tellOfAnotherDocument() const;
  bool enterRelevantParent(const IXMLDOMNode& parent, const ApiPmId& parentId, const ApiPmId& child,
                           bool force);
  bool preBuild(const IXMLDOMDocument& document, bool download);
  bool collectToolInstanceMasterObjects(const IXMLDOMDocument& document);
  void updateRoots();
  bool refreshRoots();
  void issueSharedNodeAdditionalParentIgnoredWarning(const ApiPmId& child, const IXMLDOMNode& parent);
  bool refreshParentWithNewChild(const ApiPmId& parent, ZelNode* node);
  bool addChildLocally(ZelXmlNode& parent, ZelNode* child);
  bool refreshStudyNodeDeletion();
  bool refreshShortcutRemovalFromStudy(const ApiPmId& shortcut, const ApiPmId& node);
  bool refreshAllShortcutsRemovalFromStudy();
  bool createPrototypeNode(const ApiPmPrototypeData& data, const RWClassicWString& name);
  bool deleteLabel(ZelVorLabel& label, const ApiPmId& id);
  bool isNodeCachedInExportedDoc(const ApiPmId& id, bool& cached) const;
  void readSessionMngInformation();
  void writeSessionMngInformation() const;

  bool isOfKind(const ZelXmlNodeKind& kind, const IXMLDOMNode& element) const;
  bool isPrototypeOccurrence(const IXMLDOMNode& element) const;
  bool isEquipmentPrototypeAssignment(const IXMLDOMNode& element) const;

  // The registry goes last: it deletes the nodes.
  ZelXmlIdConvertor convertor_;
  ZelXmlShortcutFinder shortcutFinder_;
  ZelXmlParentFinder parentFinder_;
  IXMLDOMDocument builtDocument_;  // for a message only: the study document is the session's
  IXMLDOMDocument updateDocument_;
  IXMLDOMDocument outDocument_;
  ZelXmlRoots roots_;
  RWClassicWString studyId_;
  ApiDatabaseId databaseId_;
  RWClassicTValHashSet<ApiPmId> toolInstanceMasterObjects_;
};
