#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// What a file was when it was opened or replaced: which one it is, its size, and when its content and its
// attributes were changed last. Two states of one file are equal when nobody has written to it in between.
//
// Where a change right after the opening could leave all of these as they are, since the clock of the file
// system counts in steps, the content that was read is summed up too: `isFresh`.
struct ApiSysFileState {
  std::string place;  // absolute, with links followed; empty for what is no regular file
  std::string name;   // as it was given, but absolute
  std::uint64_t device = 0;
  std::uint64_t inode = 0;
  std::uint64_t size = 0;
  std::int64_t modified = 0;  // nanoseconds since 1970
  std::int64_t changed = 0;
  bool isFresh = false;
  std::uint64_t sum = 0xCBF29CE484222325u;

  // Of an open file; to be asked before it is read.
  static ApiSysFileState of(const std::string& name, int file);
  // Takes the next piece of the content that is read.
  void add(std::string_view content);
};

// The files that a document or a program knows the state of, the latest state of each last.
using ApiSysFileStates = std::vector<ApiSysFileState>;
