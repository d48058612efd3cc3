// Handles never dangle, nothing leaks: run it with the sanitizers too.

#include <array>

#include "Torture.h"
#include "dom/RandomSession.h"

namespace torture {

namespace {

Result beside(const Run& run) {
  constexpr int steps = 400;
  Result result;
  for (std::uint64_t seed = run.seed; result.count < run.of(500'000, 20'000); ++seed) {
    begin(seed);
    domtest::RandomSession session(static_cast<std::mt19937::result_type>(seed), run.planted);
    result.count += steps;
    if (const std::string failure = session.steps(steps); !failure.empty())
      return {result.count, "seed " + std::to_string(seed) + ": " + failure};
  }
  return result;
}

// One session that never ends: documents come and go, subtrees wander, and it does not grow.
Result longSession(const Run& run) {
  std::mt19937_64 random(run.seed);
  const std::size_t before = IXMLDOMDocument::livingNodes();
  const std::size_t cycles = run.of(100'000, 10'000);
  begin(run.seed, 600);
  {
    std::array<IXMLDOMDocument, 8> documents;
    std::vector<IXMLDOMNode> held;
    for (std::size_t cycle = 0; cycle < cycles; ++cycle) {
      IXMLDOMDocument& document = documents[below(random, documents.size())];
      if (!document || below(random, 500) == 0) {
        document = IXMLDOMDocument::create();
        if (!document.loadXML("<Data><Objects/></Data>")) return {cycle, "an empty study is refused"};
      }
      IXMLDOMNode section;
      document.selectSingleNode("Data/Objects", section);
      const IXMLDOMElement made = document.createElement("PmPartInstance");
      made.setAttribute("ExternalId", std::to_string(cycle));
      made.appendChild(document.createElement("name"));
      made.firstElementChild().putText("a name that is too long to stand in a node");
      section.appendChild(made);
      held.push_back(made);
      const IXMLDOMNode wanderer = held[below(random, held.size())];
      switch (below(random, 4)) {
        case 0:
          section.appendChild(wanderer);  // out of another document, too
          break;
        case 1:
          wanderer.parentNode().removeChild(wanderer);
          break;
        case 2:
          held.push_back(wanderer.cloneNode(true));
          break;
        default:
          held.push_back(wanderer.firstElementChild());
      }
      while (held.size() > 100) {
        std::swap(held[below(random, held.size())], held.back());
        held.pop_back();
      }
      // What nobody holds any more, and what stands in a document, goes with it.
      if (cycle % 100 == 0) section.parentNode().removeChild(section);
      if (cycle % 100 == 0) document = IXMLDOMDocument();
    }
    if (run.planted) new IXMLDOMNode(held.front());
  }
  const std::size_t left = IXMLDOMDocument::livingNodes() - before;
  if (left != 0) return {cycles, std::to_string(left) + " nodes are left"};
  return {cycles, {}};
}

}  // namespace

std::vector<Figure> lifetimeFigures() {
  return {{5, "calls on handles beside a model of trees", "the model misses removals", beside},
          {5, "create, move, move across, detach, drop in one session", "a handle is never given back",
           longSession}};
}

}  // namespace torture
