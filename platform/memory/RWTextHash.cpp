#include "rw/RWTextHash.h"

#include <sys/random.h>

#include <bit>
#include <chrono>
#include <cstdint>

namespace {

// Drawn at the first use, which may come before any dynamic initialisation.
struct Key {
  std::uint64_t words[2] = {};
  bool drawn = false;

  void draw() {
    drawn = true;
    if (::getrandom(words, sizeof words, GRND_NONBLOCK) == sizeof words) return;
    // A system that has no random bytes yet: the load address and the clock are what an outsider knows least.
    words[0] = reinterpret_cast<std::uintptr_t>(this) * 0x9e3779b97f4a7c15ULL;
    words[1] = static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count());
  }
};
constinit Key key;

std::uint64_t wordAt(const unsigned char* bytes, std::size_t count) noexcept {
  std::uint64_t word = 0;
  for (std::size_t i = 0; i < count; ++i) word |= std::uint64_t{bytes[i]} << (8 * i);
  return word;
}

// SipHash with one round for each word and three at the end.
struct State {
  std::uint64_t a, b, c, d;

  void round() noexcept {
    a += b;
    c += d;
    b = std::rotl(b, 13) ^ a;
    d = std::rotl(d, 16) ^ c;
    a = std::rotl(a, 32);
    c += b;
    a += d;
    b = std::rotl(b, 17) ^ c;
    d = std::rotl(d, 21) ^ a;
    c = std::rotl(c, 32);
  }
  void take(std::uint64_t word) noexcept {
    d ^= word;
    round();
    a ^= word;
  }
};

}  // namespace

std::size_t RWTextHash::operator()(std::string_view text) const {
  if (!key.drawn) [[unlikely]]
    key.draw();
  State state{key.words[0] ^ 0x736f6d6570736575ULL, key.words[1] ^ 0x646f72616e646f6dULL,
              key.words[0] ^ 0x6c7967656e657261ULL, key.words[1] ^ 0x7465646279746573ULL};
  const auto* bytes = reinterpret_cast<const unsigned char*>(text.data());
  std::size_t left = text.size();
  for (; left >= 8; bytes += 8, left -= 8) state.take(wordAt(bytes, 8));
  state.take(wordAt(bytes, left) | std::uint64_t{text.size()} << 56);
  state.c ^= 0xff;
  for (int i = 0; i < 3; ++i) state.round();
  return static_cast<std::size_t>(state.a ^ state.b ^ state.c ^ state.d);
}
