#include "OutputFile.h"

#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <filesystem>

namespace zelgen {

namespace {

/// What a signal handler may look at: the name, and whether it is whole.
char unfinished[4096];
volatile std::sig_atomic_t hasUnfinished = 0;

void remember(const std::string& name) {
  hasUnfinished = 0;
  if (name.empty() || name.size() >= sizeof unfinished) return;
  std::memcpy(unfinished, name.c_str(), name.size() + 1);
  hasUnfinished = 1;
}

extern "C" void removeUnfinished(int number) {
  if (hasUnfinished) ::unlink(unfinished);
  std::signal(number, SIG_DFL);
  std::raise(number);
}

}  // namespace

void removeUnfinishedFileOnSignals() {
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
    // One that the caller has switched off (nohup) stays off.
    if (std::signal(number, removeUnfinished) == SIG_IGN) std::signal(number, SIG_IGN);
  }
}

OutputFile::OutputFile(const std::string& target) : shown_(target) {
  if (target == "-") {
    shown_ = "standard output";
    file_ = stdout;
    return;
  }
  std::error_code ignored;
  const std::filesystem::file_status status = std::filesystem::status(target, ignored);
  if (exists(status) && !is_regular_file(status)) {
    errno = 0;
    file_ = std::fopen(target.c_str(), "wb");
    if (!file_) fail(std::strerror(errno));
    return;
  }
  replacement_.emplace();
  if (!replacement_->begin(target, nullptr)) fail(replacement_->reason());
  remember(replacement_->temporary());
}

OutputFile::~OutputFile() {
  if (file_ && file_ != stdout) std::fclose(file_);
  replacement_.reset();
  remember({});
}

bool OutputFile::fail(const std::string& why) {
  if (error_.empty()) error_ = shown_ + ": " + why;
  return false;
}

bool OutputFile::write(std::string_view bytes) {
  if (!error_.empty()) return false;
  if (replacement_) return replacement_->write(bytes) || fail(replacement_->reason());
  return std::fwrite(bytes.data(), 1, bytes.size(), file_) == bytes.size() || fail(std::strerror(errno));
}

bool OutputFile::commit() {
  if (!error_.empty()) return false;
  if (replacement_) {
    if (!replacement_->prepare() || !replacement_->commit()) return fail(replacement_->reason());
    for (const std::string& warning : replacement_->warnings())
      std::fprintf(stderr, "zelgen: %s: %s\n", shown_.c_str(), warning.c_str());
    remember({});
    return true;
  }
  // What the stream still holds goes out here, so a disk that is full by now shows in the result.
  std::FILE* const file = file_;
  file_ = nullptr;
  return std::fclose(file) == 0 || fail(std::strerror(errno));
}

}  // namespace zelgen
