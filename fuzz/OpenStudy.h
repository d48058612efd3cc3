#pragma once

#include <memory>
#include <string_view>

#include "dom/IXMLDOMDocument.h"
#include "wrapper/ZelXmlWrapper.h"

namespace fuzz {

// A study in the session, with nodes and an OUT document. One at a time turns the session to itself; others
// may be open beside it. All made ids follow from `number` and how many there were before.
class OpenStudy {
 public:
  // `document` has been read already.
  explicit OpenStudy(const IXMLDOMDocument& document, int number = 0);
  ~OpenStudy();
  OpenStudy(const OpenStudy&) = delete;
  OpenStudy& operator=(const OpenStudy&) = delete;

  // Makes the session this study's. Every use of another one asks for it first.
  void enter();

  ZelXmlWrapper& wrapper() { return *wrapper_; }
  const IXMLDOMDocument& document() const { return document_; }
  const IXMLDOMDocument& out() const { return out_; }
  bool built() const { return built_; }
  // What a save writes; empty when it fails.
  std::string saved();

 private:
  IXMLDOMDocument document_;
  IXMLDOMDocument out_ = IXMLDOMDocument::create();
  std::unique_ptr<ZelXmlWrapper> wrapper_;
  std::string prefix_;
  int made_ = 0;
  bool built_ = false;
};

}  // namespace fuzz
