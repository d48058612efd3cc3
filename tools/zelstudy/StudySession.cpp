#include "zelstudy/StudySession.h"

#include <iostream>

#include "api/ApiPmSessionManager.h"
#include "wrapper/zelXmlInit.h"
#include "zel/ZelWrapperFactory.h"
#include "zelstudy/Progress.h"
#include "zelstudy/SaveFiles.h"
#include "zelstudy/Tool.h"

namespace zelstudy {

namespace {

// What a document is that has no Data/Objects.
std::string whatElse(const IXMLDOMDocument& document) {
  const std::string root(document.documentElement().nodeName());
  return root == "Data" ? "there is no Objects under its root element Data"
                        : "its root element is " + root + ", not Data with Objects in it";
}

bool readStudy(const std::string& fileName, std::string_view kind, IXMLDOMDocument& document,
               std::string& error) {
  const std::string name = inputName(fileName);
  const Progress progress("opening " + name);
  document = IXMLDOMDocument::create();
  DomError reason;
  IXMLDOMNode section;
  if (!(isStandard(fileName) ? document.load(std::cin, &reason) : document.load(fileName, &reason))) {
    reason.file = name;
    error = reason.message();
  } else if (!document.selectSingleNode("Data/Objects", section)) {
    error = (name + ": no ").append(kind) + ": " + whatElse(document);
  }
  return error.empty();
}

}  // namespace

StudySession::StudySession() {
  zelXmlInit();
  formerSink_ = apiErr.setSink([this](const ApiErrEntry& entry) { messages_.push_back(entry); });
}

StudySession::~StudySession() {
  owned_.reset();
  ApiPmSessionManager::the().setImportedDocumentAndDocRef({}, {});
  apiErr.setSink(std::move(formerSink_));
}

bool StudySession::open(const std::string& fileName, const SessionSettings& settings, std::string& error) {
  fileName_ = fileName;
  error.clear();
  IXMLDOMDocument document;
  if (!readStudy(fileName, "study", document, error)) return false;

  const Progress progress("building " + fileName);
  ApiPmSessionManager& session = ApiPmSessionManager::the();
  session.setImportedDocumentAndDocRef(document, {fileName});
  session.mode = 2;
  settings.apply(session);
  owned_.reset(ZelWrapperFactory::the().create(0));
  wrapper_ = dynamic_cast<ZelXmlWrapper*>(owned_.get());
  if (!wrapper_) {
    error = fileName + ": there is no wrapper for studies in XML";
    return false;
  }
  builtWhole_ = wrapper_->read();
  settings.apply(session);  // the study's own session data came with the read
  return true;
}

std::size_t StudySession::objectCount() const {
  IXMLDOMNodeList objects;
  wrapper_->DOMDocument().selectNodes("Data/Objects/*", objects);
  return static_cast<std::size_t>(objects.length());
}

namespace {

bool findElement(const IXMLDOMDocument& document, const ApiPmId& id, IXMLDOMElement& element) {
  return ApiPmSessionManager::the().cachedDocument().getNodeById(document, id, element, true);
}

std::string quoted(const ApiPmId& id) { return "\"" + id.asString() + "\""; }

std::string nameElement(const IXMLDOMElement& element, const ApiPmId& id) {
  std::string text = std::string(element.tagName()) + " " + quoted(id);
  if (element.line()) text += ", line " + std::to_string(element.line());
  return text;
}

}  // namespace

bool StudySession::isInUse(const ApiPmId& id) const { return wrapper_->isIdInUse(id); }

IXMLDOMNode StudySession::elementOf(const ApiPmId& id) const {
  IXMLDOMElement element;
  findElement(wrapper_->DOMDocument(), id, element);
  return element;
}

std::string StudySession::describe(const ApiPmId& id) const {
  IXMLDOMElement element;
  return findElement(wrapper_->DOMDocument(), id, element) ? nameElement(element, id) : quoted(id);
}

std::string StudySession::whyNoNode(const ApiPmId& id) const {
  IXMLDOMElement element;
  if (!findElement(wrapper_->DOMDocument(), id, element)) return "no object has the id " + quoted(id);
  return nameElement(element, id) + ", is an object without a node";
}

bool loadStudy(const std::string& fileName, IXMLDOMDocument& document, std::string_view kind) {
  std::string error;
  if (readStudy(fileName, kind, document, error)) return true;
  say(error);
  return false;
}

bool openStudy(StudySession& study, const std::string& fileName, const SessionSettings& settings) {
  std::string error;
  if (!study.open(fileName, settings, error)) {
    say(error);
    return false;
  }
  if (!study.builtWhole())
    say(inputName(fileName) + ": the study could not be built whole: nodes or variant sets may be missing");
  return true;
}

}  // namespace zelstudy
