#pragma once

#include "StudyText.h"
#include "api/ApiPmIds.h"
#include "api/ApiPmSessionManager.h"
#include "api/ApiPmXmlCacheDocumentMgr.h"
#include "document/ZelXmlFunctions.h"
#include "dom/DomTesting.h"

namespace document_test {

using domtest::at;
inline IXMLDOMDocument parse(std::string_view text) { return domtest::parsed(text); }

inline IXMLDOMNode object(const IXMLDOMDocument& document, std::string_view id) {
  IXMLDOMElement found;
  EXPECT_TRUE(document.findByAttribute("ExternalId", id, found)) << id;
  return found;
}

inline std::string root(const IXMLDOMDocument& document) { return document.documentElement().xml(); }

inline RTTran3D along(double x) { return RTTran3D({x, 0, 0}, {}); }

// A study held by the session, an OUT document with an index, and new ids "new1", "new2", ...
class DocumentTest : public testing::Test {
 protected:
  void SetUp() override {
    api::setGuidSource([this] { return "new" + std::to_string(++ids_); });
    ApiPmXmlCacheDocumentMgr::the().addDocument(out);
  }
  void TearDown() override {
    ApiPmXmlCacheDocumentMgr::the().removeDocument(out);
    session().setImportedDocumentAndDocRef({}, {});
    session().systemRoot.clear();
    session().modeField = 0;
    api::setGuidSource(nullptr);
  }

  static ApiPmSessionManager& session() { return ApiPmSessionManager::the(); }
  static ApiPmXmlCachedDocument& cached() { return session().cachedDocument(); }

  // `objects` is the content of Data/Objects.
  void open(const std::string& objects) { openText(dataOf(objects)); }
  void openText(const std::string& text) {
    study = parse(text);
    session().setImportedDocumentAndDocRef(study, {});
  }
  IXMLDOMNode element(std::string_view id) const { return object(study, id); }
  std::string text(std::string_view id, std::string_view path) const { return at(element(id), path).text(); }
  std::string objects() const {
    std::string text;
    for (auto child = at(study, "Data/Objects").firstElementChild(); child;
         child = child.nextElementSibling())
      text += child.xml();
    return text;
  }

  IXMLDOMDocument study;
  IXMLDOMDocument out = IXMLDOMDocument::create();
  const IXMLDOMDocument none;

 private:
  int ids_ = 0;
};

}  // namespace document_test
