#pragma once

#include <cstdint>

// What searches and handles have cost in this process so far. Costs are told in numbers of things, not in
// time, so that a test can hold an operation to what it may do.
struct DomWork {
  std::uint64_t nodesVisited = 0;   // by paths, by the making of indexes, and by walks over lists
  std::uint64_t pathsCompiled = 0;  // texts of paths that were met for the first time
  std::uint64_t indexesMade = 0;
  std::uint64_t levelsClimbed = 0;  // from nodes to their roots, by first and last handles and by edits
};
