#include "zelstudy/UpdateDocument.h"

#include "zelstudy/Tool.h"

namespace zelstudy {

bool loadUpdate(const std::string& fileName, IXMLDOMDocument& update) {
  update = IXMLDOMDocument::create();
  DomError error;
  IXMLDOMNode section;
  if (!update.load(fileName, &error)) {
    say(error.message());
    return false;
  }
  if (update.selectSingleNode("Data/Objects", section)) return true;
  say(fileName + ": no update: it has no Data/Objects");
  return false;
}

}  // namespace zelstudy
