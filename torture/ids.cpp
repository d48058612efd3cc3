// Ids and keys are data: an object is found by exactly its id, or the id is refused.

#include "OpenStudy.h"
#include "StudyCase.h"
#include "Torture.h"
#include "XmlCase.h"
#include "document/ZelXmlFunctions.h"
#include "zel/ZelCollection.h"

namespace torture {

namespace {

std::string randomId(std::mt19937_64& random) {
  static const std::vector<std::string> pieces = {
      "'", "\"", "[", "]",    "]]>", "<",  ">",  "&", "&amp;", " ", "//", "*",    "@",    "=",  "(",
      ")", "..", "/", "NULL", "\n",  "\t", "\r", "a", "B",     "7", "#",  "item", " or ", "--", "\\"};
  if (below(random, 50) == 0) return std::string(65536, static_cast<char>('a' + below(random, 26)));
  std::string id;
  for (std::size_t size = below(random, 7); size > 0; --size) {
    if (below(random, 3) == 0) {
      char32_t c = static_cast<char32_t>(below(random, 17) << 16 | below(random, 0x10000));  // any plane
      if (c < 0x20 || (c >= 0xD800 && c < 0xE000) || c == 0xFFFE || c == 0xFFFF) c = 'x';
      id += fuzz::utf8(c);
    } else {
      id += pieces[below(random, pieces.size())];
    }
  }
  return id;
}

std::string quoted(const std::string& id) { return "\"" + id.substr(0, 60) + "\""; }

// Every id that was taken finds its object by every way there is, and no other does.
std::string lookUp(fuzz::OpenStudy& study, const std::vector<std::string>& ids, bool planted) {
  std::size_t number = 0;
  for (const std::string& id : ids) {
    const std::string asked = planted ? id + " " : id;
    IXMLDOMElement element;
    IXMLDOMNode found;
    std::string name;
    const std::string wanted = "object " + std::to_string(number++);
    const ZelNode* const node = study.wrapper().getZelNodeFromId(ApiPmId(asked));
    if (!node || !node->getName(name) || name != wanted) return "no node, or another one, for " + quoted(id);
    if (!study.document().findByAttribute("ExternalId", asked, element) || !zelXmlGetName(element, name) ||
        name != wanted) {
      return "no element, or another one, for " + quoted(id);
    }
    if (!zelXmlFindNodeById(study.document(), asked, found) || !(found == element))
      return "the index has another element for " + quoted(id);
    if (!(study.out().findByAttribute("ExternalId", asked, element)) && study.out().documentElement())
      return "nothing was published for " + quoted(id);
  }
  return {};
}

Result found(const Run& run) {
  Result result;
  for (std::uint64_t seed = run.seed; result.count < run.of(20'000, 1'000); ++seed) {
    begin(seed);
    std::mt19937_64 random(seed);
    const std::string at = "seed " + std::to_string(seed) + ": ";
    const IXMLDOMDocument document = IXMLDOMDocument::create();
    document.loadXML("<Data><Objects/></Data>");
    std::vector<std::string> ids;
    std::string saved;
    {
      fuzz::OpenStudy study(document);
      auto* const top =
          zelQuery<ZelCollection>(study.wrapper().createRoot(ZEL_COMPOUND_PART, ApiPmId("top")));
      for (int i = 0; i < 100; ++i, ++result.count) {
        const std::string id = i < 36 ? fuzz::wildTexts()[static_cast<std::size_t>(i)] : randomId(random);
        if (study.wrapper().getZelNodeFromId(ApiPmId(id)) != nullptr) continue;
        const std::size_t before = study.document().xml().size();
        ZelNode* const made = top->createChild(ZEL_PART_INSTANCE, ApiPmId(id));
        if (made == nullptr) {
          // Refused: nothing was made, and nothing is found.
          if (study.document().xml().size() != before || study.wrapper().getZelNodeFromId(ApiPmId(id)))
            return {result.count, at + "refused, but made: " + quoted(id)};
          continue;
        }
        if (!made->setName("object " + std::to_string(ids.size())))
          return {result.count, at + "no name for " + quoted(id)};
        ids.push_back(id);
      }
      std::string wrong = lookUp(study, ids, run.planted);
      ApiPmIdList children;
      top->getChildrenIds(children);
      if (wrong.empty() && children.entries() != ids.size()) wrong = "ids are lost in the list of children";
      if (!wrong.empty()) return {result.count, at + wrong};
      saved = study.saved();
    }
    const IXMLDOMDocument again = IXMLDOMDocument::create();
    if (!again.loadXML(saved)) return {result.count, at + "the saved study cannot be read"};
    fuzz::OpenStudy reopened(again);
    const std::string wrong = lookUp(reopened, ids, false);
    if (!wrong.empty()) return {result.count, std::string(at).append("reopened: ").append(wrong)};
  }
  return result;
}

}  // namespace

std::vector<Figure> idFigures() {
  return {{7, "ids of every plane, and of what paths are made of", "other ids are looked up", found}};
}

}  // namespace torture
