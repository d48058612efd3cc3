#include <array>

#include "DomTesting.h"

using namespace domtest;

namespace {

using DomXPath = DomTest;

constexpr const char* study = R"(<Data><Objects>
<Part i="1" ExternalId="A"><name>n</name><NodeInfo><family>Study</family></NodeInfo><variant>NULL</variant></Part>
<Part i="2" ExternalId="B'"><NodeInfo><family>Part</family><Id/></NodeInfo><variant>v</variant></Part>
<Tool i="3" ExternalId='C"'><layout>L</layout><plcInfo><Sig><x i="4"><BranchType i="5">1</BranchType></x></Sig>
<BranchType i="6">2</BranchType></plcInfo><variant/></Tool>
<and i="7"><and i="8"/><layout>L</layout><layout>M</layout></and>
<p:q i="9" p:r="s"><a i="10"><a i="11"><b i="12"/></a><b i="13"/></a><m i="14">x<k i="15">y</k><![CDATA[z]]></m></p:q>
</Objects></Data>)";

// The id of an element, or else its name.
std::string label(const IXMLDOMNode& node) {
  const IXMLDOMNode id = node.getNamedItem("i");
  return std::string(id ? id.nodeValue() : node.nodeName());
}

// The ids of the matches, in order, or "refused".
std::string matches(const IXMLDOMNode& node, std::string_view xpath) {
  IXMLDOMNodeList found;
  found.append(node);
  if (!node.selectNodes(xpath, found)) {
    EXPECT_EQ(found.length(), 1) << "a refused text leaves the list alone";
    return "refused";
  }
  std::string ids;
  for (const IXMLDOMNode& match : found) {
    if (!ids.empty()) ids += ' ';
    ids += label(match);
  }
  return ids;
}

TEST_F(DomXPath, FindsOrRefuses) {
  struct Case {
    const char* from;  // id of the element asked, empty for the document
    const char *xpath, *expected;
  };
  const Case cases[] = {
      {"", " / Data / Objects / Part ", "1 2"},
      {"", "Data/Objects/*[NodeInfo/family=\"Study\"][@i]", "1"},
      {"", "/Data/Objects/*[(variant != 'NULL') and (variant != '')]", "2"},
      {"", "Data/Objects/*[layout='M' and layout='L']", "7"},
      {"", "Data/Objects/*[((layout='L') and (@i='3'))]", "3"},
      {"", "Data/Objects/*[plcInfo//BranchType='1']", "3"},
      {"", "Data/Objects/*[*/*]", "1 2 3 9"},
      {"", "//*[@ExternalId=\"B'\"]", "2"},
      {"", "//*[@ExternalId='C\"']", "3"},
      {"", "//*[@ExternalId='A' and @i='1']", "1"},
      {"", "//*[@never_seen_before='x']", ""},
      {"", "//a/b", "12 13"},
      {"", "//a[a[b]]", "10"},
      {"", "//and[and and layout]", "7"},
      {"3", "plcInfo//BranchType", "5 6"},
      {"3", "//*[@ExternalId='A']", "1"},
      {"10", "a//b", "12"},
  };
  const IXMLDOMDocument document = parsed(study);
  const std::vector<std::vector<const char*>> refused = {
      {"", " ", "/", "//", "Data/", "///Data", "Data Objects", "a]", "a\x01", "\xFF"},
      {".", "..", ".//a", "a/..", "@i", "a/@i", "a|b", "text()", "child::a", "p:*", "@*", "$a"},
      {"a[1]", "a[last()]", "a[]", "a[b", "a[(b]", "a[b)]", "a[/b]", "a[//b]", "a[not(b)]", "a[@*]"},
      {"a[b=]", "a[b=c]", "a['x'=b]", "a[b='x]", "a[b='x'y]", "a[b<'1']", "a[(b)='x']"},
      {"a[b='1' or c='2']", "a[b and]", "a[b andc]", "a[a[a[a[a[a[a[a[a[a]]]]]]]]]"},
      {"//*[@ExternalId=\"B\"x\"]", "//*[@ExternalId='B'']", "//*[@ExternalId='A'] or true()"},
  };
  for (const auto& kind : refused)
    for (const char* xpath : kind) EXPECT_EQ(matches(document, xpath), "refused") << xpath;
  for (const Case& c : cases) {
    const IXMLDOMNode from =
        *c.from != '\0' ? at(document, std::string("//*[@i='") + c.from + "']") : IXMLDOMNode(document);
    for (const char* round : {"compiled", "from the cache"}) {
      const std::string text = c.xpath;  // at another address each time
      const std::string expected = c.expected;
      EXPECT_EQ(matches(from, text), expected) << c.xpath << " " << round;
      IXMLDOMNode one;
      EXPECT_EQ(from.selectSingleNode(text, one), !expected.empty()) << c.xpath;
      EXPECT_EQ(label(one), expected.substr(0, expected.find(' '))) << c.xpath;
    }
  }
}

TEST_F(DomXPath, OtherNodesAndDetachedTrees) {
  const IXMLDOMDocument document = parsed("<a><b i=\"1\">t<!--c--></b></a>");
  const IXMLDOMNode b = at(document, "a/b");
  EXPECT_EQ(matches(b.childNodes().item(1), "//b"), "1");
  ASSERT_TRUE(at(document, "a").removeChild(b));
  EXPECT_EQ(matches(document, "//*[@i='1']"), "");
  // The topmost node of a detached tree stands where a document element would.
  for (const char* xpath : {"//b", "/b", "/*", "//*[@i='1']"}) EXPECT_EQ(matches(b, xpath), "1") << xpath;
}

TEST_F(DomXPath, MoreTextsThanTheCacheKeeps) {
  const IXMLDOMDocument document = parsed("<a><b i=\"1\"/></a>");
  for (int round = 0; round < 2; ++round) {
    for (int i = 0; i < 3000; ++i) {
      const std::string name = std::string("n").append(std::to_string(i));
      EXPECT_EQ(matches(document, "a[" + name + "]"), "");
      EXPECT_EQ(matches(document, "a/b[@i='1']"), "1");
    }
  }
}

// Random edits of two documents with few names and values, so that many elements share them: after each one,
// a search by index has to say what a plain walk says.
class Edits {
 public:
  explicit Edits(std::mt19937::result_type seed) : random_(seed) {
    for (IXMLDOMDocument& d : documents_) d = parsed("<r><k/><n/></r>");
  }

  void step() {
    const IXMLDOMDocument document = documents_[below(2)];
    std::vector<IXMLDOMElement> all = elementsBelow(document);
    const int kind = std::array{0, 0, 0, 1, 2, 3, 4, 5, 6, 7, 8}[below(all.size() > 60 ? 11 : 10)];
    const IXMLDOMElement a = all[below(all.size())], b = all[below(all.size())];
    switch (kind) {
      case 0: {
        const IXMLDOMElement fresh = document.createElement(name());
        if (below(2) == 0) fresh.putText(value());
        if (below(2) == 0) fresh.setAttribute("id", value());
        a.appendChild(fresh);
        break;
      }
      case 1:
        a.setAttribute("id", value());
        break;
      case 2:
        a.removeAttribute("id");
        break;
      case 3:
        if (!a.firstElementChild()) a.putText(value());
        break;
      case 4:
        a.appendChild(document.createTextNode(value()));
        break;
      case 5: {
        const std::vector<IXMLDOMElement> other = elementsBelow(documents_[below(2)]);
        other[below(other.size())].appendChild(a);
        break;
      }
      case 6:
        for (const IXMLDOMNode& child : a.childNodes()) {
          if (child.nodeType() == NODE_TEXT) child.putNodeValue(value());
        }
        break;
      case 7: {
        const IXMLDOMNode attribute = document.createNode(NODE_ATTRIBUTE, "id");
        attribute.putNodeValue(value());
        a.setAttributeNode(attribute);
        b.appendChild(a.cloneNode(true));
        break;
      }
      default:
        a.putText(value());
    }
    for (IXMLDOMDocument& d : documents_) {
      if (!d.documentElement()) d.appendChild(d.createElement("r"));
    }
  }

  void check() {
    for (const IXMLDOMDocument& document : documents_) {
      const std::vector<IXMLDOMElement> all = elementsBelow(document);
      for (const char* v : values) {
        const std::string text = v;
        compare(document, "//*[@id='" + text + "']", all, [&](const IXMLDOMElement& e) {
          const IXMLDOMNode id = e.getNamedItem("id");
          return id && id.nodeValue() == text;
        });
        for (const char* n : names) {
          compare(document, "//*[" + std::string(n) + "='" + text + "']", all, [&](const IXMLDOMElement& e) {
            for (IXMLDOMElement c = e.firstElementChild(); c; c = c.nextElementSibling()) {
              if (c.nodeName() == n && c.text() == text) return true;
            }
            return false;
          });
        }
        IXMLDOMElement byIndex;
        IXMLDOMNode byPath;
        EXPECT_EQ(document.findByAttribute("id", v, byIndex),
                  document.selectSingleNode("//*[@id='" + text + "']", byPath));
        EXPECT_EQ(byIndex, byPath);
      }
    }
  }

 private:
  static constexpr std::array names = {"k", "n"};
  static constexpr std::array values = {"", "1", "11", "2"};

  std::size_t below(std::size_t n) { return std::uniform_int_distribution<std::size_t>(0, n - 1)(random_); }
  const char* name() { return names[below(names.size())]; }
  const char* value() { return values[below(values.size())]; }

  template <class Test>
  void compare(const IXMLDOMDocument& document, const std::string& xpath,
               const std::vector<IXMLDOMElement>& all, Test test) {
    IXMLDOMNodeList found;
    ASSERT_TRUE(document.selectNodes(xpath, found));
    std::vector<const void*> expected, got;
    for (const IXMLDOMElement& e : all) {
      if (test(e)) expected.push_back(e.identity());
    }
    for (const IXMLDOMNode& e : found) got.push_back(e.identity());
    ASSERT_EQ(got, expected) << xpath << " in " << document.xml();
  }

  std::mt19937 random_;
  std::array<IXMLDOMDocument, 2> documents_;
};

TEST_F(DomXPath, IndexesSayWhatAWalkSays) {
  std::mt19937 seeds(seed());
  for (int run = 0; run < 20; ++run) {
    Edits edits(seeds());
    for (int i = 0; i < 150 && !HasFatalFailure(); ++i) {
      edits.step();
      // Not after each step: several edits between two searches are another case.
      if (i % 3 != 1) edits.check();
    }
    if (HasFailure()) return;
  }
}

}  // namespace
