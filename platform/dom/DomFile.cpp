#include "DomFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace dom {

namespace {

constexpr std::size_t bufferSize = std::size_t{64} << 10;

std::string because(const char* what, int error) { return std::string(what) + ": " + std::strerror(error); }

}  // namespace

FileSource::FileSource(const std::string& fileName) : file_(::open(fileName.c_str(), O_RDONLY | O_CLOEXEC)) {
  if (file_ < 0) {
    reason = because("cannot open the file", errno);
    return;
  }
  state_ = ApiSysFileState::of(fileName, file_);
  buffer_.resize(bufferSize);
}

FileSource::~FileSource() {
  if (file_ >= 0) ::close(file_);
}

std::ptrdiff_t FileSource::read(char* to, std::size_t size) {
  if (file_ < 0) return -1;
  if (from_ == until_) {
    ssize_t got;
    do {
      got = ::read(file_, buffer_.data(), buffer_.size());
    } while (got < 0 && errno == EINTR);
    if (got < 0) {
      reason = because("cannot read the file", errno);
      return -1;
    }
    from_ = 0;
    until_ = static_cast<std::size_t>(got);
    state_.add({buffer_.data(), until_});
  }
  const std::size_t count = std::min(size, until_ - from_);
  std::memcpy(to, buffer_.data() + from_, count);
  from_ += count;
  return static_cast<std::ptrdiff_t>(count);
}

}  // namespace dom
