#pragma once

#include "zel/ZelNode.h"

// A product object that stands for the state of a product after an operation.
class ZelVorProcessAssembly : public ZelNode {
 public:
  static constexpr InterfaceType interfaceType = VorProcessAssembly;
  static ZelVorProcessAssembly* queryZelVorProcessAssembly(ZelNode* node) {
    return zelQuery<ZelVorProcessAssembly>(node);
  }

  virtual bool getThreeDRepPath(ApiFullPathDocument& path) const = 0;
  virtual bool getAssemblyType(int& assemblyType) const = 0;
  virtual bool getOperation(ApiPmId& operation) const = 0;
  // True, and does nothing.
  virtual bool reserved() = 0;

  // The operation of a process assembly and the reverse, as the host's table of pairs has them; false for an
  // id without a pair.
  static bool getOperationFromProcessAssembly(const ApiPmId& assembly, ApiPmId& operation);
  static bool getProcessAssemblyFromOperation(const ApiPmId& operation, ApiPmId& assembly);
  // Pairs the two; former pairs of either go. A null operation drops the pair of the assembly.
  static void pairWithOperation(const ApiPmId& assembly, const ApiPmId& operation);
};
