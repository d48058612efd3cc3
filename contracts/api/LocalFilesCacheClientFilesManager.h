#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

// Client of the local files cache: brings files from where they belong into a cache directory, and knows
// which local copy came from where. Inactive until a directory is given; then nothing here touches a disk.
class LocalFilesCacheClientFilesManager {
 public:
  static LocalFilesCacheClientFilesManager& the();

  bool isActive() const { return !directory_.empty(); }
  // Makes the directory if need be; the empty path turns the client off. False, and the client off, when the
  // directory cannot be made.
  bool activate(const std::string& directory);

  // Marks a file for the next downloadFiles. False for an empty name; a file that is not there fails then.
  bool registerFileForDownload(const std::string& name);
  // Copies every registered file that the cache lacks or has in an older state. False if any could not be
  // copied; the others are there all the same. Registrations end with the call.
  bool downloadFiles();
  // The local copy of `name`. With `fetch` it is copied or brought up to date first; without, true only if it
  // is there and up to date. `local` is the place of the copy also when the answer is false.
  bool getDownloadedPath(const std::string& name, std::string& local, bool fetch);
  // The origin of a local copy: true and the origin for a file in the cache directory that has one.
  bool getSourcePath(const std::string& local, std::string& origin) const;
  // Notes that the file is its own origin.
  void setOwnSourcePath(const std::string& name);

 private:
  std::string localNameOf(const std::string& name) const;
  bool isUpToDate(const std::string& name, const std::string& local) const;
  bool fetch(const std::string& name, const std::string& local);

  std::string directory_;
  std::vector<std::string> registered_;
  std::map<std::string, std::string> originOfLocal_;
  std::set<std::string> ownSources_;
};
