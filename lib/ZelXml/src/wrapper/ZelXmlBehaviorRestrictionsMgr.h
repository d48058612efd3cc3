#pragma once

#include "zel/ZelBehaviorRestrictionsMgr.h"

// XML studies restrict nothing.
class ZelXmlBehaviorRestrictionsMgr : public ZelBehaviorRestrictionsMgr {
 public:
  bool isUnrestricted() const override { return true; }
  const RWClassicTValOrderedVector<RWClassicWString>& restrictedBehaviors() const override {
    static const RWClassicTValOrderedVector<RWClassicWString> none(64);
    return none;
  }
};
