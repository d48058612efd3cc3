#include "api/ApiBaseXmlDocumentWrapper.h"

bool ApiBaseXmlDocumentWrapper::create() {
  document_ = IXMLDOMDocument::create();
  return true;
}

bool ApiBaseXmlDocumentWrapper::initialize(std::string_view text) {
  return text.empty() || document_.loadXML(text, &error_);
}

bool ApiBaseXmlDocumentWrapper::load(const RWClassicCString& path) { return document_.load(path, &error_); }

bool ApiBaseXmlDocumentWrapper::save(const RWClassicCString& path, DomOverwrite overwrite) {
  return document_.save(path, &error_, overwrite);
}

bool ApiBaseXmlDocumentWrapper::getRootElement(IXMLDOMElement& element) const {
  const IXMLDOMElement root = document_.documentElement();
  if (root) element = root;
  return static_cast<bool>(root);
}
