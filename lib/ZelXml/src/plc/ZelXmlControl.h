#pragma once

#include "plc/ZelXmlPlcInternalNode.h"
#include "zel/ZelControl.h"
#include "zel/ZelControlCall.h"

class ZelXmlControl final
    : public ZelXmlPlcNodeClass<ZelXmlControl, ZelXmlPlcInternalNode, ZEL_CONTROL, ZelControl> {
 public:
  ZelNodeType type() const override { return readType(ZEL_CONTROL); }
  bool createSubnodes() override;
  // The calls right below alone: those below them keep their nodes.
  bool removeRequisites() override;

  ZelNode* createCallToControl(ZelNodeType type, const ApiPmId& id) override;
  bool getCallsToControls(ApiPmIdList& calls) const override {
    return zelXmlGetField(*this, zelControlFields.CallsToCtrls, calls);
  }
  bool setStream(const RWClassicWString& v) override {
    return zelXmlSetField(*this, zelControlFields.Stream, v);
  }
  bool getStream(RWClassicWString& v) const override {
    return zelXmlGetField(*this, zelControlFields.Stream, v);
  }
};

class ZelXmlControlCall final
    : public ZelXmlPlcNodeClass<ZelXmlControlCall, ZelXmlPlcInternalNode, ZEL_CONTROL_CALL, ZelControlCall> {
 public:
  ZelNodeType type() const override { return readType(ZEL_CONTROL_CALL); }
  bool createSubnodes() override;
  // As for a control, and the call of the else branch; whether there is one is the answer.
  bool removeRequisites() override;

  bool setStream(const RWClassicWString& v) override {
    return zelXmlSetField(*this, zelControlCallFields.Stream, v);
  }
  bool getStream(RWClassicWString& v) const override {
    return zelXmlGetField(*this, zelControlCallFields.Stream, v);
  }
  bool setCalledControl(const ApiPmId& v) override {
    return zelXmlSetField(*this, zelControlCallFields.CalledControl, v);
  }
  bool getCalledControl(ApiPmId& v) const override {
    return zelXmlGetField(*this, zelControlCallFields.CalledControl, v);
  }
  bool setDataBlock(const ApiPmId& v) override {
    return zelXmlSetField(*this, zelControlCallFields.DataBlock, v);
  }
  bool getDataBlock(ApiPmId& v) const override {
    return zelXmlGetField(*this, zelControlCallFields.DataBlock, v);
  }
  bool setTargetSig(const ApiPmId& v) override {
    return zelXmlSetField(*this, zelControlCallFields.TargetSig, v);
  }
  bool getTargetSig(ApiPmId& v) const override {
    return zelXmlGetField(*this, zelControlCallFields.TargetSig, v);
  }
  bool setSourceExpr(const RWClassicWString& v) override {
    return zelXmlSetField(*this, zelControlCallFields.SourceExpr, v);
  }
  bool getSourceExpr(RWClassicWString& v) const override {
    return zelXmlGetField(*this, zelControlCallFields.SourceExpr, v);
  }
  ZelNode* createCallToControl(ZelNodeType type, const ApiPmId& id) override;
  bool getCallsToControls(ApiPmIdList& calls) const override {
    return zelXmlGetField(*this, zelControlCallFields.CallsToCtrls, calls);
  }
  ZelNode* createElseCompoundControlCall(ZelNodeType type, const ApiPmId& id) override;
  bool getElseCompoundControlCall(ApiPmId& id) const override {
    return zelXmlGetField(*this, zelControlCallFields.ElseCompoundControlCall, id);
  }
};
