#pragma once

#include <cstddef>

// Memory for the many small things of a study: nodes, texts, ids, entries of tables. Sizes up to 256 bytes
// come from slabs of one size each, so a thing costs its bytes and no header; what is larger goes to malloc,
// or from 2 MB on to the system. An empty slab is used again for any size, and memory whose slabs are all
// empty goes back to the system. Once a study is large the pool asks for huge pages. Built with
// ZELXML_PLAIN_ALLOCATION all of it is plain malloc, so that tools that watch memory see every use after
// free.
//
// Not locked: what is in it belongs to one thread at a time, as documents and ids do.
struct RTPool {
  // At a multiple of 8; of 16, as malloc's, for a size that 16 divides. Throws std::bad_alloc.
  static void* allocate(std::size_t bytes);
  // `bytes` as it was asked for.
  static void free(void* memory, std::size_t bytes) noexcept;
  // Bytes of address space held for slabs; 0 with plain allocation.
  static std::size_t held() noexcept;
};

// A base for classes of which a study has many objects: they come from the pool.
struct RTPooled {
  static void* operator new(std::size_t bytes) { return RTPool::allocate(bytes); }
  static void operator delete(void* memory, std::size_t bytes) noexcept { RTPool::free(memory, bytes); }
};
