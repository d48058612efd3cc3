#pragma once

#include "zel/ZelNode.h"

// A call of a control block: an inner node (see ZelSignal), with calls below it and one as its else branch. A
// setter adds a field to the call's element beside one that is there and publishes nothing; a getter takes
// the first, and is false without it.
class ZelControlCall : public ZelNode {
 public:
  static constexpr InterfaceType interfaceType = ControlCall;
  static ZelControlCall* queryZelControlCall(ZelNode* node) { return zelQuery<ZelControlCall>(node); }

  // Field `Stream`: the call's content in serialised form.
  virtual bool setStream(const RWClassicWString& stream) = 0;
  virtual bool getStream(RWClassicWString& stream) const = 0;
  // Ids in fields of these names: the control that is called, its data block, the signal that it sets. A null
  // id is written as an empty field, and read as the null id, true.
  virtual bool setCalledControl(const ApiPmId& control) = 0;
  virtual bool getCalledControl(ApiPmId& control) const = 0;
  virtual bool setDataBlock(const ApiPmId& block) = 0;
  virtual bool getDataBlock(ApiPmId& block) const = 0;
  virtual bool setTargetSig(const ApiPmId& signal) = 0;
  virtual bool getTargetSig(ApiPmId& signal) const = 0;
  // Field `SourceExpr`: an expression.
  virtual bool setSourceExpr(const RWClassicWString& expression) = 0;
  virtual bool getSourceExpr(RWClassicWString& expression) const = 0;
  // As in ZelControl.
  virtual ZelNode* createCallToControl(ZelNodeType type, const ApiPmId& id) = 0;
  virtual bool getCallsToControls(ApiPmIdList& calls) const = 0;
  // The call of the else branch, in the holder `ElseCompoundControlCall`.
  virtual ZelNode* createElseCompoundControlCall(ZelNodeType type, const ApiPmId& id) = 0;
  virtual bool getElseCompoundControlCall(ApiPmId& id) const = 0;
  // Two slots without meaning, kept for the order of the table.
  virtual bool reservedTrue() { return true; }
  virtual bool reservedFalse() { return false; }
};
