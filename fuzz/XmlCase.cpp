#include "XmlCase.h"

#include <libxml/parser.h>
#include <libxml/tree.h>

#include <algorithm>
#include <memory>
#include <vector>

#include "StudyCase.h"
#include "dom/IXMLDOMDocument.h"

namespace fuzz {

namespace {

using Theirs = std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)>;

Theirs parse(std::string_view text) {
  constexpr int options = XML_PARSE_HUGE | XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING;
  xmlSetStructuredErrorFunc(nullptr, [](void*, xmlErrorPtr) {});  // what conversions say, too
  Theirs document(xmlReadMemory(text.data(), static_cast<int>(text.size()), nullptr, nullptr, options),
                  xmlFreeDoc);
  xmlSetStructuredErrorFunc(nullptr, nullptr);
  return document;
}

std::string_view view(const xmlChar* text) {
  return text != nullptr ? reinterpret_cast<const char*>(text) : std::string_view();
}

// The content of a document as text that two trees have in common when they hold the same: attributes by
// name, without those that declare namespaces, which libxml2 keeps elsewhere.
class Content {
 public:
  void open(std::string_view name) { put('<', name); }
  void attribute(std::string_view name, std::string_view value) {
    if (name == "xmlns" || name.substr(0, 6) == "xmlns:") return;
    attributes_.push_back(std::string(name) + '=' + std::string(value));
  }
  void opened() {
    std::sort(attributes_.begin(), attributes_.end());
    for (const std::string& each : attributes_) put('@', each);
    attributes_.clear();
  }
  void close() { put('>', ""); }
  void text(std::string_view value) {
    if (value.empty()) return;
    if (!inText_) put('"', "");
    text_.append(value);
    inText_ = true;
  }
  // libxml2 joins CDATA sections that stand side by side.
  void cdata(std::string_view value) {
    if (!inCData_) put('[', "");
    text_.append(value);
    inCData_ = true;
  }
  void other(char kind, std::string_view value) { put(kind, value); }
  std::string take() { return std::move(text_); }

 private:
  void put(char kind, std::string_view value) {
    inText_ = inCData_ = false;
    text_.append(1, '\n').append(1, kind).append(value);
  }
  std::string text_;
  std::vector<std::string> attributes_;
  bool inText_ = false;
  bool inCData_ = false;
};

std::string contentOf(const IXMLDOMDocument& document, bool drops) {
  Content content;
  struct Frame {
    IXMLDOMNodeList nodes;
    long next = 0;
  };
  std::vector<Frame> path{{document.childNodes(), 0}};
  while (!path.empty()) {
    Frame& frame = path.back();
    if (frame.next == frame.nodes.length()) {
      path.pop_back();
      if (!path.empty()) content.close();
      continue;
    }
    const IXMLDOMNode node = frame.nodes.item(frame.next++);
    switch (node.nodeType()) {
      case NODE_ELEMENT:
        content.open(node.nodeName());
        for (const IXMLDOMNode& each : node.attributes())
          if (!drops || each.nodeName() != "a") content.attribute(each.nodeName(), each.nodeValue());
        content.opened();
        path.push_back({node.childNodes(), 0});
        break;
      case NODE_TEXT:
        content.text(node.nodeValue());
        break;
      case NODE_CDATA_SECTION:
        content.cdata(node.nodeValue());
        break;
      case NODE_COMMENT:
        content.other('!', node.nodeValue());
        break;
      default:
        if (node.nodeName() != "xml")
          content.other('?', std::string(node.nodeName()) + ' ' + node.nodeValue());
    }
  }
  return content.take();
}

std::string fullName(const xmlNs* space, const xmlChar* name) {
  const std::string_view prefix = space != nullptr ? view(space->prefix) : std::string_view();
  return (prefix.empty() ? "" : std::string(prefix) + ':') + std::string(view(name));
}

void putAttributes(Content& content, const xmlNode* element) {
  for (const xmlAttr* each = element->properties; each != nullptr; each = each->next) {
    xmlChar* const value = xmlNodeListGetString(element->doc, each->children, 1);
    content.attribute(fullName(each->ns, each->name), view(value));
    xmlFree(value);
  }
}

std::string contentOf(const xmlDoc* document) {
  Content content;
  for (const xmlNode* node = document->children; node != nullptr;) {
    switch (node->type) {
      case XML_ELEMENT_NODE:
        content.open(fullName(node->ns, node->name));
        putAttributes(content, node);
        content.opened();
        break;
      case XML_TEXT_NODE:
        content.text(view(node->content));
        break;
      case XML_CDATA_SECTION_NODE:
        content.cdata(view(node->content));
        break;
      case XML_COMMENT_NODE:
        content.other('!', view(node->content));
        break;
      case XML_PI_NODE:
        content.other('?', std::string(view(node->name)) + ' ' + std::string(view(node->content)));
        break;
      default:
        content.other('#', std::to_string(node->type));
    }
    if (node->type == XML_ELEMENT_NODE && node->children != nullptr) {
      node = node->children;
      continue;
    }
    if (node->type == XML_ELEMENT_NODE) content.close();
    while (node->next == nullptr && node->parent != nullptr && node->parent->type == XML_ELEMENT_NODE) {
      node = node->parent;
      content.close();
    }
    node = node->next;
  }
  return content.take();
}

bool isPromisedRefusal(const std::string& reason) {
  const char* const promised[] = {"document type declaration", "levels of elements",
                                  "text after the document element", "last character is incomplete",
                                  "input conversion failed"};
  return std::any_of(std::begin(promised), std::end(promised),
                     [&](const char* each) { return reason.find(each) != std::string::npos; });
}

std::string difference(const char* what, const std::string& ours, const std::string& theirs) {
  if (ours == theirs) return {};
  const auto at = std::mismatch(ours.begin(), ours.end(), theirs.begin(), theirs.end()).first - ours.begin();
  const std::size_t from = at > 30 ? static_cast<std::size_t>(at) - 30 : 0;
  return std::string(what) + ":\n" + ours.substr(from, 80) + "\nis not\n" + theirs.substr(from, 80);
}

}  // namespace

std::string runRoundTrip(std::string_view text, bool drops) {
  const IXMLDOMDocument document = IXMLDOMDocument::create();
  DomError error;
  const bool taken = document.loadXML(text, &error);
  if (!taken && error.reason.empty()) return "refused without a reason";
  if (!taken && isPromisedRefusal(error.reason)) return {};
  const Theirs theirs = parse(text);
  if (!taken) return theirs ? "refused, but libxml2 takes it: " + error.message() : "";
  if (!theirs) return "taken, but libxml2 refuses it";
  const std::string content = contentOf(theirs.get());
  std::string wrong = difference("read", contentOf(document, drops), content);
  if (!wrong.empty()) return wrong;

  const std::string written = document.xml();
  const Theirs again = parse(written);
  if (!again) return "what is written is refused by libxml2";
  wrong = difference("written, read by libxml2", contentOf(again.get()), content);
  if (!wrong.empty()) return wrong;
  const IXMLDOMDocument own = IXMLDOMDocument::create();
  if (!own.loadXML(written, &error)) return "what is written is refused: " + error.message();
  wrong = difference("written, read again", contentOf(own, false), content);
  return wrong.empty() ? difference("written twice", own.xml(), written) : wrong;
}

std::string utf8(char32_t c) {
  const auto rest = [c](int shift) { return static_cast<char>(0x80 | (c >> shift & 0x3F)); };
  if (c < 0x80) return {static_cast<char>(c)};
  if (c < 0x800) return {static_cast<char>(0xC0 | c >> 6), rest(0)};
  if (c < 0x10000) return {static_cast<char>(0xE0 | c >> 12), rest(6), rest(0)};
  return {static_cast<char>(0xF0 | c >> 18), rest(12), rest(6), rest(0)};
}

namespace {

class Writer {
 public:
  explicit Writer(std::mt19937_64& random) : random_(random) {}

  std::string document() {
    if (one(2)) out_ += "<?xml version='1.0'" + std::string(one(2) ? " encoding=\"UTF-8\"" : "") + "?>";
    misc();
    element(0);
    misc();
    if (one(10)) return encoded(true);
    return one(10) ? encoded(false) : out_;
  }

 private:
  bool one(unsigned in) { return random_() % in == 0; }
  std::string any(std::initializer_list<const char*> of) { return of.begin()[random_() % of.size()]; }

  std::string name() { return any({"a", "b", "item", "PmLayout", "x.y-z", "p:q", "\u00e4", "_"}); }
  std::string character() {
    switch (random_() % 8) {
      case 0:
        return any(
            {"&lt;", "&amp;", "&gt;", "&quot;", "&apos;", "&#13;", "&#xA;", "&#9;", "&#x1F600;", "]]&gt;"});
      case 1:
        return any({"\r\n", "\r", "\n", "\t", " ", "  "});
      case 2: {
        char32_t c = 0;
        do {
          c = static_cast<char32_t>(random_() % 0x110000);
        } while (c < 0x20 || (c >= 0xD800 && c < 0xE000) || c == 0xFFFE || c == 0xFFFF || c == '<' ||
                 c == '&' || c == '"' || c == '\'');
        return utf8(c);
      }
      default:
        return any({"a", "B", "7", ">", "]", "-", "?", "\u20ac", "text of some length"});
    }
  }
  std::string text() {
    std::string made;
    for (std::size_t size = random_() % 8; size > 0; --size) made += character();
    // Only the end of a CDATA section may be written so.
    for (std::size_t at; (at = made.find("]]>")) != std::string::npos;) made.replace(at, 3, "]]&gt;");
    return made;
  }
  void misc() {
    if (one(4)) out_ += "<!-- " + any({"", "c", "<&>", "\u00e4"}) + " -->";
    if (one(4)) out_ += any({"<?p?>", "<?p  v ?>", "<?xml-style a=\"b\"?>"});
    if (one(3)) out_ += any({"\n", " ", "\r\n"});
  }
  void element(int depth) {
    const std::string tag = name();
    out_ += '<' + tag;
    for (const char* attribute : {"a", "b", "p:c", "xml:space", "xmlns:p"}) {
      if (!one(3)) continue;
      const std::string quote = any({"\"", "'"});
      out_ += any({" ", "\n ", "\t"}) + attribute + any({"=", " = "}) + quote;
      out_ += std::string(attribute) == "xmlns:p" ? "urn:p" : text();
      out_ += quote;
    }
    if (one(5)) {
      out_ += any({"/>", " />"});
      return;
    }
    out_ += '>';
    for (std::size_t children = random_() % (depth > 6 ? 1 : 5); children > 0; --children) {
      switch (random_() % 6) {
        case 0:
          out_ += "<![CDATA[" + any({"", "<a>&", "]", "]]", "\u00e4", "\r\n"}) + "]]>";
          break;
        case 1:
          misc();
          break;
        case 2:
        case 3:
          out_ += text();
          break;
        default:
          element(depth + 1);
      }
    }
    out_ += "</" + tag + any({">", " >"});
  }
  // In UTF-16 with its mark, or in one byte a character, where that can be.
  std::string encoded(bool wide) {
    if (out_.substr(0, 5) == "<?xml") return out_;
    std::string made = wide ? "\xFF\xFE" : "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>";
    for (std::size_t at = 0; at < out_.size();) {
      const auto byte = [&](std::size_t i) {
        return static_cast<char32_t>(static_cast<unsigned char>(out_[at + i]));
      };
      const std::size_t size = byte(0) < 0x80 ? 1 : byte(0) < 0xE0 ? 2 : byte(0) < 0xF0 ? 3 : 4;
      char32_t c = size == 1 ? byte(0) : byte(0) & (0xFFu >> (size + 1));
      for (std::size_t i = 1; i < size; ++i) c = c << 6 | (byte(i) & 0x3F);
      at += size;
      const auto unit = [&](char32_t u) { made.append({static_cast<char>(u), static_cast<char>(u >> 8)}); };
      if (!wide) {
        made += c < 0x100 ? static_cast<char>(c) : '?';
      } else if (c < 0x10000) {
        unit(c);
      } else {
        unit(0xD800 + ((c - 0x10000) >> 10));
        unit(0xDC00 + ((c - 0x10000) & 0x3FF));
      }
    }
    return made;
  }

  std::mt19937_64& random_;
  std::string out_;
};

}  // namespace

std::string randomXml(std::mt19937_64& random) {
  std::string text = Writer(random).document();
  return random() % 2 == 0 ? text : mutateBytes(std::move(text), random);
}

}  // namespace fuzz
