#pragma once

#include "plc/ZelXmlPlcInternalNode.h"
#include "plc/ZelXmlPlcNodes.h"
#include "zel/ZelPropertyProjector.h"

class ZelXmlPropertyProjector final
    : public ZelXmlPlcNodeClass<ZelXmlPropertyProjector, ZelXmlNamedPlcInternalNode, ZEL_PROPERTY_PROJECTOR,
                                ZelPropertyProjector> {
 public:
  bool createSubnodes() override;
  // Whether all its signals have ids is the answer.
  bool removeRequisites() override;

  ZelNode* createSignal(ZelNodeType type, const ApiPmId& id) override {
    return zelXmlCreateSignal(*this, zelPropertyProjectorFields.PPSignals, type, id);
  }
  bool getSignalOfProperty(const RWClassicWString& property, ApiPmId& id) const override;
  bool setParts(const ApiPmIdList& v) override {
    return zelXmlSetField(*this, zelPropertyProjectorFields.PartsRefs, v);
  }
  bool getParts(ApiPmIdList& parts) const override;
  bool setRangeValue(double v) override {
    return zelXmlSetField(*this, zelPropertyProjectorFields.RangeValue, v);
  }
  bool getRangeValue(double& v) const override {
    return zelXmlGetField(*this, zelPropertyProjectorFields.RangeValue, v);
  }
  bool setProperties(const SimulationProperties& properties) override;
  bool getProperties(SimulationProperties& properties) const override;
  bool setSimulated(bool v) override {
    return zelXmlSetField(*this, zelPropertyProjectorFields.Simulated, v);
  }
  bool getSimulated(bool& v) const override {
    return zelXmlGetField(*this, zelPropertyProjectorFields.Simulated, v);
  }
};
