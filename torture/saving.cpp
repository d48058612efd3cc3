// A save is all or nothing.

#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <csignal>
#include <cstring>
#include <functional>

#include "Scratch.h"
#include "Torture.h"
#include "dom/DomFaults.h"
#include "dom/IXMLDOMDocument.h"

namespace torture {

namespace {

IXMLDOMDocument documentOf(const char* root, std::size_t elements) {
  std::string text = std::string("<") + root + ">";
  for (std::size_t i = 0; i < elements; ++i) text += "<e>" + std::to_string(i) + "</e>";
  IXMLDOMDocument document = IXMLDOMDocument::create();
  document.loadXML(text + "</" + root + ">\n");
  return document;
}

// A save that is not all or nothing, to be found out.
bool saveInPlace(const IXMLDOMDocument& document, const std::string& file) {
  std::ofstream out(file, std::ios::binary | std::ios::trunc);
  return document.save(out) && out.flush();
}

Result killed(const Run& run) {
  const Scratch folder;
  const IXMLDOMDocument one = documentOf("one", 30'000), two = documentOf("two", 20'000);
  const std::string target = folder.write("study.xml", one.xml());
  std::mt19937_64 random(run.seed);
  Result result;
  std::size_t leftovers = 0;
  for (const std::size_t most = run.of(1'000, 100); result.count < most; ++result.count) {
    begin(run.seed);
    const pid_t child = ::fork();
    if (child == 0) {
      for (;;) {
        for (const IXMLDOMDocument& each : {two, one})
          if (!(run.planted ? saveInPlace(each, target) : each.save(target, nullptr, DomOverwrite::any)))
            ::_exit(1);
      }
    }
    ::usleep(static_cast<useconds_t>(below(random, 8'000)));
    ::kill(child, SIGKILL);
    int status = 0;
    ::waitpid(child, &status, 0);
    if (!WIFSIGNALED(status)) return {result.count, "a save failed behind a kill"};
    const std::string content = folder.read("study.xml");
    if (content != one.xml() && content != two.xml())
      return {result.count, "the file is neither the former nor the new one after a kill"};
    leftovers += folder.files() - 1;
    // The temporary file, and the lock for the moment of the rename.
    if (folder.files() > 3) return {result.count, "a save leaves what a killed one has left"};
  }
  if (!one.save(target) || folder.files() != 1)
    return {result.count, "the last save leaves a temporary file"};
  if (!run.planted && leftovers == 0) return {result.count, "no kill met a save: the test proves nothing"};
  return result;
}

// Each system call of a save fails in turn, for each cause.
Result failingCalls(const Run& run) {
  using domtest::Faults;
  const Scratch folder;
  const IXMLDOMDocument document = documentOf("new", 20'000);
  const std::string target = folder.path("study.xml"), former = "<former/>", written = document.xml();
  Result result;
  for (const int cause : {ENOSPC, EIO, EACCES, EROFS, EDQUOT, EPERM}) {
    begin(run.seed);
    for (int failAt = 0;; ++failAt) {
      folder.write("study.xml", former);
      Faults::error = cause;
      Faults::set(failAt);
      if (run.planted) files::fileCalls.remove = [](const char*) { return 0; };
      DomError error;
      const bool saved = document.save(target, &error, DomOverwrite::any);
      Faults::clear();
      if (Faults::failed.empty()) break;
      ++result.count;
      const std::string at = "call " + std::to_string(failAt) + " (" + Faults::failed + "): ";
      if (folder.files() != 1) return {result.count, at + "a temporary file stays"};
      if (folder.read("study.xml") != (saved ? written : former))
        return {result.count, at + "the file is not the one that was told"};
      if (!saved && error.reason.find(std::strerror(cause)) == std::string::npos)
        return {result.count, at + "the cause is not named: " + error.message()};
    }
  }
  // Without locks a save works; only leftovers are not told from files in use.
  domtest::Faults::set(-1);
  files::fileCalls.lock = [](int) {
    errno = ENOLCK;
    return -1;
  };
  const bool saved = document.save(target, nullptr, DomOverwrite::any);
  domtest::Faults::clear();
  if (!saved || folder.files() != 1) return {result.count, "no save without file locks"};
  return result;
}

// Runs `work` in a child, which may change the rights and limits of its process. Answers what it answers.
std::string inChild(const std::function<std::string()>& work) {
  int ends[2];
  if (::pipe(ends) != 0) return "no pipe";
  const pid_t child = ::fork();
  if (child == 0) {
    const std::string answer = work().substr(0, 4000);
    const bool told = ::write(ends[1], answer.data(), answer.size()) == static_cast<ssize_t>(answer.size());
    ::_exit(told ? 0 : 1);
  }
  ::close(ends[1]);
  std::string answer(4000, '\0');
  const ssize_t got = ::read(ends[0], answer.data(), answer.size());
  ::close(ends[0]);
  answer.resize(got > 0 ? static_cast<std::size_t>(got) : 0);
  int status = 0;
  ::waitpid(child, &status, 0);
  return status == 0 ? answer : "the child failed";
}

// One save that the system refuses half way: the old file is whole, the cause is named, nothing stays.
std::string refused(const Scratch& folder, const std::string& name, const IXMLDOMDocument& document,
                    int cause, bool planted) {
  const std::string former = folder.read(name);
  const std::size_t files = folder.files();
  DomError error;
  const bool saved =
      planted ? saveInPlace(document, folder.path(name)) : document.save(folder.path(name), &error);
  if (saved) return "the save is not refused";
  if (folder.read(name) != former) return "the former file is not whole";
  if (folder.files() != files) return "a temporary file stays";
  if (!planted && error.reason.find(std::strerror(cause)) == std::string::npos)
    return "the cause is not named: " + error.message();
  return {};
}

// The system lets a file grow to a limit only; where it lets us, also a disk of 256 KiB in memory.
Result fullDisk(const Run& run) {
  Result result;
  const Scratch folder;
  const IXMLDOMDocument document = documentOf("new", 30'000);
  folder.write("study.xml", "<former/>");
  const std::size_t size = document.xml().size();
  const std::size_t steps = run.of(100, 10);
  for (; result.count < steps; ++result.count) {
    begin(run.seed);
    const std::string wrong = inChild([&] {
      ::signal(SIGXFSZ, SIG_IGN);
      rlimit limit = {};
      ::getrlimit(RLIMIT_FSIZE, &limit);
      limit.rlim_cur = size * result.count / steps;
      ::setrlimit(RLIMIT_FSIZE, &limit);
      return refused(folder, "study.xml", document, EFBIG, run.planted);
    });
    if (!wrong.empty()) return {result.count, wrong};
  }
  const std::string wrong = inChild([&]() -> std::string {
    if (::unshare(CLONE_NEWNS) != 0 || ::mount("none", folder.path().c_str(), "tmpfs", 0, "size=256k") != 0)
      return {};
    folder.write("study.xml", "<former/>");
    return refused(folder, "study.xml", document, ENOSPC, run.planted);
  });
  return {++result.count, wrong};
}

Result writeProtected(const Run& run) {
  const Scratch folder;
  begin(run.seed);
  const IXMLDOMDocument document = documentOf("new", 10);
  folder.write("study.xml", "<former/>");
  folder.write("kept.xml", "<former/>");
  ::chmod(folder.path("kept.xml").c_str(), 0444);
  const std::string folders = inChild([&]() -> std::string {
    ::chmod(folder.path().c_str(), run.planted ? 0777 : 0555);
    ::chmod(folder.path("study.xml").c_str(), 0666);
    if (::geteuid() == 0 && ::setresuid(65534, 65534, 65534) != 0)
      return "the rights of root cannot be dropped";
    return refused(folder, "study.xml", document, EACCES, false);
  });
  if (!folders.empty()) return {1, "read-only folder: " + folders};
  ::chmod(folder.path().c_str(), 0777);
  const std::string files = inChild([&]() -> std::string {
    if (::geteuid() == 0 && ::setresuid(65534, 65534, 65534) != 0)
      return "the rights of root cannot be dropped";
    return refused(folder, "kept.xml", document, EACCES, false);
  });
  if (!files.empty()) return {2, "read-only file: " + files};
  const std::string missing = refused(folder, "none/study.xml", document, ENOENT, false);
  if (!missing.empty()) return {3, "missing folder: " + missing};
  DomError error;
  if (document.save(folder.path(), &error) || error.reason.empty()) return {4, "a folder is no file"};
  return {4, {}};
}

}  // namespace

std::vector<Figure> savingFigures() {
  return {{3, "kill -9 at random moments of saves", "the save writes in place", killed},
          {3, "each system call of a save fails, for each cause", "temporary files are not removed",
           failingCalls},
          {3, "a full disk", "the save writes in place", fullDisk},
          {3, "read-only folder and file, no folder", "the folder is not read-only", writeProtected}};
}

}  // namespace torture
