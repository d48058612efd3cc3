#include "api/ApiErrStream.h"
#include "api/ApiPmSessionManager.h"
#include "document/ZelXmlFields.h"
#include "document/ZelXmlLayouts.h"
#include "document/ZelXmlLookup.h"
#include "document/ZelXmlShortcuts.h"
#include "document/ZelXmlStream.h"
#include "rt/RTTran3D.h"

// The copy of a study for those who must not see its operation shortcuts.

namespace {

class StudyFilter {
 public:
  StudyFilter(const IXMLDOMDocument& document, const IXMLDOMNode& study, const IXMLDOMDocument& out)
      : document_(document), study_(study), out_(out) {}

  bool run() {
    if (!zelXmlSelectChild(study_, "children", childList_)) return false;
    if (!zelXmlSelectChild(study_, "info", infoList_)) return false;
    if (!select()) return true;
    if (!bringIntoLine()) {
      apiErr << ApiErrCode("ZELXML_MISMATCH_IN_STUDY_SHORTCUTS_LISTS") << endErr;
      return false;
    }
    return dropOperations();
  }

 private:
  bool select() {
    return zelXmlSelectChildren(study_, "children/item", children_) &&
           zelXmlSelectChildren(study_, "info/item", infos_);
  }

  bool isOperation(const IXMLDOMNode& childItem) const {
    std::string buffer;
    return zelXmlIsOperationShortcut(document_, childItem.textView(buffer));
  }

  bool bringIntoLine() {
    if (infos_.length() > children_.length()) return dropSurplusInfos() && select();
    if (infos_.length() < children_.length()) return makeMissingInfos() && select();
    return true;
  }

  bool dropSurplusInfos() const {
    for (long i = infos_.length() - 1; i >= children_.length(); --i)
      if (!infoList_.removeChild(infos_.item(i))) return false;
    return true;
  }

  bool makeMissingInfos() const {
    for (long i = children_.length() - 1; i >= infos_.length(); --i) {
      const IXMLDOMNode item = children_.item(i);
      const bool isDone = isOperation(item) ? childList_.removeChild(item)
                                            : zelXmlCreateShortcutInfo(document_, out_, study_);
      if (!isDone) return false;
    }
    return true;
  }

  // The answer is that of the last removal.
  bool dropOperations() const {
    bool result = true;
    for (long i = children_.length() - 1; i >= 0; --i) {
      const IXMLDOMNode child = children_.item(i), info = infos_.item(i);
      if (!child || !info || !isOperation(child)) continue;
      childList_.removeChild(child);
      result = infoList_.removeChild(info);
    }
    return result;
  }

  const IXMLDOMDocument& document_;
  const IXMLDOMNode& study_;
  const IXMLDOMDocument& out_;
  IXMLDOMNode childList_, infoList_;
  IXMLDOMNodeList children_, infos_;
};

}  // namespace

bool zelXmlFilterStudyShortcuts(const IXMLDOMDocument& document, const IXMLDOMNode& studyClone,
                                const IXMLDOMDocument& out) {
  return StudyFilter(document, studyClone, out).run();
}

bool zelXmlPublishFilteredStudy(const IXMLDOMDocument& document, const ApiPmId& studyId,
                                const IXMLDOMDocument& out) {
  constexpr int keepAttachments = 2;
  IXMLDOMNode study, name;
  if (!zelXmlFindNodeById(document, studyId, study)) return false;
  const IXMLDOMNode copy = study.cloneNode(true);
  if (!zelXmlFilterStudyShortcuts(document, copy, out)) return false;
  if (ApiPmSessionManager::the().modeField != keepAttachments) {
    zelXmlRemoveNamedChild(copy, "comment");
    zelXmlRemoveNamedChild(copy, "attachments");
  }
  // The name of an object goes out by itself only: a whole element leaves it behind.
  return zelXmlSelectChild(study, "name", name) && zelXmlPublishField(out, name) &&
         zelXmlPublishUpdate(out, copy);
}
