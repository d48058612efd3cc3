#include "rt/RTPool.h"

#include <sys/mman.h>

#include <bit>
#include <cstdint>
#include <cstdlib>
#include <new>

#ifdef ZELXML_PLAIN_ALLOCATION

void* RTPool::allocate(std::size_t bytes) {
  void* memory = std::malloc(bytes);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

void RTPool::free(void* memory, std::size_t) noexcept { std::free(memory); }

std::size_t RTPool::held() noexcept { return 0; }

#else

namespace {

constexpr std::size_t slabBytes = std::size_t{64} << 10;
constexpr std::size_t chunkBytes = std::size_t{2} << 20;
constexpr std::size_t ownPagesUpTo = std::size_t{8} << 20;  // small studies take small pages
constexpr std::size_t largest = 256;
constexpr std::uint32_t allFree = ~std::uint32_t{0};
static_assert(chunkBytes / slabBytes == 32);

template <class T>
struct List {
  T* head = nullptr;

  void push(T* item) noexcept {
    item->prev = nullptr;
    item->next = head;
    if (head != nullptr) head->prev = item;
    head = item;
  }
  void remove(T* item) noexcept {
    (item->prev != nullptr ? item->prev->next : head) = item->next;
    if (item->next != nullptr) item->next->prev = item->prev;
  }
};

// A piece of address space aligned to its size and cut into slabs. It is listed while it has a free slab.
struct alignas(16) Chunk {
  Chunk* prev;
  Chunk* next;
  std::uint32_t freeSlabs;  // one bit per slab
};

// Stands at the start of each slab; in the first slab of a chunk behind the chunk's own head. It is listed
// under its size while it has room.
struct alignas(16) Slab {
  Slab* prev;
  Slab* next;
  void* freed;
  char* fresh;  // never used from here to `end`
  char* end;
  std::uint32_t size;
  std::uint32_t live;

  bool full() const noexcept { return freed == nullptr && fresh + size > end; }
};

List<Slab> roomy[largest / 8 + 1];
bool begun[largest / 8 + 1];  // sizes that have had a slab
List<Chunk> chunks;
std::size_t mapped = 0;
Chunk* spare =
    nullptr;  // one wholly free chunk is kept, so that editing at its edge asks the system for nothing

std::uintptr_t address(const void* memory) noexcept { return reinterpret_cast<std::uintptr_t>(memory); }

Chunk* chunkOf(void* memory) noexcept {
  return reinterpret_cast<Chunk*>(address(memory) & ~(std::uintptr_t{chunkBytes} - 1));
}

Slab* slabOf(void* memory) noexcept {
  const std::uintptr_t base = address(memory) & ~(std::uintptr_t{slabBytes} - 1);
  const bool first = (base & (std::uintptr_t{chunkBytes} - 1)) == 0;
  return reinterpret_cast<Slab*>(base + (first ? sizeof(Chunk) : 0));
}

// At a multiple of a chunk's size.
void* mapAligned(std::size_t bytes, bool hugePages) {
  void* const got =
      ::mmap(nullptr, bytes + chunkBytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (got == MAP_FAILED) throw std::bad_alloc();
  char* const from = static_cast<char*>(got);
  const std::size_t before = (chunkBytes - address(from) % chunkBytes) % chunkBytes;
  if (before != 0) ::munmap(from, before);
  ::munmap(from + before + bytes, chunkBytes - before);
  if (hugePages) ::madvise(from + before, bytes, MADV_HUGEPAGE);
  return from + before;
}

Chunk* mapChunk() {
  // In a large study most of what a read costs is to find the page: a huge one is found at once.
  void* const chunk = mapAligned(chunkBytes, mapped >= ownPagesUpTo);
  mapped += chunkBytes;
  return new (chunk) Chunk{nullptr, nullptr, allFree};
}

// Whole chunks, for what is as large as that.
std::size_t inChunks(std::size_t bytes) { return (bytes + chunkBytes - 1) / chunkBytes * chunkBytes; }

Slab* openSlab(std::size_t size) {
  if (chunks.head == nullptr) {
    chunks.push(spare != nullptr ? spare : mapChunk());
    spare = nullptr;
  }
  Chunk* const chunk = chunks.head;
  const int index = std::countr_zero(chunk->freeSlabs);
  chunk->freeSlabs &= chunk->freeSlabs - 1;
  if (chunk->freeSlabs == 0) chunks.remove(chunk);
  char* const base = reinterpret_cast<char*>(chunk) + static_cast<std::size_t>(index) * slabBytes;
#ifdef MADV_POPULATE_WRITE
  // All pages of a slab at once: a wish that saves a page fault each. Not of the first one of a size, which
  // may never fill.
  if (begun[size / 8]) ::madvise(base, slabBytes, MADV_POPULATE_WRITE);
  begun[size / 8] = true;
#endif
  Slab* const slab = slabOf(base);
  char* const fresh = reinterpret_cast<char*>(slab + 1);
  new (slab) Slab{nullptr, nullptr, nullptr, fresh, base + slabBytes, static_cast<std::uint32_t>(size), 0};
  roomy[size / 8].push(slab);
  return slab;
}

void closeSlab(Slab* slab) noexcept {
  roomy[slab->size / 8].remove(slab);
  Chunk* const chunk = chunkOf(slab);
  const std::size_t index = (address(slab) - address(chunk)) / slabBytes;
  if (chunk->freeSlabs == 0) chunks.push(chunk);
  chunk->freeSlabs |= std::uint32_t{1} << index;
  if (chunk->freeSlabs != allFree) return;
  chunks.remove(chunk);
  if (spare == nullptr) {
    spare = chunk;
  } else {
    ::munmap(chunk, chunkBytes);
    mapped -= chunkBytes;
  }
}

}  // namespace

void* RTPool::allocate(std::size_t bytes) {
  if (bytes >= chunkBytes) return mapAligned(inChunks(bytes), true);
  if (bytes > largest) {
    void* memory = std::malloc(bytes);
    if (memory == nullptr) throw std::bad_alloc();
    return memory;
  }
  const std::size_t size = (bytes + 7) / 8 * 8;
  Slab* slab = roomy[size / 8].head;
  if (slab == nullptr) slab = openSlab(size);
  void* memory = slab->freed;
  if (memory != nullptr) {
    slab->freed = *static_cast<void**>(memory);
  } else {
    memory = slab->fresh;
    slab->fresh += size;
  }
  ++slab->live;
  if (slab->full()) roomy[size / 8].remove(slab);
  return memory;
}

void RTPool::free(void* memory, std::size_t bytes) noexcept {
  if (bytes >= chunkBytes) {
    ::munmap(memory, inChunks(bytes));
    return;
  }
  if (bytes > largest) {
    std::free(memory);
    return;
  }
  Slab* const slab = slabOf(memory);
  if (slab->full()) roomy[slab->size / 8].push(slab);
  *static_cast<void**>(memory) = slab->freed;
  slab->freed = memory;
  if (--slab->live == 0) closeSlab(slab);
}

std::size_t RTPool::held() noexcept { return mapped; }

#endif
