#include "ui/qt_ports.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include "sample_screen.h"
#include "ui/associations.h"

namespace zelvo::testing {
namespace {

TEST(Choosers, FiltersOfTheOfficeBecomeThoseOfTheDesktop) {
  EXPECT_EQ(chooserFilter("Pictures (*.bmp;*.gif;*.jpg)|*.jpg;*.bmp;*.gif|All Files|*.*"),
            "Pictures (*.jpg *.bmp *.gif);;All Files (*)");
  EXPECT_EQ(chooserFilter(""), "");
}

TEST_F(WindowTest, TheDesktopTellsWhoWorksHereAndRefusesToSwitchTheDisplay) {
  EXPECT_TRUE(house.desktop.networkUser());
  EXPECT_GT(house.desktop.screenSize().width, 0);
  EXPECT_FALSE(house.desktop.switchDisplay({800, 600}));
}

TEST_F(WindowTest, AProgramThatIsNotThereIsSaidToBeMissing) {
  const auto none = house.desktop.start("\"\" \"letter.doc\"");
  ASSERT_FALSE(none);
  EXPECT_NE(none.error().message.find("letter.doc"), std::string::npos);
  EXPECT_FALSE(house.desktop.start("/no/such/program"));
  EXPECT_TRUE(house.desktop.start("/bin/true"));
}

TEST(Associations, TheUsersChoiceCountsBeforeTheComputers) {
  const QTemporaryDir folder;
  const auto write = [&](const QString& name, const char* text) {
    QDir().mkpath(QFileInfo(folder.filePath(name)).path());
    QFile file(folder.filePath(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
  };
  write("data/applications/one.desktop", "[Desktop Entry]\nExec=/bin/true %u\n");
  write("data/applications/two.desktop", "[Desktop Entry]\nExec=/bin/false %u\n");
  write("data/applications/mimeinfo.cache", "[MIME Cache]\ntext/html=gone.desktop;one.desktop;\n");
  qputenv("XDG_DATA_HOME", folder.filePath("data").toUtf8());
  qputenv("XDG_CONFIG_HOME", folder.filePath("config").toUtf8());
  const auto page = folder.filePath("dummy.html").toStdString();
  write("dummy.html", "");
  EXPECT_EQ(associatedProgram(page), "/bin/true");
  write("config/mimeapps.list", "[Default Applications]\ntext/html=two.desktop\n");
  EXPECT_EQ(associatedProgram(page), "/bin/false");
  qunsetenv("XDG_DATA_HOME");
  qunsetenv("XDG_CONFIG_HOME");
}

}  // namespace
}  // namespace zelvo::testing
