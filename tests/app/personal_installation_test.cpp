#include "personal_installation.h"

#include <gtest/gtest.h>

#include "support/temp_folder.h"

namespace vellumark::app {
namespace {

namespace fs = std::filesystem;

class PersonalInstallation : public testing::Test {
 protected:
  PersonalInstallation() {
    for (const char* file :
         {"addin/README", "program/ui/zorpUI.xml", "customization/menu.xml",
          "customization/styles/Blue/text.pptx", "customization/styles/thumbs/old.png", "user/menu.xml",
          "user/styles/Own/text.pptx", "user/myelements/myelements.xml"}) {
      folder_.write(std::string("installed/") + file, file);
    }
  }
  bool make() { return linkInstallation(folder_.root() / "installed", personal_); }
  std::string read(const std::string& name) { return test::readFile((personal_ / name).string()); }

  test::TempFolder folder_;
  fs::path personal_ = folder_.root() / "personal/vellumark";
};

TEST_F(PersonalInstallation, TakesEverythingButWhatIsWrittenThere) {
  for (int round = 0; round < 2; ++round) {
    ASSERT_TRUE(make());
    for (const char* file :
         {"addin/README", "program/ui/zorpUI.xml", "customization/menu.xml",
          "customization/styles/Blue/text.pptx", "user/menu.xml", "user/styles/Own/text.pptx"}) {
      EXPECT_EQ(read(file), file);
    }
    EXPECT_FALSE(fs::exists(personal_ / "customization/styles/thumbs"));
    EXPECT_FALSE(fs::exists(personal_ / "user/myelements"));
  }
}

TEST_F(PersonalInstallation, FollowsTheInstalledOneAndKeepsWhatIsTheUsers) {
  ASSERT_TRUE(make());
  fs::remove(personal_ / "customization/menu.xml");
  folder_.write("personal/vellumark/customization/menu.xml", "mine");
  folder_.write("personal/vellumark/user/myelements/myelements.xml", "mine too");
  fs::remove_all(folder_.root() / "installed/customization/styles/Blue");
  folder_.write("installed/customization/styles/Red/text.pptx", "new");
  ASSERT_TRUE(make());
  EXPECT_EQ(read("customization/menu.xml"), "mine");
  EXPECT_EQ(read("user/myelements/myelements.xml"), "mine too");
  EXPECT_EQ(read("customization/styles/Red/text.pptx"), "new");
  EXPECT_FALSE(fs::is_symlink(personal_ / "customization/styles/Blue"));
  // Another installation takes the place of the first.
  fs::rename(folder_.root() / "installed", folder_.root() / "moved");
  ASSERT_TRUE(linkInstallation(folder_.root() / "moved", personal_));
  EXPECT_EQ(read("program/ui/zorpUI.xml"), "program/ui/zorpUI.xml");
  // Where no folder can be made, there is none.
  folder_.write("file", "");
  EXPECT_FALSE(linkInstallation(folder_.root() / "moved", folder_.root() / "file/below"));
}

}  // namespace
}  // namespace vellumark::app
