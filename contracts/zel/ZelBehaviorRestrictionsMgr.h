#pragma once

#include "rw/RWClassicTValOrderedVector.h"
#include "rw/RWClassicText.h"

// Which behaviours of nodes a wrapper does not allow.
class ZelBehaviorRestrictionsMgr {
 public:
  virtual ~ZelBehaviorRestrictionsMgr() = default;
  virtual bool isUnrestricted() const = 0;
  virtual const RWClassicTValOrderedVector<RWClassicWString>& restrictedBehaviors() const = 0;
};
