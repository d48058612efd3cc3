#pragma once

#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

#include "api/ApiSysFileReplacement.h"

namespace zelgen {

/// A file that is either whole or not there: it is written beside its place and takes the place in `commit`.
/// A target that is no regular file (a device, a pipe) is written directly, and "-" is the standard output.
/// A failure leaves a former file of that name untouched.
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
  bool fail(const std::string& why);

  std::string shown_;                                 ///< the name for messages
  std::optional<ApiSysFileReplacement> replacement_;  ///< none when written directly
  std::FILE* file_ = nullptr;
  std::string error_;
};

/// Lets a half-written file go with the program when it is interrupted. To be called once, at the beginning.
void removeUnfinishedFileOnSignals();

}  // namespace zelgen
