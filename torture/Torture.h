#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

// What the long runs have in common. Each is a harness: it does one thing to the library many times, from a
// seed, and says what came of it.
namespace torture {

struct Run {
  std::uint64_t seed = 1;
  bool brief = false;    // for every build: a part of the cases
  bool planted = false;  // the harness is given a fault of its own making, which it has to find

  std::size_t of(std::size_t whole, std::size_t part) const { return brief ? part : whole; }
};

struct Result {
  std::size_t count = 0;
  std::string failure;  // empty: the promise was kept
};

struct Figure {
  int promise = 0;
  const char* name = "";
  const char* plant = "";  // the fault that the harness is given; empty for none
  Result (*run)(const Run&) = nullptr;
};

// Says which case comes next, so that a crash or a hang can be told by its seed. Each case has `seconds`.
void begin(std::uint64_t seed, unsigned seconds = 60);

inline std::size_t below(std::mt19937_64& random, std::size_t count) { return count ? random() % count : 0; }

std::vector<Figure> readingFigures();
std::vector<Figure> roundTripFigures();
std::vector<Figure> savingFigures();
std::vector<Figure> updateFigures();
std::vector<Figure> lifetimeFigures();
std::vector<Figure> modelFigures();
std::vector<Figure> idFigures();
std::vector<Figure> togetherFigures();

}  // namespace torture
