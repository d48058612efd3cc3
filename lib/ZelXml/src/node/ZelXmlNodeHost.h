#pragma once

#include "api/ApiPmXmlCachedDocument.h"
#include "dom/IXMLDOMDocument.h"
#include "node/ZelXmlParentFinder.h"
#include "node/ZelXmlRoots.h"
#include "node/ZelXmlShortcutFinder.h"
#include "zel/ZelNode.h"

class ZelXmlNode;

// What a node asks of the wrapper that holds it. Whatever is the session's for a study is asked here, so that
// nodes work over any other document just as well.
class ZelXmlNodeHost {
 public:
  // The document that the nodes stand in, the one in which prototypes are looked up, the one whose data is
  // being taken in, and the one that takes the change commands. The last two are null while there is none.
  virtual IXMLDOMDocument DOMDocument() = 0;
  virtual IXMLDOMDocument prototypesDOMDocument() const = 0;
  virtual const IXMLDOMDocument& updateDocument() const = 0;
  virtual const IXMLDOMDocument& OUTDocument() const = 0;
  // The index of DOMDocument(); one that knows nothing while that has none.
  virtual ApiPmXmlCachedDocument& cachedDOMDocument() const = 0;

  // The node that an id means here; null without one.
  virtual ZelNode* getZelNodeFromId(const ApiPmId& id) = 0;
  // The same as the library sees it; null too for PLC internal nodes.
  ZelXmlNode* zelXmlNodeFromId(const ApiPmId& id) const;
  // The node of the own registry alone.
  virtual ZelNode* findNode(const ApiPmId& id) const = 0;
  virtual bool generateUniqueId(ApiPmId& id) const = 0;
  // The node inside `plcInfo` of an object that has the id, also where an object has it too; null without
  // one.
  virtual ZelNode* findPlcInternalNode(const ApiPmId& id) const = 0;
  // Registers a node. A node that had the id leaves the roots, and lives on until the next build.
  virtual void insertNode(const ApiPmId& id, ZelNode* node) = 0;
  // The one way by which a node dies before its wrapper: the nodes inside it (removeRequisites), entry, root
  // and relevant parent go with it. `id` may
  // be the entry's own key or the node's own id; neither may be used afterwards.
  virtual void removeAndDeleteNodeObject(const ApiPmId& id) = 0;
  // The same for a node inside `plcInfo`, whatever object has the id too; an id without such a node is passed
  // over.
  virtual void removeAndDeletePlcInternalNode(const ApiPmId& id) = 0;
  void removeAndDeletePlcInternalNodes(const ApiPmIdList& ids) {
    for (const ApiPmId& id : ids) removeAndDeletePlcInternalNode(id);
  }

  virtual ZelXmlParentFinder& relevantParentFinder() = 0;
  // Enters a parent as the one that counts for a child. Without `force` a child keeps the parent that it has,
  // with a warning for a second one. True also when the parent is not one that counts and nothing is stored;
  // false only for a parent without id.
  virtual bool addParentAndChildToRelevantParentFinder(const IXMLDOMNode& parent, const ApiPmId& child,
                                                       bool force) = 0;
  // The same by force, for two nodes.
  bool addParentAndChildToRelevantParentFinder(const ZelXmlNode& parent, const ZelXmlNode& child);
  // Stores `parent` for `child`, whatever the two are.
  virtual void setRelevantParent(const ApiPmId& child, const ApiPmId& parent) = 0;

  virtual ZelXmlShortcutFinder& shortcutFinder() = 0;
  // Enters the object that a shortcut element links to; does nothing for a link that leads nowhere.
  virtual void addShortcutToShortcutFinder(const IXMLDOMNode& shortcut) = 0;
  virtual ZelXmlRoots& roots() = 0;
  // Id of the study object met last by a build; it outlives the nodes. Empty before the first.
  virtual const RWClassicWString& studyId() const = 0;
  // Removes a root with its layout, and with its place in the study. Publishes nothing.
  virtual bool refreshDeleteRoot(ZelNode* node) = 0;

 protected:
  ZelXmlNodeHost() = default;
  ZelXmlNodeHost(const ZelXmlNodeHost&) = default;
  ZelXmlNodeHost& operator=(const ZelXmlNodeHost&) = default;
  ~ZelXmlNodeHost() = default;
};
