#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

// What libFuzzer calls, and PlainMain.cpp where there is no libFuzzer.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
// Changes the first `size` bytes, of room for `most`, and answers how many there are then.
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t most,
                                               unsigned seed);

namespace fuzz {

// Ends the process, which is how a fuzzer learns that something was wrong.
inline int tell(const std::string& wrong) {
  if (wrong.empty()) return 0;
  std::fprintf(stderr, "%s\n", wrong.c_str());
  std::abort();
}

inline std::string inputOf(const std::uint8_t* data, std::size_t size) {
  return std::string(reinterpret_cast<const char*>(data), size);
}

// The end of a mutator: what does not fit is cut.
inline std::size_t give(const std::string& made, std::uint8_t* data, std::size_t most) {
  return made.copy(reinterpret_cast<char*>(data), std::min(made.size(), most));
}

}  // namespace fuzz
