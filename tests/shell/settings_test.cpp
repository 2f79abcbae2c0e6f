#include "shell/settings.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "shell/setting_lines.h"
#include "support/temp_folder.h"

namespace zelvo {
namespace {

class Settings : public ::testing::Test {
 protected:
  Settings() { session.programFolder = folder.file("program"); }

  /// Writes "Zelvo.ini" of the first `count` lines.
  void writeIni(std::size_t count) {
    auto lines =
        split("| Alder Glen |1 Main St|Alder Glen|NY|12345|555-0100|2|1|0|-2147483633|none|State|Town|1|", '|');
    lines.front() = " " + folder.file("town/data") + " ";
    lines.back() = " " + folder.file("letters") + " ";
    lines.resize(count);
    folder.write("program/Zelvo.ini", join(lines, "\r\n") + "\r\n");
  }
  void writeShared(std::string_view name, std::string_view text) {
    folder.write("town/data/" + std::string(name), text);
  }

  TempFolder folder;
  Session session;
};

TEST_F(Settings, everyLineReachesItsPlaceAndComesBackWhenWritten) {
  writeIni(16);
  ASSERT_TRUE(ReadSettings(session));
  EXPECT_EQ(session.dataFolder, folder.file("town/data"));
  EXPECT_EQ(session.municipality.name, " Alder Glen ") << "texts stand as they were typed";
  EXPECT_EQ(session.backupOption, 2);
  EXPECT_TRUE(session.masterComputer && !session.hideDesktop);
  EXPECT_EQ(session.desktopColour, 0x8000000Fu) << "the desktop's own colours are negative";
  EXPECT_EQ(session.localLaw, "Town");
  EXPECT_EQ(session.formsFolder, folder.file("letters"));

  session.municipality.city = "two\r\nlines";
  ASSERT_TRUE(writeSettings(session));
  Session again;
  again.programFolder = session.programFolder;
  ASSERT_TRUE(ReadSettings(again));
  EXPECT_EQ(again.municipality.city, "two  lines") << "a line break shifts no other value";
  EXPECT_EQ(again.municipality.name, session.municipality.name);
  EXPECT_EQ(again.desktopColour, session.desktopColour);
  EXPECT_EQ(again.formsFolder, session.formsFolder);
}

TEST_F(Settings, lastLineIsOptionalAndNoOther) {
  writeIni(15);
  EXPECT_TRUE(ReadSettings(session));
  EXPECT_EQ(session.formsFolder, folder.file("town/forms"));
  writeIni(14);
  EXPECT_FALSE(ReadSettings(session));
  EXPECT_EQ(session.dataFolder, "");
  EXPECT_EQ(session.formsFolder, folder.file("program/forms"));
  folder.write("program/Zelvo.ini", "   \r\n" + std::string(40, '\n'));
  EXPECT_FALSE(ReadSettings(session)) << "a blank location is none";
  std::filesystem::remove(folder.file("program/Zelvo.ini"));
  folder.write("program/fees.txt", "not ours");
  EXPECT_FALSE(ReadSettings(session));
  EXPECT_TRUE(session.feeItems.empty()) << "without a data folder no other folder stands in for it";
}

TEST(FormsFolder, standsBesideTheDataFolder) {
  const std::pair<std::string_view, std::string_view> rows[] = {{"D:\\data\\town", "D:\\data\\forms"},
                                                                {"/srv/town/data", "/srv/town/forms"},
                                                                {"databases", "/opt/zelvo/forms"},
                                                                {"", "/opt/zelvo/forms"},
                                                                {"/data", "/forms"}};
  for (const auto& [location, forms] : rows)
    EXPECT_EQ(FormsFolderFor(location, "/opt/zelvo"), forms) << location;
}

TEST_F(Settings, seedsStayWhenTheirFileIsMissing) {
  writeIni(16);
  session.seeds.violation = "77";
  writeShared("pnb.txt", "250\r\nrest");
  writeShared("INB.TXT", "-1");
  writeShared("anb.txt", "");
  ReadSettings(session);
  EXPECT_EQ(session.seeds.permit, "250");
  EXPECT_EQ(session.seeds.inspection, "-1");
  EXPECT_EQ(session.seeds.affidavit, "-1") << "an empty file says nothing";
  EXPECT_EQ(session.seeds.violation, "77");
}

TEST_F(Settings, listsSkipBlankLinesAndStopAtTheirLimit) {
  session.dataFolder = folder.file("town/data");
  std::string many;
  for (int i = 1; i <= 60; ++i)
    many += " Name " + std::to_string(i) + " \r\n  \r\n";
  for (const auto* file : {"inspectors.txt", "fees.txt", "clist.txt"})
    writeShared(file, many);
  ReadInspectors(session);
  readSharedFiles(session);
  ASSERT_EQ(session.inspectors.size(), 50u);
  EXPECT_EQ(session.inspectors[1], " Name 2 ");
  ASSERT_EQ(session.feeItems.size(), 30u);
  EXPECT_EQ(session.feeItems[29], "Name 30");
  EXPECT_EQ(session.checklist.size(), 20u);

  std::filesystem::remove_all(folder.file("town/data"));
  readSharedFiles(session);
  EXPECT_TRUE(session.feeItems.empty());
  EXPECT_EQ(session.checklist.size(), 20u) << "a missing checklist leaves the one there is";
}

TEST_F(Settings, otherCodesCutTheBuildingCodes) {
  session.dataFolder = folder.file("town/data");
  writeShared("bins.txt", "Footing\nFraming\nPlumbing\nFinal\n");
  ReadInspectionCodes(session);
  EXPECT_EQ(session.buildingCodes[3], "Plumbing") << "without other codes nothing is cut";
  writeShared("oins.txt", "Complaint\nSite visit\n");
  ReadInspectionCodes(session);
  EXPECT_EQ(session.buildingCodes[2], "Framing");
  EXPECT_EQ(session.buildingCodes[3], "");
  EXPECT_EQ(session.buildingCodes[4], "Final");
  EXPECT_EQ(session.otherCodes[2], "Site visit");
  writeShared("bins.txt", std::string(300, '\n'));
  writeShared("oins.txt", std::string(300, '\n') + "x");
  ReadInspectionCodes(session);
}

TEST_F(Settings, filesThatHangOnTheSettings) {
  writeIni(16);
  folder.write("program/def.txt", "elsewhere\r\n " + folder.file("backup/") + " \r\nhttp://codes\r\n");
  folder.write("letters/GTITLE.RTF", "{\\rtf1 Alder Glen \xE9}");
  writeShared("imported.txt", "x");
  writeShared("sblversion.txt", " 18 ");
  ReadSettings(session);
  EXPECT_EQ(session.dataFolder, folder.file("town/data")) << "the settings name it, not the copy";
  EXPECT_EQ(session.backupFolder, folder.file("backup"));
  EXPECT_EQ(session.onlineCodesAddress, "http://codes");
  EXPECT_EQ(session.reportHeader, "{\\rtf1 Alder Glen \xE9}");
  EXPECT_TRUE(session.rollImported);
  EXPECT_EQ(session.parcelLayout, 18);
  writeShared("rps.mdb", "x");
  writeShared("sblversion.txt", "nonsense");
  ReadSettings(session);
  EXPECT_FALSE(session.rollImported);
  EXPECT_EQ(session.parcelLayout, 13);
}

TEST_F(Settings, onlyAnFRefusesTheDefaultBrowser) {
  const std::pair<std::string_view, std::string_view> rows[] = {
      {"/b\r\nF", "F"}, {"/b\r\n F ", "F"}, {"/b\r\nf", "T"}, {"/b\r\n  T", "T"}, {"/b\r\n\r\n", "T"}, {"/b", ""}};
  for (const auto& [text, flag] : rows) {
    folder.write("program/browser.txt", text);
    session.useDefaultBrowser.clear();
    readBrowserChoice(session);
    EXPECT_EQ(session.useDefaultBrowser, flag) << text;
    EXPECT_EQ(session.selectedBrowser, "/b");
  }
}

}  // namespace
}  // namespace zelvo
