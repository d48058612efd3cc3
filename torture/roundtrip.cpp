// What is accepted is written and read back equal, as libxml2's own tree has it.

#include "Torture.h"
#include "XmlCase.h"

namespace torture {

namespace {

Result besideLibxml2(const Run& run) {
  Result result;
  const std::size_t most = run.of(400'000, 20'000);
  for (std::uint64_t seed = run.seed; result.count < most; ++seed, ++result.count) {
    begin(seed);
    std::mt19937_64 random(seed);
    const std::string wrong = fuzz::runRoundTrip(fuzz::randomXml(random), run.planted);
    if (!wrong.empty()) return {result.count, "seed " + std::to_string(seed) + ": " + wrong};
  }
  return result;
}

}  // namespace

std::vector<Figure> roundTripFigures() {
  return {
      {2, "texts read and written beside libxml2's tree", "the reader drops an attribute", besideLibxml2}};
}

}  // namespace torture
