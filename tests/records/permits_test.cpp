#include <gtest/gtest.h>

#include "documents/editor/editor.h"
#include "permit_office.h"

namespace zelvo::testing {
namespace {

TEST_F(PermitOffice, FirstPermitOfAnEmptyOfficeIsStoredWithItsParcelAndNumber) {
  APermits& permits = open();
  EXPECT_EQ(at.shown(permits, "lblStatus"), "empty database");

  at.click(permits, "INew");
  EXPECT_EQ(at.shown(permits, "Text1(1)"), "26-1");
  typePermit(permits, "O'Brien, Zoë");
  at.set(permits, "Text1(12)", "125000");
  at.set(permits, "Combo1", "ONE FAMILY");
  at.set(permits, "Combo2", "Dwelling");
  expectNewParcel();
  at.click(permits, "IAdd");

  EXPECT_EQ(at.shown(permits, "lblStatus"), "Record 1 of 1");
  EXPECT_EQ(at.shown(permits, "ListView1"), "1 rows, 5 columns");
  auto row = permitsNow();
  ASSERT_EQ(row->RecordCount(), 1u);
  const std::pair<const char*, const char*> stored[] = {{"PERMIT", "26-1"},
                                                        {"BLDGPERMYY", "26"},
                                                        {"BLDGPRM", "1"},
                                                        {"SEC", "999"},
                                                        {"SUD", "5"},
                                                        {"BLK", "3"},
                                                        {"LOT", "45"},
                                                        {"OWNNAME1", "O'Brien, Zoë"},
                                                        {"APPXCOST", "125000"},
                                                        {"FILEFEE", "0"},
                                                        {"USEBLDG", "ONE FAMILY"},
                                                        {"PRMFOR", "Dwelling"},
                                                        {"FILEMONTH", "03"},
                                                        {"FILEDATE", "09"},
                                                        {"FILEYEAR", "26"},
                                                        {"VD3", "3/9/2026"},
                                                        {"VD4", "3/9/2026"},
                                                        {"VIOLOPEN", "O"},
                                                        {"BYUSER", "Clara Whitcombe-Sa"}};
  for (const auto& [column, value] : stored)
    EXPECT_EQ(row->text(column), value) << column;
  EXPECT_EQ(*row->get("TSTAMP").moment(), at.time);
  EXPECT_EQ(*readText(path("phi.txt")), "2\r\n");

  auto parcel = look("sbl.mdb", "Select * from SBL where [SBLF] = '999-5-0-3-45'");
  ASSERT_EQ(parcel->RecordCount(), 1u);
  EXPECT_EQ(parcel->text("HISTORICAL"), "26-1*");
  EXPECT_EQ(parcel->text("ASSOC"), "O'Brien, Zoë");
  EXPECT_EQ(parcel->text("LOCN1"), "14 Mill Road");
}

TEST_F(PermitOffice, WhatIsMissingIsListedInOrderAndStaysTyped) {
  struct Row {
    const char* left;
    const char* missing;
  };
  const Row rows[] = {{"Text1(1)", "--Permit\n"},         {"Text1(18)", "--Owner\n"},
                      {"Text1(17)", "--Owner Address\n"}, {"Text1(34)", "--Property Location\n"},
                      {"Text1(2)", "--S-B-L\n"},          {"Text1(4)", "--S-B-L\n"}};
  APermits& permits = open();
  for (const Row& row : rows) {
    SCOPED_TRACE(row.left);
    at.click(permits, "INew");
    typePermit(permits);
    at.set(permits, row.left, "  ");
    at.expect(" Missing Information",
              std::string("Missing: ") + row.missing + "\nPlease ensure required\nfields are filled in correctly.");
    at.click(permits, "IAdd");
    EXPECT_EQ(at.shown(permits, "Text1(3)"), "3");
    at.click(permits, "ICancel");
  }
  at.click(permits, "INew");
  at.set(permits, "Text1(1)", "");
  at.expect(" Missing Information",
            "Missing: --Permit\n--Owner\n--Owner Address\n--Property Location\n--S-B-L\n\nPlease ensure "
            "required\nfields are filled in correctly.");
  at.click(permits, "IAdd");
  EXPECT_EQ(permitsNow()->RecordCount(), 0u);
}

TEST_F(PermitOffice, ParcelThatIsNotToBeRegisteredStopsTheAdd) {
  APermits& permits = open();
  at.click(permits, "INew");
  typePermit(permits);
  expectNewParcel(Answer::No);
  at.click(permits, "IAdd");
  EXPECT_EQ(permitsNow()->RecordCount(), 0u);
  EXPECT_EQ(look("sbl.mdb", "Select * from SBL")->RecordCount(), 0u);
  EXPECT_EQ(at.shown(permits, "Text1(18)"), "Smith, John");
}

TEST_F(PermitOffice, NumberTypedByHandIsRefusedWhenTaken) {
  addOther("26-7");
  APermits& permits = open();
  at.click(permits, "INew");
  typePermit(permits);
  at.set(permits, "Text1(1)", "26-7");
  at.expect(" Duplicate Permit Number",
            "The permit number entered already exists.\nYou cannot add another permit with the same number.");
  at.click(permits, "IAdd");
  EXPECT_EQ(permitsNow()->RecordCount(), 1u);
  EXPECT_EQ(at.shown(permits, "Text1(34)"), "14 Mill Road");
}

TEST_F(PermitOffice, TellsWhetherAPermitNumberIsFree) {
  addOther("26-134'a");
  APermits& permits = open();
  EXPECT_TRUE(permits.PermitExists("26-134'A"));
  EXPECT_FALSE(permits.PermitExists("26-134"));
}

TEST_F(PermitOffice, ProposedNumberMovesOnWhenAnotherComputerWasQuicker) {
  APermits& permits = open();
  at.click(permits, "INew");
  typePermit(permits);
  addOther("26-1");
  expectNewParcel();
  at.click(permits, "IAdd");
  EXPECT_EQ(look("db1.mdb", "Select * from BLDGPERM where [PERMIT] = '26-2'")->text("OWNNAME1"), "Smith, John");
  EXPECT_EQ(*readText(path("phi.txt")), "3\r\n");
}

TEST_F(PermitOffice, NextNumberComesFromTheLastRecordTheFileOrTheSeed) {
  struct Row {
    const char* last;
    const char* file;
    const char* seed;
    const char* proposed;
  };
  const Row rows[] = {{"26-12", nullptr, "-1", "26-13"},
                      {"26-12", "40", "-1", "26-40"},
                      {"26-12", "2", "-1", "26-2"},  // the texts are compared: "2" stands above "13"
                      {"26-12", "1000", "-1", "26-13"},
                      {"26-12", nullptr, "500", "26-500"}};
  addOther("26-12");
  for (const Row& row : rows) {
    SCOPED_TRACE(row.proposed);
    (void)deleteFile(path("phi.txt")).ok();
    (void)deleteFile(path("pnb.txt")).ok();
    if (row.file) {
      ASSERT_TRUE(writeLines(path("phi.txt"), {row.file}).ok());
    }
    at.session.seeds.permit = row.seed;
    APermits& permits = open();
    at.click(permits, "INew");
    EXPECT_EQ(at.shown(permits, "Text1(1)"), row.proposed);
    at.click(permits, "ICancel");
    at.click(permits, "Quit");
  }
}

TEST_F(PermitOffice, NumberFileThatHoldsNoWholeNumberIsPassedOverAndNamed) {
  addOther("26-12");
  for (const char* line : {"garbage", "7.5", "", "1e400", "9007199254740992", "-3"}) {
    SCOPED_TRACE(line);
    ASSERT_TRUE(writeLines(path("phi.txt"), {line}).ok());
    at.expect(" Building Permits", "The file " + path("phi.txt") + " holds no whole number but \"" + line +
                                       "\".\nIt is passed over. The next permit gets the number 13.");
    APermits& permits = open();
    at.click(permits, "INew");
    EXPECT_EQ(at.shown(permits, "Text1(1)"), "26-13");
    at.click(permits, "ICancel");
    at.click(permits, "Quit");
  }
  at.session.seeds.permit = "12.7";
  ASSERT_TRUE(deleteFile(path("phi.txt")).ok());
  at.expect(" Building Permits", "The number set in the preferences, \"12.7\", is no whole number....");
  open();
}

TEST_F(PermitOffice, NumbersThatAreAlikeWithinTheirColumnAreTheSameNumber) {
  APermits& permits = open();
  for (const char* last : {"A", "B"}) {
    at.click(permits, "INew");
    typePermit(permits);
    at.set(permits, "Text1(1)", std::string("26-12345678901234567") + last);
    if (*last == 'A')
      expectNewParcel();
    else
      at.expect(" Duplicate Permit Number", "The permit number entered already exists....");
    at.click(permits, "IAdd");
  }
  EXPECT_EQ(permitsNow()->RecordCount(), 1u);
  EXPECT_EQ(look("sbl.mdb", "Select * from SBL")->text("HISTORICAL"), "26-12345678901234567*");
}

TEST_F(PermitOffice, SectionTypedWithoutItsSuffixStaysOnTheParcelOfTheRecord) {
  APermits& permits = open();
  at.click(permits, "INew");
  typePermit(permits);
  expectNewParcel();
  at.click(permits, "IAdd");
  at.click(permits, "IEdit");
  at.set(permits, "Text1(2)", "999");
  at.click(permits, "ISave");  // no question: the permit stays on 999.5
  EXPECT_EQ(at.shown(permits, "Text1(2)"), "999.5");
  EXPECT_EQ(look("sbl.mdb", "Select * from SBL")->RecordCount(), 1u);
}

TEST_F(PermitOffice, TextLongerThanItsColumnIsCutByCharacters) {
  APermits& permits = open();
  at.click(permits, "INew");
  typePermit(permits, std::string(39, 'x') + "éé");
  expectNewParcel();
  at.click(permits, "IAdd");
  EXPECT_EQ(permitsNow()->text("OWNNAME1"), std::string(39, 'x') + "é");
}

TEST_F(PermitOffice, ExpirationBeforeThePermitDateIsRefusedAndNonsenseToo) {
  APermits& permits = open();
  at.click(permits, "INew");
  typePermit(permits);
  at.set(permits, "DTPicker1", "");
  at.expect(" Date Error", "The permit date is missing.");
  at.click(permits, "IAdd");
  at.set(permits, "DTPicker1", "03/09/2026");
  at.set(permits, "Text1(13)", "03/08/2026");
  at.expect(" Date Error", "Expiration date cannot be prior to Permit Date.");
  at.click(permits, "IAdd");
  at.set(permits, "Text1(13)", "02/30/2026");
  at.expect(" Date Error", "\"02/30/2026\" is no date.\nPlease write dates as mm/dd/yyyy.");
  at.click(permits, "IAdd");
  at.set(permits, "Text1(13)", "t");
  expectNewParcel();
  at.click(permits, "IAdd");
  EXPECT_EQ(permitsNow()->RecordCount(), 1u);
  EXPECT_EQ(at.shown(permits, "Text1(13)"), "03/09/2026");
}

TEST_F(PermitOffice, ClerkWhoLeavesADateHearsOfThatDateAlone) {
  APermits& permits = open();
  at.click(permits, "INew");
  at.set(permits, "Text1(8)", "soon");
  at.set(permits, "Text1(13)", "03/09/2025");
  at.expect(" Date Error", "\"soon\" is no date....");
  at.leave(permits, "Text1(8)");
  at.set(permits, "DTPicker1", "03/09/2024");
  at.leave(permits, "Text1(13)");
  EXPECT_EQ(at.shown(permits, "labexpexpired"), "Expired");
  at.set(permits, "Check3", "1");
  EXPECT_EQ(at.shown(permits, "labexpexpired"), "");
}

TEST_F(PermitOffice, AmountsAreTakenAsTheOfficeWritesThem) {
  APermits& permits = open();
  at.click(permits, "INew");
  const std::pair<const char*, const char*> amounts[] = {
      {"$12,500", "12500"}, {"1,250.50", "1250.50"}, {" 60 ", "60"}, {"waived", "waived"}, {"", ""}};
  for (const auto& [typed, shown] : amounts) {
    at.set(permits, "Text1(12)", typed);
    at.leave(permits, "Text1(12)");
    EXPECT_EQ(at.shown(permits, "Text1(12)"), shown) << typed;
    EXPECT_EQ(permits.status.empty(), std::string(typed) != "waived") << typed;
  }
}

TEST_F(PermitOffice, VoidingTwiceAsksToUnvoid) {
  addOther("26-1");
  APermits& permits = open();
  EXPECT_FALSE(permits.isVoided());
  at.expect(" Void a Record", "Are you sure you want to void this record?\nClicking 'Yes' will void the record.",
            Answer::Yes);
  at.click(permits, "delr");
  EXPECT_TRUE(permits.isVoided());
  EXPECT_EQ(permitsNow()->text("STATUS"), "V");
  at.expect(" Record Void",
            "This record is already voided. Do you want to reset it?\nClicking 'Yes' will restore/unvoid it",
            Answer::Yes);
  at.click(permits, "delr");
  EXPECT_FALSE(permits.isVoided());
}

TEST_F(PermitOffice, BrowsingStaysOnTheFirstAndTheLast) {
  for (const char* key : {"26-1", "26-2", "26-3"})
    addOther(key);
  APermits& permits = open();
  const std::pair<const char*, const char*> moves[] = {{"IMovePrev", "Record 1 of 3"},
                                                       {"IMoveNext", "Record 2 of 3"},
                                                       {"IMoveLast", "Record 3 of 3"},
                                                       {"IMoveNext", "Record 3 of 3"},
                                                       {"IMoveFirst", "Record 1 of 3"}};
  for (const auto& [button, where] : moves) {
    at.click(permits, button);
    EXPECT_EQ(at.shown(permits, "lblStatus"), where) << button;
  }
  at.choose(permits, "ListView1", "26-2");
  EXPECT_EQ(at.shown(permits, "Text1(1)"), "26-2");
}

TEST_F(PermitOffice, EditingLeavesWhatNobodyTouchedAsItWas) {
  addOther("26-1");
  auto other = permitsNow();
  for (const auto& [column, value] : {std::pair{"OWNNAME1", "Smith"},
                                      {"OWNADDR1", "12 Mill Road"},
                                      {"SEC", "12"},
                                      {"SUD", "4"},
                                      {"BLK", "3"},
                                      {"LOT", "45"},
                                      {"LOCN1", "here"},
                                      {"JOB", "J7"}})
    other->set(column, value);
  other->set("APPXCOST", 1234567.25);
  ASSERT_TRUE(other->Update().ok());

  APermits& permits = open();
  EXPECT_EQ(at.shown(permits, "Text1(2)"), "12.4");
  at.click(permits, "IEdit");
  at.set(permits, "Text1(18)", "Smythe");
  expectNewParcel();
  at.click(permits, "ISave");
  auto now = permitsNow();
  EXPECT_EQ(now->text("OWNNAME1"), "Smythe");
  EXPECT_EQ(now->get("APPXCOST").number(), 1234567.25);  // wider than its box
  EXPECT_EQ(now->text("SUD"), "4");
  EXPECT_EQ(now->text("JOB"), "J7");
}

TEST_F(PermitOffice, WhatAnotherComputerChangedIsSeenBeforeItIsWorkedOn) {
  addOther("26-1");
  APermits& permits = open();
  auto other = permitsNow();
  other->set("OWNNAME1", "Their owner");
  ASSERT_TRUE(other->Update().ok());
  at.click(permits, "IEdit");
  EXPECT_EQ(at.shown(permits, "Text1(18)"), "Their owner");
  at.click(permits, "ICancel");

  other->set("OWNNAME1", "Their second owner");
  ASSERT_TRUE(other->Update().ok());
  at.expect(" Void a Record", "Are you sure...", Answer::Yes);
  at.expect(" Building Permits", "The permit could not be stored:...");
  at.click(permits, "delr");
  EXPECT_EQ(at.shown(permits, "Text1(18)"), "Their second owner");
  at.expect(" Void a Record", "Are you sure...", Answer::Yes);
  at.click(permits, "delr");
  EXPECT_TRUE(permits.isVoided());
}

TEST_F(PermitOffice, RefusedStoreKeepsWhatWasTypedAndCanBeTriedAgain) {
  APermits& permits = open();
  at.click(permits, "INew");
  typePermit(permits);
  // A parcel file that another program left behind: the permit must not be stored without its parcel.
  ASSERT_TRUE(renameFile(path("sbl.mdb"), path("sbl.away")).ok());
  at.expect(" Building Permits", "This could not be finished:...");
  at.click(permits, "IAdd");
  EXPECT_EQ(permitsNow()->RecordCount(), 0u);
  EXPECT_EQ(at.shown(permits, "Text1(18)"), "Smith, John");
  ASSERT_TRUE(renameFile(path("sbl.away"), path("sbl.mdb")).ok());
  expectNewParcel();
  at.click(permits, "IAdd");
  EXPECT_EQ(permitsNow()->RecordCount(), 1u);
}

TEST_F(PermitOffice, HopShowsTheRecordAskedForOrSaysThatItIsNotThere) {
  for (const char* key : {"26-1", "26-2"})
    addOther(key);
  at.session.hop = "26-2";
  APermits& permits = open();
  EXPECT_EQ(at.shown(permits, "Text1(1)"), "26-2");
  at.session.hop = "26-9";
  at.expect(" Record(s) not Found", "Permit 26-9 to hop, is not found.\nEntire recordset will be displayed.");
  open();
  EXPECT_EQ(at.shown(permits, "Text1(1)"), "26-1");
  EXPECT_EQ(at.session.hop, "");
}

TEST_F(PermitOffice, UnsavedPermitIsNotLostByClosingTheWindow) {
  APermits& permits = open();
  at.click(permits, "INew");
  at.expect(" Building Permits", "This permit has not been stored yet....", Answer::No);
  permits.userCloses();
  EXPECT_TRUE(at.screens.isOpen(permits));
  at.expect(" Building Permits", "This permit has not been stored yet....", Answer::Yes);
  permits.userCloses();
  EXPECT_FALSE(at.screens.isOpen(permits));
}

TEST_F(PermitOffice, AnotherRecordIsShownOnlyOnceTheUnsavedOneMayGo) {
  for (const char* key : {"26-1", "26-2"})
    addOther(key);
  APermits& permits = open();
  at.click(permits, "INew");
  typePermit(permits);
  at.session.hop = "26-2";
  at.expect(" Building Permits", "This permit has not been stored yet....", Answer::No);
  open();
  EXPECT_EQ(at.shown(permits, "Text1(18)") + at.session.hop, "Smith, John") << "and it is not asked for again";
  at.session.hop = "26-2";
  at.expect(" Building Permits", "This permit has not been stored yet....", Answer::Yes);
  open();
  EXPECT_EQ(at.shown(permits, "Text1(1)"), "26-2");
  EXPECT_FALSE(at.control(permits, "IAdd").enabled);
  at.click(permits, "ILocate");
  at.set(permits, "Text1(18)", "smi");
  permits.userCloses();
  EXPECT_FALSE(at.screens.isOpen(permits)) << "a search loses nothing";
}

TEST_F(PermitOffice, WhoAndWhen) {
  addOther("26-1");
  auto row = permitsNow();
  row->set("BYUSER", "clerk");
  row->set("TSTAMP", at.time);
  ASSERT_TRUE(row->Update().ok());
  at.expect(" Record Information", "clerk\nMonday, March 09, 2026\nRecorded time: 10:15 AM");
  at.click(open(), "recinfod");
}

TEST_F(PermitOffice, PrintedPermitHoldsTheValuesInTheTemplatesOwnFormat) {
  ASSERT_TRUE(replaceFile(joinPath(at.session.formsFolder, "bldgperm.rtf"),
                          "{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}\\f0\\b Permit %0{\\i 1}\\b0  for %04, %07\\par}")
                  .ok());
  APermits& permits = open();
  at.click(permits, "INew");
  typePermit(permits, "O'Brien {Zoë}");
  expectNewParcel();
  at.click(permits, "IAdd");
  at.when("PrintFrm", [&](Screen& options) {
    at.set(options, "Combo1", "Building Permit");
    at.click(options, "cmdPrint");
  });
  at.click(permits, "iPrint");
  ASSERT_EQ(at.printed.size(), 1u);
  EXPECT_EQ(at.printed[0].title, "Building Permit");
  const std::string letter = *readBytes(folder.file("tmp.rtf"));
  EXPECT_NE(letter.find("\\b Permit 26-1"), std::string::npos) << letter;
  EXPECT_NE(letter.find("O'Brien \\{Zo\\u235?\\}, 999.5-3-45"), std::string::npos) << letter;
  EXPECT_EQ(at.statusLines.at(at.statusLines.size() - 2), "Printing to default printer...");
}

TEST_F(PermitOffice, ALetterIsSeenChangedPrintedAndKeptWithItsPermit) {
  at.screens.learn("Editor", [](Desk& desk) { return std::make_unique<Editor>(desk); });
  at.session.formsFolder = folder.file("forms");
  ASSERT_TRUE(replaceFile(folder.file("forms/pnotice.rtf"), "{\\rtf1 Permit %01\\par}").ok());
  at.temporary = folder.path();
  addOther("26-1");
  APermits& permits = open();
  at.when("PrintFrm", [&](Screen& options) {
    at.set(options, "Combo1", "Permit Notice");
    at.set(options, "Check1", "1");
    at.set(options, "Check4", "1");
    at.click(options, "cmdPrint");
  });
  at.click(permits, "iPrint");
  EXPECT_TRUE(at.printed.empty());
  auto& editor = dynamic_cast<Editor&>(*at.screens.front());
  EXPECT_EQ(editor.caption, "Permit Notice - Editor");
  at.set(editor, "RichTextBox1", "Permit 26-1 is ready");
  at.click(editor, "cmdPrint");
  at.click(editor, "cmdQuit");
  ASSERT_EQ(at.printed.size(), 1u);
  EXPECT_NE(readBytes(folder.file("tmp.rtf"))->find("Permit 26-1 is ready"), std::string::npos);
  EXPECT_EQ(readBytes(path("docs/0126-1~1.pdf")).valueOr("not kept"), "pages of Permit Notice");

  at.when("PrintFrm", [&](Screen& options) {
    EXPECT_EQ(at.shown(options, "Check4"), "1") << "as it was asked for last";
    at.set(options, "Check1", "0");
    at.click(options, "cmdPrint");
  });
  at.click(permits, "iPrint");
  EXPECT_TRUE(FileExists(path("docs/0126-1~2.pdf")));
  EXPECT_EQ(at.shown(permits, "ListView2"), "2 rows, 2 columns") << "and they are there to be opened";
}

TEST_F(PermitOffice, MissingTemplateIsNamedWithItsFolder) {
  addOther("26-1");
  APermits& permits = open();
  const auto printed = permits.doprint("Expired Permit");
  ASSERT_FALSE(printed.ok());
  EXPECT_NE(printed.error().message.find("expired.rtf"), std::string::npos);
  EXPECT_NE(printed.error().message.find(at.session.formsFolder), std::string::npos);
  EXPECT_TRUE(at.printed.empty());
}

}  // namespace
}  // namespace zelvo::testing
