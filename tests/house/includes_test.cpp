// Holds the rules of CONTRIBUTING.md about which room may include what, read off the #include lines.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace {

// Path below the project's folder, and text.
using Tree = std::map<std::string, std::string>;

constexpr std::string_view systemRoom = "lib/ZelXml/src/";

// The rooms of the system from the bottom up: a room includes itself and what stands before it. Rooms of one
// rank are side by side.
const std::map<std::string_view, int> rank = {
    {"document", 0}, {"node", 1}, {"prototype", 2}, {"equipment", 2}, {"resource", 2}, {"operation", 2},
    {"plc", 2},      {"ipa", 2},  {"variant", 2},   {"wrapper", 3},   {"merge", 4},
};

// Headers of the outside, by how their names begin, and the one folder in which each may stand.
const std::map<std::string_view, std::string_view> thirdParty = {
    {"libxml/", "platform/dom/"},
    {"Eigen/", "platform/geometry/"},
    {"uuid/", "platform/session/"},
    {"sqlite3", "platform/store/"},
};
// The operating system's, for the platform's folders.
const std::set<std::string_view> posix = {"dirent.h", "fcntl.h",  "stdlib.h",
                                          "stdio.h",  "string.h", "unistd.h"};

bool startsWithAny(std::string_view text, std::initializer_list<std::string_view> beginnings) {
  return std::any_of(beginnings.begin(), beginnings.end(), [&](auto b) { return text.starts_with(b); });
}

// "plc" for lib/ZelXml/src/plc/..., empty outside the system.
std::string_view roomOf(std::string_view path) {
  if (!path.starts_with(systemRoom)) return {};
  path.remove_prefix(systemRoom.size());
  return path.substr(0, path.find('/'));
}

// The file of the tree that an include means, empty for one of the outside.
std::string resolve(const Tree& tree, const std::string& from, const std::string& name) {
  const std::string beside = (std::filesystem::path(from).parent_path() / name).lexically_normal().string();
  for (const std::string& candidate :
       {beside, "contracts/" + name, std::string(systemRoom) + name, "platform/" + name})
    if (tree.contains(candidate)) return candidate;
  return {};
}

bool isStandard(std::string_view name) { return name.find_first_of("./") == std::string_view::npos; }

// Why `from` may not include `name`, empty if it may.
std::string refusal(const std::string& from, const std::string& name, const std::string& target) {
  if (target.empty()) {
    for (const auto& [beginning, home] : thirdParty)
      if (name.starts_with(beginning))
        return from.starts_with(home) ? "" : "stands in " + std::string(home) + " only";
    if (isStandard(name) || startsWithAny(from, {"tools/"})) return "";
    if (startsWithAny(from, {"contracts/", "lib/"}))
      return "is neither the project's nor the standard library's";
    return posix.contains(name) || name.starts_with("sys/") ? "" : "is a library that no folder is named for";
  }
  if (from.starts_with("contracts/"))
    return target.starts_with("contracts/") ? "" : "contracts include contracts only";
  if (target.starts_with("platform/") && !from.starts_with("platform/"))
    return "platform is reached by contracts only";
  if (from.starts_with("platform/") && target.starts_with("lib/"))
    return "the platform knows nothing of the system";
  if (from.starts_with("platform/") && target.starts_with("platform/")) {
    const auto folder = [](const std::string& path) { return path.substr(0, path.find('/', 9)); };
    return folder(from) == folder(target)
               ? ""
               : "one service of the platform is reached by another by contracts only";
  }
  const std::string_view fromRoom = roomOf(from), toRoom = roomOf(target);
  if (fromRoom.empty() || toRoom.empty() || fromRoom == toRoom) return "";
  if (!rank.contains(fromRoom) || !rank.contains(toRoom)) return "a room without a rank";
  if (rank.at(fromRoom) >= rank.at(toRoom)) return "";
  return "points up from " + std::string(fromRoom) + " to " + std::string(toRoom);
}

// One line of "file:line: header: reason" for each include that breaks a rule.
std::vector<std::string> violations(const Tree& tree) {
  std::vector<std::string> found;
  for (const auto& [path, text] : tree) {
    std::istringstream lines(text);
    std::string line;
    for (int number = 1; std::getline(lines, line); ++number) {
      std::string directive = line.substr(0, line.find_first_of("<\""));
      std::erase_if(directive, [](char c) { return c == ' ' || c == '\t'; });
      if (!directive.starts_with("#include")) continue;
      const auto open = line.find_first_of("<\"");
      const auto close = line.find_first_of(">\"", open + 1);
      if (open == std::string::npos || close == std::string::npos) {
        found.push_back(path + ":" + std::to_string(number) + ": an include that cannot be read");
        continue;
      }
      const std::string name = line.substr(open + 1, close - open - 1);
      const std::string target = resolve(tree, path, name);
      const std::string reason = refusal(path, name, target);
      if (!reason.empty()) found.push_back(path + ":" + std::to_string(number) + ": " + name + ": " + reason);
    }
  }
  return found;
}

Tree readTree() {
  namespace fs = std::filesystem;
  Tree tree;
  const fs::path root = ZELXML_SOURCE_DIR;
  for (const char* room : {"contracts", "lib", "platform", "tools"})
    for (const auto& entry : fs::recursive_directory_iterator(root / room)) {
      if (entry.path().extension() != ".h" && entry.path().extension() != ".cpp") continue;
      std::ostringstream text;
      text << std::ifstream(entry.path(), std::ios::binary).rdbuf();
      tree[entry.path().lexically_relative(root).generic_string()] = text.str();
    }
  return tree;
}

TEST(Includes, EveryRoomKeepsTheRules) {
  const Tree tree = readTree();
  for (const char* room : {"contracts/", "lib/", "platform/", "tools/"})
    EXPECT_TRUE(tree.lower_bound(room) != tree.end() && tree.lower_bound(room)->first.starts_with(room))
        << "nothing was read from " << room;
  EXPECT_THAT(violations(tree), testing::IsEmpty());
}

TEST(Includes, EveryKindOfBreachIsFound) {
  const Tree good = {
      {"contracts/dom/Node.h", "#include <string>\n"},
      {"lib/ZelXml/src/document/Fields.h", "#include \"dom/Node.h\"\n"},
      {"lib/ZelXml/src/merge/Merge.h", "#include \"wrapper/ZelXmlWrapper.h\"\n"},
      {"lib/ZelXml/src/node/Node.h", "class ZelXmlWrapper;\n"},
      {"lib/ZelXml/src/node/Node.cpp", "#include \"node/Node.h\"\n"},
      {"lib/ZelXml/src/plc/Signal.h", "#include \"document/Fields.h\"\n"},
      {"lib/ZelXml/src/wrapper/ZelXmlWrapper.h", "#include \"plc/Signal.h\"\n"},
      {"platform/dom/Parser.h", "#include <libxml/parser.h>\n#include <unistd.h>\n"},
      {"platform/files/Files.h", "#include <sys/stat.h>\n"},
      {"tools/tool/Tool.cpp", "#include <CLI/CLI.hpp>\n#include \"merge/Merge.h\"\n"},
  };
  ASSERT_THAT(violations(good), testing::IsEmpty());

  struct Case {
    const char *file, *line, *found;
  };
  const Case cases[] = {
      {"contracts/dom/Node.h", "#include <libxml/tree.h>", "stands in platform/dom/ only"},
      {"contracts/dom/Node.h", "#include <unistd.h>", "neither the project's nor the standard library's"},
      {"contracts/dom/Node.h", "#include \"document/Fields.h\"", "contracts include contracts only"},
      {"contracts/dom/Node.h", "#include \"../../platform/dom/Parser.h\"",
       "contracts include contracts only"},
      {"lib/ZelXml/src/plc/Signal.h", "#include <Eigen/Geometry>", "stands in platform/geometry/ only"},
      {"lib/ZelXml/src/plc/Signal.h", "#include <boost/any.hpp>", "neither the project's"},
      {"lib/ZelXml/src/plc/Signal.h", "  #  include \"dom/Parser.h\"",
       "platform is reached by contracts only"},
      {"lib/ZelXml/src/plc/Signal.h", "#include \"merge/Merge.h\"", "points up from plc to merge"},
      {"lib/ZelXml/src/node/Node.h", "#include \"wrapper/ZelXmlWrapper.h\"",
       "points up from node to wrapper"},
      {"lib/ZelXml/src/node/Node.cpp", "#include \"wrapper/ZelXmlWrapper.h\"",
       "points up from node to wrapper"},
      {"lib/ZelXml/src/wrapper/ZelXmlWrapper.h", "#include \"merge/Merge.h\"",
       "points up from wrapper to merge"},
      {"lib/ZelXml/src/node/Node.cpp", "#include \"plc/Signal.h\"", "points up from node to plc"},
      {"lib/ZelXml/src/attic/Old.h", "#include \"merge/Merge.h\"", "a room without a rank"},
      {"platform/files/Files.h", "#include <libxml/parser.h>", "stands in platform/dom/ only"},
      {"platform/files/Files.h", "#include <curl/curl.h>", "a library that no folder is named for"},
      {"platform/files/Files.h", "#include \"dom/Parser.h\"", "one service of the platform"},
      {"platform/files/Files.h", "#include \"merge/Merge.h\"", "the platform knows nothing of the system"},
      {"tools/tool/Tool.cpp", "#include \"dom/Parser.h\"", "platform is reached by contracts only"},
      {"tools/tool/Tool.cpp", "#include <Eigen/Dense>", "stands in platform/geometry/ only"},
      {"tools/tool/Tool.cpp", "#include SOMETHING", "cannot be read"},
  };
  for (const Case& c : cases) {
    Tree tree = good;
    tree[c.file] = std::string("\n") + c.line + "\n";
    EXPECT_THAT(violations(tree),
                testing::ElementsAre(testing::AllOf(testing::StartsWith(std::string(c.file) + ":2: "),
                                                    testing::HasSubstr(c.found))))
        << c.line;
  }
}

}  // namespace
