#pragma once

#include <cctype>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zelgen_test {

struct Element {
  std::string name;
  std::map<std::string, std::string> attributes;
  std::string text;  ///< of a leaf; blanks between elements are dropped
  std::vector<Element> children;

  const Element* child(std::string_view wanted) const {
    for (const auto& each : children) {
      if (each.name == wanted) return &each;
    }
    return nullptr;
  }
  std::string textOf(std::string_view wanted) const {
    const Element* found = child(wanted);
    return found ? found->text : "";
  }
  std::vector<std::string> items(std::string_view list) const {
    std::vector<std::string> result;
    if (const Element* found = child(list)) {
      for (const auto& item : found->children) result.push_back(item.text);
    }
    return result;
  }
  bool operator==(const Element&) const = default;
};

/// Reads the little XML that the generator writes, and throws at anything that is not well-formed. It is
/// apart from the library's own reader so that generator and reader cannot share a mistake.
class MiniXml {
 public:
  static Element parse(std::string_view document) {
    MiniXml reader(document);
    reader.skipAside();
    Element root = reader.element();
    reader.skipAside();
    if (reader.at_ != document.size()) reader.fail("text behind the root");
    return root;
  }

 private:
  explicit MiniXml(std::string_view document) : document_(document) {}

  [[noreturn]] void fail(const std::string& what) const {
    throw std::runtime_error(what + " at byte " + std::to_string(at_));
  }
  bool sees(std::string_view text) const { return document_.substr(at_, text.size()) == text; }
  void expect(std::string_view text) {
    if (!sees(text)) fail("expected " + std::string(text));
    at_ += text.size();
  }
  std::string upTo(std::string_view stop) {
    const auto end = document_.find(stop, at_);
    if (end == std::string_view::npos) fail("no " + std::string(stop));
    std::string result(document_.substr(at_, end - at_));
    at_ = end + stop.size();
    return result;
  }
  void skipBlanks() {
    while (at_ < document_.size() && std::isspace(static_cast<unsigned char>(document_[at_]))) ++at_;
  }
  /// Blanks, comments and processing instructions.
  void skipAside() {
    for (skipBlanks(); sees("<?") || sees("<!--"); skipBlanks()) {
      if (sees("<?")) {
        upTo("?>");
        continue;
      }
      expect("<!--");
      if (upTo("-->").find("--") != std::string::npos) fail("-- in a comment");
    }
  }
  std::string name() {
    const auto start = at_;
    while (at_ < document_.size() && std::isalnum(static_cast<unsigned char>(document_[at_]))) ++at_;
    if (at_ == start) fail("expected a name");
    return std::string(document_.substr(start, at_ - start));
  }
  std::string unescaped(const std::string& raw) const {
    static const std::map<std::string, char> kEntities = {
        {"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}};
    std::string result;
    for (std::size_t i = 0; i < raw.size(); ++i) {
      if (raw[i] == '<') fail("bare <");
      if (raw[i] != '&') {
        result += raw[i];
        continue;
      }
      const auto end = raw.find(';', i);
      if (end == std::string::npos) fail("bare &");
      result += kEntities.at(raw.substr(i + 1, end - i - 1));
      i = end;
    }
    return result;
  }
  Element element() {
    Element result;
    expect("<");
    result.name = name();
    while (sees(" ")) {
      ++at_;
      const std::string key = name();
      expect("=\"");
      if (!result.attributes.emplace(key, unescaped(upTo("\""))).second) fail("attribute twice");
    }
    if (sees("/>")) {
      at_ += 2;
      return result;
    }
    expect(">");
    const auto start = at_;
    for (skipAside(); sees("<") && !sees("</"); skipAside()) result.children.push_back(element());
    if (result.children.empty()) {
      at_ = start;
      result.text = unescaped(upTo("</"));
      if (result.text.find_first_not_of(" \n") == std::string::npos) result.text.clear();
    } else {
      expect("</");
    }
    expect(result.name);
    expect(">");
    return result;
  }

  std::string_view document_;
  std::size_t at_ = 0;
};

}  // namespace zelgen_test
