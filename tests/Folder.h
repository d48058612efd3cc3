#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace files_test {

// "-" for a file that is not there.
inline std::string contentOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return file ? std::string(std::istreambuf_iterator<char>(file), {}) : "-";
}

// A directory of its own for the files of a test; it goes with the object.
class Folder {
 public:
  Folder() {
    std::string name = (std::filesystem::temp_directory_path() / "zelxml_test.XXXXXX").string();
    if (!::mkdtemp(name.data())) throw std::runtime_error("no temporary directory");
    path_ = name;
  }
  ~Folder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;

  const std::string& path() const { return path_; }
  std::string path(std::string_view name) const { return path_ + "/" + std::string(name); }
  // Writes a file, in a folder that is made for it, and answers its path.
  std::string write(std::string_view name, std::string_view text) const {
    const std::filesystem::path file = path(name);
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << text;
    return file.string();
  }
  std::string read(std::string_view name) const { return contentOf(path(name)); }
  // Names of all files, hidden ones included, sorted.
  std::vector<std::string> files() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path_))
      names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
  }

 private:
  std::string path_;
};

}  // namespace files_test
