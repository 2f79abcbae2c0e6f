#include "inspection_office.h"

namespace zelvo::testing {
namespace {

TEST_F(InspectionOffice, AnInspectionIsStoredInFullAndTheInspectionsOfItsPermitAreShown) {
  addRow("INSPDTL", {{"RECNO", "3"}, {"PERMIT", "25-1"}});
  BInspections& screen = open();
  begin(screen);
  EXPECT_EQ(at.shown(screen, "Text1(1)"), "4");
  EXPECT_EQ(at.shown(screen, "Text1(8)"), "O'Brien, Zoë") << "from the permit";
  type(screen, {{"DTPicker2", "03/23/2026"}});
  at.click(screen, "IAdd");
  const auto row = stored("4");
  const std::pair<const char*, const char*> expected[] = {{"PERMIT", "26-7"},
                                                          {"BLDGPERMYY", "26"},
                                                          {"BLDGPRM", "7"},
                                                          {"BLDGPERMA", ""},
                                                          {"INSPCATEG", "B"},
                                                          {"INSPTYPE", "02 Footing"},
                                                          {"INSPMONT", "3"},
                                                          {"INSPYEAR", "2026"},
                                                          {"DATEINSP", "3/9/2026"},
                                                          {"INSPDATE", "3/23/2026"},
                                                          {"NRECNO", "1/1/1910"},
                                                          {"INSPINIT", "A. Brown"},
                                                          {"INSPRESULT", "P"},
                                                          {"INSPCOMM1", "Rebar in place."},
                                                          {"SEC", "12"},
                                                          {"SUD", "5"},
                                                          {"OWNADDR1", "14 Mill Road"},
                                                          {"INSVEST", ""},
                                                          {"STATUS", ""},
                                                          {"BYUSER", "Clara Whitcombe-Sa"}};
  for (const auto& [column, value] : expected)
    EXPECT_EQ(row->text(column), value) << column;
  EXPECT_EQ(at.shown(screen, "lblStatus"), "Record 1 of 1") << "that of the other permit is out of sight";
  EXPECT_EQ(folder.read("data/ihi.txt"), "5\r\n");
  EXPECT_EQ(flag(), " ");
}

TEST_F(InspectionOffice, WhatIsMissingIsListedInTheOfficesOrder) {
  constexpr const char* kEnd = "\nPlease ensure required\nfields are filled in correctly.";
  BInspections& screen = open();
  at.click(screen, "INew");
  type(screen, {{"Text1(1)", " "}});
  at.expect(" Missing Information",
            std::string("Missing: --Permit\n--Inspector\n--ICN #\n--Location\n--Inspection result\n--S-B-L\n"
                        "--Inspection Category\n--Inspection type\n") +
                kEnd);
  at.click(screen, "IAdd");
  EXPECT_FALSE(at.control(screen, "Text1(12)").required);
  type(screen, {{"Combo1", "COMPLAINT"}, {"Combo3", "<select>"}, {"Text1(1)", "9"}});
  EXPECT_TRUE(at.control(screen, "Text1(12)").required);
  EXPECT_FALSE(at.control(screen, "Text1(7)").required) << "a complaint belongs to no permit";
  at.expect(" Missing Information",
            std::string("Missing: --Inspector\n--Location\n--Inspection result\n--S-B-L\n--Inspection type\n"
                        "--Complainant\n--Nature of Complaint\n--Property Location\n") +
                kEnd);
  at.click(screen, "IAdd");
  EXPECT_EQ(screen.focus, &at.control(screen, "Combo3")) << "the list stands for its hidden box";
  EXPECT_EQ(look("db2.mdb", "Select * from INSPDTL")->RecordCount(), 0u);
}

TEST_F(InspectionOffice, NumbersAreNumericFreeAndMoveOnAfterEveryAdd) {
  for (const char* taken : {"5", "6"})
    addRow("INSPDTL", {{"RECNO", taken}, {"PERMIT", "x"}});
  folder.write("data/ihi.txt", "5\r\n");
  at.session.seeds.inspection = "-1";
  BInspections& screen = open();
  EXPECT_TRUE(screen.ICNExists("5"));
  begin(screen);
  EXPECT_EQ(at.shown(screen, "Text1(1)"), "7");
  type(screen, {{"Text1(1)", "12a"}});
  at.expect(" Inspection not a Number",
            "You cannot use non-numeric info in this field.\nThe ICN number entered must be numeric.");
  at.click(screen, "IAdd");
  type(screen, {{"Text1(1)", " 5 "}});
  at.click(screen, "IAdd");
  EXPECT_EQ(at.shown(screen, "Text1(1)"), "8") << "taken: the next free one without a word";
  EXPECT_EQ(folder.read("data/ihi.txt"), "9\r\n");
  begin(screen);
  type(screen, {{"Text1(1)", "100"}});
  at.click(screen, "IAdd");
  EXPECT_EQ(stored("100")->RecordCount(), 1u);
  EXPECT_EQ(folder.read("data/ihi.txt"), "10\r\n") << "whichever number the record received";
}

TEST_F(InspectionOffice, ANumberBaseTakesThePlaceOfTheFile) {
  at.session.seeds.inspection = "500";
  folder.write("data/ihi.txt", "7\r\n");
  folder.write("data/inb.txt", "500\r\n");
  BInspections& screen = open();
  begin(screen);
  at.click(screen, "IAdd");
  EXPECT_EQ(stored("500")->RecordCount(), 1u);
  EXPECT_EQ(folder.read("data/inb.txt") + folder.read("data/ihi.txt"), "501\r\n7\r\n");
  EXPECT_EQ(at.session.seeds.inspection, "501");
}

TEST_F(InspectionOffice, TheNextNumberIsThatOfTheWholeTableAlsoForOnePermit) {
  for (const char* icn : {"1", "2", "3"})
    addRow("INSPDTL", {{"RECNO", icn}, {"PERMIT", *icn == '1' ? "26-7" : "x"}});
  at.session.queryFor(QuerySlot::Inspections).query = "Select * from INSPDTL where [PERMIT] = '26-7' order by [RECNO]";
  BInspections& screen = open();
  EXPECT_EQ(at.shown(screen, "lblStatus"), "Record 1 of 1");
  at.click(screen, "INew");
  EXPECT_EQ(at.shown(screen, "Text1(1)"), "4");
  EXPECT_EQ(at.shown(screen, "Text1(7)"), "26-7") << "the permit whose inspections are shown";
  EXPECT_EQ(at.shown(screen, "Text1(2)"), "12.5");
}

TEST_F(InspectionOffice, TextsAreTrimmedAndAResultThatIsNoneIsRefused) {
  BInspections& screen = open();
  begin(screen);
  type(screen,
       {{"Text1(7)", " 26-7 "}, {"Text1(9)", "  14 Mill Road "}, {"Text1(16)", " gate \n"}, {"Combo4", "Fine"}});
  at.expect(" Inspection result", "\"Fine\" is no result of an inspection.\nPlease choose one from the list.");
  at.click(screen, "IAdd");
  EXPECT_EQ(screen.focus, &at.control(screen, "Combo4"));
  type(screen, {{"Combo4", "failed"}});
  at.click(screen, "IAdd");
  const auto row = stored("1");
  EXPECT_EQ(row->text("PERMIT") + row->text("OWNADDR1") + row->text("NOTES"), "26-714 Mill Roadgate");
  EXPECT_EQ(flag(), "1 ICN 1");
  EXPECT_EQ(at.shown(screen, "Combo4"), "Failed");
}

TEST_F(InspectionOffice, FlagsOfTheParcelFollowResultAndNature) {
  BInspections& screen = open();
  begin(screen, "f");
  at.click(screen, "IAdd");
  EXPECT_EQ(stored("1")->text("INSPRESULT") + " " + flag(), "f 1 ICN 1");
  EXPECT_EQ(at.shown(screen, "Combo4"), "Failed");

  complain(screen);
  at.click(screen, "IAdd");
  EXPECT_EQ(flag(), "2 ICN 2") << "a complaint takes the failed inspection's place";

  at.click(screen, "IEdit");
  type(screen, {{"Text1(15)", "changed"}, {"Text2", " owner cleaned up "}});
  at.click(screen, "ISave");
  EXPECT_EQ(stored("2")->text("NATURE"), "Rubbish beside the road.*** RESOLVED owner cleaned up **");
  EXPECT_EQ(flag().substr(0, 1), "0");
  EXPECT_EQ(at.shown(screen, "Text2"), "");
}

TEST_F(InspectionOffice, WhatSomebodyNotedOnAParcelStaysBesideTheFlag) {
  auto parcel = look("sbl.mdb", "Select * from SBL");
  parcel->set("NOTES", "Dog in the yard");
  ASSERT_TRUE(parcel->Update().ok());
  BInspections& screen = open();
  for (const char* note : {"1 Dog in the yard\nICN 1", "1 Dog in the yard\nICN 2"}) {
    begin(screen, "Failed");
    at.click(screen, "IAdd");
    EXPECT_EQ(flag(), note);
  }
}

TEST_F(InspectionOffice, AParcelThatIsNotRegisteredKeepsNoInspectionBack) {
  constexpr const char* kQuestion =
      "The Section, Block and Lot info cannot be found.\nPlease ensure the S-B-L format is followed\nIf this is a "
      "new S-B-L, click 'Yes' to add this as a new record.";
  const auto keys = [this] { return look("sbl.mdb", "Select * from SBL where [SBLF] = '99-0-0-3-45'"); };
  BInspections& screen = open();
  begin(screen, "Failed");
  type(screen, {{"Text1(2)", "99"}});
  at.expect(" SBL not found", kQuestion, Answer::No);
  at.click(screen, "IAdd");
  EXPECT_EQ(stored("1")->text("SEC"), "99");
  EXPECT_EQ(keys()->RecordCount(), 0u);
  at.expect(" SBL not found",
            "The Section, Block and Lot info cannot be found.\nPlease ensure the S-B-L format is followed");
  at.click(screen, "iNote");

  begin(screen, "Failed");
  type(screen, {{"Text1(2)", "99"}});
  at.expect(" SBL not found", kQuestion, Answer::Yes);
  at.click(screen, "IAdd");
  EXPECT_EQ(keys()->text("FAILED") + keys()->text("PERMIT"), "126-7");
}

TEST_F(InspectionOffice, APermitThatNobodyKnowsIsSaidToBeSo) {
  constexpr const char* kUnknown = "** PERMIT NOT FOUND **";
  BInspections& screen = open();
  begin(screen, "Passed", "26-99");
  EXPECT_EQ(at.shown(screen, "Text1(8)"), kUnknown);
  at.click(screen, "IAdd");
  EXPECT_EQ(stored("1")->text("OWNNAME1"), kUnknown);

  begin(screen, "Passed", "26-99");
  type(screen, {{"Text1(8)", "Smith, John"}});
  at.click(screen, "IAdd");
  EXPECT_EQ(stored("2")->text("OWNNAME1"), "Smith, John") << "whoever was told and writes a name knows it";

  begin(screen);
  type(screen, {{"Text1(7)", "26-98A"}});
  at.click(screen, "IAdd");
  EXPECT_EQ(stored("3")->text("OWNNAME1"), kUnknown) << "of a permit that was typed and not left";
  EXPECT_EQ(stored("3")->text("BLDGPRM") + stored("3")->text("BLDGPERMA"), "98A");
}

TEST_F(InspectionOffice, CodesAndDatesThatMeanNothingShowAsThatAndStayAsTheyAre) {
  addRow("INSPDTL", {{"RECNO", "1"},
                     {"INSPCATEG", "z"},
                     {"INSPRESULT", "x"},
                     {"DATEINSP", "01/01/1910"},
                     {"SEC", "12"},
                     {"SUD", "5"},
                     {"BLK", "3"},
                     {"LOT", "45"}});
  addRow("INSPDTL", {{"RECNO", "2"}, {"INSPCATEG", "C"}, {"INSPTYPE", "QU"}, {"DATEINSP", "03/02/2026"}});
  BInspections& screen = open();
  EXPECT_EQ(at.shown(screen, "Combo1") + at.shown(screen, "Combo4"), "UNKUNK");
  EXPECT_EQ(at.shown(screen, "DTPicker1"), "");
  const auto& list = dynamic_cast<ListView&>(at.control(screen, "ListView1"));
  std::string rows;
  for (std::size_t row = 0; row < 2; ++row)
    for (std::size_t column = 0; column < 8; ++column)
      rows += list.rows->cell(row, column) + (column < 7 ? "|" : "\n");
  EXPECT_EQ(rows, "1|z|--|--|x|--|--|N/A\n2|C|QU|03/02/26|--|--|--|N/A\n");

  at.click(screen, "IEdit");
  type(screen, {{"Text1(7)", "26-7"}, {"Text1(9)", "14 Mill Road"}, {"Combo2", "02 Footing"}, {"Combo3", "QC"}});
  at.click(screen, "ISave");
  EXPECT_EQ(stored("1")->text("INSPCATEG") + stored("1")->text("INSPRESULT"), "zx");
  at.click(screen, "IMoveNext");
  EXPECT_EQ(at.shown(screen, "Combo2"), "Quality of Life");
  EXPECT_EQ(at.shown(screen, "Combo4"), "--");
}

TEST_F(InspectionOffice, TheTypesOfTheChosenCategoryAreOffered) {
  BInspections& screen = open();
  at.click(screen, "INew");
  const std::pair<const char*, const char*> rows[] = {{"BLDG", "<select>, 01 Plan Review, 02 Footing"},
                                                      {"OTHER", "<select>, 21 Sign"},
                                                      {"COMPLAINT", "<select>, Safety, Garbage/Sanitation"},
                                                      {"<select>", "<select>"}};
  const auto& types = dynamic_cast<const Combo&>(at.control(screen, "Combo2"));
  for (const auto& [category, offered] : rows) {
    at.set(screen, "Combo1", category);
    std::string items;
    for (const std::string& item : types.items)
      items += (items.empty() ? "" : ", ") + item;
    EXPECT_EQ(items, offered) << category;
    EXPECT_EQ(types.text, "<select>");
  }
}

TEST_F(InspectionOffice, AFailedInspectionIsFollowedUpAndStaysInSight) {
  addRow("VIOLDATA", {{"RECNO", "8"},
                      {"ACTION", "O"},
                      {"SEC", "12"},
                      {"SUD", "5"},
                      {"BLK", "3"},
                      {"LOT", "45"},
                      {"VIOLDATE", "02/01/2026"},
                      {"OFFENSE", "Work without a permit"},
                      {"LOCN", "14 Mill Road"}});
  addRow("VIOLDATA", {{"RECNO", "9"}, {"ACTION", "C"}, {"SEC", "12"}, {"SUD", "5"}, {"BLK", "3"}, {"LOT", "45"}});
  BInspections& screen = open();
  begin(screen, "Failed");
  at.click(screen, "IAdd");
  EXPECT_EQ(at.shown(screen, "ListView3"), "1 rows, 3 columns") << "the violation; the inspection itself is at hand";
  at.click(screen, "iReinspect");
  const std::pair<const char*, const char*> carried[] = {{"Text1(1)", "2"},
                                                         {"Text1(7)", "26-7"},
                                                         {"Text1(2)", "12.5"},
                                                         {"Combo1", "BLDG"},
                                                         {"Combo2", "02 Footing"},
                                                         {"Combo4", "<select>"},
                                                         {"Text1(11)", "Re-inspection of ICN 1 (failed)."}};
  for (const auto& [control, text] : carried)
    EXPECT_EQ(at.shown(screen, control), text) << control;
  const auto& matters = dynamic_cast<ListView&>(at.control(screen, "ListView3"));
  ASSERT_EQ(matters.count(), 2u);
  EXPECT_EQ(matters.rows->cell(0, 0) + " " + matters.rows->cell(0, 1) + " " + matters.rows->cell(0, 2),
            "ICN 1 03/09/26 02 Footing: Rebar in place.");
  EXPECT_EQ(matters.rows->cell(1, 0) + " " + matters.rows->cell(1, 2), "V 8 Work without a permit: 14 Mill Road");
  at.click(screen, "ICancel");
  EXPECT_TRUE(at.control(screen, "iReinspect").enabled);
}

TEST_F(InspectionOffice, WhatPassedSinceOrLiesOnAnotherParcelIsNotOpen) {
  struct Row {
    const char *icn, *type, *result, *date, *suffix, *status;
  };
  const Row rows[] = {
      {"1", "02 Footing", "F", "03/01/2026", "5", ""},      {"2", "02 footing", "P", "03/04/2026", "5", ""},
      {"3", "02 Footing", "F", "03/05/2026", "5", ""},      {"4", "01 Plan Review", "F", "03/01/2026", "5", ""},
      {"5", "01 Plan Review", "P", "03/06/2026", "5", "V"}, {"6", "03 Framing", "F", "03/07/2026", "5", "V"},
      {"7", "03 Framing", "F", "03/07/2026", "6", ""},      {"8", "03 Framing", "F", "03/07/2026", "", ""}};
  for (const Row& row : rows)
    addRow("INSPDTL", {{"RECNO", row.icn},
                       {"PERMIT", "26-7"},
                       {"INSPTYPE", row.type},
                       {"INSPRESULT", row.result},
                       {"DATEINSP", row.date},
                       {"SEC", "12"},
                       {"SUD", row.suffix},
                       {"BLK", "3"},
                       {"LOT", "45"},
                       {"STATUS", row.status}});
  BInspections& screen = open();
  const auto shown = [this, &screen](const char* section) {
    begin(screen);
    type(screen, {{"Text1(2)", section}});
    at.leave(screen, "Text1(2)");
    const auto& matters = dynamic_cast<ListView&>(at.control(screen, "ListView3"));
    std::string keys;
    for (std::size_t row = 0; row < matters.count(); ++row)
      keys += matters.rows->cell(row, 0) + " ";
    at.click(screen, "ICancel");
    return keys;
  };
  EXPECT_EQ(shown("12.5"), "ICN 3 ICN 4 ");
  EXPECT_EQ(shown("12"), "ICN 8 ") << "of the section itself, not of its parts";
}

TEST_F(InspectionOffice, ACopyOfAResolvedComplaintIsNotResolved) {
  BInspections& screen = open();
  complain(screen, "Loud*** RESOLVED nothing found **");
  at.click(screen, "IAdd");
  at.click(screen, "ICopy");
  EXPECT_EQ(at.shown(screen, "Text1(15)"), "Loud");
  at.click(screen, "ICancel");
}

TEST_F(InspectionOffice, VoidingAndTheWayToThePermit) {
  BInspections& screen = open();
  begin(screen);
  at.click(screen, "IAdd");
  at.expect(" Void a Record", "Are you sure you want to void this record?\nClicking 'Yes' will void the record.",
            Answer::Yes);
  at.click(screen, "delr");
  EXPECT_TRUE(screen.isVoided());
  at.expect(" Record Void",
            "This record is already voided. Do you want to reset it?\nClicking 'Yes' will restore/unvoid it",
            Answer::Yes);
  at.click(screen, "delr");
  EXPECT_FALSE(screen.isVoided());
  at.click(screen, "iPermit");
  ASSERT_EQ(at.screens.front()->name(), "APermits");
  EXPECT_EQ(at.shown(*at.screens.front(), "Text1(1)"), "26-7");
}

}  // namespace
}  // namespace zelvo::testing
