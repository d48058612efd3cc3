#include "DomReader.h"

#include <libxml/parser.h>
#include <libxml/parserInternals.h>

#include <algorithm>
#include <new>

#include "DomNames.h"
#include "DomReaderWords.h"
#include "DomText.h"
#include "DomTree.h"
#include "rw/RWFlatTable.h"

namespace dom {

namespace {

std::string_view view(const xmlChar* text) noexcept {
  return text != nullptr ? std::string_view(reinterpret_cast<const char*>(text)) : std::string_view();
}

// The parser's first interface tells errors in their parts to the thread's handler only.
class ErrorHandler {
 public:
  ErrorHandler(void* context, xmlStructuredErrorFunc handler)
      : former_(xmlStructuredError), formerContext_(xmlStructuredErrorContext) {
    xmlSetStructuredErrorFunc(context, handler);
  }
  ErrorHandler(const ErrorHandler&) = delete;
  ErrorHandler& operator=(const ErrorHandler&) = delete;
  ~ErrorHandler() { xmlSetStructuredErrorFunc(formerContext_, former_); }

 private:
  xmlStructuredErrorFunc former_;
  void* formerContext_;
};

std::string tooManyAttributes() {
  return "an element has more than " + std::to_string(IXMLDOMNode::maxAttributes) + " attributes";
}

// The parser's events, built into a tree. Names come qualified as they are written (the parser's first
// interface), so that prefixes and namespace declarations are plain text to us. The parser pulls its bytes:
// it then gives a comment or a CDATA section in one piece.
//
// The events are called from C: no exception leaves them, it ends the reading.
class Reader {
 public:
  Reader(ByteSource& source, DocumentNode* document, DomError& error)
      : source_(source), document_(document), current_(document), error_(error) {}
  Reader(const Reader&) = delete;
  Reader& operator=(const Reader&) = delete;
  ~Reader() { xmlFreeParserCtxt(parser_); }

  bool run();

 private:
  static Reader& self(void* data) { return *static_cast<Reader*>(data); }

  // Runs one event unless the reading has ended.
  template <class Event>
  static void guard(void* data, Event event) {
    Reader& reader = self(data);
    if (reader.failed_) return;
    try {
      event(reader);
    } catch (const std::bad_alloc&) {
      reader.refuse("there is not enough memory");
    } catch (...) {
      reader.refuse("the reading failed");
    }
  }

  static int readBytes(void* data, char* to, int size);
  static void onError(void* data, xmlErrorPtr error);
  void tell(const xmlError& error);

  void refuse(std::string reason);
  void failHere(std::string reason);
  void fail(unsigned line, unsigned column, std::string reason);
  std::string noElement() const;
  void declaration();
  void startElement(const xmlChar* name, const xmlChar** attributes);
  void endElement();
  void text(const xmlChar* piece, int size);
  void flushText();
  void leaf(int type, NameId name, std::string_view value);
  unsigned lineOfTag() const;
  void seenUpTo() { line_ = static_cast<unsigned>(parser_->input->line); }
  NameId idOf(const xmlChar* name);
  bool sourceIsSpent();

  ByteSource& source_;
  DocumentNode* document_;
  Node* current_;
  DomError& error_;
  xmlParserCtxtPtr parser_ = nullptr;
  std::string pending_;  // text read since the last node
  int depth_ = 0;
  unsigned line_ = 0;  // where the last event ended
  bool failed_ = false;
  RWFlatTable<NameId> names_;  // by the parser's own address of a name
  std::string head_;           // the first bytes, for the XML declaration as it is written
  char last_[2] = {};
};

int Reader::readBytes(void* data, char* to, int size) {
  Reader& reader = self(data);
  if (reader.failed_) return -1;
  // Asked for more in the middle of a tag: the parser has doubled its room for attributes, two places for
  // each, and compares each name with all before it.
  if (reader.parser_ != nullptr && reader.parser_->maxatts > 4 * IXMLDOMNode::maxAttributes) {
    reader.failHere(tooManyAttributes());
    return -1;
  }
  std::ptrdiff_t got = -1;
  try {
    got = reader.source_.read(to, static_cast<std::size_t>(size));
  } catch (const std::exception& thrown) {  // by a stream that was told to
    reader.source_.reason = thrown.what();
  } catch (...) {
    reader.source_.reason = "the stream failed with an exception that tells no reason";
  }
  if (got < 0) {
    reader.fail(0, 0, reader.source_.reason);
    return -1;
  }
  constexpr std::size_t headSize = 4096;
  const auto count = static_cast<std::size_t>(got);
  if (reader.head_.size() < headSize)
    reader.head_.append(to, std::min(count, headSize - reader.head_.size()));
  if (count > 0) {
    reader.last_[0] = count > 1 ? to[count - 2] : reader.last_[1];
    reader.last_[1] = to[count - 1];
  }
  return static_cast<int>(got);
}

// The first error is the cause, those after it follow from it.
void Reader::onError(void* data, xmlErrorPtr error) {
  Reader& reader = self(data);
  if (error->level < XML_ERR_ERROR || error->domain == XML_FROM_NAMESPACE) return;
  std::string reason = plainReason(*error);
  const auto place = [](int value) { return value > 0 ? static_cast<unsigned>(value) : 0u; };
  switch (error->code) {
    case XML_ERR_DOCUMENT_EMPTY:
      reason = reader.noElement();
      break;
    // The parser's own texts for these two know no line of the start tag.
    case XML_ERR_TAG_NAME_MISMATCH:
    case XML_ERR_TAG_NOT_FINISHED:
      if (!reader.current_->isElement()) break;
      reason = "the element " + std::string(nameOf(reader.current_->name)) + " of line " +
               std::to_string(reader.current_->line()) + " has no end tag here";
      break;
    default:
      break;
  }
  unsigned line = place(error->line);
  unsigned column = place(error->int2);
  if (line == 0 && reader.parser_ != nullptr && reader.parser_->input != nullptr) {
    line = place(reader.parser_->input->line);
    column = place(reader.parser_->input->col);
  }
  reader.fail(line, column, std::move(reason));
}

void Reader::fail(unsigned line, unsigned column, std::string reason) {
  if (failed_) return;
  failed_ = true;
  std::string kind = depth_ == 0 ? foreignKind(head_) : std::string();
  error_ = kind.empty() ? DomError{error_.file, line, column, std::move(reason)}
                        : DomError{error_.file, 0, 0, std::move(kind)};
}

// Why no element begins where the parser stands.
std::string Reader::noElement() const {
  const bool begun = head_.find('<') != std::string::npos;
  if (!begun) return "there is no XML in it";
  const xmlParserInputPtr input = parser_ != nullptr ? parser_->input : nullptr;
  if (input == nullptr || input->cur >= input->end) return "there is no element in it";
  return "there is text before the document element";
}

void Reader::failHere(std::string reason) {
  fail(static_cast<unsigned>(parser_->input->line), static_cast<unsigned>(parser_->input->col),
       std::move(reason));
}

void Reader::refuse(std::string reason) {
  failHere(std::move(reason));
  xmlStopParser(parser_);
}

// Keeps an XML declaration as it is written, but for an encoding other than the one that we write.
void Reader::declaration() {
  std::string text;  // of UTF-16, the characters of ASCII are what stays without the zeros and the mark
  for (const char c : head_) {
    if (c != '\0' && c != '\r' && static_cast<unsigned char>(c) < 0x80) text.push_back(c);
  }
  const std::size_t end = text.find("?>");
  if (!text.starts_with("<?xml") || end == std::string::npos || !isBlank(text.substr(5, 1))) return;
  const std::size_t start = text.find_first_not_of(" \t\n", 5);
  std::string value = text.substr(start, end - start);
  if (!validDeclaration(value)) {
    const std::string_view encoding = declared(value, "encoding");
    if (encoding.data() == nullptr) return;
    value.replace(static_cast<std::size_t>(encoding.data() - value.data()), encoding.size(), "UTF-8");
    if (!validDeclaration(value)) value = defaultDeclaration;
  }
  leaf(NODE_PROCESSING_INSTRUCTION, nameXml, value);
}

NameId Reader::idOf(const xmlChar* name) {
  const std::uint64_t hash = rwSpread(name);
  if (const auto* known = names_.find(hash)) return known->value;
  if (names_.size() == IXMLDOMDocument::maxNames) {
    refuse("there are more than " + std::to_string(IXMLDOMDocument::maxNames) +
           " different names of elements and attributes");
    return nameNone;
  }
  return names_.add(hash, internName(view(name))).value;
}

// The parser stands at the end of a start tag. Nearly always the tag began on the line where the event before
// it ended; over several lines, the last "<" is its start, since no value holds one.
unsigned Reader::lineOfTag() const {
  const auto now = static_cast<unsigned>(parser_->input->line);
  if (now == line_) return now;
  unsigned line = now;
  for (const xmlChar* at = parser_->input->cur; at > parser_->input->base && *at != '<'; --at) {
    if (*at == '\n' && at != parser_->input->cur) --line;
  }
  return line;
}

void Reader::startElement(const xmlChar* name, const xmlChar** attributes) {
  flushText();
  if (++depth_ > IXMLDOMNode::maxDepth) {
    refuse("there are more than " + std::to_string(IXMLDOMNode::maxDepth) + " levels of elements");
    return;
  }
  Node* const element = newNode(NODE_ELEMENT, idOf(name));
  linkLast(current_, element);
  current_ = element;
  element->setLine(lineOfTag());
  for (int count = 0; attributes != nullptr && attributes[0] != nullptr; attributes += 2) {
    if (++count > IXMLDOMNode::maxAttributes) {
      refuse(tooManyAttributes());
      return;
    }
    const std::string_view value = view(attributes[1]);
    if (value.size() > longestText) {
      refuse("an attribute value is too long");
      return;
    }
    Node* const attribute = newNode(NODE_ATTRIBUTE, idOf(attributes[0]));
    linkAttribute(element, attribute);
    initText(attribute, value);
  }
  seenUpTo();
}

void Reader::endElement() {
  if (!pending_.empty() && current_->first() == nullptr) {
    initText(current_, pending_);
    pending_.clear();
  } else {
    flushText();
  }
  current_ = current_->parent;
  --depth_;
  seenUpTo();
}

void Reader::text(const xmlChar* piece, int size) {
  pending_.append(reinterpret_cast<const char*>(piece), static_cast<std::size_t>(size));
  if (pending_.size() > longestText) refuse("a text is too long");
  seenUpTo();
}

void Reader::flushText() {
  if (pending_.empty()) return;
  if (current_ != document_ && (document_->preserveWhiteSpace || !isBlank(pending_))) {
    Node* const node = newNode(NODE_TEXT, nameText);
    linkLast(current_, node);
    initText(node, pending_);
  }
  pending_.clear();
}

void Reader::leaf(int type, NameId name, std::string_view value) {
  flushText();
  if (value.size() > longestText) {
    refuse("a text is too long");
    return;
  }
  Node* const node = newNode(type, name);
  linkLast(current_, node);
  initText(node, value);
  seenUpTo();
}

// The parser ends without a complaint at a character NUL, and before half a character of a converted
// encoding.
bool Reader::sourceIsSpent() {
  const xmlParserInputPtr input = parser_->input;
  char more;
  if (input->cur < input->end || readBytes(this, &more, 1) > 0) {
    fail(static_cast<unsigned>(input->line), static_cast<unsigned>(input->col),
         "there is text after the document element");
  } else if (input->buf != nullptr && input->buf->raw != nullptr && xmlBufUse(input->buf->raw) > 0) {
    fail(static_cast<unsigned>(input->line), static_cast<unsigned>(input->col),
         "the last character is incomplete");
  }
  return !failed_;
}

bool Reader::run() {
  xmlSAXHandler events = {};
  events.initialized = 1;  // the first interface
  events.startDocument = [](void* data) { guard(data, [](Reader& r) { r.declaration(); }); };
  events.startElement = [](void* data, const xmlChar* name, const xmlChar** attributes) {
    guard(data, [=](Reader& r) { r.startElement(name, attributes); });
  };
  events.endElement = [](void* data, const xmlChar*) { guard(data, [](Reader& r) { r.endElement(); }); };
  events.characters = [](void* data, const xmlChar* piece, int size) {
    guard(data, [=](Reader& r) { r.text(piece, size); });
  };
  events.ignorableWhitespace = events.characters;
  events.cdataBlock = [](void* data, const xmlChar* value, int size) {
    const std::string_view section(reinterpret_cast<const char*>(value), static_cast<std::size_t>(size));
    guard(data, [=](Reader& r) { r.leaf(NODE_CDATA_SECTION, nameCData, section); });
  };
  events.comment = [](void* data, const xmlChar* value) {
    guard(data, [=](Reader& r) { r.leaf(NODE_COMMENT, nameComment, view(value)); });
  };
  events.processingInstruction = [](void* data, const xmlChar* target, const xmlChar* value) {
    guard(data, [=](Reader& r) { r.leaf(NODE_PROCESSING_INSTRUCTION, r.idOf(target), view(value)); });
  };
  events.internalSubset = [](void* data, const xmlChar*, const xmlChar*, const xmlChar*) {
    guard(data, [](Reader& r) { r.refuse("a document type declaration is not allowed"); });
  };

  const ErrorHandler handler(this, onError);
  parser_ = xmlCreateIOParserCtxt(&events, this, readBytes, nullptr, this, XML_CHAR_ENCODING_NONE);
  if (parser_ == nullptr) {
    fail(0, 0, "there is not enough memory");
  } else {
    // Without NOENT an "&amp;" in an attribute would come as "&#38;". There are no entities but the five:
    // they would need a document type declaration.
    xmlCtxtUseOptions(parser_, XML_PARSE_HUGE | XML_PARSE_NONET | XML_PARSE_NOENT);
    xmlParseDocument(parser_);
    if (!failed_ && parser_->wellFormed == 0) refuse("the text is not well-formed");
    if (!failed_ && sourceIsSpent()) {
      document_->endsWithNewline = last_[1] == '\n' || (last_[1] == '\0' && last_[0] == '\n');
    }
  }
  return !failed_;
}

}  // namespace

bool readXml(ByteSource& source, DocumentNode* into, DomError& error) {
  return Reader(source, into, error).run();
}

}  // namespace dom
