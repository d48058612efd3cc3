#pragma once

#include <iosfwd>

#include "api/ApiPmPrototypeData.h"
#include "dom/IXMLDOMDocument.h"
#include "rt/RTTran3D.h"
#include "zel/ZelBehaviorRestrictionsMgr.h"
#include "zel/ZelNode.h"

class ZelVorCache;
class ZelVorIPAProductData;

// A study as live nodes. The wrapper owns the node objects: a pointer to a node is good until that node is
// deleted or the study is built again.
//
// An operation that a wrapper does not offer answers false or null and does nothing; that is the answer of
// the operations below that are not pure.
class ZelWrapper {
 public:
  virtual ~ZelWrapper() = default;

  // Appends all nodes, PLC internal nodes last.
  virtual bool getAllNodes(ZelNodeList& nodes) = 0;
  virtual int nodesNum() = 0;
  // Null for an id without node.
  virtual const ZelNode* getZelNodeFromId(const ApiPmId& id) const = 0;
  virtual ZelNode* getZelNodeFromId(const ApiPmId& id) = 0;
  // Appends the ids of the roots, in root order.
  virtual bool getRoots(ApiPmIdList& ids) const = 0;
  virtual bool generateUniqueId(ApiPmId&) const { return false; }
  virtual bool deleteNode(ApiPmId&) { return false; }
  virtual void setDatabaseId(const ApiDatabaseId& id) = 0;
  virtual ApiDatabaseId databaseId() const = 0;
  // A new object that is a root. What is said of the id and the class at ZelCollection::createChild holds
  // here too.
  virtual ZelNode* createRoot(ZelNodeType, const RWClassicWString&, const ApiPmId&, const ApiPmId&) {
    return nullptr;
  }
  virtual ZelNode* createRoot(ZelNodeType, const ApiPmId&) { return nullptr; }
  virtual bool addRootFromOtherParent(ZelNode*) { return false; }
  virtual bool createNewPrototype(const ApiPmPrototypeData&, const RWClassicWString&, ApiPmId&) {
    return false;
  }
  // The wrapper itself for 0, null for any other number.
  virtual const ZelWrapper* queryInterface(int type) const = 0;
  virtual ZelWrapper* queryInterface(int type) = 0;
  virtual ZelBehaviorRestrictionsMgr& getBehaviorRestrictionsManager() const = 0;
  virtual bool isTemporaryWrapper() const = 0;
  virtual bool computeInstanceStringTypeFromPrototypeData(const ApiPmId&, RWClassicWString&) const {
    return false;
  }
  // Makes the nodes of the session's study document; former nodes die first. With `download` referenced files
  // are fetched into the local files cache before. False when that fails; objects that cannot be turned into
  // nodes are passed over in silence. True without nodes also for a session without a document, and for a
  // document that is no study: ask that before, by `selects("Data/Objects")`.
  virtual bool build(bool download) = 0;
  virtual bool addExistingPrototype(const ApiPmPrototypeData&) { return false; }
  virtual bool getPrototypeData(const ApiPmId&, ApiPmPrototypeData&) const { return false; }
  virtual bool setPrototypePath(const ApiPmId&, const RWClassicWString&) { return false; }
  virtual bool getPrototypePath(const ApiPmId&, RWClassicWString&) const { return false; }
  virtual bool getOperationIPAData(const ApiPmIdList&, ZelVorIPAProductData*, int) { return false; }
};

// A wrapper whose study lives in documents. The study document is the session's, not the wrapper's own, and a
// process has one session: when the session is given another document, every wrapper reads, edits and saves
// that one. So one study is worked on at a time; before another is opened the first one is written, and a
// wrapper that is used again after that is built again.
class ZelVorWrapper : public ZelWrapper {
 public:
  // Saves the study document, with the session's data written into it first. False when the save fails; the
  // document in memory keeps the session data then. It is the document that the session has now: a line of
  // level 0 goes to the log when that is not the one that was built. A file that another program has changed
  // since it was read is not saved over: `DOMDocument().save` does that too, where it is wanted, and tells
  // the reason.
  virtual bool write(std::ostream& stream) const = 0;
  virtual bool write(const RWClassicWString& fileName) const = 0;
  // build(true), then reads the session's data from the study. The result of build.
  virtual bool read() = 0;
  // Id of the shortcut that leads to the node `id`.
  virtual bool findShortcut(const ApiPmId& id, ApiPmId& shortcut) const = 0;
  // The study document; null while the session has none.
  virtual IXMLDOMDocument DOMDocument() = 0;
  virtual void setUpdateDocument(const IXMLDOMDocument& document) = 0;
  virtual bool update(ApiPmIdList& /*deleted*/, ApiPmIdList& /*updated*/, bool /*download*/) { return false; }
  virtual bool incrementalUpdate(ApiPmIdList& /*updated*/, bool /*download*/) { return false; }
  virtual bool reorderRoots(const ApiPmIdList&) { return false; }
  virtual bool moveContentToNewStudy(const IXMLDOMDocument&, const ApiPmId&) { return false; }
  // Document that takes the change commands of all later edits; null for none.
  virtual void setOutDocument(const IXMLDOMDocument& document) = 0;
  virtual bool replaceDOMDocumentNode(const ApiPmId&, const IXMLDOMElement&) { return false; }
  virtual bool filterOtherTechnologiesShortcutsFromStudy() { return false; }
  virtual bool getPrototypeDataAsOutputDoc(const ApiPmId&, const IXMLDOMDocument&) const { return false; }
  virtual bool getPrototypeDataWith3DAsOutputDoc(const ApiPmId&, const IXMLDOMDocument&) const {
    return false;
  }
  virtual ZelVorCache* createCache() { return nullptr; }
  virtual bool isNodeInExportedNodes(const ApiPmId&, bool&) { return false; }
  virtual bool isNodeInExportDeletedNodes(const ApiPmId&, bool&) { return false; }
  virtual bool removeSharing() { return false; }
  virtual bool copyOccurrences(ZelNode&, ZelNode&) { return false; }
  virtual ZelNode* createLocalPrototypeNode(const ApiPmPrototypeData&, const RWClassicWString&) {
    return nullptr;
  }
  virtual bool registerNodeForPreDownload(ZelNode&) const { return false; }
  virtual bool getListOfPrototypeDataWith3DRepAsOutputDoc(const ApiPmIdList&, const IXMLDOMDocument&) const {
    return false;
  }
  virtual bool update3DRepId(ApiPmIdList&) { return false; }
  virtual bool refreshDeleteRoot(ZelNode*) { return false; }
  virtual bool refreshSetChildAsRoot(ZelNode*, const ApiPmId& /*parent*/, const ApiPmId& /*parentLayout*/,
                                     const RTTran3D&) {
    return false;
  }
  virtual IXMLDOMDocument prototypesDOMDocument() const = 0;
  // Whether a node, or an object of the study document, has this id: the question to ask before an object is
  // made under it (createRoot, createChild, addLabel).
  virtual bool isIdInUse(const ApiPmId&) const { return false; }
};
