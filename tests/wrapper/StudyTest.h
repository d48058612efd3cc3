#pragma once

#include <algorithm>
#include <memory>
#include <vector>

#include "api/ApiErrStream.h"
#include "document/DocumentTest.h"
#include "node/ZelXmlNode.h"
#include "wrapper/ZelXmlWrapper.h"
#include "wrapper/zelXmlInit.h"
#include "zel/ZelCollection.h"
#include "zel/ZelPhysical.h"
#include "zel/ZelWrapperFactory.h"

namespace document_test {

// A layout object at these relative and absolute positions, without rotation.
inline std::string layout(const std::string& id, const std::string& node, const std::string& parent,
                          const std::string& children, int relative, int absolute) {
  auto items = [](int x) {
    return "<item>" + std::to_string(x) + ".000000</item><item>0.000000</item><item>0.000000</item>";
  };
  return "<PmLayout ExternalId=\"" + id + "\"><location>" + items(relative) + "</location><rotation>" +
         items(0) + "</rotation><children>" + children + "</children><parent>" + parent + "</parent><node>" +
         node + "</node><NodeInfo><family>PmLayout</family><absoluteLocation><x>" + std::to_string(absolute) +
         ".000000</x><y>0.000000</y><z>0.000000</z><rx>0.000000</rx><ry>0.000000</ry><rz>0.000000</rz>" +
         "</absoluteLocation></NodeInfo></PmLayout>";
}

inline std::string item(const std::string& id) { return "<item>" + id + "</item>"; }
inline std::string items(std::initializer_list<const char*> ids) {
  std::string text;
  for (const char* id : ids) text += item(id);
  return text;
}

// An object of a part tree with a layout "L" + id.
inline std::string part(const std::string& id, const std::string& parents, const std::string& children) {
  const std::string name = children == "-" ? "PmPartInstance" : "PmCompoundPart";
  return "<" + name + " ExternalId=\"" + id + "\"><name>" + id + "</name><parents>" + parents + "</parents>" +
         (children == "-" ? "" : "<children>" + children + "</children>") + "<layout>L" + id +
         "</layout><NodeInfo><family>Product</family></NodeInfo></" + name + ">";
}

// A built study behind the abstract model. The OUT document takes commands once publish() was called.
class StudyTest : public DocumentTest {
 protected:
  void SetUp() override {
    DocumentTest::SetUp();
    zelXmlInit();
    wrapper.reset(dynamic_cast<ZelXmlWrapper*>(ZelWrapperFactory::the().create(0)));
    apiErr.setSink([this](const ApiErrEntry& entry) { messages.push_back(entry); });
  }
  void TearDown() override {
    wrapper.reset();
    apiErr.setSink(nullptr);
    session().deleteMode = 0;
    session().userName.clear();
    session().projectId = {};
    session().projectInternalId = {};
    session().projectName.clear();
    session().rootNodeId.clear();
    session().variantFilter = 0;
    DocumentTest::TearDown();
  }

  void build(const std::string& objects) {
    open(objects);
    ASSERT_TRUE(wrapper->build(false));
  }
  void publish() { wrapper->setOutDocument(stream); }

  ZelNode* node(std::string_view id) const { return wrapper->getZelNodeFromId(ApiPmId(id)); }
  ZelXmlNode* xmlNode(std::string_view id) const { return zelXmlNodeOf(node(id)); }
  ZelCollection* collection(std::string_view id) const { return zelQuery<ZelCollection>(node(id)); }
  ZelPhysical* physical(std::string_view id) const { return zelQuery<ZelPhysical>(node(id)); }
  std::vector<std::string> roots() const {
    ApiPmIdList ids;
    wrapper->getRoots(ids);
    std::vector<std::string> texts;
    for (const ApiPmId& id : ids) texts.push_back(id.asString());
    std::sort(texts.begin(), texts.end());
    return texts;
  }
  std::string parentOf(std::string_view id) const {
    ApiPmId parent;
    return wrapper->relevantParentFinder().findRelevantParent(ApiPmId(id), parent) ? parent.asString() : "-";
  }
  std::string list(std::string_view id, const std::string& field) const {
    IXMLDOMNodeList found;
    element(id).selectNodes(field + "/item", found);
    std::string text;
    for (const IXMLDOMNode& entry : found) text += (text.empty() ? "" : " ") + entry.text();
    return text;
  }
  bool exists(std::string_view id) const {
    IXMLDOMElement found;
    return study.findByAttribute("ExternalId", id, found);
  }
  double x(std::string_view layoutId, const char* path) const {
    return std::stod(at(element(layoutId), path).text());
  }
  // Element names and ids of one section of the OUT document, in order.
  std::string commands(const std::string& command) const {
    std::string text;
    IXMLDOMNodeList sections;
    stream.selectNodes("Data/Objects[@command='" + command + "']/*", sections);
    for (const IXMLDOMNode& entry : sections) {
      std::string_view id;
      entry.getAttribute("ExternalId", id);
      text += (text.empty() ? "" : " ") + std::string(id);
    }
    return text;
  }
  std::string updated() const { return commands("DG_UPDATE_STREAM_COMMAND"); }
  std::string deleted() const { return commands("DG_DELETE_STREAM_COMMAND"); }

  std::unique_ptr<ZelXmlWrapper> wrapper;
  std::vector<ApiErrEntry> messages;
  IXMLDOMDocument stream = IXMLDOMDocument::create();
};

}  // namespace document_test
