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

inline std::string textOf(const ApiPmId& id) { return id.asString(); }
inline std::string textOf(const std::string& text) { return text; }
inline std::string textOf(const ZelNode* node) {
  ApiPmId id;
  return node->getExternalId(id) ? id.asString() : "";
}
// With blanks between.
template <class List>
std::string joined(const List& list) {
  std::string text;
  for (const auto& each : list) text.append(text.empty() ? "" : " ").append(textOf(each));
  return text;
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

  void build(const std::string& objects) { buildText(dataOf(objects)); }
  void buildText(const std::string& text) {
    openText(text);
    ASSERT_TRUE(wrapper->build(false));
  }
  void publish() { wrapper->setOutDocument(stream); }

  ZelNode* node(std::string_view id) const { return wrapper->getZelNodeFromId(ApiPmId(id)); }
  ZelXmlNode* xmlNode(std::string_view id) const { return zelXmlNodeOf(node(id)); }
  ZelCollection* collection(std::string_view id) const { return zelQuery<ZelCollection>(node(id)); }
  ZelPhysical* physical(std::string_view id) const { return zelQuery<ZelPhysical>(node(id)); }
  bool remove(std::string_view id) {
    ApiPmId known(id);
    return wrapper->deleteNode(known);
  }
  // Sorted: their order is that of the registry.
  std::string roots() const {
    ApiPmIdList ids;
    wrapper->getRoots(ids);
    std::sort(ids.begin(), ids.end());
    return joined(ids);
  }
  // Joined with blanks, "-" for none.
  std::string parentsOf(std::initializer_list<const char*> ids) const {
    std::string text;
    for (const char* id : ids) text += (text.empty() ? "" : " ") + parentOf(id);
    return text;
  }
  std::string nameOf(std::string_view id) const {
    RWClassicWString name;
    EXPECT_TRUE(node(id)->getName(name)) << id;
    return name;
  }
  RTTran3D placeOf(std::string_view id) const {
    RTTran3D place;
    EXPECT_TRUE(physical(id)->getLocation(place)) << id;
    return place;
  }
  std::string parentOf(std::string_view id) const {
    ApiPmId parent;
    return wrapper->relevantParentFinder().findRelevantParent(ApiPmId(id), parent) ? parent.asString() : "-";
  }
  // The items of a list.
  std::string list(std::string_view id, const std::string& field) const {
    ZelXmlList<std::string> texts;
    zelXmlGetTextList(element(id), field, texts);
    return joined(texts);
  }
  // Holds lists, each named by object and field, against their items.
  void expectLists(const std::vector<std::pair<std::string, std::string>>& expected) const {
    for (const auto& [path, items] : expected) {
      const std::size_t slash = path.find('/');
      EXPECT_EQ(list(path.substr(0, slash), path.substr(slash + 1)), items) << path;
    }
  }
  bool exists(std::string_view id) const {
    IXMLDOMElement found;
    return study.findByAttribute("ExternalId", id, found);
  }
  // The first number of a layout's place in its parent, and in the study.
  double relativeX(std::string_view id) const { return std::stod(text(id, "location/item")); }
  double absoluteX(std::string_view id) const { return std::stod(text(id, "NodeInfo/absoluteLocation/x")); }
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
