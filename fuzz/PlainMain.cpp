// FUZZER [-seed=N] [-runs=N] [FILE...]: runs the files, then mutations of them (of the example study, if
// there are none), the same ones for the same seed.

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "Fuzzer.h"

int main(int argc, char** argv) {
  unsigned long seed = 1;
  unsigned long runs = 1000;
  std::vector<std::string> files;
  for (int i = 1; i < argc; ++i) {
    const std::string argument = argv[i];
    if (argument.compare(0, 6, "-seed=") == 0) {
      seed = std::strtoul(argv[i] + 6, nullptr, 10);
    } else if (argument.compare(0, 6, "-runs=") == 0) {
      runs = std::strtoul(argv[i] + 6, nullptr, 10);
    } else {
      files.push_back(argument);
    }
  }
  if (files.empty()) files.push_back(ZELXML_SOURCE_DIR "/examples/cell/cell.xml");

  constexpr std::size_t room = std::size_t{1} << 20;
  std::vector<std::vector<std::uint8_t>> corpus;
  for (const std::string& file : files) {
    std::ifstream in(file, std::ios::binary);
    if (!in) {
      std::fprintf(stderr, "%s: cannot be read\n", file.c_str());
      return 2;
    }
    corpus.emplace_back(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    LLVMFuzzerTestOneInput(corpus.back().data(), corpus.back().size());
  }
  std::printf("seed %lu\n", seed);
  std::mt19937_64 random(seed);
  for (unsigned long run = 0; run < runs; ++run) {
    std::vector<std::uint8_t> input = corpus[random() % corpus.size()];
    std::size_t size = input.size();
    input.resize(room);
    for (std::size_t times = 1 + random() % 3; times > 0; --times)
      size = LLVMFuzzerCustomMutator(input.data(), size, room, static_cast<unsigned>(random()));
    LLVMFuzzerTestOneInput(input.data(), size);
  }
  std::printf("%zu files and %lu mutations: nothing wrong\n", corpus.size(), runs);
  return 0;
}
