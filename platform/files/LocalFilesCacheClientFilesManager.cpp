#include "api/LocalFilesCacheClientFilesManager.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string_view>
#include <system_error>

#include "api/ApiSysFileName.h"
#include "files/DiskPath.h"

// The cache directory holds a folder per origin, named by a hash of the origin's name, with the copy in it
// under its own file name. Beside the folder a note tells the origin, so that it is known in later runs too:
//
//   CACHE/1f0a6c3b9d2e4857/gripper.jt
//   CACHE/1f0a6c3b9d2e4857.origin
//
// An origin may be a directory; its copy is then the same tree. A copy takes over the time of the origin and
// is up to date while size and time are equal.
namespace fs = std::filesystem;

namespace {

// The last part of a name; a directory may be written with a separator at its end.
std::string ownNameOf(std::string_view name) {
  while (!name.empty() && (name.back() == '/' || name.back() == '\\')) name.remove_suffix(1);
  return ApiSysFileName(name).fileName();
}

// A copy stands under the own name of its origin, so that has to be one.
bool hasOwnName(std::string_view name) {
  const std::string own = ownNameOf(name);
  return !own.empty() && own != "." && own != ".." && own.find('\0') == std::string::npos;
}

// Whether the place of the copy lies in the origin itself.
bool holds(const fs::path& origin, const fs::path& copy) {
  std::error_code error;
  const fs::path way = copy.lexically_relative(fs::absolute(origin, error).lexically_normal() / "");
  return !error && !way.empty() && *way.begin() != "..";
}

std::string folderNameOf(std::string_view name) {
  std::uint64_t hash = 0xcbf29ce484222325ULL;
  for (const char c : name) {
    hash ^= static_cast<unsigned char>(c == '\\' ? '/' : c);
    hash *= 0x100000001b3ULL;
  }
  char text[17];
  std::snprintf(text, sizeof text, "%016llx", static_cast<unsigned long long>(hash));
  return text;
}

bool isSameFile(const fs::path& origin, const fs::path& copy) {
  std::error_code error;
  if (!fs::is_regular_file(copy, error)) return false;
  const auto originSize = fs::file_size(origin, error);
  if (error) return false;
  const auto copySize = fs::file_size(copy, error);
  if (error || originSize != copySize) return false;
  const auto originTime = fs::last_write_time(origin, error);
  if (error) return false;
  return originTime == fs::last_write_time(copy, error) && !error;
}

// Under another name until it is whole, so that no broken copy ever stands under the right one.
bool copyFile(const fs::path& origin, const fs::path& copy) {
  fs::path part = copy;
  part += ".part";
  std::error_code error;
  // The time is asked first: an origin that changes during the copy then counts as changed the next time.
  const auto time = fs::last_write_time(origin, error);
  if (!error) fs::copy_file(origin, part, fs::copy_options::overwrite_existing, error);
  if (!error) fs::last_write_time(part, time, error);
  if (!error) fs::rename(part, copy, error);
  if (!error) return true;
  std::error_code ignored;
  fs::remove(part, ignored);
  return false;
}

// Relative paths of all entries below a directory, sorted. False when it cannot be read to its end.
bool listTree(const fs::path& directory, std::vector<fs::path>& entries) {
  std::error_code error;
  fs::recursive_directory_iterator at(directory, fs::directory_options::follow_directory_symlink, error);
  for (; !error && at != fs::recursive_directory_iterator(); at.increment(error)) {
    entries.push_back(at->path().lexically_relative(directory));
  }
  std::sort(entries.begin(), entries.end());
  return !error;
}

bool isSameTree(const fs::path& origin, const fs::path& copy) {
  std::error_code error;
  std::vector<fs::path> entries, copied;
  if (!fs::is_directory(copy, error) || !listTree(origin, entries) || !listTree(copy, copied)) return false;
  return entries == copied && std::all_of(entries.begin(), entries.end(), [&](const fs::path& entry) {
           std::error_code failed;
           return fs::is_directory(origin / entry, failed) ? fs::is_directory(copy / entry, failed)
                                                           : isSameFile(origin / entry, copy / entry);
         });
}

bool copyTree(const fs::path& origin, const fs::path& copy) {
  std::error_code error;
  std::vector<fs::path> entries, copied;
  if (!listTree(origin, entries)) return false;
  if (!fs::is_directory(copy, error)) fs::remove_all(copy, error);
  fs::create_directories(copy, error);
  if (error || !listTree(copy, copied)) return false;
  for (const fs::path& entry : copied) {
    const bool isDirectory = fs::is_directory(copy / entry, error);
    if (!std::binary_search(entries.begin(), entries.end(), entry) ||
        isDirectory != fs::is_directory(origin / entry, error)) {
      fs::remove_all(copy / entry, error);
    }
  }
  for (const fs::path& entry : entries) {
    if (fs::is_directory(origin / entry, error)) {
      fs::create_directories(copy / entry, error);
      if (error) return false;
    } else if (!isSameFile(origin / entry, copy / entry) && !copyFile(origin / entry, copy / entry)) {
      return false;
    }
  }
  return true;
}

bool isSame(const fs::path& origin, const fs::path& copy) {
  std::error_code error;
  return fs::is_directory(origin, error) ? isSameTree(origin, copy) : isSameFile(origin, copy);
}

bool readText(const fs::path& file, std::string& text) {
  std::ifstream stream(file, std::ios::binary);
  if (!stream) return false;
  text.assign(std::istreambuf_iterator<char>(stream), {});
  return !stream.bad();
}

bool writeText(const fs::path& file, const std::string& text) {
  std::ofstream stream(file, std::ios::binary | std::ios::trunc);
  stream << text;
  stream.close();
  return !stream.fail();
}

}  // namespace

LocalFilesCacheClientFilesManager& LocalFilesCacheClientFilesManager::the() {
  static auto& manager = *new LocalFilesCacheClientFilesManager;
  return manager;
}

bool LocalFilesCacheClientFilesManager::activate(const std::string& directory) {
  directory_.clear();
  registered_.clear();
  ownSources_.clear();
  if (directory.empty()) return true;
  std::error_code error;
  fs::path path = fs::absolute(diskPath(directory), error);
  if (error) return false;
  fs::create_directories(path, error);
  if (!fs::is_directory(path, error)) return false;
  path = path.lexically_normal();
  if (!path.has_filename()) path = path.parent_path();
  directory_ = diskPathText(path);
  return true;
}

bool LocalFilesCacheClientFilesManager::registerFileForDownload(const std::string& name) {
  if (!isActive() || !hasOwnName(name)) return false;
  registered_.push_back(name);
  return true;
}

bool LocalFilesCacheClientFilesManager::downloadFiles() {
  std::vector<std::string> names;
  names.swap(registered_);
  bool result = true;
  for (const std::string& name : names) {
    const std::string local = localNameOf(name);
    if (!isUpToDate(name, local) && !fetch(name, local)) result = false;
  }
  return result;
}

bool LocalFilesCacheClientFilesManager::getDownloadedPath(const std::string& name, std::string& local,
                                                          bool fetchIt) {
  if (!isActive() || !hasOwnName(name)) return false;
  local = localNameOf(name);
  return isUpToDate(name, local) || (fetchIt && fetch(name, local));
}

bool LocalFilesCacheClientFilesManager::getSourcePath(const std::string& local, std::string& origin) const {
  if (!isActive()) return false;
  if (ownSources_.count(local)) {
    origin = local;
    return true;
  }
  const fs::path below = diskPath(local).lexically_normal().lexically_relative(diskPath(directory_));
  auto step = below.begin();
  if (step == below.end() || *step == ".." || *step == ".") return false;
  fs::path note = diskPath(directory_) / *step;
  note += ".origin";
  std::string root;
  if (!readText(note, root) || ++step == below.end()) return false;
  // The first step below the folder is the origin's own name, the others lie inside it.
  if (diskPathText(*step) != ownNameOf(root)) return false;
  std::string found = root;
  while (++step != below.end()) {
    if (!step->empty()) found = ApiSysFileName(found).asString(true) + diskPathText(*step);
  }
  origin = found;
  return true;
}

void LocalFilesCacheClientFilesManager::setOwnSourcePath(const std::string& name) {
  if (isActive() && !name.empty()) ownSources_.insert(name);
}

std::string LocalFilesCacheClientFilesManager::localNameOf(const std::string& name) const {
  return diskPathText(diskPath(directory_) / folderNameOf(name) / diskPath(ownNameOf(name)));
}

bool LocalFilesCacheClientFilesManager::isUpToDate(const std::string& name, const std::string& local) const {
  return isSame(diskPath(name), diskPath(local));
}

bool LocalFilesCacheClientFilesManager::fetch(const std::string& name, const std::string& local) {
  const fs::path origin = diskPath(name), copy = diskPath(local), folder = copy.parent_path();
  fs::path note = folder;
  note += ".origin";
  std::error_code error;
  const bool isTree = fs::is_directory(origin, error);
  if (isTree ? holds(origin, copy) : !fs::is_regular_file(origin, error)) return false;
  fs::create_directories(folder, error);
  if (error || !writeText(note, name)) return false;
  if (!isTree && fs::is_directory(copy, error)) fs::remove_all(copy, error);
  return isTree ? copyTree(origin, copy) : copyFile(origin, copy);
}
