// What a program may do while its own statics are set up, before those of the library: all of it has to stand
// without dynamic initialisation, or come first.

#include <gtest/gtest.h>

#include "api/ApiErrStream.h"
#include "api/ApiPmSessionManager.h"
#include "merge/ZelXmlUpdateFromExternalDocument.h"
#include "wrapper/ZelXmlWrapper.h"
#include "wrapper/zelXmlInit.h"
#include "zel/ZelWrapperFactory.h"

namespace {

struct Early {
  bool built = false;
  bool imported = false;
  std::size_t conditions = 0;

  Early() {
    zelXmlInit();
    apiErr << ApiErrCode("EARLY") << ApiErrPosition{__FILE__, __LINE__, "Early"} << "text" << endErr;
    const auto study = [](const char* id) {
      const IXMLDOMDocument document = IXMLDOMDocument::create();
      document.loadXML(
          "<Data><Objects><PmPartPrototype ExternalId='" + std::string(id) +
          "'><NodeInfo><family>PartPrototype</family></NodeInfo></PmPartPrototype></Objects></Data>");
      return document;
    };
    auto& session = ApiPmSessionManager::the();
    session.setImportedDocumentAndDocRef(study("here"), {});
    const std::unique_ptr<ZelXmlWrapper> wrapper(
        dynamic_cast<ZelXmlWrapper*>(ZelWrapperFactory::the().create(0)));
    built = wrapper->build(false);
    const ApiPmAddToStudyFromFileData settings(true, true);
    const auto type = ApiPmAddToStudyFromFileData::importPartsAndResources;
    ZelXmlUpdateFromExternalDocument import(study("there"), settings, *wrapper, type);
    imported = import.execute();
    for (const auto& condition : ZelXmlUpdateFromExternalDocument::SELECTED_IMPORT_FAMILIES) {
      if (condition) ++conditions;
    }
    session.setImportedDocumentAndDocRef({}, {});
  }
} const early;

TEST(EarlyStart, TheLibraryWorksBeforeItsOwnStaticsAreSetUp) {
  EXPECT_TRUE(early.built);
  EXPECT_TRUE(early.imported);
  EXPECT_EQ(early.conditions, 19U);
}

}  // namespace
