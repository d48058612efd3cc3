// Opening a study: load, an index from id to object, family and class of each object, and the parent of each
// child. Each way runs in a process of its own, so that its peak memory is its own.

#include <libxml/parser.h>
#include <libxml/tree.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <string>
#include <string_view>
#include <unordered_map>

#include "Bench.h"
#include "Studies.h"

namespace {

using namespace bench;

struct Outcome {
  double seconds = 0;
  double peakBytes = 0;
};

void openOurs(const std::string& file) { new Study(file); }  // it goes with the process
void openPugixml(const std::string& file) { new PugiStudy(file); }

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

void openLibxml2(const std::string& file) {
  xmlDoc* document = xmlReadFile(file.c_str(), nullptr, XML_PARSE_NONET | XML_PARSE_COMPACT);
  if (!document) std::exit(2);
  static auto& objects = *new std::unordered_map<std::string, LibxmlObject>;
  static auto& parents = *new std::unordered_map<std::string, std::string>;
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
}

Outcome runApart(void (*open)(const std::string&), const std::string& file) {
  int ends[2];
  if (pipe(ends) != 0) std::exit(2);
  const pid_t child = fork();
  if (child == 0) {
    rusage before{};
    getrusage(RUSAGE_SELF, &before);
    Outcome outcome;
    const Watch watch;
    open(file);
    outcome.seconds = watch.seconds();
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    outcome.peakBytes = static_cast<double>(usage.ru_maxrss - before.ru_maxrss) * 1024;
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

template <void (*Open)(const std::string&)>
void openIt(benchmark::State& state, long objects) {
  const std::string& file = studyFile(objects);
  for ([[maybe_unused]] auto _ : state) {
    provideMemory(objects);
    const Outcome outcome = runApart(Open, file);
    spend(state, outcome.seconds);
    state.counters["bytes"] = outcome.peakBytes;
  }
  count(state, static_cast<std::size_t>(objects));
}

const int added =
    add({"open",
         {{OURS, openIt<openOurs>}, {PUGIXML, openIt<openPugixml>}, {LIBXML2, openIt<openLibxml2>}},
         "pugixml",
         1.5,
         true,
         true});

}  // namespace
