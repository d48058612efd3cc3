#pragma once

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <string>
#include <thread>

namespace zelstudy {

// Tells on standard error what is going on while the object lives, once that has taken longer than a second.
// Nothing is shown, and no thread started, when standard error is no terminal. The line is wiped at the end.
// The thread touches the text and the counter only, never the study.
class Progress {
 public:
  // With a total the counter is shown as a part of it.
  explicit Progress(std::string what, std::size_t total = 0);
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void advance() { done_.fetch_add(1, std::memory_order_relaxed); }

 private:
  void show();

  std::string what_;
  std::size_t total_;
  std::atomic<std::size_t> done_ = 0;
  bool finished_ = false;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::thread thread_;
};

}  // namespace zelstudy
