#pragma once

#include <iosfwd>
#include <string>
#include <string_view>

#include "dom/DomWork.h"
#include "dom/IXMLDOMElement.h"
#include "dom/IXMLDOMNode.h"
#include "dom/IXMLDOMNodeList.h"

// Why a document was not read or not written. `line` and `column` are 0 where there is no place in a text.
struct DomError {
  std::string file;
  unsigned line = 0;
  unsigned column = 0;
  std::string reason;
  bool outdated = false;  // a save was refused: the file is not the one any more that was read

  // "file:line:column: reason", without the parts that are not known.
  std::string message() const;
};

// What a save may replace. A document remembers the files that it was read from and saved to, as they were
// then: `known` refuses one that has been changed since, so that nobody's work is lost without a word. Other
// files, and one that is gone by now, are no matter of it.
enum class DomOverwrite { known, any };

// A handle to a document node: null when made from any other node.
class IXMLDOMDocument : public IXMLDOMNode {
 public:
  IXMLDOMDocument() noexcept = default;
  IXMLDOMDocument(const IXMLDOMNode& node) noexcept  // NOLINT(google-explicit-constructor)
      : IXMLDOMNode(node.nodeType() == NODE_DOCUMENT ? node : IXMLDOMNode()) {}
  IXMLDOMDocument(IXMLDOMNode&& node) noexcept  // NOLINT(google-explicit-constructor)
      : IXMLDOMNode(node.nodeType() == NODE_DOCUMENT ? std::move(node) : IXMLDOMNode()) {}

  // Most different names of elements, attributes and processing instructions that a text may have to be read:
  // names are kept for the life of the process.
  static constexpr std::size_t maxNames = 10'000;

  // A new empty document.
  static IXMLDOMDocument create();

  // True at first: white space between elements is kept as it is read. Set it before reading.
  bool preserveWhiteSpace() const noexcept;
  void putPreserveWhiteSpace(bool preserve) const noexcept;

  // Replace the content of this document by what the file, stream or text holds. Handles to former nodes
  // stay good, detached. A false result leaves the document as it was and tells file, line, column and
  // reason: text that is not well-formed or mis-encoded, a document type declaration, more than maxDepth
  // levels, maxAttributes attributes of an element or maxNames names, a file that cannot be read, a stream
  // that throws. Reading streams: the text is never held whole beside the tree.
  bool load(const std::string& fileName, DomError* error = nullptr) const;
  bool load(std::istream& stream, DomError* error = nullptr) const;
  bool loadXML(std::string_view text, DomError* error = nullptr) const;

  // Writes the document in UTF-8. To a file it is all or nothing: a temporary file beside the target is
  // written, flushed to disk and renamed onto it, with the attributes of the former file as far as this
  // process may give them; a link is followed. After a false result the former file is whole, no temporary
  // file is left, and `error` names the cause. A process that is killed meanwhile may leave the temporary
  // file ".save.*.tmp"; the next save of the same file removes it. A document without an element is refused,
  // since no one could read it, and so is a target that is no regular file or may not be written.
  //
  // With DomOverwrite::known, of all programs that have read the same file and save it through this library
  // at once one succeeds; the others are told. DomSave does the same in two steps and tells what of the
  // former file could not be kept.
  bool save(const std::string& fileName, DomError* error = nullptr,
            DomOverwrite overwrite = DomOverwrite::known) const;
  bool save(std::ostream& stream, DomError* error = nullptr) const;

  IXMLDOMElement documentElement() const;

  // A detached node owned by this document: element, attribute, text, CDATA section, comment or processing
  // instruction. Null for another type and for a name that XML does not allow. The namespace is not looked
  // at: names are carried as they are written, prefix included. A processing instruction "xml" is the XML
  // declaration, of version 1.0 in UTF-8 as long as it gets no other value.
  IXMLDOMNode createNode(int type, std::string_view name, std::string_view nameSpace = {}) const;
  IXMLDOMElement createElement(std::string_view name) const;
  IXMLDOMNode createTextNode(std::string_view text) const;

  // First element in document order whose attribute `name` has exactly this value. The first search for an
  // attribute name makes an index, which the document keeps in step with its changes. The value is data: no
  // character in it has a meaning.
  bool findByAttribute(std::string_view name, std::string_view value, IXMLDOMElement& found) const;
  // First element in document order that has a child element `child` with exactly this text; indexed alike.
  bool findByChildText(std::string_view child, std::string_view text, IXMLDOMElement& found) const;

  // Nodes of all kinds alive in this process, for leak tests. A text that stands in its element alone is no
  // node until someone asks for it.
  static std::size_t livingNodes() noexcept;
  static DomWork work() noexcept;

 private:
  using IXMLDOMNode::IXMLDOMNode;
  friend struct dom::Node;
};

template <>
struct std::hash<IXMLDOMDocument> : std::hash<IXMLDOMNode> {};
