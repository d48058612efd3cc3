#include "Studies.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <random>

#include "Bench.h"
#include "StudyGenerator.h"
#include "api/ApiPmSessionManager.h"
#include "wrapper/zelXmlInit.h"

namespace bench {

namespace {

[[noreturn]] void fail(const std::string& why) {
  std::fprintf(stderr, "zelxml_bench: %s\n", why.c_str());
  std::exit(2);
}

// A directory for the length of the program. Only the process that made it removes it.
class Scratch {
 public:
  Scratch() {
    if (mkdtemp(path_.data()) == nullptr) fail("no temporary directory");
  }
  ~Scratch() {
    std::error_code ignored;
    if (getpid() == maker_) std::filesystem::remove_all(path_, ignored);
  }
  const std::string& path() const { return path_; }

 private:
  std::string path_ = (std::filesystem::temp_directory_path() / "zelxml_bench.XXXXXX").string();
  pid_t maker_ = getpid();
};

}  // namespace

void cool() {
  static std::vector<char> other(std::size_t{256} << 20);
  for (std::size_t i = 0; i < other.size(); i += 64) ++other[i];
  benchmark::DoNotOptimize(other.data());
}

void provideMemory(long objects) {
  const auto bytes = static_cast<std::size_t>(objects) * 4096;
  void* const pages = ::mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (pages == MAP_FAILED) return;
  ::madvise(pages, bytes, MADV_HUGEPAGE);
  for (std::size_t i = 0; i < bytes; i += 4096) static_cast<volatile char*>(pages)[i] = 1;
  ::munmap(pages, bytes);
}

const std::string& studyFile(long objects) {
  static const Scratch scratch;
  static std::map<long, std::string> files;
  std::string& file = files[objects];
  if (!file.empty()) return file;
  file = scratch.path() + "/" + std::to_string(objects) + ".xml";
  zelgen::StudyOptions options;
  options.objects = static_cast<std::uint32_t>(objects);
  // Two levels more for ten times the objects: lists of children are of one length at every size.
  for (long size = 1000; size * 10 <= objects; size *= 10) options.depth += 2;
  std::ofstream stream(file, std::ios::binary);
  if (!zelgen::generateStudy(options, [&stream](std::string_view chunk) {
        return static_cast<bool>(stream.write(chunk.data(), static_cast<std::streamsize>(chunk.size())));
      })) {
    fail(file + ": cannot be written");
  }
  return file;
}

Study::Study(const std::string& file) : document_(IXMLDOMDocument::create()) {
  zelXmlInit();
  DomError error;
  if (!document_.load(file, &error)) fail(error.message());
  ApiPmSessionManager::the().setImportedDocumentAndDocRef(document_, {file});
  wrapper_ = std::make_unique<ZelXmlWrapper>();
  if (!wrapper_->build(false)) fail(file + ": cannot be built");
}

Study::~Study() {
  wrapper_.reset();
  ApiPmSessionManager::the().setImportedDocumentAndDocRef({}, {});
}

void Study::publish() {
  out_ = IXMLDOMDocument::create();
  wrapper_->setOutDocument(out_);
}

Study& readStudy(long objects) {
  static long size = 0;
  static std::unique_ptr<Study> study;
  if (!study || size != objects) {
    study.reset();
    study = std::make_unique<Study>(studyFile(objects));
    size = objects;
  }
  ApiPmSessionManager::the().setImportedDocumentAndDocRef(study->document(), {studyFile(objects)});
  return *study;
}

const std::vector<ZelNode*>& shuffledNodes(long objects) {
  static long size = 0;
  static std::vector<ZelNode*> nodes;
  if (size != objects) {
    ZelNodeList all;
    readStudy(objects).wrapper().getAllNodes(all);
    nodes.assign(all.begin(), all.end());
    std::shuffle(nodes.begin(), nodes.end(), std::mt19937(1));
    size = objects;
  }
  return nodes;
}

PugiStudy::PugiStudy(const std::string& file) {
  if (!document.load_file(file.c_str())) fail(file + ": not read by pugixml");
  for (const pugi::xml_node element : document.child("Data").child("Objects").children()) {
    const char* id = element.attribute("ExternalId").value();
    objects.emplace(id, PugiObject{element, element.child("NodeInfo").child_value("family")});
    for (const pugi::xml_node item : element.child("children").children("item")) {
      parents.emplace(item.child_value(), id);
    }
  }
}

PugiStudy& readPugiStudy(long objects) {
  static long size = 0;
  static std::unique_ptr<PugiStudy> study;
  if (!study || size != objects) {
    study.reset();
    study = std::make_unique<PugiStudy>(studyFile(objects));
    size = objects;
  }
  return *study;
}

const std::vector<pugi::xml_node>& shuffledElements(long objects) {
  static long size = 0;
  static std::vector<pugi::xml_node> elements;
  if (size != objects) {
    const PugiStudy& study = readPugiStudy(objects);
    elements.clear();
    for (const ZelNode* node : shuffledNodes(objects)) {
      ApiPmId id;
      node->getExternalId(id);
      elements.push_back(study.objects.at(id.asString()).element);
    }
    size = objects;
  }
  return elements;
}

}  // namespace bench
