#include "data/lookup/sbl_edit.h"
#include "data/lookup/sbl_info.h"
#include "parcel_office.h"

namespace zelvo::testing {
namespace {

class ParcelScreens : public ParcelOffice {
 protected:
  Screen& info(std::string key) {
    at.session.hop = std::move(key);
    return open("sblinfo");
  }
  /// What the clerk does on the edit screen when it comes up.
  void editing(std::function<void(Screen&)> does) { at.when("SBLEdit", std::move(does)); }
};

constexpr const char* kConflict =
    "Someone else changed this parcel while you worked on it. Nothing was overwritten, and what you typed is still on "
    "the screen.\nPress Cancel to see the other changes.";
constexpr const char* kUnsaved =
    "This parcel has not been stored yet.\nDo you want to leave it and lose what you typed?";

TEST_F(ParcelScreens, ParcelsAreShownInTheOrderOfTheirKeys) {
  useExtended();
  Screen& shown = info("12-0-0-3-46");
  EXPECT_EQ(at.shown(shown, "lblParcel"), "12-3-46");
  EXPECT_EQ(at.shown(shown, "lblStatus"), "Parcel 2 of 6");
  EXPECT_EQ(at.shown(shown, "Text1(7)"), "Désir, Jean");
  EXPECT_EQ(at.shown(shown, "Text1(18)"), "25-1*");
  at.click(shown, "IMoveNext");
  EXPECT_EQ(at.shown(shown, "Text1(1)"), "12-0-0-7-3-1");
  at.click(shown, "IMoveLast");
  at.click(shown, "IMoveNext");
  EXPECT_EQ(at.shown(shown, "lblParcel"), "13-A-3-45") << "the last one stays";
  at.click(shown, "IMoveFirst");
  at.click(shown, "IMovePrev");
  EXPECT_EQ(at.shown(shown, "lblStatus"), "Parcel 1 of 6");
  EXPECT_FALSE(shown.userSets(at.control(shown, "Text1(7)"), "x").ok()) << "nothing is typed here";
}

TEST_F(ParcelScreens, AnEmptyRegistryHasNothingToShow) {
  ASSERT_TRUE(createDatabase(path("sbl.mdb"), extendedParcelTable()).ok());
  Screen& shown = open("sblinfo");
  EXPECT_EQ(at.shown(shown, "lblStatus"), "empty database");
  for (const char* button : {"IEdit", "cmdClear", "IMoveNext", "iMap"})
    EXPECT_FALSE(at.control(shown, button).enabled) << button;
}

TEST_F(ParcelScreens, FlagsAreClearedOnlyWhenTheClerkSaysSo) {
  useExtended();
  ASSERT_TRUE(*parcels.SBLExists("12-0-0-3-46"));
  parcels.currentNote = "no permit for the shed";
  ASSERT_TRUE(parcels.SBLSetViol().ok() && parcels.SBLSetFailed().ok());
  Screen& shown = info("12-0-0-3-46");
  EXPECT_EQ(at.shown(shown, "lblFlags"), "open violation, failed inspection");
  const std::string question =
      "The parcel 12-0-0-3-46 has: open violation, failed inspection.\nDo you want to clear its flags, and the note "
      "with them?";
  at.expect(" Clear Flags", question, Answer::No);
  at.click(shown, "cmdClear");
  EXPECT_EQ(parcel("12-0-0-3-46")->text("VIOL"), "1");
  at.expect(" Clear Flags", question, Answer::Yes);
  at.click(shown, "cmdClear");
  EXPECT_EQ(at.shown(shown, "lblFlags") + at.shown(shown, "Text1(19)"), "");
  EXPECT_EQ(parcel("12-0-0-3-46")->text("VIOL"), "0");
  EXPECT_FALSE(at.control(shown, "cmdClear").enabled);
}

TEST_F(ParcelScreens, AFlagRaisedMeanwhileIsNotCleared) {
  useExtended();
  ASSERT_TRUE(*parcels.SBLExists("12-0-0-3-46"));
  ASSERT_TRUE(parcels.SBLSetFailed().ok());
  Screen& shown = info("12-0-0-3-46");
  at.answers = [this](const MessageBox& box) {
    Session theirs = at.session;
    mdb other{theirs};
    EXPECT_TRUE(box.buttons == Buttons::OK || (*other.SBLExists("12-0-0-3-46") && other.SBLSetViol().ok()));
    return Answer::Yes;
  };
  at.click(shown, "cmdClear");
  at.answers = nullptr;
  EXPECT_EQ(at.shown(shown, "lblFlags"), "open violation, failed inspection");
  EXPECT_EQ(parcel("12-0-0-3-46")->text("FAILED"), "1");
}

TEST_F(ParcelScreens, TheLinkLeadsToTheMap) {
  useExtended();
  const std::pair<const char*, bool> links[] = {{"https://map.town.example/?parcel=12", true},
                                                {"http://a b", false},
                                                {"format.exe", false},
                                                {"41.5, -74", false}};
  at.session.defaultBrowser = "/bin/true ";
  at.session.useDefaultBrowser = "T";
  at.session.defaultBrowserFound = true;
  for (const auto& [link, leads] : links) {
    ASSERT_TRUE(*parcels.SBLExists("12-0-0-3-46"));
    ASSERT_TRUE(parcels.SBLPlaceUpdate("", "", "", link).ok());
    EXPECT_EQ(at.control(info("12-0-0-3-46"), "iMap").enabled, leads) << link;
    if (leads)
      at.click(*at.screens.front(), "iMap");
  }
  EXPECT_EQ(at.started.size(), 1u);
}

TEST_F(ParcelScreens, EveryFieldIsEdited) {
  useExtended();
  Screen& shown = info("12-5-0-3-45");
  editing([this](Screen& edit) {
    EXPECT_EQ(at.shown(edit, "Text1(2)"), "12.5");
    for (int box = 7; box <= 19; ++box)
      at.set(edit, "Text1(" + std::to_string(box) + ")", "new " + std::to_string(box));
    at.click(edit, "ISave");
  });
  at.click(shown, "IEdit");
  const auto row = parcel("12-5-0-3-45");
  const std::pair<const char*, const char*> stored[] = {
      {"ASSOC", "new 7"},   {"LOCN1", "new 8"},      {"CONTACT", "new 9"},     {"MAILING", "new 10"},
      {"CITY", "new 11"},   {"STATE", "new 12"},     {"ZIP", "new 13"},        {"GISLINK", "new 14"},
      {"PERMIT", "new 17"}, {"EASTCOORD", "new 15"}, {"NORTHCOORD", "new 16"}, {"HISTORICAL", "new 18"},
      {"NOTES", "new 19"}};
  for (const auto& [column, text] : stored)
    EXPECT_EQ(row->text(column), text) << column;
  EXPECT_EQ(at.shown(shown, "Text1(7)"), "new 7") << "shown at once";
}

TEST_F(ParcelScreens, WhatNobodyTouchedStaysAsItWas) {
  useExtended();
  ASSERT_TRUE(*parcels.SBLExists("13-0-A-3-45"));
  ASSERT_TRUE(parcels.SBLHistoryUpdate("24-1*25-1*").ok());
  editing([this](Screen& edit) {
    at.set(edit, "Text1(7)", "");
    at.click(edit, "ISave");
  });
  at.click(info("13-0-A-3-45"), "IEdit");
  const auto row = parcel("13-0-A-3-45");
  EXPECT_EQ(row->text("SBLF") + row->text("ASSOC") + row->text("HISTORICAL"), "13-0-A-3-45UNK24-1*25-1*");
}

TEST_F(ParcelScreens, AParcelOfTheOldLayoutIsEditedWithoutTheFieldsItLacks) {
  useOld();
  editing([this](Screen& edit) {
    for (const char* box : {"Text1(9)", "Text1(10)", "Text1(15)", "Text1(16)"})
      EXPECT_FALSE(at.control(edit, box).enabled) << box;
    at.set(edit, "Text1(11)", "Alder Glen");
    at.click(edit, "ISave");
  });
  Screen& shown = info("12-0-0-3-46");
  EXPECT_FALSE(at.control(shown, "Text1(9)").enabled);
  at.click(shown, "IEdit");
  EXPECT_EQ(parcel("12-0-0-3-46")->text("CITY"), "Alder Glen");
}

TEST_F(ParcelScreens, AKeyIsChangedInTheRegistryAloneAndOnlyKnowingly) {
  useExtended();
  const std::string question =
      "The permits and other records of the parcel 12-0-0-3-46 keep the S-B-L that they have.\nDo you want to change "
      "it in the parcel registry to 12-0-0-3-47?";
  editing([&](Screen& edit) {
    at.set(edit, "Text1(4)", "47");
    at.expect(" S-B-L changed", question, Answer::No);
    at.click(edit, "ISave");
    at.expect(" S-B-L changed", question, Answer::Yes);
    at.click(edit, "ISave");
  });
  Screen& shown = info("12-0-0-3-46");
  at.click(shown, "IEdit");
  EXPECT_EQ(parcel("12-0-0-3-46")->RecordCount(), 0u);
  EXPECT_EQ(at.shown(shown, "Text1(1)"), "12-0-0-3-47");
}

TEST_F(ParcelScreens, AKeyThatIsTakenIsRefusedAndWhatWasTypedStays) {
  useExtended();
  const std::string refusal =
      "The S-B-L 12-0-0-3-45 is in the parcel registry already.\nYou cannot give it to another parcel.";
  editing([&](Screen& edit) {
    at.set(edit, "Text1(2)", "12");
    at.set(edit, "Text1(3)", "3");
    at.set(edit, "Text1(4)", "45");
    at.set(edit, "Text1(7)", "Quinn");
    at.set(edit, "Text1(17)", "26-9");
    at.expect(" Duplicate S-B-L", refusal);
    at.click(edit, "ISave");
    EXPECT_EQ(at.shown(edit, "Text1(7)"), "Quinn");
    at.set(edit, "Text1(4)", "99");
    at.click(edit, "ISave");
  });
  at.click(open("sblinfo"), "INew");
  const auto row = parcel("12-0-0-3-99");
  EXPECT_EQ(row->text("ASSOC") + row->text("HISTORICAL") + row->text("VIOL"), "Quinn26-9*0");
  EXPECT_EQ(parcel("12-0-0-3-45")->text("ASSOC"), "O'Brien, Maeve");

  editing([&](Screen& edit) {
    at.set(edit, "Text1(4)", "45");
    at.expect(" S-B-L changed", "...", Answer::Yes);
    at.expect(" Duplicate S-B-L", refusal);
    at.click(edit, "ISave");
    at.set(edit, "Text1(4)", "46");
    at.set(edit, "Text1(8)", "18 Mill Road");
    at.click(edit, "ISave");
  });
  at.click(info("12-0-0-3-46"), "IEdit");
  EXPECT_EQ(parcel("12-0-0-3-46")->text("LOCN1"), "18 Mill Road") << "after a refusal it can be stored";
}

TEST_F(ParcelScreens, AKeyIsTypedPartByPart) {
  useExtended();
  const struct {
    const char *section, *block, *lot;
    const char *title, *text;
  } wrong[] = {
      {"", "3", "4", " Missing Information",
       "Missing: --S-B-L\n\nPlease ensure required\nfields are filled in correctly."},
      {"12", "3", " ", " Missing Information",
       "Missing: --S-B-L\n\nPlease ensure required\nfields are filled in correctly."},
      {"12", "3-4", "5", " S-B-L",
       "\"3-4\" cannot be a part of an S-B-L: the \"-\" stands between the parts.\nPlease write each part into its own "
       "box."},
  };
  editing([&](Screen& edit) {
    for (const auto& each : wrong) {
      at.set(edit, "Text1(2)", each.section);
      at.set(edit, "Text1(3)", each.block);
      at.set(edit, "Text1(4)", each.lot);
      at.expect(each.title, each.text);
      at.click(edit, "ISave");
    }
    at.expect(" New Parcel", kUnsaved, Answer::Yes);
    at.click(edit, "ICancel");
  });
  at.click(open("sblinfo"), "INew");
  EXPECT_EQ(look("sbl.mdb", "Select * from SBL")->RecordCount(), 6u);
}

TEST_F(ParcelScreens, SomebodyElsesChangeIsHeardOfAndNothingIsOverwritten) {
  useExtended();
  editing([this](Screen& edit) {
    ASSERT_TRUE(*parcels.SBLExists("12-0-0-3-46"));
    ASSERT_TRUE(parcels.SBLSetViol().ok());
    at.set(edit, "Text1(8)", "mine");
    at.expect(" Edit Parcel", kConflict);
    at.click(edit, "ISave");
    EXPECT_EQ(at.shown(edit, "Text1(8)"), "mine");
    at.expect(" Edit Parcel", kUnsaved, Answer::No);
    at.click(edit, "ICancel");
    EXPECT_TRUE(at.screens.isOpen(edit));
    at.expect(" Edit Parcel", kUnsaved, Answer::Yes);
    edit.userCloses();
    EXPECT_FALSE(at.screens.isOpen(edit));
  });
  Screen& shown = info("12-0-0-3-46");
  at.click(shown, "IEdit");
  EXPECT_EQ(parcel("12-0-0-3-46")->text("LOCN1"), "16 Mill Road");
  EXPECT_EQ(at.shown(shown, "lblFlags"), "open violation") << "the other change is seen now";
}

TEST_F(ParcelScreens, AParcelThatIsGoneIsNotEdited) {
  useExtended();
  Screen& shown = info("12-0-0-3-46");
  auto row = parcel("12-0-0-3-46");
  ASSERT_TRUE(row->Delete().ok());
  at.expect(" SBL not found", "The parcel 12-0-0-3-46 is not in the parcel registry any more.");
  at.click(shown, "IEdit");
  EXPECT_EQ(at.shown(shown, "lblStatus"), "Parcel 2 of 5");
}

TEST_F(ParcelScreens, AnUnknownParcelLeavesTheShownOne) {
  useExtended();
  info("12-0-0-3-46");
  at.expect(" SBL not found", "...", Answer::No);
  EXPECT_EQ(at.shown(info("99-0-0"), "Text1(1)"), "12-0-0-3-46");
}

}  // namespace
}  // namespace zelvo::testing
