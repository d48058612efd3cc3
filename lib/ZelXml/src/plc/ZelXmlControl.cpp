#include "plc/ZelXmlControl.h"

#include "document/ZelXmlFunctions.h"
#include "plc/ZelXmlPlcNodes.h"

namespace {

ZelNode* createCall(ZelXmlPlcInternalNode& owner, ZelNodeType type, const ApiPmId& id) {
  IXMLDOMNode calls;
  return zelXmlGetOrAddChild(owner.getXmlNode(), zelControlFields.CallsToCtrls.name, calls)
             ? createPlcControlCall(owner.getWrapper(), calls, "item", type, id)
             : nullptr;
}

bool adoptCalls(ZelXmlPlcInternalNode& owner) {
  return zelXmlAdoptAll(owner.getWrapper(), owner.getXmlNode(), "CallsToCtrls/item/*", adoptPlcControlCall);
}

}  // namespace

ZelNode* ZelXmlControl::createCallToControl(ZelNodeType type, const ApiPmId& id) {
  return createCall(*this, type, id);
}

bool ZelXmlControl::createSubnodes() { return adoptCalls(*this); }

bool ZelXmlControl::removeRequisites() {
  ZelXmlNodeHost* wrapper = getWrapper();
  if (!wrapper) return false;
  ApiPmIdList calls;
  getCallsToControls(calls);
  wrapper->removeAndDeletePlcInternalNodes(calls);
  return true;
}

ZelNode* ZelXmlControlCall::createCallToControl(ZelNodeType type, const ApiPmId& id) {
  return createCall(*this, type, id);
}

ZelNode* ZelXmlControlCall::createElseCompoundControlCall(ZelNodeType type, const ApiPmId& id) {
  return createPlcControlCall(getWrapper(), getXmlNode(), zelControlCallFields.ElseCompoundControlCall.name,
                              type, id);
}

bool ZelXmlControlCall::createSubnodes() {
  if (!adoptCalls(*this)) return false;
  IXMLDOMNode element;
  if (!zelXmlGetFirstChild(getXmlNode(), zelControlCallFields.ElseCompoundControlCall.name, element))
    return true;
  ZelNode* call = adoptPlcControlCall(getWrapper(), element);
  return call && zelXmlElementNodeOf(call)->createSubnodes();
}

bool ZelXmlControlCall::removeRequisites() {
  ZelXmlNodeHost* wrapper = getWrapper();
  if (!wrapper) return false;
  ApiPmIdList calls;
  ApiPmId elseCall;
  getCallsToControls(calls);
  const bool found = getElseCompoundControlCall(elseCall);
  if (found) calls.append(elseCall);
  wrapper->removeAndDeletePlcInternalNodes(calls);  // this call may be among them
  return found;
}
