#include "data/mdb.h"

#include <gtest/gtest.h>

#include "base/files.h"
#include "premises.h"
#include "support/temp_folder.h"

namespace zelvo {
namespace {

/// A data folder with an empty registry and the permits, and two clerks at it.
class Registry : public ::testing::Test {
 protected:
  Registry() {
    for (Session* clerk : {&session, &other})
      clerk->dataFolder = folder.path();
  }
  void SetUp() override {
    if (const std::string lacking = furnish(folder.path()); !lacking.empty())
      GTEST_SKIP() << lacking;
  }

  void use(const Table& layout) { ASSERT_TRUE(createDatabase(folder.file("sbl.mdb"), layout).ok()); }
  void useOld() { use(*findTable("SBL")); }

  /// Whether the key is there; a trouble fails the test.
  static bool has(mdb& parcels, std::string_view key) {
    const auto found = parcels.SBLExists(key);
    EXPECT_TRUE(found.ok()) << (found.ok() ? "" : found.error().message);
    return found.ok() && *found;
  }
  static void done(const Result<void>& result) {
    EXPECT_TRUE(result.ok()) << (result.ok() ? "" : result.error().message);
  }
  /// A field of the only row with that key.
  std::string field(std::string_view key, std::string_view name) {
    auto connection = Connection::open(connectionText(folder.file("sbl.mdb")));
    auto rows = Recordset::open(*connection, "Select * from SBL where [SBLF] = '" + std::string(key) + "'");
    if (!rows.ok() || (*rows)->RecordCount() != 1)
      return "no such row";
    return (*rows)->text(name);
  }

  TempFolder folder;
  Session session, other;
  mdb parcels{session};
};

TEST_F(Registry, IsReachedAgainWhenTheFolderComesBack) {
  useOld();
  done(parcels.SBLAdd("1-0-0-2-3", "25-1", "Smith", "", "1 Main St"));
  auto outage = loseContact(folder, "sbl.mdb");
  EXPECT_FALSE(parcels.SBLExists("1-0-0-2-3").ok());
  outage.reset();
  EXPECT_TRUE(has(parcels, "1-0-0-2-3"));
}

TEST_F(Registry, KnowsItsLayout) {
  use(extendedParcelTable());
  session.parcelLayout = 13;
  done(parcels.resetsbl());
  EXPECT_EQ(session.parcelLayout, 18);

  other.dataFolder = folder.file("old");
  ASSERT_TRUE(makeFolder(other.dataFolder).ok());
  furnish(other.dataFolder);
  ASSERT_TRUE(createDatabase(folder.file("old/sbl.mdb"), *findTable("SBL")).ok());
  mdb old{other};
  other.parcelLayout = 18;
  done(old.resetsbl());
  EXPECT_EQ(other.parcelLayout, 13);
}

TEST_F(Registry, FindsWhatWasAdded) {
  useOld();
  EXPECT_FALSE(has(parcels, "12-0-0-3-45"));
  done(parcels.SBLAdd("12-0-0-3-45b", "25-134", "O'Brien, Ann", "new", "12 Main St"));
  parcels.permit = "left over";
  EXPECT_TRUE(has(parcels, "12-0-0-3-45B"));
  EXPECT_EQ(parcels.permit, "25-134");
  EXPECT_EQ(parcels.assoc, "O'Brien, Ann");
  EXPECT_EQ(parcels.location, "12 Main St");
  EXPECT_EQ(parcels.mailing, "");
  EXPECT_EQ(field("12-0-0-3-45B", "HISTORICAL"), "25-134*");
  EXPECT_EQ(field("12-0-0-3-45B", "VIOL"), "0");
  EXPECT_FALSE(has(parcels, "12-0-0-3"));
  EXPECT_FALSE(has(parcels, "x' or 'a'='a"));

  const auto again = parcels.SBLAdd("12-0-0-3-45B", "", "", "", "");
  ASSERT_FALSE(again.ok());
  EXPECT_EQ(again.error().trouble, Trouble::Duplicate);
  EXPECT_EQ(field("12-0-0-3-45B", "ASSOC"), "O'Brien, Ann");
}

TEST_F(Registry, SearchesNothingWhileLookUpIsSwitchedOff) {
  useOld();
  done(parcels.SBLAdd("1-0-0", "", "", "", ""));
  session.parcelLookupOff = true;
  EXPECT_FALSE(has(parcels, "1-0-0"));
  session.parcelLookupOff = false;
  EXPECT_TRUE(has(parcels, "1-0-0"));
}

TEST_F(Registry, CutsWhatIsTooLong) {
  useOld();
  const std::string key(45, 'A');
  done(parcels.SBLAdd(key, std::string(25, 'p'), std::string(25, 'o'), "", std::string(80, 'l')));
  const std::string stored = key.substr(0, 40);
  EXPECT_EQ(field(stored, "ASSOC").size(), 20u);
  EXPECT_EQ(field(stored, "PERMIT").size(), 20u);
  EXPECT_EQ(field(stored, "LOCN1").size(), 70u);
  EXPECT_TRUE(has(parcels, stored));
  EXPECT_TRUE(has(parcels, key));
}

TEST_F(Registry, RaisesAndLowersFlags) {
  useOld();
  done(parcels.SBLAdd("1-0-0", "", "", "", ""));
  EXPECT_FALSE(parcels.SBLHasOther() || parcels.SBLHasViol() || parcels.SBLHasFailed() || parcels.SBLHasComplaint() ||
               parcels.SBLHasNotes());
  parcels.currentNote = "failed footing";
  done(parcels.SBLSetFailed());
  EXPECT_TRUE(parcels.SBLHasFailed());
  parcels.currentNote = "noise";
  done(parcels.SBLSetComplaint());
  EXPECT_FALSE(parcels.SBLHasFailed()) << "the complaint replaces it";
  EXPECT_TRUE(parcels.SBLHasComplaint());
  done(parcels.SBLSetViol());
  done(parcels.SBLSetOther());

  mdb fresh{other};
  ASSERT_TRUE(has(fresh, "1-0-0"));
  EXPECT_TRUE(fresh.SBLHasViol() && fresh.SBLHasOther() && fresh.SBLHasComplaint() && fresh.SBLHasNotes());
  EXPECT_EQ(fresh.currentNote, "noise");
  done(fresh.SBLClearViol());
  done(fresh.SBLClearFailed());
  EXPECT_FALSE(fresh.SBLHasViol() || fresh.SBLHasComplaint());
  EXPECT_TRUE(fresh.SBLHasOther());
  done(fresh.SBLClearOther());
  EXPECT_FALSE(fresh.SBLHasOther());
  EXPECT_TRUE(fresh.SBLHasNotes());
  done(fresh.SBLClearFlag());
  EXPECT_FALSE(fresh.SBLHasNotes());
}

TEST_F(Registry, KeepsWhatAnotherClerkWrote) {
  useOld();
  done(parcels.SBLAdd("1-0-0", "", "Smith", "", ""));
  mdb theirs{other};
  ASSERT_TRUE(has(theirs, "1-0-0"));
  done(parcels.SBLSetViol());
  theirs.currentNote = "other";
  done(theirs.SBLSetOther());
  EXPECT_EQ(field("1-0-0", "VIOL") + field("1-0-0", "OTHER") + field("1-0-0", "NOTES"), "11other");
}

TEST_F(Registry, RewritesTheCurrentRow) {
  use(extendedParcelTable());
  done(parcels.SBLAdd18("1-0-0", "25-1", "Smith", "", "1 Main St", "Jones", "PO Box 1"));
  ASSERT_TRUE(has(parcels, "1-0-0"));
  EXPECT_EQ(parcels.mailing, "PO Box 1");
  done(parcels.SBLUpdate("1-0-0", "", "nobody knows"));
  EXPECT_EQ(field("1-0-0", "ASSOC"), "UNK");
  EXPECT_EQ(field("1-0-0", "NOTES"), "nobody knows");
  done(parcels.SBLHistoryUpdate("24-1*25-1*"));
  EXPECT_EQ(field("1-0-0", "HISTORICAL"), "24-1*25-1*");
  done(parcels.SBLUpdate2("2-0-0a", " 25-2 ", " Brown ", "2 Main St"));
  EXPECT_EQ(field("1-0-0", "ASSOC"), "no such row");
  EXPECT_EQ(field("2-0-0A", "ASSOC") + field("2-0-0A", "HISTORICAL"), "Brown25-2*");
  done(parcels.SBLUpdateExtended({"2-0-0A", "Green", "3 Main St", "", "PO Box 3", "700", "800"}));
  EXPECT_EQ(field("2-0-0A", "EASTCOORD") + field("2-0-0A", "PERMIT"), "70025-2");
}

TEST_F(Registry, RewritesNothingWithoutACurrentRow) {
  useOld();
  done(parcels.SBLAdd("1-0-0", "", "", "", ""));
  EXPECT_FALSE(has(parcels, "2-0-0"));
  EXPECT_FALSE(parcels.SBLHasViol());
  const auto refused = parcels.SBLSetViol();
  ASSERT_FALSE(refused.ok());
  EXPECT_EQ(refused.error().trouble, Trouble::NotFound);
  EXPECT_EQ(field("1-0-0", "VIOL"), "0");
}

TEST_F(Registry, ANewKeyThatIsInUseChangesNothing) {
  useOld();
  done(parcels.SBLAdd("1-0-0", "", "Smith", "", ""));
  done(parcels.SBLAdd("2-0-0", "", "Brown", "", ""));
  const auto refused = parcels.SBLUpdate2("1-0-0", "", "Brown", "");
  ASSERT_FALSE(refused.ok());
  EXPECT_EQ(refused.error().trouble, Trouble::Duplicate);
  done(parcels.SBLSetViol());
  EXPECT_EQ(field("2-0-0", "VIOL") + field("1-0-0", "VIOL"), "10");
}

}  // namespace
}  // namespace zelvo
