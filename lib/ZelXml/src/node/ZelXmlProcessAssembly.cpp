#include "node/ZelXmlProcessAssembly.h"

#include <unordered_map>

#include "document/ZelXmlFunctions.h"
#include "node/ZelXmlNodeHost.h"

bool ZelXmlProcessAssembly::getOperation(ApiPmId& operation) const {
  ApiPmId own;
  return readId(own) && getOperationFromProcessAssembly(own, operation);
}

bool ZelXmlProcessAssembly::getLocation(RTTran3D& location) const {
  ApiPmId own;
  ApiPmId shortcut;
  if (getWrapper() && zelXmlGetExternalId(getXmlNode(), own) &&
      getWrapper()->shortcutFinder().findShortcut(own, shortcut)) {
    return readLocation(location);
  }
  location = RTTran3D::unit;
  return true;
}

bool ZelXmlProcessAssembly::getAbsoluteLocation(RTTran3D& location) const {
  location = RTTran3D::unit;
  return true;
}

bool ZelXmlProcessAssembly::validateRelevantParent() {
  ApiPmId own;
  ApiPmId relevant;
  ApiPmIdList parents;
  if (!getWrapper() || !zelXmlGetExternalId(getXmlNode(), own) ||
      !zelXmlGetParentItemIds(getXmlNode(), parents)) {
    return true;
  }
  ZelXmlParentFinder& finder = getWrapper()->relevantParentFinder();
  if (finder.findRelevantParent(own, relevant) && parents.contains(relevant)) return true;
  for (const ApiPmId& parent : parents) {
    IXMLDOMNode element;
    if (zelXmlFindInDocuments(parent, document(), getWrapper()->updateDocument(), element) &&
        element.nodeName() == "PmDvProcessAssembly") {
      getWrapper()->addParentAndChildToRelevantParentFinder(element, own, true);
      return true;
    }
  }
  finder.removeRelevantParent(own);
  return true;
}

namespace {

struct OperationPairs {
  std::unordered_map<ApiPmId, ApiPmId> operationOf;
  std::unordered_map<ApiPmId, ApiPmId> assemblyOf;
};

OperationPairs& operationPairs() {
  static OperationPairs& pairs = *new OperationPairs;
  return pairs;
}

bool look(const std::unordered_map<ApiPmId, ApiPmId>& pairs, const ApiPmId& id, ApiPmId& other) {
  const auto found = pairs.find(id);
  if (found == pairs.end()) return false;
  other = found->second;
  return true;
}

}  // namespace

bool ZelVorProcessAssembly::getOperationFromProcessAssembly(const ApiPmId& assembly, ApiPmId& operation) {
  return look(operationPairs().operationOf, assembly, operation);
}

bool ZelVorProcessAssembly::getProcessAssemblyFromOperation(const ApiPmId& operation, ApiPmId& assembly) {
  return look(operationPairs().assemblyOf, operation, assembly);
}

void ZelVorProcessAssembly::pairWithOperation(const ApiPmId& assembly, const ApiPmId& operation) {
  OperationPairs& pairs = operationPairs();
  ApiPmId former;
  if (look(pairs.operationOf, assembly, former)) pairs.assemblyOf.erase(former);
  if (look(pairs.assemblyOf, operation, former)) pairs.operationOf.erase(former);
  pairs.operationOf.erase(assembly);
  if (operation.isNull()) return;
  pairs.operationOf[assembly] = operation;
  pairs.assemblyOf[operation] = assembly;
}
