// zelxml_bench [--full] [--operation=TEXT]: measures what users wait for, beside what an engineer would write
// by hand, and prints one table. The short form takes sizes up to 100,000 objects; --full takes also a
// million where that is opened or saved, and more repetitions.

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <map>
#include <string>

#include "Bench.h"

namespace bench {

namespace {

std::vector<Operation>& list() {
  static std::vector<Operation> operations;
  return operations;
}

std::string key(std::string_view operation, std::string_view way, long objects) {
  return std::string(operation) + "|" + std::string(way) + "|" + std::to_string(objects);
}

// The best repetition of each run, by name.
class Results : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context&) override { return true; }
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type != Run::RT_Iteration || run.error_occurred) continue;
      const auto things = run.counters.find("things");
      if (things == run.counters.end()) continue;
      const double seconds = run.real_accumulated_time / static_cast<double>(run.iterations);
      // Google Benchmark puts the settings of a run behind its name.
      std::string name = run.run_name.function_name;
      double& best = perThing_.emplace(name, 1e300).first->second;
      best = std::min(best, seconds / things->second.value);
      if (const auto bytes = run.counters.find("bytes"); bytes != run.counters.end()) {
        double& least = bytes_.emplace(name, 1e300).first->second;
        least = std::min(least, bytes->second.value / things->second.value);
      }
    }
    std::fputc('.', stderr);
  }

  double seconds(const std::string& name) const { return at(perThing_, name); }
  double bytes(const std::string& name) const { return at(bytes_, name); }

 private:
  static double at(const std::map<std::string, double>& values, const std::string& name) {
    const auto found = values.find(name);
    return found == values.end() ? 0 : found->second;
  }
  std::map<std::string, double> perThing_;
  std::map<std::string, double> bytes_;
};

// A ratio, and whether it is above what it may be.
void printRatio(double value, double most) {
  if (value == 0) {
    std::printf(" %8s %6s", "-", "");
  } else if (most == 0) {
    std::printf(" %8.2f %6s", value, "");
  } else {
    std::printf(" %8.2f %s%-5.1f", value, value <= most ? "<" : ">", most);
  }
}

void printRow(const char* operation, long objects, double value, double peer, double most, double smallest,
              bool flat) {
  std::printf("%-22s %9ld %12.1f", operation, objects, value);
  printRatio(peer > 0 ? value / peer : 0, most);
  printRatio(smallest > 0 ? value / smallest : 0, flat ? 1.5 : 0);
  std::putchar('\n');
}

void printTable(const Results& results, const std::vector<long>& sizes) {
  std::printf("%-22s %9s %12s %8s %-6s %8s %-6s\n", "operation", "objects", "ns per one", "to peer", "most",
              "growth", "most");
  for (const Operation& operation : list()) {
    // Growth counts from 10,000 where a million is measured, else from the smallest size.
    double smallest = 0;
    double smallestBytes = 0;
    for (const long objects : sizes) {
      const std::string ours = key(operation.name, OURS, objects);
      const double seconds = results.seconds(ours);
      if (seconds == 0) continue;
      const bool isWay = std::any_of(operation.ways.begin(), operation.ways.end(),
                                     [&](const Way& way) { return way.name == operation.peer; });
      const std::string peer =
          isWay ? key(operation.name, operation.peer, objects) : key(operation.peer, OURS, objects);
      printRow(operation.name, objects, seconds * 1e9, results.seconds(peer) * 1e9, operation.most,
               smallest * 1e9, operation.flat);
      if (const double bytes = results.bytes(ours); bytes > 0) {
        printRow((std::string(operation.name) + ", peak bytes").c_str(), objects, bytes, results.bytes(peer),
                 1.0, smallestBytes, operation.flat);
        if (smallestBytes == 0 && (!operation.huge || objects >= 10'000)) smallestBytes = bytes;
      }
      if (smallest == 0 && (!operation.huge || objects >= 10'000)) smallest = seconds;
    }
  }
}

}  // namespace

int add(const Operation& operation) {
  list().push_back(operation);
  return 0;
}

const std::vector<Operation>& operations() { return list(); }

int run(bool full, const std::string& wanted) {
  const std::vector<long> sizes =
      full ? std::vector<long>{1000, 10'000, 100'000, 1'000'000} : std::vector<long>{1000, 10'000, 100'000};
  // Files of one object order come before others: what compares to "open" comes after it.
  std::stable_partition(list().begin(), list().end(),
                        [](const Operation& operation) { return std::strcmp(operation.name, "open") == 0; });
  for (const Operation& operation : list()) {
    const bool needed = wanted.empty() || std::string(operation.name).find(wanted) != std::string::npos;
    if (!needed && std::strcmp(operation.name, "open") != 0) continue;
    for (const long objects : sizes) {
      if (objects > 100'000 && !operation.huge) continue;
      for (const Way& way : operation.ways) {
        const Body body = way.body;
        // Small studies are over soon: more repetitions let the best one be a quiet one.
        const int repetitions = (objects <= 10'000 ? 7 : objects <= 100'000 ? 4 : 2) * (full ? 2 : 1);
        benchmark::RegisterBenchmark(key(operation.name, way.name, objects).c_str(),
                                     [body, objects](benchmark::State& state) { body(state, objects); })
            ->UseManualTime()
            ->Iterations(1)
            ->Repetitions(repetitions);
      }
    }
  }
  Results results;
  benchmark::RunSpecifiedBenchmarks(&results);
  std::fputc('\n', stderr);
  printTable(results, sizes);
  return 0;
}

}  // namespace bench

int main(int argc, char** argv) {
  bool full = false;
  std::string wanted;
  for (int i = 1; i < argc; ++i) {
    const std::string_view argument = argv[i];
    constexpr std::string_view operation = "--operation=";
    if (argument == "--full") {
      full = true;
    } else if (argument.substr(0, operation.size()) == operation) {
      wanted = argument.substr(operation.size());
    } else {
      std::fprintf(stderr, "usage: zelxml_bench [--full] [--operation=TEXT]\n");
      return 2;
    }
  }
  return bench::run(full, wanted);
}
