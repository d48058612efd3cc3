#pragma once

#include <cstdint>

#include "zel/ZelNode.h"

// A reusable definition behind instances: a part, a tool or an equipment, with a directory of files on disk.
class ZelPrototype : public ZelNode {
 public:
  static constexpr InterfaceType interfaceType = Prototype;
  static ZelPrototype* queryZelPrototype(ZelNode* node) { return zelQuery<ZelPrototype>(node); }

  // The directory, from `fileName` of the file object that `threeDRep` and its `file` lead to, with the
  // session's system root in front of a name that is relative to it; separators as they were stored. With an
  // active files cache the local copy, which is fetched if need be; `path` tells its place also when that
  // fails and the answer is false. False without one of the objects and for an empty stored name.
  virtual bool getPrototypePath(RWClassicWString& path) const = 0;
  // Stores the path, that of a local copy as its origin, relative to the system root when it lies below it.
  // Objects that are missing on the way are made; they stay when a later step fails. Publishes nothing.
  virtual bool setPrototypePath(const RWClassicWString& path) = 0;
  // A slot without meaning, kept for the order of the table: false.
  virtual bool reserved() = 0;
  // When the first `.jt` file of the directory was written, in seconds since 1970 (UTC). A time that was read
  // once is kept for the life of the node, whatever becomes of the file. False, and `time` 0, as long as
  // there is none: the next call looks again.
  virtual bool getModificationTime(std::int64_t& time) const = 0;
};
