#include "files/FileAttributes.h"

#include <sys/xattr.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <string_view>

#include "files/FileCalls.h"

namespace files {

namespace {

// Asks for a value of unknown size until it fits; false where there is none.
bool grown(const std::function<ssize_t(char*, std::size_t)>& ask, std::string& value) {
  for (ssize_t size = ask(nullptr, 0); size >= 0;) {
    value.resize(static_cast<std::size_t>(size));
    const ssize_t got = ask(value.data(), value.size());
    if (got >= 0) {
      value.resize(static_cast<std::size_t>(got));
      return true;
    }
    size = errno == ERANGE ? ask(nullptr, 0) : -1;
  }
  return false;
}

std::vector<std::string> split(const std::string& names) {
  std::vector<std::string> list;
  for (std::size_t at = 0; at < names.size(); at += list.back().size() + 1)
    list.emplace_back(names.c_str() + at);
  return list;
}

void takeExtended(int file, const std::string& former, std::vector<std::string>& warnings) {
  std::string text, own;
  std::vector<std::string> names;
  if (grown([&](char* to, std::size_t size) { return ::listxattr(former.c_str(), to, size); }, text))
    names = split(text);
  std::string lost;
  for (const std::string& name : names) {
    std::string value, present;
    const auto its = [&](char* to, std::size_t size) {
      return ::getxattr(former.c_str(), name.c_str(), to, size);
    };
    const auto ours = [&](char* to, std::size_t size) { return ::fgetxattr(file, name.c_str(), to, size); };
    const bool read = grown(its, value);
    if (read && grown(ours, present) && present == value) continue;
    if (!read || fileCalls.setAttribute(file, name.c_str(), value.data(), value.size()) != 0)
      lost += (lost.empty() ? "" : ", ") + name;
  }
  if (!lost.empty()) warnings.push_back("extended attributes could not be kept: " + lost);
  // An access list that the new file has from its folder would open it to others than the former one.
  constexpr const char* accessList = "system.posix_acl_access";
  if (std::find(names.begin(), names.end(), accessList) == names.end()) ::fremovexattr(file, accessList);
}

}  // namespace

bool takeAttributes(int file, const std::string& former, const struct stat& status,
                    std::vector<std::string>& warnings) {
  struct stat own = {};
  if (::fstat(file, &own) != 0) return false;
  constexpr auto same = static_cast<uid_t>(-1);
  mode_t mode = status.st_mode & 07777;
  if (own.st_gid != status.st_gid && fileCalls.changeOwner(file, same, status.st_gid) != 0) {
    warnings.push_back("its group could not be kept: it is " + std::to_string(own.st_gid) + " now, not " +
                       std::to_string(status.st_gid));
    mode = (mode & ~mode_t{02070}) | ((mode & 07) << 3);
  }
  if (own.st_uid != status.st_uid && fileCalls.changeOwner(file, status.st_uid, same) != 0) {
    warnings.push_back("its owner could not be kept: it belongs to user " + std::to_string(own.st_uid) +
                       " now, not " + std::to_string(status.st_uid));
    mode &= ~mode_t{04000};
  }
  takeExtended(file, former, warnings);
  if (fileCalls.changeMode(file, mode) != 0) return false;
  if (status.st_nlink > 1)
    warnings.push_back("it had " + std::to_string(status.st_nlink) +
                       " names (hard links): the others keep the former content");
  return true;
}

}  // namespace files
