#pragma once

#include "document/ZelXmlPlcFieldRows.h"
#include "node/ZelXmlConcreteNode.h"
#include "node/ZelXmlNewElements.h"
#include "plc/ZelXmlPlcNodes.h"
#include "zel/ZelLink.h"
#include "zel/ZelMaterialFlow.h"
#include "zel/ZelOperation.h"
#include "zel/ZelPlcLink.h"
#include "zel/ZelPlcOperation.h"
#include "zel/ZelVorCompoundOperation.h"

// The process side of a study: operations, the flows between them, and flows of material.

template <class Self>
class ZelXmlFace<ZelPlcOperation, Self> : public ZelXmlPlcServicesFace<ZelPlcOperation, Self> {};
template <class Self>
class ZelXmlFace<ZelPlcLink, Self> : public ZelXmlPlcServicesFace<ZelPlcLink, Self> {};
template <class Self>
class ZelXmlFace<ZelMaterialFlow, Self> : public ZelXmlPlcServicesFace<ZelMaterialFlow, Self> {};

class ZelXmlOperation final
    : public ZelXmlConcreteNode<ZelXmlOperation, ZelXmlNode, ZEL_OPERATION, ZelOperation, ZelPlcOperation,
                                ZelVorNode, ZelVorCompoundOperation> {
 public:
  // The nodes of its three signals.
  bool createSubnodes() override;
  bool removeRequisites() override;

  ZelNode* createStartingSig(ZelNodeType type, const ApiPmId& id) override {
    return zelXmlCreateSignal(*this, zelOperationFields.StartingSig, type, id);
  }
  bool getStartingSig(ApiPmId& id) const override {
    return zelXmlGetField(*this, zelOperationFields.StartingSig, id);
  }
  ZelNode* createEndingSig(ZelNodeType type, const ApiPmId& id) override {
    return zelXmlCreateSignal(*this, zelOperationFields.EndingSig, type, id);
  }
  bool getEndingSig(ApiPmId& id) const override {
    return zelXmlGetField(*this, zelOperationFields.EndingSig, id);
  }
  ZelNode* createMemorySig(ZelNodeType type, const ApiPmId& id) override {
    return zelXmlCreateSignal(*this, zelOperationFields.MemorySig, type, id);
  }
  bool getMemorySig(ApiPmId& id) const override {
    return zelXmlGetField(*this, zelOperationFields.MemorySig, id);
  }
  bool setTransition(const RWClassicWString& v) override {
    return zelXmlSetField(*this, zelOperationFields.Transition, v);
  }
  bool getTransition(RWClassicWString& v) const override {
    return zelXmlGetField(*this, zelOperationFields.Transition, v);
  }
  bool setGoToOperation(const ApiPmId& v) override {
    return zelXmlSetField(*this, zelOperationFields.GoToOperation, v);
  }
  bool getGoToOperation(ApiPmId& v) const override {
    return zelXmlGetField(*this, zelOperationFields.GoToOperation, v);
  }
  bool setJumpToEnd(bool v) override { return zelXmlSetField(*this, zelOperationFields.JumpToEnd, v); }
  bool getJumpToEnd(bool& v) const override { return zelXmlGetField(*this, zelOperationFields.JumpToEnd, v); }
  bool setUseDfltAction(bool v) override {
    return zelXmlSetField(*this, zelOperationFields.UseDfltAction, v);
  }
  bool getUseDfltAction(bool& v) const override {
    return zelXmlGetField(*this, zelOperationFields.UseDfltAction, v);
  }
  bool setJumpToStart(bool v) override { return zelXmlSetField(*this, zelOperationFields.JumpToStart, v); }
  bool getJumpToStart(bool& v) const override {
    return zelXmlGetField(*this, zelOperationFields.JumpToStart, v);
  }
  bool setInterlock(const RWClassicWString& v) override {
    return zelXmlSetField(*this, zelOperationFields.Interlock, v);
  }
  bool getInterlock(RWClassicWString& v) const override {
    return zelXmlGetField(*this, zelOperationFields.Interlock, v);
  }
  bool setSupervision(const RWClassicWString& v) override {
    return zelXmlSetField(*this, zelOperationFields.Supervision, v);
  }
  bool getSupervision(RWClassicWString& v) const override {
    return zelXmlGetField(*this, zelOperationFields.Supervision, v);
  }
  bool setJumpToEndCond(const RWClassicWString& v) override {
    return zelXmlSetField(*this, zelOperationFields.JumpToEndCond, v);
  }
  bool getJumpToEndCond(RWClassicWString& v) const override {
    return zelXmlGetField(*this, zelOperationFields.JumpToEndCond, v);
  }
  bool setJumpToStartCond(const RWClassicWString& v) override {
    return zelXmlSetField(*this, zelOperationFields.JumpToStartCond, v);
  }
  bool getJumpToStartCond(RWClassicWString& v) const override {
    return zelXmlGetField(*this, zelOperationFields.JumpToStartCond, v);
  }
  bool setStepActions(const RWClassicTValOrderedVector<RWClassicWString>& v) override {
    return zelXmlSetField(*this, zelOperationFields.StepActions, v);
  }
  bool getStepActions(RWClassicTValOrderedVector<RWClassicWString>& v) const override {
    return zelXmlGetField(*this, zelOperationFields.StepActions, v);
  }
  bool setShouldGenerateParts(bool v) override {
    return zelXmlSetField(*this, zelOperationFields.ShouldGenerateParts, v);
  }
  bool getShouldGenerateParts(bool& v) const override {
    return zelXmlGetField(*this, zelOperationFields.ShouldGenerateParts, v);
  }
  bool addEventSig(const RWClassicWString& key, const RWClassicWString& signal,
                   const RWClassicCString& value) override;
  bool getEventSigs(const RWClassicWString& key, ApiPmIdList& signals,
                    RWClassicTValOrderedVector<RWClassicCString>& values) const override;
  bool setInputMaterialFlows(const ApiPmIdList& flows) override;
  bool getInputMaterialFlows(ApiPmIdList& flows) const override;
  bool setOutputMaterialFlows(const ApiPmIdList& flows) override;
  bool getOutputMaterialFlows(ApiPmIdList& flows) const override;

  bool hasProcessResource(bool& has) const override;
  bool getProcessResource(RWClassicWString& resource) const override {
    return zelXmlGetWideString(getXmlNode(), zelProcessFields.processResource.name, resource);
  }

 private:
  bool findEvent(std::string_view key, IXMLDOMElement& event) const;
  bool makeEvent(std::string_view key, IXMLDOMElement& event);
  bool writeFlows(const ZelField<ApiPmIdList>& row, const ApiPmIdList& flows);
  bool readFlows(const ZelField<ApiPmIdList>& row, ApiPmIdList& flows) const;
};

class ZelXmlFlow final
    : public ZelXmlConcreteNode<ZelXmlFlow, ZelXmlNode, ZEL_FLOW, ZelLink, ZelVorNode, ZelPlcLink> {
 public:
  bool setBranchType(std::int32_t type) override {
    return zelXmlSetField(*this, zelFlowFields.BranchType, type);
  }
  bool getBranchType(std::int32_t& type) const override;
  bool setCondition(const RWClassicWString& condition) override {
    return zelXmlSetField(*this, zelFlowFields.Condition, condition);
  }
  bool getCondition(RWClassicWString& condition) const override {
    return zelXmlGetField(*this, zelFlowFields.Condition, condition);
  }
};

class ZelXmlMaterialFlow final
    : public ZelXmlConcreteNode<ZelXmlMaterialFlow, ZelXmlNode, ZEL_MATERIAL_FLOW, ZelMaterialFlow> {
 public:
  bool createXmlElement(const ZelXmlCreationRecord& record, IXMLDOMNode& element) override {
    return getWrapper() && zelXmlCreatePlainElement(*getWrapper(), record, element);
  }

  bool setMaterialPredecessor(const ApiPmId& step) override {
    return zelXmlSetField(*this, zelProcessFields.materialPredecessor, step);
  }
  bool getMaterialPredecessor(ApiPmId& step) const override {
    return zelXmlGetField(*this, zelProcessFields.materialPredecessor, step);
  }
  bool setMaterialSuccessor(const ApiPmId& step) override {
    return zelXmlSetField(*this, zelProcessFields.materialSuccessor, step);
  }
  bool getMaterialSuccessor(ApiPmId& step) const override {
    return zelXmlGetField(*this, zelProcessFields.materialSuccessor, step);
  }
  bool setBranchType(std::int32_t type) override {
    return zelXmlSetField(*this, zelMaterialFlowFields.BranchType, type);
  }
  bool getBranchType(std::int32_t& type) const override;
  bool setAlternativeGroup(const RWClassicCString& group) override {
    return zelXmlSetField(*this, zelMaterialFlowFields.AlternativeGroup, group);
  }
  bool getAlternativeGroup(RWClassicCString& group) const override {
    return zelXmlGetField(*this, zelMaterialFlowFields.AlternativeGroup, group);
  }
};
