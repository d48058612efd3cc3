#include "api/ApiPlcSimulationProperty.h"

bool ApiPlcSimulationProperty::name(RWClassicWString& name) const {
  if (name_) name = *name_;
  return name_.has_value();
}
