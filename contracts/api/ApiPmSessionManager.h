#pragma once

#include <cstdint>
#include <string>

#include "api/ApiPmIds.h"
#include "api/ApiPmXmlCachedDocument.h"

// The session: holds the study document with its index, and the settings of the run. Members start empty,
// zero or false. One per process; it belongs to one thread at a time.
class ApiPmSessionManager {
 public:
  static ApiPmSessionManager& the();
  ApiPmSessionManager(const ApiPmSessionManager&) = delete;
  ApiPmSessionManager& operator=(const ApiPmSessionManager&) = delete;
  virtual ~ApiPmSessionManager();

  // The study document with its index. Always there; its document is null while the session has none. The
  // reference is good until the session turns to another document.
  ApiPmXmlCachedDocument& cachedDocument();
  IXMLDOMDocument importedDocument();
  // Replaces the study document. The new one is registered with ApiPmXmlCacheDocumentMgr and all its object
  // elements are indexed in the call; the former one loses the registration it had from here.
  void setImportedDocumentAndDocRef(const IXMLDOMDocument& document, const ApiDocumentRef& reference);
  const ApiDocumentRef& documentRef() const;

  // From now on `element` is found under `id` in the index of `document`, before it stands in the tree too.
  // Nothing happens for a document that is not registered.
  void cacheNode(const IXMLDOMDocument& document, const ApiPmId& id, const IXMLDOMElement& element);

  // 1 and 2 are the modes in which variant sets are filled.
  virtual int sessionMode() const;

  std::string userName;
  ApiPmId projectId;
  ApiPmInternalId projectInternalId;
  std::string projectName;
  std::string rootNodeId;
  std::uint8_t rootNodeIdByte = 0;  // cleared when a root node id is read from a study
  std::int32_t variantFilter = 0;
  std::string systemRoot;  // directory that stored file names with a leading "#" are relative to
  bool localDocument = false;
  int mode = 0;                   // what sessionMode answers
  int modeField = 0;              // 2: a filtered study keeps comment and attachments
  int deleteMode = 0;             // 1: a node with one parent is deleted also without relevant parent
  std::int32_t sessionValue = 0;  // handed to the data store unchanged
  std::string operationClassName;
  std::string derivedOperationClassName;
  std::string ipaConditionDefinition;

 protected:
  ApiPmSessionManager();

 private:
  ApiPmXmlCachedDocument* cached_;
  ApiDocumentRef reference_;
};
