#pragma once

#include <functional>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "api/ApiBaseXmlDocumentWrapper.h"
#include "rw/RWClassicText.h"
#include "wrapper/ZelXmlWrapper.h"

// A wrapper of a document of its own, the wrapped document: a study file that is brought up to date without
// being opened as the current study. The session's document stays what it is; it gives place to the wrapped
// one for the length of a call, and is back, with its reference, when the call ends in whatever way. So
// between the calls whatever asks this wrapper for its document gets the session's: only ids, finders and
// roots are of use then.
//
// The update document holds changed objects under one root object, as they came out of another wrapper. What
// it leaves out is kept consistent: objects that lost a child or a parent, and objects that nothing leads to
// any more, which are removed.
class ZelXmlUpdateXmlWrapper : public ZelXmlWrapper {
 public:
  // Loads nothing yet. The session knows the wrapped document under `documentPath`; an update is saved to
  // `savePath`, which may be the same.
  ZelXmlUpdateXmlWrapper(RWClassicCString documentPath, RWClassicCString savePath);
  ~ZelXmlUpdateXmlWrapper() override;

  // The id that the wrapped document gets if its `cachedId` is that of the session's document. Without one
  // it gets a new id. To be called before the build.
  void setAlternativeCachedIdForDoc(const _GUID& guid);

  // Loads the file and builds its nodes. The attribute `cachedId` of the root, where there is one, is made to
  // differ from that of the session's document. False for a file that cannot be read and when referenced
  // files cannot be fetched; an update is then refused until a build succeeds.
  bool buildToWrapDocumentToBeUpdated();

  // Who saves the document at the end of an update, to `savePath`: a save of its own if none is given. A
  // false of it, with the reason in `error`, is a refusal of the update.
  using Saver =
      std::function<bool(const IXMLDOMDocument& document, const std::string& savePath, DomError& error)>;
  void setSaver(Saver saver) { saver_ = std::move(saver); }

  // Takes the update in and saves. The object `rootId` is to be shown by the study of the session, whose id
  // is that of the wrapped one, or to have a parent in the wrapped document. In the first case the shortcut,
  // its study info and its layout come from the session's document, and are appended to the update document.
  //
  // Objects of the main families are replaced as in a full update, others by a copy; new ones are added. A
  // replaced object keeps none of its children but those that the update brings. An object that lost a parent
  // here stays while one of its `parents` is in the document or the study shows it; else it is removed with
  // its layout, and its children are judged in its stead.
  //
  // False leaves the file as it was, and the wrapped document in memory with what was done by then: load it
  // anew before another try. Among the reasons: a child of a replaced object that does not name it in
  // `parents`; a parent that takes no children or has no layout; an object that lost a parent and was removed
  // meanwhile.
  bool updateWrappedDocument(const ApiPmId& rootId, const ApiBaseXmlDocumentWrapper& updateDocument);

  // Why the last of these operations answered false: the step and the object, in words. Empty after true.
  struct Failure {
    std::string text;
    bool ofFile = false;  // a file could not be read or saved
  };
  const Failure& lastFailure() const { return lastFailure_; }

 private:
  // Objects that lost a parent, each once, in order.
  struct Suspects {
    std::vector<ApiPmId> ids;
    std::unordered_set<ApiPmId> known;
    void add(const ApiPmId& id) {
      if (known.insert(id).second) ids.push_back(id);
    }
  };
  // An object that the session's study shows: copies of what makes it so.
  struct ShortcutNodes {
    IXMLDOMNode shortcut, info, layout;
  };

  bool internalUpdateWrappedDocument(const ApiPmId& rootId, const IXMLDOMDocument& updateDocument,
                                     bool isInStudy);
  bool internalUpdateDOMDocument(const ApiPmId& rootId, const IXMLDOMDocument& updateDocument, bool isInStudy,
                                 const IXMLDOMDocument& sourceDocument);
  void handleDocWrapperUniqueCachedId();
  bool getDoesDocumentContainAnyParentOfUpdateRoot(const IXMLDOMDocument& updateDocument,
                                                   const ApiPmId& rootId, const IXMLDOMDocument& document,
                                                   bool& found);
  bool getDoesDocumentContainAnyParentReferencedInNode(const IXMLDOMDocument& document,
                                                       const IXMLDOMNode& element, bool& found);

  // Relations. A family element of the update document leads to the object that is to be replaced; objects
  // that the wrapped document lacks, and those of other families, are passed over with true.
  bool getNodeToBeReplaced(const IXMLDOMNode& family, bool isMain, IXMLDOMElement& existing);
  bool preUpdateNodesAndElementsRemoval(const IXMLDOMDocument& updateDocument, Suspects& suspects);
  bool removeParentsToBeReplacedFromChildren(const IXMLDOMNode& family, Suspects& suspects);
  bool removeChildrenItemElementsFromNodesToBeReplaced(const IXMLDOMNode& family);
  bool removeChildrenToBeReplacedFromParents(const IXMLDOMNode& family);
  bool removeParentItemFromChildren(const IXMLDOMNode& element, Suspects& suspects);
  bool replaceChildrenElementWithEmptyOne(const IXMLDOMNode& element);
  bool removeChildItemFromParents(const IXMLDOMNode& element);
  bool removeChildItemFromParent(const IXMLDOMNode& element);
  bool addMissingChildItemToParents(const IXMLDOMNode& element);
  bool addMissingChildItemToParentsOfHandledNodes(const ApiPmIdList& handled);
  bool handleRemovalOfNodesSuspectedAsOrphans(const Suspects& suspects);
  bool removeOrphan(const ApiPmId& id, const IXMLDOMNode& element, Suspects& next);

  // Objects without a node of a main family, and the shortcut of the update root.
  bool updateNodesWithNoZelXmlRep(const IXMLDOMDocument& updateDocument);
  bool updateNodeWithNoZelXmlRep(const IXMLDOMNode& family);
  bool replaceNodeWithCloning(const IXMLDOMNode& source, IXMLDOMNode& result);
  bool getDeepCloneNode(const IXMLDOMNode& node, IXMLDOMNode& clone);
  bool appendNodeToDocument(const IXMLDOMDocument& document, const IXMLDOMNode& node);
  bool appendShortcutRelatedNodesToDocumentIfNotContained(const IXMLDOMDocument& document,
                                                          const ShortcutNodes& nodes);
  bool getShortcutNodeLinkingToNodeFromDocument(const IXMLDOMDocument& document, const ApiPmId& id,
                                                IXMLDOMNode& shortcut);
  bool getShortcutRelatedNodesFromDocument(const IXMLDOMDocument& document, const ApiPmId& id,
                                           ShortcutNodes& nodes);
  bool updateMarvekStudyNodeShortcutData(const IXMLDOMNode& shortcut, const IXMLDOMNode& info);
  bool createAndAppendChildrenAndInfoItems(const IXMLDOMNode& study, const ApiPmId& shortcutId,
                                           const ApiPmId& infoId);

  // Keeps the reason; false.
  bool failed(std::string text, bool ofFile = false);
  bool save();

  RWClassicCString documentPath_;
  RWClassicCString savePath_;
  Saver saver_;
  ApiBaseXmlDocumentWrapper wrappedDocument_;
  RWClassicWString alternativeCachedId_;
  // Registrations that this wrapper has made and not taken back: those of calls that failed.
  std::vector<IXMLDOMDocument> registered_;
  Failure lastFailure_;
};
