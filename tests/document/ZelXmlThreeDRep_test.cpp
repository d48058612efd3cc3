#include <filesystem>
#include <fstream>

#include "api/LocalFilesCacheClientFilesManager.h"
#include "document/DocumentTest.h"

using namespace document_test;

namespace {

using DocumentThreeDRep = DocumentTest;

std::string rep(const std::string& fileName) {
  return "<Pm3DRep ExternalId=\"rep\"><file>f</file></Pm3DRep><PmReferenceFile ExternalId=\"f\"><fileName>" +
         fileName + "</fileName></PmReferenceFile>";
}

}  // namespace

TEST_F(DocumentThreeDRep, NamesBelowTheSystemRootAreStoredWithoutIt) {
  const struct {
    const char *root, *path, *stored, *resolved;
  } cases[] = {
      {"C:\\Lib", "c:\\lib\\Car\\Door.cojt", "#\\Car\\Door.cojt", "C:\\Lib\\Car\\Door.cojt"},
      {"C:\\Lib\\\\", "C:\\Lib\\a", "#\\a", "C:\\Lib\\a"},
      {"C:\\Lib", "C:\\Library\\a", "C:\\Library\\a", "C:\\Library\\a"},
      {"C:\\Lib", "D:\\Lib\\a", "D:\\Lib\\a", "D:\\Lib\\a"},
      {"", "C:\\Lib\\a", "C:\\Lib\\a", "C:\\Lib\\a"},
      {"C:/Lib", "C:\\Lib\\a", "#\\a", "C:/Lib\\a"},
  };
  for (const auto& c : cases) {
    session().systemRoot = c.root;
    std::string stored, resolved;
    EXPECT_TRUE(zelXmlMakeRootRelative(c.path, stored));
    EXPECT_EQ(stored, c.stored) << c.root << " " << c.path;
    EXPECT_TRUE(zelXmlResolveFileName(stored, resolved));
    EXPECT_EQ(resolved, c.resolved) << c.root << " " << c.path;
  }
}

TEST_F(DocumentThreeDRep, APathIsReadAndWrittenThroughTheFileObject) {
  session().systemRoot = "/srv";
  open(rep("") + "<Pm3DRep ExternalId=\"lost\"><file>gone</file></Pm3DRep>");
  std::string path = "kept";
  EXPECT_FALSE(zelXmlGetThreeDRepPath(study, element("rep"), path));
  EXPECT_FALSE(zelXmlSetThreeDRepPath(study, element("lost"), "/srv/a"));
  EXPECT_EQ(path, "kept");
  EXPECT_TRUE(zelXmlSetThreeDRepPath(study, element("rep"), "/srv/a/b.jt"));
  EXPECT_EQ(at(element("f"), "fileName").text(), "#\\a/b.jt");
  EXPECT_TRUE(zelXmlGetThreeDRepPath(study, element("rep"), path));
  EXPECT_EQ(path, "/srv\\a/b.jt");
}

TEST_F(DocumentThreeDRep, AnActiveFilesCacheGivesLocalCopiesAndTheirOrigin) {
  namespace fs = std::filesystem;
  const fs::path directory = fs::path(testing::TempDir()) / "zelxml_threedrep";
  fs::remove_all(directory);
  fs::create_directories(directory);
  const std::string origin = directory / "door.jt", missing = directory / "missing.jt";
  std::ofstream(origin) << "geometry";
  auto& client = LocalFilesCacheClientFilesManager::the();
  ASSERT_TRUE(client.activate(directory / "cache"));

  open(rep(origin));
  std::string local, lost;
  EXPECT_TRUE(zelXmlGetThreeDRepPath(study, element("rep"), local));
  EXPECT_NE(local, origin);
  EXPECT_TRUE(fs::exists(local));
  EXPECT_TRUE(zelXmlSetThreeDRepPath(study, element("rep"), local));
  EXPECT_EQ(at(element("f"), "fileName").text(), origin);
  EXPECT_TRUE(zelXmlSetThreeDRepPath(study, element("rep"), missing));
  EXPECT_EQ(at(element("f"), "fileName").text(), missing);
  EXPECT_FALSE(zelXmlGetThreeDRepPath(study, element("rep"), lost));
  EXPECT_NE(lost, missing);

  client.activate("");
  fs::remove_all(directory);
}
