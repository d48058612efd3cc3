#include "merge/ZelXmlUpdateXmlWrapper.h"

#include <utility>

#include "api/ApiPmSessionManager.h"
#include "api/ApiPmXmlCacheDocumentMgr.h"
#include "document/ZelXmlFunctions.h"
#include "document/ZelXmlItems.h"

// Life, the turn of the session to the wrapped document, and the order of an update.

namespace {

// Turns the session to another document while it lives. The index of the session's own document is kept over
// that time: references to it stay good, and entries of elements outside the tree are not lost.
class SessionTurn {
 public:
  SessionTurn(const IXMLDOMDocument& document, const RWClassicCString& path) : SessionTurn() {
    // With the object complete by now, its destructor puts all back also when this throws.
    held_ = ApiPmXmlCacheDocumentMgr::the().addDocument(former_);
    ApiPmSessionManager::the().setImportedDocumentAndDocRef(document,
                                                            ApiDocumentRef(ApiFullPathDocument{path}));
  }
  ~SessionTurn() {
    ApiPmSessionManager::the().setImportedDocumentAndDocRef(former_, reference_);
    if (held_) ApiPmXmlCacheDocumentMgr::the().removeDocument(former_);
  }
  SessionTurn(const SessionTurn&) = delete;
  SessionTurn& operator=(const SessionTurn&) = delete;

  const IXMLDOMDocument& former() const { return former_; }

 private:
  SessionTurn()
      : former_(ApiPmSessionManager::the().importedDocument()),
        reference_(ApiPmSessionManager::the().documentRef()) {}

  const IXMLDOMDocument former_;
  const ApiDocumentRef reference_;
  bool held_ = false;
};

std::string inBraces(const std::string& guid) { return "{" + guid + "}"; }

}  // namespace

ZelXmlUpdateXmlWrapper::ZelXmlUpdateXmlWrapper(RWClassicCString documentPath, RWClassicCString savePath)
    : documentPath_(std::move(documentPath)), savePath_(std::move(savePath)) {}

ZelXmlUpdateXmlWrapper::~ZelXmlUpdateXmlWrapper() {
  for (const IXMLDOMDocument& document : registered_)
    ApiPmXmlCacheDocumentMgr::the().removeDocument(document);
}

void ZelXmlUpdateXmlWrapper::setAlternativeCachedIdForDoc(const _GUID& guid) {
  alternativeCachedId_ = inBraces(api::guidText(guid));
}

bool ZelXmlUpdateXmlWrapper::failed(std::string text, bool ofFile) {
  lastFailure_ = {std::move(text), ofFile};
  return false;
}

bool ZelXmlUpdateXmlWrapper::buildToWrapDocumentToBeUpdated() {
  lastFailure_ = {};
  const bool loaded =
      wrappedDocument_.create() && wrappedDocument_.initialize({}) && wrappedDocument_.load(documentPath_);
  if (!loaded) failed(wrappedDocument_.lastError().message(), true);
  handleDocWrapperUniqueCachedId();
  const IXMLDOMDocument& document = wrappedDocument_.xmlDocument();
  const SessionTurn turn(document, documentPath_);
  ApiPmXmlCacheDocumentMgr& manager = ApiPmXmlCacheDocumentMgr::the();
  if (!loaded || !manager.addDocument(document)) return false;
  registered_.push_back(document);
  if (!build(true)) return failed(documentPath_ + ": a file that it refers to cannot be fetched");
  registered_.pop_back();
  return manager.removeDocument(document);
}

// A copy of the session's file carries the id of its original.
void ZelXmlUpdateXmlWrapper::handleDocWrapperUniqueCachedId() {
  IXMLDOMElement root;
  std::string own;
  ApiPmId ofSession;
  if (!wrappedDocument_.getRootElement(root) || !zelXmlGetAttribute(root, "cachedId", own) ||
      !ApiPmXmlCachedDocument::getCachedDocId(DOMDocument(), ofSession) || own != ofSession.text()) {
    return;
  }
  zelXmlSetAttribute(root, "cachedId",
                     alternativeCachedId_.empty() ? inBraces(api::newGuidText()) : alternativeCachedId_);
}

bool ZelXmlUpdateXmlWrapper::updateWrappedDocument(const ApiPmId& rootId,
                                                   const ApiBaseXmlDocumentWrapper& updateDocument) {
  lastFailure_ = {};
  const IXMLDOMDocument update = updateDocument.xmlDocument();
  bool isInStudy = false;
  if (!doesStudyContainNodeByShortcut(rootId, isInStudy)) {
    return failed("the session's document has no study object \"" + studyId() + "\", which is the study of " +
                  documentPath_);
  }
  if (!isInStudy) {
    bool found = false;
    if (!getDoesDocumentContainAnyParentOfUpdateRoot(update, rootId, wrappedDocument_.xmlDocument(), found)) {
      return failed("the update has no object \"" + rootId.asString() + "\"");
    }
    if (!found) {
      return failed("neither does the study show the object \"" + rootId.asString() +
                    "\", nor is one of its parents in " + documentPath_);
    }
  }
  return internalUpdateWrappedDocument(rootId, update, isInStudy);
}

bool ZelXmlUpdateXmlWrapper::getDoesDocumentContainAnyParentOfUpdateRoot(
    const IXMLDOMDocument& updateDocument, const ApiPmId& rootId, const IXMLDOMDocument& document,
    bool& found) {
  found = false;
  IXMLDOMNode element;
  return zelXmlFindNodeById(updateDocument, rootId, element) &&
         getDoesDocumentContainAnyParentReferencedInNode(document, element, found);
}

bool ZelXmlUpdateXmlWrapper::getDoesDocumentContainAnyParentReferencedInNode(const IXMLDOMDocument& document,
                                                                             const IXMLDOMNode& element,
                                                                             bool& found) {
  found = false;
  // A parent is mostly met at once, and a shared object may name many: the list is not copied.
  return zelXmlVisitItems(element, "parents", [&](const IXMLDOMElement& item) {
    std::string buffer;
    IXMLDOMNode ignored;
    found = zelXmlFindNodeById(document, item.textView(buffer), ignored);
    return !found;
  });
}

bool ZelXmlUpdateXmlWrapper::internalUpdateWrappedDocument(const ApiPmId& rootId,
                                                           const IXMLDOMDocument& updateDocument,
                                                           bool isInStudy) {
  const IXMLDOMDocument& document = wrappedDocument_.xmlDocument();
  const SessionTurn turn(document, documentPath_);
  ApiPmXmlCacheDocumentMgr& manager = ApiPmXmlCacheDocumentMgr::the();
  if (!manager.addDocument(document)) return failed(documentPath_ + ": it has not been loaded");
  registered_.push_back(document);
  setUpdateDocument(updateDocument);
  if (!internalUpdateDOMDocument(rootId, updateDocument, isInStudy, turn.former())) return false;
  registered_.pop_back();
  return manager.removeDocument(document);
}

bool ZelXmlUpdateXmlWrapper::internalUpdateDOMDocument(const ApiPmId& rootId,
                                                       const IXMLDOMDocument& updateDocument, bool isInStudy,
                                                       const IXMLDOMDocument& sourceDocument) {
  Suspects suspects;
  ShortcutNodes shown;
  ApiPmIdList updated;  // what the update deletes: nothing, since all lists of children were emptied before
  ApiPmIdList handled;
  if (!preUpdateNodesAndElementsRemoval(updateDocument, suspects)) return false;
  if (isInStudy && (!getShortcutRelatedNodesFromDocument(sourceDocument, rootId, shown) ||
                    !appendShortcutRelatedNodesToDocumentIfNotContained(updateDocument, shown))) {
    return false;
  }
  if (!update(updated, handled, true)) return failed("a file that the update refers to cannot be fetched");
  return updateNodesWithNoZelXmlRep(updateDocument) && addMissingChildItemToParentsOfHandledNodes(handled) &&
         (!isInStudy || updateMarvekStudyNodeShortcutData(shown.shortcut, shown.info)) &&
         handleRemovalOfNodesSuspectedAsOrphans(suspects) && save();
}

bool ZelXmlUpdateXmlWrapper::save() {
  if (!saver_)
    return wrappedDocument_.save(savePath_) || failed(wrappedDocument_.lastError().message(), true);
  DomError error;
  return saver_(wrappedDocument_.xmlDocument(), savePath_, error) || failed(error.message(), true);
}
