// Each relative link of the pages leads to a file of the tree.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

// Targets of the links in a page that name a file, without the anchor.
std::vector<std::string> linkedFiles(const std::string& page) {
  std::vector<std::string> files;
  for (auto at = page.find("]("); at != std::string::npos; at = page.find("](", at + 2)) {
    const std::string target = page.substr(at + 2, page.find_first_of(")#", at + 2) - at - 2);
    if (!target.empty() && target.find("://") == std::string::npos) files.push_back(target);
  }
  return files;
}

TEST(Links, AreReadFromAPage) {
  EXPECT_THAT(linkedFiles("[a](x.md) [b](../y/z.md#there), [c](#here) [d](https://e.org/f) (g) [h]"),
              testing::ElementsAre("x.md", "../y/z.md"));
}

TEST(Links, LeadToFiles) {
  const fs::path root = ZELXML_SOURCE_DIR;
  std::vector<fs::path> pages = {root / "README.md", root / "CONTRIBUTING.md", root / "CHANGELOG.md"};
  for (const char* folder : {"docs", "examples"})
    for (const auto& entry : fs::recursive_directory_iterator(root / folder))
      if (entry.path().extension() == ".md") pages.push_back(entry.path());
  std::vector<std::string> broken;
  std::size_t links = 0;
  for (const fs::path& page : pages) {
    std::ostringstream text;
    text << std::ifstream(page, std::ios::binary).rdbuf();
    for (const std::string& file : linkedFiles(text.str())) {
      ++links;
      if (!fs::exists(page.parent_path() / file))
        broken.push_back(page.lexically_relative(root).string() + ": " + file);
    }
  }
  EXPECT_GT(links, 0u);
  EXPECT_THAT(broken, testing::IsEmpty());
}

}  // namespace
