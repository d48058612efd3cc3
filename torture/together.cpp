// Wrappers and documents in one process do not disturb each other: edits that take turns give what they give
// one study after the other.

#include <array>
#include <memory>

#include "OpenStudy.h"
#include "StudyCase.h"
#include "StudyGenerator.h"
#include "Torture.h"

namespace torture {

namespace {

using Edits = std::vector<std::array<std::uint8_t, 4>>;

struct Part {
  IXMLDOMDocument document;
  Edits edits;
  std::unique_ptr<fuzz::OpenStudy> study;

  void open(int number, const std::string& text) {
    document = IXMLDOMDocument::create();
    document.loadXML(text);
    study = std::make_unique<fuzz::OpenStudy>(document, number);
  }
  void edit(std::size_t at) {
    const std::array<std::uint8_t, 4>& e = edits[at];
    fuzz::editAnyNode(*study, {e[0], e[1], e[2], e[3]});
  }
  // The study and its changes, as they are saved.
  std::string end() {
    study->enter();
    std::string text = study->saved() + study->out().xml();
    study.reset();
    return text;
  }
};

Result takingTurns(const Run& run) {
  constexpr std::size_t studies = 3;
  constexpr std::size_t edits = 60;
  Result result;
  for (std::uint64_t seed = run.seed; result.count < run.of(20'000, 1'000); ++seed) {
    begin(seed);
    std::mt19937_64 random(seed);
    std::array<Part, studies> parts;
    std::array<std::string, studies> texts, alone;
    for (std::size_t i = 0; i < studies; ++i) {
      texts[i] = zelgen::generateStudy({.objects = 120, .seed = seed + i, .shared = 20});
      parts[i].edits.resize(edits);
      for (auto& edit : parts[i].edits)
        for (std::uint8_t& byte : edit) byte = static_cast<std::uint8_t>(random());
      parts[i].open(static_cast<int>(i), texts[i]);
      for (std::size_t k = 0; k < edits; ++k) parts[i].edit(k);
      alone[i] = parts[i].end();
    }
    for (std::size_t i = 0; i < studies; ++i) parts[i].open(static_cast<int>(i), texts[i]);
    std::array<std::size_t, studies> done{};
    for (std::size_t left = studies * edits; left > 0;) {
      const std::size_t i = below(random, studies);
      if (done[i] == edits) continue;
      // The fault: a turn that does not ask for its study.
      if (!run.planted || below(random, 4) != 0) parts[i].study->enter();
      parts[i].edit(done[i]++);
      --left;
      ++result.count;
    }
    for (std::size_t i = 0; i < studies; ++i)
      if (parts[i].end() != alone[i])
        return {result.count, "seed " + std::to_string(seed) + ": study " + std::to_string(i) +
                                  " is another one when others are edited in between"};
  }
  return result;
}

}  // namespace

std::vector<Figure> togetherFigures() {
  return {{9, "edits of three studies that take turns", "the session is not always turned to the study",
           takingTurns}};
}

}  // namespace torture
