#include "api/ApiPmSessionManager.h"
#include "document/ZelXmlFunctions.h"
#include "wrapper/ZelXmlWrapper.h"

// The copy of the session's data that a study carries, in Data/SessionMgrData.

namespace {

constexpr std::string_view sectionText = "In this section we save the private data of SessionManager";

// One field: its name, and how its text goes to and comes from the session.
struct SessionField {
  std::string_view name;
  void (*read)(ApiPmSessionManager&, const std::string&);
  std::string (*write)(const ApiPmSessionManager&);
};

const SessionField sessionFields[] = {
    {"UserName", [](ApiPmSessionManager& s, const std::string& text) { s.userName = text; },
     [](const ApiPmSessionManager& s) { return s.userName; }},
    {"ProjectId", [](ApiPmSessionManager& s, const std::string& text) { s.projectId = ApiPmId(text); },
     [](const ApiPmSessionManager& s) { return s.projectId.asString(); }},
    {"ProjectInternalId",
     [](ApiPmSessionManager& s, const std::string& text) {
       std::int32_t number = 0;
       if (zelXmlParseInt32(text, number)) s.projectInternalId = ApiPmInternalId(number);
     },
     [](const ApiPmSessionManager& s) { return std::to_string(s.projectInternalId.value); }},
    {"RootNodeId",
     [](ApiPmSessionManager& s, const std::string& text) {
       s.rootNodeId = text;
       s.rootNodeIdByte = 0;
     },
     [](const ApiPmSessionManager& s) { return s.rootNodeId; }},
    {"VariantFilter",
     [](ApiPmSessionManager& s, const std::string& text) { zelXmlParseInt32(text, s.variantFilter); },
     [](const ApiPmSessionManager& s) { return std::to_string(s.variantFilter); }},
    {"ProjectName", [](ApiPmSessionManager& s, const std::string& text) { s.projectName = text; },
     [](const ApiPmSessionManager& s) { return s.projectName; }},
};

}  // namespace

void ZelXmlWrapper::readSessionMngInformation() {
  const IXMLDOMDocument document = DOMDocument();
  for (const SessionField& field : sessionFields) {
    IXMLDOMNode node;
    std::string text;
    if (zelXmlSelectChild(document, "Data/SessionMgrData/" + std::string(field.name), node) &&
        zelXmlGetWideText(node, text)) {
      field.read(ApiPmSessionManager::the(), text);
    }
  }
}

void ZelXmlWrapper::writeSessionMngInformation() const {
  const IXMLDOMDocument document = DOMDocument();
  IXMLDOMNode data;
  IXMLDOMNode section;
  if (!zelXmlSelectChild(document, "Data", data)) return;
  if (!zelXmlSelectChild(data, "SessionMgrData", section) &&
      !(zelXmlAddChildWithText(document, data, "SessionMgrData", sectionText) &&
        zelXmlSelectChild(data, "SessionMgrData", section))) {
    return;
  }
  for (const SessionField& field : sessionFields) {
    IXMLDOMNode node;
    if (zelXmlEnsureChild(document, section, field.name, node)) {
      zelXmlSetWideText(node, field.write(ApiPmSessionManager::the()));
    }
  }
}
