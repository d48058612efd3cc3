// An input is a study, a NUL, and the bytes of the edits.

#include <random>

#include "Fuzzer.h"
#include "StudyCase.h"

namespace {

struct Input {
  std::string study, edits;

  explicit Input(const std::string& text) {
    const std::size_t end = std::min(text.find('\0'), text.size());
    study = text.substr(0, end);
    edits = text.substr(std::min(end + 1, text.size()));
  }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const Input input(fuzz::inputOf(data, size));
  return fuzz::tell(fuzz::runStudy(input.study, input.edits));
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t most,
                                               unsigned seed) {
  std::mt19937_64 random(seed);
  Input input(fuzz::inputOf(data, size));
  if (random() % 4 != 0) input.study = fuzz::mutateStudy(input.study, random);
  if (random() % 2 == 0 || input.edits.empty()) {
    for (int i = 0; i < 4; ++i)
      input.edits.insert(random() % (input.edits.size() + 1), 1, static_cast<char>(random()));
    if (input.edits.size() > 256) input.edits.resize(256);
  }
  return fuzz::give(input.study + '\0' + input.edits, data, most);
}
