#include <gtest/gtest.h>

#include "base/files.h"
#include "shell/preferences/desktop_colours.h"
#include "shell/preferences/pref_frm.h"
#include "shell/settings.h"
#include "shell/shell_screens.h"
#include "support/scripted_desk.h"
#include "support/temp_folder.h"

namespace zelvo::testing {
namespace {

class Preferences : public ::testing::Test {
 protected:
  Preferences() {
    at.session.programFolder = folder.path();
    at.session.dataFolder = folder.file("town/data");
    at.session.formsFolder = folder.file("town/forms");
    EXPECT_TRUE(makeFolder(at.session.dataFolder).ok());
    at.session.municipality.name = "Town of Alder Glen";
    at.session.selectedBrowser = "/usr/bin/browser";
    at.session.useDefaultBrowser = "T";
    shared("Inspectors.txt", "Ann Reed\r\nBo Lund\r\n");
    shared("bins.txt", "FOOTING\r\nFRAMING\r\n");
    learnShellScreens(at.screens);
  }

  void shared(std::string_view name, std::string_view text) {
    ASSERT_TRUE(replaceFile(joinPath(at.session.dataFolder, name), text).ok());
  }
  std::string file(std::string_view name) { return readText(joinPath(at.session.dataFolder, name)).valueOr("(none)"); }
  std::string ini(std::size_t line) { return readLines(folder.file("Zelvo.ini")).valueOr({}).at(line - 1); }

  Screen& open() {
    at.screens.sweep();
    return *at.screens.open("PrefFrm");
  }

  TempFolder folder;
  ScriptedDesk at;
};

TEST_F(Preferences, WhatIsSavedIsReadAgainAtTheNextStart) {
  Screen& prefs = open();
  const std::pair<const char*, const char*> typed[] = {{"Text1", "Village of Dunmoor"},
                                                       {"Text3", "1 Main St, Suite \"B\""},
                                                       {"Text4", "Dunmoor"},
                                                       {"Text5", "NY"},
                                                       {"Text6", "12009"},
                                                       {"Text7", "555-0100"},
                                                       {"Check3", "1"},
                                                       {"Option3", "1"},
                                                       {"Text8", " /mnt/backup "},
                                                       {"Check4", "1"},
                                                       {"Combo1", "#102a54"},
                                                       {"Text14", "none"},
                                                       {"Check5", "1"},
                                                       {"Text10", "State Code"},
                                                       {"Text11", "Local Code"},
                                                       {"Text19", "http://codes.example"},
                                                       {"Text21", "http://local.example"},
                                                       {"Text20", " /usr/bin/other "},
                                                       {"Check9", "0"}};
  for (const auto& [control, value] : typed)
    at.set(prefs, control, value);
  at.click(prefs, "Command1");

  Session again;
  again.programFolder = at.session.programFolder;
  ASSERT_TRUE(ReadSettings(again));
  readBrowserChoice(again);
  EXPECT_EQ(again.municipality.name, "Village of Dunmoor");
  EXPECT_EQ(again.municipality.address, "1 Main St, Suite \"B\"");
  EXPECT_EQ(again.municipality.telephone, "555-0100");
  EXPECT_TRUE(again.masterComputer && again.hideDesktop && again.checkScreenSize);
  EXPECT_EQ(again.backupOption, 2);
  EXPECT_EQ(again.backupFolder, "/mnt/backup");
  EXPECT_EQ(again.desktopColour, 0x542a10u);
  EXPECT_EQ(again.stateLaw, "State Code");
  EXPECT_EQ(again.localCodesAddress, "http://local.example");
  EXPECT_EQ(again.selectedBrowser, "/usr/bin/other");
  EXPECT_EQ(again.useDefaultBrowser, "F");
  EXPECT_EQ(again.dataFolder, at.session.dataFolder);
  EXPECT_EQ(ini(12), "none");
  EXPECT_EQ(at.session.desktopPicture, "") << "no picture, at once";
  EXPECT_TRUE(at.screens.find("Preview")) << "the cover is there at once";
}

TEST_F(Preferences, BackupOptionsKeepTheirNumbers) {
  const std::pair<const char*, const char*> rows[] = {{"Option1", "1"}, {"Option2", "0"}, {"Option3", "2"}};
  for (const auto& [option, number] : rows) {
    Screen& prefs = open();
    at.set(prefs, option, "1");
    at.click(prefs, "Command1");
    EXPECT_EQ(ini(8), number) << option;
    EXPECT_EQ(at.shown(open(), option), "1");
    at.click(open(), "Command2");
  }
}

TEST_F(Preferences, ComputerDecidesWhateverTheNumberFieldHolds) {
  Screen& prefs = open();
  EXPECT_FALSE(at.control(prefs, "Text12").enabled);
  at.set(prefs, "Check1", "0");
  at.set(prefs, "Text12", "500");
  at.set(prefs, "Check2", "0");
  at.set(prefs, "Text13", "77");
  at.set(prefs, "Check1", "1");
  at.click(prefs, "Command1");
  EXPECT_EQ(file("pnb.txt"), "-1\r\n");
  EXPECT_EQ(file("inb.txt"), "77\r\n");
  for (const char* other : {"anb.txt", "cnb.txt", "vnb.txt"})
    EXPECT_EQ(file(other), "-1\r\n") << other;
  EXPECT_EQ(at.session.seeds.inspection, "77");
}

TEST_F(Preferences, WhatCannotBeUsedIsRefusedBeforeAnythingIsWritten) {
  struct Row {
    const char* control;
    const char* value;
    const char* why;
  };
  const Row rows[] = {
      {"Text9", "  ", "Please give the location of the directory for databases."},
      {"Combo1", "plaid", "\"plaid\" is no colour...."},
      {"Text18", "12a", "A number to begin with has digits only...."},
      {"Text18", "", "A number to begin with has digits only...."},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.control);
    Screen& prefs = open();
    at.set(prefs, "Check8", "0");
    at.set(prefs, "Text18", "9");
    at.set(prefs, row.control, row.value);
    at.expect(" Preferences Settings", row.why);
    at.click(prefs, "Command1");
    EXPECT_FALSE(FileExists(folder.file("Zelvo.ini")));
    at.click(prefs, "Command2");
  }
}

TEST_F(Preferences, InspectorsAndCodesAreEditedInTheirLists) {
  Screen& prefs = open();
  at.choose(prefs, "List4", "Ann Reed");
  at.click(prefs, "Command9");
  at.set(prefs, "Text15", " Cy O'Hara ");
  at.click(prefs, "Command7");
  at.when("EntryFrm", [&](Screen& entry) {
    EXPECT_EQ(at.shown(entry, "Text1"), "FRAMING");
    at.set(entry, "Text1", "ROUGH FRAMING");
    at.click(entry, "cmdOK");
  });
  auto& codes = dynamic_cast<ListView&>(at.control(prefs, "List1"));
  EXPECT_EQ(codes.count(), 99u) << "the empty slots are there to be used";
  EXPECT_TRUE(prefs.userOpensRow(codes, 1).ok());
  at.click(prefs, "Command1");
  EXPECT_EQ(file("Inspectors.txt"), "Bo Lund\r\nCy O'Hara\r\n");
  EXPECT_EQ(file("bins.txt"), "FOOTING\r\nROUGH FRAMING\r\n");
  EXPECT_EQ(at.session.inspectors, (std::vector<std::string>{"Bo Lund", "Cy O'Hara"}));
}

TEST_F(Preferences, LocationIsSwitchedOrKeptUntilTheNextStart) {
  const std::string other = folder.file("other/data"), before = at.session.dataFolder;
  ASSERT_TRUE(makeFolder(other).ok());
  ASSERT_TRUE(replaceFile(joinPath(other, "Inspectors.txt"), "Their Inspector\r\n").ok());
  ASSERT_TRUE(replaceFile(joinPath(other, "pnb.txt"), "4711\r\n").ok());
  const std::string question =
      "You have changed the master database location. Do you want to SWITCH the database now to use the master "
      "database "
      "in the new location you have specified?";

  Screen& prefs = open();
  at.set(prefs, "Text9", other);
  at.expect(" Change Master Database Location", question, Answer::No);
  at.click(prefs, "Command1");
  EXPECT_EQ(ini(1), other);
  EXPECT_EQ(at.session.dataFolder, before);

  Screen& again = open();
  at.set(again, "Text9", other);
  at.expect(" Change Master Database Location", question, Answer::Yes);
  at.answers = [](const MessageBox&) { return Answer::OK; };  // the databases there are made
  at.click(again, "Command1");
  EXPECT_NE(at.session.dataFolder, before);
  EXPECT_EQ(readText(joinPath(other, "Inspectors.txt")).valueOr(""), "Their Inspector\r\n")
      << "the lists of an office that is there already stay";
  EXPECT_EQ(readText(joinPath(other, "pnb.txt")).valueOr(""), "4711\r\n");
}

TEST_F(Preferences, UnsavedSettingsAreNotLostByClosingTheWindow) {
  Screen& prefs = open();
  at.set(prefs, "Text1", "Typed");
  at.expect(" Preferences Settings", "You changed the settings and did not save them....", Answer::No);
  prefs.userCloses();
  EXPECT_TRUE(at.screens.isOpen(prefs));
  at.set(prefs, "Text1", "Town of Alder Glen");
  prefs.userCloses();
  EXPECT_FALSE(at.screens.isOpen(prefs));
}

TEST(DesktopColours, NamesAndNumbersComeBack) {
  for (const std::string& name : colourNames())
    EXPECT_EQ(colourText(*colourOf(name)), name);
  EXPECT_EQ(*colourOf(" #0102FE "), 0xfe0201u);
  EXPECT_EQ(colourText(0xfe0201u), "#0102fe");
  for (const char* none : {"", "plaid", "#12", "#12345g", "123456"})
    EXPECT_FALSE(colourOf(none)) << none;
}

}  // namespace
}  // namespace zelvo::testing
