#include <gtest/gtest.h>

#include "permit_office.h"
#include "records/conflict_frm.h"

namespace zelvo::testing {
namespace {

/// A permit on which two clerks work at the same time.
class TwoClerks : public PermitOffice {
 protected:
  TwoClerks() {
    parcels.SBLAdd("999-5-0-3-45", "26-1", "Old Owner", "", "14 Mill Road").ok();
    addOther("26-1");
    theirs([](Recordset& row) {
      row.set("SEC", "999"), row.set("SUD", "5"), row.set("BLK", "3"), row.set("LOT", "45");
      row.set("OWNNAME1", "Old Owner"), row.set("OWNADDR1", "1 Old Street"), row.set("LOCN1", "14 Mill Road");
      row.set("VD3", "03/01/2026"), row.set("VD4", "09/01/2026");
    });
    at.click(permits(), "IEdit");
  }

  APermits& permits() { return open(); }

  /// What the other clerk stores.
  void theirs(const std::function<void(Recordset&)>& change) {
    auto other = permitsNow();
    change(*other);
    other->set("BYUSER", "Dora");
    other->set("TSTAMP", at.time);
    ASSERT_TRUE(other->Update().ok());
  }

  /// The rows of the question, as the clerk sees them.
  static std::vector<std::vector<std::string>> rowsOf(Screen& question) {
    auto& list = dynamic_cast<ListView&>(*question.find("ListView1"));
    std::vector<std::vector<std::string>> rows(list.count());
    for (std::size_t row = 0; row < rows.size(); ++row)
      for (std::size_t column = 0; column < 4; ++column)
        rows[row].push_back(list.rows->cell(row, column));
    std::sort(rows.begin(), rows.end());
    return rows;
  }
};

using Rows = std::vector<std::vector<std::string>>;

TEST_F(TwoClerks, SecondSeesBothValuesAndTheChangesOfBothCanStand) {
  at.set(permits(), "Text1(18)", "My Owner");
  at.set(permits(), "Text1(42)", "my note");
  theirs([](Recordset& row) {
    row.set("OWNNAME1", "Their Owner");
    row.set("OWNPHONE", "555-0100");
    row.set("VD4", "10/01/2026");
  });
  std::string explained;
  at.when("ConflictFrm", [&](Screen& question) {
    explained = at.shown(question, "Label1");
    EXPECT_EQ(rowsOf(question), (Rows{{"Text1(13)", "10/01/2026", "09/01/2026", "theirs"},
                                      {"Text1(18)", "Their Owner", "My Owner", "what you typed"},
                                      {"Text1(19)", "555-0100", "", "theirs"},
                                      {"Text1(42)", "", "my note", "what you typed"}}));
    at.click(question, "cmdOK");
  });
  at.click(permits(), "ISave");
  EXPECT_EQ(explained,
            "Dora changed this permit on 03/09/2026 at 10:15 AM, while you worked on it. Nothing was overwritten. "
            "Please choose what is to stand.");
  auto row = permitsNow();
  EXPECT_EQ(row->text("OWNNAME1"), "My Owner");
  EXPECT_EQ(row->text("OWNPHONE"), "555-0100");
  EXPECT_EQ(row->text("VD4"), "10/1/2026");
  EXPECT_EQ(row->text("NOTES"), "my note");
  EXPECT_EQ(row->text("BYUSER"), "Clara Whitcombe-Sa");
}

TEST_F(TwoClerks, ChoiceIsTurnedFieldByFieldOrForAll) {
  at.set(permits(), "Text1(18)", "My Owner");
  at.set(permits(), "Text1(17)", "2 My Street");
  theirs([](Recordset& row) { row.set("OWNNAME1", "Their Owner"), row.set("OWNADDR1", "3 Their Street"); });
  at.when("ConflictFrm", [&](Screen& question) {
    at.click(question, "cmdMine");
    at.choose(question, "ListView1", "Text1(18)");
    at.click(question, "cmdTurn");
    at.click(question, "cmdOK");
  });
  at.click(permits(), "ISave");
  EXPECT_EQ(permitsNow()->text("OWNNAME1"), "Their Owner");
  EXPECT_EQ(permitsNow()->text("OWNADDR1"), "2 My Street");
}

TEST_F(TwoClerks, PuttingTheQuestionOffOverwritesNothingAndItComesAgain) {
  at.set(permits(), "Text1(18)", "My Owner");
  theirs([](Recordset& row) { row.set("OWNNAME1", "Their Owner"); });
  int asked = 0;
  at.when("ConflictFrm", [&](Screen& question) { at.click(question, ++asked < 2 ? "cmdCancel" : "cmdTheirs"); });
  at.click(permits(), "ISave");
  EXPECT_EQ(at.shown(permits(), "Text1(18)"), "My Owner");
  EXPECT_EQ(permitsNow()->text("OWNNAME1"), "Their Owner");
  at.click(permits(), "ISave");
  EXPECT_EQ(asked, 2);
  EXPECT_EQ(permitsNow()->text("OWNNAME1"), "Their Owner") << "closed without storing";
  at.click(permits(), "ICancel");
  EXPECT_EQ(at.shown(permits(), "Text1(18)"), "Their Owner");
}

TEST_F(TwoClerks, RecordThatSomeoneRemovedKeepsTheTyping) {
  at.set(permits(), "Text1(18)", "My Owner");
  ASSERT_TRUE(permitsNow()->Delete().ok());
  at.expect(" Building Permits", "This permit was removed on another computer. What you typed is still on the screen.");
  at.click(permits(), "ISave");
  EXPECT_EQ(at.shown(permits(), "Text1(18)"), "My Owner");
}

}  // namespace
}  // namespace zelvo::testing
