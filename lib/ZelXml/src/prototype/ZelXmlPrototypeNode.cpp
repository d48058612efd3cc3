#include "prototype/ZelXmlPrototypeNode.h"

#include "api/ApiSysFileAccess.h"
#include "document/ZelXmlFunctions.h"

bool zelXmlFindJtFile(const RWClassicWString& directory, RWClassicWString& file) {
  static const RWCRegexp jtFiles(".+\\.jt$");
  const ApiSysFileName name(directory);
  RWClassicTValOrderedVector<std::string> names;
  if (!ApiSysFileAccess::listDir(name, jtFiles, names, false)) return false;
  file = names.isEmpty() ? std::string() : name.asString(true) + names[0];
  return true;
}

bool ZelXmlPrototypeNode::getJtFile(RWClassicWString& file) const {
  file.clear();
  RWClassicWString directory;
  return readPrototypePath(directory) && zelXmlFindJtFile(directory, file);
}

bool ZelXmlPrototypeNode::readModificationTime(std::int64_t& time) const {
  bool known = true;
  if (modificationTime_ == 0) {
    RWClassicWString file;
    known = getJtFile(file);
    if (known && !file.empty()) {
      known = ApiSysFileAccess::lastWriteTime(ApiSysFileName(file), modificationTime_);
    }
  }
  time = modificationTime_;
  return known && time != 0;
}
