#include "Plan.h"

#include <algorithm>

#include "Random.h"

namespace zelgen {
namespace {

constexpr std::uint32_t kSmallestTree = 8;
constexpr std::uint32_t kLargestTree = 240;
constexpr std::uint32_t kObjectsPerProcess = 400;

std::uint32_t percentOf(std::uint32_t whole, std::uint32_t percent) {
  return static_cast<std::uint32_t>(std::uint64_t{whole} * percent / 100);
}

/// Streams of numbers that must not depend on how many were drawn for another purpose.
enum class Stream : std::uint64_t { Forest, Tree, Sharing, Placing, Labels, Process, Ids };

std::uint64_t streamSeed(std::uint64_t seed, Stream stream, std::uint64_t index = 0) {
  return scatter(scatter(seed + static_cast<std::uint64_t>(stream)) ^ index);
}

/// A whole number of micrometres up to the limit (in millimetres) to either side of the origin.
Millionths drawLength(Random& random, std::uint32_t limit) {
  return (Millionths{random.below(2000 * limit + 1)} - 1000 * Millionths{limit}) * 1000;
}

/// An angle in [-limit, limit], in millionths of a radian.
Millionths drawAngle(Random& random, std::uint32_t limit) {
  return Millionths{random.below(2 * limit + 1)} - limit;
}

constexpr std::uint32_t kHalfTurn = 3'141'592;
constexpr std::uint32_t kQuarterTurn = 1'570'796;

Placement drawRoot(Random& random) {
  Placement placement;
  placement.x = drawLength(random, 20'000);
  placement.y = drawLength(random, 20'000);
  placement.yaw = drawAngle(random, kHalfTurn);
  return placement;
}

/// Most things stand upright, some are tilted any way, and a few look straight up or down, where roll and
/// yaw cannot be told apart.
Placement drawRelative(Random& random) {
  Placement placement;
  placement.x = drawLength(random, 1'500);
  placement.y = drawLength(random, 1'500);
  placement.z = drawLength(random, 500);
  const auto sort = random.below(100);
  if (sort >= 30) placement.yaw = drawAngle(random, kHalfTurn);
  if (sort >= 60) {
    placement.roll = drawAngle(random, kHalfTurn);
    placement.pitch = drawAngle(random, kQuarterTurn);
  }
  if (sort >= 97) placement.pitch = sort == 97 ? -Millionths{kQuarterTurn} : Millionths{kQuarterTurn};
  return placement;
}

std::vector<TreePlan> planForest(const StudyOptions& options, std::uint32_t nodes, std::uint32_t labels) {
  Random random(streamSeed(options.seed, Stream::Forest));
  const std::uint32_t largest = std::clamp(nodes / 4, kSmallestTree + 4, kLargestTree);
  std::vector<TreePlan> trees;
  std::uint32_t planned = 0;
  while (planned < nodes) {
    const auto index = static_cast<std::uint32_t>(trees.size());
    // The first tree leaves enough for a second: a study has parts and resources.
    const std::uint32_t left = nodes - planned - (index == 0 ? kSmallestTree : 0);
    TreePlan tree{};
    tree.depth = index == 0 ? options.depth : random.between(kMinDepth, options.depth);
    const std::uint32_t smallest = std::max(kSmallestTree, tree.depth);
    tree.nodes = std::min(left, random.between(smallest, std::max(smallest, largest)));
    if (index > 0 && left - tree.nodes < kSmallestTree) tree.nodes = left;
    tree.depth = std::min(tree.depth, tree.nodes);
    tree.product = index % 5 != 1 && index % 5 != 4;
    tree.seed = streamSeed(options.seed, Stream::Tree, index);
    const auto labelsUpTo = [&](std::uint32_t node) {
      return static_cast<std::uint32_t>(std::uint64_t{labels} * node / nodes);
    };
    tree.labels = labelsUpTo(planned + tree.nodes) - labelsUpTo(planned);
    planned += tree.nodes;
    trees.push_back(tree);
  }
  return trees;
}

}  // namespace

Plan::Plan(const StudyOptions& chosen) : options(chosen) {
  const std::uint32_t labels = percentOf(options.objects, 3);
  const std::uint32_t prototypeCount = percentOf(options.objects, 2);
  toolPrototypes = std::max(1u, percentOf(prototypeCount, 40));
  partPrototypes = prototypeCount - toolPrototypes;
  trees = planForest(options, percentOf(options.objects, 35), labels);
  processes.resize(std::max(1u, options.objects / kObjectsPerProcess));

  Serial next = prototype(prototypes());
  for (std::uint32_t i = 0; i < trees.size(); ++i) {
    trees[i].first = next;
    next += 2 * trees[i].nodes + trees[i].labels;
    if (!trees[i].product) resourceTrees.push_back(i);
  }

  // The processes share what is left, so that the number of objects is met exactly. The shares above add up
  // to nine tenths at most, and the shortcuts of the trees stay within the rest even when every tree that is
  // drawn is as small as can be.
  const auto count = static_cast<std::uint32_t>(processes.size());
  const std::uint32_t rest = options.objects - next;
  for (std::uint32_t i = 0; i < count; ++i) {
    const std::uint32_t size = rest / count + (i < rest % count ? 1 : 0);
    ProcessPlan& process = processes[i];
    process.first = next;
    process.flows = (size - 2) / 2;
    process.steps = size - 1 - process.flows;
    process.seed = streamSeed(options.seed, Stream::Process, i);
    next += size;
  }
}

Serial Plan::shortcutTarget(std::uint32_t index) const {
  return index < trees.size() ? trees[index].first : processes[index - trees.size()].first;
}

IdText Plan::idIn(std::uint32_t space, Serial serial) const {
  return guid(scatter(streamSeed(options.seed, Stream::Ids) ^ ((std::uint64_t{space} << 32) | serial)));
}

Placement rootPlacement(const TreePlan& tree) {
  Random random(streamSeed(tree.seed, Stream::Placing));
  return drawRoot(random);
}

Tree::Tree(const Plan& plan, const TreePlan& tree) {
  grow(plan, tree);
  if (tree.product) share(plan.options.shared, tree.seed);
  place(tree);
  dealLabels(tree);
  listChildren();
}

void Tree::grow(const Plan& plan, const TreePlan& tree) {
  Random random(tree.seed);
  nodes.resize(tree.nodes);
  std::vector<std::uint32_t> levels(tree.nodes);
  const std::uint32_t firstPrototype = tree.product ? 0 : plan.partPrototypes;
  const std::uint32_t prototypeCount = tree.product ? plan.partPrototypes : plan.toolPrototypes;
  for (std::uint32_t i = 0; i < tree.nodes; ++i) {
    Node& node = nodes[i];
    // First a chain down to the deepest level, then each node below any compound.
    const bool inChain = i < tree.depth;
    if (i > 0) {
      node.parent = inChain ? i - 1 : compounds_[random.below(static_cast<std::uint32_t>(compounds_.size()))];
      levels[i] = levels[node.parent] + 1;
    }
    const bool mayHold = levels[i] + 1 < tree.depth;
    if (mayHold && (inChain || random.chance(20))) {
      node.kind = Kind::Compound;
      compounds_.push_back(i);
    } else {
      node.kind = random.chance(10) ? Kind::Placeholder : Kind::Instance;
      node.prototype = firstPrototype + random.below(prototypeCount);
    }
  }
}

void Tree::share(std::uint32_t percent, std::uint64_t seed) {
  const auto count = static_cast<std::uint32_t>(compounds_.size());
  if (count < 2) return;
  Random random(streamSeed(seed, Stream::Sharing));
  for (Node& node : nodes) {
    if (node.kind == Kind::Compound || !random.chance(percent)) continue;
    // Any compound but the parent: the draw leaves one out, and the last stands in for the parent.
    std::uint32_t other = compounds_[random.below(count - 1)];
    if (other == node.parent) other = compounds_.back();
    // The parent that comes first in the document is the one that places the node.
    node.otherParent = std::max(node.parent, other);
    node.parent = std::min(node.parent, other);
  }
}

void Tree::place(const TreePlan& tree) {
  Random random(streamSeed(tree.seed, Stream::Placing));
  nodes[0].relative = nodes[0].absolute = drawRoot(random);
  for (std::size_t i = 1; i < nodes.size(); ++i) {
    nodes[i].relative = drawRelative(random);
    nodes[i].absolute = compose(nodes[nodes[i].parent].absolute, nodes[i].relative);
  }
}

void Tree::dealLabels(const TreePlan& tree) {
  Random random(streamSeed(tree.seed, Stream::Labels));
  for (std::uint32_t i = 0; i < tree.labels; ++i) ++nodes[random.below(tree.nodes)].labels;
  std::uint32_t dealt = 0;
  for (Node& node : nodes) {
    node.firstLabel = dealt;
    dealt += node.labels;
  }
}

void Tree::listChildren() {
  const auto count = nodes.size();
  childStart_.assign(count + 1, 0);
  const auto forParents = [&](auto visit) {
    for (std::uint32_t i = 1; i < count; ++i) {
      visit(nodes[i].parent, i);
      if (nodes[i].otherParent != kNone) visit(nodes[i].otherParent, i);
    }
  };
  forParents([&](std::uint32_t parent, std::uint32_t) { ++childStart_[parent + 1]; });
  for (std::size_t i = 0; i < count; ++i) childStart_[i + 1] += childStart_[i];
  children_.resize(childStart_[count]);
  std::vector<std::uint32_t> next(childStart_.begin(), childStart_.end() - 1);
  forParents([&](std::uint32_t parent, std::uint32_t child) { children_[next[parent]++] = child; });
}

}  // namespace zelgen
