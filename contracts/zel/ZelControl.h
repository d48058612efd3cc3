#pragma once

#include "zel/ZelNode.h"

// A control block: an inner node (see ZelSignal) that calls others.
class ZelControl : public ZelNode {
 public:
  static constexpr InterfaceType interfaceType = Control;
  static ZelControl* queryZelControl(ZelNode* node) { return zelQuery<ZelControl>(node); }

  // Makes a call at the end of the list `CallsToCtrls`.
  virtual ZelNode* createCallToControl(ZelNodeType type, const ApiPmId& id) = 0;
  // Appends the ids of the calls in order, those of calls below them left out. A call without id ends it with
  // false; no list is true.
  virtual bool getCallsToControls(ApiPmIdList& calls) const = 0;
  // Field `Stream`: the block's content in serialised form. Writing adds a field; reading takes the first.
  virtual bool setStream(const RWClassicWString& stream) = 0;
  virtual bool getStream(RWClassicWString& stream) const = 0;
  // Two slots without meaning, kept for the order of the table.
  virtual bool reservedTrue() { return true; }
  virtual bool reservedFalse() { return false; }
};
