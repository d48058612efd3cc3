// An input is any bytes.

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "Fuzzer.h"
#include "StudyCase.h"
#include "XmlCase.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string wrong = fuzz::runRoundTrip({reinterpret_cast<const char*>(data), size});
  if (!wrong.empty()) {
    std::fprintf(stderr, "%s\n", wrong.c_str());
    std::abort();
  }
  return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t most,
                                               unsigned seed) {
  std::mt19937_64 random(seed);
  const std::string input(reinterpret_cast<const char*>(data), size);
  const std::string made = random() % 8 == 0 ? fuzz::randomXml(random) : fuzz::mutateBytes(input, random);
  const std::size_t kept = std::min(made.size(), most);
  made.copy(reinterpret_cast<char*>(data), kept);
  return kept;
}
