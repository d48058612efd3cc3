#include "zelstudy/Progress.h"

#include <unistd.h>

#include <chrono>
#include <iostream>
#include <utility>

namespace zelstudy {

using std::chrono::steady_clock;

Progress::Progress(std::string what, std::size_t total) : what_(std::move(what)), total_(total) {
  if (isatty(STDERR_FILENO)) thread_ = std::thread([this] { show(); });
}

Progress::~Progress() {
  if (!thread_.joinable()) return;
  {
    const std::lock_guard lock(mutex_);
    finished_ = true;
  }
  changed_.notify_one();
  thread_.join();
}

void Progress::show() {
  using namespace std::chrono_literals;
  const auto start = steady_clock::now();
  bool shown = false;
  std::unique_lock lock(mutex_);
  for (auto wait = 1000ms; !changed_.wait_for(lock, wait, [this] { return finished_; }); wait = 200ms) {
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(steady_clock::now() - start);
    std::cerr << "\r\033[K" << what_;
    if (total_) std::cerr << " " << done_.load(std::memory_order_relaxed) * 100 / total_ << " %";
    std::cerr << ", " << seconds.count() << " s" << std::flush;
    shown = true;
  }
  if (shown) std::cerr << "\r\033[K" << std::flush;
}

}  // namespace zelstudy
