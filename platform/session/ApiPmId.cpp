#include "api/ApiPmId.h"

#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>

namespace {

// Little-endian by arithmetic, so that a text has one hash on every machine; compilers make one load of it.
std::uint64_t wordAt(const unsigned char* bytes, std::size_t count) noexcept {
  std::uint64_t word = 0;
  for (std::size_t i = 0; i < count; ++i) word |= std::uint64_t{bytes[i]} << (8 * i);
  return word;
}

std::uint64_t mixed(std::uint64_t value) noexcept {
  value ^= value >> 33;
  value *= 0xff51afd7ed558ccdULL;
  value ^= value >> 33;
  value *= 0xc4ceb9fe1a85ec53ULL;
  value ^= value >> 33;
  return value;
}

// Eight bytes at a time. Every step is invertible, so texts of one length that differ in one word only never
// collide; the length goes in first, so that trailing zero bytes count.
std::uint64_t hashOf(std::string_view text) noexcept {
  const auto* bytes = reinterpret_cast<const unsigned char*>(text.data());
  std::size_t left = text.size();
  std::uint64_t hash = 0x9e3779b97f4a7c15ULL ^ left;
  for (; left >= 8; bytes += 8, left -= 8) {
    hash = (hash ^ wordAt(bytes, 8)) * 0x9fb21c651e98df25ULL;
    hash ^= hash >> 32;
  }
  if (left) hash = (hash ^ wordAt(bytes, left)) * 0x9fb21c651e98df25ULL;
  return mixed(hash);
}

}  // namespace

// All texts in use: open hashing, a power of two of slots, at most half as many entries: every entry that a
// look-up walks past is a miss of the processor's cache. It is set up before any code runs and never taken
// down, so that ids may stand in statics. It never shrinks.
struct ApiPmIdTable {
  using Entry = ApiPmId::Entry;

  Entry** slots = nullptr;
  std::size_t mask = 0;
  std::size_t count = 0;

  Entry* find(std::string_view text, std::uint64_t hash) const noexcept {
    if (!slots) return nullptr;
    for (Entry* entry = slots[hash & mask]; entry; entry = entry->next) {
      if (entry->hash == hash && entry->text() == text) return entry;
    }
    return nullptr;
  }

  Entry* add(std::string_view text, std::uint64_t hash) {
    if (text.size() > std::numeric_limits<std::uint32_t>::max()) throw std::bad_alloc();
    if (!slots || count > mask / 2) grow();
    void* memory = std::malloc(sizeof(Entry) + text.size());
    if (!memory) throw std::bad_alloc();
    auto* entry = new (memory) Entry{slots[hash & mask], hash, 0, static_cast<std::uint32_t>(text.size())};
    std::memcpy(entry + 1, text.data(), text.size());
    slots[hash & mask] = entry;
    ++count;
    return entry;
  }

  void remove(Entry* entry) noexcept {
    Entry** link = &slots[entry->hash & mask];
    while (*link != entry) link = &(*link)->next;
    *link = entry->next;
    std::free(entry);
    --count;
  }

  void grow() {
    const std::size_t size = slots ? (mask + 1) * 4 : 4096;
    auto* bigger = static_cast<Entry**>(std::calloc(size, sizeof(Entry*)));
    if (!bigger) throw std::bad_alloc();
    for (std::size_t i = 0; slots && i <= mask; ++i) {
      for (Entry* entry = slots[i]; entry;) {
        Entry* next = entry->next;
        Entry*& slot = bigger[entry->hash & (size - 1)];
        entry->next = slot;
        slot = entry;
        entry = next;
      }
    }
    std::free(slots);
    slots = bigger;
    mask = size - 1;
  }
};

namespace {
constinit ApiPmIdTable table;
}  // namespace

ApiPmId::ApiPmId(std::string_view text) {
  if (text.empty()) return;
  const std::uint64_t hash = hashOf(text);
  entry_ = table.find(text, hash);
  if (!entry_) entry_ = table.add(text, hash);
  ++entry_->references;
}

ApiPmId ApiPmId::existing(std::string_view text) noexcept {
  return text.empty() ? ApiPmId() : ApiPmId(table.find(text, hashOf(text)));
}

void ApiPmId::drop(Entry* entry) noexcept { table.remove(entry); }
