#include "data/lookup/parcel_search.h"

#include <algorithm>

#include "small_office.h"
#include "support/scripted_desk.h"

namespace zelvo {
namespace {

/// A screen with the boxes of a key.
class KeyBoxes : public Screen {
 public:
  explicit KeyBoxes(Desk& itsDesk) : Screen(itsDesk, "boxes", "Boxes") {}
  ControlArray<TextBox> Text1{*this, "Text1", {2, 3, 4, 5, 6}};
};

class ParcelSearch : public SmallOffice {
 protected:
  /// The keys that a condition finds, in their order.
  std::string found(const std::string& condition) {
    const auto answer = rows(registry, "Select * from SBL where " + condition + " order by [SBLF]");
    std::string keys;
    for (; !answer->Eof(); answer->MoveNext())
      keys += (keys.empty() ? "" : " ") + answer->text("SBLF");
    return keys;
  }
  void add(std::string_view key, std::string_view owner, std::string_view location) {
    const auto all = rows(registry, "Select * from SBL");
    all->AddNew();
    all->set("SBLF", key);
    all->set("ASSOC", owner);
    all->set("LOCN1", location);
    EXPECT_TRUE(all->Update().ok());
  }
  void SetUp() override {
    SmallOffice::SetUp();
    if (IsSkipped())
      return;
    registry = connect("sbl.mdb");
    add("12-0-0-3-45", "O'Brien", "14 Mill Road");
    add("12-0-0-3-45-0-2", "Désir", "16 MILL Road");
    add("12-5-0-3-45", "TANAKA", "3 Élan Court");
    add("121-0-0-3-45", "Smith", "100% Lane");
    add("12-0-0-7-3-1", "Hollis", "7 Quarry Lane");
    add("12-0-0", "none", "a_b");
    add("13-0-A-3-45B", "Désirée", "1 Mill Lane");
  }

  std::shared_ptr<Connection> registry;
  testing::ScriptedDesk at;
};

TEST_F(ParcelSearch, FindsKeysByTheirParts) {
  const struct {
    std::vector<std::string> boxes;  // section, block, lot, lot suffix, sub-lot
    std::string keys;
  } cases[] = {
      {{"12"}, "12-0-0 12-0-0-3-45 12-0-0-3-45-0-2 12-0-0-7-3-1 12-5-0-3-45"},
      {{"12.5"}, "12-5-0-3-45"},
      {{"12.0"}, "12-0-0 12-0-0-3-45 12-0-0-3-45-0-2 12-0-0-7-3-1"},
      {{"12", "3"}, "12-0-0-3-45 12-0-0-3-45-0-2 12-5-0-3-45"},
      {{"12", "3", "45"}, "12-0-0-3-45 12-0-0-3-45-0-2 12-5-0-3-45"},
      {{"12", "3", "45", "", "0"}, "12-0-0-3-45 12-5-0-3-45"},
      {{"12", "3", "45", "", "2"}, "12-0-0-3-45-0-2"},
      {{"12", "", "3"}, "12-0-0-7-3-1"},
      {{"", "3", "45"}, "12-0-0-3-45 12-0-0-3-45-0-2 12-5-0-3-45 121-0-0-3-45"},
      {{"", "", "45b"}, "13-0-A-3-45B"},
      {{"", "0"}, "12-0-0"},
      {{"12%", "3", "45"}, "12-0-0-3-45 12-0-0-3-45-0-2 12-5-0-3-45 121-0-0-3-45"},
      {{"", "", "4_"}, "12-0-0-3-45 12-0-0-3-45-0-2 12-5-0-3-45 121-0-0-3-45"},
      {{"1[3-9]"}, "13-0-A-3-45B"},
      {{"2"}, ""},
      {{"1"}, ""},
      {{"12' OR '1'='1"}, ""},
  };
  for (const auto& each : cases) {
    KeyBoxes boxes(at.desk);
    for (std::size_t i = 0; i < each.boxes.size(); ++i)
      boxes.Text1(static_cast<int>(i) + 2).text = each.boxes[i];
    EXPECT_EQ(found(keyCondition(boxes, "SBLF")), each.keys) << join(each.boxes, "|");
  }
  EXPECT_EQ(keyCondition(KeyBoxes(at.desk), "SBLF"), "");
}

TEST_F(ParcelSearch, FindsTextsWithoutRegardToCaseAndAccents) {
  const struct {
    std::string_view column, typed;
    std::string keys;
  } cases[] = {
      {"LOCN1", "mill road", "12-0-0-3-45 12-0-0-3-45-0-2"},
      {"LOCN1", "elan", "12-5-0-3-45"},
      {"ASSOC", "DESIR", "12-0-0-3-45-0-2 13-0-A-3-45B"},
      {"ASSOC", "dÉsirÉe", "13-0-A-3-45B"},
      {"ASSOC", "tánaka", "12-5-0-3-45"},
      {"ASSOC", "o'b", "12-0-0-3-45"},
      {"LOCN1", "mill%lane", "13-0-A-3-45B"},
      {"LOCN1", "[1-3]_ mill", "12-0-0-3-45 12-0-0-3-45-0-2"},
      {"LOCN1", " quarry ", "12-0-0-7-3-1"},
      {"LOCN1", "100[%]", "121-0-0-3-45"},
      {"LOCN1", "[", ""},
      {"LOCN1", "Main", ""},
  };
  for (const auto& each : cases)
    EXPECT_EQ(found(holds(each.column, each.typed)), each.keys) << each.typed;
}

}  // namespace
}  // namespace zelvo
