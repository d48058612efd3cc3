#pragma once

#include <set>
#include <string>
#include <vector>

// Client of the local files cache: brings files from where they belong into a cache directory, and knows
// which local copy came from where, also in later runs over the same directory. Inactive until a directory is
// given; then nothing here touches a disk.
//
// A name may be that of a directory: its whole tree is brought then, and what the origin lacks goes from the
// copy. Copies keep the file's own name. A copy is up to date while it has the size and the time of its
// origin. Nothing here throws on what a disk does.
class LocalFilesCacheClientFilesManager {
 public:
  static LocalFilesCacheClientFilesManager& the();
  LocalFilesCacheClientFilesManager(const LocalFilesCacheClientFilesManager&) = delete;
  LocalFilesCacheClientFilesManager& operator=(const LocalFilesCacheClientFilesManager&) = delete;

  bool isActive() const { return !directory_.empty(); }
  // Makes the directory if need be; the empty path turns the client off. False, and the client off, when the
  // directory cannot be made.
  bool activate(const std::string& directory);

  // Marks a file for the next downloadFiles. False for a name that ends in no file name ("", "/", "a/..") and
  // while the client is off; a file that is not there fails then.
  bool registerFileForDownload(const std::string& name);
  // Copies every registered file that the cache lacks or has in an older state. False if any could not be
  // copied; the others are there all the same. Registrations end with the call.
  bool downloadFiles();
  // The local copy of `name`. With `fetch` it is copied or brought up to date first; without, true only if it
  // is there and up to date. `local` is the place of the copy also when the answer is false; it is untouched
  // for a name without file name and while the client is off.
  bool getDownloadedPath(const std::string& name, std::string& local, bool fetch);
  // The origin of a local copy, or of a file inside a copied directory, in the spelling in which it was asked
  // for. Of a file that was noted as its own origin, itself. False, and `origin` untouched, for any other.
  bool getSourcePath(const std::string& local, std::string& origin) const;
  // Notes that the file is its own origin, until the client is activated or turned off.
  void setOwnSourcePath(const std::string& name);

 private:
  LocalFilesCacheClientFilesManager() = default;
  std::string localNameOf(const std::string& name) const;
  bool isUpToDate(const std::string& name, const std::string& local) const;
  bool fetch(const std::string& name, const std::string& local);

  std::string directory_;
  std::vector<std::string> registered_;
  std::set<std::string> ownSources_;
};
