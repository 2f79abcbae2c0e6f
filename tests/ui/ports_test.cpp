#include "ui/qt_ports.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include "sample_screen.h"
#include "ui/associations.h"
#include "ui/display_mode.h"

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
  const QTemporaryDir folder;
  QFile::copy("/bin/true", folder.filePath("tool with blanks.bat"));
  EXPECT_TRUE(house.desktop.start(folder.filePath("tool with blanks.bat").toStdString()));
}

/// A desktop of its own: the folders in which programs, and choices among them, are written down.
class Associations : public ::testing::Test {
 protected:
  Associations() {
    qputenv("XDG_DATA_HOME", folder.filePath("data").toUtf8());
    qputenv("XDG_DATA_DIRS", folder.filePath("shared").toUtf8());
    qputenv("XDG_CONFIG_HOME", folder.filePath("config").toUtf8());
    qputenv("XDG_CONFIG_DIRS", folder.filePath("shared-config").toUtf8());
    write("dummy.html", "");
  }
  ~Associations() override {
    for (const char* name : {"XDG_DATA_HOME", "XDG_DATA_DIRS", "XDG_CONFIG_HOME", "XDG_CONFIG_DIRS"})
      qunsetenv(name);
    qunsetenv("XDG_CURRENT_DESKTOP");
    qputenv("PATH", path_);
  }
  void write(const QString& name, const QByteArray& text) {
    QDir().mkpath(QFileInfo(folder.filePath(name)).path());
    QFile file(folder.filePath(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
  }
  void program(const QString& name, const QByteArray& command, const QByteArray& more = {}) {
    write("shared/applications/" + name + ".desktop", "[Desktop Entry]\nExec=" + command + "\n" + more + "\n");
  }
  void able(const QByteArray& lines) { write("shared/applications/mimeinfo.cache", "[MIME Cache]\n" + lines); }
  std::string browser() { return opener("dummy.html"); }
  std::string opener(const QString& name) {
    return associatedProgram(folder.filePath(name).toStdString()).value_or("none");
  }

  const QTemporaryDir folder;

 private:
  const QByteArray path_ = qgetenv("PATH");
};

TEST_F(Associations, ThereIsNoneOnABareComputer) {
  EXPECT_EQ(browser(), "none");
  EXPECT_EQ(opener("no such file.pdf"), "none");
  able("text/html=gone.desktop;\n");
  EXPECT_EQ(browser(), "none");
}

TEST_F(Associations, TheUsersChoiceCountsBeforeTheComputers) {
  program("one", "/bin/true %u");
  program("two", "/bin/false %u");
  program("three", "/bin/sh %u");
  able("text/html=gone.desktop;one.desktop;two.desktop;\n");
  EXPECT_EQ(browser(), "/bin/true");
  write("config/mimeapps.list", "[Removed Associations]\ntext/html=one.desktop;\n");
  EXPECT_EQ(browser(), "/bin/false");
  write("shared-config/mimeapps.list", "[Default Applications]\ntext/html=one.desktop\n");
  EXPECT_EQ(browser(), "/bin/true");
  write("config/mimeapps.list", "[Default Applications]\ntext/html=two.desktop\n");
  EXPECT_EQ(browser(), "/bin/false");
  qputenv("XDG_CURRENT_DESKTOP", "Office:GNOME");
  write("config/gnome-mimeapps.list", "[Default Applications]\ntext/html = three.desktop;\n");
  EXPECT_EQ(browser(), "/bin/sh");
}

TEST_F(Associations, OnlyWhatShowsAWindowIsAProgram) {
  program("editor", "/bin/cat %F", "Terminal=true");
  program("hidden", "/bin/false %F", "Hidden=true");
  program("notes", "/bin/true %F");
  write("plan.log", "text");
  able("text/plain=editor.desktop;hidden.desktop;notes.desktop;\n");
  EXPECT_EQ(opener("plan.log"), "/bin/true") << "a note is any text";
  EXPECT_EQ(browser(), "none") << "an editor is no browser";
  able("x-scheme-handler/http=notes.desktop;\n");
  EXPECT_EQ(browser(), "/bin/true");
}

TEST_F(Associations, AProgramThatNeedsMoreWordsIsLeftToTheDesktop) {
  write("bin/xdg-open", "#!/bin/sh\n");
  QFile::setPermissions(folder.filePath("bin/xdg-open"), QFile::ReadOwner | QFile::ExeOwner);
  able("text/html=one.desktop;\n");
  program("one", "env MODE=office /bin/true --new-window %u");
  EXPECT_EQ(browser(), "/bin/true");
  program("one", "/bin/sh run --branch=stable org.example.Browser %u");
  qputenv("PATH", folder.filePath("bin").toUtf8());
  EXPECT_EQ(browser(), folder.filePath("bin/xdg-open").toStdString());
  QFile::remove(folder.filePath("bin/xdg-open"));
  EXPECT_EQ(browser(), "/bin/sh");
}

/// A display that is switched by a tool, which here only keeps a file.
class Display : public ::testing::Test {
 protected:
  void tool(const QByteArray& modes) {
    const QByteArray now = folder.filePath("now").toUtf8();
    file("now", "1366x768");
    file("xrandr", "#!/bin/sh\nif [ \"$1\" = --output ]; then echo \"$@\" >>'" + now + ".asked'; echo \"$4\" >'" + now +
                       "'; exit; fi\nnow=$(cat '" + now +
                       "')\necho 'Screen 0: minimum 320 x 200'\necho 'VGA-1 connected 640x480+0+0 (normal left)'\n"
                       "echo '   640x480 60.00*'\necho 'HDMI-1 disconnected (normal left)'\n"
                       "echo \"eDP-1 connected primary $now+640+0 (normal)\"\nfor mode in " +
                       modes + "; do [ $mode = $now ] && echo \"   $mode 59.79*+\" || echo \"   $mode 60.00\"; done\n");
    QFile::setPermissions(folder.filePath("xrandr"), QFile::ReadOwner | QFile::ExeOwner);
  }
  void file(const QString& name, const QByteArray& text) {
    QFile made(folder.filePath(name));
    ASSERT_TRUE(made.open(QIODevice::WriteOnly));
    made.write(text);
  }
  QByteArray asked() {
    QFile asked(folder.filePath("now.asked"));
    return asked.open(QIODevice::ReadOnly) ? asked.readAll() : QByteArray();
  }

  const QTemporaryDir folder;
};

TEST_F(Display, IsSwitchedAndPutBackAsItWas) {
  tool("1366x768 1024x768 800x600");
  DisplayMode display(folder.filePath("xrandr"));
  ASSERT_TRUE(display.switchTo({800, 600}));
  ASSERT_TRUE(display.switchTo({1024, 768}));
  display.restore();
  display.restore();
  EXPECT_EQ(asked(),
            "--output eDP-1 --mode 800x600\n--output eDP-1 --mode 1024x768\n"
            "--output eDP-1 --mode 1366x768 --rate 59.79\n");
}

TEST_F(Display, IsLeftAloneWhenItDoesNotKnowTheSize) {
  tool("1366x768 1024x768");
  DisplayMode display(folder.filePath("xrandr"));
  const auto refused = display.switchTo({800, 600});
  ASSERT_FALSE(refused);
  EXPECT_NE(refused.error().message.find("800 by 600"), std::string::npos);
  EXPECT_FALSE(DisplayMode("").switchTo({800, 600}));
  EXPECT_FALSE(DisplayMode("/bin/false").switchTo({800, 600}));
  display.restore();
  EXPECT_EQ(asked(), "");
}

}  // namespace
}  // namespace zelvo::testing
