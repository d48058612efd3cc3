#include "dom/IXMLDOMDocument.h"

#include <algorithm>
#include <istream>
#include <ostream>

#include "DomFile.h"
#include "DomIndex.h"
#include "DomNames.h"
#include "DomReader.h"
#include "DomText.h"
#include "DomTree.h"
#include "DomWriter.h"
#include "dom/DomSave.h"

using dom::Node;

namespace {

class StreamSource : public dom::ByteSource {
 public:
  explicit StreamSource(std::istream& stream) : stream_(stream) {}

  std::ptrdiff_t read(char* to, std::size_t size) override {
    if (stream_.eof()) return 0;
    stream_.read(to, static_cast<std::streamsize>(size));
    if (stream_.bad() || (stream_.fail() && !stream_.eof())) {
      reason = "cannot read the stream";
      return -1;
    }
    return stream_.gcount();
  }

 private:
  std::istream& stream_;
};

class TextSource : public dom::ByteSource {
 public:
  explicit TextSource(std::string_view text) : rest_(text) {}

  std::ptrdiff_t read(char* to, std::size_t size) override {
    const std::size_t count = rest_.copy(to, size);
    rest_.remove_prefix(count);
    return static_cast<std::ptrdiff_t>(count);
  }

 private:
  std::string_view rest_;
};

class StreamSink : public dom::TextSink {
 public:
  explicit StreamSink(std::ostream& stream) : stream_(stream) {}

  bool write(std::string_view piece) override {
    return static_cast<bool>(stream_.write(piece.data(), static_cast<std::streamsize>(piece.size())));
  }

 private:
  std::ostream& stream_;
};

// Reads into a document of its own and takes that one's children over when all went well.
bool replace(dom::DocumentNode* document, dom::ByteSource& source, const std::string& file, DomError* error) {
  DomError ignored;
  DomError& told = error != nullptr ? *error : ignored;
  told = DomError{};
  told.file = file;
  const IXMLDOMDocument read = IXMLDOMDocument::create();
  dom::DocumentNode* const fresh = dom::asDocument(Node::of(read));
  fresh->preserveWhiteSpace = document->preserveWhiteSpace;
  if (!dom::readXml(source, fresh, told)) return false;
  document->indexes.reset();
  dom::removeChildren(document);
  document->setFirst(fresh->first());
  fresh->setFirst(nullptr);
  for (Node* child = document->first(); child != nullptr; child = child->next) child->parent = document;
  document->endsWithNewline = fresh->endsWithNewline;
  document->files.clear();
  dom::touch(document);
  return true;
}

bool refuse(DomError* error, const std::string& file, std::string reason) {
  if (error != nullptr) {
    *error = DomError{};
    error->file = file;
    error->reason = std::move(reason);
  }
  return false;
}

bool findFirst(Node* node, bool attribute, std::string_view name, std::string_view value,
               IXMLDOMElement& found) {
  if (node == nullptr) return false;
  std::vector<Node*> nodes;
  dom::findByValue(dom::asDocument(node), attribute, name, value, false, nodes);
  if (nodes.empty()) return false;
  found = Node::handle(nodes.front());
  return true;
}

}  // namespace

std::string DomError::message() const {
  std::string text = file;
  for (const unsigned number : {line, line != 0 ? column : 0}) {
    if (number == 0) continue;
    if (!text.empty()) text += ':';
    text += std::to_string(number);
  }
  return text.empty() ? reason : text + ": " + reason;
}

IXMLDOMDocument IXMLDOMDocument::create() { return Node::handle(dom::newDocument()); }

bool IXMLDOMDocument::preserveWhiteSpace() const noexcept {
  return node_ != nullptr && dom::asDocument(node_)->preserveWhiteSpace;
}

void IXMLDOMDocument::putPreserveWhiteSpace(bool preserve) const noexcept {
  if (node_ != nullptr) dom::asDocument(node_)->preserveWhiteSpace = preserve;
}

bool IXMLDOMDocument::load(const std::string& fileName, DomError* error) const {
  if (node_ == nullptr) return refuse(error, fileName, "there is no document");
  dom::FileSource source(fileName);
  if (!source.reason.empty()) return refuse(error, fileName, source.reason);
  dom::DocumentNode* const document = dom::asDocument(node_);
  if (!replace(document, source, fileName, error)) return false;
  if (!source.state().place.empty()) document->files.push_back(source.state());
  return true;
}

bool IXMLDOMDocument::load(std::istream& stream, DomError* error) const {
  if (node_ == nullptr) return refuse(error, {}, "there is no document");
  StreamSource source(stream);
  return replace(dom::asDocument(node_), source, {}, error);
}

bool IXMLDOMDocument::loadXML(std::string_view text, DomError* error) const {
  if (node_ == nullptr) return refuse(error, {}, "there is no document");
  TextSource source(text);
  return replace(dom::asDocument(node_), source, {}, error);
}

bool IXMLDOMDocument::save(const std::string& fileName, DomError* error, DomOverwrite overwrite) const {
  DomSave save;
  const bool saved = save.prepare(*this, fileName, overwrite) && save.commit();
  if (!saved && error != nullptr) *error = save.error();
  return saved;
}

bool IXMLDOMDocument::save(std::ostream& stream, DomError* error) const {
  if (node_ == nullptr) return refuse(error, {}, "there is no document");
  if (dom::firstElement(node_) == nullptr) return refuse(error, {}, dom::noElement);
  StreamSink sink(stream);
  return (dom::writeXml(node_, sink) && stream.flush()) || refuse(error, {}, "cannot write the stream");
}

IXMLDOMElement IXMLDOMDocument::documentElement() const { return firstElementChild(); }

IXMLDOMNode IXMLDOMDocument::createNode(int type, std::string_view name, std::string_view) const {
  if (node_ == nullptr) return {};
  dom::NameId id = dom::nameNone;
  bool isTarget = false;
  switch (type) {
    case NODE_TEXT:
      id = dom::nameText;
      break;
    case NODE_CDATA_SECTION:
      id = dom::nameCData;
      break;
    case NODE_COMMENT:
      id = dom::nameComment;
      break;
    case NODE_PROCESSING_INSTRUCTION:
      isTarget = true;
      [[fallthrough]];
    case NODE_ELEMENT:
    case NODE_ATTRIBUTE: {
      // "XML" and the like are kept from use as targets.
      constexpr std::string_view xml = "xml";
      const auto same = [](char a, char b) { return a == b || a - 'A' + 'a' == b; };
      const bool reserved = std::equal(name.begin(), name.end(), xml.begin(), xml.end(), same);
      if (!dom::validName(name) || (isTarget && reserved && name != xml)) return {};
      id = dom::internName(name);
      break;
    }
    default:
      return {};
  }
  Node* const node = dom::newNode(type, id);
  if (isTarget && id == dom::nameXml) dom::setOwnText(node, dom::defaultDeclaration);
  return Node::handle(dom::adopt(node, dom::asDocument(node_)));
}

IXMLDOMElement IXMLDOMDocument::createElement(std::string_view name) const {
  return createNode(NODE_ELEMENT, name);
}

IXMLDOMNode IXMLDOMDocument::createTextNode(std::string_view text) const {
  const IXMLDOMNode node = createNode(NODE_TEXT, {});
  return node.putNodeValue(text) ? node : IXMLDOMNode();
}

bool IXMLDOMDocument::findByAttribute(std::string_view name, std::string_view value,
                                      IXMLDOMElement& found) const {
  return findFirst(node_, true, name, value, found);
}

bool IXMLDOMDocument::findByChildText(std::string_view child, std::string_view text,
                                      IXMLDOMElement& found) const {
  return findFirst(node_, false, child, text, found);
}

std::size_t IXMLDOMDocument::livingNodes() noexcept { return dom::livingNodes(); }

DomWork IXMLDOMDocument::work() noexcept { return dom::work; }
