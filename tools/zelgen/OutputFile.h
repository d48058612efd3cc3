#pragma once

#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>

namespace zelgen {

/// A file that is either whole or not there: it is written beside its place under a name of its own and
/// takes the place in `commit`. A target that is no regular file (a device, a pipe) is written directly,
/// and "-" is the standard output. A failure leaves a former file of that name untouched.
class OutputFile {
 public:
  explicit OutputFile(const std::string& target);
  ~OutputFile();
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  /// False after any failure, with the reason in `error()`; later calls then do nothing.
  bool write(std::string_view bytes);
  bool commit();

  const std::string& error() const { return error_; }

 private:
  bool fail(const std::string& what);

  std::string shown_;                ///< the name for messages
  std::filesystem::path target_;     ///< with symbolic links followed
  std::filesystem::path temporary_;  ///< empty when written directly
  std::FILE* file_ = nullptr;
  std::string error_;
};

}  // namespace zelgen
