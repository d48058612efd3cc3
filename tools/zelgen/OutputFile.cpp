#include "OutputFile.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <system_error>

namespace zelgen {

namespace fs = std::filesystem;

OutputFile::OutputFile(const std::string& target) : shown_(target) {
  if (target == "-") {
    shown_ = "standard output";
    file_ = stdout;
    return;
  }
  std::error_code ignored;
  target_ = fs::weakly_canonical(target, ignored);
  if (target_.empty()) target_ = target;
  fs::path opened = target_;
  const fs::file_status status = fs::status(target_, ignored);
  if (!fs::exists(status) || fs::is_regular_file(status)) {
    temporary_ = target_;
    temporary_ += ".part" + std::to_string(getpid());
    opened = temporary_;
  }
  errno = 0;
  file_ = std::fopen(opened.c_str(), "wb");
  if (!file_) {
    temporary_.clear();
    fail("cannot open");
  }
}

OutputFile::~OutputFile() {
  if (file_ && file_ != stdout) std::fclose(file_);
  std::error_code ignored;
  if (!temporary_.empty()) fs::remove(temporary_, ignored);
}

bool OutputFile::fail(const std::string& what) {
  if (error_.empty()) error_ = what + " " + shown_ + ": " + std::strerror(errno);
  return false;
}

bool OutputFile::write(std::string_view bytes) {
  if (!error_.empty()) return false;
  return std::fwrite(bytes.data(), 1, bytes.size(), file_) == bytes.size() || fail("cannot write");
}

bool OutputFile::commit() {
  if (!error_.empty()) return false;
  // What the stream still holds goes out here, so a disk that is full by now shows in the result.
  std::FILE* const file = file_;
  file_ = nullptr;
  if (std::fclose(file) != 0) return fail("cannot write");
  if (temporary_.empty()) return true;
  std::error_code failure;
  fs::rename(temporary_, target_, failure);
  if (failure) {
    errno = failure.value();
    return fail("cannot replace");
  }
  temporary_.clear();
  return true;
}

}  // namespace zelgen
