#include "api/ApiPmId.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>

#include "rt/RTPool.h"
#include "rw/RWFlatTable.h"
#include "rw/RWTextHash.h"

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

// The hash for orders that callers see, the same in every run. Eight bytes at a time. Every step is
// invertible, so texts of one length that differ in one word only never collide; the length goes in first, so
// that trailing zero bytes count.
std::uint64_t orderOf(std::string_view text) noexcept {
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

// Numbers from 1 on. One that was given back is taken again when a quarter of all are free: one pass over
// them then gives many, in ascending order. It never shrinks.
class Numbers {
 public:
  std::uint32_t take() {
    if (used_ >= words_ * 48) grow();
    while (free_[at_] == 0) at_ = at_ + 1 < words_ ? at_ + 1 : 0;
    const auto bit = static_cast<std::uint32_t>(std::countr_zero(free_[at_]));
    free_[at_] &= free_[at_] - 1;
    ++used_;
    return static_cast<std::uint32_t>(at_ * 64) + bit;
  }
  void giveBack(std::uint32_t number) noexcept {
    free_[number / 64] |= std::uint64_t{1} << number % 64;
    --used_;
  }

 private:
  void grow() {
    const std::size_t words = words_ ? words_ * 2 : 64;
    if (words > (std::size_t{1} << 32) / 64) throw std::bad_alloc();
    auto* bigger = static_cast<std::uint64_t*>(std::realloc(free_, words * sizeof(std::uint64_t)));
    if (!bigger) throw std::bad_alloc();
    free_ = bigger;
    for (std::size_t i = words_; i < words; ++i) free_[i] = ~std::uint64_t{0};
    if (words_ == 0) free_[0] &= ~std::uint64_t{1};
    at_ = words_;
    words_ = words;
  }

  std::uint64_t* free_ = nullptr;  // a bit each
  std::size_t words_ = 0;
  std::size_t used_ = 0;
  std::size_t at_ = 0;  // where the last number came from
};

}  // namespace

// All texts in use, by a keyed hash. It stands before any code runs and is never taken down, so that ids may
// stand in statics.
struct ApiPmIdTable {
  using Entry = ApiPmId::Entry;

  RWFlatTable<Entry*> entries;
  Numbers numbers;

  static constexpr std::size_t head = offsetof(Entry, number) + sizeof(Entry::number);
  static std::size_t sizeOf(std::size_t length) { return std::max(sizeof(Entry), head + length); }

  Entry* find(std::string_view text, std::uint64_t hash) const noexcept {
    const auto* slot = entries.find(hash, [text](const Entry* entry) { return entry->text() == text; });
    return slot ? slot->value : nullptr;
  }

  Entry* add(std::string_view text, std::uint64_t hash) {
    if (text.size() > std::numeric_limits<std::uint32_t>::max()) throw std::bad_alloc();
    const std::uint32_t number = numbers.take();
    void* memory = nullptr;
    try {
      memory = RTPool::allocate(sizeOf(text.size()));
      auto* entry = new (memory) Entry{orderOf(text), 0, static_cast<std::uint32_t>(text.size()), number};
      std::memcpy(static_cast<char*>(memory) + head, text.data(), text.size());
      entries.add(hash, entry);
      return entry;
    } catch (...) {
      if (memory) RTPool::free(memory, sizeOf(text.size()));
      numbers.giveBack(number);
      throw;
    }
  }

  void remove(Entry* entry) noexcept {
    entries.remove(entries.find(RWTextHash{}(entry->text()), [entry](const Entry* e) { return e == entry; }));
    numbers.giveBack(entry->number);
    RTPool::free(entry, sizeOf(entry->length));
  }
};

namespace {

union NeverDestroyed {
  ApiPmIdTable value;
  constexpr NeverDestroyed() : value() {}
  ~NeverDestroyed() {}
};
constinit NeverDestroyed ids;
constexpr ApiPmIdTable& table = ids.value;

}  // namespace

ApiPmId::ApiPmId(std::string_view text) {
  if (text.empty()) return;
  const std::uint64_t hash = RWTextHash{}(text);
  entry_ = table.find(text, hash);
  if (!entry_) entry_ = table.add(text, hash);
  ++entry_->references;
}

ApiPmId ApiPmId::existing(std::string_view text) noexcept {
  return text.empty() ? ApiPmId() : ApiPmId(table.find(text, RWTextHash{}(text)));
}

void ApiPmId::drop(Entry* entry) noexcept { table.remove(entry); }
