#pragma once

#include <array>
#include <string>

#include "Plan.h"

namespace zelgen {

/// Writes the objects of a plan in the order of their serials. What only concerns an object's text (its
/// name, its remark) is decided here; what another object must agree with comes from the plan.
class StudyWriter {
 public:
  StudyWriter(const Plan& plan, XmlWriter& xml) : plan_(plan), xml_(xml) {}

  /// The whole document. Stops early when the writer's sink has refused a stretch.
  void write();

 private:
  void writeStudy();
  void writeShortcut(std::uint32_t index);
  void writePrototype(std::uint32_t index);
  void writeTree(std::uint32_t index);
  void writeNode(const TreePlan& treePlan, const Tree& tree, std::uint32_t index,
                 const std::string& treeName);
  void writeLabel(Serial label, Serial node, std::uint32_t number);
  void writeProcess(std::uint32_t index);
  void writeOperationPlc(Serial operation, std::uint64_t seed);
  void writeFlow(Serial flow, Serial from, Serial to, std::uint64_t seed);

  /// The parts of an object that all kinds share.
  void reference(std::string_view field, Serial target) { xml_.text(field, plan_.id(target)); }
  static std::uint64_t numberOf(Serial serial) { return std::uint64_t{serial} + 1; }
  void nodeInfo(std::string_view family, Serial serial, const Placement* absolute = nullptr) {
    xml_.nodeInfo(family, numberOf(serial), absolute);
  }
  void signal(std::string_view holder, const IdText& id, std::string_view type, Serial operation);

  std::string treeName(std::uint32_t index) const;
  std::string processName(std::uint32_t index) const;

  const Plan& plan_;
  XmlWriter& xml_;
};

}  // namespace zelgen
