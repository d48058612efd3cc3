#pragma once

#include "dom/IXMLDOMElement.h"

// An element handed from one library to another. It is a handle: copies stand for one element.
class ApiBaseXmlElementWrapper {
 public:
  ApiBaseXmlElementWrapper() = default;
  explicit ApiBaseXmlElementWrapper(const IXMLDOMElement& element) : element_(element) {}

  // Null for one made without an element.
  const IXMLDOMElement& element() const { return element_; }

 private:
  IXMLDOMElement element_;
};
