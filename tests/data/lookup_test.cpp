#include "data/lookup/lookups.h"

#include "parcel_office.h"

namespace zelvo::testing {
namespace {

using Lookup = ParcelOffice;

TEST_F(Lookup, AParcelFoundByItsKeyIsShown) {
  useExtended();
  Screen& look = open("sblloc");
  EXPECT_EQ(at.shown(look, "ListView1"), "");
  at.set(look, "Text1(2)", "12");
  at.set(look, "Text1(3)", "3");
  at.click(look, "iFind");
  EXPECT_EQ(listed(look), "12-0-0-3-45 12-0-0-3-46 12-5-0-3-45");
  EXPECT_EQ(at.shown(look, "lblCount"), "3 parcels");
  auto& list = dynamic_cast<ListView&>(at.control(look, "ListView1"));
  ASSERT_TRUE(look.userOpensRow(list, 2).ok());
  Screen& info = *at.screens.front();
  EXPECT_EQ(info.name(), "sblinfo");
  EXPECT_EQ(at.shown(info, "Text1(1)"), "12-5-0-3-45");
  EXPECT_EQ(at.session.hop, "") << "no other screen goes there too";
}

TEST_F(Lookup, NothingFoundIsSaidOnTheScreen) {
  useExtended();
  Screen& look = open("adloc");
  at.set(look, "Text5", "Main Street");
  at.click(look, "iFind");
  EXPECT_EQ(at.shown(look, "lblCount"), "No parcel matches.");
  EXPECT_FALSE(at.control(look, "cmdTake").enabled);
  at.set(look, "Text5", "1_ mill road");
  at.click(look, "iFind");
  EXPECT_EQ(listed(look, 1), "12-0-0-3-45 12-0-0-3-46");
  at.set(look, "Text5", "");
  at.click(look, "iFind");
  EXPECT_EQ(at.shown(look, "lblCount"), "6 parcels") << "nothing asked for, everything found";
}

TEST_F(Lookup, ContactsAreFoundWhereTheRegistryHoldsThem) {
  useExtended();
  ASSERT_TRUE(parcels.SBLAddExtended({"14-0-0", "Bank", "", "Maeve Quinn", "", "", ""}).ok());
  Screen& look = open("conloc");
  EXPECT_EQ(at.shown(look, "lblNote"), "");
  at.set(look, "Text2", "maeve");
  at.click(look, "iFind");
  EXPECT_EQ(listed(look, 2), "14-0-0 12-0-0-3-45");
}

TEST_F(Lookup, AnOldRegistryIsSearchedForOwnersAlone) {
  useOld();
  Screen& look = open("conloc");
  EXPECT_EQ(at.shown(look, "lblNote"),
            "The parcel registry has the old layout, which holds no contacts: the owners are searched.");
  at.set(look, "Text2", "desir");
  at.click(look, "iFind");
  EXPECT_EQ(listed(look, 1), "12-0-0-3-46");
  EXPECT_EQ(at.shown(look, "ListView1"), "1 rows, 3 columns") << "and no empty ones";
}

TEST_F(Lookup, LookingMakesNoRoll) {
  useExtended();
  Screen& look = open("rpsloc");
  EXPECT_TRUE(at.shown(look, "lblNote").starts_with("No tax roll has been imported yet."));
  EXPECT_FALSE(at.control(look, "iFind").enabled);
  EXPECT_FALSE(FileExists(path("rps.mdb")));
  at.click(look, "cmdClose");

  ASSERT_TRUE(createDatabase(path("rps.mdb"), *findTable("RPS")).ok());
  EXPECT_TRUE(at.shown(open("rpsloc"), "lblNote").starts_with("No tax roll has been imported yet.")) << "an empty one";
}

TEST_F(Lookup, AParcelThatOnlyTheRollKnowsCanBeAdded) {
  useExtended();
  ASSERT_TRUE(createDatabase(path("rps.mdb"), *findTable("RPS")).ok());
  auto roll = look("rps.mdb", "Select * from RPS");
  for (const auto& [key, owner] : {std::pair("15-0-0-1-2", "Quinn, Ada"), {"12-0-0-3-45", "O'Brien"}}) {
    roll->AddNew();
    roll->set("RSBLF", key);
    roll->set("RASSOC", owner);
    roll->set("RLOCN1", "2 Roll Street");
    roll->set("RADDR1", "PO Box 2");
    roll->set("RCONTACT", "?");
    ASSERT_TRUE(roll->Update().ok());
  }
  Screen& look = open("rpsloc");
  at.set(look, "Text2", "quinn");
  at.set(look, "Text5", "roll");
  at.set(look, "Text1(4)", "2");
  at.click(look, "iFind");
  EXPECT_EQ(listed(look), "15-0-0-1-2");
  at.expect(" SBL not found",
            "The Section, Block and Lot info cannot be found.\nIf this is a new S-B-L, click 'Yes' to add this as a "
            "new record.",
            Answer::Yes);
  at.when("SBLEdit", [this](Screen& edit) {
    EXPECT_EQ(at.shown(edit, "Text1(7)"), "Quinn, Ada");
    EXPECT_EQ(at.shown(edit, "Text1(9)"), "");
    at.click(edit, "ISave");
  });
  at.click(look, "cmdTake");
  EXPECT_EQ(at.shown(*at.screens.front(), "Text1(1)"), "15-0-0-1-2");
  EXPECT_EQ(parcel("15-0-0-1-2")->text("MAILING"), "PO Box 2");
}

/// A screen that asks for a parcel.
class Asking : public Screen {
 public:
  explicit Asking(Desk& itsDesk) : Screen(itsDesk, "asking", "Asking") {}
  std::optional<FoundParcel> ask() { return lookUpParcel(desk, *this); }
  ControlArray<TextBox> Text1{*this, "Text1", {2, 3, 4, 5, 6}};
};

TEST_F(Lookup, WhatIsTakenGoesBackToTheScreenThatAsked) {
  useExtended();
  Asking asking(at.desk);
  asking.Text1(2).text = "12";
  asking.Text1(3).text = "3";
  at.when("sblloc", [this](Screen& look) {
    EXPECT_EQ(at.shown(look, "lblCount"), "3 parcels") << "what stood on the screen is looked for at once";
    at.choose(look, "ListView1", "2");
    at.click(look, "cmdTake");
  });
  const auto taken = asking.ask();
  ASSERT_TRUE(taken);
  EXPECT_EQ(taken->key + " " + taken->owner + " " + taken->location, "12-0-0-3-46 Désir, Jean 16 Mill Road");
  EXPECT_EQ(at.screens.find("sblinfo"), nullptr);
}

TEST_F(Lookup, FromTheKeyOneGoesOnToTheAddress) {
  useExtended();
  Asking asking(at.desk);
  at.when("sblloc", [this](Screen& look) { at.click(look, "cmdAddress"); });
  at.when("adloc", [this](Screen& look) {
    at.set(look, "Text5", "quarry");
    at.click(look, "iFind");
    at.click(look, "cmdTake");
  });
  EXPECT_EQ(asking.ask()->key, "12-0-0-7-3-1");
  at.when("adloc", [this](Screen& look) { at.click(look, "cmdClose"); });
  EXPECT_FALSE(asking.ask()) << "given up";

  at.click(open("sblloc"), "cmdContact");
  EXPECT_EQ(at.screens.front()->name(), "conloc");
  EXPECT_EQ(at.screens.all().size(), 1u);
}

TEST_F(Lookup, ARegistryThatIsGoneIsToldOf) {
  Screen& look = open("sblloc");
  EXPECT_NE(at.shown(look, "lblNote").find("sbl.mdb"), std::string::npos);
  EXPECT_FALSE(at.control(look, "iFind").enabled);
}

TEST_F(Lookup, FlagsStandInTheListInWords) {
  useExtended();
  ASSERT_TRUE(*parcels.SBLExists("12-0-0-3-46"));
  ASSERT_TRUE(parcels.SBLSetComplaint().ok() && parcels.SBLSetViol().ok());
  Screen& look = open("sblloc");
  at.set(look, "Text1(4)", "46");
  at.click(look, "iFind");
  EXPECT_EQ(listed(look, 4), "open violation, complaint");
}

}  // namespace
}  // namespace zelvo::testing
