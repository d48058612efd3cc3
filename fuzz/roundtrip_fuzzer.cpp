// An input is any bytes.

#include <random>

#include "Fuzzer.h"
#include "StudyCase.h"
#include "XmlCase.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return fuzz::tell(fuzz::runRoundTrip(fuzz::inputOf(data, size)));
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t most,
                                               unsigned seed) {
  std::mt19937_64 random(seed);
  const bool anew = random() % 8 == 0;
  return fuzz::give(anew ? fuzz::randomXml(random) : fuzz::mutateBytes(fuzz::inputOf(data, size), random),
                    data, most);
}
