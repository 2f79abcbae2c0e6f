#include "data/lookup/lookup_screens.h"
#include "permit_office.h"

namespace zelvo::testing {
namespace {

class PermitParcel : public PermitOffice {
 protected:
  PermitParcel() {
    learnParcelScreens(at.screens, parcels);
    EXPECT_TRUE(parcels.SBLAdd("12-5-0-3-45", "", "Tanaka, Irene", "", "3 Mill Road").ok());
    EXPECT_TRUE(parcels.SBLAdd("12-0-0-3-46", "", "UNK", "", "5 Mill Road").ok());
  }
  void take(std::string_view row) {
    at.when("sblloc", [this, row = std::string(row)](Screen& look) {
      at.click(look, "iFind");
      at.choose(look, "ListView1", row);
      at.click(look, "cmdTake");
    });
  }
};

TEST_F(PermitParcel, AParcelLookedUpFillsWhatIsStillEmpty) {
  APermits& permits = open();
  EXPECT_FALSE(at.control(permits, "iLook").enabled) << "a record that is only shown keeps its parcel";
  at.click(permits, "INew");
  take("12-5-0-3-45");
  at.click(permits, "iLook");
  const std::pair<const char*, const char*> boxes[] = {
      {"Text1(1)", "26-1"}, {"Text1(2)", "12.5"},           {"Text1(3)", "3"},
      {"Text1(4)", "45"},   {"Text1(18)", "Tanaka, Irene"}, {"Text1(34)", "3 Mill Road"}};
  for (const auto& [box, text] : boxes)
    EXPECT_EQ(at.shown(permits, box), text) << box;
  at.set(permits, "Text1(17)", "3 Mill Road");
  at.click(permits, "IAdd");
  EXPECT_EQ(permitsNow()->text("SUD"), "5") << "a known parcel: nobody is asked";
}

TEST_F(PermitParcel, WhatWasTypedStaysAndAnUnknownOwnerIsNone) {
  APermits& permits = open();
  at.click(permits, "INew");
  at.set(permits, "Text1(34)", "corner lot");
  take("12-0-0-3-46");
  at.click(permits, "iLook");
  EXPECT_EQ(at.shown(permits, "Text1(34)") + "|" + at.shown(permits, "Text1(18)"), "corner lot|");
  at.when("sblloc", [this](Screen& look) { at.click(look, "cmdClose"); });
  at.click(permits, "iLook");
  EXPECT_EQ(at.shown(permits, "Text1(4)"), "46") << "given up: nothing changes";
}

// ---- a database that is lost

TEST_F(PermitParcel, PermitsThatAreLostAreLookedFor) {
  ASSERT_TRUE(makeFolder(folder.file("other")).ok());
  ASSERT_TRUE(copyDatabase(path("db1.mdb"), folder.file("other/db1.mdb")).ok());
  at.session.dataFolder = folder.file("lost");
  at.session.queryFor(QuerySlot::Permits) = {connectionText(folder.file("lost/db1.mdb")),
                                             "Select * from BLDGPERM order by PERMIT"};
  at.when("noDbfound", [this](Screen& search) { at.click(search, "Command2"); });
  at.screens.open("APermits");
  EXPECT_EQ(at.screens.front(), nullptr) << "given up: the screen closes without a further message";

  at.when("noDbfound", [this](Screen& search) {
    at.pick(folder.file("other/db1.mdb"));
    at.click(search, "Command1");
  });
  EXPECT_EQ(at.shown(open(), "lblStatus"), "empty database");
  EXPECT_EQ(at.session.queryFor(QuerySlot::Permits).connection, connectionText(folder.file("other/db1.mdb")));
  EXPECT_EQ(at.session.dataFolder, folder.file("other"));
}

}  // namespace
}  // namespace zelvo::testing
