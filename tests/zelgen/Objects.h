#pragma once

#include <map>
#include <string>
#include <vector>

#include "document/DocumentTest.h"
#include "zelstudy/StudyCheck.h"

namespace zelgen_test {

using document_test::at;
using document_test::parse;
using Strings = std::vector<std::string>;

// An object of a generated document, read by field.
struct Object {
  IXMLDOMElement node;
  std::size_t place;  // among the objects of its document
  std::string name = std::string(node.nodeName());

  bool has(const std::string& field) const {
    IXMLDOMNode found;
    return node.selectSingleNode(field, found);
  }
  std::string textOf(const std::string& field) const {
    IXMLDOMNode found;
    return node.selectSingleNode(field, found) ? found.text() : std::string();
  }
  std::string family() const { return textOf("NodeInfo/family"); }
  Strings items(const std::string& list) const {
    ZelXmlList<std::string> texts;
    zelXmlGetTextList(node, list, texts);
    return {texts.begin(), texts.end()};
  }
  bool holds(const std::string& list, const std::string& id) const {
    const Strings texts = items(list);
    return std::count(texts.begin(), texts.end(), id) == 1;
  }
};
using Objects = std::map<std::string, Object>;

inline Objects objectsOf(const IXMLDOMDocument& document) {
  Objects objects;
  const IXMLDOMNode section = at(document, "Data/Objects");
  for (IXMLDOMElement each = section.firstElementChild(); each; each = each.nextElementSibling()) {
    std::string_view id;
    EXPECT_TRUE(each.getAttribute("ExternalId", id) &&
                objects.emplace(id, Object{each, objects.size()}).second)
        << id;
  }
  return objects;
}

// A copy of the object stands last, in place of a former one.
inline IXMLDOMNode put(const IXMLDOMDocument& document, const std::string& id, const Object& object) {
  IXMLDOMElement former;
  if (document.findByAttribute("ExternalId", id, former)) zelXmlRemoveFromParent(former);
  const IXMLDOMNode copy = object.node.cloneNode(true);
  EXPECT_TRUE(at(document, "Data/Objects").appendChild(copy));
  return copy;
}

inline void expectInOrder(const IXMLDOMDocument& study) {
  for (const auto& finding : zelstudy::checkStudy(study, {.strict = true}).findings)
    ADD_FAILURE() << finding.code << ": " << finding.text;
}

}  // namespace zelgen_test
