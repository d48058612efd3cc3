#pragma once

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace torture {

// A directory that goes with the object, in the process that made it.
class Scratch {
 public:
  Scratch() {
    if (::mkdtemp(path_.data()) == nullptr) throw std::runtime_error("no temporary directory");
  }
  ~Scratch() {
    std::error_code ignored;
    if (::getpid() == maker_) std::filesystem::remove_all(path_, ignored);
  }
  Scratch(const Scratch&) = delete;
  Scratch& operator=(const Scratch&) = delete;

  std::string path(const std::string& name = {}) const { return name.empty() ? path_ : path_ + "/" + name; }
  std::string write(const std::string& name, const std::string& text) const {
    std::ofstream(path(name), std::ios::binary) << text;
    return path(name);
  }
  std::string read(const std::string& name) const {
    std::ifstream in(path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  std::size_t files() const {
    return static_cast<std::size_t>(
        std::distance(std::filesystem::directory_iterator(path_), std::filesystem::directory_iterator()));
  }

 private:
  std::string path_ = (std::filesystem::temp_directory_path() / "zelxml_torture.XXXXXX").string();
  pid_t maker_ = ::getpid();
};

}  // namespace torture
