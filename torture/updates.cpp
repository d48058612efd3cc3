// An update or an import that fails leaves the file on disk as it was: the program is run on damaged
// documents, and on a system that refuses its writes. tests/merge makes each system call of these fail.

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <csignal>
#include <unordered_set>

#include "ExternalGenerator.h"
#include "Scratch.h"
#include "StudyCase.h"
#include "StudyGenerator.h"
#include "Torture.h"
#include "UpdateGenerator.h"
#include "dom/IXMLDOMDocument.h"

namespace torture {

namespace {

IXMLDOMDocument parsed(const std::string& text) {
  IXMLDOMDocument document = IXMLDOMDocument::create();
  document.loadXML(text);
  return document;
}

// An object that the study shows.
std::string shownObject(const IXMLDOMDocument& study) {
  IXMLDOMNode link;
  return study.selectSingleNode("Data/Objects/PmShortcut/linkExternalID", link) ? link.text() : std::string();
}

// The object with all that it leads to, as an update of it.
std::string withAllBelow(const IXMLDOMDocument& study, const std::string& id) {
  std::string objects;
  std::vector<std::string> waiting{id};
  std::unordered_set<std::string> seen;
  while (!waiting.empty()) {
    const std::string at = waiting.back();
    waiting.pop_back();
    IXMLDOMElement element;
    if (!seen.insert(at).second || !study.findByAttribute("ExternalId", at, element)) continue;
    objects += element.xml();
    for (const char* path : {"children/item", "layout"}) {
      IXMLDOMNodeList ids;
      element.selectNodes(path, ids);
      for (const IXMLDOMNode& each : ids) waiting.push_back(each.text());
    }
  }
  return "<Data><Objects>" + objects + "</Objects></Data>";
}

// The exit code; -1 for a run that a signal ended.
int runTool(std::vector<std::string> words, rlim_t mostBytes) {
  words.insert(words.begin(), ZELSTUDY_PROGRAM);
  std::vector<char*> arguments;
  arguments.reserve(words.size() + 1);
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  const pid_t child = ::fork();
  if (child == 0) {
    const int nowhere = ::open("/dev/null", O_RDWR);
    for (int end = 0; end < 3; ++end) ::dup2(nowhere, end);
    if (mostBytes > 0) {
      ::signal(SIGXFSZ, SIG_IGN);
      const rlimit limit{mostBytes, mostBytes};
      ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ::alarm(60);
    ::execv(arguments[0], arguments.data());
    ::_exit(127);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

Result atTheTool(const Run& run) {
  Result result;
  std::size_t failures = 0;
  std::size_t successes = 0;
  const Scratch folder;
  const std::string file = folder.path("study.xml"), given = folder.path("given.xml");
  for (std::uint64_t seed = run.seed; result.count < run.of(3'000, 150); ++seed, ++result.count) {
    begin(seed, 120);
    const std::string at = "seed " + std::to_string(seed) + ": ";
    std::mt19937_64 random(seed);
    std::string study = zelgen::generateStudy({.objects = 120, .seed = seed, .shared = 10});
    const std::string root = shownObject(parsed(study));
    std::string reason;
    std::string document;
    const auto sink = [&document](std::string_view piece) {
      document += piece;
      return true;
    };
    std::vector<std::string> words;
    switch (seed % 4) {
      case 0:
      case 1:
        if (!zelgen::generateUpdate({.seed = seed}, parsed(study), sink, reason))
          return {result.count, at + reason};
        words = {"update", file, given, "--in-place"};
        if (seed % 4 == 1) words.push_back("--incremental");
        break;
      case 2:
        if (!zelgen::generateExternal(
                {.seed = seed, .classChanges = static_cast<std::uint32_t>(below(random, 3))}, parsed(study),
                sink, reason))
          return {result.count, at + reason};
        words = {"import", file, given, "--in-place"};
        break;
      default:
        document = withAllBelow(parsed(study), root);
        words = {"update-file", file,  "--study", folder.write("source.xml", study),
                 "--update",    given, "--root",  root};
    }
    for (std::size_t times = below(random, 4); times > 0; --times)
      document = fuzz::mutateStudy(document, random);
    if (below(random, 3) == 0) study = fuzz::mutateStudy(study, random);
    folder.write("study.xml", study);
    folder.write("given.xml", document);
    const std::size_t files = folder.files();
    const int code = runTool(words, below(random, 4) == 0 ? 1 + below(random, study.size()) : 0);
    if (code < 0 || code > 2)
      return {result.count, at + words.front() + " ended with " + std::to_string(code)};
    if (run.planted && code != 0) folder.write("study.xml", study + "\n");
    if (folder.files() != files) return {result.count, at + words.front() + " leaves a file"};
    ++(code == 0 ? successes : failures);
    const std::string now = folder.read("study.xml");
    if (code != 0 && now != study)
      return {result.count, at + words.front() + " failed and has changed the file"};
    if (code == 0 && !IXMLDOMDocument::create().loadXML(now))
      return {result.count, at + words.front() + " has written what cannot be read"};
  }
  if (failures == 0 || successes == 0)
    return {result.count,
            "all runs end alike (" + std::to_string(failures) + " fail): the test proves nothing"};
  return result;
}

}  // namespace

std::vector<Figure> updateFigures() {
  return {{4, "updates and imports of damaged documents, disk full", "a failed run writes to the file",
           atTheTool}};
}

}  // namespace torture
