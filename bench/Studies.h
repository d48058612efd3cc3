#pragma once

#include <memory>
#include <pugixml.hpp>
#include <string>
#include <unordered_map>
#include <vector>

#include "api/ApiPmIds.h"
#include "dom/IXMLDOMDocument.h"
#include "wrapper/ZelXmlWrapper.h"

// Generated studies, and how the peers hold them.
namespace bench {

// The file of a generated study of so many objects; made at the first call, removed at the end of the
// program.
const std::string& studyFile(long objects);

// A study, opened through the abstract model. One at a time: the session is the process's.
class Study {
 public:
  explicit Study(const std::string& file);
  ~Study();
  Study(const Study&) = delete;
  Study& operator=(const Study&) = delete;

  ZelXmlWrapper& wrapper() { return *wrapper_; }
  const IXMLDOMDocument& document() const { return document_; }
  // Changes are published from now on.
  void publish();

 private:
  IXMLDOMDocument document_;
  IXMLDOMDocument out_;
  std::unique_ptr<ZelXmlWrapper> wrapper_;
};

// A study that was opened once and is only read.
Study& readStudy(long objects);
// All its nodes in a random order, always the same one.
const std::vector<ZelNode*>& shuffledNodes(long objects);

// The same by hand: ids, and the parent of each child.
struct PugiObject {
  pugi::xml_node element;
  std::string_view family;
};
struct PugiStudy {
  explicit PugiStudy(const std::string& file);
  pugi::xml_document document;
  std::unordered_map<std::string, PugiObject> objects;
  std::unordered_map<std::string, std::string> parents;
};
PugiStudy& readPugiStudy(long objects);
// The objects of shuffledNodes, in the same order.
const std::vector<pugi::xml_node>& shuffledElements(long objects);

}  // namespace bench
