#include "document/DocumentTest.h"

using namespace document_test;

namespace {

using DocumentThreeDRep = DocumentTest;

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
      {"", "\\Car\\Door.cojt", "#\\Car\\Door.cojt", "\\Car\\Door.cojt"},
      {"", "\\\\host\\a", "\\\\host\\a", "\\\\host\\a"},
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
  open(rep("f", "") + bare("Pm3DRep", "lost", "<file>gone</file>"));
  std::string path = "kept";
  EXPECT_FALSE(zelXmlGetThreeDRepPath(study, element("Rf"), path));
  EXPECT_FALSE(zelXmlSetThreeDRepPath(study, element("lost"), "/srv/a"));
  EXPECT_EQ(path, "kept");
  EXPECT_TRUE(zelXmlSetThreeDRepPath(study, element("Rf"), "/srv/a/b.jt"));
  EXPECT_EQ(text("Ff", "fileName"), "#\\a/b.jt");
  EXPECT_TRUE(zelXmlGetThreeDRepPath(study, element("Rf"), path));
  EXPECT_EQ(path, "/srv\\a/b.jt");
}
