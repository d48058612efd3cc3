// Opening a study, beside what an engineer would write by hand for the same work: load, an index from id to
// object, family and class of each object, and the parent of each child. Each way runs in a process of its
// own, so that its peak memory is its own; ways alternate, and the best run of each counts.
//
//   bench_open [OBJECTS]     a generated study of so many objects, 100000 unless said
//   bench_open FILE.xml      this study

#include <libxml/parser.h>
#include <libxml/tree.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <unordered_map>

#include "StudyGenerator.h"
#include "api/ApiPmSessionManager.h"
#include "dom/IXMLDOMDocument.h"
#include "wrapper/zelXmlInit.h"
#include "zel/ZelWrapperFactory.h"

namespace {

struct Outcome {
  double seconds = 0;
  long peakKilobytes = 0;
  std::size_t objects = 0;
};

std::size_t openWithZelXml(const std::string& file) {
  zelXmlInit();
  const IXMLDOMDocument document = IXMLDOMDocument::create();
  if (!document.load(file)) return 0;
  ApiPmSessionManager::the().setImportedDocumentAndDocRef(document, {file});
  ZelWrapper* wrapper = ZelWrapperFactory::the().create(0);  // the process ends with it
  return wrapper->build(false) ? static_cast<std::size_t>(wrapper->nodesNum()) : 0;
}

struct PugiObject {
  pugi::xml_node element;
  std::string_view name;
  std::string_view family;
};

std::size_t openWithPugixml(const std::string& file) {
  static pugi::xml_document document;
  if (!document.load_file(file.c_str())) return 0;
  static std::unordered_map<std::string, PugiObject> objects;
  static std::unordered_map<std::string, std::string> parents;
  for (const pugi::xml_node element : document.child("Data").child("Objects").children()) {
    const char* id = element.attribute("ExternalId").value();
    objects.emplace(id, PugiObject{element, element.name(), element.child("NodeInfo").child_value("family")});
    for (const pugi::xml_node item : element.child("children").children("item")) {
      parents.emplace(item.child_value(), id);
    }
  }
  return objects.size();
}

xmlNode* child(const xmlNode* node, const char* name) {
  for (xmlNode* at = node ? node->children : nullptr; at; at = at->next) {
    if (at->type == XML_ELEMENT_NODE && xmlStrEqual(at->name, reinterpret_cast<const xmlChar*>(name)))
      return at;
  }
  return nullptr;
}

std::string_view text(const xmlNode* node) {
  return node && node->children && node->children->content
             ? reinterpret_cast<const char*>(node->children->content)
             : std::string_view();
}

struct LibxmlObject {
  xmlNode* element;
  std::string_view name;
  std::string_view family;
};

std::size_t openWithLibxml2(const std::string& file) {
  xmlDoc* document = xmlReadFile(file.c_str(), nullptr, XML_PARSE_NONET | XML_PARSE_COMPACT);
  if (!document) return 0;
  static std::unordered_map<std::string, LibxmlObject> objects;
  static std::unordered_map<std::string, std::string> parents;
  for (xmlNode* element = child(xmlDocGetRootElement(document), "Objects")->children; element;
       element = element->next) {
    if (element->type != XML_ELEMENT_NODE) continue;
    const xmlAttr* attribute = xmlHasProp(element, reinterpret_cast<const xmlChar*>("ExternalId"));
    if (!attribute) continue;
    const std::string id(text(reinterpret_cast<const xmlNode*>(attribute)));
    objects.emplace(id, LibxmlObject{element, reinterpret_cast<const char*>(element->name),
                                     text(child(child(element, "NodeInfo"), "family"))});
    const xmlNode* children = child(element, "children");
    for (xmlNode* item = children ? children->children : nullptr; item; item = item->next) {
      if (item->type == XML_ELEMENT_NODE) parents.emplace(text(item), id);
    }
  }
  return objects.size();
}

Outcome runApart(std::size_t (*open)(const std::string&), const std::string& file) {
  int ends[2];
  if (pipe(ends) != 0) std::exit(2);
  const pid_t child = fork();
  if (child == 0) {
    const auto start = std::chrono::steady_clock::now();
    Outcome outcome;
    outcome.objects = open(file);
    outcome.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    outcome.peakKilobytes = usage.ru_maxrss;
    const bool written = write(ends[1], &outcome, sizeof outcome) == sizeof outcome;
    _exit(written ? 0 : 1);
  }
  close(ends[1]);
  Outcome outcome;
  if (read(ends[0], &outcome, sizeof outcome) != sizeof outcome) std::exit(2);
  close(ends[0]);
  waitpid(child, nullptr, 0);
  return outcome;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string argument = argc > 1 ? argv[1] : "100000";
  std::string file = argument;
  const bool generated = argument.find_first_not_of("0123456789") == std::string::npos;
  if (generated) {
    file = "/tmp/bench_open." + std::to_string(getpid()) + ".xml";
    zelgen::StudyOptions options;
    options.objects = static_cast<std::uint32_t>(std::strtoul(argument.c_str(), nullptr, 10));
    std::ofstream stream(file, std::ios::binary);
    zelgen::generateStudy(options, [&stream](std::string_view chunk) {
      return static_cast<bool>(stream.write(chunk.data(), static_cast<std::streamsize>(chunk.size())));
    });
  }
  struct Way {
    const char* name;
    std::size_t (*open)(const std::string&);
    Outcome best;
  };
  Way ways[] = {
      {"pugixml", openWithPugixml, {}}, {"libxml2", openWithLibxml2, {}}, {"ZelXml", openWithZelXml, {}}};
  for (int run = 0; run < 7; ++run) {
    for (Way& way : ways) {
      const Outcome outcome = runApart(way.open, file);
      if (run == 0 || outcome.seconds < way.best.seconds) way.best = outcome;
    }
  }
  std::printf("%-8s %10s %10s %8s %8s\n", "", "ms", "peak MB", "time", "memory");
  for (const Way& way : ways) {
    std::printf(
        "%-8s %10.0f %10.0f %8.2f %8.2f\n", way.name, way.best.seconds * 1e3,
        static_cast<double>(way.best.peakKilobytes) / 1024, way.best.seconds / ways[0].best.seconds,
        static_cast<double>(way.best.peakKilobytes) / static_cast<double>(ways[0].best.peakKilobytes));
    if (way.best.objects == 0) return 1;
  }
  if (generated) std::remove(file.c_str());
  return 0;
}
