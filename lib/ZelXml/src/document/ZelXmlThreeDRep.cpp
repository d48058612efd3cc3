#include "document/ZelXmlThreeDRep.h"

#include <algorithm>

#include "api/ApiPmIds.h"
#include "api/ApiPmSessionManager.h"
#include "api/ApiSysFileName.h"
#include "api/LocalFilesCacheClientFilesManager.h"
#include "document/ZelXmlLookup.h"
#include "document/ZelXmlStream.h"

namespace {

std::string lowerCase(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  return text;
}

// Without the "\\" at its end.
std::string_view systemRoot() {
  const std::string_view root = ApiPmSessionManager::the().systemRoot;
  return root.substr(0, root.find_last_not_of('\\') + 1);
}

// Without a root no path lies below it.
bool isBelow(const ApiSysFileName& path, const ApiSysFileName& root) {
  const std::string directory = root.asString(true);
  // The common directory is taken in the root's spelling, so that its separators agree.
  return !directory.empty() && lowerCase(directory) == lowerCase(root.commonDir(path).asString(true));
}

}  // namespace

bool zelXmlResolveFileName(std::string_view stored, std::string& resolved) {
  if (stored.empty()) return false;
  if (stored.front() != '#') {
    resolved = stored;
    return true;
  }
  stored.remove_prefix(1);
  stored.remove_prefix(std::min(stored.find_first_not_of('\\'), stored.size()));
  resolved = std::string(systemRoot()).append("\\").append(stored);
  return true;
}

bool zelXmlMakeRootRelative(std::string_view path, std::string& stored) {
  const ApiSysFileName name(path), root(systemRoot());
  // Without a root, a "#" name resolves to one that begins with a single separator: what was read is kept.
  if (systemRoot().empty() && path.starts_with('\\') && !path.starts_with("\\\\"))
    stored = "#" + std::string(path);
  else
    stored = isBelow(name, root) ? "#\\" + name.relative(root).asString(false) : name.asString(false);
  return true;
}

bool zelXmlSourcePathForFile(std::string_view path, std::string& source) {
  LocalFilesCacheClientFilesManager& client = LocalFilesCacheClientFilesManager::the();
  std::string name(path), origin;
  if (client.isActive()) {
    if (client.getSourcePath(name, origin))
      name = std::move(origin);
    else
      client.setOwnSourcePath(name);
  }
  source = std::move(name);
  return true;
}

bool zelXmlGetReferenceFileElement(const IXMLDOMDocument& document, const IXMLDOMNode& rep,
                                   IXMLDOMNode& element) {
  IXMLDOMNode file;
  return zelXmlGetReferencedNode(document, rep, "file", file) && zelXmlSelectChild(file, "fileName", element);
}

bool zelXmlGetReferenceFileName(const IXMLDOMDocument& document, const IXMLDOMNode& rep, std::string& text) {
  IXMLDOMNode element;
  return zelXmlGetReferenceFileElement(document, rep, element) && zelXmlGetWideText(element, text);
}

bool zelXmlSetReferenceFileName(const IXMLDOMDocument& document, const IXMLDOMNode& rep,
                                std::string_view name) {
  IXMLDOMNode element;
  return zelXmlGetReferenceFileElement(document, rep, element) && zelXmlSetWideText(element, name);
}

bool zelXmlGetThreeDRepPath(const IXMLDOMDocument& document, const IXMLDOMNode& rep, std::string& path) {
  std::string stored;
  if (!zelXmlGetReferenceFileName(document, rep, stored) || !zelXmlResolveFileName(stored, path))
    return false;
  LocalFilesCacheClientFilesManager& client = LocalFilesCacheClientFilesManager::the();
  if (!client.isActive() || path.empty()) return true;
  std::string local;
  const bool isThere = client.getDownloadedPath(path, local, true);
  path = std::move(local);
  return isThere;
}

bool zelXmlSetThreeDRepPath(const IXMLDOMDocument& document, const IXMLDOMNode& rep, std::string_view path) {
  std::string source, stored;
  return zelXmlSourcePathForFile(path, source) && zelXmlMakeRootRelative(source, stored) &&
         zelXmlSetReferenceFileName(document, rep, stored);
}

bool zelXmlCreateThreeDRep(const IXMLDOMDocument& document, IXMLDOMNode& rep) {
  IXMLDOMNode file, made;
  std::string fileId;
  if (!zelXmlAddObjectElement(document, "PmReferenceFile", api::newGuidText(), file)) return false;
  if (!zelXmlAddChildWithText(document, file, "fileName", "")) return false;
  if (!zelXmlGetExternalId(file, fileId)) return false;
  if (!zelXmlAddObjectElement(document, "Pm3DRep", api::newGuidText(), made)) return false;
  if (!zelXmlAddChildWithText(document, made, "file", fileId)) return false;
  rep = std::move(made);
  return true;
}
