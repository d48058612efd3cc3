#include "zelstudy/SaveFiles.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>

#include "zelstudy/Tool.h"

namespace zelstudy {

namespace fs = std::filesystem;

bool isSameFile(const std::string& a, const std::string& b) {
  std::error_code error;
  if (fs::equivalent(a, b, error)) return true;
  const fs::path first = fs::weakly_canonical(fs::absolute(a, error), error);
  const fs::path second = fs::weakly_canonical(fs::absolute(b, error), error);
  return !first.empty() && first == second;
}

bool spares(const std::string& option, const std::string& output, const std::string& other) {
  if (output.empty() || other.empty() || !isSameFile(output, other)) return true;
  say(option + " " + output + " would overwrite " + other);
  return false;
}

namespace {

// A document without an element cannot be read again: no commands are an empty Data.
IXMLDOMDocument withElement(const IXMLDOMDocument& changes) {
  if (!changes.documentElement()) {
    if (const IXMLDOMNode declaration = changes.createNode(NODE_PROCESSING_INSTRUCTION, "xml"))
      changes.appendChild(declaration);
    changes.appendChild(changes.createElement("Data"));
  }
  return changes;
}

// What a link leads to; the name itself if it is none.
fs::path followed(const fs::path& name) {
  std::error_code ignored;
  return fs::is_symlink(name, ignored) ? fs::weakly_canonical(name, ignored) : name;
}

// A file that is written beside its place and takes the place later, or goes.
class StagedFile {
 public:
  explicit StagedFile(const std::string& name) : target_(followed(name)) {}
  ~StagedFile() {
    std::error_code ignored;
    if (!staged_.empty()) fs::remove(staged_, ignored);
  }
  StagedFile(const StagedFile&) = delete;
  StagedFile& operator=(const StagedFile&) = delete;

  bool write(const IXMLDOMDocument& document, std::string& error) {
    std::error_code code;
    const fs::file_status former = fs::status(target_, code);
    if (fs::exists(former)) {
      if (!fs::is_regular_file(former)) return refuse(error, "the target is not a regular file");
      // A rename would pass over the write protection of a file.
      if (::access(target_.c_str(), W_OK) != 0) return refuse(error, std::strerror(errno));
    }
    staged_ = target_.parent_path() / (".zelstudy." + std::to_string(::getpid()) + ".out");
    DomError reason;
    if (!document.save(staged_.string(), &reason)) return refuse(error, reason.reason);
    if (fs::exists(former)) fs::permissions(staged_, former.permissions(), code);
    return true;
  }

  bool commit(std::string& error) {
    std::error_code code;
    fs::rename(staged_, target_, code);
    const fs::path staged = std::exchange(staged_, {});
    if (code) return refuse(error, code.message() + "; the change commands stand in " + staged.string());
    return true;
  }

 private:
  bool refuse(std::string& error, const std::string& reason) const {
    error = target_.string() + ": " + reason;
    return false;
  }

  fs::path target_;
  fs::path staged_;
};

}  // namespace

bool saveFiles(const StudySession& study, const std::string& studyFile, const IXMLDOMDocument& changes,
               const std::string& changesFile, std::string& error) {
  StagedFile staged(changesFile);
  if (!changesFile.empty() && !staged.write(withElement(changes), error)) return false;
  if (!studyFile.empty() && !study.save(studyFile, error)) return false;
  return changesFile.empty() || staged.commit(error);
}

}  // namespace zelstudy
