#pragma once

#include <benchmark/benchmark.h>

#include <ctime>
#include <string>
#include <string_view>
#include <vector>

// What the benchmarks share: how one is declared, what it has to reach, and its clock.
namespace bench {

// The ways in which an operation is done: by this library, and as an engineer would by hand.
inline constexpr std::string_view OURS = "ZelXml";
inline constexpr std::string_view PUGIXML = "pugixml";
inline constexpr std::string_view LIBXML2 = "libxml2";

// One run of an operation over a study of so many objects: sets the time of each iteration (spend) and the
// number of things that were done in it (count).
using Body = void (*)(benchmark::State& state, long objects);

struct Way {
  std::string_view name;
  Body body;
};

// A line of the table for each size. The cost per object may be at most `most` times that of `peer`, which is
// another way of this operation, or another operation at the same size; and, where `flat` says so, at most
// 1.5 times that at the smallest size.
struct Operation {
  const char* name;
  std::vector<Way> ways;  // the first is ours
  const char* peer = "";
  double most = 0;
  bool flat = true;
  bool huge = false;  // also at the size of a million
};
int add(const Operation& operation);
const std::vector<Operation>& operations();

// The processor time of this process since it was made: what else the machine does does not count.
class Watch {
 public:
  double seconds() const { return now() - start_; }

 private:
  static double now() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
  }
  double start_ = now();
};

// Empties the caches of the processor, as other work of the program would. What is done once over a whole
// study, or once to an object, begins so at every size: otherwise a small study would be measured out of the
// cache and a large one out of memory.
void cool();

// Lets the system have as much free memory at hand as work on a study of so many objects takes. A virtual
// machine fetches pages that nobody has used for a while from its host, at the first touch: that is no part
// of the work.
void provideMemory(long objects);

inline void spend(benchmark::State& state, double seconds) { state.SetIterationTime(seconds); }
inline void count(benchmark::State& state, std::size_t things) {
  state.counters["things"] = static_cast<double>(things);
}

}  // namespace bench
