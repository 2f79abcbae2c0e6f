#include <gtest/gtest.h>

#include "permit_office.h"
#include "records/permits/expiry_frm.h"

namespace zelvo::testing {
namespace {

/// What else the office has on a permit, from the permit's screen.
class PermitLinks : public PermitOffice {
 protected:
  PermitLinks() {
    for (const char* table : {"CERTOCCU", "INSPDTL", "VIOLDATA"})
      EXPECT_TRUE(createDatabase(path(findTable(table)->file), *findTable(table)).ok());
    addOther("26-1");
  }
  void certify(const char* letter, const char* number) {
    auto rows = look("db4.mdb", "Select * from CERTOCCU");
    rows->AddNew();
    rows->set("PERMIT", "26-1");
    rows->set("TYPE", letter);
    rows->set("CERTNO", number);
    rows->set("CERTOCCN", number + 3);
    ASSERT_TRUE(rows->Update().ok());
  }
  /// A screen that this office has for other records.
  void learn(const char* screen) {
    at.screens.learn(screen, [screen](Desk& desk) { return std::make_unique<Screen>(desk, screen, screen); });
  }
  void change(std::string_view column, std::string_view value) {
    auto row = permitsNow();
    row->set(column, value);
    ASSERT_TRUE(row->Update().ok());
  }
};

TEST_F(PermitLinks, ItsCertificatesAreListedAndShown) {
  at.expect(" Certificates", "Associated Certificate not found.");
  at.click(open(), "iCertInfo");
  EXPECT_FALSE(open().hasCO());
  certify("C", "26-4");
  EXPECT_FALSE(open().hasCO());
  certify("O", "26-5");
  certify("F", "26-6");
  EXPECT_TRUE(open().hasCO());
  const std::string list =
      "This permit has associated certificate(s):\nCertificate of Compliance #26-4\nCertificate of Occupancy "
      "#26-5\nFire Code Certificate #26-6\n\nWould you like to see all certificates\nassociated with this permit?";
  at.expect(" Certificates", list, Answer::Yes);
  at.expect(" Certificates", "\"Certificates\" is not part of this program yet.");
  at.click(open(), "iCertInfo");
  learn("CCertificates");
  at.expect(" Certificates", list, Answer::Yes);
  at.click(open(), "iCertInfo");
  EXPECT_EQ(at.came.back(), "CCertificates");
  EXPECT_EQ(at.session.queryFor(QuerySlot::Certificates).query,
            "Select * from CERTOCCU where [PERMIT] = '26-1' order by [CERTOCCN]");
}

TEST_F(PermitLinks, OtherRecordsAreShownWhereThereIsAScreenForThem) {
  at.expect(" Inspections", "\"Inspections\" is not part of this program yet.");
  at.click(open(), "iInsp");
  at.expect(" Fees", "\"Fees\" is not part of this program yet.");
  at.click(open(), "iFee");
  for (const char* screen : {"BInspections", "CViolations", "feesfrm"})
    learn(screen);
  at.click(open(), "iInsp");
  EXPECT_EQ(at.session.queryFor(QuerySlot::Inspections).query, "Select * from INSPDTL where [PERMIT] = '26-1'");
  at.click(open(), "iViol");
  EXPECT_EQ(at.session.queryFor(QuerySlot::Violations).query, "Select * from VIOLDATA where [PERMIT] = '26-1'");
  at.click(open(), "iFee");
  EXPECT_EQ(at.came.back(), "feesfrm");
  EXPECT_EQ(at.session.hop, "26-1");
  EXPECT_EQ(at.session.feeCategory, "P");
  at.session.hop.clear();

  at.click(open(), "Quit");
  change("SEC", "12"), change("BLK", "3"), change("LOT", "45");
  ASSERT_TRUE(parcels.SBLAdd("12-0-0-3-45", "26-1", "Smith", "", "14 Mill Road").ok());
  ASSERT_TRUE(*parcels.SBLExists("12-0-0-3-45"));
  ASSERT_TRUE(parcels.SBLSetViol().ok());
  at.click(open(), "Label28");
  EXPECT_EQ(at.session.queryFor(QuerySlot::Violations).query,
            "Select * from VIOLDATA where [SEC] = '12' AND[BLK] = '3' AND[LOT] = '45' order by [RECNO]");
  EXPECT_EQ(look("db5.mdb", at.session.queryFor(QuerySlot::Violations).query)->RecordCount(), 0u);
}

TEST_F(PermitLinks, TheMapShowsItsPlace) {
  at.session.defaultBrowser = "/bin/true ";
  at.session.defaultBrowserFound = true;
  for (const char* place : {"", "41.5", "41.5,", "north, west", "41.5,-740", "41.5,-74&x=1"}) {
    change("LINK01", place);
    at.expect(" Map", "This permit has no position on the map.");
    at.click(open(), "iMap");
    at.click(open(), "Quit");
  }
  change("LINK01", "41.5034, -74.0104");
  at.click(open(), "iMap");
  ASSERT_EQ(at.started.size(), 1u);
  EXPECT_NE(at.started[0].find("gps.htm?txtLat=41.5034&txtLong=-74.0104&txtZoom=17"), std::string::npos)
      << at.started[0];
}

TEST_F(PermitLinks, TheExpirationDateIsChosenFromPresets) {
  APermits& permits = open();
  at.click(permits, "INew");
  const auto press = [&](const char* button) {
    at.when("ExpiryFrm", [this, button](Screen& choice) { at.click(choice, button); });
    at.click(permits, "iExpires");
    return at.shown(permits, "Text1(13)");
  };
  at.set(permits, "DTPicker1", "08/31/2026");
  EXPECT_EQ(press("cmd6"), "02/28/2027");
  EXPECT_EQ(press("cmd12"), "08/31/2027");
  EXPECT_EQ(press("cmd18"), "02/29/2028");
  EXPECT_EQ(press("cmd24"), "08/31/2028");
  EXPECT_EQ(press("cmdCancel"), "08/31/2028");
  at.when("ExpiryFrm", [this](Screen& choice) {
    at.set(choice, "DTPicker1", "08/30/2026");
    at.expect(" Date Error", "Expiration date cannot be prior to Permit Date.");
    at.click(choice, "cmdOK");
    at.set(choice, "DTPicker1", "08/31/2026");
    at.click(choice, "cmdOK");
  });
  at.click(permits, "iExpires");
  EXPECT_EQ(at.shown(permits, "Text1(13)"), "08/31/2026");
}

}  // namespace
}  // namespace zelvo::testing
