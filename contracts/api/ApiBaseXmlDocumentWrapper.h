#pragma once

#include <string_view>

#include "dom/IXMLDOMDocument.h"
#include "rw/RWClassicText.h"

// A document with the way from and to its file. It is a handle: copies stand for one document. Empty until
// `create` or a document is given. False changes nothing, and `lastError` tells why.
class ApiBaseXmlDocumentWrapper {
 public:
  ApiBaseXmlDocumentWrapper() = default;
  explicit ApiBaseXmlDocumentWrapper(const IXMLDOMDocument& document) : document_(document) {}

  // Turns to a new document without content.
  bool create();
  // Replaces the content by what the text holds; the empty text leaves it as it is.
  bool initialize(std::string_view text);
  // Replaces the content by that of a file.
  bool load(const RWClassicCString& path);
  // Replaces the file whole or not at all: IXMLDOMDocument::save.
  bool save(const RWClassicCString& path, DomOverwrite overwrite = DomOverwrite::known);

  const IXMLDOMDocument& xmlDocument() const { return document_; }
  // False, and `element` untouched, without one.
  bool getRootElement(IXMLDOMElement& element) const;
  // Of the last operation that answered false.
  const DomError& lastError() const { return error_; }

 private:
  IXMLDOMDocument document_;
  DomError error_;
};
