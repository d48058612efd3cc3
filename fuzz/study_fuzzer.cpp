// An input is a study, a NUL, and the bytes of the edits.

#include <cstdio>
#include <cstdlib>

#include "Fuzzer.h"
#include "StudyCase.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  const std::size_t end = std::min(input.find('\0'), input.size());
  const std::string wrong =
      fuzz::runStudy(input.substr(0, end), input.substr(std::min(end + 1, input.size())));
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
  const std::size_t end = std::min(input.find('\0'), input.size());
  std::string study = input.substr(0, end);
  std::string edits = end < size ? input.substr(end + 1) : std::string();
  if (random() % 4 != 0) study = fuzz::mutateStudy(study, random);
  if (random() % 2 == 0 || edits.empty()) {
    for (int i = 0; i < 4; ++i) edits.insert(random() % (edits.size() + 1), 1, static_cast<char>(random()));
    if (edits.size() > 256) edits.resize(256);
  }
  const std::string made = study + '\0' + edits;
  if (made.size() > most) return size;
  made.copy(reinterpret_cast<char*>(data), made.size());
  return made.size();
}
