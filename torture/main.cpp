// zelxml_torture [--short] [--planted] [--seed=N] [--only=PROMISE] [--figure=TEXT] [--jobs=N]: runs every
// harness, of one promise or with this text in its name, in a process of its own and prints a row for each. A
// failing row says the seed of the case: --seed with that one makes it the first case. With --planted each
// harness is given a fault, and has failed when it does not see it. Exits with 1 when a row failed.

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <string_view>
#include <utility>

#include "Torture.h"

namespace torture {

namespace {

// What a child tells while it lives, in memory that outlives it.
struct Place {
  std::atomic<std::uint64_t> seed;
};
Place* place = nullptr;

struct Child {
  const Figure* figure = nullptr;
  Place* place = nullptr;
  std::string answer;  // file of count and failure
  std::chrono::steady_clock::time_point start;
};

// No file of a study may cost more than this to open, edit and save here.
constexpr long mostMemory = 2048;  // MiB

std::string readAll(const std::string& file) {
  std::string text;
  if (FILE* in = std::fopen(file.c_str(), "rb")) {
    char piece[4096];
    for (std::size_t got; (got = std::fread(piece, 1, sizeof piece, in)) > 0;) text.append(piece, got);
    std::fclose(in);
  }
  return text;
}

std::pair<pid_t, Child> start(const Figure& figure, const Run& run) {
  char name[] = "/tmp/zelxml_torture.XXXXXX";
  const int answer = ::mkstemp(name);
  void* const shared =
      ::mmap(nullptr, sizeof(Place), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (answer < 0 || shared == MAP_FAILED) {
    std::perror("zelxml_torture");
    std::exit(2);
  }
  auto* const own = new (shared) Place{};
  own->seed = run.seed;
  std::fflush(nullptr);
  const pid_t child = ::fork();
  if (child == 0) {
    place = own;
    const Result result = figure.run(run);
    ::alarm(0);
    ::dprintf(answer, "%zu\n%s", result.count, result.failure.c_str());
    std::exit(0);  // what leaks is looked for here
  }
  ::close(answer);
  if (child < 0) {
    std::perror("zelxml_torture: fork");
    std::exit(2);
  }
  return {child, {&figure, own, name, std::chrono::steady_clock::now()}};
}

// Prints the row of a child that has ended; false when it failed.
bool finish(const Child& child, int status, const rusage& used, const Run& run) {
  const double seconds =
      std::chrono::duration<double>(std::chrono::steady_clock::now() - child.start).count();
  const std::string answer = readAll(child.answer);
  ::unlink(child.answer.c_str());
  std::size_t count = 0;
  std::string failure;
  if (const std::size_t end = answer.find('\n'); end != std::string::npos) {
    count = std::strtoull(answer.c_str(), nullptr, 10);
    failure = answer.substr(end + 1);
  }
  const std::string at = " (seed " + std::to_string(child.place->seed.load()) + ")";
  const long memory = used.ru_maxrss / 1024;
  if (WIFSIGNALED(status)) {
    const int signal = WTERMSIG(status);
    failure = signal == SIGALRM ? "no end" + at : std::string("crash: ") + ::strsignal(signal) + at;
  } else if (WEXITSTATUS(status) != 0) {
    failure = "ended with " + std::to_string(WEXITSTATUS(status)) + at;
  } else if (failure.empty() && memory > mostMemory) {
    failure = "took " + std::to_string(memory) + " MiB";
  }
  ::munmap(child.place, sizeof(Place));

  const bool asked = run.planted ? !failure.empty() : failure.empty();
  const char* const verdict = run.planted ? (asked ? "seen" : "MISSED") : asked ? "kept" : "BROKEN";
  const char* const name = run.planted ? child.figure->plant : child.figure->name;
  std::printf("%7d  %-58s %9zu %12llu %8.1f  %s\n", child.figure->promise, name, count,
              static_cast<unsigned long long>(run.seed), seconds, verdict);
  if (!asked || (run.planted && std::getenv("ZELXML_TORTURE_TELL") != nullptr))
    std::printf("         %s\n", failure.substr(0, 4000).c_str());
  std::fflush(stdout);
  return asked;
}

int all(const Run& run, int only, std::string_view named, unsigned jobs) {
  std::vector<Figure> figures;
  for (const auto& make : {readingFigures, roundTripFigures, savingFigures, updateFigures, lifetimeFigures,
                           modelFigures, idFigures, togetherFigures}) {
    for (const Figure& figure : make()) {
      const bool asked = (only == 0 || only == figure.promise) &&
                         std::string_view(figure.name).find(named) != std::string_view::npos;
      if (asked && (!run.planted || *figure.plant != '\0')) figures.push_back(figure);
    }
  }
  std::printf("%7s  %-58s %9s %12s %8s\n", "promise", run.planted ? "planted fault" : "figure", "count",
              "seed", "seconds");
  std::map<pid_t, Child> running;
  bool good = !figures.empty();
  std::size_t next = 0;
  while (next < figures.size() || !running.empty()) {
    while (running.size() < jobs && next < figures.size()) {
      const auto [pid, child] = start(figures[next++], run);
      running.emplace(pid, child);
    }
    int status = 0;
    rusage used = {};
    const pid_t ended = ::wait4(-1, &status, 0, &used);
    const auto found = running.find(ended);
    if (found == running.end()) continue;
    good = finish(found->second, status, used, run) && good;
    running.erase(found);
  }
  return good ? 0 : 1;
}

}  // namespace

void begin(std::uint64_t seed, unsigned seconds) {
  if (place == nullptr) return;
  place->seed = seed;
  ::alarm(seconds);
}

}  // namespace torture

int main(int argc, char** argv) {
  torture::Run run;
  int only = 0;
  unsigned jobs = 2;
  std::string_view named;
  for (int i = 1; i < argc; ++i) {
    const std::string_view argument = argv[i];
    const auto number = [&](std::string_view option, auto& value) {
      if (argument.substr(0, option.size()) != option) return false;
      char* end = nullptr;
      value = static_cast<std::remove_reference_t<decltype(value)>>(
          std::strtoull(argv[i] + option.size(), &end, 10));
      return *end == '\0' && argument.size() > option.size();
    };
    if (argument == "--short") {
      run.brief = true;
    } else if (argument == "--planted") {
      run.brief = run.planted = true;
    } else if (argument.substr(0, 9) == "--figure=") {
      named = argument.substr(9);
    } else if (!number("--seed=", run.seed) && !number("--only=", only) && !number("--jobs=", jobs)) {
      std::fprintf(stderr,
                   "usage: zelxml_torture [--short] [--planted] [--seed=N] [--only=PROMISE] [--figure=TEXT] "
                   "[--jobs=N]\n");
      return 2;
    }
  }
  return torture::all(run, only, named, jobs > 0 ? jobs : 1);
}
