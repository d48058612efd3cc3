#include <algorithm>

#include "StudyCase.h"
#include "dom/IXMLDOMDocument.h"

namespace fuzz {

namespace {

class Mutation {
 public:
  Mutation(const IXMLDOMDocument& document, std::mt19937_64& random) : document_(document), random_(random) {
    document.selectSingleNode("Data/Objects", section_);
    for (IXMLDOMElement each = section_.firstElementChild(); each; each = each.nextElementSibling())
      objects_.push_back(each);
  }

  bool one() {
    if (objects_.empty()) return false;
    const IXMLDOMElement object = any(objects_);
    const IXMLDOMElement field = below(object);
    switch (random_() % 13) {
      case 0:
        return section_.removeChild(object);
      case 1:
        return section_.appendChild(object.cloneNode(true));  // two of one id
      case 2:
        return object.setAttribute("ExternalId", text());
      case 3:
        return object.removeAttribute("ExternalId");
      case 4:
        return list(object);
      case 5:
        return field.parentNode().removeChild(field);
      case 6:
        return field.putText(text());
      case 7:
        return rename(object, any(objects_).nodeName());
      case 8:
        return any(objects_).appendChild(object);  // an object inside another, or none
      case 9: {
        IXMLDOMNode mine, other;
        return object.selectSingleNode("NodeInfo/family", mine) &&
               any(objects_).selectSingleNode("NodeInfo/family", other) && mine.putText(other.text());
      }
      case 10:
        return field.parentNode().appendChild(field.cloneNode(true));
      case 11:
        return section_.appendChild(object);  // at another place
      default:
        return field.putText(id(object));  // leads to itself
    }
  }

 private:
  template <class T>
  const T& any(const std::vector<T>& of) {
    return of[random_() % of.size()];
  }
  static std::string id(const IXMLDOMNode& object) {
    std::string_view value;
    object.getAttribute("ExternalId", value);
    return std::string(value);
  }
  std::string text() { return random_() % 2 ? id(any(objects_)) : any(wildTexts()); }

  IXMLDOMElement below(const IXMLDOMElement& object) {
    std::vector<IXMLDOMElement> fields;
    IXMLDOMNodeList all;
    object.selectNodes(".//*", all) || object.selectNodes("*", all);
    for (const IXMLDOMNode& each : all) {
      fields.push_back(each);
      for (IXMLDOMElement child = each.firstElementChild(); child; child = child.nextElementSibling())
        fields.push_back(child);
    }
    return fields.empty() ? object : any(fields);
  }

  bool list(const IXMLDOMElement& object) {
    static const std::vector<std::string> names = {"children", "parents", "labels", "info"};
    const std::string& name = any(names);
    IXMLDOMNode found;
    if (!object.selectSingleNode(name, found)) {
      found = document_.createElement(name);
      object.appendChild(found);
    }
    const IXMLDOMElement item = document_.createElement("item");
    return item.putText(text()) && found.appendChild(item);
  }

  bool rename(const IXMLDOMElement& object, std::string_view name) {
    const IXMLDOMElement made = document_.createElement(name);
    for (const IXMLDOMNode& attribute : object.attributes())
      made.setAttribute(attribute.nodeName(), attribute.nodeValue());
    for (const IXMLDOMNode& child : object.childNodes()) made.appendChild(child);
    return section_.removeChild(object) && section_.appendChild(made);
  }

  IXMLDOMDocument document_;
  std::mt19937_64& random_;
  IXMLDOMNode section_;
  std::vector<IXMLDOMElement> objects_;
};

}  // namespace

const std::vector<std::string>& wildTexts() {
  static const std::vector<std::string> texts = {"",
                                                 " ",
                                                 "NULL",
                                                 "null",
                                                 "0",
                                                 "-1",
                                                 "1e308",
                                                 "nan",
                                                 "-inf",
                                                 "2147483648",
                                                 "'",
                                                 "\"",
                                                 "'\"",
                                                 "]",
                                                 "[",
                                                 "]]>",
                                                 "<",
                                                 "&amp",
                                                 "a b",
                                                 " a ",
                                                 "//*",
                                                 "@x",
                                                 "*[@a='b']",
                                                 "\n",
                                                 "\t",
                                                 "\r",
                                                 "/",
                                                 "..",
                                                 "#",
                                                 "\u00e4",
                                                 "\u2028",
                                                 "\ufffd",
                                                 "\U0001F600",
                                                 "\U0010FFFD",
                                                 std::string(65536, 'x'),
                                                 std::string(300, ']')};
  return texts;
}

std::string mutateBytes(std::string text, std::mt19937_64& random) {
  for (std::size_t times = 1 + random() % 3; times > 0; --times) {
    const std::size_t at = random() % (text.size() + 1);
    const std::size_t size = std::min<std::size_t>(text.size() - at, random() % 40);
    switch (random() % 6) {
      case 0:
        if (at < text.size()) text[at] = static_cast<char>(random());
        break;
      case 1:
        text.insert(at, 1, static_cast<char>(random()));
        break;
      case 2:
        text.erase(at, size);
        break;
      case 3:
        text.insert(random() % (text.size() + 1), text.substr(at, size));
        break;
      case 4:
        text.insert(at, wildTexts()[random() % 34]);
        break;
      default:
        if (random() % 4 == 0) text.resize(at);
    }
  }
  return text;
}

std::string mutateStudy(const std::string& study, std::mt19937_64& random) {
  const IXMLDOMDocument document = IXMLDOMDocument::create();
  if (random() % 8 == 0 || !document.loadXML(study)) return mutateBytes(study, random);
  for (std::size_t times = 1 + random() % 6; times > 0; --times) Mutation(document, random).one();
  return document.xml();
}

}  // namespace fuzz
