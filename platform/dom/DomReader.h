#pragma once

#include <cstddef>
#include <string>

#include "DomNode.h"

namespace dom {

// Where a reader gets its bytes.
class ByteSource {
 public:
  virtual ~ByteSource() = default;
  // At most `size` bytes; 0 at the end, -1 after a failure, which `reason` then tells.
  virtual std::ptrdiff_t read(char* to, std::size_t size) = 0;
  std::string reason;
};

// Reads a whole document below `into`, a document that has no children yet. After a false result `into` holds
// an unfinished tree, and `error` has line, column and reason.
bool readXml(ByteSource& source, DocumentNode* into, DomError& error);

}  // namespace dom
