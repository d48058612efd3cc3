// Any file is opened, or refused with a reason: attacks, the example cut short at every byte, changed
// studies.

#include <algorithm>
#include <fstream>
#include <iterator>

#include "StudyCase.h"
#include "StudyGenerator.h"
#include "Torture.h"
#include "dom/IXMLDOMDocument.h"

namespace torture {

namespace {

std::string example() {
  std::ifstream in(ZELXML_SOURCE_DIR "/examples/cell/cell.xml", std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

std::string repeated(std::string_view piece, std::size_t times) {
  std::string text;
  text.reserve(piece.size() * times);
  for (; times > 0; --times) text += piece;
  return text;
}

// A study with these objects.
std::string study(const std::string& objects) { return "<Data><Objects>" + objects + "</Objects></Data>"; }

std::string object(const std::string& id, const std::string& fields) {
  return "<PmCompoundPart ExternalId=\"" + id + "\"><name>" + id + "</name>" + fields + "<layout>L" + id +
         "</layout><NodeInfo><family>Product</family></NodeInfo></PmCompoundPart>";
}

struct Attack {
  const char* name;
  std::string text;
  bool refused;
};

std::vector<Attack> attacks(std::size_t refusedAttributes) {
  std::string bomb = "<!DOCTYPE a [<!ENTITY e0 'lol'>";
  for (int i = 1; i < 30; ++i) {
    const std::string below = "&e" + std::to_string(i - 1) + ";";
    bomb += "<!ENTITY e" + std::to_string(i) + " '" + repeated(below, 10) + "'>";
  }
  const auto attributes = [](std::size_t count) {
    std::string tag = "<Data><Objects><a";
    for (std::size_t i = 0; i < count; ++i) tag += " a" + std::to_string(i) + "='v'";
    return tag + "/></Objects></Data>";
  };
  std::string chain;
  std::string ring;
  for (int i = 0; i < 20'000; ++i) {
    const std::string next = std::to_string(i + 1);
    chain += object(std::to_string(i), "<children><item>" + next + "</item></children>");
  }
  std::string all;
  for (int i = 0; i < 50; ++i) all += "<item>" + std::to_string(i) + "</item>";
  const std::string relations = "<parents>" + all + "</parents><children>" + all + "</children>";
  for (int i = 0; i < 50; ++i) ring += object(std::to_string(i), relations);
  return {
      {"entity bomb", bomb + "]><a>&e29;</a>", true},
      {"external entity", "<!DOCTYPE a [<!ENTITY x SYSTEM 'file:///etc/passwd'>]><a>&x;</a>", true},
      {"external subset", "<!DOCTYPE a SYSTEM 'http://localhost:1/a.dtd'><a/>", true},
      {"parameter entity", "<!DOCTYPE a [<!ENTITY % p SYSTEM 'file:///dev/zero'>%p;]><a/>", true},
      {"undeclared entity", "<a>&x;</a>", true},
      {"a million levels", repeated("<a>", 1'000'000), true},
      {"one level too many", repeated("<a>", 1001) + repeated("</a>", 1001), true},
      {"1,000 levels", repeated("<a>", 1000) + repeated("</a>", 1000), false},
      {"the most attributes", attributes(IXMLDOMNode::maxAttributes), false},
      {"a million attributes, 50,000 in the short form", attributes(refusedAttributes), true},
      {"an attribute of 8 MiB", "<a x='" + repeated("x", 8 << 20) + "'/>", false},
      {"a text of 8 MiB", study(repeated("&#120;", 8 << 20)), false},
      {"a comment of 8 MiB", "<a><!--" + repeated("c", 8 << 20) + "--></a>", false},
      {"a name of 50,000 characters", "<" + repeated("n", 50'000) + "/>", false},
      {"a name of 8 MiB", "<" + repeated("n", 8 << 20) + "/>", false},
      {"a million empty elements", study(repeated("<a/>", 1'000'000)), false},
      {"a chain of 20,000 compounds", study(chain), false},
      {"50 compounds, each in each", study(ring), false},
      {"half a character", "<a>\xC3</a>", true},
      {"overlong UTF-8", "<a>\xC0\xBC</a>", true},
      {"a surrogate in UTF-8", "<a>\xED\xA0\x80</a>", true},
      {"above the last plane", "<a>\xF4\x90\x80\x80</a>", true},
      {"U+FFFF", "<a>\xEF\xBF\xBF</a>", true},
      {"Latin-1 called UTF-8", "<?xml version='1.0' encoding='UTF-8'?><a>\xE4</a>", true},
      {"UTF-16 in a declaration only", "<?xml version='1.0' encoding='UTF-16'?><a>x</a>", true},
      {"half of UTF-16", std::string("\xFF\xFE<\0a\0/\0>", 9), true},
      {"a NUL", std::string("<a>\0</a>", 8), true},
      {"nothing", "", true},
      {"white space", "  \n", true},
      {"two roots", "<a/><b/>", true},
      {"a zip", "PK\x03\x04", true},
  };
}

Result attacked(const Run& run) {
  Result result;
  for (const Attack& attack : attacks(run.of(1'000'000, 50'000))) {
    begin(run.seed + result.count++);
    DomError error;
    const bool taken = IXMLDOMDocument::create().loadXML(attack.text, &error);
    if (taken == attack.refused || (!taken && error.reason.empty()))
      return {result.count, std::string(attack.name) + (taken ? ": taken" : ": refused: " + error.message())};
    const std::string wrong = fuzz::runStudy(attack.text, std::string("\0\1\2\3\4\5\6\7", 8), run.planted);
    if (!wrong.empty()) return {result.count, std::string(attack.name) + ": " + wrong};
  }
  return result;
}

Result cutShort(const Run& run) {
  const std::string whole = example();
  const std::size_t end = whole.rfind("</Data>") + 7;
  const std::size_t step = run.of(1, 97);
  Result result;
  for (std::size_t size = 0; size < end; size += step, ++result.count) {
    begin(run.seed);
    DomError error;
    const std::string_view text = std::string_view(whole).substr(0, run.planted ? whole.size() : size);
    if (IXMLDOMDocument::create().loadXML(text, &error) || error.reason.empty() || error.line == 0)
      return {size, "cut at byte " + std::to_string(size) + ": taken, or refused without reason or line"};
  }
  return result;
}

Result changed(const Run& run) {
  std::vector<std::string> seeds{example()};
  for (std::uint64_t seed = 1; seed < 4; ++seed)
    seeds.push_back(zelgen::generateStudy({.objects = 120, .seed = seed}));
  Result result;
  const std::size_t most = run.of(20'000, 600);
  for (std::uint64_t seed = run.seed; result.count < most; ++seed, ++result.count) {
    begin(seed);
    std::mt19937_64 random(seed);
    std::string text = fuzz::mutateStudy(seeds[below(random, seeds.size())], random);
    while (below(random, 2) == 0) text = fuzz::mutateStudy(text, random);
    std::string edits;
    for (std::size_t bytes = 4 * below(random, 24); bytes > 0; --bytes) edits += static_cast<char>(random());
    const std::string wrong = fuzz::runStudy(text, edits, run.planted);
    if (!wrong.empty()) return {result.count, "seed " + std::to_string(seed) + ": " + wrong};
  }
  return result;
}

}  // namespace

std::vector<Figure> readingFigures() {
  return {{1, "attacks on the reader, then opened, edited, saved", "the save loses an attribute", attacked},
          {1, "the example cut short at every byte", "the example is not cut", cutShort},
          {1, "changed studies opened, edited, saved, reopened", "the save loses an attribute", changed}};
}

}  // namespace torture
