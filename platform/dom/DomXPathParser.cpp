#include "DomNames.h"
#include "DomText.h"
#include "DomXPath.h"

namespace dom {

namespace {

constexpr int deepestNesting = 8;  // of brackets and parentheses

class Parser {
 public:
  explicit Parser(std::string_view text) : rest_(text) {}

  bool all(Path& path) { return takePath(path, true) && atEnd(); }

  bool lookup(bool& attribute, std::string_view& name, std::string_view& value) {
    if (!take("//") || !take("*") || !take("[")) return false;
    attribute = take("@");
    return takeName(name) && take("=") && takeLiteral(value) && take("]") && atEnd();
  }

 private:
  static bool nameByte(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
           c == '-' || c == '.' || c == ':' || static_cast<unsigned char>(c) >= 0x80;
  }

  void skipSpace() {
    while (!rest_.empty() && isBlank(rest_.substr(0, 1))) rest_.remove_prefix(1);
  }

  bool atEnd() {
    skipSpace();
    return rest_.empty();
  }

  bool take(std::string_view token) {
    skipSpace();
    if (!rest_.starts_with(token)) return false;
    rest_.remove_prefix(token.size());
    return true;
  }

  bool takeName(std::string_view& name) {
    skipSpace();
    std::size_t size = 0;
    while (size < rest_.size() && nameByte(rest_[size])) ++size;
    name = rest_.substr(0, size);
    // "axis::name" is outside the subset, prefixed names are as they are written.
    if (!validName(name) || name.front() == ':' || name.back() == ':') return false;
    if (name.find("::") != std::string_view::npos) return false;
    rest_.remove_prefix(size);
    return true;
  }

  bool takeWord(std::string_view word) {
    skipSpace();
    if (!rest_.starts_with(word) || (rest_.size() > word.size() && nameByte(rest_[word.size()])))
      return false;
    rest_.remove_prefix(word.size());
    return true;
  }

  bool takeLiteral(std::string_view& literal) {
    skipSpace();
    if (rest_.empty() || (rest_.front() != '"' && rest_.front() != '\'')) return false;
    const std::size_t end = rest_.find(rest_.front(), 1);
    if (end == std::string_view::npos) return false;
    literal = rest_.substr(1, end - 1);
    rest_.remove_prefix(end + 1);
    return true;
  }

  bool takePath(Path& path, bool mayBeAbsolute) {
    bool descendant = take("//");
    path.absolute = descendant || take("/");
    if (path.absolute && !mayBeAbsolute) return false;
    for (;;) {
      if (path.steps.size() == mostSteps) return false;
      Step& step = path.steps.emplace_back(Step{anyName, descendant, {}});
      std::string_view name;
      if (!take("*")) {
        if (!takeName(name)) return false;
        step.name = internName(name);
      }
      while (take("[")) {
        if (!takeTerms(step.terms) || !take("]")) return false;
      }
      descendant = take("//");
      if (!descendant && !take("/")) return true;
    }
  }

  // Terms joined by "and": parentheses around some of them change nothing.
  bool takeTerms(std::vector<Term>& terms) {
    if (++nesting_ > deepestNesting) return false;
    do {
      if (take("(")) {
        if (!takeTerms(terms) || !take(")")) return false;
      } else if (!takeTerm(terms.emplace_back())) {
        return false;
      }
    } while (takeWord("and"));
    --nesting_;
    return true;
  }

  bool takeTerm(Term& term) {
    if (take("@")) {
      term.attribute = true;
      std::string_view name;
      if (!takeName(name)) return false;
      term.name = internName(name);
    } else if (!takePath(term.path, false)) {
      return false;
    }
    const bool unequal = take("!=");
    if (!unequal && !take("=")) return true;
    std::string_view literal;
    if (!takeLiteral(literal)) return false;
    term.kind = unequal ? Term::unequal : Term::equal;
    term.literal = literal;
    return true;
  }

  std::string_view rest_;
  int nesting_ = 0;
};

}  // namespace

bool parsePath(std::string_view xpath, Path& path) { return Parser(xpath).all(path); }

bool parseLookup(std::string_view xpath, bool& attribute, std::string_view& name, std::string_view& value) {
  return xpath.starts_with("//*[") && Parser(xpath).lookup(attribute, name, value);
}

}  // namespace dom
