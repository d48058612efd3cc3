#pragma once

#include "api/ApiPlcSimulationProperty.h"
#include "zel/ZelNode.h"

// Something that gives parts in its range properties, each by a signal: an inner node. For what holds of all
// values see ZelDeviceSensor.
class ZelPropertyProjector : public ZelNode {
 public:
  using SimulationProperties = RWClassicTValOrderedVector<ApiPlcSimulationProperty>;
  static constexpr InterfaceType interfaceType = PropertyProjector;
  static ZelPropertyProjector* queryZelPropertyProjector(ZelNode* node) {
    return zelQuery<ZelPropertyProjector>(node);
  }

  // A signal at the end of the list `PPSignals`. It names its property itself (ZelSignal::setProperty).
  virtual ZelNode* createSignal(ZelNodeType type, const ApiPmId& id) = 0;
  // The first signal of the list that names this property; names compare exactly. False without one, and at a
  // signal ahead of it that names none.
  virtual bool getSignalOfProperty(const RWClassicWString& property, ApiPmId& id) const = 0;
  // List `PartsRefs`. Setting adds a list. Reading replaces `parts` by the entries of all lists, repeated ids
  // kept; no list is true.
  virtual bool setParts(const ApiPmIdList& parts) = 0;
  virtual bool getParts(ApiPmIdList& parts) const = 0;
  // Field `RangeValue`: a length.
  virtual bool setRangeValue(double range) = 0;
  virtual bool getRangeValue(double& range) const = 0;
  // List `Properties`. Setting adds a list; one without name stops it with false, the ones before it and an
  // entry without name stay. Reading replaces `properties` by the entries of all lists; an entry without name
  // ends it with false; no list is true.
  virtual bool setProperties(const SimulationProperties& properties) = 0;
  virtual bool getProperties(SimulationProperties& properties) const = 0;
  // Field `Simulated`.
  virtual bool setSimulated(bool simulated) = 0;
  virtual bool getSimulated(bool& simulated) const = 0;
};
