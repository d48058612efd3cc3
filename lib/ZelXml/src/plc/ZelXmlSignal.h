#pragma once

#include "plc/ZelXmlPlcInternalNode.h"
#include "zel/ZelSignal.h"
#include "zel/ZelSignalInstance.h"

class ZelXmlSignal final
    : public ZelXmlPlcNodeClass<ZelXmlSignal, ZelXmlPlcInternalNode, ZEL_SIGNAL, ZelSignal> {
 public:
  ZelNodeType type() const override { return readType(ZEL_SIGNAL); }

  bool setStream(const RWClassicWString& v) override {
    return zelXmlSetField(*this, zelSignalFields.Stream, v);
  }
  bool getStream(RWClassicWString& v) const override {
    return zelXmlGetField(*this, zelSignalFields.Stream, v);
  }
  bool setSigOp(const ApiPmId& v) override { return zelXmlSetField(*this, zelSignalFields.SigOp, v); }
  bool getSigOp(ApiPmId& v) const override { return zelXmlGetField(*this, zelSignalFields.SigOp, v); }
  bool setSigSFC(const ApiPmId& v) override { return zelXmlSetField(*this, zelSignalFields.SigSFC, v); }
  bool getSigSFC(ApiPmId& v) const override { return zelXmlGetField(*this, zelSignalFields.SigSFC, v); }
  bool setSigTar(const ApiPmId& v) override { return zelXmlSetField(*this, zelSignalFields.SigTar, v); }
  bool getSigTar(ApiPmId& v) const override { return zelXmlGetField(*this, zelSignalFields.SigTar, v); }
  bool setSigDev(const ApiPmId& v) override { return zelXmlSetField(*this, zelSignalFields.SigDev, v); }
  bool getSigDev(ApiPmId& v) const override { return zelXmlGetField(*this, zelSignalFields.SigDev, v); }
  bool setSigPose(const RWClassicWString& v) override {
    return zelXmlSetField(*this, zelSignalFields.SigPose, v);
  }
  bool getSigPose(RWClassicWString& v) const override {
    return zelXmlGetField(*this, zelSignalFields.SigPose, v);
  }
  bool setProperty(const RWClassicWString& v) override {
    return zelXmlSetField(*this, zelSignalFields.Property, v);
  }
  bool getProperty(RWClassicWString& v) const override {
    return zelXmlGetField(*this, zelSignalFields.Property, v);
  }
  bool setSigExternalConnectionName(const RWClassicWString& v) override {
    return zelXmlSetField(*this, zelSignalFields.SigExternalConnectionName, v);
  }
  bool getSigExternalConnectionName(RWClassicWString& v) const override {
    return zelXmlGetField(*this, zelSignalFields.SigExternalConnectionName, v) ||
           zelXmlGetField(*this, zelSignalFields.SigOpcConnectionName, v);
  }
};

class ZelXmlSignalInstance final : public ZelXmlPlcNodeClass<ZelXmlSignalInstance, ZelXmlPlcInternalNode,
                                                             ZEL_SIGNAL_INSTANCE, ZelSignalInstance> {
 public:
  bool setEntries(const ApiPmIdList& ids, const GlobalIds& guids) override {
    return addPairs("Entries", ids, guids);
  }
  bool getEntries(ApiPmIdList& ids, GlobalIds& guids) const override {
    return readPairs("Entries", ids, guids);
  }
  bool setExits(const ApiPmIdList& ids, const GlobalIds& guids) override {
    return addPairs("Exits", ids, guids);
  }
  bool getExits(ApiPmIdList& ids, GlobalIds& guids) const override { return readPairs("Exits", ids, guids); }

 private:
  bool addPairs(std::string_view list, const ApiPmIdList& ids, const GlobalIds& guids);
  bool readPairs(std::string_view list, ApiPmIdList& ids, GlobalIds& guids) const;
};
