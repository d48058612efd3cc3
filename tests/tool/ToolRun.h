#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace tool_test {

// What one run of the program gave.
struct Run {
  int exitCode = -1;  // -1 for a run that a signal ended
  std::string out;
  std::string err;

  nlohmann::json json() const { return nlohmann::json::parse(out); }
  // One value per line.
  std::vector<nlohmann::json> lines() const;
};

// A directory of its own for a test's files; it goes with the object.
class Folder {
 public:
  Folder();
  ~Folder();
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;

  std::string path(std::string_view name) const { return path_ + "/" + std::string(name); }
  // Writes a file and answers its path.
  std::string write(std::string_view name, std::string_view text) const;
  std::string read(std::string_view name) const;
  // Names of all files, sorted.
  std::vector<std::string> files() const;

 private:
  std::string path_;
};

// Runs zelstudy with these arguments. `stackKiB` limits its stack; 0 leaves it alone.
Run run(const std::vector<std::string>& arguments, std::string_view input = {}, unsigned stackKiB = 0);

// A study with a shortcut to the compound part "A", in it the part "B" at (1, 2, 3), and beside it the
// compound resource "C". Its session data are complete, so that a save adds nothing.
extern const std::string_view smallStudy;

// `text` with the one occurrence of `from` replaced; the empty text when there is not exactly one.
std::string replaced(std::string_view text, std::string_view from, std::string_view to);

}  // namespace tool_test
