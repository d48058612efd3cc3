#include "rt/RTPool.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <random>
#include <vector>

#include "dom/DomTesting.h"

namespace {

// Blocks of all sizes in random order, each filled with a mark of its own that has to be there when it goes.
TEST(RTPool, BlocksDoNotOverlapAndMemoryGoesBack) {
  struct Block {
    unsigned char* bytes;
    std::size_t size;
    unsigned char mark;
  };
  std::mt19937 random(domtest::seed());
  const std::size_t before = RTPool::held();
  std::vector<Block> blocks;
  const auto freeOne = [&blocks] {
    const Block b = blocks.back();
    blocks.pop_back();
    ASSERT_TRUE(std::all_of(b.bytes, b.bytes + b.size, [&b](unsigned char c) { return c == b.mark; }))
        << b.size;
    RTPool::free(b.bytes, b.size);
  };
  for (int round = 0; round < 3; ++round) {
    for (int i = 0; i < 100000; ++i) {
      const bool large = random() % 5000 == 0;
      const std::size_t size = 1 + random() % (large ? std::size_t{5} << 20 : round == 1 ? 64 : 300);
      const Block b{static_cast<unsigned char*>(RTPool::allocate(size)), size, static_cast<unsigned char>(i)};
      ASSERT_EQ(reinterpret_cast<std::uintptr_t>(b.bytes) % (size % 16 == 0 ? 16 : 8), 0u);
      std::memset(b.bytes, b.mark, size);
      blocks.push_back(b);
      if (random() % 3 == 0) {
        std::swap(blocks[random() % blocks.size()], blocks.back());
        freeOne();
      }
    }
    std::shuffle(blocks.begin(), blocks.end(), random);
    while (!blocks.empty() && !testing::Test::HasFatalFailure()) freeOne();
    // At most one chunk stays in reserve, besides those that nodes of other tests may have begun.
    EXPECT_LE(RTPool::held(), before + (std::size_t{2} << 20));
  }
}

}  // namespace
