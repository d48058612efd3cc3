#include "zelstudy/EditScript.h"

#include "zelstudy/Utf8.h"

namespace zelstudy {

namespace {

bool isBlank(char c) { return c == ' ' || c == '\t'; }

// Reads the rest of a quoted word; `at` stands behind its opening quote, and behind the closing one
// afterwards.
std::string readQuoted(std::string_view line, std::size_t& at, std::string& word) {
  while (at < line.size()) {
    const char c = line[at++];
    if (c == '"') return {};
    if (c != '\\') {
      word += c;
      continue;
    }
    const char escaped = at < line.size() ? line[at++] : '\0';
    switch (escaped) {
      case '"':
      case '\\':
        word += escaped;
        break;
      case 'n':
        word += '\n';
        break;
      case 't':
        word += '\t';
        break;
      case '\0':
        return "the quote is not closed";
      default:
        return "unknown escape: only \\\" \\\\ \\n \\t stand in quotes";
    }
  }
  return "the quote is not closed";
}

}  // namespace

std::string splitScriptLine(std::string_view line, std::vector<std::string>& words) {
  for (std::size_t at = 0; at < line.size();) {
    if (line[at] == '#') break;
    if (isBlank(line[at])) {
      ++at;
      continue;
    }
    std::string& word = words.emplace_back();
    if (line[at] == '"') {
      if (std::string reason = readQuoted(line, ++at, word); !reason.empty()) return reason;
      if (at < line.size() && !isBlank(line[at]) && line[at] != '#')
        return "a blank is missing behind a closing quote";
      continue;
    }
    while (at < line.size() && !isBlank(line[at]) && line[at] != '#') {
      if (line[at] == '"')
        return "a quote inside a word: put the whole word in quotes, with \\\" for this one";
      word += line[at++];
    }
  }
  return {};
}

std::vector<ScriptOperation> parseEditScript(std::string_view text, std::vector<ScriptError>& errors) {
  std::vector<ScriptOperation> operations;
  if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
  for (unsigned number = 1; !text.empty(); ++number) {
    const std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (line.ends_with('\r')) line.remove_suffix(1);

    std::vector<std::string> words;
    std::string reason = isUtf8(line) ? splitScriptLine(line, words) : "the line is not UTF-8";
    if (reason.empty() && words.empty()) continue;
    const EditOperation* operation = nullptr;
    if (reason.empty()) {
      operation = findEditOperation(words.front());
      words.erase(words.begin(), words.begin() + (operation ? 1 : 0));
      reason = operation ? operation->refuse(words) : "unknown operation \"" + words.front() + "\"";
    }
    if (reason.empty()) {
      operations.push_back({number, operation, Arguments(std::move(words))});
    } else {
      errors.push_back({number, std::move(reason)});
    }
  }
  return operations;
}

}  // namespace zelstudy
