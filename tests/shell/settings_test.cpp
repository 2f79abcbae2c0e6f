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
  for (const auto* file : {"inspectors.txt", "fees.txt", "clist.txt", "ccatn.txt", "CCATL.txt"})
    writeShared(file, many);
  ReadInspectors(session);
  readSharedFiles(session);
  ASSERT_EQ(session.inspectors.size(), 50u);
  EXPECT_EQ(session.inspectors[1], " Name 2 ");
  ASSERT_EQ(session.feeItems.size(), 30u);
  EXPECT_EQ(session.feeItems[29], "Name 30");
  EXPECT_EQ(session.checklist.size(), 20u);
  EXPECT_EQ(session.numberedComplaints.size(), 60u);
  EXPECT_EQ(session.letteredComplaints.size(), 31u);

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

TEST_F(Settings, whatIsWrittenIsReadAgain) {
  writeIni(16);
  ASSERT_TRUE(ReadSettings(session));
  session.backupFolder = folder.file("backup");
  session.onlineCodesAddress = "https://codes/ä";
  session.selectedBrowser = "/usr/bin/b";
  session.useDefaultBrowser = "F";
  session.seeds = {"250", "-1", "7", "", "09"};
  session.inspectors = {"A. Brown ", "  ", "Zoë, \"Z\""};
  writeShared("INSPECTORS.TXT", "old\n");
  for (const auto& written : {writeSettings(session), writeDefaults(session), writeBrowserChoice(session),
                              writeNextNumbers(session), writeInspectors(session)})
    EXPECT_TRUE(written.ok());
  Session again;
  again.programFolder = session.programFolder;
  ASSERT_TRUE(ReadSettings(again));
  ReadInspectors(again);
  readBrowserChoice(again);
  EXPECT_EQ(again.backupFolder, session.backupFolder);
  EXPECT_EQ(again.onlineCodesAddress, session.onlineCodesAddress);
  EXPECT_EQ(again.selectedBrowser, session.selectedBrowser);
  EXPECT_EQ(again.useDefaultBrowser, "F");
  EXPECT_EQ(again.seeds.permit + again.seeds.inspection + again.seeds.affidavit + again.seeds.certificate +
                again.seeds.violation,
            "250-1709");
  EXPECT_EQ(again.inspectors, (std::vector<std::string>{"A. Brown ", "Zoë, \"Z\""}));
  EXPECT_EQ(folder.read("program/def.txt").substr(0, session.dataFolder.size()), session.dataFolder);
  EXPECT_FALSE(std::filesystem::exists(folder.file("town/data/Inspectors.txt"))) << "one spelling is kept";
}

TEST_F(Settings, linesOfOthersAreKept) {
  writeIni(16);
  folder.write("program/Zelvo.ini", folder.read("program/Zelvo.ini") + "17 Zo\xEB\r\n18");
  folder.write("program/browser.txt", "b\nF\nthird");
  std::string names, codes;
  for (int i = 1; i <= 52; ++i)
    names += "Name " + std::to_string(i) + "\n\n";
  for (int i = 1; i <= 31; ++i)
    codes += "Code " + std::to_string(i) + "\n";
  writeShared("Inspectors.txt", names);
  writeShared("oins.txt", codes);
  ReadSettings(session);
  ReadInspectors(session);
  readBrowserChoice(session);
  session.inspectors.pop_back();
  EXPECT_TRUE(writeSettings(session) && writeBrowserChoice(session) && writeInspectors(session));
  EXPECT_TRUE(writeInspectionCodes(session, {{"Footing"}, {"Complaint"}}));
  EXPECT_TRUE(folder.read("program/Zelvo.ini").ends_with("\r\n17 Zoë\r\n18\r\n"));
  EXPECT_EQ(folder.read("program/browser.txt"), "b\r\nF\r\nthird\r\n");
  EXPECT_TRUE(folder.read("town/data/Inspectors.txt").ends_with("Name 49\r\n\r\nName 51\r\n\r\nName 52\r\n\r\n"));
  EXPECT_TRUE(folder.read("town/data/oins.txt").ends_with("\r\n\r\nCode 31\r\n"));
  EXPECT_EQ(inspectionCodesInFiles(session).other.front(), "Complaint");
  EXPECT_EQ(inspectionCodesInFiles(session).other.size(), 30u) << "the thirty-first stays out of reach";
}

TEST_F(Settings, codesAreEditedUncut) {
  session.dataFolder = folder.file("town/data");
  writeShared("bins.txt", "Footing\nFraming\n\nFinal\n");
  writeShared("oins.txt", "Complaint\n");
  ReadInspectionCodes(session);
  EXPECT_EQ(session.buildingCodes[2], "") << "cut behind as many as there are other codes";
  auto codes = inspectionCodesInFiles(session);
  EXPECT_EQ(codes.building, (std::vector<std::string>{"Footing", "Framing", "", "Final"}));
  codes.other.resize(30);
  ASSERT_TRUE(writeInspectionCodes(session, codes));
  EXPECT_EQ(folder.read("town/data/bins.txt"), "Footing\r\nFraming\r\n\r\nFinal\r\n");
  EXPECT_EQ(folder.read("town/data/oins.txt"), "Complaint\r\n") << "slots left empty are no codes";
}

TEST_F(Settings, aFileThatCannotBeReadIsNotWrittenOver) {
  folder.write("program/Zelvo.ini/x", "a folder");
  folder.write("program/def.txt", std::string(kSettingFileLimit + 1, '\n'));
  EXPECT_FALSE(writeSettings(session));
  EXPECT_FALSE(writeDefaults(session));
  EXPECT_EQ(folder.read("program/def.txt").size(), kSettingFileLimit + 1);
  EXPECT_FALSE(writeNextNumbers(session)) << "without a data folder there is no place for them";
}

TEST_F(Settings, oddTextsAreRead) {
  const std::pair<std::string_view, std::string_view> rows[] = {{"Zo\xEB\r\n", "Zoë"},
                                                                {"Zo\xC3\xAB\n", "Zoë"},
                                                                {"\xEF\xBB\xBFZo\xC3\xAB", "Zoë"},
                                                                {"\r\n \r\nZo\xEB\r\n", "Zoë"}};
  session.dataFolder = folder.file("town/data");
  for (const auto& [bytes, name] : rows) {
    writeShared("Inspectors.txt", bytes);
    ReadInspectors(session);
    EXPECT_EQ(session.inspectors, std::vector<std::string>{std::string(name)}) << bytes;
  }
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
