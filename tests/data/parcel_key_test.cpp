#include "data/parcel_key.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "data/recordset.h"
#include "support/parcel_screen.h"
#include "support/scripted_desk.h"
#include "support/temp_folder.h"

namespace zelvo {
namespace {

class ParcelKey : public ::testing::Test {
 protected:
  std::string boxes() {
    std::vector<std::string> shown;
    for (const TextBox& box : screen.Text1)
      shown.push_back(box.text);
    return join(shown, "|");
  }

  testing::ScriptedDesk desk;
  TwoParcels screen{desk.desk};
};

TEST_F(ParcelKey, IsMadeFromTheBoxes) {
  const struct {
    std::vector<std::string> typed;
    const char* key;
    const char* stored;
  } cases[] = {
      {{"12.5", "3", "45", "", ""}, "12-5-0-3-45-0-0-0", "12-5-0-3-45"},
      {{"12/5", "3", "45", "", ""}, "12.5-0-0-3-45-0-0-0", "12.5-0-0-3-45"},
      {{"", "", "", "", ""}, "0-0-0-0-0-0-0-0", "0-0-0"},
      {{" 1 ", " ", "", "", ""}, "1-0-0-0-0-0-0-0", "1-0-0"},
      {{"12.a.b", "3a", "45", "b", "é"}, "12-A.B-0-3A-45-B-É-0", "12-A.B-0-3A-45-B-É"},
      {{"12.", "3", "45", "", "7"}, "12-0-0-3-45-0-7-0", "12-0-0-3-45-0-7"},
      {{"12", "3", "4-5", "6", "7"}, "12-0-0-3-4-5-6-7", "12-0-0-3-4-5-6-7"},
  };
  for (const auto& row : cases) {
    TwoParcels::type(screen.Text1, row.typed);
    EXPECT_EQ(MakeSBL(screen), row.key) << row.typed[0];
    EXPECT_EQ(TrimSBL(MakeSBL(screen)), row.stored) << row.typed[0];
    EXPECT_EQ(MakeSBL2(screen), "0-0-0-0-0-0-0-0");
    EXPECT_EQ(SBLfilled(screen), row.key != std::string("0-0-0-0-0-0-0-0")) << row.typed[0];
  }
  TwoParcels::type(screen.Text2, {"9", "8", "7", "", ""});
  EXPECT_EQ(MakeSBL2(screen), "9-0-0-8-7-0-0-0");
}

TEST(ParcelKeyText, LosesFiveEmptyPartsAtMost) {
  const struct {
    std::string key;
    const char* trimmed;
  } cases[] = {{"12-0-0-0-0-0-0-0", "12-0-0"},
               {"12-0-0-3-45-0-0-0", "12-0-0-3-45"},
               {"12-0-0-3-40", "12-0-0-3-40"},
               {"1-0-0-0-0-0-0-0-0", "1-0-0-0"},
               {"0-0-0", "0"},
               {"", ""}};
  for (const auto& row : cases) {
    std::string key = row.key;
    EXPECT_EQ(TrimSBL(key), row.trimmed) << row.key;
    EXPECT_EQ(key, row.trimmed) << row.key;
  }
}

TEST(ParcelKeyText, HasEvenSeparatorsWhenCleaned) {
  const struct {
    const char* text;
    const char* cleaned;
  } cases[] = {{"12--3", "12-3"},
               {"12.-3", "12-3"},
               {"12...---3", "12-3"},
               {"12./3", "12.3"},
               {"12.//3", "12.3"},
               {"12/5-3", "12.5-3"},
               {"12/-3", "12.-3"},  // the "." was made after the step that drops it
               {"1-2-3-4-5-6-7-8", "1-2-3-4-5-6-7-8"},
               {"1-2-3-4-5-6-7-8-9", "1-2-3-4-5-6-7-8"},
               {"1-2-3-4-5-6-7-8-9-10", "1-2-3-4-5-6-7-8-9"},
               {"", ""}};
  for (const auto& row : cases)
    EXPECT_EQ(cleanSBL(row.text), row.cleaned) << row.text;
}

TEST_F(ParcelKey, BecomesACondition) {
  const struct {
    std::vector<std::string> typed;
    const char* condition;
  } cases[] = {
      {{"12", "3", "", "", ""}, "[SEC] = '12' AND[BLK] = '3' AND"},
      {{" 12.5 ", "3", "45", "1", "2"},
       "[SEC] = '12' AND[SUD] = '5' AND[BLK] = '3' AND[LOT] = '45' AND[LOD] = '1' AND[SUB] = '2' AND"},
      {{"", "", "45", "", ""}, "[LOT] = '45' AND"},
      {{".5", "", "", "", ""}, "[SUD] = '5' AND"},
      {{"12.", "", "", "", ""}, "[SEC] = '12' AND"},
      {{"", " ", "", "", ""}, "[SEC] = '0' AND [BLK] = '0' AND"},
      {{".", "", "", "", ""}, "[SEC] = '0' AND [BLK] = '0' AND"},
      {{"", "", "4' or '1'='1", "", ""}, "[LOT] = '4'' or ''1''=''1' AND"},
  };
  for (const auto& row : cases) {
    TwoParcels::type(screen.Text1, row.typed);
    EXPECT_EQ(SBL2SQL(screen), row.condition);
  }
}

TEST_F(ParcelKey, FillsTheBoxesOfAScreen) {
  const struct {
    const char* key;
    const char* boxes;
  } cases[] = {{"12-5-0-3-45-1-2-0", "|12.5|3|45|1|2"},
               {"12-0-0-3a-45-0-0-0", "|12|3A|45|0|0"},
               {"12-0-0-3-45", "|12|3|45||"},
               {"12", "|12||||"},
               {"", "|||||"},
               {"1-2-3-4-5-6-7-8-9-10", "|1.2|4|5|6|7"}};
  for (const auto& row : cases) {
    for (TextBox& box : screen.Text1)
      box.text = "left over";
    ExtractSBL(screen, row.key);
    EXPECT_EQ(boxes(), row.boxes) << row.key;
  }
}

TEST(ParcelKeyText, IsShownAsInLetters) {
  const struct {
    const char* key;
    const char* shown;
    const char* sec;
    const char* sud;
  } cases[] = {{"12-5-0-3-45-1-0-0", "12.5-3-45.1", "12.5", "0"},
               {"12-0-0-3-45-0-0-0", "12-3-45", "12", "0"},
               {"12-0-b-3-45-0-2-c", "12-B-3-45.2.C", "12", "C"},
               {"12-0-0-3-45-0-0-0-0", "12-3-45", "12", ""},
               {"12--0-3-45-0-0-", "12-3-45", "12", ""},
               {"1234567-0-0-3-45-0-0-0", "1234567-3-45", "1234567", "0"},
               {"12-0-0-3-45", "invalid SBL", "-9", "0"},
               {"12", "invalid SBL", "-9", "0"},
               {"", "invalid SBL", "-9", "0"}};
  for (const auto& row : cases) {
    ParcelParts parts;
    parts.SUD = "of another parcel";
    EXPECT_EQ(mysbl2SBL(row.key, parts), row.shown) << row.key;
    EXPECT_EQ(parts.SEC, row.sec) << row.key;
    EXPECT_EQ(parts.SUD, row.sud) << row.key;
  }
}

TEST(ParcelKeyText, IsReadFromARecord) {
  TempFolder folder;
  ASSERT_TRUE(createDatabase(folder.file("db1.mdb"), *findTable("BLDGPERM")).ok());
  auto rows = Recordset::open(*Connection::open(connectionText(folder.file("db1.mdb"))), "Select * from BLDGPERM");
  ASSERT_TRUE(rows.ok());
  Recordset& permits = **rows;
  ParcelParts parts;
  parts.LOT = parts.SED = "of another parcel";
  EXPECT_EQ(currentSBL(permits, parts), "0-0-0-0-0-0-0-0") << "without a row";
  EXPECT_EQ(parts.LOT, "0");

  permits.AddNew();
  permits.set("SEC", " 12 ");
  permits.set("SUD", "a");
  permits.set("BLK", " ");
  permits.set("LOT", "45");
  EXPECT_EQ(currentSBL(permits, parts), "12-A-0-0-45-0-0-0") << "not stored yet";
  ASSERT_TRUE(permits.Update().ok());
  EXPECT_EQ(currentSBL(permits, parts), "12-A-0-0-45-0-0-0");
  EXPECT_EQ(parts.SUD, "a");
  EXPECT_EQ(parts.SED, "0") << "no such field in this table";
}

// A key that a screen makes fills the boxes of another screen so that it makes the same key.
TEST_F(ParcelKey, GoesFromScreenToScreen) {
  for (const char* key : {"12-5-0-3-45-1-2-0", "12-0-0-3-45-0-0-0", "0-0-0-0-0-0-0-0"}) {
    ExtractSBL(screen, key);
    EXPECT_EQ(MakeSBL(screen), key);
    ExtractSBL(screen, TrimSBL(std::string(key)));
    EXPECT_EQ(MakeSBL(screen), key);
  }
}

}  // namespace
}  // namespace zelvo
