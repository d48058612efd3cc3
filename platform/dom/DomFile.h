#pragma once

#include <string>

#include "DomReader.h"
#include "api/ApiSysFileState.h"

namespace dom {

class FileSource : public ByteSource {
 public:
  explicit FileSource(const std::string& fileName);
  FileSource(const FileSource&) = delete;
  FileSource& operator=(const FileSource&) = delete;
  ~FileSource() override;

  std::ptrdiff_t read(char* to, std::size_t size) override;
  // Of the file as it was opened; whole when it has been read to its end.
  const ApiSysFileState& state() const { return state_; }

 private:
  int file_;
  ApiSysFileState state_;
  std::string buffer_;
  std::size_t from_ = 0;
  std::size_t until_ = 0;
};

}  // namespace dom
