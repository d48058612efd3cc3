#pragma once

#include <sys/types.h>

#include <string>

#include "DomReader.h"
#include "DomWriter.h"

namespace dom {

// The calls to the system by which a file is saved; a test puts its own in, to make the one fail that it
// wants.
struct FileCalls {
  int (*open)(const char* path, int flags, mode_t mode);
  ssize_t (*write)(int file, const void* bytes, size_t size);
  int (*changeMode)(int file, mode_t mode);
  int (*sync)(int file);
  int (*close)(int file);
  int (*rename)(const char* from, const char* to);
  int (*remove)(const char* path);
  int (*lock)(int file);  // for this open file alone, without waiting
};
extern FileCalls fileCalls;

class FileSource : public ByteSource {
 public:
  explicit FileSource(const std::string& fileName);
  FileSource(const FileSource&) = delete;
  FileSource& operator=(const FileSource&) = delete;
  ~FileSource() override;

  std::ptrdiff_t read(char* to, std::size_t size) override;

 private:
  int file_;
  std::string buffer_;
  std::size_t from_ = 0;
  std::size_t until_ = 0;
};

// Writes the document into a temporary file beside the target, flushes it to the disk and renames it onto the
// target, whose permissions it takes over. A link is followed. After a failure the target is what it was and
// the temporary file is gone. One that a killed process has left beside the target is removed first.
bool saveXml(const Node* document, const std::string& fileName, std::string& reason);

}  // namespace dom
