#pragma once

#include <optional>
#include <utility>

#include "rw/RWClassicText.h"

// A property of parts that a simulation knows by its name. One made without argument has no name; the empty
// text is a name.
class ApiPlcSimulationProperty {
 public:
  ApiPlcSimulationProperty() = default;
  explicit ApiPlcSimulationProperty(RWClassicWString name) : name_(std::move(name)) {}

  // False, and `name` untouched, without one.
  bool name(RWClassicWString& name) const;
  friend bool operator==(const ApiPlcSimulationProperty&, const ApiPlcSimulationProperty&) = default;

 private:
  std::optional<RWClassicWString> name_;
};
