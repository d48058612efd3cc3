// Texts come from outside: no table of the project looks them up by a hash that an outsider can work out.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>
#include <string>

namespace {

TEST(Hashes, TablesByTextAreKeyed) {
  const std::regex byText(
      R"((unordered_(map|set)<\s*(const )?(std::string|_bstr_t|RWClassic[CW]String)\b|std::hash<std::string))");
  int looked = 0;
  for (const char* room : {"contracts", "lib", "platform", "tools"}) {
    for (const auto& entry :
         std::filesystem::recursive_directory_iterator(std::string(ZELXML_SOURCE_DIR "/") + room)) {
      const std::string extension = entry.path().extension();
      if (extension != ".h" && extension != ".cpp") continue;
      ++looked;
      std::ifstream file(entry.path());
      std::stringstream all;
      all << file.rdbuf();
      const std::string text = all.str();
      for (std::sregex_iterator at(text.begin(), text.end(), byText), end; at != end; ++at) {
        const auto from = static_cast<std::size_t>(at->position());
        const std::string statement = text.substr(from, text.find_first_of(";)=", from) - from);
        EXPECT_NE(statement.find("RWTextHash"), std::string::npos) << entry.path() << ": " << statement;
      }
    }
  }
  EXPECT_GT(looked, 200);
}

}  // namespace
