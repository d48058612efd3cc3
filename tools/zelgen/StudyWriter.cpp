#include "StudyWriter.h"

#include <string>

#include "ObjectWriter.h"
#include "Random.h"

namespace zelgen {
namespace {

template <std::size_t N>
std::string_view pick(const std::string_view (&words)[N], std::uint64_t seed) {
  return words[scatter(seed) % N];
}

constexpr std::string_view kAssemblies[] = {"Side panel", "Underbody", "Roof",      "Front door",
                                            "Tailgate",   "Dashboard", "Wheelhouse"};
constexpr std::string_view kParts[] = {"Bracket", "Reinforcement", "Flange", "Hinge", "Nut plate", "Sill"};
constexpr std::string_view kCells[] = {"Weld cell", "Assembly station", "Buffer", "Sealing line"};
constexpr std::string_view kTools[] = {"Robot", "Weld gun", "Gripper", "Turntable", "Conveyor", "Fixture"};
constexpr std::string_view kSteps[] = {"Load", "Clamp", "Weld", "Seal", "Inspect", "Unload"};

// Remarks hold what real ones hold: characters that need an escape and letters beyond ASCII.
constexpr std::string_view kRemarks[] = {"gap < 0.5 mm & flush", "checked, release \"B\"",
                                         "Spaltma\u00DF pr\u00FCfen", "\u6EB6\u63A5 12 points",
                                         "moved after the trial > 2 h"};

std::string numbered(std::string_view word, std::uint64_t number) {
  std::string name(word);
  name += ' ';
  name += std::to_string(number);
  return name;
}

}  // namespace

void StudyWriter::write() {
  const StudyOptions& options = plan_.options;
  xml_.raw("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Data>\n");
  // Enough to make the same plan again: what is made to go with this study starts from here.
  xml_.raw("<!-- zelgen objects=" + std::to_string(options.objects) +
           " seed=" + std::to_string(options.seed) + " depth=" + std::to_string(options.depth) +
           " shared=" + std::to_string(options.shared) + " study-class=" + options.studyClass + " -->\n");
  xml_.raw(options.pretty ? "  <Objects>\n" : "<Objects>\n");
  writeStudy();
  for (std::uint32_t i = 0; i < plan_.shortcuts() && !xml_.refused(); ++i) writeShortcut(i);
  for (std::uint32_t i = 0; i < plan_.prototypes() && !xml_.refused(); ++i) writePrototype(i);
  for (std::uint32_t i = 0; i < plan_.trees.size() && !xml_.refused(); ++i) writeTree(i);
  for (std::uint32_t i = 0; i < plan_.processes.size() && !xml_.refused(); ++i) writeProcess(i);
  xml_.raw(options.pretty ? "  </Objects>\n</Data>\n" : "</Objects>\n</Data>\n");
}

std::string StudyWriter::treeName(std::uint32_t index) const {
  const TreePlan& tree = plan_.trees[index];
  return numbered(tree.product ? pick(kAssemblies, tree.seed) : pick(kCells, tree.seed), index + 1);
}

std::string StudyWriter::processName(std::uint32_t index) const { return numbered("Process", index + 1); }

void StudyWriter::writeStudy() {
  xml_.beginObject(plan_.options.studyClass, plan_.id(Plan::kStudy));
  xml_.text("name", numbered("Study", plan_.options.seed));
  xml_.begin("children");
  for (std::uint32_t i = 0; i < plan_.shortcuts(); ++i) reference("item", plan_.shortcut(i));
  xml_.end("children");
  xml_.begin("info");
  for (std::uint32_t i = 0; i < plan_.shortcuts(); ++i) reference("item", plan_.shortcut(i) + 1);
  xml_.end("info");
  nodeInfo("Study", Plan::kStudy);
  xml_.endObject(plan_.options.studyClass);
}

void StudyWriter::writeShortcut(std::uint32_t index) {
  const Serial shortcut = plan_.shortcut(index), info = shortcut + 1, layout = shortcut + 2;
  const auto trees = static_cast<std::uint32_t>(plan_.trees.size());
  const bool ofTree = index < trees;
  zelgen::writeShortcut(xml_, plan_.id(shortcut), ofTree ? treeName(index) : processName(index - trees),
                        plan_.id(Plan::kStudy), plan_.id(plan_.shortcutTarget(index)), numberOf(shortcut));
  writeStudyInfo(xml_, plan_.options.studyClass + "Info", plan_.id(info), plan_.id(layout), numberOf(info));
  writeStudyLayout(xml_, plan_.id(layout), ofTree ? rootPlacement(plan_.trees[index]) : Placement{},
                   numberOf(layout));
}

void StudyWriter::writePrototype(std::uint32_t index) {
  const Serial prototype = plan_.prototype(index), rep = prototype + 1, file = prototype + 2;
  const bool part = index < plan_.partPrototypes;
  const std::uint64_t seed = plan_.options.seed + prototype;
  zelgen::writePrototype(xml_, part, plan_.id(prototype),
                         numbered(part ? pick(kParts, seed) : pick(kTools, seed), index + 1), plan_.id(rep),
                         static_cast<Millionths>(scatter(seed) % 500'000'000), numberOf(prototype));
  writeThreeDRep(xml_, plan_.id(rep), plan_.id(file), numberOf(rep));
  writeReferenceFile(
      xml_, plan_.id(file),
      std::string(part ? "#\\parts\\part" : "#\\tools\\tool") + std::to_string(index + 1) + ".jt",
      numberOf(file));
}

void StudyWriter::writeTree(std::uint32_t index) {
  const TreePlan& treePlan = plan_.trees[index];
  const Tree tree(plan_, treePlan);
  const std::string name = treeName(index);
  for (std::uint32_t i = 0; i < tree.nodes.size(); ++i) writeNode(treePlan, tree, i, name);
  const Serial firstLabel = treePlan.first + 2 * treePlan.nodes;
  for (std::uint32_t i = 0; i < tree.nodes.size(); ++i) {
    for (std::uint32_t k = 0; k < tree.nodes[i].labels; ++k) {
      writeLabel(firstLabel + tree.nodes[i].firstLabel + k, treePlan.first + 2 * i, k + 1);
    }
  }
}

void StudyWriter::writeNode(const TreePlan& treePlan, const Tree& tree, std::uint32_t index,
                            const std::string& treeName) {
  const Tree::Node& node = tree.nodes[index];
  const auto objectOf = [&](std::uint32_t i) { return treePlan.first + 2 * i; };
  const Serial object = objectOf(index), layout = object + 1;
  const std::uint64_t seed = treePlan.seed + index;
  static constexpr std::string_view kElements[2][3] = {
      {"PmCompoundResource", "PmToolInstance", "PmResourcePlaceholder"},
      {"PmCompoundPart", "PmPartInstance", "PmPartPlaceholder"}};
  const std::string_view element = kElements[treePlan.product][static_cast<std::size_t>(node.kind)];

  xml_.beginObject(element, plan_.id(object));
  xml_.text("name", index == 0 ? treeName
                               : numbered(node.kind == Tree::Kind::Compound ? "Group"
                                          : treePlan.product                ? pick(kParts, seed)
                                                                            : pick(kTools, seed),
                                          index + 1));
  if (scatter(~seed) % 5 == 0) xml_.text("comment", pick(kRemarks, seed));
  if (node.parent == Tree::kNone) {
    xml_.empty("parents");
  } else {
    xml_.begin("parents");
    reference("item", objectOf(node.parent));
    if (node.otherParent != Tree::kNone) reference("item", objectOf(node.otherParent));
    xml_.end("parents");
  }
  if (node.kind == Tree::Kind::Compound) {
    xml_.begin("children");
    tree.forChildren(index, false, [&](std::uint32_t child) { reference("item", objectOf(child)); });
    xml_.end("children");
  }
  reference("layout", layout);
  if (node.kind == Tree::Kind::Instance) reference("prototype", plan_.prototype(node.prototype));
  if (node.kind == Tree::Kind::Placeholder) {
    xml_.empty("prototype");
    reference("threeDRep", plan_.prototype(node.prototype) + 1);
  }
  if (node.labels > 0) {
    xml_.begin("labels");
    for (std::uint32_t k = 0; k < node.labels; ++k) {
      reference("item", treePlan.first + 2 * treePlan.nodes + node.firstLabel + k);
    }
    xml_.end("labels");
  }
  nodeInfo(treePlan.product ? "Product" : "Resource", object);
  if (!treePlan.product && node.kind == Tree::Kind::Instance && scatter(seed) % 4 == 0) {
    xml_.begin("plcInfo");
    reference("OriginalId", object);
    xml_.text("version", "1");
    xml_.text("DeviceClass", pick(kTools, seed));
    xml_.millionths("robotSetupTime", static_cast<Millionths>(scatter(seed) % 60'000'000));
    xml_.end("plcInfo");
  }
  xml_.endObject(element);

  xml_.beginObject("PmLayout", plan_.id(layout));
  xml_.vectors(node.relative);
  xml_.begin("children");
  if (node.kind == Tree::Kind::Compound) {
    tree.forChildren(index, true, [&](std::uint32_t child) { reference("item", objectOf(child) + 1); });
  }
  xml_.end("children");
  if (node.parent == Tree::kNone) {
    xml_.text("parent", "NULL");
  } else {
    reference("parent", objectOf(node.parent) + 1);
  }
  reference("node", object);
  nodeInfo("PmLayout", layout, &node.absolute);
  xml_.endObject("PmLayout");
}

void StudyWriter::writeLabel(Serial label, Serial node, std::uint32_t number) {
  const std::uint64_t seed = plan_.options.seed + label;
  xml_.beginObject("Label", plan_.id(label));
  xml_.text("name", numbered("Note", number));
  reference("node", node);
  xml_.text("comment", pick(kRemarks, seed));
  xml_.text("displayInfo", "color=yellow");
  xml_.text("noteLocation", scatter(seed) % 2 == 0 ? "0._0._250._0._0._0." : "120.5_-80._40.25_0._0._1.5");
  nodeInfo("Label", label);
  xml_.endObject("Label");
}

void StudyWriter::signal(std::string_view holder, const IdText& id, std::string_view type, Serial operation) {
  xml_.begin(holder);
  xml_.beginWithAttribute("Signal", "ExternalId", id);
  xml_.text("StringType", type);
  reference("SigOp", operation);
  xml_.end("Signal");
  xml_.end(holder);
}

void StudyWriter::writeOperationPlc(Serial operation, std::uint64_t seed) {
  const std::uint64_t sort = scatter(seed);
  xml_.begin("plcInfo");
  reference("OriginalId", operation);
  xml_.text("version", "1");
  if (sort & 1) signal("StartingSig", plan_.startingSignalId(operation), "PlcResourceInputSignal", operation);
  if (sort & 2) signal("EndingSig", plan_.endingSignalId(operation), "PlcResourceOutputSignal", operation);
  if (sort & 4) xml_.text("Transition", "ready AND NOT (count < 3)");
  xml_.text("ShouldGenerateParts", sort & 8 ? "1" : "0");
  xml_.end("plcInfo");
}

void StudyWriter::writeFlow(Serial flow, Serial from, Serial to, std::uint64_t seed) {
  xml_.beginObject("PmFlow", plan_.id(flow));
  xml_.text("name", "Flow");
  reference("predecessor", from);
  reference("successor", to);
  nodeInfo("PmFlow", flow);
  xml_.begin("plcInfo");
  reference("OriginalId", flow);
  xml_.number("BranchType", scatter(seed) % 3);
  if (scatter(seed) % 5 == 0) xml_.text("Condition", "part_present & temperature < 80");
  xml_.end("plcInfo");
  xml_.endObject("PmFlow");
}

void StudyWriter::writeProcess(std::uint32_t index) {
  const ProcessPlan& process = plan_.processes[index];
  Random random(process.seed);
  xml_.beginObject("PmOperation", plan_.id(process.first));
  xml_.text("name", processName(index));
  xml_.begin("children");
  for (std::uint32_t i = 1; i <= process.steps; ++i) reference("item", process.first + i);
  xml_.end("children");
  nodeInfo("Operation", process.first);
  xml_.endObject("PmOperation");

  for (std::uint32_t i = 1; i <= process.steps; ++i) {
    const Serial step = process.first + i;
    const auto anyTree = random.below(static_cast<std::uint32_t>(plan_.resourceTrees.size()));
    const TreePlan& cell = plan_.trees[plan_.resourceTrees[anyTree]];
    xml_.beginObject("PmOperation", plan_.id(step));
    xml_.text("name", numbered(pick(kSteps, process.seed + i), i));
    xml_.begin("parents");
    reference("item", process.first);
    xml_.end("parents");
    reference("processResource", cell.first + 2 * random.below(cell.nodes));
    nodeInfo("Operation", step);
    writeOperationPlc(step, process.seed + i);
    xml_.endObject("PmOperation");
  }
  for (std::uint32_t i = 0; i < process.flows; ++i) {
    const Serial from = process.first + 1 + i;
    writeFlow(process.first + 1 + process.steps + i, from, from + 1, process.seed + i);
  }
}

}  // namespace zelgen
