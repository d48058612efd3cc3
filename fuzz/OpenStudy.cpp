#include "OpenStudy.h"

#include <sstream>

#include "api/ApiPmIds.h"
#include "api/ApiPmSessionManager.h"
#include "wrapper/zelXmlInit.h"

namespace fuzz {

OpenStudy::OpenStudy(const IXMLDOMDocument& document, int number)
    : document_(document), prefix_("made-" + std::to_string(number) + "-") {
  zelXmlInit();
  enter();
  wrapper_ = std::make_unique<ZelXmlWrapper>();
  built_ = wrapper_->read();
  wrapper_->setOutDocument(out_);
}

OpenStudy::~OpenStudy() {
  enter();
  wrapper_.reset();
  auto& session = ApiPmSessionManager::the();
  session.setImportedDocumentAndDocRef({}, {});
  session.userName.clear();
  session.projectId = {};
  session.projectInternalId = {};
  session.projectName.clear();
  session.rootNodeId.clear();
  session.variantFilter = 0;
  api::setGuidSource(nullptr);
}

void OpenStudy::enter() {
  api::setGuidSource([this] { return prefix_ + std::to_string(++made_); });
  auto& session = ApiPmSessionManager::the();
  if (!(session.importedDocument() == document_)) session.setImportedDocumentAndDocRef(document_, {});
}

std::string OpenStudy::saved() {
  std::ostringstream text;
  return wrapper_->write(text) ? text.str() : std::string();
}

}  // namespace fuzz
