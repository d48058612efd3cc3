#include <functional>
#include <string>
#include <unordered_set>

#include "api/ApiPmSessionManager.h"
#include "api/ApiPmXmlCacheDocumentMgr.h"
#include "document/ZelXmlFunctions.h"
#include "node/ZelXmlNode.h"
#include "rw/RWTextHash.h"
#include "wrapper/ZelXmlKnownList.h"
#include "wrapper/ZelXmlWrapper.h"

// New data of the data store, folded into a built study. The update document is only read.

struct ZelXmlWrapper::UpdateRun {
  RWClassicTValOrderedVector<_bstr_t> missing;  // children that an element had and its new version has not
  ZelXmlKnownList<ApiPmId> seen;                // ids of the update document, in its order
};

namespace {

// The object element of a NodeInfo/family element.
IXMLDOMNode objectOf(const IXMLDOMNode& familyElement) { return familyElement.parentNode().parentNode(); }

// Calls `visit` for the family of each object in document order. A study that is its own update grows
// meanwhile: then for those that were there before.
bool visitFamilies(const IXMLDOMDocument& update, const IXMLDOMDocument& study,
                   const std::function<void(const IXMLDOMNode&)>& visit) {
  constexpr std::string_view path = "Data/Objects/*/NodeInfo/family";
  if (!(update == study)) return update.visitNodes(path, visit);
  IXMLDOMNodeList families;
  if (!zelXmlSelectChildren(update, path, families)) return false;
  for (const IXMLDOMNode& family : families) visit(family);
  return true;
}

}  // namespace

bool ZelXmlWrapper::update(bool download) {
  ApiPmIdList deleted;
  return update(deleted, download);
}

bool ZelXmlWrapper::update(ApiPmIdList& deleted, bool download) {
  ApiPmIdList updated;
  return update(deleted, updated, download);
}

bool ZelXmlWrapper::update(ApiPmIdList& deleted, ApiPmIdList& updated, bool download) {
  bool result = preBuild(updateDocument_, download);
  UpdateRun run;
  if (!result || !visitFamilies(updateDocument_, DOMDocument(),
                                [&](const IXMLDOMNode& family) { updateXmlNode(family, run); })) {
    return result;
  }
  result = removeMissingNodes(run.missing, run.seen.members(), deleted);
  refreshRoots();
  for (const ApiPmId& id : run.seen.list()) updated.append(id);
  return result;
}

void ZelXmlWrapper::updateXmlNode(const IXMLDOMNode& familyElement, UpdateRun& run) {
  const IXMLDOMNode replacement = objectOf(familyElement);
  if (!replacement) return;
  ApiPmId id;
  zelXmlGetExternalId(replacement, id);
  run.seen.append(id);
  if (id.isNull()) return;  // nothing could ever find the object
  std::string buffer;
  const std::string_view family = familyElement.textView(buffer);
  if (!cachedDOMDocument().isNodeCached(id)) {
    if (appendNewXmlNode(replacement, family)) addNewChildToExistingParent(replacement);
    return;
  }
  IXMLDOMElement old;
  if (!cachedDOMDocument().getNodeById(DOMDocument(), id, old, true) || !zelXmlIsMainFamily(family)) return;
  ZelXmlNode* node = zelXmlNodeFromId(id);
  if (!node) {
    updateExistingXmlNodeAsNew(replacement, old, family);
  } else if (accumulateMissingChildren(replacement, old, run.missing)) {
    node->updateElement(replacement);
  }
}

bool ZelXmlWrapper::appendNewXmlNode(const IXMLDOMNode& element, std::string_view family) {
  IXMLDOMNode clone;
  if (!zelXmlAppendObjectClone(DOMDocument(), element, clone)) return false;
  handleNodeCreation(clone, family);
  return true;
}

bool ZelXmlWrapper::updateExistingXmlNodeAsNew(const IXMLDOMNode& replacement, const IXMLDOMNode& old,
                                               std::string_view family) {
  IXMLDOMNode clone;
  if (!zelXmlReplaceObject(cachedDOMDocument(), old, replacement, clone)) return false;
  handleNodeCreation(clone, family);
  return true;
}

bool ZelXmlWrapper::updateExistingXmlNode(const IXMLDOMNode& replacement, const IXMLDOMNode& old) {
  ApiPmId id;
  if (!zelXmlGetExternalId(replacement, id)) return false;
  if (ZelXmlNode* node = zelXmlNodeFromId(id)) return node->replaceElement(replacement);
  IXMLDOMNode clone;
  if (!zelXmlReplaceObject(cachedDOMDocument(), old, replacement, clone)) return false;
  ApiPmSessionManager::the().cacheNode(DOMDocument(), id, clone);
  return true;
}

bool ZelXmlWrapper::accumulateMissingChildren(const IXMLDOMNode& replacement, const IXMLDOMNode& old,
                                              RWClassicTValOrderedVector<_bstr_t>& missing) {
  IXMLDOMNodeList newItems;
  IXMLDOMNodeList oldItems;
  if (!zelXmlSelectChildren(replacement, "children/item", newItems) ||
      !zelXmlSelectChildren(old, "children/item", oldItems)) {
    return false;
  }
  std::unordered_set<std::string, RWTextHash> kept;
  for (const IXMLDOMNode& item : newItems) kept.insert(item.text());
  for (const IXMLDOMNode& item : oldItems) {
    std::string text = item.text();
    if (!kept.count(text)) missing.append(std::move(text));
  }
  return true;
}

bool ZelXmlWrapper::addNewChildToExistingParent(const IXMLDOMNode& element) {
  ApiPmId id;
  ZelNode* node = zelXmlGetExternalId(element, id) ? getZelNodeFromId(id) : nullptr;
  if (!node) return true;
  if (node->type() == ZEL_EQUIPMENT_PROTOTYPE_OCCURRENCE) {
    std::string parent;
    return !zelXmlGetParentPrototype(element, parent) || refreshParentWithNewChild(ApiPmId(parent), node);
  }
  IXMLDOMNodeList parents;
  if (!zelXmlSelectChildren(element, "parents/item", parents)) return true;
  for (const IXMLDOMNode& parent : parents) {
    if (!refreshParentWithNewChild(ApiPmId(parent.text()), node)) return false;
  }
  return true;
}

bool ZelXmlWrapper::removeMissingNodes(const RWClassicTValOrderedVector<_bstr_t>& missing,
                                       const ApiPmIdSet& seen, ApiPmIdList& deleted) {
  for (const _bstr_t& text : missing) {
    const ApiPmId id(text);
    if (seen.contains(id)) continue;  // it moved
    IXMLDOMElement element;
    if (!cachedDOMDocument().getNodeById(DOMDocument(), id, element, true) ||
        !zelXmlRemoveCachedElement(cachedDOMDocument(), element)) {
      return false;
    }
    if (!getZelNodeFromId(id)) continue;
    removeAndDeleteNodeObject(id);
    deleted.append(id);
  }
  return true;
}

bool ZelXmlWrapper::incrementalUpdate(bool download) {
  ApiPmIdList updated;
  return incrementalUpdate(updated, download);
}

bool ZelXmlWrapper::incrementalUpdate(ApiPmIdList& updated, bool download) {
  const bool prepared = preBuild(updateDocument_, download);
  collectToolInstanceMasterObjects(updateDocument_);
  const auto updateNode = [&](const IXMLDOMNode& family) {
    ApiPmId id;
    updateXmlNodeIncremental(family, id);
    if (!id.isNull()) updated.append(id);
  };
  if (!prepared || !visitFamilies(updateDocument_, DOMDocument(), updateNode)) return prepared;
  refreshRoots();
  return prepared;
}

void ZelXmlWrapper::updateXmlNodeIncremental(const IXMLDOMNode& familyElement, ApiPmId& id) {
  const IXMLDOMNode element = objectOf(familyElement);
  ApiPmId own;
  if (!zelXmlGetExternalId(element, own)) return;
  std::string buffer;
  const std::string_view family = familyElement.textView(buffer);
  IXMLDOMElement old;
  if (!cachedDOMDocument().isNodeCached(own)) {
    if (appendNewXmlNode(element, family)) addNewChildToExistingParentIncremental(element);
  } else if (family == "Study" && cachedDOMDocument().getNodeById(DOMDocument(), own, old, true)) {
    updateExistingXmlNode(element, old);
  }
  if (getZelNodeFromId(own)) id = own;
}

bool ZelXmlWrapper::addNewChildToExistingParentIncremental(const IXMLDOMNode& element) {
  IXMLDOMNodeList parents;
  ApiPmId id;
  if (!zelXmlSelectChildren(element, "parents/item", parents) || !zelXmlGetExternalId(element, id))
    return true;
  ZelNode* node = getZelNodeFromId(id);
  if (!node) return true;
  for (const IXMLDOMNode& item : parents) {
    if (!refreshParentWithNewChild(ApiPmId(item.text()), node)) return false;
  }
  return true;
}

bool ZelXmlWrapper::replaceDOMDocumentNode(const ApiPmId& id, const IXMLDOMElement& element) {
  IXMLDOMNode old;
  IXMLDOMNode section;
  if (!zelXmlFindNodeById(DOMDocument(), id, old) || !zelXmlGetObjectsSection(DOMDocument(), section) ||
      !zelXmlAppendChild(section, element)) {
    return false;
  }
  if (ZelXmlNode* node = zelXmlNodeFromId(id)) node->takeElement(element);
  return cachedDOMDocument().replaceCachedNode(DOMDocument(), id, element) && zelXmlRemoveChild(section, old);
}

bool ZelXmlWrapper::update3DRepId(ApiPmIdList& ids) {
  for (const ApiPmId& id : ids) {
    IXMLDOMNode element;
    IXMLDOMNode update;
    if (!zelXmlFindNodeById(DOMDocument(), id, element) || !zelXmlFindNodeById(updateDocument_, id, update)) {
      continue;
    }
    if (!transferReference("threeDRep", update, element)) return false;
    IXMLDOMNode rep;
    IXMLDOMNode updateRep;
    if (zelXmlGetReferencedNode(DOMDocument(), element, "threeDRep", rep) &&
        zelXmlGetReferencedNode(updateDocument_, update, "threeDRep", updateRep) &&
        !transferReference("file", updateRep, rep)) {
      return false;
    }
  }
  return true;
}

bool ZelXmlWrapper::transferReference(std::string_view field, const IXMLDOMNode& from,
                                      const IXMLDOMNode& to) {
  IXMLDOMNode source;
  IXMLDOMNode target;
  std::string newText;
  if (!zelXmlSelectChild(from, field, source) || !zelXmlGetText(source, newText) || newText.empty())
    return true;
  if (zelXmlSelectChild(to, field, target)) {
    const ApiPmId oldId(target.text());
    return !cachedDOMDocument().replaceCachedNodeId(oldId, ApiPmId(newText)) ||
           zelXmlSetText(target, newText);
  }
  // A copy: the update document keeps its field. The object that it names comes along.
  ApiPmXmlCachedDocument* cached = nullptr;
  IXMLDOMElement named;
  const IXMLDOMNode copy = source.cloneNode(true);
  return zelXmlAppendChild(to, copy) &&
         (!ApiPmXmlCacheDocumentMgr::the().getCachedDocument(updateDocument_, cached) ||
          !cached->getNodeById(updateDocument_, ApiPmId(newText), named, true) ||
          zelXmlPublishUpdate(DOMDocument(), named));
}
